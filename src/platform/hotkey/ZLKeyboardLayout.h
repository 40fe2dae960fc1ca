#pragma once

#include "platform/hotkey/ZLKeyCombo.h"

#include <QKeyCombination>
#include <QList>
#include <QString>

#include <optional>

/// What the keys of the keyboard print: a snapshot, to be taken anew when ZLHotKeyCenter::keyboardLayoutDidChange
/// comes.
class ZLKeyboardLayout {
public:
    /// One key of the map. `scanCode` is what QKeyEvent::nativeScanCode gives for it on X11 and Wayland.
    struct Key {
        int keyCode = 0;
        quint32 scanCode = 0;
        Qt::Key qtKey = Qt::Key_unknown;
        Qt::KeyboardModifiers keypadModifier;
        QString text;

        bool operator==(const Key&) const = default;
    };

    /// The US keyboard with the key codes of the kernel.
    [[nodiscard]] static ZLKeyboardLayout us();
    /// The layout in force: the X server's on X11, the US one where the system does not say.
    [[nodiscard]] static ZLKeyboardLayout current();
    explicit ZLKeyboardLayout(QList<Key> keys);

    [[nodiscard]] const QList<Key>& keys() const { return m_keys; }

    /// What a person calls the key, for example "M" or "Page Up"; empty for a code that stands for no key.
    [[nodiscard]] QString textForKeyCode(int keyCode) const;
    /// The whole combination, for example "Ctrl+Alt+M"; empty for a code that stands for no key.
    [[nodiscard]] QString textForKeyCombo(const ZLKeyCombo& combo) const;

    /// The same combination as a menu shortcut of Qt's.
    [[nodiscard]] std::optional<QKeyCombination> keyCombinationForKeyCombo(const ZLKeyCombo& combo) const;
    [[nodiscard]] std::optional<ZLKeyCombo> keyComboForKeyCombination(QKeyCombination combination) const;
    /// The virtual key code of a key event's nativeScanCode.
    [[nodiscard]] std::optional<int> keyCodeForNativeScanCode(quint32 scanCode) const;
    [[nodiscard]] std::optional<quint32> nativeScanCodeForKeyCode(int keyCode) const;

    bool operator==(const ZLKeyboardLayout&) const = default;

private:
    [[nodiscard]] const Key* keyForKeyCode(int keyCode) const;

    QList<Key> m_keys;
};
