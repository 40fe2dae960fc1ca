#include "platform/hotkey/ZLHotKey.h"

ZLHotKey ZLHotKey::hotKeyWithIdentifier(const QString& identifier, const QVariantMap& shortcut)
{
    ZLHotKey hotKey;
    hotKey.identifier = identifier;
    hotKey.keyCombo = ZLKeyCombo::fromShortcutDictionary(shortcut);
    return hotKey;
}
