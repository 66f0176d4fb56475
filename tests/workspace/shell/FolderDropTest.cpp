#include "tests/workspace/WindowTest.h"

#include <QDropEvent>
#include <QMimeData>
#include <QRandomGenerator>
#include <QTest>

namespace ospra {
namespace {

class FolderDrop : public WindowTest {
protected:
    void SetUp() override
    {
        bed.addLog("me", "a.csv");
        bed.addLog("Maya", "b.csv");
        WindowTest::SetUp();
    }

    void drag(const std::vector<std::filesystem::path>& paths)
    {
        QList<QUrl> addresses;
        for (const std::filesystem::path& path : paths)
            addresses.append(QUrl::fromLocalFile(QString::fromStdString(path)));
        data.setUrls(addresses);
        enter();
    }

    bool enter()
    {
        QDragEnterEvent event(middle(), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(window, &event);
        return event.isAccepted(); // the toolkit passes no action on, and sends a move at once
    }

    bool move(int x)
    {
        QDragMoveEvent event(middle() + QPoint(x, 0), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
        return send(event);
    }

    bool drop(Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QDropEvent event(middle(), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, modifiers);
        return send(event);
    }

    /// The other program proposes to move the folder; each answer must say that it stays there.
    bool send(QDropEvent& event)
    {
        event.setDropAction(Qt::MoveAction);
        QCoreApplication::sendEvent(window, &event);
        EXPECT_TRUE(!event.isAccepted() || event.dropAction() == Qt::CopyAction);
        return event.isAccepted();
    }

    void leave()
    {
        QDragLeaveEvent event;
        QCoreApplication::sendEvent(window, &event);
    }

    [[nodiscard]] bool isOffered() const { return itemWith("isOffered", true) != nullptr; }
    [[nodiscard]] bool waitUntilOffered() const
    {
        return QTest::qWaitFor([this] { return isOffered(); });
    }
    [[nodiscard]] QPoint middle() const { return {window->width() / 2, window->height() / 2}; }

    using Names = std::vector<std::string>;
    [[nodiscard]] Names names() const
    {
        Names list;
        for (const Jumper& jumper : model.jumpers())
            list.push_back(jumper.name);
        return list;
    }

    QMimeData data;
};

TEST_F(FolderDrop, aFolderBecomesThePrimarysAndWithShiftACompanions)
{
    drag({bed.folder("me")});
    ASSERT_TRUE(waitUntilOffered());
    EXPECT_TRUE(model.jumpers().empty());
    EXPECT_TRUE(drop(Qt::ShiftModifier)); // there is nobody whose companion this could be
    EXPECT_FALSE(isOffered());
    EXPECT_EQ(names(), Names{"me"});
    for (const auto& [modifiers, wanted] :
         {std::pair(Qt::ShiftModifier, Names{"me", "Maya"}), std::pair(Qt::NoModifier, Names{"Maya"})}) {
        bed.settle();
        drag({bed.folder("Maya")});
        ASSERT_TRUE(waitUntilOffered());
        EXPECT_TRUE(drop(modifiers));
        EXPECT_EQ(names(), wanted);
    }
    bed.settle();
}

TEST_F(FolderDrop, aDropBeforeTheAnswerWaitsForIt)
{
    drag({bed.folder("me")});
    EXPECT_TRUE(drop());
    EXPECT_TRUE(model.jumpers().empty());
    EXPECT_TRUE(QTest::qWaitFor([this] { return model.hasJumpers(); }));
    EXPECT_FALSE(isOffered());
    bed.settle();
}

TEST_F(FolderDrop, whatIsNoFolderIsRefused)
{
    const std::filesystem::path file = bed.addFile("me", "notes.txt", "x");
    drag({file, bed.folder("me") / "gone"});
    EXPECT_TRUE(QTest::qWaitFor([this] { return !move(QRandomGenerator::global()->bounded(50)); }));
    EXPECT_FALSE(isOffered());
    EXPECT_FALSE(drop());

    data.setUrls({QUrl(QStringLiteral("https://example.org/folder/"))});
    EXPECT_FALSE(enter());
    leave();
    data.clear();
    data.setText(QString::fromStdString(bed.folder("me")));
    EXPECT_FALSE(enter());
    leave();
    QTest::qWait(30);
    EXPECT_TRUE(model.jumpers().empty());

    drag({file, bed.folder("Maya")}); // the first folder counts
    ASSERT_TRUE(waitUntilOffered());
    EXPECT_TRUE(drop());
    EXPECT_EQ(names(), Names{"Maya"});
    bed.settle();
}

TEST_F(FolderDrop, aDragThatLeavesDoesNothing)
{
    drag({bed.folder("me")});
    ASSERT_TRUE(waitUntilOffered());
    leave();
    EXPECT_FALSE(isOffered());
    QTest::qWait(30);
    EXPECT_TRUE(model.jumpers().empty());
}

} // namespace
} // namespace ospra
