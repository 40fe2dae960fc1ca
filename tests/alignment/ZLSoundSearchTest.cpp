#include "alignment/ZLSoundSearch.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <random>

namespace {

using Samples = std::vector<float>;

constexpr double bellRate = 8000.0;

/// Two notes that rise, as of a bell.
Samples bell(double phase = 0.0)
{
    Samples samples(3600);
    for (std::size_t at = 0; at < samples.size(); ++at) {
        const double time = double(at) / bellRate;
        samples[at] = float(0.5 * std::exp(-time * 8.0) * std::sin(2.0 * std::numbers::pi * 880.0 * time + phase));
        if (time > 0.14)
            samples[at] += float(0.5 * std::exp(-(time - 0.14) * 8.0)
                * std::sin(2.0 * std::numbers::pi * 1318.5 * (time - 0.14) + phase));
    }
    return samples;
}

Samples noise(unsigned seed, std::size_t count, float level)
{
    std::mt19937 chance(seed);
    std::normal_distribution<float> sample(0.0F, level);
    Samples samples(count);
    for (float& each : samples)
        each = sample(chance);
    return samples;
}

void add(Samples& samples, std::size_t place, const Samples& other, float level = 1.0F)
{
    for (std::size_t at = 0; at < other.size(); ++at)
        samples[place + at] += level * other[at];
}

std::optional<ZLFoundSound> placeOf(const Samples& wanted, const Samples& samples, std::size_t samplesAtOnce = 1000)
{
    ZLSoundSearch search(wanted);
    for (std::size_t at = 0; at < samples.size(); at += samplesAtOnce)
        search.hear(std::span(samples).subspan(at, std::min(samplesAtOnce, samples.size() - at)));
    return search.firstPlace();
}

}

TEST(ZLSoundSearchTest, FindsASoundInNoiseWhereverItLies)
{
    for (const std::size_t place : { 0U, 1U, 12'000U, 16'383U, 16'384U, 100'000U, 156'399U }) {
        Samples samples = noise(1, 160'000, 0.03F);
        add(samples, place, bell());
        const auto found = placeOf(bell(), samples);
        ASSERT_TRUE(found) << place;
        EXPECT_NEAR(found->place, double(place), 8.0);
        EXPECT_GT(found->likeness, 0.8);
    }
}

TEST(ZLSoundSearchTest, NeitherLoudnessNorPhaseMakesADifference)
{
    Samples samples = noise(2, 80'000, 0.0005F);
    add(samples, 30'000, bell(1.5), 0.02F);
    const auto found = placeOf(bell(), samples, 77);
    ASSERT_TRUE(found);
    EXPECT_NEAR(found->place, 30'000.0, 16.0);
}

TEST(ZLSoundSearchTest, TheFirstOfSeveralIsTaken)
{
    Samples samples = noise(3, 160'000, 0.02F);
    add(samples, 40'000, bell());
    add(samples, 120'000, bell(), 1.1F);
    EXPECT_NEAR(placeOf(bell(), samples)->place, 40'000.0, 8.0);
}

TEST(ZLSoundSearchTest, WhereItIsNotNothingIsFound)
{
    EXPECT_FALSE(placeOf(bell(), noise(4, 160'000, 0.1F)));
    EXPECT_FALSE(placeOf(bell(), Samples(160'000)));
    EXPECT_FALSE(placeOf(bell(), {}));
    EXPECT_FALSE(placeOf({}, noise(4, 20'000, 0.1F)));
    Samples tone(160'000);
    for (std::size_t at = 0; at < tone.size(); ++at)
        tone[at] = float(0.5 * std::sin(2.0 * std::numbers::pi * 440.0 * double(at) / bellRate));
    EXPECT_FALSE(placeOf(bell(), tone));
}

TEST(ZLSoundSearchTest, WhatIsNoNumberIsSilence)
{
    Samples samples = noise(5, 80'000, 0.01F);
    add(samples, 30'000, bell());
    samples[100] = std::numeric_limits<float>::quiet_NaN();
    samples[40'000] = std::numeric_limits<float>::infinity();
    const auto found = placeOf(bell(), samples);
    ASSERT_TRUE(found);
    EXPECT_NEAR(found->place, 30'000.0, 8.0);
}
