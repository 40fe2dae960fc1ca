#include "alignment/ZLShowMap.h"

#include "alignment/ZLPieceEvidence.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/// In a pause of the speech nothing can be recognised. Where the file has so little between two pieces, it is a pause
/// of which one half belongs to each of them.
constexpr double mostOfPause = 1.5;
/// Where it has more, something else came in, with little of a pause at both sides.
constexpr double partOfPause = 0.1;
/// Two pieces at the same distance, within it, are one piece with something unrecognised in between.
constexpr double mostChangeOfDistance = 0.1;
/// Less of what follows a moment is no part of it.
constexpr double leastPart = 0.2;
constexpr double mostSecondsOfEvidence = 10.0;
constexpr double agreementOfSureness = 20.0;
/// Something else came in where this was cut out, or nothing tells whether it was cut out.
constexpr double doubt = 0.5;

double confidenceIn(const ZLSoundPiece& piece)
{
    const double frames = std::min(piece.length, mostSecondsOfEvidence) / ZLSoundFingerprint::SecondsPerFrame;
    return 1.0
        - std::exp(
            -ZLPieceEvidence::agreement(frames, piece.differingShare, piece.shareElsewhere) / agreementOfSureness);
}

bool lieAtOneDistance(const ZLSoundPiece& former, const ZLSoundPiece& next)
{
    return std::abs(former.fileTimeOf(next.showStart) - next.fileStart) < mostChangeOfDistance;
}

}

ZLShowMap::ZLShowMap(ZLSoundAlignment alignment)
    : m_alignment(std::move(alignment))
{
}

ZLMappedMoment ZLShowMap::place(double showTime, double spanEnd) const
{
    if (!m_alignment.isTheShow() || !std::isfinite(showTime))
        return {};
    const auto& pieces = m_alignment.pieces;
    const auto after = std::ranges::upper_bound(pieces, showTime, {}, &ZLSoundPiece::showStart);
    const ZLSoundPiece* former = after == pieces.begin() ? nullptr : &*std::prev(after);
    const ZLSoundPiece* next = after == pieces.end() ? nullptr : &*after;
    if (former && showTime < former->showEnd())
        return { ZLMomentState::Kept, former->fileTimeOf(showTime), confidenceIn(*former) };
    if (!next && showTime > m_alignment.showLength)
        return {};
    return placeBetween(former, next, showTime, spanEnd);
}

ZLMappedMoment ZLShowMap::placeBetween(
    const ZLSoundPiece* former, const ZLSoundPiece* next, double showTime, double spanEnd) const
{
    const double fileBegin = former ? former->fileEnd() : 0.0;
    const double fileEnd = next ? next->fileStart : m_alignment.fileLength;
    const double confidence = std::min(former ? confidenceIn(*former) : 1.0, next ? confidenceIn(*next) : 1.0);
    if (former && next && lieAtOneDistance(*former, *next))
        return { ZLMomentState::Kept, former->fileTimeOf(showTime), confidence * doubt };
    const double between = std::max(fileEnd - fileBegin, 0.0);
    const bool isPause = former && next && between < mostOfPause;
    const double unrecognised = isPause ? between / 2.0 : std::min(partOfPause, between);
    if (former && showTime - former->showEnd() < unrecognised)
        return { ZLMomentState::Kept, former->fileTimeOf(showTime), confidence * doubt };
    if (next && next->showStart - showTime <= unrecognised)
        return { ZLMomentState::Kept, next->fileTimeOf(showTime), confidence * doubt };
    const bool isCutAlone = !former || !next || isPause;
    return { isPartOfSpanKept(showTime, spanEnd) ? ZLMomentState::Seam : ZLMomentState::Cut,
        next ? fileEnd - unrecognised : fileBegin, isCutAlone ? confidence : confidence * doubt };
}

bool ZLShowMap::isPartOfSpanKept(double showTime, double spanEnd) const
{
    return std::ranges::any_of(m_alignment.pieces, [=](const ZLSoundPiece& piece) {
        return std::min(piece.showEnd(), spanEnd) - std::max(piece.showStart, showTime) >= leastPart;
    });
}
