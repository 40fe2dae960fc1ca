#include "ZLFingerprintBuilders.h"

#include "alignment/ZLPauseShares.h"
#include "alignment/ZLShowMap.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace ZLTestFingerprints;

namespace {

constexpr double secondsOfSentence = 5.0;
constexpr double secondsOfPause = 1.0;

/// Sentences with pauses between them, from 5 to 6 s, from 11 to 12 s and so on. Both devices hear other noise in them.
struct Spoken {
    Frames heard;
    Frames recorded;
};

Frames noise(unsigned seed, double seconds)
{
    std::mt19937 chance(seed);
    Frames frames;
    while (frames.size() < std::size_t(seconds * double(FramesPerSecond)))
        frames.push_back(bitsByChance(chance, 0.5));
    return frames;
}

Spoken spoken(int sentences)
{
    Spoken both;
    for (int sentence = 0; sentence < sentences; ++sentence) {
        const Frames speech = show(100U + unsigned(sentence), secondsOfSentence);
        append(both.recorded, speech);
        append(both.recorded, noise(300U + unsigned(sentence), secondsOfPause));
        append(both.heard, heardWrongly(speech, 500U + unsigned(sentence), 0.25));
        append(both.heard, noise(700U + unsigned(sentence), secondsOfPause));
    }
    return both;
}

/// What was recorded up to `end`, ten seconds of something else, and what was recorded from `begin` on.
Frames withInsertion(const Spoken& all, double end, double begin)
{
    Frames file = part(all.recorded, 0.0, end);
    append(file, show(1, 10.0));
    append(file, part(all.recorded, begin, 120.0));
    return file;
}

}

TEST(ZLPauseSharesTest, APauseBehindACutBelongsToWhatFollowsIt)
{
    const Spoken all = spoken(20);
    // From the middle of a sentence into a pause of which 0.8 s stay.
    Frames file = part(all.recorded, 0.0, 33.0);
    append(file, part(all.recorded, 65.2, 120.0));
    const ZLSoundAlignment alignment = aligned(all.heard, file);
    ASSERT_EQ(alignment.pieces.size(), 2U);
    EXPECT_NEAR(alignment.pieces[0].showEnd(), 33.0, 0.15);
    EXPECT_NEAR(alignment.pieces[1].showStart, 65.2, 0.15);
    const ZLMappedMoment seam = ZLShowMap(alignment).place(50.0, 100.0);
    EXPECT_EQ(seam.state, ZLMomentState::Seam);
    EXPECT_NEAR(seam.fileTime, 33.0, 0.15);
    EXPECT_GT(seam.confidence, 0.8);
    EXPECT_EQ(ZLShowMap(alignment).place(65.6, 100.0).state, ZLMomentState::Kept);
}

TEST(ZLPauseSharesTest, APauseBeforeACutBelongsToWhatIsBeforeIt)
{
    const Spoken all = spoken(20);
    Frames file = part(all.recorded, 0.0, 35.8);
    append(file, part(all.recorded, 63.0, 120.0));
    const ZLSoundAlignment alignment = aligned(all.heard, file);
    ASSERT_EQ(alignment.pieces.size(), 2U);
    EXPECT_NEAR(alignment.pieces[0].showEnd(), 35.8, 0.15);
    EXPECT_NEAR(ZLShowMap(alignment).place(50.0, 100.0).fileTime, 35.8, 0.15);
}

TEST(ZLPauseSharesTest, APauseIsKeptUpToWhatCameInBehindIt)
{
    const Spoken all = spoken(20);
    const ZLSoundAlignment alignment = aligned(all.heard, withInsertion(all, 35.6, 63.0));
    ASSERT_EQ(alignment.pieces.size(), 2U);
    EXPECT_NEAR(alignment.pieces[0].showEnd(), 35.6, 0.2);
    const ZLMappedMoment inPause = ZLShowMap(alignment).place(35.3, 60.0);
    EXPECT_EQ(inPause.state, ZLMomentState::Kept);
    EXPECT_NEAR(inPause.fileTime, 35.3, 0.02);
    // The pause may be one of what came in.
    EXPECT_LT(inPause.confidence, 0.7);
    EXPECT_GT(ZLShowMap(alignment).place(33.0, 60.0).confidence, 0.9);
    EXPECT_NEAR(ZLShowMap(alignment).place(50.0, 100.0).fileTime, 45.6, 0.15);
}

