#include "alignment/ZLAnchors.h"

#include "alignment/ZLWindowSearch.h"

#include <algorithm>
#include <cstdlib>

namespace {

using ZLFrameAlignment::Frames;

constexpr std::int64_t framesOfAnchorWindow = ZLFingerprintSearch::FramesInWindow;
constexpr std::int64_t leastBetweenWindows = 20;
/// Pairs of a window and a place that are looked at for one stretch: a tenth of a second of work.
constexpr std::int64_t mostPairs = 16'000'000;
/// In a stretch of any length.
constexpr std::int64_t leastWindows = 256;
constexpr int mostRounds = 8;
/// Unrelated sounds reach half of it.
constexpr double agreementOfAnchor = 16.0;
/// Of that of the best place. Where the same sound comes again and again, none of its places is sure.
constexpr double mostElsewhere = 0.6;
/// At both ends of a run lie frames that may belong to something else.
constexpr std::int64_t doubtfulEndOfAnchor = 50;
constexpr std::int64_t mostDrift = 2;

bool isSure(const ZLFoundRun& found)
{
    return found.agreement >= agreementOfAnchor && found.agreementElsewhere <= mostElsewhere * found.agreement
        && found.run.count > 3 * doubtfulEndOfAnchor;
}

ZLFrameRun coreOf(const ZLFrameRun& run)
{
    return { run.showFrame + doubtfulEndOfAnchor, run.fileFrame + doubtfulEndOfAnchor,
        run.count - 2 * doubtfulEndOfAnchor };
}

/// A run can only follow another one that ends before it does. A clock of another speed lets two of them overlap.
bool follows(const ZLFrameRun& next, const ZLFrameRun& former)
{
    const std::int64_t overlap = std::max(former.showEnd() - next.showFrame, former.fileEnd() - next.fileFrame);
    const bool isDrift = std::abs(next.shift() - former.shift()) <= mostDrift;
    return overlap <= 0 || (isDrift && overlap < next.count);
}

/// Those with the highest agreement in all that follow each other.
std::vector<ZLFrameRun> bestInOrder(std::vector<ZLFoundRun> found)
{
    std::ranges::sort(found, {}, [](const ZLFoundRun& each) { return each.run.showFrame; });
    std::vector<double> sums;
    std::vector<std::ptrdiff_t> formers;
    for (size_t index = 0; index < found.size(); ++index) {
        sums.push_back(found[index].agreement);
        formers.push_back(-1);
        for (size_t former = 0; former < index; ++former) {
            const double sum = sums[former] + found[index].agreement;
            if (sum > sums[index] && follows(found[index].run, found[former].run)) {
                sums[index] = sum;
                formers[index] = std::ptrdiff_t(former);
            }
        }
    }
    std::vector<ZLFrameRun> best;
    for (std::ptrdiff_t index = std::ranges::max_element(sums) - sums.begin(); !found.empty() && index >= 0;
        index = formers[size_t(index)])
        best.push_back(found[size_t(index)].run);
    std::ranges::reverse(best);
    return best;
}

/// The same run is found by each window in it.
void dropDoubles(std::vector<ZLFoundRun>& found)
{
    const auto key = [](const ZLFoundRun& each) { return std::pair(each.run.shift(), each.run.showFrame); };
    std::ranges::sort(found, {}, key);
    const auto doubles = std::ranges::unique(found, [](const ZLFoundRun& left, const ZLFoundRun& right) {
        return left.run.shift() == right.run.shift() && right.run.showFrame < left.run.showEnd();
    });
    found.erase(doubles.begin(), doubles.end());
}

class Search {
public:
    Search(Frames show, Frames file, ZLWorkProgress& progress)
        : m_search(show, file, progress)
        , m_end { std::int64_t(show.size()), std::int64_t(file.size()), 0 }
    {
    }

    [[nodiscard]] std::vector<ZLFrameRun> anchors()
    {
        std::vector<Between> open { { { 0, 0, 0 }, m_end } };
        for (int round = 0; round < mostRounds && !open.empty(); ++round) {
            std::vector<Between> next;
            for (const Between& between : open) {
                const auto found = anchorsBetween(between);
                m_anchors.insert(m_anchors.end(), found.begin(), found.end());
                if (!found.empty())
                    addParts(next, between, found);
            }
            open = std::move(next);
        }
        std::ranges::sort(m_anchors, {}, &ZLFrameRun::showFrame);
        return m_anchors;
    }

private:
    /// Two anchors, or the beginning or the end of all.
    struct Between {
        ZLFrameRun left;
        ZLFrameRun right;
    };

