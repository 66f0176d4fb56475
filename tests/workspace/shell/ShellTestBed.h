#pragma once

#include "tests/core/ModelTestBed.h"
#include "workspace/shell/CheckForUpdatesViewModel.h"
#include "workspace/shell/UnitsSetting.h"

#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QStringList>

#include <gtest/gtest.h>

#include <memory>

namespace ospra {

/// The real window with its menus, on a model of the test's own.
class ShellTestBed : public ::testing::Test {
protected:
    void TearDown() override;

    /// Opens the window; without folders, unless the test has opened some.
    void openWindow(CheckForUpdatesViewModel* updates = nullptr);
    /// Opens a folder of two jumps, the newer one with a companion, who is added.
    void openFolders();

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    /// A menu of the bar, by its position, and what it shows: texts, "-" for lines, "(text)" where disabled.
    [[nodiscard]] QObject* menu(int position) const;
    [[nodiscard]] static QStringList entries(QObject* menu);
    /// A QML object somewhere in the window whose property has the value; null if there is none.
    [[nodiscard]] QQuickItem* itemWith(const char* property, const QVariant& value) const;
    /// The other window with that title that is on screen; null if there is none.
    [[nodiscard]] static QQuickWindow* windowTitled(const QString& title);

    ModelTestBed bed;
    OspraModel& model = bed.model();
    UnitsSetting units{std::shared_ptr<SettingsStore>(&bed.settings(), [](SettingsStore*) {}), true, model};
    QStringList warnings;
    std::unique_ptr<QQmlApplicationEngine> engine = std::make_unique<QQmlApplicationEngine>();
    QQuickWindow* window = nullptr;
};

} // namespace ospra
