#pragma once

#include <QEvent>

/// Whether Alt is held in the event that is being handled, followed through the events of the program.
class ZLModifierState {
public:
    /// To be called with every event before it is dispatched.
    void noteEvent(const QEvent& event);

    [[nodiscard]] bool isOptionKeyHeld() const { return m_isOptionKeyHeld; }

    /// To be called when the keyboard comes or goes: what is released elsewhere is not seen here.
    void forgetKeys() { m_isOptionKeyHeld = false; }

    /// Whether the event is the press or release of a modifier key.
    [[nodiscard]] static bool changesModifiers(const QEvent& event);

private:
    bool m_isOptionKeyHeld = false;
};
