#include "alignment/ZLShowMap.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

/// A show of 300 s: from 100 to 150 s it was cut, at 200 s an advertisement of 30 s came in, the end was cut off.
ZLShowMap map()
{
    ZLSoundAlignment alignment;
    alignment.pieces = { { 10.0, 12.0, 90.0, 1.0, 0.3 }, { 150.0, 102.0, 50.0, 1.0, 0.3 },
        { 200.0, 182.0, 80.0, 1.0, 0.3 } };
    alignment.showLength = 300.0;
    alignment.fileLength = 270.0;
    return ZLShowMap(alignment);
}

void expectPlace(double showTime, double spanEnd, ZLMomentState state, double fileTime)
{
    const ZLMappedMoment moment = map().place(showTime, spanEnd);
    EXPECT_EQ(moment.state, state) << showTime;
    EXPECT_NEAR(moment.fileTime, fileTime, 1e-9) << showTime;
    EXPECT_GT(moment.confidence, 0.2) << showTime;
    EXPECT_LE(moment.confidence, 1.0) << showTime;
}

}

TEST(ZLShowMapTest, WhatIsInAPieceIsKept)
{
    expectPlace(10.0, 60.0, ZLMomentState::Kept, 12.0);
    expectPlace(60.0, 120.0, ZLMomentState::Kept, 62.0);
    expectPlace(150.0, 160.0, ZLMomentState::Kept, 102.0);
    expectPlace(279.0, 400.0, ZLMomentState::Kept, 261.0);
}

TEST(ZLShowMapTest, WhatWasCutLiesAtTheSeam)
{
    expectPlace(120.0, 180.0, ZLMomentState::Seam, 102.0);
    expectPlace(120.0, 140.0, ZLMomentState::Cut, 102.0);
    expectPlace(1.0, 60.0, ZLMomentState::Seam, 12.0);
    expectPlace(1.0, 5.0, ZLMomentState::Cut, 12.0);
    expectPlace(290.0, 300.0, ZLMomentState::Cut, 262.0);
}

TEST(ZLShowMapTest, AnEndThatIsNotSureMakesWhatLiesBesideItUnsure)
{
    ZLSoundAlignment alignment = map().alignment();
    const double surely = ZLShowMap(alignment).place(100.3, 180.0).confidence;
    const double surelyKept = ZLShowMap(alignment).place(99.7, 180.0).confidence;
    alignment.pieces[0].endDoubt = 0.4;
    EXPECT_LT(ZLShowMap(alignment).place(100.3, 180.0).confidence, 0.85 * surely);
    EXPECT_LT(ZLShowMap(alignment).place(99.7, 180.0).confidence, 0.85 * surelyKept);
    EXPECT_NEAR(ZLShowMap(alignment).place(60.0, 180.0).confidence, map().place(60.0, 180.0).confidence, 1e-6);
}

TEST(ZLShowMapTest, ASeamThatIsNotSureSaysSo)
{
    ZLSoundAlignment alignment = map().alignment();
    alignment.pieces[1].beginDoubt = 0.5;
    EXPECT_LT(ZLShowMap(alignment).place(120.0, 180.0).confidence, 0.7);
}

TEST(ZLShowMapTest, WhatMayBeInAnInsertionIsNotSurelyCut)
{
    ZLSoundAlignment alignment = map().alignment();
    const double sure = ZLShowMap(alignment).place(120.0, 180.0).confidence;
    for (size_t index = 1; index < alignment.pieces.size(); ++index)
        alignment.pieces[index].fileStart += 5.0;
    EXPECT_LT(ZLShowMap(alignment).place(120.0, 180.0).confidence, 0.6 * sure);
}

TEST(ZLShowMapTest, WhatLiesCloseToAnInsertionIsNotSure)
{
    // The advertisement came in at 200 s of the show.
    EXPECT_LT(map().place(199.9, 250.0).confidence, 0.7);
    EXPECT_LT(map().place(200.1, 250.0).confidence, 0.7);
    EXPECT_GT(map().place(199.0, 250.0).confidence, 0.95);
    // Beside a mere cut a mark that is on the wrong side is not far off.
    EXPECT_GT(map().place(99.9, 250.0).confidence, 0.7);
}

TEST(ZLShowMapTest, WhatIsElsewhereAsWellIsLessSure)
{
    ZLSoundAlignment alignment;
    alignment.pieces = { { 0.0, 5.0, 50.0, 1.0, 0.2 } };
    alignment.showLength = alignment.fileLength = 60.0;
    const double sure = ZLShowMap(alignment).place(20.0, 40.0).confidence;
    alignment.pieces[0].shareElsewhere = 0.25;
    EXPECT_GT(sure, 0.9);
    EXPECT_LT(ZLShowMap(alignment).place(20.0, 40.0).confidence, 0.2);
}

TEST(ZLShowMapTest, BetweenTwoPiecesAtOneDistanceItIsKept)
{
    ZLSoundAlignment alignment;
    alignment.pieces = { { 0.0, 5.0, 50.0, 1.0, 0.3 }, { 60.0, 65.02, 50.0, 1.0, 0.3 } };
    alignment.showLength = 110.0;
    alignment.fileLength = 120.0;
    const ZLMappedMoment moment = ZLShowMap(alignment).place(55.0, 100.0);
    EXPECT_EQ(moment.state, ZLMomentState::Kept);
    EXPECT_NEAR(moment.fileTime, 60.0, 1e-9);
    EXPECT_LT(moment.confidence, ZLShowMap(alignment).place(40.0, 100.0).confidence);
}

TEST(ZLShowMapTest, NothingIsGuessed)
{
    EXPECT_EQ(map().place(301.0, 400.0).state, ZLMomentState::NotFound);
    EXPECT_EQ(map().place(std::numeric_limits<double>::quiet_NaN(), 400.0).state, ZLMomentState::NotFound);
    ZLSoundAlignment jingle;
    jingle.pieces = { { 10.0, 12.0, 6.0, 1.0, 0.1 } };
    jingle.showLength = 300.0;
    jingle.fileLength = 270.0;
    EXPECT_EQ(ZLShowMap(jingle).place(12.0, 20.0).state, ZLMomentState::NotFound);
    EXPECT_EQ(ZLShowMap({}).place(12.0, 20.0).state, ZLMomentState::NotFound);
}
