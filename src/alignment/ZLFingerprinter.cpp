#include "alignment/ZLFingerprinter.h"

#include <kissfft/kiss_fftr.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <numbers>
#include <utility>

namespace {

constexpr double lowestFrequency = 300.0;
constexpr double highestFrequency = 3400.0;
/// In a window. Below it there are only the roundings of silence.
constexpr float leastEnergy = 1e-7F;
/// Of the energy of a band. What changes less is a steady tone.
constexpr float leastChange = 1e-3F;
/// Of a frame that says something.
constexpr int leastChangedBands = 8;

}

struct ZLFingerprinter::Transform {
    static constexpr int BinCount = SamplesPerWindow / 2 + 1;

    Transform()
        : plan(kiss_fftr_alloc(SamplesPerWindow, 0, nullptr, nullptr))
    {
        for (int index = 0; index < SamplesPerWindow; ++index)
            shape[size_t(index)] = float(0.5 - 0.5 * std::cos(2.0 * std::numbers::pi * index / SamplesPerWindow));
        for (int band = 0; band <= BandCount; ++band) {
            const double frequency =
                lowestFrequency * std::pow(highestFrequency / lowestFrequency, double(band) / BandCount);
            edges[size_t(band)] = frequency * SamplesPerWindow / ZLSoundFingerprint::SamplesPerSecond;
        }
    }
    ~Transform() { kiss_fftr_free(plan); }
    Transform(const Transform&) = delete;
    Transform& operator=(const Transform&) = delete;

    kiss_fftr_cfg plan;
    std::array<float, SamplesPerWindow> shape {};
    /// In bins, with their fractions.
    std::array<double, BandCount + 1> edges {};
    std::array<float, SamplesPerWindow> window {};
    std::array<kiss_fft_cpx, BinCount> bins {};
    std::array<float, BinCount> energies {};
};

ZLFingerprinter::ZLFingerprinter()
    : m_transform(std::make_unique<Transform>())
    , m_samples(SamplesPerWindow / 2, 0.0F)
{
}

ZLFingerprinter::~ZLFingerprinter() = default;

void ZLFingerprinter::hear(std::span<const float> samples)
{
    for (const float sample : samples)
        m_samples.push_back(std::isfinite(sample) ? std::clamp(sample, -1.0F, 1.0F) : 0.0F);
    size_t begin = 0;
    while (m_samples.size() - begin >= SamplesPerWindow) {
        std::copy_n(m_samples.begin() + std::ptrdiff_t(begin), SamplesPerWindow, m_transform->window.begin());
        addFrame();
        begin += ZLSoundFingerprint::SamplesPerFrame;
    }
    m_samples.erase(m_samples.begin(), m_samples.begin() + std::ptrdiff_t(begin));
}

void ZLFingerprinter::finish()
{
    hear(std::vector<float>(SamplesPerWindow / 2, 0.0F));
}

std::vector<std::uint32_t> ZLFingerprinter::takeFrames()
{
    return std::exchange(m_frames, {});
}

ZLSoundFingerprint ZLFingerprinter::of(std::span<const float> samples)
{
    ZLFingerprinter fingerprinter;
    fingerprinter.hear(samples);
    fingerprinter.finish();
    return { fingerprinter.takeFrames() };
}

void ZLFingerprinter::addFrame()
{
    const Bands bands = bandsOfWindow();
    Bands& former = m_formerBands[m_frameCount % FramesBack];
    m_frames.push_back(m_frameCount < FramesBack ? ZLSoundFingerprint::Nothing : bitsOf(bands, former));
    former = bands;
    ++m_frameCount;
}

ZLFingerprinter::Bands ZLFingerprinter::bandsOfWindow()
{
    Transform& transform = *m_transform;
    // Hours of nothing are over soon.
    if (std::ranges::all_of(transform.window, [](float sample) { return sample == 0.0F; }))
        return {};
    for (size_t index = 0; index < SamplesPerWindow; ++index)
        transform.window[index] *= transform.shape[index];
    kiss_fftr(transform.plan, transform.window.data(), transform.bins.data());
    for (size_t bin = 0; bin < transform.bins.size(); ++bin) {
        const kiss_fft_cpx value = transform.bins[bin];
        transform.energies[bin] = value.r * value.r + value.i * value.i;
    }
    Bands bands {};
    for (size_t band = 0; band < BandCount; ++band) {
        const double first = transform.edges[band];
        const double last = transform.edges[band + 1];
        double energy = 0.0;
        for (auto bin = size_t(first); double(bin) < last; ++bin) {
            const double share = std::min(double(bin + 1), last) - std::max(double(bin), first);
            energy += share * transform.energies[bin];
        }
        bands[band] = float(energy);
    }
    return bands;
}

std::uint32_t ZLFingerprinter::bitsOf(const Bands& now, const Bands& before)
{
    float energy = 0.0F;
    for (const float band : now)
        energy += band;
    if (energy < leastEnergy)
        return ZLSoundFingerprint::Nothing;
    std::uint32_t bits = 0;
    int changedBands = 0;
    for (size_t band = 0; band + 1 < BandCount; ++band) {
        const float difference = (now[band] - now[band + 1]) - (before[band] - before[band + 1]);
        bits |= std::uint32_t(difference > 0.0F) << band;
        changedBands += std::abs(difference) > leastChange * (now[band] + now[band + 1]) ? 1 : 0;
    }
    return changedBands < leastChangedBands ? ZLSoundFingerprint::Nothing : bits;
}
