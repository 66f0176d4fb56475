#pragma once

#include "tilemap/client/freshness.h"

#include <QByteArray>
#include <QNetworkReply>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QUrl>

#include <chrono>
#include <functional>

class QNetworkAccessManager;

namespace ospra {

/// What came of a request.
struct DownloadResult {
    enum class Kind {
        answered,    ///< by HTTP, whatever the status; the body is whole
        refused,     ///< the host lets nobody in: connection refused, no TLS
        unreachable, ///< no answer, or half of one: no such host, no network, too late, broken off
        unusable,    ///< more than was allowed, or sent elsewhere: asking again would bring the same
    };
    Kind kind = Kind::unreachable;
    int status = 0; ///< of HTTP, where answered
    bool usedHttp2 = false;
    AnswerHeaders headers{};
    QByteArray body{};
};

/// One request, held to its limits in size and time. It keeps no cookies and follows no redirect to another host,
/// port or scheme.
class Download : public QObject {
public:
    struct Request {
        QUrl address{};
        QByteArray userAgent{};
        QByteArray eTag{};                      ///< of what one has already; empty where one has nothing
        QByteArray lastModified{};              ///< likewise
        qint64 bodyLimit = 0;                   ///< bytes
        std::chrono::milliseconds idleLimit{};  ///< the longest time without a byte
        std::chrono::milliseconds totalLimit{}; ///< the longest time at all
    };

    /// @param done called once, from the event loop, unless the download is destroyed before; it may destroy it
    Download(QNetworkAccessManager& network, const Request& request, std::function<void(DownloadResult)> done,
             QObject* parent);
    /// Breaks off what still runs.
    ~Download() override;

    Download(const Download&) = delete;
    Download& operator=(const Download&) = delete;

private:
    void readHeaders();
    void readBody();
    void finish();
    void end(DownloadResult::Kind kind);
    void letGo();

    QPointer<QNetworkReply> m_reply; ///< belongs to the network, which may go first
    std::function<void(DownloadResult)> m_done;
    qint64 m_bodyLimit = 0;
    QByteArray m_body;
    QTimer m_idle;
    QTimer m_total;
};

} // namespace ospra
