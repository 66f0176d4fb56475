#include "tilemap/client/freshness.h"

#include "tilemap/client/addresses.h"

#include <gtest/gtest.h>

namespace ospra {
namespace {

constexpr qint64 now = 1'772'445'600; // Mon, 02 Mar 2026 10:00:00 GMT
constexpr qint64 week = 7 * 86'400;

TEST(Freshness, isAsTold)
{
    const std::vector<std::pair<AnswerHeaders, qint64>> rows{
        {{}, week},
        {{.cacheControl = "public"}, week},
        {{.cacheControl = "max-age=3600"}, 3600},
        {{.cacheControl = "Public, Max-Age=\"60\" , s-maxage=9"}, 60},
        {{.age = "20", .cacheControl = "max-age=60"}, 40},
        {{.age = "200", .cacheControl = "max-age=60"}, 0},
        {{.cacheControl = "max-age=soon"}, 0},
        {{.cacheControl = "max-age=99999999999"}, 365 * 86'400},
        {{.cacheControl = "max-age=60, no-cache"}, 0},
        {{.cacheControl = "max-age=60", .expires = "Mon, 02 Mar 2026 11:00:00 GMT"}, 60},
        {{.expires = "Mon, 02 Mar 2026 11:00:00 GMT"}, 3600},
        {{.date = "Mon, 02 Mar 2026 10:30:00 GMT", .expires = "Mon, 02 Mar 2026 11:00:00 GMT"}, 1800}, // its clock
        {{.expires = "Mon, 02 Mar 2026 09:00:00 GMT"}, 0},
        {{.expires = "0"}, 0},
    };
    for (const auto& [headers, seconds] : rows) {
        SCOPED_TRACE(headers.cacheControl.toStdString() + headers.expires.toStdString());
        EXPECT_EQ(freshness(headers, now).freshUntil, now + seconds);
        EXPECT_TRUE(freshness(headers, now).mayBeKept);
    }
    EXPECT_FALSE(freshness({.cacheControl = "private, no-store"}, now).mayBeKept);
}

TEST(Freshness, waitsAsAsked)
{
    EXPECT_EQ(secondsToWait("120", now), 120);
    EXPECT_EQ(secondsToWait("Mon, 02 Mar 2026 10:00:30 GMT", now), 30);
    EXPECT_EQ(secondsToWait("Mon, 02 Mar 2026 09:00:30 GMT", now), 0);
    for (const char* text : {"", "soon", "-3", "1.5"})
        EXPECT_EQ(secondsToWait(text, now), std::nullopt) << text;
}

TEST(Addresses, areOfTlsOrThisMachine)
{
    for (const char* text : {"https://example.com/a", "HTTPS://example.com:8443/a?b=c", "http://127.0.0.1:80/",
                             "http://127.9.9.9/", "http://[::1]:9/", "http://LocalHost/"})
        EXPECT_TRUE(allowedAddress(QString::fromUtf8(text))) << text;
    for (const char* text :
         {"", "http://example.com/", "ftp://127.0.0.1/", "file:///etc/passwd", "https:///a",
          "http://127.0.0.1.example.com/", "http://localhost.example.com/", "https://u:p@example.com/",
          "http://127.0.0.1@example.com/", "http://128.0.0.1/", "data:image/png,abc", "https://a b/"})
        EXPECT_FALSE(allowedAddress(QString::fromUtf8(text))) << text;
}

TEST(Addresses, nameEachTile)
{
    EXPECT_EQ(tileAddress("https://h/{z}/{y}/{x}.jpg?q={z}", {14, 8529, 5975}).value().toEncoded(),
              "https://h/14/5975/8529.jpg?q=14");
    EXPECT_FALSE(tileAddress("http://192.0.2.1/{z}/{y}/{x}", {14, 8529, 5975}));
    EXPECT_TRUE(isTileTemplate("https://h/{z}/{y}/{x}"));
    EXPECT_FALSE(isTileTemplate("https://h/{z}/{y}"));
    EXPECT_FALSE(isTileTemplate("http://h/{z}/{y}/{x}"));
}

} // namespace
} // namespace ospra
