#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

/// Where a sound may lie in another one, and how much the two differ there.
struct ZLFingerprintPlace {
    /// In the sound that is searched, of the first frame of the window.
    std::int64_t frame = 0;
    /// Share of the bits that differ, from 0 to 1. Half of them do where the two have nothing in common.
    float differingShare = 1.0F;
};

/// Finds short windows of one fingerprint in another one, by looking at every place.
class ZLFingerprintSearch {
public:
    static constexpr std::int64_t FramesInWindow = 90;

    explicit ZLFingerprintSearch(std::span<const std::uint32_t> searched);

    /// The places from `first` to before `end` at which a window of FramesInWindow frames differs least, the best
    /// first, at least a tenth of a second apart. There are fewer where the searched sound is short.
    [[nodiscard]] std::vector<ZLFingerprintPlace> bestPlaces(
        std::span<const std::uint32_t> window, std::size_t count, std::int64_t first, std::int64_t end) const;
    /// The best place within `reach` frames around `frame`; differs entirely when there is none.
    [[nodiscard]] ZLFingerprintPlace bestPlaceNear(
        std::span<const std::uint32_t> window, std::int64_t frame, std::int64_t reach) const;

private:
    /// Neighbouring windows of 64 ms share most of their sound, so every third frame says as much as all.
    static constexpr std::int64_t Stride = 3;
    static constexpr std::int64_t SamplesOfWindow = FramesInWindow / Stride;
    using Sample = std::array<std::uint32_t, SamplesOfWindow>;

    [[nodiscard]] static Sample sampleOf(std::span<const std::uint32_t> window);
    [[nodiscard]] std::int64_t lastPlace() const { return m_frameCount - FramesInWindow; }

    std::int64_t m_frameCount = 0;
    /// Every third frame, beginning with the first, the second and the third.
    std::array<std::vector<std::uint32_t>, Stride> m_phases;
};
