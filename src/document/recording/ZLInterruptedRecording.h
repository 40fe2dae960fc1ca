#pragma once

#include <QDateTime>

/// A recording that was running when the program ended in whatever way.
struct ZLInterruptedRecording {
    /// Seconds of recorded time that were read last.
    double reading = 0.0;
    /// Wall-clock moment of that reading.
    QDateTime lastSeen {};

    bool operator==(const ZLInterruptedRecording&) const = default;
};
