#include "workspace/ChartRowsModel.h"

#include "core/text.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

namespace ospra {

ChartRowsModel::ChartRowsModel(QObject* parent) : ModelList(parent)
{
    QAccessible::installActivationObserver(this);
}

ChartRowsModel::~ChartRowsModel()
{
    QAccessible::removeActivationObserver(this);
}

void ChartRowsModel::accessibilityActiveChanged(bool active)
{
    m_hasReader = active;
    if (active)
        emit hoverChanged(0, rowCount() - 1);
}

void ChartRowsModel::follow(const OspraModel& model)
{
    connect(&model, &OspraModel::enabledSeriesChanged, this, &ChartRowsModel::updateRows);
    connect(&model, &OspraModel::enabledDistanceSeriesChanged, this, &ChartRowsModel::updateRows);
    connect(&model, &OspraModel::visibleDataChanged, this, &ChartRowsModel::updateContents);
    connect(&model, &OspraModel::hoveredSecondsChanged, this, &ChartRowsModel::updateHover);
    connect(&model, &OspraModel::enabledSeriesChanged, this, &ChartRowsModel::hasSeriesChanged);
    connect(&model, &OspraModel::enabledDistanceSeriesChanged, this, &ChartRowsModel::hasSeriesChanged);
}

void ChartRowsModel::readSource()
{
    updateRows();
    emit hasSeriesChanged();
}

void ChartRowsModel::setPalette(const QList<QColor>& colors)
{
    if (m_colors == colors)
        return;
    m_colors = colors;
    for (std::size_t index = 0; index < m_palette.size() && std::ssize(colors) > std::ptrdiff_t(index); ++index)
        m_palette[index] = colors[qsizetype(index)].rgb() & 0xffffff;
    emit paletteChanged();
    refresh(0, rowCount() - 1, {ContentRole});
    emit hoverChanged(0, rowCount() - 1);
}

bool ChartRowsModel::hasSeries() const
{
    return source() && !(source()->enabledSeries().empty() && source()->enabledDistanceSeries().empty());
}

void ChartRowsModel::setFirstOnScreen(int row)
{
    if (std::exchange(m_firstOnScreen, row) == row)
        return;
    updateHover();
    emit onScreenChanged();
}

void ChartRowsModel::setLastOnScreen(int row)
{
    if (std::exchange(m_lastOnScreen, row) == row)
        return;
    updateHover();
    emit onScreenChanged();
}

qreal ChartRowsModel::hoveredSeconds() const
{
    constexpr qreal nothing = std::numeric_limits<qreal>::quiet_NaN();
    return source() ? source()->hoveredSeconds().value_or(nothing) : nothing;
}

QString ChartRowsModel::timeLabel() const
{
    if (!source())
        return {};
    return toQString(hoveredTimeLabel(source()->tracks(), source()->hoveredSeconds()).value_or(std::string{}));
}

const std::vector<HoverRow>& ChartRowsModel::readings(int row) const
{
    static const std::vector<HoverRow> nothing;
    return row >= 0 && row < rowCount() ? m_readings[static_cast<std::size_t>(row)] : nothing;
}

PlotDots ChartRowsModel::dots(int row) const
{
    return row >= 0 && row < rowCount() ? rowDots(m_rows[static_cast<std::size_t>(row)], *source(), m_palette)
                                        : PlotDots{};
}

qreal ChartRowsModel::moveCursor(Step step)
{
    constexpr qreal nothing = std::numeric_limits<qreal>::quiet_NaN();
    if (!source() || source()->tracks().empty())
        return nothing;
    const std::vector<double>& elapsed = source()->tracks().front().elapsed;
    const TimeRange shown = source()->displayRange();
    const std::optional<double> before = source()->hoveredSeconds();
    const std::optional<double> next = stepCursor(elapsed, shown, before, static_cast<CursorStep>(step));
    if (!next)
        return nothing;
    source()->setHoveredSeconds(next);
    return before && *before >= shown.lo && *before <= shown.hi ? *before : hoveredSeconds();
}

int ChartRowsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant ChartRowsModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const ChartRow& row = m_rows[static_cast<std::size_t>(index.row())];
    switch (role) {
    case TitleRole: return toQString(rowTitle(row));
    case ColorRole: return static_cast<int>(rowColor(row));
    case UnitRole: return toQString(rowUnit(row, source()->units()));
    case ShowsTimeRole: return row == ChartRow{.kind = ChartRow::Kind::series, .series = DataSeries::elevation};
    case ContentRole: return QVariant::fromValue(rowContent(row, *source(), m_palette));
    default: return {};
    }
}

QHash<int, QByteArray> ChartRowsModel::roleNames() const
{
    return {{TitleRole, "title"},
            {ColorRole, "rowColor"},
            {UnitRole, "unit"},
            {ShowsTimeRole, "showsTime"},
            {ContentRole, "content"}};
}

/// Takes out the rows that are off now and puts in those that are new, so that the others keep their pictures.
void ChartRowsModel::updateRows()
{
    const std::vector<ChartRow> wanted = source() ? chartRows(*source()) : std::vector<ChartRow>{};
    for (int index = rowCount() - 1; index >= 0; --index) {
        if (std::ranges::binary_search(wanted, m_rows[static_cast<std::size_t>(index)]))
            continue;
        beginRemoveRows({}, index, index);
        m_rows.erase(m_rows.begin() + index);
        m_readings.erase(m_readings.begin() + index);
        endRemoveRows();
    }
    for (std::size_t index = 0; index < wanted.size(); ++index) {
        if (index < m_rows.size() && m_rows[index] == wanted[index])
            continue;
        const int row = static_cast<int>(index);
        beginInsertRows({}, row, row);
        m_rows.insert(m_rows.begin() + row, wanted[index]);
        m_readings.insert(m_readings.begin() + row, rowReadings(wanted[index], *source()));
        endInsertRows();
    }
}

void ChartRowsModel::updateContents()
{
    updateRows();
    refresh(0, rowCount() - 1, {UnitRole, ContentRole});
    updateHoverIn(0, rowCount() - 1);
}

void ChartRowsModel::updateHover()
{
    updateHoverIn(std::max(m_firstOnScreen, 0), std::min(m_lastOnScreen, rowCount() - 1));
}

void ChartRowsModel::updateHoverIn(int first, int last)
{
    for (int row = first; row <= last; ++row) {
        const auto index = static_cast<std::size_t>(row);
        m_readings[index] = rowReadings(m_rows[index], *source());
    }
    emit hoverChanged(first, last);
}

void ChartRowsModel::refresh(int first, int last, const QList<int>& roles)
{
    if (first <= last)
        emit dataChanged(index(first), index(last), roles);
}

} // namespace ospra
