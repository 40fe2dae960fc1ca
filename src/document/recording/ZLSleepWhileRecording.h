#pragma once

#include <QDateTime>

/// A sleep of the computer during a recording. The recording clock stood meanwhile, the show did not.
struct ZLSleepWhileRecording {
    /// Seconds of recorded time at which it was noticed, which is before anything could be marked after it.
    double reading = 0.0;
    /// How long it was, in seconds.
    double seconds = 0.0;
    /// Wall-clock moment at which the computer fell asleep.
    QDateTime begin {};

    bool operator==(const ZLSleepWhileRecording&) const = default;
};
