#include "alignment/ZLAlignmentSeeds.h"

#include "alignment/ZLFingerprintNoise.h"
#include "alignment/ZLFingerprintSearch.h"

#include <algorithm>
#include <optional>
#include <span>
#include <thread>

namespace {

constexpr std::int64_t framesBetweenWindows = 20;
/// The first look takes every so many windows, each further one half as many.
constexpr size_t firstStep = 8;
constexpr size_t placesOfWindow = 3;
constexpr float mostDiffering = 0.42F;
/// Where a neighbour lies at the same distance.
constexpr float mostDifferingBesideNeighbour = 0.43F;
/// Below it, no other place is looked for.
constexpr float clearlyTheSame = 0.40F;
constexpr std::int64_t reachAroundNeighbour = 2;

using Places = std::vector<ZLFingerprintPlace>;

/// The windows of a show, and what is known of them so far.
class Windows {
public:
    Windows(const ZLSoundFingerprint& show, const ZLSoundFingerprint& file, ZLWorkProgress& progress)
        : m_frames(ZLFingerprintNoise::filled(show, ZLFingerprintNoise::Side::Show))
        , m_search(file)
        , m_progress(progress)
    {
        const std::int64_t count =
            (std::int64_t(m_frames.size()) - ZLFingerprintSearch::FramesInWindow) / framesBetweenWindows + 1;
        if (std::int64_t(m_frames.size()) < ZLFingerprintSearch::FramesInWindow)
            return;
        m_places.resize(size_t(count));
        for (std::int64_t window = 0; window < count; ++window) {
            const auto* first = show.frames.data() + window * framesBetweenWindows;
            const auto silent = std::count(
                first, first + ZLFingerprintSearch::FramesInWindow, std::uint32_t(ZLSoundFingerprint::Nothing));
            m_isWorthLooking.push_back(silent * 2 < ZLFingerprintSearch::FramesInWindow);
        }
        m_progress.begin(count);
    }

    /// All windows that are `step` apart and were not looked at before.
    void look(size_t step)
    {
        std::atomic<size_t> next = step == firstStep ? 0 : step;
        const size_t stride = step == firstStep ? step : 2 * step;
        const auto work = [&] {
            for (size_t window = next.fetch_add(stride); window < m_places.size() && !m_progress.isCancelled();
                window = next.fetch_add(stride)) {
                m_places[window] = placesOf(window, step);
                m_progress.advance(1);
            }
        };
        std::vector<std::jthread> helpers;
        for (unsigned count = 1; count < std::thread::hardware_concurrency(); ++count)
            helpers.emplace_back(work);
        work();
    }

    [[nodiscard]] std::vector<ZLAlignmentSeed> seeds() const
    {
        std::vector<ZLAlignmentSeed> seeds;
        for (size_t window = 0; window < m_places.size(); ++window) {
            for (const ZLFingerprintPlace& place : m_places[window].value_or(Places {}))
                seeds.push_back({ std::int64_t(window) * framesBetweenWindows, place.frame, place.differingShare });
        }
        return seeds;
    }

private:
    [[nodiscard]] Places placesOf(size_t window, size_t step) const
    {
        if (!m_isWorthLooking[window])
            return {};
        const std::int64_t first = std::int64_t(window) * framesBetweenWindows;
        const std::span<const std::uint32_t> frames(
            m_frames.data() + first, size_t(ZLFingerprintSearch::FramesInWindow));
        Places places;
        if (step < firstStep) {
            addPlacesBesideNeighbour(places, frames, window, std::int64_t(window) - std::int64_t(step));
            addPlacesBesideNeighbour(places, frames, window, std::int64_t(window) + std::int64_t(step));
            if (std::ranges::any_of(places, [](const auto& place) { return place.differingShare < clearlyTheSame; }))
                return places;
        }
        for (const ZLFingerprintPlace& place : m_search.bestPlaces(frames, placesOfWindow)) {
            if (place.differingShare < mostDiffering)
                add(places, place);
        }
        return places;
    }
    void addPlacesBesideNeighbour(
        Places& places, std::span<const std::uint32_t> frames, size_t window, std::int64_t neighbour) const
    {
        if (neighbour < 0 || neighbour >= std::int64_t(m_places.size()))
            return;
        const std::int64_t distance = (std::int64_t(window) - neighbour) * framesBetweenWindows;
        for (const ZLFingerprintPlace& known : m_places[size_t(neighbour)].value_or(Places {})) {
            const auto place = m_search.bestPlaceNear(frames, known.frame + distance, reachAroundNeighbour);
            if (place.differingShare < mostDifferingBesideNeighbour)
                add(places, place);
        }
    }
    static void add(Places& places, const ZLFingerprintPlace& place)
    {
        if (std::ranges::find(places, place.frame, &ZLFingerprintPlace::frame) == places.end())
            places.push_back(place);
    }

    std::vector<std::uint32_t> m_frames;
    ZLFingerprintSearch m_search;
    ZLWorkProgress& m_progress;
    std::vector<bool> m_isWorthLooking {};
    /// Absent where no one has looked yet.
    std::vector<std::optional<Places>> m_places {};
};

}

std::vector<ZLAlignmentSeed> ZLAlignmentSeeds::find(
    const ZLSoundFingerprint& show, const ZLSoundFingerprint& file, ZLWorkProgress& progress)
{
    Windows windows(show, file, progress);
    for (size_t step = firstStep; step > 0; step /= 2)
        windows.look(step);
    return progress.isCancelled() ? std::vector<ZLAlignmentSeed> {} : windows.seeds();
}
