#pragma once

#include <QList>
#include <QObject>

#include <memory>

class QSocketNotifier;

/// Turns signals of the operating system, such as SIGTERM, into a signal of the event loop, where anything may be done.
/// One watcher at a time. A signal that the process was started to ignore (as `nohup` does) stays ignored.
class ZLSignalWatcher : public QObject {
    Q_OBJECT

public:
    explicit ZLSignalWatcher(const QList<int>& signalNumbers, QObject* parent = nullptr);
    /// Puts the former handling back.
    ~ZLSignalWatcher() override;

Q_SIGNALS:
    void didReceiveSignal(int signalNumber);

private:
    struct FormerActions;

    void watch(int signalNumber);
    void readSignals();

    std::unique_ptr<FormerActions> m_formerActions;
    QSocketNotifier* m_notifier = nullptr;
    int m_readEnd = -1;
    int m_writeEnd = -1;
};
