#pragma once

#include "alignment/ZLSoundFingerprint.h"

#include <array>
#include <memory>
#include <span>
#include <vector>

/// Makes the fingerprint of a sound that arrives piece by piece.
///
/// The bits are those of J. Haitsma and T. Kalker, "A Highly Robust Audio Fingerprinting System" (ISMIR 2002): 33 bands
/// between 300 and 3,400 Hz, evenly spaced on a logarithmic scale, in windows of 64 ms.
class ZLFingerprinter {
public:
    ZLFingerprinter();
    ~ZLFingerprinter();
    ZLFingerprinter(const ZLFingerprinter&) = delete;
    ZLFingerprinter& operator=(const ZLFingerprinter&) = delete;

    /// Samples of one channel, SamplesPerSecond a second, from -1 to 1. What is no number counts as silence.
    void hear(std::span<const float> samples);
    /// The frames since the last call. The last 32 ms of a sound have none yet.
    [[nodiscard]] std::vector<std::uint32_t> takeFrames();
    /// The frames that are still to come when nothing more is heard.
    void finish();

    [[nodiscard]] static ZLSoundFingerprint of(std::span<const float> samples);

private:
    static constexpr int BandCount = 33;
    static constexpr int SamplesPerWindow = 512;
    /// A bit compares a frame with this many before it.
    static constexpr int FramesBack = 3;
    using Bands = std::array<float, BandCount>;

    struct Transform;

    void addFrame();
    [[nodiscard]] Bands bandsOfWindow();
    [[nodiscard]] static std::uint32_t bitsOf(const Bands& now, const Bands& before);

    std::unique_ptr<Transform> m_transform;
    /// What is not framed yet, beginning with half a window before the next frame.
    std::vector<float> m_samples;
    std::array<Bands, FramesBack> m_formerBands {};
    std::vector<std::uint32_t> m_frames;
    std::size_t m_frameCount = 0;
};
