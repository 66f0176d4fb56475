#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <memory>

namespace ospra {

/// Turns SIGTERM, SIGINT and SIGHUP into a signal on the main thread, so that the program can end as it does when the
/// user quits. A second one of the same kind ends the program at once. One object at a time.
class TerminationSignals : public QObject {
    Q_OBJECT

public:
    explicit TerminationSignals(QObject* parent = nullptr);
    ~TerminationSignals() override;

signals:
    void received();

private:
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace ospra
