#pragma once

#include "core/OspraModel.h"
#include "platform/Calendar.h"
#include "platform/DateTexts.h"
#include "workspace/ModelList.h"

#include <QQmlEngine>
#include <QVariantList>

#include <cstddef>
#include <memory>
#include <vector>

namespace ospra {

/// The rows of the sidebar, top to bottom: the overview, the day filter while one is set, and the jumps under their
/// days. Empty while there is no jump. Texts are made when a row is shown.
class SidebarModel : public ospra::ModelList { // in full, as qmllint finds the base only so
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(int selectedRow READ selectedRow NOTIFY selectedRowChanged)

public:
    enum RowKind { Overview, Heading, Filter, Jump };
    Q_ENUM(RowKind)

    explicit SidebarModel(QObject* parent = nullptr);

    /// The row of the model's selection, -1 if it has none on the list.
    [[nodiscard]] int selectedRow() const { return m_selectedRow; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    /// What a click on the row does.
    Q_INVOKABLE void activate(int row);
    /// Writes the ages of the jumps anew.
    Q_INVOKABLE void refreshAges();

signals:
    void selectedRowChanged();

protected:
    void follow(const OspraModel& model) override;
    void readSource() override;

private:
    enum Role { KindRole = Qt::UserRole, TitleRole, NameRole, AgeRole, DotsRole };

    struct Row {
        RowKind kind = Jump;
        QString title{};       ///< of all rows but those of jumps
        std::size_t group = 0; ///< position of a jump in the model's list
    };

    void rebuild();
    void updateSelectedRow();
    [[nodiscard]] std::vector<Row> makeRows() const;
    [[nodiscard]] int findSelectedRow() const;
    [[nodiscard]] QString jumpTitle(const JumpGroup& group) const;
    [[nodiscard]] QString jumpAge(const JumpGroup& group) const;
    [[nodiscard]] QVariantList companionDots(const JumpGroup& group) const;

    std::unique_ptr<Calendar> m_calendar;
    std::unique_ptr<DateTexts> m_texts;
    std::vector<Row> m_rows;
    int m_selectedRow = -1;
};

} // namespace ospra
