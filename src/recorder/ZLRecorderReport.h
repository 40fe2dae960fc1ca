#pragma once

#include <QMetaType>

/// What a recorder is doing.
enum class ZLRecorderState { Standing, Recording, Paused };

/// What a recorder says of itself at one moment.
struct ZLRecorderReport {
    ZLRecorderState state = ZLRecorderState::Standing;
    /// Seconds since its recording began, without its pauses, over all files of a recording that is split.
    double position = 0.0;
    /// When the position was right, in seconds of ZLHostClock.
    double hostTime = 0.0;
    /// Seconds by which the position may be wrong at most: its steps, and the road of the message.
    double uncertainty = 0.0;
    /// Whether the recorder says itself when the position was right. The report of any other one may have come late,
    /// and then tells too small a position.
    bool isTimed = false;

    bool operator==(const ZLRecorderReport&) const = default;
};
Q_DECLARE_METATYPE(ZLRecorderReport)
