#pragma once

#include "app/ui/ZLHeldPress.h"
#include "platform/ZLEventClock.h"
#include "platform/ZLHostClock.h"

#include <QEvent>

#include <optional>

/// When the key or the mouse button was pressed whose event is being dispatched, followed through the events of the
/// program. A click was given when its button went down, although its release sets it off, see ZLHeldPress.
class ZLInputPress {
public:
    /// Absent while no input is being dispatched.
    [[nodiscard]] const std::optional<ZLPressStamp>& underWay() const { return m_underWay; }

    /// Lives while an event is dispatched to `receiver`.
    class Dispatch {
    public:
        Dispatch(ZLInputPress& press, const QObject* receiver, const QEvent& event);
        ~Dispatch();
        Q_DISABLE_COPY_MOVE(Dispatch)

    private:
        ZLInputPress& m_press;
        const std::optional<ZLPressStamp> m_former;
    };

private:
    [[nodiscard]] std::optional<ZLPressStamp> pressFor(const QObject* receiver, const QEvent& event);

    const ZLSteadyHostClock m_hostClock {};
    ZLEventClock m_inputClock;
    ZLHeldPress m_held;
    std::optional<ZLPressStamp> m_underWay;
    /// A shortcut comes right after the event of its key, as an event of its own without a time.
    std::optional<ZLPressStamp> m_lastKey;
};
