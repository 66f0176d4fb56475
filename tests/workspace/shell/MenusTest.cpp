#include "tests/workspace/shell/ShellTestBed.h"

#include <QClipboard>
#include <QFileDialog>
#include <QGuiApplication>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>

namespace ospra {
namespace {

enum Position { applicationMenu, fileMenu, editMenu, companionsMenu, jumpMenu };

class MenuBar : public ShellTestBed {
protected:
    [[nodiscard]] QObject* commands() const { return window->findChild<QObject*>(QStringLiteral("windowCommands")); }

    [[nodiscard]] QStringList all() const
    {
        QStringList texts;
        for (const Position position : {fileMenu, editMenu, companionsMenu, jumpMenu})
            texts.append(entries(menu(position)).join(QStringLiteral(", ")));
        return texts;
    }

    [[nodiscard]] static QFileDialog* panel()
    {
        const QWidgetList widgets = QApplication::topLevelWidgets();
        for (QWidget* widget : widgets) {
            if (auto* dialog = qobject_cast<QFileDialog*>(widget); dialog && dialog->isVisible())
                return dialog;
        }
        return nullptr;
    }

    void expectPanel(Qt::Key key, Qt::KeyboardModifiers modifiers, const char* message, const char* confirm)
    {
        press(key, modifiers);
        QFileDialog* const dialog = panel();
        ASSERT_TRUE(dialog);
        EXPECT_EQ(dialog->windowTitle(), QLatin1String(message));
        EXPECT_EQ(dialog->labelText(QFileDialog::Accept), QLatin1String(confirm));
        dialog->reject();
        EXPECT_TRUE(QTest::qWaitFor([] { return !panel(); }));
        window->requestActivate();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window));
    }
};

TEST_F(MenuBar, whatCanBeDoneFollowsFoldersAndTracks)
{
    openWindow();
    const QString noFolder =
        QStringLiteral("Open Folder..., (Add Companion Folder...), -, (Refresh), (Close Current Folder)");
    const QString folder = QStringLiteral("Open Folder..., Add Companion Folder..., -, Refresh, Close Current Folder");
    const QString noTracks = QStringLiteral("(Zoom to Freefall), (Zoom to Canopy), (Show All)");
    const QString tracks = QStringLiteral("Zoom to Freefall, Zoom to Canopy, Show All");
    const QStringList nothing{noFolder, QStringLiteral("(Copy)"), QStringLiteral("(Add Companion Folder...)"),
                              noTracks};
    EXPECT_EQ(all(), nothing);

    bed.addLog("me", "a.csv");
    model.openFolder(bed.folder("me"));
    bed.settle();
    const QStringList alone{folder, QStringLiteral("(Copy)"), QStringLiteral("Add Companion Folder..."), noTracks};
    EXPECT_EQ(all(), alone);

    model.selectNextJump();
    bed.settle();
    EXPECT_EQ(all().back(), tracks);
    bed.addFile("me", "bad.csv", "");
    model.rebuildGroups();
    bed.settle();
    const auto bad =
        std::ranges::find(model.jumpGroups(), "bad", [](const JumpGroup& group) { return group.primaryEntry.name; });
    ASSERT_NE(bad, model.jumpGroups().end());
    model.openGroup(*bad); // another jump is on its way: the old tracks can still be zoomed
    EXPECT_TRUE(model.isLoading());
    EXPECT_EQ(all().back(), tracks);
    bed.settle();
    ASSERT_TRUE(model.hasError()); // it could not be loaded
    EXPECT_EQ(all().back(), noTracks);
    model.dismissError();
    model.closeFolder();
    EXPECT_EQ(all(), nothing);
}

TEST_F(MenuBar, companionsAreListedInTheirOrderAndCanBeRemoved)
{
    openWindow();
    openFolders();
    bed.addLog("Jonas", "b.csv");
    model.addCompanion(bed.folder("Jonas"));
    bed.settle();
    QObject* const companions = menu(companionsMenu);
    EXPECT_EQ(entries(companions).join(QLatin1Char('|')), "Add Companion Folder...|-|Remove Maya|Remove Jonas");
    QQuickItem* maya = nullptr;
    QMetaObject::invokeMethod(companions, "itemAt", Q_RETURN_ARG(QQuickItem*, maya), Q_ARG(int, 2));
    QMetaObject::invokeMethod(maya, "press");
    bed.settle();
    EXPECT_EQ(entries(companions).join(QLatin1Char('|')), "Add Companion Folder...|-|Remove Jonas");
    ASSERT_EQ(model.jumpers().size(), 2u);
    EXPECT_EQ(model.jumpers().back().name, "Jonas");
    model.removeCompanion(model.jumpers().back().id);
    bed.settle();
    EXPECT_EQ(entries(companions).join(QLatin1Char('|')), "Add Companion Folder...");
}

