#pragma once

#include "platform/ZLResult.h"

#include <QByteArray>

#include <cstddef>
#include <vector>

/// A decoded sound, ready to be handed to an output.
struct ZLSoundSamples {
    /// Of one frame, which has one sample a channel.
    int channelCount = 0;
    /// Frames a second.
    int frameRate = 0;
    /// Interleaved, from -1 to 1.
    std::vector<float> samples {};

    /// A cue is short: what is longer than a sound server keeps at once is refused.
    static constexpr std::size_t MaximumByteCount = 4'000'000;

    [[nodiscard]] std::size_t byteCount() const { return samples.size() * sizeof(float); }
    [[nodiscard]] int milliseconds() const;

    /// Decodes the bytes of a sound file, AIFF or another common kind.
    [[nodiscard]] static ZLResult<ZLSoundSamples> decode(const QByteArray& file);
};
