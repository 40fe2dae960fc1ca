#pragma once

#include <cstdint>
#include <span>
#include <vector>

/// Frames of the show that lie in the file one after the other.
struct ZLFrameRun {
    std::int64_t showFrame = 0;
    std::int64_t fileFrame = 0;
    std::int64_t count = 0;

    [[nodiscard]] std::int64_t shift() const { return fileFrame - showFrame; }
    [[nodiscard]] std::int64_t showEnd() const { return showFrame + count; }
    [[nodiscard]] std::int64_t fileEnd() const { return fileFrame + count; }
};

/// Aligns two stretches frame by frame: what is the same in both, and what only one of them has. This is the alignment
/// of two sequences with affine gaps by O. Gotoh (1982), as biologists use it.
namespace ZLFrameAlignment {

using Frames = std::span<const std::uint32_t>;

/// Two frames of which so many bits differ say neither that they are the same nor that they are not. By chance it is
/// half of them, give or take a few.
inline constexpr double WorthlessShare = 0.46;

/// The runs that two stretches share which begin and end together. In long stretches only the runs at both ends are
/// looked for, since the work grows with the product of their lengths.
[[nodiscard]] std::vector<ZLFrameRun> between(Frames show, Frames file);
/// How many frames at the beginning of both are the same.
[[nodiscard]] std::int64_t sameAtBeginning(Frames show, Frames file);
/// How many frames at the end of both are the same.
[[nodiscard]] std::int64_t sameAtEnd(Frames show, Frames file);

/// How much the frames of both agree in all; about nothing, or less, where they have nothing in common. Two frames that
/// are the same count WorthlessShare.
[[nodiscard]] double agreement(Frames show, Frames file);
/// Share of the bits that differ, from 0 to 1.
[[nodiscard]] double differingShare(Frames show, Frames file);

}
