#include "alignment/ZLPieceEnds.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>

namespace {

using ZLFrameAlignment::Frames;

/// How far an end may move, in frames.
constexpr std::int64_t mostReach = 150;
/// The bits of a frame depend on each other, so they say less than so many that do not.
constexpr double shareOfEvidence = 0.8;
/// A pause in the speech is like nothing, though it is the same in both: one frame says no more against it than this.
constexpr double mostAgainst = 2.0;
constexpr double mostFor = 5.0;
constexpr std::int64_t blurredFrames = 3;
constexpr double leastShare = 0.1;
constexpr double mostShare = 0.44;
constexpr int bitsOfEvidence = 32;

/// How much a number of differing bits speaks for a frame that is the same in both: the logarithm of how many times as
/// likely it is there as by chance.
class Evidence {
public:
    explicit Evidence(double shareInPieces)
    {
        const double share = std::clamp(shareInPieces, leastShare, mostShare);
        for (int differing = 0; differing <= bitsOfEvidence; ++differing) {
            const double likelihood =
                (bitsOfEvidence - differing) * std::log((1.0 - share) / 0.5) + differing * std::log(share / 0.5);
            m_worth[size_t(differing)] = std::clamp(shareOfEvidence * likelihood, -mostAgainst, mostFor);
        }
    }
    [[nodiscard]] double of(std::uint32_t show, std::uint32_t file) const
    {
        return m_worth[size_t(std::popcount(show ^ file))];
    }

private:
    std::array<double, bitsOfEvidence + 1> m_worth {};
};

double shareIn(const std::vector<ZLDriftingRuns>& pieces, Frames show, Frames file)
{
    double differing = 0.0;
    double count = 0.0;
    for (const ZLDriftingRuns& piece : pieces) {
        for (const ZLFrameRun& run : piece) {
            differing += double(run.count)
                * ZLFrameAlignment::differingShare(show.subspan(size_t(run.showFrame), size_t(run.count)),
                    file.subspan(size_t(run.fileFrame), size_t(run.count)));
            count += double(run.count);
        }
    }
    return count > 0.0 ? differing / count : mostShare;
}

/// Frames of the show that a piece may end before, or begin with.
struct Ends {
    std::int64_t first = 0;
    /// For each of them, how well the piece fits then.
    std::vector<double> fits {};

    [[nodiscard]] std::int64_t last() const { return first + std::int64_t(fits.size()) - 1; }
    [[nodiscard]] double fitAt(std::int64_t frame) const { return fits[size_t(frame - first)]; }
};

class Settling {
public:
    Settling(std::vector<ZLDriftingRuns>& pieces, Frames show, Frames file)
        : m_pieces(pieces)
        , m_show(show)
        , m_file(file)
        , m_evidence(shareIn(pieces, show, file))
    {
    }

