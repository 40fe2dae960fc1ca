#include "listening/ZLSampleClock.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

constexpr double rate = 8000.0;
constexpr int blockSamples = 800;

/// Notes blocks of an input whose seconds are longer by `drift`, that began at 100 s and is uncertain by `jitter`.
void noteBlocks(
    ZLSampleClock& clock, double seconds, double drift, double jitter, double jumpAfter = 1e9, double jump = 0.0)
{
    std::mt19937 chance(7);
    std::normal_distribution error(0.0, jitter > 0.0 ? jitter : 1.0);
    for (std::int64_t sample = 0; double(sample) / rate < seconds; sample += blockSamples) {
        const double time = double(sample) / rate;
        const double noise = jitter > 0.0 ? error(chance) : 0.0;
        clock.note(sample, 100.0 + time * (1.0 + drift) + noise + (time >= jumpAfter ? jump : 0.0));
    }
}

}

TEST(ZLSampleClockTest, AnInputThatCountsRightIsBelieved)
{
    ZLSampleClock clock(rate);
    noteBlocks(clock, 10.0, 0.0, 0.0);
    EXPECT_NEAR(clock.timeOf(0), 100.0, 1e-6);
    EXPECT_NEAR(clock.timeOf(80000), 110.0, 1e-6);
    EXPECT_NEAR(clock.drift(), 0.0, 1e-9);
}

TEST(ZLSampleClockTest, WhatTheInputIsUncertainOfIsAveragedOut)
{
    ZLSampleClock clock(rate);
    noteBlocks(clock, 60.0, 0.0, 0.010);
    EXPECT_NEAR(clock.timeOf(0), 100.0, 0.003);
    EXPECT_NEAR(clock.timeOf(480000), 160.0, 0.003);
}

TEST(ZLSampleClockTest, ADriftIsMeasured)
{
    for (const double drift : { 200e-6, -200e-6, 50e-6 }) {
        ZLSampleClock clock(rate);
        noteBlocks(clock, 3600.0, drift, 0.010);
        EXPECT_NEAR(clock.drift(), drift, 1e-6);
        EXPECT_NEAR(clock.timeOf(std::int64_t(3600.0 * rate)), 100.0 + 3600.0 * (1.0 + drift), 0.002);
    }
}

TEST(ZLSampleClockTest, AFewSecondsAreNotTakenForADrift)
{
    ZLSampleClock clock(rate);
    noteBlocks(clock, 3.0, 0.0, 0.010);
    EXPECT_LT(std::abs(clock.drift()), 100e-6);
}

TEST(ZLSampleClockTest, OneWrongBlockChangesNothing)
{
    ZLSampleClock clock(rate);
    noteBlocks(clock, 10.0, 0.0, 0.0);
    clock.note(80000, 111.0);
    EXPECT_FALSE(clock.isLost());
    EXPECT_NEAR(clock.timeOf(80000), 110.0, 1e-6);
}

TEST(ZLSampleClockTest, AJumpLosesItWithinASecond)
{
    for (const double jump : { 0.2, -0.2 }) {
        ZLSampleClock clock(rate);
        noteBlocks(clock, 31.1, 0.0, 0.005, 30.0, jump);
        EXPECT_TRUE(clock.isLost());
        EXPECT_NEAR(clock.timeOf(0), 100.0, 0.003);
    }
    ZLSampleClock clock(rate);
    noteBlocks(clock, 30.5, 0.0, 0.005, 30.0, 0.2);
    EXPECT_FALSE(clock.isLost());
}
