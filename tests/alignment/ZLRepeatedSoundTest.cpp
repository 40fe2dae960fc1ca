#include "ZLFingerprintBuilders.h"

#include "alignment/ZLRepeatedEnds.h"
#include "alignment/ZLShowMap.h"

#include <gtest/gtest.h>

using namespace ZLTestFingerprints;

namespace {

Frames nothing(double seconds)
{
    return Frames(std::size_t(seconds * double(FramesPerSecond)), ZLSoundFingerprint::Nothing);
}

Frames inOrder(const std::vector<Frames>& parts)
{
    Frames all;
    for (const Frames& each : parts)
        append(all, each);
    return all;
}

/// As another device heard it.
Frames heard(const Frames& all)
{
    return heardWrongly(all, 99, 0.25);
}

/// The two ways to understand a file in which one of two advertisements is left.
ZLSoundAlignment firstIsKept()
{
    return { .pieces = { { 0.0, 0.0, 80.0, 1.0, 0.25 }, { 180.0, 80.0, 60.0, 1.0, 0.25 } },
        .showLength = 240.0,
        .fileLength = 140.0 };
}

ZLSoundAlignment secondIsKept()
{
    return { .pieces = { { 0.0, 0.0, 60.0, 1.0, 0.25 }, { 160.0, 60.0, 80.0, 1.0, 0.25 } },
        .showLength = 240.0,
        .fileLength = 140.0 };
}

const Frames welcome = show(1, 60.0);
const Frames advertisement = show(2, 20.0);
const Frames talk = show(3, 80.0);
const Frames farewell = show(4, 60.0);

}

TEST(ZLRepeatedSoundTest, AMarkInALongSilenceLiesInItAndIsNotSure)
{
    const auto alignment = aligned(
        inOrder({ heard(welcome), nothing(30.0), heard(farewell) }), inOrder({ welcome, nothing(30.0), farewell }));
    const ZLMappedMoment whole = ZLShowMap(alignment).place(75.0, 100.0);
    EXPECT_EQ(whole.state, ZLMomentState::Kept);
    EXPECT_NEAR(whole.fileTime, 75.0, 0.05);
    EXPECT_LT(whole.confidence, 0.7);
}

TEST(ZLRepeatedSoundTest, AMarkInAShortenedSilenceLiesBetweenWhatIsBesideIt)
{
    const ZLShowMap map(aligned(
        inOrder({ heard(welcome), nothing(30.0), heard(farewell) }), inOrder({ welcome, nothing(4.0), farewell })));
    for (const double time : { 62.0, 75.0, 88.0 }) {
        const ZLMappedMoment place = map.place(time, 100.0);
        EXPECT_GE(place.fileTime, 59.9) << time;
        EXPECT_LE(place.fileTime, 64.1) << time;
        EXPECT_LT(place.confidence, 0.7) << time;
    }
}

TEST(ZLRepeatedSoundTest, AnAdvertisementThatIsPlayedTwiceIsFoundTwice)
{
    const Frames all = inOrder({ welcome, advertisement, talk, advertisement, farewell });
    const ZLShowMap map(aligned(heard(all), all));
    for (const double time : { 70.0, 170.0 }) {
        const ZLMappedMoment place = map.place(time, time + 5.0);
        EXPECT_EQ(place.state, ZLMomentState::Kept);
        EXPECT_NEAR(place.fileTime, time, 0.05);
        EXPECT_GT(place.confidence, 0.9);
    }
}

TEST(ZLRepeatedSoundTest, OfTwoAdvertisementsTheOneThatWasCutIsTold)
{
    const Frames all = inOrder({ welcome, advertisement, talk, advertisement, farewell });
    const ZLShowMap first(aligned(heard(all), inOrder({ welcome, talk, advertisement, farewell })));
    EXPECT_EQ(first.place(70.0, 75.0).state, ZLMomentState::Cut);
    EXPECT_NEAR(first.place(70.0, 75.0).fileTime, 60.0, 0.2);
    EXPECT_NEAR(first.place(170.0, 175.0).fileTime, 150.0, 0.05);
    const ZLShowMap second(aligned(heard(all), inOrder({ welcome, advertisement, talk, farewell })));
    EXPECT_NEAR(second.place(70.0, 75.0).fileTime, 70.0, 0.05);
    EXPECT_EQ(second.place(170.0, 175.0).state, ZLMomentState::Cut);
    EXPECT_NEAR(second.place(170.0, 175.0).fileTime, 160.0, 0.2);
}

