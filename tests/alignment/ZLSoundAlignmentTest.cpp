#include "ZLFingerprintBuilders.h"

#include "alignment/ZLSoundAlignment.h"

#include <gtest/gtest.h>

#include <numeric>

using namespace ZLTestFingerprints;

namespace {

double covered(const ZLSoundAlignment& alignment)
{
    return std::accumulate(alignment.pieces.begin(), alignment.pieces.end(), 0.0,
        [](double sum, const ZLSoundPiece& piece) { return sum + piece.length; });
}

/// Every frame after so many is left out, as where the other clock is slower.
Frames withSlowerClock(const Frames& frames, size_t framesBetween)
{
    Frames slower;
    for (size_t frame = 0; frame < frames.size(); ++frame) {
        if (frame % framesBetween != framesBetween - 1)
            slower.push_back(frames[frame]);
    }
    return slower;
}

}

TEST(ZLSoundAlignmentTest, CutsAndInsertionsAreFoundAmongWrongBits)
{
    const Frames all = show(1, 300.0);
    Frames file = show(2, 12.0);
    append(file, part(all, 10.0, 100.0));
    append(file, part(all, 140.0, 200.0));
    append(file, show(3, 30.0));
    append(file, part(all, 200.0, 290.0));
    const auto alignment = aligned(heardWrongly(all, 4, 0.33), file);
    ASSERT_EQ(alignment.pieces.size(), 3U);
    const double begins[] { 10.0, 140.0, 200.0 };
    const double places[] { 12.0, 102.0, 192.0 };
    const double lengths[] { 90.0, 60.0, 90.0 };
    for (size_t index = 0; index < 3; ++index) {
        const ZLSoundPiece& piece = alignment.pieces[index];
        EXPECT_NEAR(piece.showStart, begins[index], 0.2) << index;
        EXPECT_NEAR(piece.fileTimeOf(begins[index] + 20.0), places[index] + 20.0, 0.02) << index;
        EXPECT_NEAR(piece.length, lengths[index], 0.3) << index;
    }
    EXPECT_TRUE(alignment.isTheShow());
    EXPECT_TRUE(alignment.movedPieces.empty());
}

TEST(ZLSoundAlignmentTest, UnrelatedSoundsShareNoPiece)
{
    for (unsigned seed = 1; seed <= 20; ++seed) {
        const auto alignment = aligned(show(seed, 120.0), show(seed + 1000, 120.0));
        EXPECT_TRUE(alignment.pieces.empty()) << seed;
        EXPECT_FALSE(alignment.isTheShow()) << seed;
    }
}

TEST(ZLSoundAlignmentTest, AJingleAloneIsNotTheShow)
{
    Frames left = show(1, 120.0);
    Frames right = show(2, 200.0);
    const Frames jingle = show(3, 6.0);
    std::copy(jingle.begin(), jingle.end(), left.begin() + 1000);
    std::copy(jingle.begin(), jingle.end(), right.begin() + 4000);
    const auto alignment = aligned(left, right);
    ASSERT_EQ(alignment.pieces.size(), 1U);
    EXPECT_NEAR(alignment.pieces[0].showStart, 20.0, 0.5);
    EXPECT_NEAR(alignment.pieces[0].length, 6.0, 1.0);
    EXPECT_NEAR(alignment.pieces[0].fileTimeOf(20.0), 80.0, 0.02);
    EXPECT_FALSE(alignment.isTheShow());
}

TEST(ZLSoundAlignmentTest, AClockOfAnotherSpeedIsFollowed)
{
    const Frames all = show(5, 600.0);
    const auto alignment = aligned(all, withSlowerClock(all, 5000));
    ASSERT_EQ(alignment.pieces.size(), 1U);
    EXPECT_NEAR(alignment.pieces[0].rate, 1.0 - 200e-6, 20e-6);
    EXPECT_NEAR(alignment.pieces[0].fileTimeOf(590.0), 590.0 * (1.0 - 200e-6), 0.02);
}

