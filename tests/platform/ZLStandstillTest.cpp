#include "platform/ZLStandstill.h"

#include <gtest/gtest.h>

namespace {

/// Looks twice a second for so long; what the last look said.
bool lookFor(ZLStandstill& standstill, const ZLProgress& progress, double& now, double seconds)
{
    bool isHanging = standstill.look(progress, now);
    for (const double end = now + seconds; now < end;)
        isHanging = standstill.look(progress, now += 0.5);
    return isHanging;
}

}

TEST(ZLStandstillTest, WhatIsAwaitedAndDoesNotMoveHangsAfterAWhile)
{
    ZLStandstill standstill;
    double now = 100.0;
    EXPECT_FALSE(lookFor(standstill, { .isAwaited = true, .reached = 7 }, now, ZLStandstill::LongestSilence - 0.5));
    EXPECT_TRUE(lookFor(standstill, { .isAwaited = true, .reached = 7 }, now, 0.5));
    EXPECT_FALSE(standstill.look({ .isAwaited = true, .reached = 8 }, now)) << "it moves again";
    EXPECT_TRUE(lookFor(standstill, { .isAwaited = true, .reached = 8 }, now, ZLStandstill::LongestSilence));
}

TEST(ZLStandstillTest, WhatNobodyWaitsForDoesNotHang)
{
    ZLStandstill standstill;
    double now = 100.0;
    EXPECT_FALSE(lookFor(standstill, { .isAwaited = true, .reached = 7 }, now, 2.0));
    EXPECT_FALSE(lookFor(standstill, { .isAwaited = false, .reached = 7 }, now, 10.0));
    EXPECT_FALSE(lookFor(standstill, { .isAwaited = true, .reached = 7 }, now, 2.0)) << "a new wait begins";
}

TEST(ZLStandstillTest, ASlowDiskThatMovesOnDoesNotHang)
{
    ZLStandstill standstill;
    double now = 100.0;
    for (quint64 step = 0; step < 100; ++step)
        EXPECT_FALSE(lookFor(standstill, { .isAwaited = true, .reached = step }, now, 2.0));
}

TEST(ZLStandstillTest, ATimeInWhichNobodyCouldLookIsNoSilence)
{
    ZLStandstill standstill;
    EXPECT_FALSE(standstill.look({ .isAwaited = true, .reached = 7 }, 100.0));
    EXPECT_FALSE(standstill.look({ .isAwaited = true, .reached = 7 }, 4000.0)) << "the program was stopped meanwhile";
}
