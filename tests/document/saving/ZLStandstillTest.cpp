#include "document/saving/ZLStandstill.h"

#include <gtest/gtest.h>

TEST(ZLStandstillTest, WhatIsAwaitedAndDoesNotMoveHangsAfterAWhile)
{
    ZLStandstill standstill;
    const ZLProgress waiting { .isAwaited = true, .reached = 7 };
    EXPECT_FALSE(standstill.look(waiting, 100.0));
    EXPECT_FALSE(standstill.look(waiting, 100.0 + ZLStandstill::LongestSilence - 0.1));
    EXPECT_TRUE(standstill.look(waiting, 100.0 + ZLStandstill::LongestSilence));
    EXPECT_FALSE(standstill.look({ .isAwaited = true, .reached = 8 }, 110.0)) << "it moves again";
    EXPECT_FALSE(standstill.look({ .isAwaited = true, .reached = 8 }, 112.0));
    EXPECT_TRUE(standstill.look({ .isAwaited = true, .reached = 8 }, 114.0));
}

TEST(ZLStandstillTest, WhatNobodyWaitsForDoesNotHang)
{
    ZLStandstill standstill;
    EXPECT_FALSE(standstill.look({ .isAwaited = true, .reached = 7 }, 100.0));
    EXPECT_FALSE(standstill.look({ .isAwaited = false, .reached = 7 }, 110.0));
    EXPECT_FALSE(standstill.look({ .isAwaited = true, .reached = 7 }, 120.0)) << "a new wait begins";
}

TEST(ZLStandstillTest, ASlowDiskThatMovesOnDoesNotHang)
{
    ZLStandstill standstill;
    for (int step = 0; step < 100; ++step)
        EXPECT_FALSE(standstill.look({ .isAwaited = true, .reached = quint64(step) }, 2.0 * step));
}
