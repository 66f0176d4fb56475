#include "workspace/update/UpdateFeed.h"

#include <QHostAddress>
#include <QRegularExpression>
#include <QVersionNumber>
#include <QXmlStreamReader>

#include <string_view>

namespace ospra {

namespace {

constexpr std::size_t longestTag = 4096; // bytes

/// Where the markup that begins at `from` with a less-than sign ends: behind it, or at the end of the text.
std::size_t endOfMarkup(std::string_view text, std::size_t from)
{
    struct Kind {
        std::string_view begin;
        std::string_view end;
    };
    for (const auto& [begin, end] : {Kind{"<!--", "-->"}, Kind{"<![CDATA[", "]]>"}, Kind{"<?", "?>"}}) {
        if (!text.substr(from).starts_with(begin))
            continue;
        const std::size_t at = text.find(end, from + begin.size());
        return at == text.npos ? text.size() : at + end.size();
    }
    char quote = 0;
    for (std::size_t at = from; at < text.size(); ++at) {
        const char c = text[at];
        if (quote != 0)
            quote = c == quote ? '\0' : quote;
        else if (c == '>')
            return at + 1;
        else if (c == '"' || c == '\'')
            quote = c;
    }
    return text.size();
}

/// Whether a tag is longer than a feed has any use for. The reader compares each attribute of a tag with all others,
/// which takes it most of a minute where they fill a whole document.
bool hasEndlessTag(std::string_view text)
{
    for (std::size_t at = text.find('<'); at != text.npos; at = text.find('<', at)) {
        const std::size_t end = endOfMarkup(text, at);
        const bool isTag = at + 1 < text.size() && text[at + 1] != '!' && text[at + 1] != '?';
        if (isTag && end - at > longestTag)
            return true;
        at = end;
    }
    return false;
}

/// Numbers with dots between them, each short enough for an int.
bool isVersion(const QString& text)
{
    static const QRegularExpression form(QStringLiteral(R"(\A[0-9]{1,9}(\.[0-9]{1,9}){0,7}\z)"));
    return form.match(text).hasMatch();
}

bool isTrustedPage(const QUrl& page)
{
    return page.isValid() && page.scheme() == u"https" && !page.host().isEmpty() && page.userInfo().isEmpty();
}

bool isLoopback(const QString& host)
{
    return host == u"localhost" || QHostAddress(host).isLoopback();
}

/// Reads one item. @return nothing if it tells no release
std::optional<Release> readItem(QXmlStreamReader& xml)
{
    QString title;
    QString link;
    while (xml.readNextStartElement()) {
        if (xml.namespaceUri().isEmpty() && xml.name() == u"title")
            title = xml.readElementText(QXmlStreamReader::SkipChildElements);
        else if (xml.namespaceUri().isEmpty() && xml.name() == u"link")
            link = xml.readElementText(QXmlStreamReader::SkipChildElements);
        else
            xml.skipCurrentElement();
    }
    const Release release{.version = title.simplified().section(QLatin1Char(' '), -1),
                          .page = QUrl(link.trimmed(), QUrl::StrictMode)};
    return isVersion(release.version) && isTrustedPage(release.page) ? std::optional(release) : std::nullopt;
}

/// Goes through the document; its kind and place of items do not matter, but it has to be whole.
std::optional<Release> readFeed(QXmlStreamReader& xml)
{
    std::optional<Release> newest;
    while (!xml.atEnd()) {
        const QXmlStreamReader::TokenType token = xml.readNext();
        if (token == QXmlStreamReader::DTD)
            return std::nullopt;
        if (token != QXmlStreamReader::StartElement || xml.name() != u"item" || !xml.namespaceUri().isEmpty())
            continue;
        const std::optional<Release> release = readItem(xml);
        if (release && (!newest || isNewer(release->version, newest->version)))
            newest = release;
    }
    return xml.hasError() ? std::nullopt : newest;
}

} // namespace

std::optional<Release> newestRelease(const QByteArray& feed)
{
    const std::string_view text(feed.constData(), static_cast<std::size_t>(feed.size()));
    if (text.find('\0') != text.npos || hasEndlessTag(text)) // in two bytes a character, tags would not be found
        return std::nullopt;
    QXmlStreamReader xml(feed);
    return readFeed(xml);
}

bool isNewer(const QString& version, const QString& than)
{
    if (!isVersion(version) || !isVersion(than))
        return false;
    return QVersionNumber::fromString(version).normalized() > QVersionNumber::fromString(than).normalized();
}

bool isTrustedFeed(const QUrl& address)
{
    if (!address.isValid() || address.host().isEmpty())
        return false;
    return address.scheme() == u"https" || (address.scheme() == u"http" && isLoopback(address.host()));
}

bool mayRedirect(const QUrl& from, const QUrl& to)
{
    if (!to.isValid() || to.host().isEmpty())
        return false;
    if (to.scheme() == u"https")
        return true;
    // Never from HTTPS to anything less: that has another scheme.
    return to.scheme() == u"http" && from.scheme() == to.scheme() && from.host() == to.host() &&
           from.port(80) == to.port(80);
}

} // namespace ospra