    static void addParts(std::vector<Between>& parts, const Between& whole, const std::vector<ZLFrameRun>& anchors)
    {
        for (size_t index = 0; index <= anchors.size(); ++index)
            parts.push_back({ index == 0 ? whole.left : anchors[index - 1],
                index == anchors.size() ? whole.right : anchors[index] });
    }
    [[nodiscard]] std::vector<ZLFrameRun> anchorsBetween(const Between& between) const
    {
        const std::int64_t count = between.right.showFrame - between.left.showEnd();
        const std::int64_t places = between.right.fileFrame - between.left.fileEnd();
        if (count < framesOfAnchorWindow || places < framesOfAnchorWindow)
            return {};
        std::vector<ZLWantedWindow> windows;
        const std::int64_t step = ZLAnchors::framesBetweenWindows(count, places);
        for (std::int64_t frame = between.left.showEnd(); frame + framesOfAnchorWindow <= between.right.showFrame;
            frame += step)
            windows.push_back({ frame, between.left.fileEnd(), between.right.fileFrame - framesOfAnchorWindow + 1 });
        auto found = m_search.runsOf(windows);
        std::erase_if(found, [](const ZLFoundRun& each) { return !isSure(each); });
        dropDoubles(found);
        for (ZLFoundRun& each : found)
            each.run = coreOf(each.run);
        std::erase_if(found, [&](ZLFoundRun& each) { return !putBetween(each.run, between); });
        std::vector<ZLFrameRun> anchors = bestInOrder(std::move(found));
        for (size_t index = 1; index < anchors.size(); ++index)
            cutBegin(anchors[index],
                std::max(anchors[index - 1].showEnd() - anchors[index].showFrame,
                    anchors[index - 1].fileEnd() - anchors[index].fileFrame));
        return anchors;
    }
    /// Cuts off what lies beyond the stretch; false when nothing is left.
    [[nodiscard]] static bool putBetween(ZLFrameRun& run, const Between& between)
    {
        cutBegin(run, std::max(between.left.showEnd() - run.showFrame, between.left.fileEnd() - run.fileFrame));
        run.count =
            std::min({ run.count, between.right.showFrame - run.showFrame, between.right.fileFrame - run.fileFrame });
        return run.count > 0;
    }
    static void cutBegin(ZLFrameRun& run, std::int64_t frames)
    {
        if (frames > 0)
            run = { run.showFrame + frames, run.fileFrame + frames, run.count - frames };
    }

    ZLWindowSearch m_search;
    ZLFrameRun m_end;
    std::vector<ZLFrameRun> m_anchors {};
};

}

std::int64_t ZLAnchors::framesBetweenWindows(std::int64_t count, std::int64_t places)
{
    const std::int64_t mostWindows = std::max(mostPairs / std::max<std::int64_t>(places, 1), leastWindows);
    return std::max((count + mostWindows - 1) / mostWindows, leastBetweenWindows);
}

std::vector<ZLFrameRun> ZLAnchors::inOrder(Frames show, Frames file, ZLWorkProgress& progress)
{
    return Search(show, file, progress).anchors();
}

std::vector<ZLFrameRun> ZLAnchors::anywhere(
    const std::vector<ZLFrameRun>& stretches, Frames show, Frames file, ZLWorkProgress& progress)
{
    const ZLWindowSearch search(file, show, progress);
    std::int64_t count = 0;
    for (const ZLFrameRun& stretch : stretches)
        count += stretch.count;
    const std::int64_t places = std::int64_t(show.size()) - framesOfAnchorWindow + 1;
    std::vector<ZLWantedWindow> windows;
    for (const ZLFrameRun& stretch : stretches) {
        for (std::int64_t frame = stretch.fileFrame; frame + framesOfAnchorWindow <= stretch.fileEnd();
            frame += framesBetweenWindows(count, places))
            windows.push_back({ frame, 0, places });
    }
    auto found = search.runsOf(windows);
    std::erase_if(found, [](const ZLFoundRun& each) { return each.agreement < agreementOfAnchor; });
    dropDoubles(found);
    std::vector<ZLFrameRun> runs;
    runs.reserve(found.size());
    for (const ZLFoundRun& each : found)
        runs.push_back({ each.run.fileFrame, each.run.showFrame, each.run.count });
    return runs;
}
