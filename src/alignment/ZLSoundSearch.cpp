#include "alignment/ZLSoundSearch.h"

#include <kissfft/kiss_fft.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr std::size_t samplesInBlock = 16384;
constexpr double leastWorthNoting = 0.3;
constexpr std::size_t mostNoted = 4096;
/// Of the best one. A clock that was stopped and started again beeps again, and the first beep is wanted.
constexpr double aboutAsLike = 0.85;
constexpr double leastLoudness = 1e-9;
/// Of a block, which its transform leaves where there was silence.
constexpr double roundings = 1e-6;

}

struct ZLSoundSearch::Transform {
    using Block = std::array<kiss_fft_cpx, samplesInBlock>;

    Transform()
        : forward(kiss_fft_alloc(int(samplesInBlock), 0, nullptr, nullptr))
        , backward(kiss_fft_alloc(int(samplesInBlock), 1, nullptr, nullptr))
    {
    }
    ~Transform()
    {
        kiss_fft_free(forward);
        kiss_fft_free(backward);
    }
    Transform(const Transform&) = delete;
    Transform& operator=(const Transform&) = delete;

    kiss_fft_cfg forward;
    kiss_fft_cfg backward;
    Block wanted {};
    double wantedLoudness = 0.0;
    Block heard {};
    Block bins {};
    Block likeness {};
};

namespace {

void setSamples(std::array<kiss_fft_cpx, samplesInBlock>& block, std::span<const float> samples)
{
    block.fill({});
    for (std::size_t index = 0; index < samples.size(); ++index)
        block[index].r = samples[index];
}

double loudness(std::span<const float> samples)
{
    double sum = 0.0;
    for (const float sample : samples)
        sum += double(sample) * double(sample);
    return sum;
}

}

ZLSoundSearch::ZLSoundSearch(std::span<const float> wanted)
    : m_transform(std::make_unique<Transform>())
    , m_length(std::min(wanted.size(), MostSamples))
{
    setSamples(m_transform->heard, wanted.first(m_length));
    kiss_fft(m_transform->forward, m_transform->heard.data(), m_transform->wanted.data());
    m_transform->wantedLoudness = loudness(wanted.first(m_length));
}

ZLSoundSearch::~ZLSoundSearch() = default;

void ZLSoundSearch::hear(std::span<const float> samples)
{
    for (const float sample : samples)
        m_samples.push_back(std::isfinite(sample) ? std::clamp(sample, -1.0F, 1.0F) : 0.0F);
    while (m_length > 0 && m_samples.size() >= samplesInBlock)
        searchBlock(samplesInBlock - m_length + 1);
}

std::optional<ZLFoundSound> ZLSoundSearch::firstPlace()
{
    if (m_length > 0 && m_samples.size() >= m_length) {
        const std::size_t places = m_samples.size() - m_length + 1;
        m_samples.resize(samplesInBlock, 0.0F);
        searchBlock(places);
    }
    const auto best = std::ranges::max_element(m_found, {}, &ZLFoundSound::likeness);
    if (best == m_found.end() || best->likeness < LeastLikeness)
        return std::nullopt;
    return *std::ranges::find_if(
        m_found, [&](const ZLFoundSound& found) { return found.likeness >= aboutAsLike * best->likeness; });
}

/// Correlates both as analytic signals, so that the phase of a tone does not matter.
void ZLSoundSearch::searchBlock(std::size_t places)
{
    Transform& transform = *m_transform;
    const std::span<const float> block = std::span(m_samples).first(samplesInBlock);
    setSamples(transform.heard, block);
    kiss_fft(transform.forward, transform.heard.data(), transform.bins.data());
    for (std::size_t bin = 0; bin < samplesInBlock; ++bin) {
        const kiss_fft_cpx x = transform.bins[bin];
        const kiss_fft_cpx y = transform.wanted[bin];
        const float share = bin < samplesInBlock / 2 ? 2.0F : 0.0F;
        transform.bins[bin] = { share * (x.r * y.r + x.i * y.i), share * (x.i * y.r - x.r * y.i) };
    }
    kiss_fft(transform.backward, transform.bins.data(), transform.likeness.data());
    const double leastHeard = std::max(leastLoudness, loudness(block) * roundings);
    double heardLoudness = loudness(block.first(m_length));
    for (std::size_t place = 0; place < places; ++place) {
        if (heardLoudness > leastHeard) {
            const double level = std::sqrt(heardLoudness * transform.wantedLoudness) * double(samplesInBlock);
            const kiss_fft_cpx found = transform.likeness[place];
            note({ m_begin + double(place), std::min(std::hypot(double(found.r), double(found.i)) / level, 1.0) });
        }
        const double gone = block[place];
        const double come = place + m_length < samplesInBlock ? double(block[place + m_length]) : 0.0;
        heardLoudness += come * come - gone * gone;
    }
    m_samples.erase(m_samples.begin(), m_samples.begin() + std::ptrdiff_t(places));
    m_begin += double(places);
}

void ZLSoundSearch::note(const ZLFoundSound& found)
{
    if (found.likeness < leastWorthNoting)
        return;
    if (!m_found.empty() && found.place - m_found.back().place < double(m_length)) {
        if (found.likeness > m_found.back().likeness)
            m_found.back() = found;
    } else if (m_found.size() < mostNoted) {
        m_found.push_back(found);
    }
}
