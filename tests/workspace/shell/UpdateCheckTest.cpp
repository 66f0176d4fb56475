#include "tests/workspace/WindowTest.h"
#include "tests/workspace/update/LoopbackServer.h"

#include <QDesktopServices>
#include <QSignalSpy>
#include <QTest>

namespace ospra {
namespace {

QByteArray feedOf(const QByteArray& version)
{
    return "<rss><channel><item><title>Ospra " + version +
           "</title><link>https://example.org/ospra</link></item></channel></rss>";
}

/// Takes the addresses that would go to the browser.
class BrowserStandIn : public QObject {
    Q_OBJECT

public:
    BrowserStandIn() { QDesktopServices::setUrlHandler(QStringLiteral("https"), this, "open"); }
    ~BrowserStandIn() override { QDesktopServices::unsetUrlHandler(QStringLiteral("https")); }

    QList<QUrl> opened;

public slots:
    void open(const QUrl& address) { opened.append(address); }
};

class UpdateCheck : public WindowTest {
protected:
    void SetUp() override { openMainWindow(&updates); }

    void checkQuietly()
    {
        updates.start();
        EXPECT_FALSE(updates.canCheckForUpdates());
        EXPECT_TRUE(QTest::qWaitFor([this] { return updates.canCheckForUpdates(); }));
    }

    [[nodiscard]] bool showsText(const char* property, const QString& text) const
    {
        const QQuickWindow* const small = windowTitled(QStringLiteral("Updates"));
        return small && small->property(property).toString() == text;
    }

    LoopbackServer server;
    CheckForUpdatesViewModel updates{
        server.url(QStringLiteral("/feed")), QStringLiteral("1.2.0"), {.time = std::chrono::milliseconds(500)}};
    BrowserStandIn browser;
};

TEST_F(UpdateCheck, theEntryIsThereWithAFeedAndFollowsTheCheck)
{
    server.setDocument(QStringLiteral("/feed"), feedOf("1.2.0"));
    const auto item = [this] { return entries(menu(0)).section(QStringLiteral(", "), 1, 1); };
    EXPECT_EQ(item(), QStringLiteral("(Check for Updates…)"));
    checkQuietly();
    EXPECT_EQ(item(), QStringLiteral("Check for Updates…"));
    updates.checkForUpdates();
    updates.checkForUpdates();
    EXPECT_EQ(item(), QStringLiteral("(Check for Updates…)"));
    EXPECT_TRUE(QTest::qWaitFor([this] { return updates.canCheckForUpdates(); }));
    EXPECT_EQ(server.requests.size(), 2);
}

TEST_F(WindowTest, withoutAFeedHasNoEntryForUpdates)
{
    EXPECT_EQ(entries(menu(0)), QStringLiteral("About Ospra, -, Settings…, -, Quit"));
    for (const char* feed : {"", "http://example.org/feed", "no address"})
        EXPECT_FALSE(makeUpdateCheck(QLatin1String(feed), QStringLiteral("1.0"))) << feed;
    EXPECT_TRUE(makeUpdateCheck(QStringLiteral("https://example.org/feed"), QStringLiteral("1.0")));
}

TEST_F(UpdateCheck, theQuietCheckIsHeardOfOnlyWithANewerVersion)
{
    for (const char* version : {"1.2.0", "1.1.99", "rubbish"}) {
        server.setDocument(QStringLiteral("/feed"), feedOf(version));
        checkQuietly();
        QTest::qWait(30);
        EXPECT_FALSE(windowTitled(QStringLiteral("Updates"))) << version;
    }
    server.setDocument(QStringLiteral("/feed"), feedOf("1.10"));
    checkQuietly();
    EXPECT_TRUE(QTest::qWaitFor([this] { return showsText("heading", QStringLiteral("Ospra 1.10 is available")); }));
    EXPECT_EQ(updates.newVersion(), "1.10");
    EXPECT_TRUE(browser.opened.isEmpty());
    updates.openPage();
    EXPECT_EQ(browser.opened, QList<QUrl>{QUrl(QStringLiteral("https://example.org/ospra"))});
}

TEST_F(UpdateCheck, whoeverAsksGetsAnAnswer)
{
    server.setDocument(QStringLiteral("/feed"), feedOf("1.2.0"));
    checkQuietly();
    updates.checkForUpdates();
    EXPECT_TRUE(showsText("heading", QStringLiteral("Checking for updates…")));
    EXPECT_TRUE(QTest::qWaitFor([this] { return showsText("heading", QStringLiteral("Ospra is up to date")); }));
    server.setDocument(QStringLiteral("/feed"), "<rss>");
    updates.checkForUpdates();
    EXPECT_TRUE(QTest::qWaitFor([this] { return showsText("heading", QStringLiteral("The check did not succeed")); }));
    updates.openPage();
    EXPECT_TRUE(browser.opened.isEmpty());
    EXPECT_EQ(updates.newVersion(), "");
}

} // namespace
} // namespace ospra

#include "UpdateCheckTest.moc"
