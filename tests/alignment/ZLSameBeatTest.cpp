#include "ZLSoundBuilders.h"

#include "alignment/ZLShowMap.h"

#include <gtest/gtest.h>

using namespace ZLTestSounds;

namespace {

/// Clicks of a metronome, with noise that is never the same.
Sound metronome(double seconds, double beatsPerSecond, double frequency, unsigned seed)
{
    Sound samples = silence(seconds);
    std::mt19937 chance(seed);
    std::normal_distribution<float> noise(0.0F, 0.001F);
    for (std::size_t sample = 0; sample < samples.size(); ++sample) {
        const double sinceBeat = std::fmod(double(sample) / samplesInSecond, 1.0 / beatsPerSecond);
        samples[sample] = noise(chance) + toneAt(frequency, sample) * float(std::exp(-100.0 * sinceBeat));
    }
    return samples;
}

}

TEST(ZLSameBeatTest, MetronomesAtOneTempoAreNotOneShow)
{
    const Sound show = metronome(120.0, 2.0, 1000.0, 1);
    EXPECT_TRUE(alignedSounds(show, metronome(100.0, 2.0, 1000.0, 2)).pieces.empty());
    EXPECT_TRUE(alignedSounds(show, metronome(100.0, 2.0, 1500.0, 2)).pieces.empty());
    EXPECT_TRUE(alignedSounds(show, metronome(100.0, 2.0, 1500.0, 2)).movedPieces.empty());
}

TEST(ZLSameBeatTest, TonesThatChangeOnOneBeatAreNotOneShow)
{
    for (const double beat : { 0.1, 0.25, 0.5 }) {
        const auto alignment = alignedSounds(chords(120.0, beat, 1), chords(120.0, beat, 2));
        EXPECT_TRUE(alignment.pieces.empty()) << beat;
        EXPECT_FALSE(alignment.isTheShow()) << beat;
    }
}

TEST(ZLSameBeatTest, ThePulseOfATremoloIsNoEvidence)
{
    Sound low = silence(120.0);
    Sound high = low;
    for (std::size_t sample = 0; sample < low.size(); ++sample) {
        const auto pulse = float(1.0 + std::sin(2.0 * std::numbers::pi * 3.0 * double(sample) / samplesInSecond));
        low[sample] = pulse * toneAt(700.0, sample);
        high[sample] = pulse * toneAt(900.0, sample);
    }
    EXPECT_TRUE(alignedSounds(low, high).pieces.empty());
}

TEST(ZLSameBeatTest, ABarThatRepeatsIsNoEvidenceByItself)
{
    const Sound bar = chords(2.0, 0.125, 5);
    EXPECT_TRUE(alignedSounds(repeated(bar, 40), repeated(bar, 10)).pieces.empty());
}

TEST(ZLSameBeatTest, ABarThatRepeatsLiesInTheOrderOfTheShowAndIsUnsure)
{
    const Sound before = chords(40.0, 0.1, 1);
    const Sound after = chords(40.0, 0.1, 2);
    const Sound bar = chords(2.0, 0.125, 5);
    // 16 s of the repeated bars went, nobody can say which.
    const ZLShowMap map(
        alignedSounds(joined(before, repeated(bar, 20), after), joined(before, repeated(bar, 12), after)));
    EXPECT_NEAR(map.place(30.0, 35.0).fileTime, 30.0, 0.05);
    EXPECT_NEAR(map.place(100.0, 110.0).fileTime, 84.0, 0.05);
    EXPECT_GT(map.place(30.0, 35.0).confidence, 0.9);
    for (const double time : { 45.0, 60.0, 75.0 }) {
        const ZLMappedMoment place = map.place(time, time + 1.0);
        EXPECT_GE(place.fileTime, 39.0) << time;
        EXPECT_LE(place.fileTime, 65.0) << time;
    }
}
