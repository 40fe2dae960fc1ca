#pragma once

#include "alignment/ZLFingerprinter.h"
#include "alignment/ZLSoundAlignment.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <random>
#include <vector>

/// Sounds from a seed, as their samples.
namespace ZLTestSounds {

using Sound = std::vector<float>;

inline constexpr double samplesInSecond = ZLSoundFingerprint::SamplesPerSecond;

inline float toneAt(double frequency, std::size_t sample)
{
    return float(0.2 * std::sin(2.0 * std::numbers::pi * frequency * double(sample) / samplesInSecond));
}

inline Sound silence(double seconds)
{
    return Sound(std::size_t(seconds * samplesInSecond));
}

/// Several tones at once that change on a beat.
inline Sound chords(double seconds, double beat, unsigned seed)
{
    std::mt19937 chance(seed);
    std::uniform_real_distribution<double> frequencies(300.0, 3400.0);
    Sound samples;
    while (double(samples.size()) < seconds * samplesInSecond) {
        const double notes[] { frequencies(chance), frequencies(chance), frequencies(chance), frequencies(chance) };
        for (std::size_t sample = 0; sample < std::size_t(beat * samplesInSecond); ++sample)
            samples.push_back(toneAt(notes[0], sample) + toneAt(notes[1], sample) + toneAt(notes[2], sample)
                + toneAt(notes[3], sample));
    }
    return samples;
}

inline Sound repeated(const Sound& bar, int count)
{
    Sound samples;
    for (int index = 0; index < count; ++index)
        samples.insert(samples.end(), bar.begin(), bar.end());
    return samples;
}

inline Sound joined(Sound samples, const Sound& second, const Sound& third)
{
    samples.insert(samples.end(), second.begin(), second.end());
    samples.insert(samples.end(), third.begin(), third.end());
    return samples;
}

inline void append(Sound& samples, const Sound& more)
{
    samples.insert(samples.end(), more.begin(), more.end());
}

inline void mixIntoEnd(Sound& samples, const Sound& more)
{
    const std::size_t begin = samples.size() - more.size();
    for (std::size_t sample = 0; sample < more.size(); ++sample)
        samples[begin + sample] += more[sample];
}

/// Syllables of a voice: the overtones of its pitch, of which each vowel lets others through; short pauses between
/// words.
inline Sound speech(double seconds, unsigned seed)
{
    std::mt19937 chance(seed);
    const auto between = [&](double least, double most) { return std::uniform_real_distribution(least, most)(chance); };
    Sound samples;
    while (double(samples.size()) < seconds * samplesInSecond) {
        const double length = between(0.1, 0.3);
        const double pitch = between(100.0, 180.0);
        const double rise = between(-60.0, 60.0);
        const double first = between(300.0, 900.0);
        const double second = between(1000.0, 3000.0);
        Sound syllable = silence(length + (between(0.0, 1.0) < 0.2 ? 0.25 : 0.0));
        for (double overtone = 1.0; overtone * 200.0 < 3800.0; overtone += 1.0) {
            const double frequency = overtone * pitch;
            const double loudness =
                std::exp(-std::abs(frequency - first) / 200.0) + 0.7 * std::exp(-std::abs(frequency - second) / 300.0);
            for (std::size_t sample = 0; sample < std::size_t(length * samplesInSecond); ++sample) {
                const double time = double(sample) / samplesInSecond;
                syllable[sample] += float(loudness * std::sin(std::numbers::pi * time / length))
                    * toneAt(overtone * (pitch + rise * time), sample);
            }
        }
        append(samples, syllable);
    }
    samples.resize(std::size_t(seconds * samplesInSecond));
    return samples;
}

inline double loudnessOf(const Sound& sound)
{
    double energy = 0.0;
    for (const float sample : sound)
        energy += double(sample) * double(sample);
    return std::sqrt(energy / double(sound.size()));
}

/// As loud as four tones of a chord.
inline Sound asLoudAsChords(Sound sound)
{
    const auto gain = float(0.28 / loudnessOf(sound));
    for (float& sample : sound)
        sample *= gain;
    return sound;
}

/// As a dull microphone in a room hears it: with an echo, and noise 10 dB below the sound.
inline Sound heardInRoom(const Sound& sound, unsigned seed)
{
    std::mt19937 chance(seed);
    std::normal_distribution<float> noise(0.0F, float(0.316 * loudnessOf(sound)));
    constexpr std::size_t echo = 400;
    Sound heard(sound.size());
    float dull = 0.0F;
    for (std::size_t sample = 0; sample < sound.size(); ++sample) {
        const float both = sound[sample] + (sample < echo ? 0.0F : 0.4F * heard[sample - echo]);
        dull += 0.6F * (both - dull);
        heard[sample] = dull + noise(chance);
    }
    return heard;
}

/// Compressed, and with more of the high tones.
inline Sound delivered(const Sound& sound)
{
    Sound file(sound.size());
    for (std::size_t sample = 0; sample < sound.size(); ++sample)
        file[sample] = std::tanh(3.0F * sound[sample] - (sample == 0 ? 0.0F : 1.5F * sound[sample - 1]));
    return file;
}

inline ZLSoundAlignment alignedSounds(const Sound& show, const Sound& file)
{
    ZLWorkProgress progress;
    return ZLSoundAlignment::of(ZLFingerprinter::of(show), ZLFingerprinter::of(file), progress);
}

}
