#pragma once

#include "platform/notification/ZLNotificationServer.h"
#include "platform/notification/ZLUserNotificationCenter.h"

#include <QList>

#include <functional>

/// Delivers through the notification server on the session bus, whichever runs there, anew whenever it is replaced.
/// Where it has reply fields the reply comes as ZLUserNotificationActivationType::Replied; where it has only buttons,
/// the Reply button comes as ReplyButtonClicked; where none runs, couldNotShowNotification follows.
class ZLBusNotificationCenter final : public ZLUserNotificationCenter {
    Q_OBJECT

public:
    /// Notifications that are remembered for their replies; the oldest are forgotten.
    static constexpr qsizetype maximumRemembered = 256;

    explicit ZLBusNotificationCenter(const QDBusConnection& bus = QDBusConnection::sessionBus());

    void deliverNotification(const ZLUserNotification& notification) override;

private:
    enum class Attempt { First, Second };
    struct Waiting {
        ZLUserNotification notification;
        Attempt attempt;
    };
    struct Delivered {
        uint id = 0;
        ZLUserNotification notification;
        QString activationToken {};
    };

    void deliverWaiting();
    void giveWaitingUp();
    void deliver(const ZLUserNotification& notification, Attempt attempt);
    void send(const ZLUserNotification& notification, Attempt attempt);
    void remember(const Delivered& delivered);
    /// Keeps what the server tells of a number that it has given out but whose answer has not been seen yet.
    void keepForAnswer(uint id, const std::function<void()>& event);
    void oneAnswerLess();
    /// Null for a number that is not one of ours, or no longer.
    [[nodiscard]] Delivered* deliveredWithId(uint id);
    void forget(uint id);
    void serverWasLost();
    void activationTokenWasGiven(uint id, const QString& token);
    void actionWasInvoked(uint id, const QString& key);
    void notificationWasReplied(uint id, const QString& text);
    void notificationWasClosed(uint id, uint reason);

    ZLNotificationServer m_server;
    /// Until it is known what the server can do.
    QList<Waiting> m_waiting;
    QList<Delivered> m_delivered;
    struct Early {
        uint id = 0;
        std::function<void()> event;
    };
    QList<Early> m_early;
    /// Notifications of this server whose numbers are not known yet.
    qsizetype m_unanswered = 0;
    /// Counts the servers that were lost, so that a late answer of an earlier one is known as such.
    quint64 m_generation = 0;
};
