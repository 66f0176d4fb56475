#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <optional>

namespace ospra {

/// A version of the program that is told by the feed.
struct Release {
    QString version{}; ///< numbers with dots between them
    QUrl page{};       ///< where to read about it and get it; over HTTPS

    friend bool operator==(const Release&, const Release&) = default;
};

/// The release with the highest version, in whatever order the feed (RSS 2.0) has them.
/// @return nothing if the feed is damaged, is written in more than a byte a character, has a document type (which could
///     define entities that grow without end) or a tag of more than 4 kB, or tells no release
[[nodiscard]] std::optional<Release> newestRelease(const QByteArray& feed);

/// Compares part by part as numbers; a part that is left out counts as 0. False if either is no version.
[[nodiscard]] bool isNewer(const QString& version, const QString& than);

/// Whether a feed may be asked for there: over HTTPS, or on this machine itself.
[[nodiscard]] bool isTrustedFeed(const QUrl& address);

/// Whether an answer from one address may send us to another: over HTTPS, or to the same place by the same way.
[[nodiscard]] bool mayRedirect(const QUrl& from, const QUrl& to);

} // namespace ospra
