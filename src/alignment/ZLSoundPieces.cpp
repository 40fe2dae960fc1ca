#include "alignment/ZLSoundPieces.h"

#include "alignment/ZLFingerprintSearch.h"
#include "alignment/ZLPieceEnds.h"
#include "alignment/ZLPieceEvidence.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace {

using ZLFrameAlignment::Frames;

constexpr std::int64_t framesOfSeed = ZLFingerprintSearch::FramesInWindow;
/// A seed is found although a part of it lies beyond a seam.
constexpr std::int64_t doubtfulEnd = framesOfSeed / 2;
/// Between the beginnings of two seeds. Where they are farther apart, what is between them is looked at.
constexpr std::int64_t mostBetweenSeeds = 2 * framesOfSeed;
/// What a clock of another speed does to the distance from one seed to the next.
constexpr std::int64_t mostStep = 2;
/// Between two runs of a piece.
constexpr std::int64_t mostSkipped = 3;
constexpr double leastAgreementOfPiece = 5.0;
/// Less of it as evidence is chance ...
constexpr double leastEvidenceOfPiece = 2.0;
/// ... but where a piece agrees as much, which chance never reaches: it is like other places as well.
constexpr double agreementOfRepetition = 20.0;
/// Half a minute, in the show and in the file.
constexpr std::int64_t mostBetweenNeighbours = 1500;
/// Together. Unrelated shows reach a quarter of it.
constexpr double leastEvidenceOfNeighbours = 12.0;

/// What is surely in both, from seeds at one distance that lie close together.
ZLFrameRun coreOf(const ZLAlignmentSeed& first, const ZLAlignmentSeed& last)
{
    const std::int64_t end = last.showFrame + framesOfSeed;
    const std::int64_t trim = std::min(doubtfulEnd, (end - first.showFrame) / 2 - 1);
    const std::int64_t begin = first.showFrame + trim;
    return { begin, begin + first.shift(), end - trim - begin };
}

/// Cuts the beginning off, so that the run begins behind the other one in the show and in the file.
void beginBehind(ZLFrameRun& run, const ZLFrameRun& former)
{
    const std::int64_t overlap = std::max(former.showEnd() - run.showFrame, former.fileEnd() - run.fileFrame);
    if (overlap <= 0)
        return;
    run.showFrame += overlap;
    run.fileFrame += overlap;
    run.count -= overlap;
}

std::vector<ZLFrameRun> coresOf(const std::vector<ZLAlignmentSeed>& seeds)
{
    std::vector<ZLFrameRun> cores;
    for (size_t begin = 0; begin < seeds.size();) {
        size_t end = begin + 1;
        while (end < seeds.size() && seeds[end].shift() == seeds[begin].shift()
            && seeds[end].showFrame - seeds[end - 1].showFrame <= mostBetweenSeeds)
            ++end;
        ZLFrameRun core = coreOf(seeds[begin], seeds[end - 1]);
        if (!cores.empty())
            beginBehind(core, cores.back());
        if (core.count > 0)
            cores.push_back(core);
        begin = end;
    }
    return cores;
}

class Joining {
public:
    Joining(Frames show, Frames file)
        : m_show(show)
        , m_file(file)
    {
    }

    [[nodiscard]] std::vector<ZLFrameRun> runsOf(const std::vector<ZLFrameRun>& cores)
    {
        if (cores.empty())
            return {};
        const ZLFrameRun& first = cores.front();
        const std::int64_t before =
            ZLFrameAlignment::sameAtEnd(m_show.first(size_t(first.showFrame)), m_file.first(size_t(first.fileFrame)));
        add({ first.showFrame - before, first.fileFrame - before, before });
        add(first);
        for (size_t index = 1; index < cores.size(); ++index) {
            addBetween(cores[index - 1], cores[index]);
            add(cores[index]);
        }
        const ZLFrameRun& last = cores.back();
        add({ last.showEnd(), last.fileEnd(),
            ZLFrameAlignment::sameAtBeginning(
                m_show.subspan(size_t(last.showEnd())), m_file.subspan(size_t(last.fileEnd()))) });
        return m_runs;
    }

private:
    void addBetween(const ZLFrameRun& left, const ZLFrameRun& right)
    {
        const auto runs =
            ZLFrameAlignment::between(m_show.subspan(size_t(left.showEnd()), size_t(right.showFrame - left.showEnd())),
                m_file.subspan(size_t(left.fileEnd()), size_t(right.fileFrame - left.fileEnd())));
        for (const ZLFrameRun& run : runs)
            add({ left.showEnd() + run.showFrame, left.fileEnd() + run.fileFrame, run.count });
    }
    void add(const ZLFrameRun& run)
    {
        if (run.count <= 0)
            return;
        if (!m_runs.empty() && m_runs.back().showEnd() == run.showFrame && m_runs.back().fileEnd() == run.fileFrame)
            m_runs.back().count += run.count;
        else
            m_runs.push_back(run);
    }

