#include "workspace/theme/desktop/tabularFamily.h"

#include <QFont>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QHash>
#include <QRawFont>
#include <QStringList>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <vector>

namespace ospra {

namespace {

struct Table {
    QByteArray tag;
    QByteArray data;
};

// Whatever a font needs to be drawn and spaced; what is absent is left out.
constexpr std::array copiedTables{"CFF ", "CFF2", "GDEF", "GPOS", "OS/2", "VORG", "cmap", "cvt ", "fpgm", "gasp",
                                  "glyf", "head", "hhea", "hmtx", "kern", "loca", "maxp", "post", "prep"};

template <typename Number>
void append(QByteArray& bytes, Number value)
{
    const Number ordered = qToBigEndian(value);
    bytes.append(reinterpret_cast<const char*>(&ordered), sizeof ordered);
}

std::optional<qsizetype> readShort(const QByteArray& bytes, qsizetype offset)
{
    if (offset < 0 || offset + 2 > bytes.size())
        return std::nullopt;
    return qFromBigEndian<quint16>(bytes.constData() + offset);
}

// The names of family and style, in Unicode for Windows, which every system reads.
QByteArray nameTable(const QString& family, const QString& style)
{
    struct Name {
        quint16 id;
        QString text;
    };
    const QString joined = family + QLatin1Char('-') + style;
    const std::array names{Name{1, family}, Name{2, style}, Name{3, joined}, Name{4, joined},
                           Name{6, QString(joined).remove(QLatin1Char(' '))}};
    QByteArray records;
    QByteArray storage;
    for (const Name& name : names) {
        const auto length = static_cast<quint16>(name.text.size() * 2);
        for (const quint16 field :
             {quint16{3}, quint16{1}, quint16{0x409}, name.id, length, static_cast<quint16>(storage.size())})
            append(records, field);
        for (const QChar letter : name.text)
            append(storage, letter.unicode());
    }
    QByteArray table;
    append(table, quint16{0});
    append(table, static_cast<quint16>(names.size()));
    append(table, static_cast<quint16>(6 + records.size()));
    return table + records + storage;
}

// `data` is filled up to whole words.
quint32 checksum(const QByteArray& data)
{
    quint32 sum = 0;
    for (qsizetype offset = 0; offset + 4 <= data.size(); offset += 4)
        sum += qFromBigEndian<quint32>(data.constData() + offset);
    return sum;
}

// A font file of these tables, which are sorted by tag.
QByteArray fontFile(const std::vector<Table>& tables)
{
    const bool isPostScript = std::ranges::any_of(tables, [](const Table& table) { return table.tag == "CFF "; });
    const auto count = static_cast<quint16>(tables.size());
    quint16 power = 1;
    quint16 exponent = 0;
    for (; power * 2 <= count; power = static_cast<quint16>(power * 2))
        ++exponent;
    QByteArray directory;
    append(directory, isPostScript ? quint32{0x4F54544F} : quint32{0x00010000});
    for (const int field : {int{count}, power * 16, int{exponent}, (count - power) * 16})
        append(directory, static_cast<quint16>(field));
    QByteArray contents;
    const qsizetype contentsStart = 12 + 16 * static_cast<qsizetype>(tables.size());
    for (const Table& table : tables) {
        QByteArray padded = table.data;
        padded.append((4 - padded.size() % 4) % 4, '\0');
        directory += table.tag;
        append(directory, checksum(padded));
        append(directory, static_cast<quint32>(contentsStart + contents.size()));
        append(directory, static_cast<quint32>(table.data.size()));
        contents += padded;
    }
    return directory + contents;
}

// Large, so that differences show.
QFont largeFont(const QString& family, QFont::Weight weight)
{
    QFont font(family);
    font.setPixelSize(100);
    font.setWeight(weight);
    return font;
}

bool hasEvenDigits(const QString& family)
{
    // Texts, not characters: only a text is shaped.
    const QFontMetricsF metrics(largeFont(family, QFont::Normal));
    const qreal width = metrics.horizontalAdvance(QStringLiteral("0"));
    return std::ranges::all_of(QStringLiteral("123456789"), [&](QChar digit) {
        return std::abs(metrics.horizontalAdvance(QString(digit)) - width) < 0.5;
    });
}

// A copy of the font under another name, always with digits of equal width; empty if that cannot be.
QByteArray tabularCopy(const QRawFont& font, const QString& family)
{
    const QByteArray substitutions = withTabularDigits(font.fontTable("GSUB"));
    if (substitutions.isEmpty() || !font.fontTable("fvar").isEmpty())
        return {};
    std::vector<Table> tables{{"GSUB", substitutions}, {"name", nameTable(family, font.styleName())}};
    for (const char* tag : copiedTables)
        if (const QByteArray data = font.fontTable(tag); !data.isEmpty())
            tables.push_back({tag, data});
    std::ranges::sort(tables, {}, &Table::tag);
    return fontFile(tables);
}

// The copies of the weights that the program uses, known to the process from now on; false if one cannot be made.
bool addCopies(const QString& family, const QString& name)
{
    for (const QFont::Weight weight : {QFont::Normal, QFont::Medium, QFont::DemiBold}) {
        const QByteArray copy = tabularCopy(QRawFont::fromFont(largeFont(family, weight)), name);
        if (copy.isEmpty() || QFontDatabase::addApplicationFontFromData(copy) < 0)
            return false;
    }
    return true;
}

QString makeTabularFamily(const QString& family)
{
    QString name = family + QStringLiteral(" Tabular");
    if (hasEvenDigits(family) || !addCopies(family, name) || !hasEvenDigits(name))
        return family;
    return name;
}

} // namespace

QByteArray withTabularDigits(QByteArray substitutions)
{
    constexpr qsizetype featureListField = 6;
    constexpr qsizetype recordSize = 6; // four letters and an offset
    const auto list = readShort(substitutions, featureListField);
    const auto count = list ? readShort(substitutions, *list) : std::nullopt;
    if (!count || *list + 2 + *count * recordSize > substitutions.size())
        return {};
    bool isFound = false;
    for (qsizetype index = 0; index < *count; ++index) {
        const qsizetype record = *list + 2 + index * recordSize;
        if (substitutions.mid(record, 4) != "tnum")
            continue;
        substitutions.replace(record, 4, "rclt"); // contextual alternates that a text must have
        isFound = true;
    }
    return isFound ? substitutions : QByteArray();
}

QString tabularFamily(const QString& family)
{
    static QHash<QString, QString> known;
    const auto found = known.constFind(family);
    return found != known.cend() ? *found : *known.insert(family, makeTabularFamily(family));
}

} // namespace ospra
