#include "workspace/shell/CheckForUpdatesViewModel.h"

#include <QDesktopServices>

#include <utility>

namespace ospra {

CheckForUpdatesViewModel::CheckForUpdatesViewModel(QUrl feed, QString ownVersion, FeedLimits limits, QObject* parent)
    : QObject(parent), m_feed(std::move(feed)), m_ownVersion(std::move(ownVersion)), m_request(limits)
{
    connect(&m_request, &FeedRequest::finished, this, &CheckForUpdatesViewModel::takeFeed);
}

void CheckForUpdatesViewModel::start()
{
    check();
}

void CheckForUpdatesViewModel::checkForUpdates()
{
    if (!m_canCheckForUpdates)
        return;
    check();
    emit attentionWanted();
}

void CheckForUpdatesViewModel::openPage() const
{
    if (m_outcome == Newer)
        QDesktopServices::openUrl(m_release.page);
}

void CheckForUpdatesViewModel::check()
{
    setOutcome(Checking);
    setCanCheckForUpdates(false);
    m_request.start(m_feed);
}

void CheckForUpdatesViewModel::takeFeed(const std::optional<QByteArray>& document)
{
    const std::optional<Release> newest = document ? newestRelease(*document) : std::nullopt;
    m_release = newest.value_or(Release{});
    if (!newest)
        setOutcome(Failed);
    else
        setOutcome(isNewer(newest->version, m_ownVersion) ? Newer : UpToDate);
    setCanCheckForUpdates(true);
    if (m_outcome == Newer)
        emit attentionWanted();
}

void CheckForUpdatesViewModel::setOutcome(Outcome outcome)
{
    if (std::exchange(m_outcome, outcome) != outcome)
        emit outcomeChanged();
}

void CheckForUpdatesViewModel::setCanCheckForUpdates(bool canCheckForUpdates)
{
    if (std::exchange(m_canCheckForUpdates, canCheckForUpdates) != canCheckForUpdates)
        emit canCheckForUpdatesChanged();
}

std::unique_ptr<CheckForUpdatesViewModel> makeUpdateCheck(const QString& feed, const QString& ownVersion)
{
    const QUrl address(feed, QUrl::StrictMode);
    return isTrustedFeed(address) ? std::make_unique<CheckForUpdatesViewModel>(address, ownVersion) : nullptr;
}

} // namespace ospra
