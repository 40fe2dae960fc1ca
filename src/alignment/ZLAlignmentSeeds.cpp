#include "alignment/ZLAlignmentSeeds.h"

#include "alignment/ZLAnchors.h"
#include "alignment/ZLWindowSearch.h"

#include <algorithm>

namespace {

using ZLFrameAlignment::Frames;

constexpr std::int64_t framesOfSeedWindow = ZLFingerprintSearch::FramesInWindow;
constexpr std::int64_t framesBetweenSeeds = 20;
constexpr float mostDifferingOfSeed = 0.43F;

class Seeding {
public:
    Seeding(Frames show, Frames file, ZLWorkProgress& progress)
        : m_show(show)
        , m_file(file)
        , m_search(show, file, progress)
    {
    }

    /// A run goes on where a clock of another speed has moved it by some frames.
    void addIn(const ZLFrameRun& run)
    {
        std::int64_t shift = run.shift();
        for (std::int64_t frame = run.showFrame; frame + framesOfSeedWindow <= run.showEnd();
            frame += framesBetweenSeeds) {
            const auto place = m_search.placeNear(frame, frame + shift);
            if (place.differingShare >= mostDifferingOfSeed)
                continue;
            m_seeds.push_back({ frame, place.frame, place.differingShare });
            shift = place.frame - frame;
        }
    }
    /// The windows may reach into the anchors, so that a window that no seam cuts is there for each seam.
    void addBetween(const ZLFrameRun& left, const ZLFrameRun& right)
    {
        const std::int64_t begin = std::max<std::int64_t>(left.showEnd() - framesOfSeedWindow, 0);
        const std::int64_t end = std::min(right.showFrame + framesOfSeedWindow, std::int64_t(m_show.size()));
        const std::int64_t firstPlace = std::max<std::int64_t>(left.fileEnd() - framesOfSeedWindow, 0);
        const std::int64_t endOfPlaces = std::min(right.fileFrame + framesOfSeedWindow, std::int64_t(m_file.size()));
        const std::int64_t step = ZLAnchors::framesBetweenWindows(end - begin, endOfPlaces - firstPlace);
        std::vector<ZLWantedWindow> windows;
        for (std::int64_t frame = begin; frame + framesOfSeedWindow <= end; frame += step)
            windows.push_back({ frame, firstPlace, endOfPlaces - framesOfSeedWindow + 1 });
        const auto places = m_search.placesOf(windows);
        for (size_t index = 0; index < windows.size(); ++index) {
            for (const ZLFingerprintPlace& place : places[index])
                m_seeds.push_back({ windows[index].frame, place.frame, place.differingShare });
        }
    }
    [[nodiscard]] std::vector<ZLAlignmentSeed> seeds()
    {
        std::ranges::sort(
            m_seeds, {}, [](const ZLAlignmentSeed& seed) { return std::pair(seed.showFrame, seed.fileFrame); });
        return m_seeds;
    }

private:
    Frames m_show;
    Frames m_file;
    ZLWindowSearch m_search;
    std::vector<ZLAlignmentSeed> m_seeds {};
};

}

std::vector<ZLAlignmentSeed> ZLAlignmentSeeds::find(
    const std::vector<ZLFrameRun>& anchors, Frames show, Frames file, ZLWorkProgress& progress)
{
    Seeding seeding(show, file, progress);
    ZLFrameRun former;
    for (const ZLFrameRun& anchor : anchors) {
        seeding.addBetween(former, anchor);
        seeding.addIn(anchor);
        former = anchor;
    }
    seeding.addBetween(former, { std::int64_t(show.size()), std::int64_t(file.size()), 0 });
    return progress.isCancelled() ? std::vector<ZLAlignmentSeed> {} : seeding.seeds();
}

std::vector<ZLAlignmentSeed> ZLAlignmentSeeds::in(const std::vector<ZLFrameRun>& runs, Frames show, Frames file)
{
    ZLWorkProgress progress;
    Seeding seeding(show, file, progress);
    for (const ZLFrameRun& run : runs)
        seeding.addIn(run);
    return seeding.seeds();
}
