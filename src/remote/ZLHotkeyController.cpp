#include "remote/ZLHotkeyController.h"

#include "settings/ZLSettingsManager.h"

ZLHotkeyController::ZLHotkeyController(ZLRemoteControllerDelegate* delegate, ZLHotKeyCenter& center, QObject* parent)
    : ZLRemoteController(delegate, parent)
    , m_center(center)
{
    connect(&center, &ZLHotKeyCenter::hotKeyPressed, this, &ZLHotkeyController::hotkeyAction);
    setupHotkeys();
    connect(&ZLSettingsManager::notifications(), &ZLSettingsNotifications::ZLShortcutsDidChange, this,
        &ZLHotkeyController::setupHotkeys);
}

void ZLHotkeyController::setupHotkeys()
{
    unregisterAllHotKeys(m_center);
    const QStringList keys = ZLSettingsManager::allKeyComboKeys();
    for (const QString& key : keys) {
        const std::optional<QVariantMap> shortcut = ZLSettingsManager::keyComboForKey(key);
        if (!shortcut)
            continue;
        const QString action = actionForSettingsKey(key);
        ZLHotKey hotKey = ZLHotKey::hotKeyWithIdentifier(action, *shortcut);
        if (const ZLRemoteAction* row = ZLRemoteActions::withIdentifier(action))
            hotKey.purpose = row->title();
        m_center.registerHotKey(hotKey);
    }
}

void ZLHotkeyController::hotkeyAction(const QString& identifier)
{
    // A desktop gives back the text only; the delegate wants the published constant.
    if (const ZLRemoteAction* row = ZLRemoteActions::withIdentifier(identifier))
        deliverAction(row->identifier);
}

QString ZLHotkeyController::actionForSettingsKey(const QString& settingsKey)
{
    return ZLRemoteActions::actionForSettingsKey(settingsKey);
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
