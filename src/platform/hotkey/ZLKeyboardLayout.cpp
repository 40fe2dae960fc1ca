#include "platform/hotkey/ZLKeyboardLayout.h"

#include "platform/hotkey/ZLVirtualKeyMap.h"
#include "platform/hotkey/ZLXcbKeyboard.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

struct ModifierTitle {
    quint32 bit;
    const char* title;
};

constexpr ModifierTitle modifierTitles[] = {
    { ZLHotKeyModifier::command, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Super") },
    { ZLHotKeyModifier::control, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Ctrl") },
    { ZLHotKeyModifier::option, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Alt") },
    { ZLHotKeyModifier::shift, QT_TRANSLATE_NOOP("ZLKeyboardLayout", "Shift") },
};

QString translatedKeyTitle(const char* title)
{
    return QCoreApplication::translate("ZLKeyboardLayout", title);
}

ZLKeyboardLayout::Key usLayoutKey(const ZLVirtualKey& key)
{
    // Qt numbers its printing keys by the character, so the key is also its text.
    const QString text = key.title ? translatedKeyTitle(key.title) : QString(QChar(static_cast<char16_t>(key.qtKey)));
    return { key.keyCode, ZLVirtualKeyMap::xkbKeycodeForKey(key), key.qtKey, ZLVirtualKeyMap::keypadModifierForKey(key),
        text };
}

}

ZLKeyboardLayout::ZLKeyboardLayout(QList<Key> keys)
    : m_keys(std::move(keys))
{
}

ZLKeyboardLayout ZLKeyboardLayout::us()
{
    QList<Key> keys;
    for (const ZLVirtualKey& key : ZLVirtualKeyMap::keys())
        keys.append(usLayoutKey(key));
    return ZLKeyboardLayout(keys);
}

ZLKeyboardLayout ZLKeyboardLayout::current()
{
    ZLKeyboardLayout layout = us();
    if (xcb_connection_t* connection = ZLXcbKeyboard::applicationConnection())
        ZLXcbKeyboard::applyServerLayout(connection, layout.m_keys);
    return layout;
}

QString ZLKeyboardLayout::textForKeyCode(int keyCode) const
{
    const Key* key = keyForKeyCode(keyCode);
    return key ? key->text : QString();
}

QString ZLKeyboardLayout::textForKeyCombo(const ZLKeyCombo& combo) const
{
    const Key* key = keyForKeyCode(combo.keyCode);
    if (!key)
        return {};
    QString text;
    for (const ModifierTitle& modifier : modifierTitles) {
        if (combo.modifiers & modifier.bit)
            text += translatedKeyTitle(modifier.title) + u'+';
    }
    return text + key->text;
}

std::optional<QKeyCombination> ZLKeyboardLayout::keyCombinationForKeyCombo(const ZLKeyCombo& combo) const
{
    const Key* key = keyForKeyCode(combo.keyCode);
    if (!key)
        return std::nullopt;
    return QKeyCombination(combo.keyboardModifiers() | key->keypadModifier, key->qtKey);
}

std::optional<ZLKeyCombo> ZLKeyboardLayout::keyComboForKeyCombination(QKeyCombination combination) const
{
    const Qt::Key wanted = combination.key() == Qt::Key_Backtab ? Qt::Key_Tab : combination.key();
    const quint32 modifiers = ZLKeyCombo::modifiersFromKeyboardModifiers(combination.keyboardModifiers());
    const Qt::KeyboardModifiers keypad = combination.keyboardModifiers() & Qt::KeypadModifier;
    const auto exact = std::find_if(m_keys.cbegin(), m_keys.cend(),
        [&](const Key& key) { return key.qtKey == wanted && key.keypadModifier == keypad; });
    if (exact != m_keys.cend())
        return ZLKeyCombo { exact->keyCode, modifiers };
    // A key that stands only once is meant with or without the keypad mark, for example Enter.
    const ZLVirtualKey* named = ZLVirtualKeyMap::keyForQtKey(wanted, combination.keyboardModifiers());
    if (!named || named->kind == ZLVirtualKey::Kind::Printing)
        return std::nullopt;
    return ZLKeyCombo { named->keyCode, modifiers };
}

std::optional<int> ZLKeyboardLayout::keyCodeForNativeScanCode(quint32 scanCode) const
{
    const auto found =
        std::find_if(m_keys.cbegin(), m_keys.cend(), [=](const Key& key) { return key.scanCode == scanCode; });
    return found == m_keys.cend() ? std::nullopt : std::optional(found->keyCode);
}

std::optional<quint32> ZLKeyboardLayout::nativeScanCodeForKeyCode(int keyCode) const
{
    const Key* key = keyForKeyCode(keyCode);
    return key ? std::optional(key->scanCode) : std::nullopt;
}

const ZLKeyboardLayout::Key* ZLKeyboardLayout::keyForKeyCode(int keyCode) const
{
    const auto found =
        std::find_if(m_keys.cbegin(), m_keys.cend(), [=](const Key& key) { return key.keyCode == keyCode; });
    return found == m_keys.cend() ? nullptr : &*found;
}
