#pragma once

#include <optional>

/// The keys that gave the command which is being carried out. A shortcut that contains Alt acts as with Alt held,
/// although the program that is in front has the keyboard, and one without it as if Alt were not held.
struct ZLCommandKeys {
    /// Absent while no shortcut is carried out: then the keyboard tells.
    std::optional<bool> hasOptionKey {};
};
