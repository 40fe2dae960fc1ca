#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <QVariantList>

#include <functional>

class QDBusPendingCall;
class QDBusServiceWatcher;

/// Whether Avahi, the program that speaks DNS-SD for all others, is there. It may come, go and start anew at any time.
/// Nothing here waits for an answer, and nothing starts an Avahi that was stopped.
class ZLAvahiDaemon : public QObject {
    Q_OBJECT

public:
    enum class Phase {
        NoBus,
        /// The message bus has not answered yet.
        Looking,
        Absent,
        /// Browsing works. The computer's own name is not settled, so nothing can be announced yet.
        Starting,
        Running,
    };
    using Answer = std::function<void(const QDBusMessage&)>;

    explicit ZLAvahiDaemon(const QDBusConnection& bus, QObject* parent = nullptr);
    ~ZLAvahiDaemon() override;

    [[nodiscard]] static QDBusConnection connectToSystemBus();

    [[nodiscard]] Phase phase() const { return m_phase; }
    [[nodiscard]] QDBusConnection bus() const { return m_bus; }
    /// Its unique name on the bus, so that signals of another program or of an earlier Avahi are not taken for its own;
    /// empty while it is not there.
    [[nodiscard]] QString owner() const { return m_owner; }

    /// Calls a method of the server object. The answer, which may be an error, comes unless `context` goes before.
    void callServer(const QString& method, const QVariantList& arguments, QObject* context, const Answer& answer) const;

    static void whenAnswered(const QDBusPendingCall& call, QObject* context, const Answer& answer);

Q_SIGNALS:
    /// An Avahi that starts anew is absent in between.
    void phaseDidChange();

private Q_SLOTS:
    void receiveServerState(int state, const QString& error);
    void busWasLost();

private:
    void askForOwner();
    void setOwner(const QString& owner);
    void setPhase(Phase phase);

    QDBusConnection m_bus;
    QDBusServiceWatcher* m_watcher = nullptr;
    QString m_owner;
    Phase m_phase = Phase::Looking;
};
