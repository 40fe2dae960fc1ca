#include "recorder/ZLStepClock.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

constexpr double step = 0.1;
constexpr double zeroMoment = 1000.0123;

double valueAt(double hostTime)
{
    return std::floor((hostTime - zeroMoment) / step);
}

/// Looks at uneven intervals; each takes `trip` seconds.
void lookFor(ZLStepClock& clock, double from, double seconds, double trip = 0.001)
{
    double pause = 0.013;
    double asked = from;
    while (asked < from + seconds) {
        clock.take(asked, asked + trip, valueAt(asked + trip / 2));
        pause = 0.013 + std::fmod(pause * 7.0, 0.017);
        asked += pause;
    }
}

TEST(ZLStepClockTest, KnowsNothingBeforeTheFirstLook)
{
    const ZLStepClock clock(step);
    EXPECT_FALSE(clock.zero());
    EXPECT_TRUE(std::isinf(clock.uncertainty()));
}

TEST(ZLStepClockTest, FindsTheZeroMuchFinerThanTheSteps)
{
    ZLStepClock clock(step);
    clock.take(1005.05, 1005.051, valueAt(1005.0505));
    EXPECT_NEAR(*clock.zero(), zeroMoment, step);
    lookFor(clock, 1005.1, 5.0);
    EXPECT_NEAR(*clock.zero(), zeroMoment, 0.002);
    EXPECT_LT(clock.uncertainty(), 0.004);
    EXPECT_LE(std::abs(*clock.zero() - zeroMoment), clock.uncertainty());
}

TEST(ZLStepClockTest, LateAnswersDoNotMoveTheZero)
{
    ZLStepClock clock(step);
    lookFor(clock, 1005.0, 3.0);
    for (int look = 0; look < 20; ++look)
        clock.take(1008.0 + look * 0.15, 1008.14 + look * 0.15, valueAt(1008.0 + look * 0.15));
    EXPECT_NEAR(*clock.zero(), zeroMoment, 0.002);
}

TEST(ZLStepClockTest, StepsThatComeLateDoNotMoveTheZero)
{
    ZLStepClock clock(step);
    lookFor(clock, 1005.0, 3.0);
    for (int look = 0; look < 20; ++look)
        clock.take(1008.0 + look * 0.15, 1008.001 + look * 0.15, valueAt(1007.95 + look * 0.15));
    EXPECT_NEAR(*clock.zero(), zeroMoment, 0.002);
}

TEST(ZLStepClockTest, ACounterThatRunsBackwardsStartsAnew)
{
    ZLStepClock clock(step);
    clock.take(900.0, 900.001, 389);
    clock.take(1000.1, 1000.101, valueAt(1000.1));
    EXPECT_NEAR(*clock.zero(), zeroMoment, step);
}

TEST(ZLStepClockTest, FollowsAClockThatRunsAtAnotherRate)
{
    ZLStepClock clock(step, 8.0);
    // 200 ppm slower than the host: after an hour its zero seems 0.72 s later.
    double asked = 0.0;
    while (asked < 3600.0) {
        clock.take(asked, asked, std::floor(asked / (step * 1.0002)));
        asked += 0.0937;
    }
    EXPECT_NEAR(*clock.zero(), 3600.0 - 3600.0 / 1.0002, 0.006);
}

TEST(ZLStepClockTest, ItsMemoryIsBounded)
{
    ZLStepClock clock(step);
    for (int look = 0; look < 100000; ++look)
        clock.take(1005.0 + look * 1e-6, 1005.0 + look * 1e-6, 50);
    EXPECT_LT(clock.lookedFor(), 0.001);
}

}
