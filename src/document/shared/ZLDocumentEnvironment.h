#pragma once

#include "platform/ZLHostClock.h"
#include "platform/ZLPressStamp.h"
#include "platform/notification/ZLUserNotificationCenter.h"
#include "platform/sound/ZLSound.h"

#include <QDateTime>

#include <functional>
#include <memory>
#include <optional>

/// What a document asks of the program around it. The defaults are those of a program without windows; tests replace
/// what they want to control.
struct ZLDocumentEnvironment {
    /// Seconds that recorded time is measured with.
    std::shared_ptr<const ZLHostClock> hostClock = std::make_shared<ZLSteadyHostClock>();
    /// Goes on while the computer sleeps, when the clock above stands; without it no sleep is noticed.
    std::shared_ptr<const ZLHostClock> bootClock {};
    std::function<QDateTime()> wallClock = QDateTime::currentDateTimeUtc;
    /// Whether one of the program's windows has the keyboard.
    std::function<bool()> isApplicationActive = [] { return false; };
    /// Whether Alt is held in the event that is being handled.
    std::function<bool()> isOptionKeyHeld = [] { return false; };
    /// Whether the command that is being carried out came from outside the windows.
    std::function<bool()> isCommandFromOutside = [] { return false; };
    /// When the press came whose command is being carried out; absent while no press gave the command.
    std::function<std::optional<ZLPressStamp>()> pressUnderWay = [] { return std::optional<ZLPressStamp>(); };
    /// Makes the sound with this resource name.
    std::function<std::unique_ptr<ZLSound>(const QString& name)> soundNamed = [](const QString&) {
        return std::make_unique<ZLSilentSound>();
    };
    std::shared_ptr<ZLUserNotificationCenter> notificationCenter = std::make_shared<ZLNullUserNotificationCenter>();
};
