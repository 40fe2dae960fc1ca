#include "model/ZLTimeText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

TEST(ZLTimeTextTest, TruncationGoesTowardZeroAndStaysInRange)
{
    constexpr auto largest = std::numeric_limits<std::uint64_t>::max();
    EXPECT_EQ(ZLTimeText::truncated(0.999), 0U);
    EXPECT_EQ(ZLTimeText::truncated(1.999), 1U);
    EXPECT_EQ(ZLTimeText::truncated(-0.5), 0U);
    EXPECT_EQ(ZLTimeText::truncated(-1e300), 0U);
    EXPECT_EQ(ZLTimeText::truncated(std::nan("")), 0U);
    EXPECT_EQ(ZLTimeText::truncated(1e300), largest);
    EXPECT_EQ(ZLTimeText::truncated(std::numeric_limits<double>::infinity()), largest);
    EXPECT_EQ(ZLTimeText::truncated(18446744073709551616.0), largest);
    // The largest double below 2 to the 64th.
    EXPECT_EQ(ZLTimeText::truncated(18446744073709549568.0), 18446744073709549568U);
}

TEST(ZLTimeTextTest, HoursAreNotWrapped)
{
    const auto parts = ZLTimeParts::ofMilliseconds(360000000 + 61001);
    EXPECT_EQ(parts.hours, 100U);
    EXPECT_EQ(parts.minutes, 1U);
    EXPECT_EQ(parts.seconds, 1U);
    EXPECT_EQ(parts.milliseconds, 1U);
    EXPECT_EQ(ZLTimeText::hoursMinutesSeconds(359999), u"99:59:59"_s);
    EXPECT_EQ(ZLTimeText::hoursMinutesSeconds(360000), u"100:00:00"_s);
}

TEST(ZLTimeTextTest, NumbersArePaddedButNeverCut)
{
    EXPECT_EQ(ZLTimeText::padded(7, 3), u"007"_s);
    EXPECT_EQ(ZLTimeText::padded(1234, 3), u"1234"_s);
}
