#pragma once

#include <QByteArray>

#include <optional>

namespace ospra {

/// What an answer's headers say about how long it holds; empty where they say nothing.
struct AnswerHeaders {
    QByteArray age{};
    QByteArray cacheControl{};
    QByteArray date{};
    QByteArray eTag{};
    QByteArray expires{};
    QByteArray lastModified{};
    QByteArray retryAfter{};
};

struct Freshness {
    bool mayBeKept = true; ///< false: not to be written to a disk
    qint64 freshUntil = 0; ///< seconds since 1970; from then on the giver is asked whether it still holds
};

/// How long an answer that came `now` holds: as long as Cache-Control says (less its Age), else Expires, else seven
/// days; never longer than a year. What must always be revalidated is fresh until now.
/// Source: RFC 9111, sections 4.2 and 5.2.2.
[[nodiscard]] Freshness freshness(const AnswerHeaders& headers, qint64 now);

/// The seconds that a busy server asks to wait, given as a number or as a date.
/// @return absent where it is neither; 0 where the date has passed
[[nodiscard]] std::optional<qint64> secondsToWait(const QByteArray& retryAfter, qint64 now);

} // namespace ospra
