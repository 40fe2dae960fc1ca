#pragma once

#include "platform/ZLPressStamp.h"

#include <QString>

#include <optional>

/// By which way a command from outside came.
enum class ZLRemoteOrigin { OSC, CommandSocket, Shortcut };

/// What is known of the sender of a command from outside.
struct ZLRemoteSource {
    ZLRemoteOrigin origin = ZLRemoteOrigin::OSC;
    /// Whether Alt is among the keys that gave the command; absent when no keys gave it.
    std::optional<bool> hasOptionKey {};
    /// When the press reached the computer; absent when it is not known.
    std::optional<ZLPressStamp> press {};

    /// "OSC", "zelta send" or "a global shortcut"
    [[nodiscard]] QString name() const;
};
