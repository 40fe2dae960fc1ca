#pragma once

#include <QList>
#include <QtGlobal>

struct xcb_connection_t;

/// Another program on the same X server: a connection of its own with a window of its own.
class ZLXPeer {
public:
    ZLXPeer();
    ~ZLXPeer();
    Q_DISABLE_COPY_MOVE(ZLXPeer)

    /// Gives its window the keyboard focus; false when that does not happen in time.
    [[nodiscard]] bool takeFocus();
    /// X11 key codes of the key presses that its window has got.
    [[nodiscard]] QList<quint8> receivedKeycodes();

    /// Takes a combination for itself; false when it is held by someone else.
    [[nodiscard]] bool grabKey(quint8 keycode, quint16 modifiers);
    void releaseKey(quint8 keycode, quint16 modifiers);

    /// The modifier mask in force, locks included.
    [[nodiscard]] quint16 modifierState();
    /// Switches to another layout of those that are set up.
    void lockGroup(quint8 group);
    /// Moves the keys of one modifier to another one, both counted from 0 for Shift.
    void moveModifier(int from, int to);
    /// Sends a made-up key press to the root window, as no keyboard would.
    void forgeKeyPress(quint8 keycode);

private:
    xcb_connection_t* m_connection;
    quint32 m_root = 0;
    quint32 m_window = 0;
    QList<quint8> m_received;
};
