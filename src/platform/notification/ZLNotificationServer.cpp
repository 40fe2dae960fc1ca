#include "platform/notification/ZLNotificationServer.h"

#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QLoggingCategory>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(notificationServerLog, "zelta.platform.notification.server", QtInfoMsg)

const QString notificationService = u"org.freedesktop.Notifications"_s;
const QString notificationPath = u"/org/freedesktop/Notifications"_s;
/// Long enough for the bus to start a server, and short enough that a late notification is still about something new.
constexpr int notificationPatienceMilliseconds = 10000;

void whenServerAnswered(const QDBusPendingCall& call, QObject* context, const ZLNotificationServer::Answer& answer)
{
    auto* const watcher = new QDBusPendingCallWatcher(call, context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context, [answer](QDBusPendingCallWatcher* finished) {
        finished->deleteLater();
        answer(finished->reply());
    });
}

}

ZLNotificationServer::ZLNotificationServer(const QDBusConnection& bus, QObject* parent)
    : QObject(parent)
    , m_bus(bus)
{
    if (!m_bus.isConnected())
        return;
    const auto* watcher =
        new QDBusServiceWatcher(notificationService, m_bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
        [this](const QString&, const QString& oldOwner, const QString&) {
            if (oldOwner == m_owner)
                forgetOwner();
        });
    if (!m_bus.connect({}, u"/org/freedesktop/DBus/Local"_s, u"org.freedesktop.DBus.Local"_s, u"Disconnected"_s, this,
            SLOT(busWasLost())))
        qCWarning(notificationServerLog) << "cannot notice the end of the bus";
}

void ZLNotificationServer::find()
{
    // By its well-known name, so that the bus starts a server where the desktop leaves that to the first who needs it.
    const QDBusMessage question = QDBusMessage::createMethodCall(
        notificationService, notificationPath, notificationService, u"GetCapabilities"_s);
    whenServerAnswered(m_bus.asyncCall(question, notificationPatienceMilliseconds), this,
        [this](const QDBusMessage& answer) { receiveCapabilities(answer); });
}

void ZLNotificationServer::receiveCapabilities(const QDBusMessage& answer)
{
    if (answer.type() != QDBusMessage::ReplyMessage) {
        qCDebug(notificationServerLog) << "no notification server:" << answer.errorMessage();
        Q_EMIT isMissing();
        return;
    }
    // The sender's unique name: signals of another program or of an earlier server are not taken for its own.
    setOwner(answer.service());
    m_capabilities = answer.arguments().value(0).toStringList();
    qCDebug(notificationServerLog) << "the server" << m_owner << "can" << m_capabilities;
    Q_EMIT wasFound();
}

void ZLNotificationServer::call(
    const QString& method, const QVariantList& arguments, QObject* context, const Answer& answer) const
{
    QDBusMessage message = QDBusMessage::createMethodCall(m_owner, notificationPath, notificationService, method);
    message.setArguments(arguments);
    whenServerAnswered(m_bus.asyncCall(message, notificationPatienceMilliseconds), context, answer);
}

void ZLNotificationServer::busWasLost()
{
    forgetOwner();
}

void ZLNotificationServer::setOwner(const QString& owner)
{
    if (m_owner == owner)
        return;
    forgetOwner();
    m_owner = owner;
    listenTo(owner, true);
}

void ZLNotificationServer::forgetOwner()
{
    const QString owner = std::exchange(m_owner, {});
    m_capabilities.clear();
    if (owner.isEmpty())
        return;
    listenTo(owner, false);
    Q_EMIT wasLost();
}

void ZLNotificationServer::listenTo(const QString& owner, bool listens)
{
    const std::pair<QString, const char*> signalsOfServer[] {
        { u"ActionInvoked"_s, SIGNAL(actionWasInvoked(uint, QString)) },
        { u"NotificationReplied"_s, SIGNAL(notificationWasReplied(uint, QString)) },
        { u"NotificationClosed"_s, SIGNAL(notificationWasClosed(uint, uint)) },
    };
    for (const auto& [name, receiver] : signalsOfServer) {
        const bool done = listens
            ? m_bus.connect(owner, notificationPath, notificationService, name, this, receiver)
            : m_bus.disconnect(owner, notificationPath, notificationService, name, this, receiver);
        if (!done && listens)
            qCWarning(notificationServerLog) << "cannot listen to" << name;
    }
}