TEST(ZLRepeatedSoundTest, WhenOneOfTwoWasCutWithWhatIsBetweenThemTheMarksStayInOrder)
{
    const Frames all = inOrder({ welcome, advertisement, talk, advertisement, farewell });
    const ZLShowMap map(aligned(heard(all), inOrder({ welcome, advertisement, farewell })));
    const ZLMappedMoment first = map.place(70.0, 75.0);
    const ZLMappedMoment second = map.place(170.0, 175.0);
    EXPECT_LE(first.fileTime, second.fileTime);
    EXPECT_NEAR(map.place(190.0, 200.0).fileTime, 90.0, 0.05);
}

TEST(ZLRepeatedSoundTest, WhichOfTwoThatAreTheSameWasCutIsNotSure)
{
    const Frames all = inOrder({ welcome, advertisement, talk, advertisement, farewell });
    const ZLShowMap map(aligned(heard(all), inOrder({ welcome, advertisement, farewell })));
    for (const double time : { 61.0, 70.0, 79.0, 120.0, 161.0, 170.0, 179.0 })
        EXPECT_LT(map.place(time, time + 1.0).confidence, 0.6) << time;
    for (const double time : { 30.0, 58.0, 182.0, 200.0 })
        EXPECT_GT(map.place(time, time + 1.0).confidence, 0.9) << time;
}

TEST(ZLRepeatedSoundTest, WhicheverOfThemIsTakenTheOtherOneIsFound)
{
    const Frames show = heard(inOrder({ welcome, advertisement, talk, advertisement, farewell }));
    const Frames file = inOrder({ welcome, advertisement, farewell });
    ZLSoundAlignment first = firstIsKept();
    ZLRepeatedEnds::find(first.pieces, show, file);
    EXPECT_NEAR(first.pieces.front().endRepeats, 20.0, 0.5);
    EXPECT_EQ(first.pieces.front().beginRepeats, 0.0);
    EXPECT_EQ(first.pieces.back().beginRepeats, 0.0);
    ZLSoundAlignment second = secondIsKept();
    ZLRepeatedEnds::find(second.pieces, show, file);
    EXPECT_NEAR(second.pieces.back().beginRepeats, 20.0, 0.5);
    EXPECT_EQ(second.pieces.back().endRepeats, 0.0);
    EXPECT_EQ(second.pieces.front().endRepeats, 0.0);
}

TEST(ZLRepeatedSoundTest, AWordThatIsSaidTwiceRaisesNoDoubt)
{
    const Frames word = show(5, 0.6);
    std::vector<ZLSoundPiece> pieces { { 0.0, 0.0, 60.6, 1.0, 0.25 }, { 141.2, 60.6, 60.0, 1.0, 0.25 } };
    ZLRepeatedEnds::find(
        pieces, inOrder({ welcome, word, talk, word, farewell }), inOrder({ welcome, word, farewell }));
    EXPECT_EQ(pieces.front().endRepeats, 0.0);
}

TEST(ZLRepeatedSoundTest, WhatIsRepeatedAtABeginningIsAsUnsureAsAtAnEnd)
{
    ZLSoundAlignment second = secondIsKept();
    const auto confidenceAt = [&second](double time) { return ZLShowMap(second).place(time, time + 1.0).confidence; };
    for (const double time : { 120.0, 170.0, 190.0 })
        EXPECT_GT(confidenceAt(time), 0.9) << time;
    second.pieces.back().beginRepeats = 20.0;
    for (const double time : { 70.0, 120.0, 161.0, 170.0, 179.0 })
        EXPECT_LT(confidenceAt(time), 0.6) << time;
    for (const double time : { 30.0, 58.0, 182.0 })
        EXPECT_GT(confidenceAt(time), 0.9) << time;
}

TEST(ZLRepeatedSoundTest, ACutBesideOtherSoundIsSure)
{
    const Frames all = inOrder({ welcome, advertisement, talk, farewell });
    const ZLShowMap map(aligned(heard(all), inOrder({ welcome, advertisement, farewell })));
    for (const double time : { 30.0, 70.0, 79.0, 120.0, 170.0 })
        EXPECT_GT(map.place(time, time + 1.0).confidence, 0.9) << time;
}
