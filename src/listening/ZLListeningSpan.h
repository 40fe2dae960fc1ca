#pragma once

#include "alignment/ZLSoundFingerprint.h"

#include <cstdint>
#include <vector>

/// What was heard of a show without a break: from a start of the recording clock to its next stop.
struct ZLListeningSpan {
    /// The reading of the recording clock at frame 0, in seconds.
    double start = 0.0;
    /// Seconds of the recording clock from one frame to the next: 20 ms, as long as the input's own clock counts them.
    double interval = ZLSoundFingerprint::SecondsPerFrame;
    /// See ZLSoundFingerprint.
    std::vector<std::uint32_t> frames {};

    /// The reading after the last frame.
    [[nodiscard]] double end() const { return start + interval * double(frames.size()); }
    bool operator==(const ZLListeningSpan&) const = default;
};
