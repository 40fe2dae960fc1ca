#include "alignment/ZLFingerprintSearch.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr std::int64_t leastDistance = 5;
constexpr int bitsInFrame = 32;

/// Most processors count bits with one instruction, but not all of this family.
#if defined(__x86_64__) && defined(__GNUC__)
__attribute__((target_clones("popcnt", "default")))
#endif
void countDifferences(const std::uint32_t* sample, int sampleLength, const std::uint32_t* frames, std::int64_t count,
    std::uint16_t* differences)
{
    for (std::int64_t place = 0; place < count; ++place) {
        int sum = 0;
        for (int index = 0; index < sampleLength; index += 2) {
            std::uint64_t left = 0;
            std::uint64_t right = 0;
            std::memcpy(&left, sample + index, sizeof left);
            std::memcpy(&right, frames + place + index, sizeof right);
            sum += __builtin_popcountll(left ^ right);
        }
        differences[place] = std::uint16_t(sum);
    }
}

struct Candidate {
    std::int64_t frame;
    int differences;
};

/// Keeps the best candidates, of those that are close together only the best one.
void offer(std::vector<Candidate>& best, const Candidate& candidate, size_t count)
{
    const auto near = std::ranges::find_if(
        best, [&](const Candidate& other) { return std::abs(other.frame - candidate.frame) < leastDistance; });
    if (near != best.end()) {
        if (near->differences <= candidate.differences)
            return;
        best.erase(near);
    }
    best.insert(std::ranges::upper_bound(best, candidate.differences, {}, &Candidate::differences), candidate);
    if (best.size() > count)
        best.pop_back();
}

}

ZLFingerprintSearch::ZLFingerprintSearch(std::span<const std::uint32_t> searched)
    : m_frameCount(std::int64_t(searched.size()))
{
    for (std::int64_t frame = 0; frame < m_frameCount; ++frame)
        m_phases[size_t(frame % Stride)].push_back(searched[size_t(frame)]);
}

ZLFingerprintSearch::Sample ZLFingerprintSearch::sampleOf(std::span<const std::uint32_t> window)
{
    Sample sample {};
    for (size_t index = 0; index < sample.size(); ++index)
        sample[index] = window[index * size_t(Stride)];
    return sample;
}

std::vector<ZLFingerprintPlace> ZLFingerprintSearch::bestPlaces(
    std::span<const std::uint32_t> window, std::size_t count, std::int64_t first, std::int64_t end) const
{
    const Sample sample = sampleOf(window);
    std::vector<Candidate> best;
    std::vector<std::uint16_t> differences;
    first = std::max<std::int64_t>(first, 0);
    end = std::min(end, lastPlace() + 1);
    for (std::int64_t place = first; place < std::min(first + Stride, end); ++place) {
        const auto& frames = m_phases[size_t(place % Stride)];
        const std::int64_t places = (end - place + Stride - 1) / Stride;
        differences.resize(size_t(places));
        countDifferences(
            sample.data(), int(SamplesOfWindow), frames.data() + place / Stride, places, differences.data());
        for (std::int64_t index = 0; index < places; ++index) {
            const int found = differences[size_t(index)];
            if (best.size() < count || found < best.back().differences)
                offer(best, { place + index * Stride, found }, count);
        }
    }
    std::vector<ZLFingerprintPlace> places;
    places.reserve(best.size());
    for (const Candidate& candidate : best)
        places.push_back({ candidate.frame, float(candidate.differences) / float(bitsInFrame * SamplesOfWindow) });
    return places;
}

ZLFingerprintPlace ZLFingerprintSearch::bestPlaceNear(
    std::span<const std::uint32_t> window, std::int64_t frame, std::int64_t reach) const
{
    const Sample sample = sampleOf(window);
    ZLFingerprintPlace best;
    for (std::int64_t place = std::max<std::int64_t>(frame - reach, 0); place <= std::min(frame + reach, lastPlace());
        ++place) {
        std::uint16_t differences = 0;
        countDifferences(sample.data(), int(SamplesOfWindow), m_phases[size_t(place % Stride)].data() + place / Stride,
            1, &differences);
        const float share = float(differences) / float(bitsInFrame * SamplesOfWindow);
        if (share < best.differingShare)
            best = { place, share };
    }
    return best;
}
