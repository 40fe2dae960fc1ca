#pragma once

#include "alignment/ZLFingerprintSearch.h"
#include "alignment/ZLFrameAlignment.h"
#include "platform/ZLWorkProgress.h"

#include <vector>

/// A window of one sound, and between which places of another sound it is looked for.
struct ZLWantedWindow {
    std::int64_t frame = 0;
    std::int64_t firstPlace = 0;
    /// The first place at which it is not looked for any more.
    std::int64_t endOfPlaces = 0;
};

/// What is the same around a window, as far as it is.
struct ZLFoundRun {
    /// Its show frames are those of the sound with the window, its file frames those of the searched one.
    ZLFrameRun run {};
    double agreement = 0.0;
    /// At the best place that is another one.
    double agreementElsewhere = 0.0;
};

/// Looks for many windows of one sound in another one, on all processors.
class ZLWindowSearch {
public:
    ZLWindowSearch(ZLFrameAlignment::Frames wanted, ZLFrameAlignment::Frames searched, ZLWorkProgress& progress);

    /// For each window the places that are as good as any, the best first.
    [[nodiscard]] std::vector<std::vector<ZLFingerprintPlace>> placesOf(
        const std::vector<ZLWantedWindow>& windows) const;
    /// For each window what is the same around its best place. The agreement is 0 where there is none.
    [[nodiscard]] std::vector<ZLFoundRun> runsOf(const std::vector<ZLWantedWindow>& windows) const;
    /// The place near another one that is best; differs entirely when there is none.
    [[nodiscard]] ZLFingerprintPlace placeNear(std::int64_t frame, std::int64_t place) const;

private:
    template <typename Result, typename Work>
    [[nodiscard]] std::vector<Result> onAllProcessors(const std::vector<ZLWantedWindow>& windows, Work work) const;
    [[nodiscard]] std::vector<ZLFingerprintPlace> placesOf(const ZLWantedWindow& window) const;
    [[nodiscard]] ZLFoundRun runOf(const ZLWantedWindow& window) const;
    [[nodiscard]] ZLFoundRun runAround(std::int64_t frame, std::int64_t place) const;

    ZLFrameAlignment::Frames m_wanted;
    ZLFrameAlignment::Frames m_searched;
    ZLFingerprintSearch m_search;
    ZLWorkProgress& m_progress;
};
