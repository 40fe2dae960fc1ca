#pragma once

#include <cmath>
#include <cstdint>
#include <vector>

/// How a sound went: 32 bits every 20 ms, from which the sound cannot be made again.
///
/// Each bit says of two neighbouring bands whether the lower one gained on the upper one within the last 60 ms.
/// Loudness and the colour of a microphone change none of them, so the same sound is found again in another recording
/// of it.
struct ZLSoundFingerprint {
    static constexpr int SamplesPerSecond = 8000;
    static constexpr int SamplesPerFrame = 160;
    static constexpr double SecondsPerFrame = double(SamplesPerFrame) / SamplesPerSecond;
    static constexpr int BitsPerFrame = 32;
    /// Of a frame in which nothing was to be heard, or nothing changed. It is like no other frame.
    static constexpr std::uint32_t Nothing = 0;

    [[nodiscard]] static std::int64_t frameAt(double seconds) { return std::llround(seconds / SecondsPerFrame); }

    /// Frame n is about the sound around n times SecondsPerFrame.
    std::vector<std::uint32_t> frames {};

    [[nodiscard]] double seconds() const { return double(frames.size()) * SecondsPerFrame; }
};
