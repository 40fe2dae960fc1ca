#include "platform/dnssd/ZLAvahiDaemon.h"

#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QLoggingCategory>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(avahiDaemonLog, "zelta.platform.dnssd.daemon", QtInfoMsg)

const QString avahiServiceName = u"org.freedesktop.Avahi"_s;
const QString avahiServerInterface = u"org.freedesktop.Avahi.Server"_s;
// The same object's newer interface, which lets a caller listen before a browser or resolver starts to talk.
const QString avahiNewServerInterface = u"org.freedesktop.Avahi.Server2"_s;
constexpr int avahiServerRunning = 2;

}

ZLAvahiDaemon::ZLAvahiDaemon(const QDBusConnection& bus, QObject* parent)
    : QObject(parent)
    , m_bus(bus)
{
    if (!m_bus.isConnected()) {
        m_phase = Phase::NoBus;
        return;
    }
    m_watcher = new QDBusServiceWatcher(avahiServiceName, m_bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
        [this](const QString&, const QString&, const QString& newOwner) { setOwner(newOwner); });
    if (!m_bus.connect({}, u"/org/freedesktop/DBus/Local"_s, u"org.freedesktop.DBus.Local"_s, u"Disconnected"_s, this,
            SLOT(busWasLost())))
        qCWarning(avahiDaemonLog) << "cannot notice the end of the bus";
    askForOwner();
}

ZLAvahiDaemon::~ZLAvahiDaemon() = default;

QDBusConnection ZLAvahiDaemon::connectToSystemBus()
{
    return QDBusConnection::connectToBus(QDBusConnection::SystemBus, u"zelta-dnssd"_s);
}

void ZLAvahiDaemon::askForOwner()
{
    QDBusMessage question = QDBusMessage::createMethodCall(
        u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s, u"GetNameOwner"_s);
    question.setArguments({ avahiServiceName });
    whenAnswered(m_bus.asyncCall(question), this, [this](const QDBusMessage& answer) {
        // The watcher knows better when it has spoken meanwhile.
        if (m_phase != Phase::Looking)
            return;
        const bool hasOwner = answer.type() == QDBusMessage::ReplyMessage;
        setOwner(hasOwner ? answer.arguments().value(0).toString() : QString());
    });
}

void ZLAvahiDaemon::callServer(
    const QString& method, const QVariantList& arguments, QObject* context, const Answer& answer) const
{
    QDBusMessage call = QDBusMessage::createMethodCall(m_owner, u"/"_s, avahiNewServerInterface, method);
    call.setArguments(arguments);
    whenAnswered(m_bus.asyncCall(call), context, answer);
}

void ZLAvahiDaemon::whenAnswered(const QDBusPendingCall& call, QObject* context, const Answer& answer)
{
    auto* const watcher = new QDBusPendingCallWatcher(call, context);
    connect(watcher, &QDBusPendingCallWatcher::finished, context, [answer](QDBusPendingCallWatcher* finished) {
        finished->deleteLater();
        answer(finished->reply());
    });
}

void ZLAvahiDaemon::receiveServerState(int state, const QString& error)
{
    if (!error.isEmpty())
        qCInfo(avahiDaemonLog) << "state" << state << error;
    if (!m_owner.isEmpty())
        setPhase(state == avahiServerRunning ? Phase::Running : Phase::Starting);
}

void ZLAvahiDaemon::busWasLost()
{
    m_owner.clear();
    setPhase(Phase::NoBus);
}

void ZLAvahiDaemon::setOwner(const QString& owner)
{
    if (!m_owner.isEmpty()) {
        m_bus.disconnect(
            m_owner, u"/"_s, avahiServerInterface, u"StateChanged"_s, this, SLOT(receiveServerState(int, QString)));
    }
    m_owner.clear();
    setPhase(Phase::Absent);
    if (owner.isEmpty())
        return;
    m_owner = owner;
    if (!m_bus.connect(
            owner, u"/"_s, avahiServerInterface, u"StateChanged"_s, this, SLOT(receiveServerState(int, QString))))
        qCWarning(avahiDaemonLog) << "cannot listen to the state of Avahi";
    setPhase(Phase::Starting);
    callServer(u"GetState"_s, {}, this, [this, owner](const QDBusMessage& answer) {
        if (m_owner != owner)
            return;
        // One that does not tell its state is tried all the same; the attempt then fails with the true reason.
        const bool isAnswered = answer.type() == QDBusMessage::ReplyMessage;
        receiveServerState(isAnswered ? answer.arguments().value(0).toInt() : avahiServerRunning, {});
    });
}

void ZLAvahiDaemon::setPhase(Phase phase)
{
    if (m_phase == phase)
        return;
    m_phase = phase;
    Q_EMIT phaseDidChange();
}
