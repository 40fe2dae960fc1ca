#pragma once

#include "alignment/ZLSoundFingerprint.h"

#include <cstdint>
#include <vector>

/// Bits by chance for frames that say nothing, so that they are like no others. The same sound gets the same ones.
namespace ZLFingerprintNoise {

/// Two sounds that are compared get different bits.
enum class Side : std::uint64_t { Show = 0x5851F42D4C957F2DU, File = 0x14057B7EF767814FU };

[[nodiscard]] inline std::vector<std::uint32_t> filled(const ZLSoundFingerprint& fingerprint, Side side)
{
    std::vector<std::uint32_t> frames = fingerprint.frames;
    auto state = std::uint64_t(side);
    for (std::uint32_t& frame : frames) {
        // The generator of D. Knuth's MMIX.
        state = state * 6364136223846793005U + 1442695040888963407U;
        if (frame == ZLSoundFingerprint::Nothing)
            frame = std::uint32_t(state >> 32U);
    }
    return frames;
}

}
