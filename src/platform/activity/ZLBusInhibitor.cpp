#include "platform/activity/ZLBusInhibitor.h"

#include <QDBusError>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QLoggingCategory>

#include <utility>

namespace {

Q_LOGGING_CATEGORY(inhibitorLog, "zelta.platform.activity", QtInfoMsg)

}

ZLBusInhibitor::ZLBusInhibitor(const QDBusConnection& bus, const QString& service, QObject* parent)
    : QObject(parent)
    , m_bus(bus)
    , m_service(service)
{
    if (!m_bus.isConnected())
        return;
    const auto* watcher = new QDBusServiceWatcher(service, m_bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
        [this](const QString&, const QString&, const QString& newOwner) { noteOwner(newOwner); });
}

void ZLBusInhibitor::hold(const QString& reason)
{
    if (m_state != State::Released)
        return;
    m_reason = reason;
    setState(State::Asking);
    ask();
}

void ZLBusInhibitor::release()
{
    giveBack();
    setState(State::Released);
}

QDBusMessage ZLBusInhibitor::methodCall(const QString& path, const QString& interface, const QString& method) const
{
    return QDBusMessage::createMethodCall(m_service, path, interface, method);
}

void ZLBusInhibitor::ask()
{
    // A call on a bus that never was there is not even answered with an error.
    if (!m_bus.isConnected()) {
        setState(State::Unavailable);
        return;
    }
    // An answer that is still due is this one's as well, whatever was wished in between.
    if (std::exchange(m_isAnswerDue, true))
        return;
    m_isServiceNew = false;
    auto* const watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(question()), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, &ZLBusInhibitor::receiveAnswer);
}

void ZLBusInhibitor::receiveAnswer(QDBusPendingCallWatcher* watcher)
{
    watcher->deleteLater();
    m_isAnswerDue = false;
    const QDBusMessage answer = watcher->reply();
    const bool isGranted = answer.type() == QDBusMessage::ReplyMessage && keep(answer);
    if (!isGranted)
        qCDebug(inhibitorLog) << m_service << "does not grant it:" << answer.errorName() << answer.errorMessage();
    if (m_state == State::Released) {
        giveBack();
        return;
    }
    // It may have gone after it granted it, and the news of that may be the first to arrive.
    setState(isGranted && !m_isServiceGone ? State::Held : State::Unavailable);
    // The one that was asked went away before it answered, and its successor is there already.
    if (!isGranted && m_isServiceNew)
        ask();
}

void ZLBusInhibitor::noteOwner(const QString& newOwner)
{
    m_isServiceGone = newOwner.isEmpty();
    if (m_isServiceGone) {
        if (m_state == State::Held)
            setState(State::Unavailable);
        return;
    }
    m_isServiceNew = true;
    if (m_state != State::Released && !m_isAnswerDue)
        ask();
}

void ZLBusInhibitor::setState(State state)
{
    if (std::exchange(m_state, state) != state)
        Q_EMIT stateDidChange();
}