    Frames m_show;
    Frames m_file;
    std::vector<ZLFrameRun> m_runs {};
};

bool continues(const ZLFrameRun& former, const ZLFrameRun& next)
{
    return std::abs(next.shift() - former.shift()) <= mostStep && next.showFrame - former.showEnd() <= mostSkipped
        && next.fileFrame - former.fileEnd() <= mostSkipped;
}

/// How much the sound of the piece says that it is the same in both.
double agreementOf(const ZLDriftingRuns& piece, Frames show, Frames file)
{
    double agreement = 0.0;
    for (const ZLFrameRun& run : piece)
        agreement += ZLFrameAlignment::agreement(show.subspan(size_t(run.showFrame), size_t(run.count)),
            file.subspan(size_t(run.fileFrame), size_t(run.count)));
    return agreement;
}

/// The same without what is like other places as well.
double evidenceOf(const ZLDriftingRuns& piece, Frames show, Frames file)
{
    std::int64_t frames = 0;
    for (const ZLFrameRun& run : piece)
        frames += run.count;
    const double share = ZLFrameAlignment::WorthlessShare - agreementOf(piece, show, file) / double(frames);
    return ZLPieceEvidence::agreement(double(frames), share, ZLPieceEvidence::shareElsewhere(piece, show, file));
}

/// A small piece that shows have in common by chance is found beside pieces that are right, too.
bool mayBeChance(const ZLDriftingRuns& piece, Frames show, Frames file)
{
    const double agreement = agreementOf(piece, show, file);
    return agreement < leastAgreementOfPiece
        || (agreement < agreementOfRepetition && evidenceOf(piece, show, file) < leastEvidenceOfPiece);
}

bool areNeighbours(const ZLDriftingRuns& former, const ZLDriftingRuns& next)
{
    return next.front().showFrame - former.back().showEnd() < mostBetweenNeighbours
        && next.front().fileFrame - former.back().fileEnd() < mostBetweenNeighbours;
}

/// Takes away the pieces that chance may have made. Alone, a short piece says little; beside others it says more, since
/// few places are left for it. A bar that repeats says nothing by itself, and has its place in the order among others.
void keepConvincing(std::vector<ZLDriftingRuns>& pieces, Frames show, Frames file)
{
    std::erase_if(pieces, [&](const ZLDriftingRuns& piece) { return mayBeChance(piece, show, file); });
    std::vector<ZLDriftingRuns> kept;
    for (size_t begin = 0; begin < pieces.size();) {
        size_t end = begin + 1;
        double evidence = evidenceOf(pieces[begin], show, file);
        for (; end < pieces.size() && areNeighbours(pieces[end - 1], pieces[end]); ++end)
            evidence += evidenceOf(pieces[end], show, file);
        if (evidence >= leastEvidenceOfNeighbours)
            kept.insert(kept.end(), pieces.begin() + std::ptrdiff_t(begin), pieces.begin() + std::ptrdiff_t(end));
        begin = end;
    }
    pieces = std::move(kept);
}

}

std::vector<ZLDriftingRuns> ZLSoundPieces::of(const ZLSeedChain& chain, Frames show, Frames file)
{
    std::vector<ZLDriftingRuns> pieces;
    for (const ZLFrameRun& run : Joining(show, file).runsOf(coresOf(chain.seeds))) {
        if (!pieces.empty() && continues(pieces.back().back(), run))
            pieces.back().push_back(run);
        else
            pieces.push_back({ run });
    }
    keepConvincing(pieces, show, file);
    ZLPieceEnds::settle(pieces, show, file);
    return pieces;
}
