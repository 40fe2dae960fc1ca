#include "ZLFingerprintBuilders.h"

#include "alignment/ZLFrameAlignment.h"

#include <gtest/gtest.h>

using namespace ZLTestFingerprints;

namespace {

/// Pairs of frames that were found and are right, for a show without the frames from `begin` to `end`.
std::int64_t rightPairs(const std::vector<ZLFrameRun>& runs, std::int64_t begin, std::int64_t end)
{
    std::int64_t count = 0;
    for (const ZLFrameRun& run : runs) {
        for (std::int64_t frame = 0; frame < run.count; ++frame) {
            const std::int64_t place = run.showFrame + frame;
            const std::int64_t wanted = place < begin ? place : place - (end - begin);
            count += (place < begin || place >= end) && run.fileFrame + frame == wanted ? 1 : 0;
        }
    }
    return count;
}

}

TEST(ZLFrameAlignmentTest, ACutIsFoundToTheFrameWhereNothingIsWrong)
{
    const Frames all = show(1, 20.0);
    Frames file = part(all, 0.0, 8.0);
    append(file, part(all, 11.0, 20.0));
    const auto runs = ZLFrameAlignment::between(all, file);
    ASSERT_EQ(runs.size(), 2U);
    // A frame at the seam may be like the one at its other side by chance.
    EXPECT_NEAR(double(runs[0].count), 400.0, 2.0);
    EXPECT_NEAR(double(runs[1].showFrame), 550.0, 2.0);
    EXPECT_EQ(runs[1].shift(), -150);
}

TEST(ZLFrameAlignmentTest, ACutIsFoundAmongWrongBits)
{
    const Frames all = show(2, 20.0);
    Frames file = part(all, 0.0, 8.0);
    append(file, part(all, 11.0, 20.0));
    const auto runs = ZLFrameAlignment::between(heardWrongly(all, 3, 0.35), file);
    EXPECT_GT(rightPairs(runs, 400, 550), 820);
}

TEST(ZLFrameAlignmentTest, WhatHasNothingInCommonMakesNoLongRun)
{
    // Chance makes a few frames alike.
    for (const ZLFrameRun& run : ZLFrameAlignment::between(show(4, 10.0), show(5, 10.0)))
        EXPECT_LT(run.count, 50);
    EXPECT_TRUE(ZLFrameAlignment::between({}, {}).empty());
    EXPECT_TRUE(ZLFrameAlignment::between(show(4, 1.0), {}).empty());
    EXPECT_LT(ZLFrameAlignment::sameAtBeginning(show(6, 10.0), show(7, 10.0)), 10);
}

TEST(ZLFrameAlignmentTest, OfLongStretchesTheEndsAreFound)
{
    const Frames all = show(8, 120.0);
    Frames file = part(all, 0.0, 20.0);
    append(file, show(9, 70.0));
    append(file, part(all, 90.0, 120.0));
    const auto runs = ZLFrameAlignment::between(all, file);
    ASSERT_EQ(runs.size(), 2U);
    EXPECT_NEAR(double(runs[0].count), 1000.0, 15.0);
    EXPECT_NEAR(double(runs[1].count), 1500.0, 15.0);
}
