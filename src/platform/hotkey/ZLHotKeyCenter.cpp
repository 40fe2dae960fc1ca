#include "platform/hotkey/ZLHotKeyCenter.h"

#include "platform/hotkey/ZLNullHotKeyBackend.h"
#include "platform/hotkey/ZLPortalHotKeyBackend.h"
#include "platform/hotkey/ZLVirtualKeyMap.h"
#include "platform/hotkey/ZLXcbHotKeyBackend.h"

#include <QGuiApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

ZLHotKeyCenter::ZLHotKeyCenter(QObject* parent)
    : QObject(parent)
{
}

std::unique_ptr<ZLHotKeyCenter> ZLHotKeyCenter::create()
{
    // The platform's name decides, not what it offers: other platforms hand out X11 connections that lead nowhere.
    const QString platform = QGuiApplication::platformName();
    if (platform == "xcb"_L1)
        return std::make_unique<ZLXcbHotKeyBackend>();
    if (platform.startsWith("wayland"_L1))
        return std::make_unique<ZLPortalHotKeyBackend>(ZLPortalHotKeyBackend::connectToSessionBus());
    return std::make_unique<ZLNullHotKeyBackend>();
}

void ZLHotKeyCenter::registerHotKey(const ZLHotKey& hotKey)
{
    unregisterHotKey(hotKey.identifier);
    ZLHotKey added = hotKey;
    added.state = ZLHotKey::State::Pending;
    added.refusalReason.clear();
    added.desktopTrigger.clear();
    m_hotKeys.append(added);
    activateUnlessObstructed(added);
}

void ZLHotKeyCenter::unregisterHotKey(const QString& identifier)
{
    const qsizetype index = indexOfHotKey(identifier);
    if (index < 0)
        return;
    const ZLHotKey removed = m_hotKeys.takeAt(index);
    if (!m_active.removeOne(identifier))
        return;
    deactivateHotKey(removed);
    // Another hot key may have been refused only because this one had the combination.
    const auto waiting = std::find_if(m_hotKeys.cbegin(), m_hotKeys.cend(), [&](const ZLHotKey& candidate) {
        return candidate.keyCombo == removed.keyCombo && !m_active.contains(candidate.identifier);
    });
    if (waiting != m_hotKeys.cend())
        activateUnlessObstructed(ZLHotKey(*waiting));
}

void ZLHotKeyCenter::setHotKeyState(
    const QString& identifier, ZLHotKey::State state, const QString& reason, const QString& desktopTrigger)
{
    const qsizetype index = indexOfHotKey(identifier);
    if (index < 0)
        return;
    const ZLHotKey before = m_hotKeys.at(index);
    ZLHotKey& hotKey = m_hotKeys[index];
    hotKey.state = state;
    hotKey.refusalReason = reason;
    hotKey.desktopTrigger = desktopTrigger;
    if (hotKey != before)
        Q_EMIT stateDidChange();
}

qsizetype ZLHotKeyCenter::indexOfHotKey(const QString& identifier) const
{
    const auto found = std::find_if(m_hotKeys.cbegin(), m_hotKeys.cend(),
        [&](const ZLHotKey& candidate) { return candidate.identifier == identifier; });
    return found == m_hotKeys.cend() ? -1 : std::distance(m_hotKeys.cbegin(), found);
}

QString ZLHotKeyCenter::obstacleForHotKey(const ZLHotKey& hotKey) const
{
    if (!ZLVirtualKeyMap::keyForKeyCode(hotKey.keyCombo.keyCode))
        return tr("Keyboards of this system have no such key.");
    const bool taken = std::any_of(m_hotKeys.cbegin(), m_hotKeys.cend(), [&](const ZLHotKey& other) {
        return other.keyCombo == hotKey.keyCombo && m_active.contains(other.identifier);
    });
    return taken ? tr("Another shortcut of this program has the same keys.") : QString();
}

void ZLHotKeyCenter::activateUnlessObstructed(const ZLHotKey& hotKey)
{
    const QString obstacle = obstacleForHotKey(hotKey);
    if (!obstacle.isEmpty()) {
        setHotKeyState(hotKey.identifier, ZLHotKey::State::Refused, obstacle);
        return;
    }
    m_active.append(hotKey.identifier);
    activateHotKey(hotKey);
}
