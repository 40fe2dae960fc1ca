#include "alignment/ZLSoundAlignment.h"

#include "alignment/ZLAlignmentSeeds.h"
#include "alignment/ZLClockFit.h"
#include "alignment/ZLFingerprintNoise.h"
#include "alignment/ZLSeedChain.h"
#include "alignment/ZLSoundPieces.h"

#include <algorithm>

namespace {

constexpr double leastCover = 0.1;
constexpr int mostMovedPieces = 8;
/// Of a chain beside the one in order. Chance alone does not reach it.
constexpr double leastScoreOfMoved = 12.0;

bool lieInPiece(const ZLAlignmentSeed& seed, const std::vector<ZLSoundPiece>& pieces)
{
    const double time = double(seed.fileFrame) * ZLSoundFingerprint::SecondsPerFrame;
    return std::ranges::any_of(
        pieces, [time](const ZLSoundPiece& piece) { return time >= piece.fileStart - 1.0 && time < piece.fileEnd(); });
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
    auto seeds = ZLAlignmentSeeds::find(show, file, progress);
    const auto showFrames = ZLFingerprintNoise::filled(show, ZLFingerprintNoise::Side::Show);
    const auto fileFrames = ZLFingerprintNoise::filled(file, ZLFingerprintNoise::Side::File);
    alignment.pieces = ZLClockFit::timesOf(
        ZLSoundPieces::of(ZLSeedChain::best(seeds), showFrames, fileFrames), showFrames, fileFrames);
    for (int count = 0; count < mostMovedPieces && !progress.isCancelled(); ++count) {
        const auto& known = count == 0 ? alignment.pieces : alignment.movedPieces;
        std::erase_if(seeds, [&](const ZLAlignmentSeed& seed) { return lieInPiece(seed, known); });
        const ZLSeedChain chain = ZLSeedChain::best(seeds);
        if (chain.score < leastScoreOfMoved)
            break;
        const auto moved =
            ZLClockFit::timesOf(ZLSoundPieces::of(chain, showFrames, fileFrames), showFrames, fileFrames);
        if (moved.empty())
            break;
        alignment.movedPieces.insert(alignment.movedPieces.end(), moved.begin(), moved.end());
    }
    return alignment;
}
