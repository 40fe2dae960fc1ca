#include "platform/hotkey/ZLPortalHotKeyBackend.h"

#include "platform/hotkey/ZLPortalShortcutSession.h"

#include <QDBusServiceWatcher>

using namespace Qt::StringLiterals;

namespace {

QList<ZLPortalShortcut> wishesForHotKeys(const QMap<QString, ZLHotKey>& hotKeys)
{
    QList<ZLPortalShortcut> wishes;
    for (const ZLHotKey& hotKey : hotKeys) {
        const QString& description = hotKey.purpose.isEmpty() ? hotKey.identifier : hotKey.purpose;
        wishes.append(ZLPortalShortcut::wish(hotKey.identifier, description, hotKey.keyCombo));
    }
    return wishes;
}

}

ZLPortalHotKeyBackend::ZLPortalHotKeyBackend(const QDBusConnection& bus, QObject* parent)
    : ZLHotKeyCenter(parent)
    , m_bus(bus)
    , m_portalWatcher(new QDBusServiceWatcher(
          u"org.freedesktop.portal.Desktop"_s, bus, QDBusServiceWatcher::WatchForOwnerChange, this))
{
    m_bindTimer.setSingleShot(true);
    m_bindTimer.setInterval(0);
    connect(&m_bindTimer, &QTimer::timeout, this, &ZLPortalHotKeyBackend::bindWantedSet);
    connect(
        m_portalWatcher, &QDBusServiceWatcher::serviceOwnerChanged, this, &ZLPortalHotKeyBackend::portalOwnerDidChange);
}

ZLPortalHotKeyBackend::~ZLPortalHotKeyBackend() = default;

QDBusConnection ZLPortalHotKeyBackend::connectToSessionBus()
{
    return QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"zelta-hot-keys"_s);
}

QString ZLPortalHotKeyBackend::backendName() const
{
    return u"GlobalShortcuts portal"_s;
}

void ZLPortalHotKeyBackend::activateHotKey(const ZLHotKey& hotKey)
{
    m_wanted.insert(hotKey.identifier, hotKey);
    setHotKeyState(hotKey.identifier, ZLHotKey::State::Pending);
    m_bindTimer.start();
}

void ZLPortalHotKeyBackend::deactivateHotKey(const ZLHotKey& hotKey)
{
    m_wanted.remove(hotKey.identifier);
    m_bindTimer.start();
}

void ZLPortalHotKeyBackend::bindWantedSet()
{
    if (m_wanted.isEmpty()) {
        m_session.reset();
        return;
    }
    const bool stands = m_session && m_session->phase() != ZLPortalShortcutSession::Phase::Failed;
    if (stands && m_session->wishes() == wishesForHotKeys(m_wanted))
        showSessionOutcome();
    else
        startSession();
}

void ZLPortalHotKeyBackend::startSession()
{
    m_session = std::make_unique<ZLPortalShortcutSession>(m_bus, wishesForHotKeys(m_wanted));
    connect(m_session.get(), &ZLPortalShortcutSession::didChange, this, &ZLPortalHotKeyBackend::sessionDidChange);
    const auto fire = [this](const QString& identifier, const ZLPressStamp& press) {
        if (m_wanted.contains(identifier))
            Q_EMIT hotKeyPressed(identifier, press);
    };
    connect(m_session.get(), &ZLPortalShortcutSession::activated, this, fire);
    m_session->start();
}

void ZLPortalHotKeyBackend::sessionDidChange()
{
    // The set may have changed meanwhile; the timer then asks anew, and this answer is no longer of interest.
    if (!m_bindTimer.isActive())
        showSessionOutcome();
}

void ZLPortalHotKeyBackend::showSessionOutcome()
{
    if (m_session->phase() == ZLPortalShortcutSession::Phase::Failed) {
        const bool isUnavailable = m_session->failureKind() == ZLPortalShortcutSession::FailureKind::Unavailable;
        setUnavailabilityReason(isUnavailable ? m_session->failureReason() : QString());
        refuseAll(m_session->failureReason());
        return;
    }
    if (m_session->phase() != ZLPortalShortcutSession::Phase::Bound)
        return;
    setUnavailabilityReason({});
    const QHash<QString, QString> triggers = m_session->boundTriggers();
    const QStringList identifiers = m_wanted.keys();
    for (const QString& identifier : identifiers) {
        if (triggers.contains(identifier))
            setHotKeyState(identifier, ZLHotKey::State::Registered, {}, triggers.value(identifier));
        else
            setHotKeyState(identifier, ZLHotKey::State::Refused, tr("The desktop assigned no keys to this shortcut."));
    }
}

void ZLPortalHotKeyBackend::portalOwnerDidChange(const QString&, const QString& oldOwner, const QString& newOwner)
{
    if (newOwner.isEmpty()) {
        m_session.reset();
        setUnavailabilityReason(tr("The desktop portal has ended."));
        refuseAll(m_unavailabilityReason);
        return;
    }
    if (m_wanted.isEmpty()) {
        setUnavailabilityReason({});
        return;
    }
    // The first call of a session may itself have started this portal, and then it will be answered.
    const bool isOnItsWay =
        oldOwner.isEmpty() && m_session && m_session->phase() == ZLPortalShortcutSession::Phase::Introducing;
    if (isOnItsWay)
        return;
    const QStringList identifiers = m_wanted.keys();
    for (const QString& identifier : identifiers)
        setHotKeyState(identifier, ZLHotKey::State::Pending);
    startSession();
}

void ZLPortalHotKeyBackend::refuseAll(const QString& reason)
{
    const QStringList identifiers = m_wanted.keys();
    for (const QString& identifier : identifiers)
        setHotKeyState(identifier, ZLHotKey::State::Refused, reason);
}

void ZLPortalHotKeyBackend::setUnavailabilityReason(const QString& reason)
{
    if (m_unavailabilityReason == reason)
        return;
    m_unavailabilityReason = reason;
    Q_EMIT stateDidChange();
}
