#pragma once

#include "alignment/ZLSoundPieces.h"

/// How much the sound of a piece says that the file has it there, and not elsewhere.
///
/// Clicks, tones on a beat and bars that repeat are like others of their kind. So the piece is compared with what lies
/// before and behind its place too: only what is more alike at its place than at all others is evidence.
namespace ZLPieceEvidence {

/// The least share of differing bits at other places near by, from 0 to 1. By chance it is about a half.
[[nodiscard]] double shareElsewhere(
    const ZLDriftingRuns& piece, ZLFrameAlignment::Frames show, ZLFrameAlignment::Frames file);

/// Frames of which so many bits differ say neither that they are the same nor that they are not.
[[nodiscard]] double worthlessShare(double shareElsewhere);

/// How much frames agree of which so many bits differ, and so many elsewhere, as ZLFrameAlignment::agreement() counts
/// it.
[[nodiscard]] double agreement(double frames, double differingShare, double shareElsewhere);

}
