#pragma once

#include "alignment/ZLSoundAlignment.h"
#include "alignment/ZLSoundPieces.h"

#include <vector>

/// Turns pieces in frames into times finer than a frame, and finds how fast the clock of the file ran beside that of
/// the show.
namespace ZLClockFit {

[[nodiscard]] std::vector<ZLSoundPiece> timesOf(
    const std::vector<ZLDriftingRuns>& pieces, ZLFrameAlignment::Frames show, ZLFrameAlignment::Frames file);

}
