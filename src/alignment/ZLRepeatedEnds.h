#pragma once

#include "alignment/ZLFrameAlignment.h"
#include "alignment/ZLSoundAlignment.h"

#include <vector>

/// Finds sound that the show has twice: once in what was kept, right beside a cut, and once at the far end of what was
/// cut out there. An advertisement that is played twice is such sound. Nothing tells which of the two was kept.
namespace ZLRepeatedEnds {

/// Sets `beginRepeats` and `endRepeats` where there is such sound. The pieces are in order.
void find(std::vector<ZLSoundPiece>& pieces, ZLFrameAlignment::Frames show, ZLFrameAlignment::Frames file);

}
