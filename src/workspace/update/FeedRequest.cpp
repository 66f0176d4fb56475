#include "workspace/update/FeedRequest.h"

#include "workspace/update/UpdateFeed.h"

#include <QCoreApplication>
#include <QNetworkReply>
#include <QNetworkRequest>

#include <utility>

namespace ospra {

namespace {

QNetworkRequest requestFor(const QUrl& address)
{
    QNetworkRequest request(address);
    // Each redirect is looked at before it is followed.
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    request.setHeader(QNetworkRequest::UserAgentHeader,
                      QStringLiteral("Ospra/") + QCoreApplication::applicationVersion());
    return request;
}

} // namespace

FeedRequest::FeedRequest(FeedLimits limits, QObject* parent) : QObject(parent), m_limits(limits)
{
    m_patience.setSingleShot(true);
    connect(&m_patience, &QTimer::timeout, this, [this] { end(std::nullopt); });
}

FeedRequest::~FeedRequest()
{
    dropReply();
}

void FeedRequest::start(const QUrl& address)
{
    if (std::exchange(m_isRunning, true))
        return;
    m_redirects = 0;
    m_patience.start(m_limits.time);
    if (isTrustedFeed(address))
        ask(address);
    else
        QMetaObject::invokeMethod(this, [this] { end(std::nullopt); }, Qt::QueuedConnection);
}

void FeedRequest::ask(const QUrl& address)
{
    m_document.clear();
    m_reply = m_network.get(requestFor(address));
    m_reply->setReadBufferSize(m_limits.bytes + 1);
    connect(m_reply, &QNetworkReply::readyRead, this, &FeedRequest::takeBytes);
    connect(m_reply, &QNetworkReply::finished, this, &FeedRequest::replyFinished);
}

void FeedRequest::takeBytes()
{
    m_document += m_reply->read(m_limits.bytes + 1 - m_document.size());
    if (m_document.size() > m_limits.bytes)
        end(std::nullopt);
}

void FeedRequest::replyFinished()
{
    const QVariant target = m_reply->attribute(QNetworkRequest::RedirectionTargetAttribute);
    if (target.isValid()) {
        const QUrl from = m_reply->url();
        const QUrl to = from.resolved(target.toUrl());
        dropReply();
        if (++m_redirects > m_limits.redirects || !mayRedirect(from, to))
            end(std::nullopt);
        else
            ask(to);
        return;
    }
    const int status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (m_reply->error() != QNetworkReply::NoError || status != 200) {
        end(std::nullopt);
        return;
    }
    takeBytes();
    if (m_isRunning)
        end(m_document);
}

void FeedRequest::end(const std::optional<QByteArray>& document)
{
    m_patience.stop();
    dropReply();
    m_document.clear();
    m_isRunning = false;
    emit finished(document);
}

void FeedRequest::dropReply()
{
    QNetworkReply* reply = std::exchange(m_reply, nullptr);
    if (!reply)
        return;
    reply->disconnect(this);
    if (reply->error() == QNetworkReply::NoError) // the toolkit takes a second error amiss
        reply->abort();
    reply->deleteLater();
}

} // namespace ospra
