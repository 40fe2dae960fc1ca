#include "platform/notification/ZLNotificationServer.h"

#include "platform/bus/ZLBusNameOwner.h"

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

QDBusMessage callOfServer(const QString& server, const QString& method)
{
    return QDBusMessage::createMethodCall(server, notificationPath, notificationService, method);
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
    ZLBusNameOwner::find(m_bus, notificationService, notificationPatienceMilliseconds, this,
        [this](const ZLResult<QString>& owner) { askCapabilities(owner); });
}

void ZLNotificationServer::askCapabilities(const ZLResult<QString>& owner)
{
    if (!owner) {
        qCDebug(notificationServerLog) << "no notification server:" << owner.error().message;
        Q_EMIT isMissing();
        return;
    }
    // By its unique name, so that the answers and signals of no other program are taken for those of the server.
    ZLBusCall::send(m_bus, callOfServer(owner.value(), u"GetCapabilities"_s), notificationPatienceMilliseconds, this,
        [this, server = owner.value()](const QDBusMessage& answer) { receiveCapabilities(server, answer); });
}

void ZLNotificationServer::receiveCapabilities(const QString& owner, const QDBusMessage& answer)
{
    if (answer.type() != QDBusMessage::ReplyMessage) {
        qCDebug(notificationServerLog) << "the notification server is silent:" << answer.errorMessage();
        Q_EMIT isMissing();
        return;
    }
    setOwner(owner);
    m_capabilities = answer.arguments().value(0).toStringList();
    qCDebug(notificationServerLog) << "the server" << m_owner << "can" << m_capabilities;
    Q_EMIT wasFound();
}

void ZLNotificationServer::call(
    const QString& method, const QVariantList& arguments, QObject* context, const ZLBusCall::Answer& answer) const
{
    QDBusMessage message = callOfServer(m_owner, method);
    message.setArguments(arguments);
    ZLBusCall::send(m_bus, message, notificationPatienceMilliseconds, context, answer);
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
        { u"ActivationToken"_s, SIGNAL(activationTokenWasGiven(uint, QString)) },
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
