#pragma once

#include "alignment/ZLFrameAlignment.h"
#include "alignment/ZLSoundAlignment.h"

#include <vector>

/// Lets pieces grow into the pauses of the speech beside them, in which nothing can be recognised.
///
/// Speech in the file that was recognised ends at a pause, of which the piece may have all, a part or nothing: so much
/// of it is taken as is a pause in the show and in the file, and of the sound behind that pause what is the same in
/// both. What two pieces have between them in the file is, as a rule, theirs together. How sure an end is, is said with
/// it.
namespace ZLPauseShares {

void settle(std::vector<ZLSoundPiece>& pieces, ZLFrameAlignment::Frames show, ZLFrameAlignment::Frames file);

}
