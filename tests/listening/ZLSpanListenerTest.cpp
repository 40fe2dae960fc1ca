#include "listening/ZLSpanListener.h"
#include "alignment/ZLFingerprinter.h"
#include "listening/ZLListeningData.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <random>

namespace {

constexpr int spanRate = ZLSoundInput::SamplesPerSecond;
constexpr std::size_t spanBlockSamples = spanRate / 10;

/// Noise whose colour changes all the time, so that each frame is its own.
std::vector<float> changingSound(unsigned seed, double seconds)
{
    std::mt19937 chance(seed);
    std::normal_distribution noise(0.0F, 0.1F);
    std::vector<float> samples(std::size_t(seconds * spanRate));
    float low = 0.0F;
    for (std::size_t index = 0; index < samples.size(); ++index) {
        const float share = 0.5F + 0.45F * std::sin(float(index) / 900.0F);
        low += share * (noise(chance) - low);
        samples[index] = low;
    }
    return samples;
}

/// Lets `listener` hear `samples`, of which the first sounded at `hostTime`, by an input whose seconds are longer by
/// `drift`. The recording clock has been 0 at the host time `zero`, and gains `gain` seconds a second.
void hear(ZLSpanListener& listener, const std::vector<float>& samples, double hostTime, double zero, double drift = 0.0,
    double gain = 0.0)
{
    for (std::size_t begin = 0; begin + spanBlockSamples <= samples.size(); begin += spanBlockSamples) {
        const auto first = samples.begin() + std::ptrdiff_t(begin);
        const double time = hostTime + double(begin) / spanRate * (1.0 + drift);
        listener.hear({ time, { first, first + std::ptrdiff_t(spanBlockSamples) } }, (time - zero) * (1.0 + gain));
    }
}

/// How many of the frames of `heard` are those of `sound`, at their times on the recording clock. A start between two
/// samples costs a bit here and there.
double shareOfRightFrames(const ZLHeardShow& heard, const ZLSoundFingerprint& sound, double soundBegin)
{
    int right = 0;
    for (std::size_t frame = 0; frame < sound.frames.size(); ++frame) {
        const auto index = std::lround((double(frame) * 0.02 + soundBegin + heard.zero) / 0.02);
        if (index >= 0 && std::size_t(index) < heard.fingerprint.frames.size())
            right += std::popcount(heard.fingerprint.frames[std::size_t(index)] ^ sound.frames[frame]) <= 4 ? 1 : 0;
    }
    return double(right) / double(sound.frames.size());
}

ZLHeardShow showOf(const ZLSpanListener& listener)
{
    ZLListeningData data;
    for (const ZLListeningSpan& span : listener.spans())
        data.add(span);
    return data.heardShow();
}

}

TEST(ZLSpanListenerTest, NothingIsKeptWhileTheClockStands)
{
    ZLSpanListener listener;
    hear(listener, changingSound(1, 2.0), 100.0, 102.0);
    EXPECT_TRUE(listener.spans().empty());
    listener.begin(102.0);
    hear(listener, changingSound(1, 2.0), 102.0, 102.0);
    const auto frameCount = listener.spans().at(0).frames.size();
    listener.end();
    hear(listener, changingSound(1, 2.0), 104.0, 102.0);
    ASSERT_EQ(listener.spans().size(), 1U);
    EXPECT_EQ(listener.spans()[0].frames.size(), frameCount);
}

TEST(ZLSpanListenerTest, EachFrameKnowsItsTimeOnTheRecordingClock)
{
    const auto sound = changingSound(2, 20.0);
    ZLSpanListener listener;
    listener.begin(500.0);
    hear(listener, sound, 500.0, 427.0);
    ASSERT_EQ(listener.spans().size(), 1U);
    EXPECT_NEAR(listener.spans()[0].start, 73.0, 0.001);
    EXPECT_NEAR(listener.spans()[0].interval, 0.02, 1e-7);
    EXPECT_GT(shareOfRightFrames(showOf(listener), ZLFingerprinter::of(sound), 73.0), 0.98);
}

TEST(ZLSpanListenerTest, WhatWasHeardBeforeTheStartIsLeftOut)
{
    const auto sound = changingSound(3, 20.0);
    ZLSpanListener listener;
    // In the middle of a block.
    listener.begin(505.05);
    hear(listener, sound, 500.0, 505.05);
    EXPECT_NEAR(listener.spans().at(0).start, 0.0, 0.001);
    const std::vector<float> rest(sound.begin() + std::ptrdiff_t(5.05 * spanRate), sound.end());
    EXPECT_GT(shareOfRightFrames(showOf(listener), ZLFingerprinter::of(rest), 0.0), 0.98);
}

TEST(ZLSpanListenerTest, TheDriftOfTheInputIsMeasured)
{
    const auto sound = changingSound(4, 300.0);
    ZLSpanListener listener;
    listener.begin(100.0);
    hear(listener, sound, 100.0, 100.0, 200e-6);
    EXPECT_NEAR(listener.spans().at(0).interval / 0.02, 1.0 + 200e-6, 5e-6);
    EXPECT_NEAR(listener.spans().at(0).end(), 300.0 * (1.0 + 200e-6), 0.1);
}

TEST(ZLSpanListenerTest, AClockThatGoesFasterThanTheComputersIsTheOneThatCounts)
{
    const auto sound = changingSound(7, 300.0);
    ZLSpanListener listener;
    listener.begin(100.0);
    hear(listener, sound, 100.0, 100.0, 0.0, 150e-6);
    ASSERT_EQ(listener.spans().size(), 1U);
    EXPECT_NEAR(listener.spans()[0].interval / 0.02, 1.0 + 150e-6, 5e-6);
}

TEST(ZLSpanListenerTest, MissingSoundBeginsANewSpanAtItsRightTime)
{
    const auto first = changingSound(5, 20.0);
    const auto second = changingSound(6, 20.0);
    ZLSpanListener listener;
    listener.begin(100.0);
    hear(listener, first, 100.0, 100.0);
    // The input was away for 30 seconds.
    hear(listener, second, 150.0, 100.0);
    ASSERT_EQ(listener.spans().size(), 2U);
    EXPECT_NEAR(listener.spans()[1].start, 51.0, 0.11);
    const auto show = showOf(listener);
    EXPECT_GT(shareOfRightFrames(show, ZLFingerprinter::of(first), 0.0), 0.98);
    EXPECT_GT(shareOfRightFrames(show, ZLFingerprinter::of(second), 50.0), 0.9);
}