TEST_F(MenuBar, shortcutsStandInTheEntriesAndActOnce)
{
    openWindow();
    openFolders();
    press(Qt::Key_Down);
    struct Row {
        Position menu;
        int entry;
        const char* shortcut;
    };
    for (const auto& [position, entry, shortcut] :
         {Row{fileMenu, 0, "Ctrl+O"}, Row{fileMenu, 1, "Ctrl+Shift+A"}, Row{fileMenu, 3, "Ctrl+R"},
          Row{fileMenu, 4, "Ctrl+Shift+W"}, Row{editMenu, 0, "Ctrl+C"}, Row{companionsMenu, 0, "Ctrl+Shift+A"},
          Row{jumpMenu, 0, "Ctrl+1"}, Row{jumpMenu, 1, "Ctrl+2"}, Row{jumpMenu, 2, "Ctrl+3"}}) {
        QQuickItem* item = nullptr;
        QMetaObject::invokeMethod(menu(position), "itemAt", Q_RETURN_ARG(QQuickItem*, item), Q_ARG(int, entry));
        EXPECT_EQ(item->property("shortcutText").toString(), shortcut);
    }
    ASSERT_TRUE(commands());
    const QSignalSpy companion(commands(), SIGNAL(addCompanionFolder()));
    expectPanel(Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier,
                "Select a folder containing a companion jumper's FlySight CSV files", "Add");
    EXPECT_EQ(companion.count(), 1);
    expectPanel(Qt::Key_O, Qt::ControlModifier, "Select a folder containing FlySight CSV files", "Open");
    const int revision = model.jumpGroupsRevision();
    press(Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(model.jumpGroupsRevision(), revision + 1);
    press(Qt::Key_W, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_FALSE(model.hasJumpers());
    const int closed = model.jumpGroupsRevision();
    press(Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier);
    press(Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(companion.count(), 1);
    EXPECT_EQ(model.jumpGroupsRevision(), closed);
}

TEST_F(MenuBar, theJumpsCommandsReachTheModelAsOftenAsTheyAreGiven)
{
    openWindow();
    openFolders();
    press(Qt::Key_Down);
    for (int time = 0; time < 2; ++time) { // given again, a zoom is no switch
        press(Qt::Key_1, Qt::ControlModifier);
        EXPECT_EQ(model.activeZoomMode(), ZoomMode::freefall);
        EXPECT_TRUE(model.zoomRange());
    }
    press(Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(model.activeZoomMode(), ZoomMode::canopy);
    press(Qt::Key_3, Qt::ControlModifier);
    EXPECT_FALSE(model.activeZoomMode());
    EXPECT_FALSE(model.zoomRange());

    // Off the screen, the content hears nothing.
    QQuickItem* const content = qobject_cast<QQuickItem*>(window->findChild<QObject*>(QStringLiteral("content")));
    ASSERT_TRUE(content);
    content->setVisible(false);
    QMetaObject::invokeMethod(commands(), "zoomToFreefall");
    EXPECT_FALSE(model.activeZoomMode());
    content->setVisible(true);
    QMetaObject::invokeMethod(commands(), "zoomToFreefall");
    EXPECT_EQ(model.activeZoomMode(), ZoomMode::freefall);
}

TEST_F(MenuBar, keysOpenTheMenusAndTheFocusComesBack)
{
    openWindow();
    openFolders();
    struct Row {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        Position menu;
    };
    for (const auto& [key, modifiers, position] :
         {Row{Qt::Key_F10, Qt::NoModifier, applicationMenu}, Row{Qt::Key_F, Qt::AltModifier, fileMenu},
          Row{Qt::Key_E, Qt::AltModifier, editMenu}, Row{Qt::Key_C, Qt::AltModifier, companionsMenu},
          Row{Qt::Key_J, Qt::AltModifier, jumpMenu}}) {
        SCOPED_TRACE(key);
        QObject* const opened = menu(position);
        QQuickItem* const focusBefore = window->activeFocusItem();
        press(key, modifiers);
        EXPECT_TRUE(QTest::qWaitFor([opened] { return opened->property("opened").toBool(); }));
        press(Qt::Key_Escape);
        EXPECT_TRUE(QTest::qWaitFor([opened] { return !opened->property("visible").toBool(); }));
        EXPECT_TRUE(QTest::qWaitFor([this, focusBefore] { return window->activeFocusItem() == focusBefore; }));
    }
    press(Qt::Key_Down); // and the keys of the window work again
    EXPECT_FALSE(model.sidebarSelection()->isOverview());
}

TEST_F(MenuBar, copyTakesTheFocusedStatisticWithItsUnit)
{
    openWindow();
    openFolders();
    press(Qt::Key_Down);
    QGuiApplication::clipboard()->clear();
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "");
    QQuickItem* const exit = itemWith("label", QStringLiteral("Exit"));
    ASSERT_TRUE(exit);
    QMetaObject::invokeMethod(exit, "takeFocus");
    EXPECT_EQ(entries(menu(editMenu)), QStringList{QStringLiteral("Copy")});
    press(Qt::Key_C, Qt::ControlModifier);
    const QString value = exit->property("value").toString();
    EXPECT_TRUE(value.endsWith(QStringLiteral(" m"))) << value.toStdString();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), value);

    press(Qt::Key_Right);
    press(Qt::Key_Right);
    press(Qt::Key_Left);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              itemWith("label", QStringLiteral("Pitch"))->property("value").toString());

    // From the menu, which has the focus itself while it is open; in the other units by now.
    model.setUseMetric(false);
    press(Qt::Key_E, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([this] { return menu(editMenu)->property("opened").toBool(); }));
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_TRUE(QGuiApplication::clipboard()->text().endsWith(QStringLiteral(" ft")));

    model.setOverviewTimeRange(OverviewTimeRange::all);
    model.selectSidebarItem(SidebarSelection::overview()); // what was focused is gone from the screen
    QTest::qWait(50);
    EXPECT_EQ(entries(menu(editMenu)), QStringList{QStringLiteral("(Copy)")});
    QQuickItem* const card = itemWith("title", QStringLiteral("Visible Jumps"));
    ASSERT_TRUE(card);
    QTest::mouseClick(window, Qt::LeftButton, {}, card->mapToScene(QPointF(10, 10)).toPoint());
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "2");
}

} // namespace
} // namespace ospra