TEST(ZLPauseSharesTest, APieceHasTheWordOnTheFarSideOfAPauseToo)
{
    const Spoken all = spoken(20);
    // A word before the pause from 65 to 66 s, and one behind the pause from 35 to 36 s.
    const ZLSoundAlignment alignment = aligned(all.heard, withInsertion(all, 36.4, 64.6));
    ASSERT_EQ(alignment.pieces.size(), 2U);
    EXPECT_EQ(ZLShowMap(alignment).place(36.2, 60.0).state, ZLMomentState::Kept);
    EXPECT_NEAR(alignment.pieces[0].showEnd(), 36.4, 0.15);
    EXPECT_NEAR(alignment.pieces[1].showStart, 64.6, 0.15);
    EXPECT_NEAR(ZLShowMap(alignment).place(50.0, 100.0).fileTime, 46.4, 0.15);
}

TEST(ZLPauseSharesTest, AShortenedPauseIsDividedAndSaysHowSureItIs)
{
    const Spoken all = spoken(20);
    // The pause from 59 to 60 s lasts 0.6 s.
    Frames file = part(all.recorded, 0.0, 59.3);
    append(file, part(all.recorded, 59.7, 120.0));
    const ZLSoundAlignment alignment = aligned(all.heard, file);
    ASSERT_EQ(alignment.pieces.size(), 2U);
    EXPECT_NEAR(alignment.pieces[0].showEnd(), 59.3, 0.15);
    EXPECT_NEAR(alignment.pieces[1].showStart, 59.7, 0.15);
    EXPECT_GT(alignment.pieces[0].endDoubt, 0.13);
    EXPECT_LT(alignment.pieces[0].beginDoubt, 0.12);
}

TEST(ZLPauseSharesTest, AnEndBesideAnInsertionIsNoSureMark)
{
    const Spoken all = spoken(20);
    Frames file = part(all.recorded, 0.0, 33.0);
    append(file, show(1, 30.0));
    append(file, part(all.recorded, 63.0, 120.0));
    const ZLShowMap map(aligned(all.heard, file));
    ASSERT_EQ(map.alignment().pieces.size(), 2U);
    // A hair on the other side of the end, and it would lie half a minute later.
    EXPECT_LT(map.place(map.alignment().pieces[0].showEnd() - 0.01, 60.0).confidence, 0.7);
    EXPECT_LT(map.place(map.alignment().pieces[0].showEnd() + 0.01, 60.0).confidence, 0.7);
    EXPECT_GT(map.place(32.0, 60.0).confidence, 0.9);
}

TEST(ZLPauseSharesTest, WithoutOtherPausesAShortGapIsDivided)
{
    const Frames left = show(1, 60.0);
    const Frames right = show(2, 60.0);
    Frames heard = left;
    append(heard, noise(3, 2.0));
    append(heard, right);
    Frames file = left;
    append(file, noise(4, 0.8));
    append(file, right);
    const ZLSoundAlignment alignment = aligned(heard, file);
    ASSERT_EQ(alignment.pieces.size(), 2U);
    EXPECT_NEAR(alignment.pieces[0].showEnd(), 60.4, 0.1);
    EXPECT_NEAR(alignment.pieces[1].showStart, 61.6, 0.1);
}

TEST(ZLPauseSharesTest, NoPieceReachesBeyondAnEndOfItsSoundsOrIntoAnotherPiece)
{
    const Spoken all = spoken(20);
    Frames heard = noise(1, 1.0);
    append(heard, all.heard);
    Frames recorded = noise(2, 1.0);
    append(recorded, all.recorded);
    // Their ends lie between two frames.
    std::vector<ZLSoundPiece> pieces { { 1.016, 1.017, 59.0, 1.0004, 0.25 }, { 61.004, 61.005, 59.0, 1.0004, 0.25 } };
    ZLPauseShares::settle(pieces, heard, recorded);
    EXPECT_LT(pieces[0].showStart, 0.3);
    EXPECT_GE(pieces[0].showStart, 0.0);
    EXPECT_GE(pieces[0].fileStart, 0.0);
    EXPECT_LE(pieces[0].showEnd(), pieces[1].showStart + 1e-9);
    EXPECT_LE(pieces[0].fileEnd(), pieces[1].fileStart + 1e-9);
    EXPECT_GT(pieces[1].showEnd(), 120.5);
    EXPECT_LE(pieces[1].showEnd(), 121.0 + 1e-9);
    EXPECT_LE(pieces[1].fileEnd(), 121.0 + 1e-9);
}
