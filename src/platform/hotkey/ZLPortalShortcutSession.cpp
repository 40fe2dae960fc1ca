#include "platform/hotkey/ZLPortalShortcutSession.h"

#include "platform/ZLEventClock.h"
#include "platform/ZLHostClock.h"
#include "platform/bus/ZLBusCall.h"
#include "platform/bus/ZLBusNameOwner.h"

#include <QDBusMessage>
#include <QLoggingCategory>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(portalSessionLog, "zelta.platform.hotkey.portal", QtInfoMsg)

const QString portalService = u"org.freedesktop.portal.Desktop"_s;
const QString portalPath = u"/org/freedesktop/portal/desktop"_s;
const QString shortcutsInterface = u"org.freedesktop.portal.GlobalShortcuts"_s;
const QString sessionInterface = u"org.freedesktop.portal.Session"_s;
const QString registryInterface = u"org.freedesktop.host.portal.Registry"_s;
const QString applicationId = u"org.zelta.Zelta"_s;

/// The portal sends the handle as a string; an object path would be what the other calls lead to expect.
QString sessionHandle(const QVariantMap& results)
{
    const QVariant value = results.value(u"session_handle"_s);
    return value.canConvert<QDBusObjectPath>() ? value.value<QDBusObjectPath>().path() : value.toString();
}

}

ZLPortalShortcutSession::ZLPortalShortcutSession(
    const QDBusConnection& bus, QList<ZLPortalShortcut> wishes, QObject* parent)
    : QObject(parent)
    , m_bus(bus)
    , m_wishes(std::move(wishes))
{
    ZLPortalShortcut::registerTypes();
}

ZLPortalShortcutSession::~ZLPortalShortcutSession()
{
    m_request.reset();
    if (!m_sessionPath.isEmpty())
        m_bus.send(QDBusMessage::createMethodCall(m_portal, m_sessionPath, sessionInterface, u"Close"_s));
}

void ZLPortalShortcutSession::start()
{
    if (!m_bus.isConnected()) {
        fail(FailureKind::Unavailable, tr("There is no session bus, so the desktop cannot be asked for shortcuts."));
        return;
    }
    ZLBusNameOwner::find(m_bus, portalService, ZLBusCall::usualPatienceMilliseconds, this,
        [this](const ZLResult<QString>& portal) { introduce(portal); });
}

void ZLPortalShortcutSession::introduce(const ZLResult<QString>& portal)
{
    if (!portal) {
        qCInfo(portalSessionLog) << "no portal:" << portal.error().message;
        fail(FailureKind::Unavailable, tr("There is no desktop portal, so the desktop cannot be asked for shortcuts."));
        return;
    }
    m_portal = portal.value();
    // A portal remembers who a caller is from its first call on, so the introduction has to come first. One that does
    // not know this call finds out by itself.
    QDBusMessage introduction = QDBusMessage::createMethodCall(m_portal, portalPath, registryInterface, u"Register"_s);
    introduction.setArguments({ applicationId, QVariantMap() });
    ZLBusCall::send(m_bus, introduction, ZLBusCall::usualPatienceMilliseconds, this,
        [this](const QDBusMessage& reply) { introduced(reply); });
}

void ZLPortalShortcutSession::introduced(const QDBusMessage& reply)
{
    if (reply.type() == QDBusMessage::ErrorMessage)
        qCInfo(portalSessionLog) << "application id not registered:" << reply.errorName() << reply.errorMessage();
    m_phase = Phase::Asking;
    createSession();
}

void ZLPortalShortcutSession::createSession()
{
    m_request = std::make_unique<ZLPortalRequest>(m_bus, m_portal);
    connect(m_request.get(), &ZLPortalRequest::finished, this, &ZLPortalShortcutSession::sessionCreated);
    const QVariantMap options { { u"handle_token"_s, m_request->token() },
        { u"session_handle_token"_s, ZLPortalRequest::newToken() } };
    m_request->call(shortcutsInterface, u"CreateSession"_s, { options });
}

void ZLPortalShortcutSession::sessionCreated(ZLPortalRequest::Outcome outcome, const QVariantMap& results)
{
    m_request.release()->deleteLater();
    if (outcome != ZLPortalRequest::Outcome::Granted) {
        failBy(outcome);
        return;
    }
    m_sessionPath = sessionHandle(results);
    if (!m_sessionPath.startsWith(u'/') || !listenToPortal()) {
        m_sessionPath.clear();
        failBy(ZLPortalRequest::Outcome::Failed);
        return;
    }
    bindShortcuts();
}