    void settle()
    {
        if (m_pieces.empty())
            return;
        const Ends begins = beginsOf(m_pieces.front());
        moveBegin(m_pieces.front(), begins.first + (std::ranges::max_element(begins.fits) - begins.fits.begin()));
        takeBlurred(m_pieces.front(), 0, 0);
        for (size_t index = 1; index < m_pieces.size(); ++index)
            settleBetween(m_pieces[index - 1], m_pieces[index]);
        const Ends ends = endsOf(m_pieces.back());
        moveEnd(m_pieces.back(), ends.first + (std::ranges::max_element(ends.fits) - ends.fits.begin()));
    }

private:
    /// The pair of an end and a begin that lie in order and fit best together.
    void settleBetween(ZLDriftingRuns& former, ZLDriftingRuns& next)
    {
        const Ends ends = endsOf(former);
        const Ends begins = beginsOf(next);
        // Where the file has less between them than the show has, the file says which begin comes too early.
        const std::int64_t ahead = std::max<std::int64_t>(former.back().shift() - next.front().shift(), 0);
        std::vector<std::int64_t> bestFrom(begins.fits.size());
        for (std::int64_t frame = begins.last(); frame >= begins.first; --frame) {
            const bool isBest = frame == begins.last()
                || begins.fitAt(frame) >= begins.fitAt(bestFrom[size_t(frame + 1 - begins.first)]);
            bestFrom[size_t(frame - begins.first)] = isBest ? frame : bestFrom[size_t(frame + 1 - begins.first)];
        }
        std::int64_t bestEnd = former.back().showEnd();
        std::int64_t bestBegin = next.front().showFrame;
        double best = -std::numeric_limits<double>::infinity();
        for (std::int64_t end = ends.first; end <= ends.last(); ++end) {
            const std::int64_t firstBegin = std::max(begins.first, end + ahead);
            if (firstBegin > begins.last())
                break;
            const std::int64_t begin = bestFrom[size_t(firstBegin - begins.first)];
            if (const double fit = ends.fitAt(end) + begins.fitAt(begin); fit > best) {
                best = fit;
                bestEnd = end;
                bestBegin = begin;
            }
        }
        moveEnd(former, bestEnd);
        moveBegin(next, bestBegin);
        takeBlurred(next, former.back().showEnd(), former.back().fileEnd());
    }
    /// The first frames of a piece are compared with what was before it, so they differ although they belong to it.
    static void takeBlurred(ZLDriftingRuns& piece, std::int64_t showEnd, std::int64_t fileEnd)
    {
        const ZLFrameRun& first = piece.front();
        moveBegin(
            piece, first.showFrame - std::min({ blurredFrames, first.showFrame - showEnd, first.fileFrame - fileEnd }));
    }

    [[nodiscard]] double evidenceAt(std::int64_t showFrame, std::int64_t shift) const
    {
        return m_evidence.of(m_show[size_t(showFrame)], m_file[size_t(showFrame + shift)]);
    }
    [[nodiscard]] Ends endsOf(const ZLDriftingRuns& piece) const
    {
        const ZLFrameRun& run = piece.back();
        const std::int64_t most = std::min(std::int64_t(m_show.size()), std::int64_t(m_file.size()) - run.shift());
        const std::int64_t last = std::min(run.showEnd() + mostReach, most);
        Ends ends { run.showEnd() - reachInto(piece), { 0.0 } };
        for (std::int64_t frame = ends.first; frame < last; ++frame)
            ends.fits.push_back(ends.fits.back() + evidenceAt(frame, run.shift()));
        return ends;
    }
    [[nodiscard]] Ends beginsOf(const ZLDriftingRuns& piece) const
    {
        const ZLFrameRun& run = piece.front();
        const std::int64_t first = std::max({ run.showFrame - mostReach, std::int64_t(0), -run.shift() });
        Ends begins { first, { 0.0 } };
        for (std::int64_t frame = run.showFrame + reachInto(piece) - 1; frame >= first; --frame)
            begins.fits.push_back(begins.fits.back() + evidenceAt(frame, run.shift()));
        std::ranges::reverse(begins.fits);
        return begins;
    }
    /// A third of the piece stays for certain.
    [[nodiscard]] static std::int64_t reachInto(const ZLDriftingRuns& piece)
    {
        return std::min(mostReach, (piece.back().showEnd() - piece.front().showFrame) / 3);
    }
    static void moveEnd(ZLDriftingRuns& piece, std::int64_t end)
    {
        while (piece.size() > 1 && piece.back().showFrame >= end)
            piece.pop_back();
        piece.back().count = end - piece.back().showFrame;
    }
    static void moveBegin(ZLDriftingRuns& piece, std::int64_t begin)
    {
        while (piece.size() > 1 && piece.front().showEnd() <= begin)
            piece.erase(piece.begin());
        ZLFrameRun& run = piece.front();
        run = { begin, begin + run.shift(), run.showEnd() - begin };
    }

    std::vector<ZLDriftingRuns>& m_pieces;
    Frames m_show;
    Frames m_file;
    Evidence m_evidence;
};

}

void ZLPieceEnds::settle(std::vector<ZLDriftingRuns>& pieces, Frames show, Frames file)
{
    Settling(pieces, show, file).settle();
}
