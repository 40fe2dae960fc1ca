#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QString>

class QDBusPendingCallWatcher;

/// One wish at one service of a message bus, for example that the system stays awake. It is asked for without waiting,
/// asked for anew when the service starts again, and given back at the end.
class ZLBusInhibitor : public QObject {
    Q_OBJECT

public:
    enum class State {
        Released, ///< Nothing is wished.
        Asking, ///< The service has not answered yet.
        Held, ///< The service has granted it.
        Unavailable, ///< There is no such service, or it refuses. When it appears it is asked again.
    };

    ZLBusInhibitor(const QDBusConnection& bus, const QString& service, QObject* parent = nullptr);

    [[nodiscard]] State state() const { return m_state; }
    [[nodiscard]] const QString& reason() const { return m_reason; }

    void hold(const QString& reason);
    void release();

Q_SIGNALS:
    void stateDidChange();

protected:
    [[nodiscard]] const QDBusConnection& bus() const { return m_bus; }
    [[nodiscard]] QDBusMessage methodCall(const QString& path, const QString& interface, const QString& method) const;

    [[nodiscard]] virtual QDBusMessage question() const = 0;
    /// Keeps what the service gave; in place of what was kept before. False for an answer that grants nothing.
    virtual bool keep(const QDBusMessage& answer) = 0;
    /// Gives back what is kept; nothing happens when nothing is.
    virtual void giveBack() = 0;

private:
    void ask();
    void receiveAnswer(QDBusPendingCallWatcher* watcher);
    void noteOwner(const QString& newOwner);
    void setState(State state);

    QDBusConnection m_bus;
    QString m_service;
    QString m_reason;
    State m_state = State::Released;
    bool m_isAnswerDue = false;
    bool m_isServiceNew = false;
    bool m_isServiceGone = false;
};
