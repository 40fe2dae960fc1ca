#include "platform/notification/ZLBusNotificationCenter.h"

#include "platform/notification/ZLNotificationMessage.h"

#include <QLoggingCategory>

#include <algorithm>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(notificationCenterLog, "zelta.platform.notification.center", QtInfoMsg)

/// The protocol's number for a notification whose time was over.
constexpr uint closedBecauseExpired = 1;

}

ZLBusNotificationCenter::ZLBusNotificationCenter(const QDBusConnection& bus)
    : m_server(bus)
{
    connect(&m_server, &ZLNotificationServer::wasFound, this, &ZLBusNotificationCenter::deliverWaiting);
    connect(&m_server, &ZLNotificationServer::isMissing, this, &ZLBusNotificationCenter::giveWaitingUp);
    connect(&m_server, &ZLNotificationServer::wasLost, this, &ZLBusNotificationCenter::serverWasLost);
    connect(&m_server, &ZLNotificationServer::activationTokenWasGiven, this,
        &ZLBusNotificationCenter::activationTokenWasGiven);
    connect(&m_server, &ZLNotificationServer::actionWasInvoked, this, &ZLBusNotificationCenter::actionWasInvoked);
    connect(&m_server, &ZLNotificationServer::notificationWasReplied, this,
        &ZLBusNotificationCenter::notificationWasReplied);
    connect(
        &m_server, &ZLNotificationServer::notificationWasClosed, this, &ZLBusNotificationCenter::notificationWasClosed);
}

void ZLBusNotificationCenter::deliverNotification(const ZLUserNotification& notification)
{
    deliver(notification, Attempt::First);
}

void ZLBusNotificationCenter::deliver(const ZLUserNotification& notification, Attempt attempt)
{
    if (m_server.isKnown()) {
        send(notification, attempt);
        return;
    }
    if (m_waiting.size() == maximumRemembered)
        return;
    m_waiting.append({ notification, attempt });
    if (m_waiting.size() == 1)
        m_server.find();
}

void ZLBusNotificationCenter::deliverWaiting()
{
    const QList<Waiting> waiting = std::exchange(m_waiting, {});
    for (const auto& [notification, attempt] : waiting)
        send(notification, attempt);
}

void ZLBusNotificationCenter::giveWaitingUp()
{
    const QList<Waiting> waiting = std::exchange(m_waiting, {});
    for (const Waiting& lost : waiting)
        Q_EMIT couldNotShowNotification(lost.notification);
}

void ZLBusNotificationCenter::send(const ZLUserNotification& notification, Attempt attempt)
{
    const QVariantList arguments = ZLNotificationMessage::arguments(notification, m_server.capabilities());
    const auto receive = [this, notification, attempt, generation = m_generation](const QDBusMessage& answer) {
        const bool isSameServer = generation == m_generation;
        if (answer.type() == QDBusMessage::ReplyMessage) {
            if (isSameServer)
                remember({ answer.arguments().value(0).toUInt(), notification });
        } else if (!isSameServer && attempt == Attempt::First) {
            // It went to a server that was about to go. Once only, should it go because of the notification.
            deliver(notification, Attempt::Second);
        } else {
            qCInfo(notificationCenterLog) << "not shown:" << answer.errorMessage();
        }
        if (isSameServer)
            oneAnswerLess();
    };
    ++m_unanswered;
    m_server.call(u"Notify"_s, arguments, this, receive);
}

void ZLBusNotificationCenter::remember(const Delivered& delivered)
{
    forget(delivered.id);
    m_delivered.append(delivered);
    if (m_delivered.size() > maximumRemembered)
        m_delivered.removeFirst();
    const auto belongs = [id = delivered.id](const Early& early) { return early.id == id; };
    QList<Early> events;
    std::copy_if(m_early.cbegin(), m_early.cend(), std::back_inserter(events), belongs);
    for (const Early& early : std::as_const(events))
        early.event();
    // One that comes after its notification is over is kept once more, and for nothing.
    m_early.removeIf(belongs);
}

void ZLBusNotificationCenter::keepForAnswer(uint id, const std::function<void()>& event)
{
    // The bus is read on a thread of its own, and an answer may overtake the object that waits for it.
    if (m_unanswered > 0 && m_early.size() < maximumRemembered)
        m_early.append({ id, event });
}

void ZLBusNotificationCenter::oneAnswerLess()
{
    if (--m_unanswered == 0)
        m_early.clear();
}

ZLBusNotificationCenter::Delivered* ZLBusNotificationCenter::deliveredWithId(uint id)
{
    const auto found = std::find_if(
        m_delivered.begin(), m_delivered.end(), [id](const Delivered& delivered) { return delivered.id == id; });
    return found == m_delivered.end() ? nullptr : &*found;
}

void ZLBusNotificationCenter::forget(uint id)
{
    m_delivered.removeIf([id](const Delivered& delivered) { return delivered.id == id; });
}

void ZLBusNotificationCenter::serverWasLost()
{
    // The next server counts from the beginning: its numbers are not those of the notifications it never saw.
    ++m_generation;
    m_delivered.clear();
    m_early.clear();
    m_unanswered = 0;
}

void ZLBusNotificationCenter::activationTokenWasGiven(uint id, const QString& token)
{
    if (Delivered* known = deliveredWithId(id))
        known->activationToken = token;
    else
        keepForAnswer(id, [this, id, token] { activationTokenWasGiven(id, token); });
}

void ZLBusNotificationCenter::actionWasInvoked(uint id, const QString& key)
{
    Delivered* known = deliveredWithId(id);
    if (!known) {
        keepForAnswer(id, [this, id, key] { actionWasInvoked(id, key); });
        return;
    }
    const ZLUserNotification notification = known->notification;
    // A token is good for one deed.
    const QString token = std::exchange(known->activationToken, {});
    if (const auto type = ZLNotificationMessage::typeOfAction(notification, key))
        Q_EMIT didActivateNotification(notification, { *type, {}, token });
}

void ZLBusNotificationCenter::notificationWasReplied(uint id, const QString& text)
{
    const Delivered* known = deliveredWithId(id);
    if (!known)
        keepForAnswer(id, [this, id, text] { notificationWasReplied(id, text); });
    if (!known || !known->notification.hasReplyButton)
        return;
    const ZLUserNotification notification = known->notification;
    // One notification is answered once.
    forget(id);
    Q_EMIT didActivateNotification(notification, { ZLUserNotificationActivationType::Replied, text });
}

void ZLBusNotificationCenter::notificationWasClosed(uint id, uint reason)
{
    // One whose time was over is kept in a list by many desktops, where it can still be answered.
    if (reason == closedBecauseExpired)
        return;
    if (!deliveredWithId(id))
        keepForAnswer(id, [this, id] { forget(id); });
    forget(id);
}
