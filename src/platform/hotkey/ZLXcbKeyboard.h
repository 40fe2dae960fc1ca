#pragma once

#include "platform/hotkey/ZLKeyboardLayout.h"

struct xcb_connection_t;

/// Questions to the X server about its keyboard.
class ZLXcbKeyboard {
public:
    /// The connection of this program's windows; null when they are not on X11.
    [[nodiscard]] static xcb_connection_t* applicationConnection();

    /// Overwrites scan codes, texts and Qt keys by what the server's keymap says in the layout in force. Keys that the
    /// server does not know stay as they are.
    static void applyServerLayout(xcb_connection_t* connection, QList<ZLKeyboardLayout::Key>& keys);

    /// The modifier masks under which a grab must be made four times over (fewer without a Num Lock key), so that
    /// neither Caps Lock nor Num Lock matters. The modifier of Num Lock is looked up: servers differ in it.
    [[nodiscard]] static QList<quint16> lockMasks(xcb_connection_t* connection);
};
