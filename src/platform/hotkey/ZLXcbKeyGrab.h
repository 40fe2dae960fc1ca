#pragma once

#include "platform/ZLResult.h"

#include <QList>

struct xcb_connection_t;

/// One combination taken from the X server for this program, under every state of the lock keys.
class ZLXcbKeyGrab {
public:
    /// What the server is asked for: an X11 key code and a core modifier mask without the locks.
    struct Combination {
        quint8 keycode = 0;
        quint16 modifiers = 0;

        bool operator==(const Combination&) const = default;
    };

    /// Takes the combination or leaves nothing behind; the error says who is in the way. Waits for the server's answer.
    [[nodiscard]] static ZLResult<ZLXcbKeyGrab> take(
        xcb_connection_t* connection, Combination combination, const QList<quint16>& lockMasks);
    void release(xcb_connection_t* connection) const;

    [[nodiscard]] Combination combination() const { return m_combination; }

private:
    ZLXcbKeyGrab(Combination combination, QList<quint16> lockMasks);

    Combination m_combination;
    QList<quint16> m_lockMasks;
};
