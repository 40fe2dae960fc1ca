#pragma once

#include <QVariantMap>
#include <QtGlobal>

/// The modifier bits of a hot key. On this system command is the Super key, option is Alt.
namespace ZLHotKeyModifier {
inline constexpr quint32 command = 0x100;
inline constexpr quint32 shift = 0x200;
inline constexpr quint32 option = 0x800;
inline constexpr quint32 control = 0x1000;
}

/// A key with the modifiers that are held with it.
struct ZLKeyCombo {
    /// Virtual key code, 0 to 127: a position on the keyboard, whatever the layout prints there (see ZLVirtualKeyMap).
    int keyCode = 0;
    /// Bits of ZLHotKeyModifier.
    quint32 modifiers = 0;

    bool operator==(const ZLKeyCombo&) const = default;

    /// Reads the entries "keyCode" and "modifierFlags"; a missing one reads as 0.
    [[nodiscard]] static ZLKeyCombo fromShortcutDictionary(const QVariantMap& dictionary);
    /// The dictionary that reads back as this combination.
    [[nodiscard]] QVariantMap shortcutDictionary() const;

    /// Moves the four modifiers from their stored bits to the bits of a hot key and drops every other bit.
    [[nodiscard]] static quint32 modifiersFromStoredFlags(quint32 flags);
    /// The way back.
    [[nodiscard]] quint32 storedModifierFlags() const;

    /// The same four modifiers as Qt knows them; any other modifier of Qt's is dropped.
    [[nodiscard]] Qt::KeyboardModifiers keyboardModifiers() const;
    [[nodiscard]] static quint32 modifiersFromKeyboardModifiers(Qt::KeyboardModifiers modifiers);
};
