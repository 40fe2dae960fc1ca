#include "platform/ZLPressStamp.h"

#include <gtest/gtest.h>

#include <limits>

TEST(ZLPressStamp, APressCountsWhenItReachedTheComputer)
{
    EXPECT_EQ(ZLPressStamp(99.75, 100.0).hostTime(), 99.75);
    EXPECT_EQ(ZLPressStamp(98.0, 100.0).hostTime(), 98.0) << "two seconds are not more than two seconds";
}

TEST(ZLPressStamp, WithoutATimeItsArrivalCounts)
{
    EXPECT_EQ(ZLPressStamp(100.0).hostTime(), 100.0);
}

TEST(ZLPressStamp, ATimeThatCannotBeIsNotBelieved)
{
    EXPECT_EQ(ZLPressStamp(100.001, 100.0).hostTime(), 100.0) << "in the future";
    EXPECT_EQ(ZLPressStamp(97.99, 100.0).hostTime(), 100.0) << "too long ago";
    EXPECT_EQ(ZLPressStamp(std::numeric_limits<double>::quiet_NaN(), 100.0).hostTime(), 100.0);
    EXPECT_EQ(ZLPressStamp(-std::numeric_limits<double>::infinity(), 100.0).hostTime(), 100.0);
}
