#include "ZLFingerprintBuilders.h"
#include "ZLSoundBuilders.h"

#include <gtest/gtest.h>

using namespace ZLTestSounds;

namespace {

constexpr double secondsOfJingle = 10.0;

/// Speech, with jingles between its parts. A voice comes in over the end of each.
struct ShowWithJingles {
    Sound sound;
    std::vector<double> jingles;
};

ShowWithJingles showWithJingles(const Sound& jingle, unsigned seed, const std::vector<double>& speechBefore)
{
    ShowWithJingles show;
    for (const double seconds : speechBefore) {
        append(show.sound, asLoudAsChords(speech(seconds, ++seed)));
        show.jingles.push_back(double(show.sound.size()) / samplesInSecond);
        append(show.sound, jingle);
        mixIntoEnd(show.sound, asLoudAsChords(speech(2.0, ++seed)));
    }
    append(show.sound, asLoudAsChords(speech(30.0, ++seed)));
    return show;
}

/// Whether a piece lies in a jingle, with the voice that comes in over its end.
bool liesInJingle(double begin, double length, const std::vector<double>& jingles)
{
    return std::ranges::any_of(jingles,
        [=](double jingle) { return begin > jingle - 0.5 && begin + length < jingle + secondsOfJingle + 0.5; });
}

}

TEST(ZLJingleTest, OfTwoShowsWithOneJingleTheJingleAloneIsFound)
{
    const Sound jingle = chords(secondsOfJingle, 0.13, 1);
    const ShowWithJingles left = showWithJingles(jingle, 100, { 25.0, 40.0 });
    const ShowWithJingles right = showWithJingles(jingle, 200, { 50.0, 15.0 });
    const auto alignment = alignedSounds(heardInRoom(left.sound, 3), delivered(right.sound));
    ASSERT_FALSE(alignment.pieces.empty());
    for (const auto& pieces : { alignment.pieces, alignment.movedPieces }) {
        for (const ZLSoundPiece& piece : pieces) {
            EXPECT_TRUE(liesInJingle(piece.showStart, piece.length, left.jingles)) << piece.showStart;
            EXPECT_TRUE(liesInJingle(piece.fileStart, piece.length, right.jingles)) << piece.fileStart;
            EXPECT_GT(piece.length, 0.6 * secondsOfJingle);
        }
    }
}

TEST(ZLJingleTest, WithoutItTheyShareNothing)
{
    const auto alignment = alignedSounds(heardInRoom(speech(90.0, 1), 3), delivered(speech(80.0, 2)));
    EXPECT_TRUE(alignment.pieces.empty());
    EXPECT_TRUE(alignment.movedPieces.empty());
}

TEST(ZLJingleTest, WhatIsAlikeByChanceIsNotBelievedForAJingleBesideIt)
{
    using namespace ZLTestFingerprints;
    const auto put = [](const Frames& frames, Frames& target, double seconds) {
        std::ranges::copy(frames, target.begin() + std::ptrdiff_t(seconds * double(FramesPerSecond)));
    };
    for (unsigned seed = 1; seed <= 10; ++seed) {
        const Frames jingle = ZLTestFingerprints::show(seed, 8.0);
        Frames left = ZLTestFingerprints::show(seed + 100, 60.0);
        Frames right = ZLTestFingerprints::show(seed + 200, 60.0);
        put(jingle, left, 10.0);
        put(jingle, right, 5.0);
        // As much alike as two other shows can be.
        put(heardWrongly(part(left, 25.0, 28.2), seed + 300, 0.415), right, 20.0);
        const auto alignment = aligned(left, right);
        ASSERT_EQ(alignment.pieces.size(), 1U) << seed;
        EXPECT_NEAR(alignment.pieces[0].showStart, 10.0, 0.5) << seed;
    }
}
