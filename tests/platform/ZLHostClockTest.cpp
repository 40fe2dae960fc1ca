#include "platform/ZLHostClock.h"

#include "support/ZLFakeHostClock.h"

#include <gtest/gtest.h>

TEST(ZLHostClockTest, TheSystemsClockIsPositiveAndNeverGoesBack)
{
    const ZLSteadyHostClock clock;
    double previous = clock.now();
    EXPECT_GT(previous, 0.0);
    for (int reading = 0; reading < 1000; ++reading) {
        const double now = clock.now();
        ASSERT_GE(now, previous);
        previous = now;
    }
}

TEST(ZLHostClockTest, ReadingsAreFinerThanAMillisecond)
{
    const ZLSteadyHostClock clock;
    const double first = clock.now();
    double next = clock.now();
    for (int reading = 0; reading < 10000000 && next == first; ++reading)
        next = clock.now();
    EXPECT_GT(next, first);
    EXPECT_LT(next - first, 0.5);
}
