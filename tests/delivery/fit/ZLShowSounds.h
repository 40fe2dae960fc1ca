#pragma once

#include "platform/ZLAtomicFile.h"
#include "platform/media/ZLBytes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <random>
#include <vector>

/// Sounds that a fingerprint tells apart, as files: a chord of other notes about ten times a second.
namespace ZLShowSounds {

using Samples = std::vector<float>;

inline constexpr int SamplesPerSecond = 8000;

inline Samples show(unsigned seed, double seconds)
{
    std::mt19937 chance(seed);
    std::uniform_real_distribution<double> note(300.0, 3400.0);
    // Two shows have no beat in common.
    std::uniform_int_distribution<std::size_t> length(400, 1200);
    Samples samples(std::size_t(seconds * SamplesPerSecond));
    std::array<double, 5> chord {};
    std::size_t nextChord = 0;
    for (std::size_t at = 0; at < samples.size(); ++at) {
        if (at == nextChord) {
            std::ranges::generate(chord, [&] { return note(chance); });
            nextChord = at + length(chance);
        }
        for (const double frequency : chord)
            samples[at] += float(0.15 * std::sin(2.0 * std::numbers::pi * frequency * double(at) / SamplesPerSecond));
    }
    return samples;
}

inline Samples part(const Samples& samples, double begin, double end)
{
    return { samples.begin() + std::ptrdiff_t(begin * SamplesPerSecond),
        samples.begin() + std::ptrdiff_t(end * SamplesPerSecond) };
}

inline Samples joined(Samples first, const Samples& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

inline bool write(const QString& path, const Samples& samples)
{
    const QByteArray format = ZLBytes::fromLittle(quint16(1)) + ZLBytes::fromLittle(quint16(1))
        + ZLBytes::fromLittle(quint32(SamplesPerSecond)) + ZLBytes::fromLittle(quint32(2 * SamplesPerSecond))
        + ZLBytes::fromLittle(quint16(2)) + ZLBytes::fromLittle(quint16(16));
    QByteArray data;
    data.reserve(qsizetype(samples.size()) * 2);
    for (const float sample : samples)
        data.append(ZLBytes::fromLittle(quint16(qint16(std::lround(sample * 32000.0F)))));
    const QByteArray body = "WAVEfmt " + ZLBytes::fromLittle(quint32(16)) + format + "data"
        + ZLBytes::fromLittle(quint32(data.size())) + data;
    return ZLAtomicFile::write(path, "RIFF" + ZLBytes::fromLittle(quint32(body.size())) + body).isOk();
}

}
