#include "workspace/update/UpdateFeed.h"

#include "fuzz/require.h"

#include <QHostAddress>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

namespace ospra {
namespace {

/// One to eight numbers of one to nine digits, looked at digit by digit.
bool isVersion(const std::string& text)
{
    int parts = 1;
    int digits = 0;
    for (const char c : text) {
        if (c == '.' && digits > 0) {
            ++parts;
            digits = 0;
        } else if (c < '0' || c > '9' || ++digits > 9) {
            return false;
        }
    }
    return digits > 0 && parts <= 8;
}

void checkVersions(const QString& one, const QString& other)
{
    const bool areVersions = isVersion(one.toStdString()) && isVersion(other.toStdString());
    require(!isNewer(one, one), "a version is newer than itself");
    require(!isNewer(one, other) || !isNewer(other, one), "two versions are newer than each other");
    require(areVersions || !isNewer(one, other), "what is no version is newer than something");
    if (areVersions && one.count(QLatin1Char('.')) < 7)
        require(isNewer(one, other) == isNewer(one + QLatin1String(".0"), other), "a part of 0 changes the order");
}

void checkAddresses(const QUrl& from, const QUrl& to)
{
    const bool isHere = from.host() == u"localhost" || QHostAddress(from.host()).isLoopback();
    require(!isTrustedFeed(from) || from.scheme() == u"https" || (from.scheme() == u"http" && isHere),
            "a feed is asked for in the open");
    if (!mayRedirect(from, to))
        return;
    require(!to.host().isEmpty(), "a redirect leads nowhere");
    require(to.scheme() == u"https" || (to.scheme() == u"http" && from.scheme() == u"http"),
            "a redirect leads away from HTTPS");
    require(to.scheme() == u"https" || (to.host() == from.host() && to.port(80) == from.port(80)),
            "a redirect in the open leads to another place");
}

void checkFeed(const QByteArray& feed)
{
    const std::optional<Release> release = newestRelease(feed);
    require(release == newestRelease(feed), "a feed is read in two ways");
    if (!release)
        return;
    require(isVersion(release->version.toStdString()), "a release has no version");
    require(release->page.isValid() && release->page.scheme() == u"https" && !release->page.host().isEmpty() &&
                release->page.userInfo().isEmpty(),
            "the page of a release is not one to send people to");
    require(!newestRelease(feed.left(feed.lastIndexOf('>'))), "half a feed is taken for a whole one");
    require(!newestRelease("<!DOCTYPE rss>" + feed), "a feed with a document type is read");
}

} // namespace
} // namespace ospra

/// The first line holds two versions and two addresses, with spaces between them; the rest is a feed. Whatever they
/// are, nobody is sent anywhere but over HTTPS.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const qsizetype firstLine = std::max(bytes.indexOf('\n'), qsizetype{0});
    const QStringList words = QString::fromUtf8(bytes.left(firstLine)).split(u' ');
    ospra::checkVersions(words.value(0), words.value(1));
    ospra::checkAddresses(QUrl(words.value(2)), QUrl(words.value(3)));
    ospra::checkFeed(bytes.mid(firstLine + 1));
    return 0;
}
