#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

/// Whether the desktop has something that shows notifications, without starting it for the question.
class ZLNotificationServerPresence : public QObject {
    Q_OBJECT

public:
    /// Asks at once; the answer comes later, and servers that come and go are noticed.
    explicit ZLNotificationServerPresence(
        const QDBusConnection& sessionBus = QDBusConnection::sessionBus(), QObject* parent = nullptr);

    /// Whether it is known that none runs and that the bus can start none.
    [[nodiscard]] bool isMissing() const { return m_isMissing; }

Q_SIGNALS:
    void didChange();

private:
    void ask();
    void receiveRunning(const QDBusMessage& answer);
    void receiveStartable(const QDBusMessage& answer);
    void setMissing(bool isMissing);

    QDBusConnection m_bus;
    bool m_isMissing = false;
};
