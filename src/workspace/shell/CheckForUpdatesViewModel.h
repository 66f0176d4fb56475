#pragma once

#include "workspace/update/FeedRequest.h"
#include "workspace/update/UpdateFeed.h"

#include <QObject>
#include <QQmlEngine>

#include <memory>

namespace ospra {

/// Looks for a newer version of the program: once quietly when it starts, and whenever the user asks. It tells, and
/// opens the page of the release in the browser if the user wants it; it fetches and runs nothing else.
class CheckForUpdatesViewModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The program makes it, where a feed was built in.")
    Q_PROPERTY(bool canCheckForUpdates READ canCheckForUpdates NOTIFY canCheckForUpdatesChanged)
    Q_PROPERTY(Outcome outcome READ outcome NOTIFY outcomeChanged)
    Q_PROPERTY(QString ownVersion READ ownVersion CONSTANT)
    Q_PROPERTY(QString newVersion READ newVersion NOTIFY outcomeChanged)

public:
    enum Outcome { Checking, UpToDate, Newer, Failed };
    Q_ENUM(Outcome)

    /// @param feed where the releases are told
    /// @param ownVersion the version that is running
    CheckForUpdatesViewModel(QUrl feed, QString ownVersion, FeedLimits limits = {}, QObject* parent = nullptr);

    /// Begins to work, with a check that is heard of only if there is a newer version.
    void start();

    /// False before `start` and while a check is running.
    [[nodiscard]] bool canCheckForUpdates() const { return m_canCheckForUpdates; }
    [[nodiscard]] Outcome outcome() const { return m_outcome; }
    [[nodiscard]] QString ownVersion() const { return m_ownVersion; }
    /// The newer version; empty unless there is one.
    [[nodiscard]] QString newVersion() const { return m_outcome == Newer ? m_release.version : QString(); }
    [[nodiscard]] QUrl page() const { return m_outcome == Newer ? m_release.page : QUrl(); }

    /// Checks because the user asks, and tells whatever comes of it. Does nothing while it cannot check.
    Q_INVOKABLE void checkForUpdates();
    /// Opens the page of the newer version in the browser.
    Q_INVOKABLE void openPage() const;

signals:
    void canCheckForUpdatesChanged();
    void outcomeChanged();
    /// There is something that the user should see: the check that was asked for, or a newer version.
    void attentionWanted();

private:
    void check();
    void takeFeed(const std::optional<QByteArray>& document);
    void setOutcome(Outcome outcome);
    void setCanCheckForUpdates(bool canCheckForUpdates);

    QUrl m_feed;
    QString m_ownVersion;
    FeedRequest m_request;
    Release m_release;
    Outcome m_outcome = Checking;
    bool m_canCheckForUpdates = false;
};

/// The object for a feed address that was built in; null where there is none or it is not to be trusted.
[[nodiscard]] std::unique_ptr<CheckForUpdatesViewModel> makeUpdateCheck(const QString& feed, const QString& ownVersion);

} // namespace ospra
