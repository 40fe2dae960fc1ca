#pragma once

#include "alignment/ZLFrameAlignment.h"
#include "alignment/ZLSoundAlignment.h"

#include <cstdint>
#include <vector>

/// Tells the pauses of the speech in a show and in a file, in which nothing can be recognised, from the speech.
///
/// The noise of a room changes from each frame to the next, and speech goes on. How much each of them changes in these
/// two sounds is learned from their own pieces: where the frames of both agree there is speech, and where they do not,
/// although they lie within a piece, there is a pause.
class ZLPauseEvidence {
public:
    /// So much of what a frame says counts: the windows of neighbouring frames overlap.
    static constexpr double ShareOfFrame = 0.4;

    ZLPauseEvidence(
        const std::vector<ZLSoundPiece>& pieces, ZLFrameAlignment::Frames show, ZLFrameAlignment::Frames file);

    /// Whether there were pauses enough to learn from.
    [[nodiscard]] bool isKnown() const { return !m_show.empty(); }
    /// The logarithm of how many times as likely the frames from `begin` to before `end` are a pause as speech.
    [[nodiscard]] double ofShow(std::int64_t begin, std::int64_t end) const { return between(m_show, begin, end); }
    [[nodiscard]] double ofFile(std::int64_t begin, std::int64_t end) const { return between(m_file, begin, end); }

private:
    /// Of the frames before each.
    using Sums = std::vector<double>;

    [[nodiscard]] static double between(const Sums& sums, std::int64_t begin, std::int64_t end);

    Sums m_show {};
    Sums m_file {};
};
