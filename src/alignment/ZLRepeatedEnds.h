#pragma once

#include "alignment/ZLFrameAlignment.h"
#include "alignment/ZLSoundAlignment.h"

#include <vector>

/// Finds at each cut the sound that the show has twice: right beside the cut in what was kept, and at the other end of
/// what was cut out. An advertisement that is played twice is one. Either of both may be the one that was kept.
namespace ZLRepeatedEnds {

/// Sets `beginRepeats` and `endRepeats` of all pieces, which are in order.
void find(std::vector<ZLSoundPiece>& pieces, ZLFrameAlignment::Frames show, ZLFrameAlignment::Frames file);

}
