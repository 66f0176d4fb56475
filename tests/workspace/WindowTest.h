#pragma once

#include "tests/core/ModelTestBed.h"
#include "workspace/shell/CheckForUpdatesViewModel.h"
#include "workspace/shell/UnitsSetting.h"

#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QStringList>

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <vector>

namespace ospra {

/// The real window with its menus, on a model of the test's own without folders. QML that warns fails.
class WindowTest : public ModelTest {
protected:
    WindowTest();
    void SetUp() override { openMainWindow(nullptr); }
    void TearDown() override;

    void openMainWindow(CheckForUpdatesViewModel* updates);
    /// The window that a QML document describes.
    void open(const QByteArray& document, const QVariantMap& properties);
    /// Opens a folder of two jumps, the newer one with a companion, who is added.
    void openJumps();

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, int times = 1);

    /// A menu of the bar, by its position, and what it shows: texts, "-" for lines, "(text)" where disabled.
    [[nodiscard]] QObject* menu(int position) const;
    [[nodiscard]] static QString entries(QObject* menu);
    /// What a menu or the bar of menus has at an index.
    [[nodiscard]] static QQuickItem* itemAt(QObject* menu, int index);
    /// The items of a type that can be seen, a parent before its children.
    template <typename Item = QQuickItem>
    static std::vector<Item*> visibleItems(QQuickItem* parent)
    {
        std::vector<Item*> list;
        if (!parent->isVisible())
            return list;
        if (auto* const item = qobject_cast<Item*>(parent))
            list.push_back(item);
        for (QQuickItem* const child : parent->childItems())
            std::ranges::copy(visibleItems<Item>(child), std::back_inserter(list));
        return list;
    }
    /// An item somewhere in the window whose property has the value; null if none can be seen.
    [[nodiscard]] QQuickItem* itemWith(const char* property, const QVariant& value) const;
    /// The other window with that title that is on screen; null if there is none.
    [[nodiscard]] static QQuickWindow* windowTitled(const QString& title);

    UnitsSetting units{std::shared_ptr<SettingsStore>(&bed.settings(), [](SettingsStore*) {}), true, model};
    QStringList warnings;
    std::unique_ptr<QQmlApplicationEngine> engine = std::make_unique<QQmlApplicationEngine>();
    QQuickWindow* window = nullptr;
};

} // namespace ospra
