#include "platform/hotkey/ZLHotKey.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

bool ZLHotKey::containsOptionKey() const
{
    static const QRegularExpression alt(u"\\balt\\b"_s, QRegularExpression::CaseInsensitiveOption);
    if (!desktopTrigger.isEmpty())
        return alt.match(desktopTrigger).hasMatch();
    return keyCombo.modifiers & ZLHotKeyModifier::option;
}

ZLHotKey ZLHotKey::hotKeyWithIdentifier(const QString& identifier, const QVariantMap& shortcut)
{
    ZLHotKey hotKey;
    hotKey.identifier = identifier;
    hotKey.keyCombo = ZLKeyCombo::fromShortcutDictionary(shortcut);
    return hotKey;
}
