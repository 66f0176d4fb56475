#include "workspace/update/FeedRequest.h"

#include "tests/workspace/update/LoopbackServer.h"

#include <QElapsedTimer>
#include <QTest>

#include <gtest/gtest.h>

namespace ospra {
namespace {

using Document = std::optional<QByteArray>;

class FeedRequestTest : public ::testing::Test {
protected:
    /// Runs one request to its end.
    Document fetch(const QUrl& address, FeedLimits limits = {})
    {
        FeedRequest request(limits);
        Document document;
        int ends = 0;
        QObject::connect(&request, &FeedRequest::finished, [&](const Document& answer) {
            document = answer;
            ++ends;
        });
        request.start(address);
        EXPECT_TRUE(request.isRunning());
        EXPECT_EQ(ends, 0);
        EXPECT_TRUE(QTest::qWaitFor([&] { return ends > 0; }));
        QTest::qWait(20);
        EXPECT_EQ(ends, 1);
        EXPECT_FALSE(request.isRunning());
        return document;
    }

    LoopbackServer server;
};

TEST_F(FeedRequestTest, fetchesADocumentAndSendsNothingThatTellsOfTheUser)
{
    server.setDocument(QStringLiteral("/feed"), "<rss/>");
    EXPECT_EQ(fetch(server.url(QStringLiteral("/feed"))), Document("<rss/>"));
    EXPECT_EQ(server.requests, QStringList{QStringLiteral("/feed")});
    EXPECT_TRUE(server.lastHeader.contains("User-Agent: Ospra/"));
    EXPECT_FALSE(server.lastHeader.toLower().contains("cookie"));
}

TEST_F(FeedRequestTest, whateverIsNoWholeDocumentGivesNothing)
{
    server.setDocument(QStringLiteral("/missing"), "<rss/>", "404 Not Found");
    server.setDocument(QStringLiteral("/empty"), "", "204 No Content");
    server.setRaw(QStringLiteral("/garbage"), "no web server\r\n\r\n");
    server.setRaw(QStringLiteral("/cut"), "HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\n<rss>");
    for (const char* path : {"/missing", "/empty", "/garbage", "/cut"})
        EXPECT_FALSE(fetch(server.url(QLatin1String(path)))) << path;
    EXPECT_FALSE(fetch(QUrl(QStringLiteral("http://127.0.0.1:1/feed"))));
    EXPECT_FALSE(fetch(QUrl(QStringLiteral("file:///etc/hostname"))));
}

TEST_F(FeedRequestTest, theSizeIsLimitedToTheByte)
{
    constexpr int most = 300'000;
    server.setDocument(QStringLiteral("/most"), QByteArray(most, 'x'));
    server.setDocument(QStringLiteral("/more"), QByteArray(most + 1, 'x'));
    server.setRaw(QStringLiteral("/endless"), "HTTP/1.1 200 OK\r\n\r\n" + QByteArray(20'000'000, 'x'));
    const Document document = fetch(server.url(QStringLiteral("/most")), {.bytes = most});
    ASSERT_TRUE(document);
    EXPECT_EQ(document->size(), most);
    EXPECT_FALSE(fetch(server.url(QStringLiteral("/more")), {.bytes = most}));
    EXPECT_FALSE(fetch(server.url(QStringLiteral("/endless")), {.bytes = most}));
}

TEST_F(FeedRequestTest, aServerThatDoesNotAnswerIsGivenUp)
{
    QElapsedTimer timer;
    timer.start();
    EXPECT_FALSE(fetch(server.url(QStringLiteral("/silent")), {.time = std::chrono::milliseconds(100)}));
    EXPECT_GE(timer.elapsed(), 90);
    EXPECT_LT(timer.elapsed(), 3000);
}

TEST_F(FeedRequestTest, redirectsAreFollowedWithinThePlaceOnly)
{
    server.setDocument(QStringLiteral("/feed"), "<rss/>");
    server.setRedirect(QStringLiteral("/old"), "/older");
    server.setRedirect(QStringLiteral("/older"), server.url(QStringLiteral("/feed")).toEncoded());
    EXPECT_EQ(fetch(server.url(QStringLiteral("/old"))), Document("<rss/>"));

    server.requests.clear();
    const QByteArray elsewhere = server.url(QStringLiteral("/feed"), QStringLiteral("localhost")).toEncoded();
    server.setRedirect(QStringLiteral("/away"), elsewhere);
    server.setRedirect(QStringLiteral("/file"), "file:///etc/hostname");
    server.setRedirect(QStringLiteral("/circle"), "/circle");
    for (const char* path : {"/away", "/file"})
        EXPECT_FALSE(fetch(server.url(QLatin1String(path)))) << path;
    EXPECT_FALSE(server.requests.contains(QStringLiteral("/feed")));
    server.requests.clear();
    EXPECT_FALSE(fetch(server.url(QStringLiteral("/circle")), {.redirects = 3}));
    EXPECT_EQ(server.requests.size(), 4);
}

TEST_F(FeedRequestTest, oneAtATimeAndGoneWithItsOwner)
{
    server.setDocument(QStringLiteral("/feed"), "<rss/>");
    int ends = 0;
    {
        FeedRequest request;
        QObject::connect(&request, &FeedRequest::finished, [&] { ++ends; });
        request.start(server.url(QStringLiteral("/feed")));
        request.start(server.url(QStringLiteral("/feed")));
        EXPECT_TRUE(QTest::qWaitFor([&] { return ends > 0; }));
        EXPECT_EQ(server.requests.size(), 1);
        request.start(server.url(QStringLiteral("/silent")));
        EXPECT_TRUE(QTest::qWaitFor([&] { return server.requests.size() == 2; }));
    }
    QTest::qWait(20);
    EXPECT_EQ(ends, 1);
}

} // namespace
} // namespace ospra
