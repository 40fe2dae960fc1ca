#pragma once

#include "platform/hotkey/ZLKeyCombo.h"

#include <QString>

/// A key combination that works in the whole system, and how it stands with it.
struct ZLHotKey {
    enum class State {
        /// Not given to a hot-key centre yet.
        Unregistered,
        /// The desktop has been asked and has not answered.
        Pending,
        /// It fires.
        Registered,
        /// It does not fire, and refusalReason says why.
        Refused,
    };

    /// Given back when the hot key fires.
    QString identifier;
    ZLKeyCombo keyCombo;
    /// What the hot key does, in words. A desktop that asks the user shows them; the identifier stands in when empty.
    QString purpose;
    State state = State::Unregistered;
    /// One sentence for the user, empty unless refused.
    QString refusalReason;
    /// What the desktop says triggers it, where the desktop lets the user choose; empty elsewhere.
    QString desktopTrigger;

    bool operator==(const ZLHotKey&) const = default;

    /// Whether Alt is among its keys: those that the desktop names, where it lets the user choose.
    [[nodiscard]] bool containsOptionKey() const;

    /// A hot key, not yet registered, from a recorded shortcut. Missing entries read as 0 and are not rejected.
    [[nodiscard]] static ZLHotKey hotKeyWithIdentifier(const QString& identifier, const QVariantMap& shortcut);
};
