#pragma once

#include <QByteArray>
#include <QNetworkAccessManager>
#include <QObject>
#include <QTimer>
#include <QUrl>

#include <chrono>
#include <optional>

class QNetworkReply;

namespace ospra {

/// How much patience a request has.
struct FeedLimits {
    std::chrono::milliseconds time{10'000}; ///< from the start to the last byte, redirects included
    qint64 bytes = 1 << 20;                 ///< of the document, unpacked
    int redirects = 5;
};

/// Fetches one document over the network, one request at a time. Sends nothing but the request: no cookies, and no
/// name but the program's with its version.
class FeedRequest : public QObject {
    Q_OBJECT

public:
    explicit FeedRequest(FeedLimits limits = {}, QObject* parent = nullptr);
    ~FeedRequest() override;

    /// Begins; `finished` tells the end, always after this has returned. Does nothing while a request is running.
    void start(const QUrl& address);
    [[nodiscard]] bool isRunning() const { return m_isRunning; }

signals:
    /// The document, or nothing if it could not be had within the limits.
    void finished(const std::optional<QByteArray>& document);

private:
    void ask(const QUrl& address);
    void takeBytes();
    void replyFinished();
    void end(const std::optional<QByteArray>& document);
    void dropReply();

    FeedLimits m_limits;
    QNetworkAccessManager m_network;
    QTimer m_patience;
    QNetworkReply* m_reply = nullptr;
    QByteArray m_document;
    int m_redirects = 0;
    bool m_isRunning = false;
};

} // namespace ospra
