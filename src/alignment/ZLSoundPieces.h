#pragma once

#include "alignment/ZLFrameAlignment.h"
#include "alignment/ZLSeedChain.h"

#include <cstdint>
#include <vector>

/// A piece in frames, with the small steps that a clock of another speed makes in it.
using ZLDriftingRuns = std::vector<ZLFrameRun>;

/// Makes pieces of a chain of seeds: it fills what lies between the seeds, finds the seams, and keeps only the pieces
/// whose own sound says enough.
namespace ZLSoundPieces {

/// In order. The frames are those that the seeds were found in.
[[nodiscard]] std::vector<ZLDriftingRuns> of(
    const ZLSeedChain& chain, ZLFrameAlignment::Frames show, ZLFrameAlignment::Frames file);

}
