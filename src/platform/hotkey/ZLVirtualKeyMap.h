#pragma once

#include <QString>
#include <Qt>

#include <span>

/// One key of the keyboard under the names that the different systems give to its position.
struct ZLVirtualKey {
    /// Hardware-independent virtual key code, as a recorded shortcut stores it.
    int keyCode;
    /// The kernel's input event code. With evdev key codes, which nearly every server uses, the X11 code is 8 higher.
    quint16 evdevCode;
    /// Name of the position in XKB, for servers whose key codes are numbered differently.
    const char* xkbName;
    /// Keysym that the position has on an US keyboard.
    const char* keysymName;
    /// What Qt calls the key on an US keyboard.
    Qt::Key qtKey;
    enum class Kind { Printing, Named, Keypad } kind;
    /// What a person calls the key, untranslated; null for a printing key, which is called by what the layout prints.
    const char* title;
};

/// Virtual key codes and the keys of this system, both ways, by position. A pure table, without a keyboard.
class ZLVirtualKeyMap {
public:
    [[nodiscard]] static std::span<const ZLVirtualKey> keys();

    /// Null for a number that stands for no key.
    [[nodiscard]] static const ZLVirtualKey* keyForKeyCode(int keyCode);
    /// A key code of X11 or of a Wayland compositor, both of which stand 8 above the kernel's.
    [[nodiscard]] static quint32 xkbKeycodeForKey(const ZLVirtualKey& key) { return key.evdevCode + 8U; }

    /// A digit stands twice on the keyboard: the modifiers tell whether the keypad's is meant.
    [[nodiscard]] static const ZLVirtualKey* keyForQtKey(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    /// Keypad for the keys of the keypad, no modifier for the others.
    [[nodiscard]] static Qt::KeyboardModifiers keypadModifierForKey(const ZLVirtualKey& key);
};
