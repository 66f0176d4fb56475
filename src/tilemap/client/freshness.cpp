#include "tilemap/client/freshness.h"

#include <QDateTime>
#include <QLatin1String>
#include <QList>
#include <QLocale>
#include <QTimeZone>

#include <algorithm>

namespace ospra {

namespace {

constexpr qint64 day = 86'400;             // s
constexpr qint64 untoldLifetime = 7 * day; // where nothing is told
constexpr qint64 longestLifetime = 365 * day;

std::optional<qint64> wholeNumber(const QByteArray& text)
{
    bool isNumber = false;
    const qint64 number = text.trimmed().toLongLong(&isNumber);
    return isNumber && number >= 0 ? std::optional(number) : std::nullopt;
}

/// Source: RFC 9110, section 5.6.7; the two obsolete forms are not read.
std::optional<qint64> httpDate(const QByteArray& text)
{
    QDateTime date =
        QLocale::c().toDateTime(QString::fromLatin1(text.trimmed()), QStringLiteral("ddd, dd MMM yyyy hh:mm:ss 'GMT'"));
    if (!date.isValid())
        return std::nullopt;
    date.setTimeSpec(Qt::UTC);
    return date.toSecsSinceEpoch();
}

struct CacheControl {
    bool mayBeKept = true;
    bool isAlwaysAsked = false;
    std::optional<qint64> maxAge{}; ///< s
};

CacheControl readCacheControl(const QByteArray& header)
{
    CacheControl control;
    for (const QByteArray& part : header.toLower().split(',')) {
        const QByteArray directive = part.trimmed();
        if (directive == "no-store")
            control.mayBeKept = false;
        else if (directive.startsWith("no-cache"))
            control.isAlwaysAsked = true;
        else if (directive.startsWith("max-age="))
            control.maxAge = wholeNumber(directive.mid(8).replace('"', "")).value_or(0);
    }
    return control;
}

} // namespace

Freshness freshness(const AnswerHeaders& headers, qint64 now)
{
    const CacheControl control = readCacheControl(headers.cacheControl);
    qint64 lifetime = untoldLifetime;
    if (control.isAlwaysAsked)
        lifetime = 0;
    else if (control.maxAge)
        lifetime = *control.maxAge - std::min(wholeNumber(headers.age).value_or(0), *control.maxAge);
    else if (!headers.expires.isEmpty()) // a date that cannot be read has passed, as "0" and "-1" say
        lifetime = httpDate(headers.expires).value_or(0) - httpDate(headers.date).value_or(now);
    return {.mayBeKept = control.mayBeKept, .freshUntil = now + std::clamp(lifetime, qint64{0}, longestLifetime)};
}

std::optional<qint64> secondsToWait(const QByteArray& retryAfter, qint64 now)
{
    if (const std::optional<qint64> seconds = wholeNumber(retryAfter))
        return seconds;
    if (const std::optional<qint64> date = httpDate(retryAfter))
        return std::max(*date - now, qint64{0});
    return std::nullopt;
}

} // namespace ospra
