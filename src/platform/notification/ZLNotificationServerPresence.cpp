#include "platform/notification/ZLNotificationServerPresence.h"

#include "platform/bus/ZLBusCall.h"

#include <QDBusServiceWatcher>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {
const QString watchedService = u"org.freedesktop.Notifications"_s;
}

ZLNotificationServerPresence::ZLNotificationServerPresence(const QDBusConnection& sessionBus, QObject* parent)
    : QObject(parent)
    , m_bus(sessionBus)
{
    if (m_bus.isConnected()) {
        const auto* watcher =
            new QDBusServiceWatcher(watchedService, m_bus, QDBusServiceWatcher::WatchForOwnerChange, this);
        connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, this, &ZLNotificationServerPresence::ask);
    }
    ask();
}

void ZLNotificationServerPresence::ask()
{
    ZLBusCall::send(m_bus, ZLBusCall::questionToBus(u"NameHasOwner"_s, { watchedService }),
        ZLBusCall::usualPatienceMilliseconds, this, [this](const QDBusMessage& answer) { receiveRunning(answer); });
}

void ZLNotificationServerPresence::receiveRunning(const QDBusMessage& answer)
{
    if (answer.arguments().value(0).toBool()) {
        setMissing(false);
        return;
    }
    ZLBusCall::send(m_bus, ZLBusCall::questionToBus(u"ListActivatableNames"_s, {}),
        ZLBusCall::usualPatienceMilliseconds, this, [this](const QDBusMessage& names) { receiveStartable(names); });
}

void ZLNotificationServerPresence::receiveStartable(const QDBusMessage& answer)
{
    setMissing(!answer.arguments().value(0).toStringList().contains(watchedService));
}

void ZLNotificationServerPresence::setMissing(bool isMissing)
{
    if (m_isMissing == isMissing)
        return;
    m_isMissing = isMissing;
    Q_EMIT didChange();
}
