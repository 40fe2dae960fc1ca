#include "alignment/ZLFingerprinter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <numbers>
#include <random>

namespace {

constexpr int rate = ZLSoundFingerprint::SamplesPerSecond;

/// Noise whose loudness and colour change, as speech does.
std::vector<float> noiseLikeSpeech(unsigned seed, int seconds)
{
    std::mt19937 chance(seed);
    std::normal_distribution<float> sample(0.0F, 0.1F);
    std::uniform_real_distribution<float> mix(0.0F, 0.95F);
    std::vector<float> samples;
    float former = 0.0F;
    float share = 0.0F;
    for (int index = 0; index < seconds * rate; ++index) {
        if (index % 400 == 0)
            share = mix(chance);
        former = share * former + (1.0F - share) * sample(chance);
        samples.push_back(former);
    }
    return samples;
}

double differingShare(const ZLSoundFingerprint& left, const ZLSoundFingerprint& right)
{
    int differences = 0;
    for (size_t frame = 0; frame < left.frames.size(); ++frame)
        differences += std::popcount(left.frames[frame] ^ right.frames.at(frame));
    return differences / (32.0 * double(left.frames.size()));
}

bool saysNothing(const ZLSoundFingerprint& fingerprint)
{
    return std::ranges::all_of(fingerprint.frames, [](auto frame) { return frame == ZLSoundFingerprint::Nothing; });
}

}

TEST(ZLFingerprinterTest, ASecondHasFiftyFrames)
{
    EXPECT_NEAR(ZLFingerprinter::of(noiseLikeSpeech(1, 10)).seconds(), 10.0, ZLSoundFingerprint::SecondsPerFrame);
    EXPECT_TRUE(ZLFingerprinter::of({}).seconds() <= ZLSoundFingerprint::SecondsPerFrame);
}

TEST(ZLFingerprinterTest, ItDoesNotMatterInWhichPartsTheSoundArrives)
{
    const auto samples = noiseLikeSpeech(2, 4);
    const ZLSoundFingerprint whole = ZLFingerprinter::of(samples);
    ZLFingerprinter fingerprinter;
    std::vector<std::uint32_t> frames;
    const std::span<const float> all(samples);
    for (size_t begin = 0, size = 1; begin < all.size(); begin += size, size = size * 3 % 1009 + 1) {
        fingerprinter.hear(all.subspan(begin, std::min(size, all.size() - begin)));
        const auto more = fingerprinter.takeFrames();
        frames.insert(frames.end(), more.begin(), more.end());
    }
    fingerprinter.finish();
    const auto last = fingerprinter.takeFrames();
    frames.insert(frames.end(), last.begin(), last.end());
    EXPECT_EQ(frames, whole.frames);
}

TEST(ZLFingerprinterTest, LoudnessChangesNothingAndNoiseLittle)
{
    const auto samples = noiseLikeSpeech(3, 20);
    const ZLSoundFingerprint original = ZLFingerprinter::of(samples);
    auto quiet = samples;
    for (float& sample : quiet)
        sample *= 0.1F;
    EXPECT_LT(differingShare(original, ZLFingerprinter::of(quiet)), 0.01);
    auto noisy = samples;
    std::mt19937 chance(4);
    std::normal_distribution<float> noise(0.0F, 0.01F);
    for (float& sample : noisy)
        sample += noise(chance);
    EXPECT_LT(differingShare(original, ZLFingerprinter::of(noisy)), 0.3);
    EXPECT_GT(differingShare(original, ZLFingerprinter::of(noiseLikeSpeech(5, 20))), 0.45);
}

TEST(ZLFingerprinterTest, SilenceAndASteadyToneSayNothing)
{
    EXPECT_TRUE(saysNothing(ZLFingerprinter::of(std::vector<float>(10 * rate, 0.0F))));
    std::vector<float> tone;
    for (int index = 0; index < 10 * rate; ++index)
        tone.push_back(float(0.5 * std::sin(2.0 * std::numbers::pi * 1000.0 * index / rate)));
    ZLSoundFingerprint fingerprint = ZLFingerprinter::of(tone);
    // Where it begins and ends, it changes.
    fingerprint.frames.erase(fingerprint.frames.begin(), fingerprint.frames.begin() + 8);
    fingerprint.frames.resize(fingerprint.frames.size() - 8);
    EXPECT_TRUE(saysNothing(fingerprint));
}

TEST(ZLFingerprinterTest, WhatIsNoNumberIsSilence)
{
    std::vector<float> samples(rate, std::numeric_limits<float>::quiet_NaN());
    samples[100] = std::numeric_limits<float>::infinity();
    EXPECT_TRUE(saysNothing(ZLFingerprinter::of(samples)));
}