bool ZLPortalShortcutSession::listenToPortal()
{
    const bool hearsKeys = m_bus.connect(m_portal, portalPath, shortcutsInterface, u"Activated"_s, this,
        SLOT(receiveActivated(QDBusObjectPath, QString, qulonglong, QVariantMap)));
    const bool hearsChanges = m_bus.connect(m_portal, portalPath, shortcutsInterface, u"ShortcutsChanged"_s, this,
        SLOT(receiveShortcutsChanged(QDBusMessage)));
    const bool hearsEnd =
        m_bus.connect(m_portal, m_sessionPath, sessionInterface, u"Closed"_s, this, SLOT(receiveClosed(QDBusMessage)));
    return hearsKeys && hearsChanges && hearsEnd;
}

void ZLPortalShortcutSession::bindShortcuts()
{
    m_request = std::make_unique<ZLPortalRequest>(m_bus, m_portal);
    connect(m_request.get(), &ZLPortalRequest::finished, this, &ZLPortalShortcutSession::shortcutsBound);
    const QVariantMap options { { u"handle_token"_s, m_request->token() } };
    const QString noParentWindow = u""_s;
    m_request->call(shortcutsInterface, u"BindShortcuts"_s,
        { QVariant::fromValue(QDBusObjectPath(m_sessionPath)), QVariant::fromValue(m_wishes), noParentWindow,
            options });
}

void ZLPortalShortcutSession::shortcutsBound(ZLPortalRequest::Outcome outcome, const QVariantMap& results)
{
    m_request.release()->deleteLater();
    if (outcome != ZLPortalRequest::Outcome::Granted) {
        failBy(outcome);
        return;
    }
    m_phase = Phase::Bound;
    const QVariant shortcuts = results.value(u"shortcuts"_s);
    // A portal that does not list what it bound has bound what it was asked for.
    adoptTriggers(shortcuts.isValid() ? ZLPortalShortcut::listFromVariant(shortcuts) : m_wishes);
    Q_EMIT didChange();
}

void ZLPortalShortcutSession::adoptTriggers(const QList<ZLPortalShortcut>& shortcuts)
{
    m_boundTriggers.clear();
    for (const ZLPortalShortcut& shortcut : shortcuts)
        m_boundTriggers.insert(shortcut.identifier, shortcut.properties.value(u"trigger_description"_s).toString());
}

void ZLPortalShortcutSession::receiveActivated(
    const QDBusObjectPath& session, const QString& identifier, qulonglong milliseconds, const QVariantMap&)
{
    // No desktop promises which clock it tells the time of.
    const ZLPressStamp press = ZLEventClock::stampOnHostClock(milliseconds, ZLSteadyHostClock().now());
    if (session.path() == m_sessionPath && m_phase == Phase::Bound && m_boundTriggers.contains(identifier))
        Q_EMIT activated(identifier, press);
}

void ZLPortalShortcutSession::receiveShortcutsChanged(const QDBusMessage& message)
{
    const QVariantList arguments = message.arguments();
    if (m_phase != Phase::Bound || message.signature() != "oa(sa{sv})"_L1
        || arguments.constFirst().value<QDBusObjectPath>().path() != m_sessionPath)
        return;
    adoptTriggers(ZLPortalShortcut::listFromVariant(arguments.constLast()));
    Q_EMIT didChange();
}

void ZLPortalShortcutSession::receiveClosed(const QDBusMessage&)
{
    m_sessionPath.clear();
    fail(FailureKind::Refused, tr("The desktop has withdrawn the shortcuts."));
}

void ZLPortalShortcutSession::failBy(ZLPortalRequest::Outcome outcome)
{
    switch (outcome) {
    case ZLPortalRequest::Outcome::Unsupported:
        fail(FailureKind::Unavailable, tr("This desktop's portal has no global shortcuts."));
        return;
    case ZLPortalRequest::Outcome::Declined:
        fail(FailureKind::Refused, tr("The shortcuts were declined in the desktop's dialog."));
        return;
    default:
        fail(FailureKind::Refused, tr("The desktop refuses the shortcuts."));
    }
}

void ZLPortalShortcutSession::fail(FailureKind kind, const QString& reason)
{
    m_request.reset();
    m_boundTriggers.clear();
    m_phase = Phase::Failed;
    m_failureKind = kind;
    m_failureReason = reason;
    Q_EMIT didChange();
}
