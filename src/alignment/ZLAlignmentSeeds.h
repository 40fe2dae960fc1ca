#pragma once

#include "alignment/ZLFrameAlignment.h"
#include "platform/ZLWorkProgress.h"

#include <cstdint>
#include <vector>

/// A short window of the show and a place in the file at which it may be heard.
struct ZLAlignmentSeed {
    std::int64_t showFrame = 0;
    std::int64_t fileFrame = 0;
    float differingShare = 1.0F;

    bool operator==(const ZLAlignmentSeed&) const = default;

    /// How far the file is behind the show there.
    [[nodiscard]] std::int64_t shift() const { return fileFrame - showFrame; }
};

/// Looks for many short windows of a show in a file. Most of what it finds in an edited show is right, and some is not.
namespace ZLAlignmentSeeds {

/// Between and in the anchors, in the order of the show; a window may have several places. Empty when cancelled.
[[nodiscard]] std::vector<ZLAlignmentSeed> find(const std::vector<ZLFrameRun>& anchors, ZLFrameAlignment::Frames show,
    ZLFrameAlignment::Frames file, ZLWorkProgress& progress);
/// In the runs alone, in the order of the show.
[[nodiscard]] std::vector<ZLAlignmentSeed> in(
    const std::vector<ZLFrameRun>& runs, ZLFrameAlignment::Frames show, ZLFrameAlignment::Frames file);

}
