#include "tilemap/client/Download.h"

#include "tilemap/client/addresses.h"

#include <QNetworkAccessManager>
#include <QNetworkRequest>

#include <utility>

namespace ospra {

namespace {

constexpr int redirectsAtMost = 3;

QNetworkRequest makeRequest(const Download::Request& order)
{
    QNetworkRequest request(order.address);
    request.setHeader(QNetworkRequest::UserAgentHeader, order.userAgent);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::SameOriginRedirectPolicy);
    request.setMaximumRedirectsAllowed(redirectsAtMost);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    request.setDecompressedSafetyCheckThreshold(order.bodyLimit);
    // Without TLS there is nothing that tells that a server speaks it, and only this machine is asked so.
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, order.address.scheme() == QLatin1String("https"));
    if (!order.eTag.isEmpty())
        request.setRawHeader("If-None-Match", order.eTag);
    if (!order.lastModified.isEmpty())
        request.setRawHeader("If-Modified-Since", order.lastModified);
    return request;
}

DownloadResult::Kind kindOf(QNetworkReply::NetworkError error, int status)
{
    using Kind = DownloadResult::Kind;
    constexpr int firstContentError = QNetworkReply::ContentAccessDenied;
    constexpr int firstProtocolError = QNetworkReply::ProtocolUnknownError;
    constexpr int lastProtocolError = QNetworkReply::ProtocolFailure;
    if (error == QNetworkReply::NoError)
        return Kind::answered;
    if (error == QNetworkReply::ConnectionRefusedError || error == QNetworkReply::SslHandshakeFailedError)
        return Kind::refused;
    if (error == QNetworkReply::InsecureRedirectError || error == QNetworkReply::TooManyRedirectsError ||
        (error >= firstProtocolError && error <= lastProtocolError))
        return Kind::unusable;
    if (error < firstContentError)
        return Kind::unreachable;
    return status >= 400 ? Kind::answered : Kind::unusable; // a body that cannot be unpacked comes with a 200
}

} // namespace

Download::Download(QNetworkAccessManager& network, const Request& request, std::function<void(DownloadResult)> done,
                   QObject* parent)
    : QObject(parent), m_reply(network.get(makeRequest(request))), m_done(std::move(done)),
      m_bodyLimit(request.bodyLimit)
{
    connect(m_reply, &QNetworkReply::metaDataChanged, this, &Download::readHeaders);
    connect(m_reply, &QNetworkReply::readyRead, this, &Download::readBody);
    connect(m_reply, &QNetworkReply::finished, this, &Download::finish);
    for (QTimer* timer : {&m_idle, &m_total}) {
        timer->setSingleShot(true);
        connect(timer, &QTimer::timeout, this, [this] { end(DownloadResult::Kind::unreachable); });
    }
    m_idle.start(request.idleLimit);
    m_total.start(request.totalLimit);
}

Download::~Download()
{
    if (!m_reply)
        return;
    letGo();
    m_reply->deleteLater();
}

/// A reply that has failed already goes when it is deleted: the toolkit takes a second error amiss.
void Download::letGo()
{
    m_reply->disconnect(this);
    if (m_reply->error() == QNetworkReply::NoError)
        m_reply->abort();
}

void Download::readHeaders()
{
    m_idle.start();
    const QVariant length = m_reply->header(QNetworkRequest::ContentLengthHeader);
    if (length.isValid() && length.toLongLong() > m_bodyLimit)
        end(DownloadResult::Kind::unusable);
}

void Download::readBody()
{
    m_idle.start();
    m_body += m_reply->readAll();
    if (m_body.size() > m_bodyLimit)
        end(DownloadResult::Kind::unusable);
}

void Download::finish()
{
    m_body += m_reply->readAll();
    const int status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const DownloadResult::Kind kind = kindOf(m_reply->error(), status);
    end(m_body.size() > m_bodyLimit ? DownloadResult::Kind::unusable : kind);
}

void Download::end(DownloadResult::Kind kind)
{
    if (!m_done)
        return;
    DownloadResult result{
        .kind = kind,
        .status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(),
        .usedHttp2 = m_reply->attribute(QNetworkRequest::Http2WasUsedAttribute).toBool(),
        .headers = {.age = m_reply->rawHeader("Age"),
                    .cacheControl = m_reply->rawHeader("Cache-Control"),
                    .date = m_reply->rawHeader("Date"),
                    .eTag = m_reply->rawHeader("ETag"),
                    .expires = m_reply->rawHeader("Expires"),
                    .lastModified = m_reply->rawHeader("Last-Modified"),
                    .retryAfter = m_reply->rawHeader("Retry-After")},
        .body = std::move(m_body),
    };
    m_idle.stop();
    m_total.stop();
    letGo();
    std::exchange(m_done, {})(std::move(result)); // the last thing: it may destroy this object
}

} // namespace ospra
