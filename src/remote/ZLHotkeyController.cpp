#include "remote/ZLHotkeyController.h"

#include "settings/ZLSettingsManager.h"

#include <algorithm>

ZLHotkeyController::ZLHotkeyController(ZLRemoteControllerDelegate* delegate, ZLHotKeyCenter& center, QObject* parent)
    : ZLRemoteController(delegate, parent)
    , m_center(center)
{
    connect(&center, &ZLHotKeyCenter::hotKeyPressed, this, &ZLHotkeyController::hotkeyAction);
    connect(&center, &ZLHotKeyCenter::stateDidChange, this, &ZLHotkeyController::hotKeysDidChange);
    setupHotkeys();
    connect(&ZLSettingsManager::notifications(), &ZLSettingsNotifications::ZLShortcutsDidChange, this,
        &ZLHotkeyController::setupHotkeys);
}

void ZLHotkeyController::setupHotkeys()
{
    unregisterAllHotKeys(m_center);
    for (const ZLRemoteAction& action : ZLRemoteActions::all()) {
        const std::optional<QVariantMap> shortcut = ZLSettingsManager::keyComboForKey(action.settingsKey);
        if (!shortcut)
            continue;
        ZLHotKey hotKey = ZLHotKey::hotKeyWithIdentifier(action.identifier, *shortcut);
        hotKey.purpose = action.title();
        m_center.registerHotKey(hotKey);
    }
    Q_EMIT hotKeysDidChange();
}

void ZLHotkeyController::hotkeyAction(const QString& identifier, std::optional<ZLPressStamp> press)
{
    // A desktop gives back the text only; the delegate wants the published constant.
    const ZLRemoteAction* row = ZLRemoteActions::withIdentifier(identifier);
    if (!row)
        return;
    const QList<ZLHotKey> hotKeys = m_center.allHotKeys();
    const auto pressed = std::ranges::find(hotKeys, identifier, &ZLHotKey::identifier);
    const bool hasOptionKey = pressed != hotKeys.end() && pressed->containsOptionKey();
    deliverAction(
        row->identifier, { .origin = ZLRemoteOrigin::Shortcut, .hasOptionKey = hasOptionKey, .press = press });
}

QString ZLHotkeyController::actionForSettingsKey(const QString& settingsKey)
{
    return ZLRemoteActions::actionForSettingsKey(settingsKey);
}

std::optional<ZLHotKey> ZLHotkeyController::hotKeyForSettingsKey(const QString& settingsKey) const
{
    const QString action = actionForSettingsKey(settingsKey);
    const QList<ZLHotKey> hotKeys = m_center.allHotKeys();
    const auto found = std::ranges::find(hotKeys, action, &ZLHotKey::identifier);
    return found == hotKeys.end() ? std::nullopt : std::optional(*found);
}

QList<ZLHotKey> ZLHotkeyController::refusedHotKeys() const
{
    QList<ZLHotKey> refused = m_center.allHotKeys();
    refused.removeIf([](const ZLHotKey& hotKey) { return hotKey.state != ZLHotKey::State::Refused; });
    return refused;
}

void ZLHotkeyController::unregisterAllHotKeys(ZLHotKeyCenter& center)
{
    const QList<ZLHotKey> hotKeys = center.allHotKeys();
    for (const ZLHotKey& hotKey : hotKeys)
        center.unregisterHotKey(hotKey.identifier);
}
