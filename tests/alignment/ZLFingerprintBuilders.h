#pragma once

#include "alignment/ZLSoundAlignment.h"
#include "alignment/ZLSoundFingerprint.h"

#include <bit>
#include <cstdint>
#include <random>
#include <utility>
#include <vector>

/// Fingerprints as shows have them: each frame is like the one before it.
namespace ZLTestFingerprints {

using Frames = std::vector<std::uint32_t>;

inline constexpr std::size_t FramesPerSecond = 50;

/// Bits that are each set with the given chance.
inline std::uint32_t bitsByChance(std::mt19937& chance, double share)
{
    std::bernoulli_distribution isSet(share);
    std::uint32_t bits = 0;
    for (unsigned bit = 0; bit < 32; ++bit)
        bits |= std::uint32_t(isSet(chance)) << bit;
    return bits;
}

inline Frames show(unsigned seed, double seconds)
{
    std::mt19937 chance(seed);
    Frames frames { bitsByChance(chance, 0.5) };
    while (frames.size() < std::size_t(seconds * double(FramesPerSecond)))
        frames.push_back(frames.back() ^ bitsByChance(chance, 0.2));
    return frames;
}

/// The frames as another device hears them, with so many of their bits wrong.
inline Frames heardWrongly(Frames frames, unsigned seed, double share)
{
    std::mt19937 chance(seed);
    for (std::uint32_t& frame : frames)
        frame ^= bitsByChance(chance, share);
    return frames;
}

inline Frames part(const Frames& frames, double begin, double end)
{
    return { frames.begin() + std::ptrdiff_t(begin * FramesPerSecond),
        frames.begin() + std::ptrdiff_t(end * FramesPerSecond) };
}

inline void append(Frames& frames, const Frames& more)
{
    frames.insert(frames.end(), more.begin(), more.end());
}

inline ZLSoundAlignment aligned(const Frames& show, const Frames& file)
{
    ZLWorkProgress progress;
    return ZLSoundAlignment::of({ show }, { file }, progress);
}

}