TEST(ZLSoundAlignmentTest, ATeaserInFrontIsNamedAndLeavesTheOrderAlone)
{
    const Frames all = show(6, 240.0);
    Frames file = part(all, 150.0, 165.0);
    append(file, all);
    const auto alignment = aligned(heardWrongly(all, 7, 0.2), file);
    ASSERT_EQ(alignment.pieces.size(), 1U);
    EXPECT_NEAR(alignment.pieces[0].fileTimeOf(150.0), 165.0, 0.02);
    ASSERT_EQ(alignment.movedPieces.size(), 1U);
    EXPECT_NEAR(alignment.movedPieces[0].showStart, 150.0, 1.0);
    EXPECT_NEAR(alignment.movedPieces[0].fileTimeOf(150.0), 0.0, 0.02);
}

TEST(ZLSoundAlignmentTest, ATeaserIsNamedAlsoWhereAPieceEndsInNoise)
{
    // Half recognised, the end of the first piece is looked for again with what no piece has.
    for (unsigned seed = 1; seed <= 10; ++seed) {
        const Frames all = show(seed, 240.0);
        Frames file = part(all, 150.0, 165.0);
        append(file, part(all, 0.0, 100.0));
        append(file, show(seed + 100, 30.0));
        append(file, part(all, 130.0, 240.0));
        Frames heard = heardWrongly(part(all, 0.0, 98.0), seed, 0.2);
        append(heard, heardWrongly(part(all, 98.0, 100.0), seed + 200, 0.42));
        append(heard, heardWrongly(part(all, 100.0, 240.0), seed + 300, 0.2));
        const auto alignment = aligned(heard, file);
        ASSERT_EQ(alignment.movedPieces.size(), 1U) << seed;
        EXPECT_NEAR(alignment.movedPieces[0].fileTimeOf(150.0), 0.0, 0.02) << seed;
    }
}

TEST(ZLSoundAlignmentTest, NothingIsFoundInSilenceOrInNoSound)
{
    const Frames silence(std::size_t(600) * FramesPerSecond, ZLSoundFingerprint::Nothing);
    EXPECT_TRUE(aligned(silence, silence).pieces.empty());
    EXPECT_TRUE(aligned({}, {}).pieces.empty());
    EXPECT_TRUE(aligned(show(8, 1.0), show(8, 1.0)).pieces.empty());
    EXPECT_FALSE(aligned({}, show(8, 100.0)).isTheShow());
}

TEST(ZLSoundAlignmentTest, APauseInWhatWasHeardIsBridged)
{
    const Frames all = show(9, 120.0);
    Frames heard = all;
    std::fill(heard.begin() + 2000, heard.begin() + 2500, ZLSoundFingerprint::Nothing);
    const auto alignment = aligned(heard, all);
    EXPECT_GT(covered(alignment), 108.0);
    for (const ZLSoundPiece& piece : alignment.pieces)
        EXPECT_NEAR(piece.fileTimeOf(60.0), 60.0, 0.02);
}

TEST(ZLSoundAlignmentTest, AShortPauseIsNoSeam)
{
    const Frames all = show(9, 120.0);
    Frames heard = all;
    std::fill(heard.begin() + 2000, heard.begin() + 2060, ZLSoundFingerprint::Nothing);
    const auto alignment = aligned(heard, all);
    ASSERT_EQ(alignment.pieces.size(), 1U);
    EXPECT_NEAR(alignment.pieces[0].length, 120.0, 1.0);
}

TEST(ZLSoundAlignmentTest, ItEndsWhenCancelled)
{
    ZLWorkProgress progress;
    progress.cancel();
    const ZLSoundFingerprint sound { show(10, 60.0) };
    EXPECT_TRUE(ZLSoundAlignment::of(sound, sound, progress).pieces.empty());
}
