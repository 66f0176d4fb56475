#include "tests/workspace/WindowTest.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QSignalSpy>
#include <QTest>

namespace ospra {
namespace {

enum Position { fileMenu = 1, editMenu, companionsMenu, jumpMenu };

class MenuBar : public WindowTest {
protected:
    [[nodiscard]] QObject* commands() const { return window->findChild<QObject*>(QStringLiteral("windowCommands")); }

    [[nodiscard]] QStringList all() const
    {
        QStringList texts;
        for (const Position position : {fileMenu, editMenu, companionsMenu, jumpMenu})
            texts.append(entries(menu(position)));
        return texts;
    }
};

TEST_F(MenuBar, whatCanBeDoneFollowsFoldersAndTracks)
{
    const QString noFolder =
        QStringLiteral("Open Folder..., (Add Companion Folder...), -, (Refresh), (Close Current Folder)");
    const QString folder = QStringLiteral("Open Folder..., Add Companion Folder..., -, Refresh, Close Current Folder");
    const QString noTracks = QStringLiteral("(Zoom to Freefall), (Zoom to Canopy), (Show All)");
    const QString tracks = QStringLiteral("Zoom to Freefall, Zoom to Canopy, Show All");
    const QStringList nothing{noFolder, QStringLiteral("(Copy)"), QStringLiteral("(Add Companion Folder...)"),
                              noTracks};
    EXPECT_EQ(all(), nothing);

    bed.addLog("me", "a.csv");
    bed.addFile("me", "bad.csv", "");
    bed.openFolders("me");
    const QStringList alone{folder, QStringLiteral("(Copy)"), QStringLiteral("Add Companion Folder..."), noTracks};
    EXPECT_EQ(all(), alone);

    model.openGroup(bed.jump("a"));
    bed.settle();
    EXPECT_EQ(all().back(), tracks);
    model.openGroup(bed.jump("bad")); // another jump is on its way: the old tracks can still be zoomed
    EXPECT_TRUE(model.isLoading());
    EXPECT_EQ(all().back(), tracks);
    bed.settle();
    ASSERT_TRUE(model.hasError()); // it could not be loaded
    EXPECT_EQ(all().back(), noTracks);
    model.dismissError();
    model.closeFolder();
    EXPECT_EQ(all(), nothing);
}

TEST_F(MenuBar, shortcutsStandInTheEntriesAndActOnceWhereTheyAreEnabled)
{
    openJumps();
    EXPECT_EQ(itemAt(menu(fileMenu), 4)->property("shortcutText"), "Ctrl+Shift+W");
    const int revision = model.jumpGroupsRevision();
    press(Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(model.jumpGroupsRevision(), revision + 1);
    press(Qt::Key_W, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_FALSE(model.hasJumpers());
    const int closed = model.jumpGroupsRevision();
    const QSignalSpy companion(commands(), SIGNAL(addCompanionFolder()));
    press(Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier);
    press(Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(companion.count(), 0);
    EXPECT_EQ(model.jumpGroupsRevision(), closed);
}

TEST_F(MenuBar, theJumpsCommandsAreNoSwitchesAndReachOnlyWhatIsOnScreen)
{
    openJumps();
    press(Qt::Key_Down);
    press(Qt::Key_1, Qt::ControlModifier, 2);
    EXPECT_EQ(model.activeZoomMode(), ZoomMode::freefall);
    EXPECT_TRUE(model.zoomRange());
    press(Qt::Key_3, Qt::ControlModifier);
    EXPECT_FALSE(model.activeZoomMode() || model.zoomRange());

    auto* const content = window->findChild<QQuickItem*>(QStringLiteral("content"));
    ASSERT_TRUE(content);
    for (const bool isVisible : {false, true}) {
        content->setVisible(isVisible);
        QMetaObject::invokeMethod(commands(), "zoomToFreefall");
        EXPECT_EQ(model.activeZoomMode() == ZoomMode::freefall, isVisible);
    }
}

TEST_F(MenuBar, copyTakesTheFocusedStatisticWithItsUnit)
{
    openJumps();
    press(Qt::Key_Down);
    QGuiApplication::clipboard()->clear();
    const auto copied = [this] {
        press(Qt::Key_C, Qt::ControlModifier);
        return QGuiApplication::clipboard()->text();
    };
    EXPECT_EQ(copied(), "");
    QQuickItem* const exit = itemWith("label", QStringLiteral("Exit"));
    ASSERT_TRUE(exit);
    QMetaObject::invokeMethod(exit, "takeFocus");
    EXPECT_EQ(entries(menu(editMenu)), "Copy");
    EXPECT_EQ(copied(), exit->property("value").toString());
    EXPECT_TRUE(copied().endsWith(QStringLiteral(" m"))) << copied().toStdString();
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Left})
        press(key);
    EXPECT_EQ(copied(), itemWith("label", QStringLiteral("Pitch"))->property("value").toString());

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
    EXPECT_EQ(entries(menu(editMenu)), "(Copy)");
    QQuickItem* const card = itemWith("title", QStringLiteral("Visible Jumps"));
    ASSERT_TRUE(card);
    QTest::mouseClick(window, Qt::LeftButton, {}, card->mapToScene(QPointF(10, 10)).toPoint());
    EXPECT_EQ(copied(), "2");
}

} // namespace
} // namespace ospra
