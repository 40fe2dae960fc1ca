#include "platform/hotkey/ZLKeyCombo.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

struct ModifierPair {
    quint32 hotKeyBit;
    Qt::KeyboardModifier qtModifier;
};

constexpr std::array modifierPairs {
    ModifierPair { ZLHotKeyModifier::command, Qt::MetaModifier },
    ModifierPair { ZLHotKeyModifier::shift, Qt::ShiftModifier },
    ModifierPair { ZLHotKeyModifier::option, Qt::AltModifier },
    ModifierPair { ZLHotKeyModifier::control, Qt::ControlModifier },
};

}

ZLKeyCombo ZLKeyCombo::fromShortcutDictionary(const QVariantMap& dictionary)
{
    const auto flags = static_cast<quint32>(dictionary.value(u"modifierFlags"_s).toULongLong());
    return { dictionary.value(u"keyCode"_s).toInt(), modifiersFromStoredFlags(flags) };
}

QVariantMap ZLKeyCombo::shortcutDictionary() const
{
    return { { u"keyCode"_s, keyCode }, { u"modifierFlags"_s, storedModifierFlags() } };
}

quint32 ZLKeyCombo::modifiersFromStoredFlags(quint32 flags)
{
    return ((flags >> 12) & ZLHotKeyModifier::command) | ((flags >> 8) & ZLHotKeyModifier::shift)
        | ((flags >> 8) & ZLHotKeyModifier::option) | ((flags >> 6) & ZLHotKeyModifier::control);
}

quint32 ZLKeyCombo::storedModifierFlags() const
{
    return ((modifiers & ZLHotKeyModifier::command) << 12) | ((modifiers & ZLHotKeyModifier::shift) << 8)
        | ((modifiers & ZLHotKeyModifier::option) << 8) | ((modifiers & ZLHotKeyModifier::control) << 6);
}

Qt::KeyboardModifiers ZLKeyCombo::keyboardModifiers() const
{
    Qt::KeyboardModifiers result;
    for (const ModifierPair& pair : modifierPairs)
        result.setFlag(pair.qtModifier, (modifiers & pair.hotKeyBit) != 0);
    return result;
}

quint32 ZLKeyCombo::modifiersFromKeyboardModifiers(Qt::KeyboardModifiers modifiers)
{
    quint32 result = 0;
    for (const ModifierPair& pair : modifierPairs)
        result |= modifiers.testFlag(pair.qtModifier) ? pair.hotKeyBit : 0;
    return result;
}
