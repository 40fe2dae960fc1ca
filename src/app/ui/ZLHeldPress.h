#pragma once

#include "platform/ZLPressStamp.h"

#include <QEvent>

#include <optional>

/// The key or mouse button that went down last, until it is let go. A button in a window acts when it is let go, and
/// the person meant the moment at which it went down.
class ZLHeldPress {
public:
    /// `receiver` gets `event`, which was made at `own`. Returns the stamp of what it brings about: for the end of a
    /// press that the same receiver got, the stamp of the press, unless that is too old to be one.
    [[nodiscard]] ZLPressStamp stampFor(const QObject* receiver, const QEvent& event, const ZLPressStamp& own);

private:
    struct Press {
        /// Compared and never used: it may be gone.
        const QObject* receiver;
        QEvent::Type end;
        /// The key or the mouse button.
        int code;
        ZLPressStamp stamp;
    };

    std::optional<Press> m_press;
};
