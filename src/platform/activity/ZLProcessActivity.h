#pragma once

#include <QObject>
#include <QString>

#include <memory>

/// What the process asks of the system while it is at work: not to fall asleep while the computer is not touched,
/// and, for shorter spans, not to end the session. A sleep or a shutdown that the user insists on is the user's: the
/// system is asked, never forced. Where nothing can be asked all of this does nothing.
class ZLProcessActivity : public QObject {
    Q_OBJECT

public:
    /// On the system's and the session's message bus; without any bus one that does nothing.
    [[nodiscard]] static std::unique_ptr<ZLProcessActivity> create();

    /// From here until end() the system does not idle to sleep, and tells when it shuts down. The reason is shown to
    /// a person who asks the system what keeps it awake.
    virtual void begin(const QString& reason) = 0;
    /// Gives back everything. Destroying the activity does so, too; what has not been answered by then goes with the
    /// process.
    virtual void end() = 0;

    /// Until allowLogOut() a log-out or shutdown that is asked for is held back, and the reason is shown to the user.
    virtual void holdBackLogOut(const QString& reason) = 0;
    virtual void allowLogOut() = 0;

Q_SIGNALS:
    /// The computer goes down now and waits until all that is connected here has returned, or its own patience ends
    /// (some seconds). What is not saved has to be saved.
    void systemWillShutDown();
};

/// Where the system has nothing to ask.
class ZLNullProcessActivity final : public ZLProcessActivity {
    Q_OBJECT

public:
    void begin(const QString&) override { }
    void end() override { }
    void holdBackLogOut(const QString&) override { }
    void allowLogOut() override { }
};
