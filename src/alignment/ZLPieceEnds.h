#pragma once

#include "alignment/ZLSoundPieces.h"

/// Finds where pieces begin and end, frame by frame.
///
/// Pieces are found by what says that both are the same at all, so they run on into frames that say little. Once they
/// are known, so is how many bits differ in a frame that is the same in this show: far fewer than by chance. Two pieces
/// that meet share the frames between them so that both together fit best.
namespace ZLPieceEnds {

void settle(std::vector<ZLDriftingRuns>& pieces, ZLFrameAlignment::Frames show, ZLFrameAlignment::Frames file);

}
