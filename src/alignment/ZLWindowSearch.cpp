#include "alignment/ZLWindowSearch.h"

#include <atomic>
#include <cstdlib>
#include <thread>

namespace {

constexpr std::int64_t framesOfWantedWindow = ZLFingerprintSearch::FramesInWindow;
constexpr size_t placesOfWindow = 3;
constexpr float mostDifferingOfPlace = 0.42F;
/// A sound that is moved by so many frames is still like itself.
constexpr std::int64_t reachOfLikeness = 4;

}

ZLWindowSearch::ZLWindowSearch(
    ZLFrameAlignment::Frames wanted, ZLFrameAlignment::Frames searched, ZLWorkProgress& progress)
    : m_wanted(wanted)
    , m_searched(searched)
    , m_search(searched)
    , m_progress(progress)
{
}

std::vector<std::vector<ZLFingerprintPlace>> ZLWindowSearch::placesOf(const std::vector<ZLWantedWindow>& windows) const
{
    return onAllProcessors<std::vector<ZLFingerprintPlace>>(
        windows, [this](const ZLWantedWindow& window) { return placesOf(window); });
}

std::vector<ZLFoundRun> ZLWindowSearch::runsOf(const std::vector<ZLWantedWindow>& windows) const
{
    return onAllProcessors<ZLFoundRun>(windows, [this](const ZLWantedWindow& window) { return runOf(window); });
}

ZLFingerprintPlace ZLWindowSearch::placeNear(std::int64_t frame, std::int64_t place) const
{
    return m_search.bestPlaceNear(
        m_wanted.subspan(size_t(frame), size_t(framesOfWantedWindow)), place, reachOfLikeness);
}

template <typename Result, typename Work>
std::vector<Result> ZLWindowSearch::onAllProcessors(const std::vector<ZLWantedWindow>& windows, Work work) const
{
    std::vector<Result> results(windows.size());
    std::atomic<size_t> next = 0;
    const auto workOn = [&] {
        for (size_t index = next++; index < windows.size() && !m_progress.isCancelled(); index = next++) {
            results[index] = work(windows[index]);
            m_progress.advance(1);
        }
    };
    {
        std::vector<std::jthread> helpers;
        for (unsigned count = 1; count < std::thread::hardware_concurrency() && count < windows.size(); ++count)
            helpers.emplace_back(workOn);
        workOn();
    }
    return results;
}

std::vector<ZLFingerprintPlace> ZLWindowSearch::placesOf(const ZLWantedWindow& window) const
{
    auto places = m_search.bestPlaces(m_wanted.subspan(size_t(window.frame), size_t(framesOfWantedWindow)),
        placesOfWindow, window.firstPlace, window.endOfPlaces);
    std::erase_if(places, [](const ZLFingerprintPlace& place) { return place.differingShare >= mostDifferingOfPlace; });
    return places;
}

ZLFoundRun ZLWindowSearch::runOf(const ZLWantedWindow& window) const
{
    ZLFoundRun best;
    for (const ZLFingerprintPlace& place : placesOf(window)) {
        ZLFoundRun found = runAround(window.frame, place.frame);
        const bool isElsewhere = std::abs(found.run.shift() - best.run.shift()) > reachOfLikeness;
        if (found.agreement > best.agreement) {
            found.agreementElsewhere = isElsewhere ? best.agreement : best.agreementElsewhere;
            best = found;
        } else if (isElsewhere) {
            best.agreementElsewhere = std::max(best.agreementElsewhere, found.agreement);
        }
    }
    return best;
}

/// From the middle of the window, since a seam may lie in it.
ZLFoundRun ZLWindowSearch::runAround(std::int64_t frame, std::int64_t place) const
{
    const std::int64_t middle = frame + framesOfWantedWindow / 2;
    const std::int64_t middleThere = place + framesOfWantedWindow / 2;
    const std::int64_t before =
        ZLFrameAlignment::sameAtEnd(m_wanted.first(size_t(middle)), m_searched.first(size_t(middleThere)));
    const std::int64_t after =
        ZLFrameAlignment::sameAtBeginning(m_wanted.subspan(size_t(middle)), m_searched.subspan(size_t(middleThere)));
    const ZLFrameRun run { middle - before, middleThere - before, before + after };
    return { run,
        ZLFrameAlignment::agreement(m_wanted.subspan(size_t(run.showFrame), size_t(run.count)),
            m_searched.subspan(size_t(run.fileFrame), size_t(run.count))) };
}
