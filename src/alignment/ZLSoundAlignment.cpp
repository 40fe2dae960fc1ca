#include "alignment/ZLSoundAlignment.h"

#include "alignment/ZLAlignmentSeeds.h"
#include "alignment/ZLAnchors.h"
#include "alignment/ZLClockFit.h"
#include "alignment/ZLFingerprintNoise.h"
#include "alignment/ZLPauseShares.h"
#include "alignment/ZLRepeatedEnds.h"
#include "alignment/ZLSeedChain.h"
#include "alignment/ZLSoundPieces.h"

#include <algorithm>
#include <cmath>

namespace {

using ZLFrameAlignment::Frames;

constexpr double leastCover = 0.1;
constexpr int mostMovedPieces = 8;
/// Of a chain beside the one in order. Chance alone does not reach it.
constexpr double leastScoreOfMoved = 12.0;

/// In frames. A shorter stretch of the file is no teaser.
constexpr std::int64_t leastMoved = 100;
constexpr double longestPause = 2.0;
constexpr double sameDistance = 0.03;

/// What of the file no piece has.
std::vector<ZLFrameRun> stretchesBetween(const std::vector<ZLSoundPiece>& pieces, std::int64_t fileFrames)
{
    std::vector<ZLFrameRun> stretches;
    std::int64_t begin = 0;
    const auto addUpTo = [&](std::int64_t end) {
        if (end - begin >= leastMoved)
            stretches.push_back({ 0, begin, end - begin });
    };
    for (const ZLSoundPiece& piece : pieces) {
        addUpTo(ZLSoundFingerprint::frameAt(piece.fileStart));
        begin = ZLSoundFingerprint::frameAt(piece.fileEnd());
    }
    addUpTo(fileFrames);
    return stretches;
}

bool goesOn(const ZLSoundPiece& former, const ZLSoundPiece& next)
{
    return next.showStart - former.showEnd() < longestPause
        && std::abs(former.fileTimeOf(next.showStart) - next.fileStart) < sameDistance
        && std::abs(former.fileTimeOf(next.showEnd()) - next.fileEnd()) < sameDistance;
}

/// A pause in the speech, in which nothing can be recognised, is no seam.
std::vector<ZLSoundPiece> joinedOverPauses(const std::vector<ZLSoundPiece>& pieces)
{
    std::vector<ZLSoundPiece> joined;
    for (const ZLSoundPiece& piece : pieces) {
        if (joined.empty() || !goesOn(joined.back(), piece)) {
            joined.push_back(piece);
            continue;
        }
        ZLSoundPiece& former = joined.back();
        const double share = piece.length / (former.length + piece.length);
        former.differingShare += share * (piece.differingShare - former.differingShare);
        former.shareElsewhere += share * (piece.shareElsewhere - former.shareElsewhere);
        former.length = piece.showEnd() - former.showStart;
    }
    return joined;
}

bool shareSound(const ZLSoundPiece& left, const ZLSoundPiece& right)
{
    return std::min(left.fileEnd(), right.fileEnd()) - std::max(left.fileStart, right.fileStart) > 0.5 * left.length;
}

bool liesIn(const ZLAlignmentSeed& seed, const std::vector<ZLSoundPiece>& pieces)
{
    const double time = double(seed.fileFrame) * ZLSoundFingerprint::SecondsPerFrame;
    return std::ranges::any_of(
        pieces, [time](const ZLSoundPiece& piece) { return time >= piece.fileStart - 1.0 && time < piece.fileEnd(); });
}

/// What else the file has of the show, out of order.
std::vector<ZLSoundPiece> piecesOutOfOrder(
    const std::vector<ZLSoundPiece>& pieces, Frames show, Frames file, ZLWorkProgress& progress)
{
    const auto runs = ZLAnchors::anywhere(stretchesBetween(pieces, std::int64_t(file.size())), show, file, progress);
    auto seeds = ZLAlignmentSeeds::in(runs, show, file);
    // A run beside a piece goes on in that piece.
    std::erase_if(seeds, [&](const ZLAlignmentSeed& seed) { return liesIn(seed, pieces); });
    std::vector<ZLSoundPiece> moved;
    for (int count = 0; count < mostMovedPieces && !progress.isCancelled(); ++count) {
        const ZLSeedChain chain = ZLSeedChain::best(seeds);
        if (chain.score < leastScoreOfMoved)
            break;
        auto found = ZLClockFit::timesOf(ZLSoundPieces::of(chain, show, file), show, file);
        std::erase_if(found, [&](const ZLSoundPiece& each) {
            return std::ranges::any_of(pieces, [&](const ZLSoundPiece& piece) { return shareSound(each, piece); });
        });
        moved.insert(moved.end(), found.begin(), found.end());
        // Also those of which no piece was made: what is behind them may be one.
        std::erase_if(seeds, [&](const ZLAlignmentSeed& seed) {
            return liesIn(seed, moved) || std::ranges::find(chain.seeds, seed) != chain.seeds.end();
        });
    }
    std::ranges::sort(moved, {}, &ZLSoundPiece::fileStart);
    return joinedOverPauses(moved);
}

}

bool ZLSoundAlignment::isTheShow() const
{
    double covered = 0.0;
    for (const ZLSoundPiece& piece : pieces)
        covered += piece.length;
    return covered > 0.0 && covered >= leastCover * std::min(showLength, fileLength);
}

ZLSoundAlignment ZLSoundAlignment::of(
    const ZLSoundFingerprint& show, const ZLSoundFingerprint& file, ZLWorkProgress& progress)
{
    ZLSoundAlignment alignment;
    alignment.showLength = show.seconds();
    alignment.fileLength = file.seconds();
    const auto showFrames = ZLFingerprintNoise::filled(show, ZLFingerprintNoise::Side::Show);
    const auto fileFrames = ZLFingerprintNoise::filled(file, ZLFingerprintNoise::Side::File);
    const auto anchors = ZLAnchors::inOrder(showFrames, fileFrames, progress);
    const auto seeds = ZLAlignmentSeeds::find(anchors, showFrames, fileFrames, progress);
    alignment.pieces = joinedOverPauses(ZLClockFit::timesOf(
        ZLSoundPieces::of(ZLSeedChain::best(seeds), showFrames, fileFrames), showFrames, fileFrames));
    ZLPauseShares::settle(alignment.pieces, showFrames, fileFrames);
    ZLRepeatedEnds::find(alignment.pieces, showFrames, fileFrames);
    alignment.movedPieces = piecesOutOfOrder(alignment.pieces, showFrames, fileFrames, progress);
    return alignment;
}
