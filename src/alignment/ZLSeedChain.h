#pragma once

#include "alignment/ZLAlignmentSeeds.h"

#include <vector>

/// The seeds that can all be right at once: in the same order in the show and in the file.
struct ZLSeedChain {
    std::vector<ZLAlignmentSeed> seeds {};
    /// How much the seeds agree, less a cost for each change of the distance between show and file.
    double score = 0.0;

    /// The chain with the highest score. `seeds` are in the order of the show.
    [[nodiscard]] static ZLSeedChain best(const std::vector<ZLAlignmentSeed>& seeds);
};
