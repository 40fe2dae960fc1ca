#pragma once

#include "alignment/ZLFrameAlignment.h"
#include "platform/ZLWorkProgress.h"

#include <vector>

/// Finds runs of frames that are surely the same in a show and in a file, so that whatever else is looked for has to be
/// looked for between two of them only.
///
/// At first a few windows of the show are looked for in all of the file, then more of them between those that were
/// found, and so on. So the work grows with the length of the file and not with the product of both lengths.
namespace ZLAnchors {

/// In the order of both. Runs begin and end with frames that are surely the same.
[[nodiscard]] std::vector<ZLFrameRun> inOrder(
    ZLFrameAlignment::Frames show, ZLFrameAlignment::Frames file, ZLWorkProgress& progress);

/// Where stretches of the file are in the show, wherever that is. A stretch is a run whose show frame means nothing.
[[nodiscard]] std::vector<ZLFrameRun> anywhere(const std::vector<ZLFrameRun>& stretches, ZLFrameAlignment::Frames show,
    ZLFrameAlignment::Frames file, ZLWorkProgress& progress);

/// So many frames may lie between two windows when `count` frames are looked for among `places`, so that the work has a
/// bound.
[[nodiscard]] std::int64_t framesBetweenWindows(std::int64_t count, std::int64_t places);

}
