#include "alignment/ZLShowMap.h"

#include "alignment/ZLPieceEvidence.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace {

/// Two pieces at the same distance, within it, are one piece with something unrecognised in between.
constexpr double mostChangeOfDistance = 0.1;
/// Less of what follows a moment is no part of it.
constexpr double leastPart = 0.2;
constexpr double mostSecondsOfEvidence = 10.0;
constexpr double agreementOfSureness = 20.0;
/// Nothing tells which of two it was: whether this was cut out or something else came in, which may be a short part of
/// the show; or which of two parts that sound the same was kept.
constexpr double doubt = 0.5;
/// In seconds.
constexpr double leastInsertion = 0.5;
/// In seconds. A moment as near to something that came in may lie on its other side, which is far off.
constexpr double doubtBesideInsertion = 0.3;
/// In seconds. A seam that is found as near is found.
constexpr double nearSeam = 0.4;

double confidenceIn(const ZLSoundPiece& piece)
{
    const double frames = std::min(piece.length, mostSecondsOfEvidence) / ZLSoundFingerprint::SecondsPerFrame;
    return 1.0
        - std::exp(
            -ZLPieceEvidence::agreement(frames, piece.differingShare, piece.shareElsewhere) / agreementOfSureness);
}

/// How likely it is that an end lies within `distance` on the one side of where it was found, and anywhere on the
/// other.
double surenessBeside(double distance, double endDoubt)
{
    return 0.5 * std::erfc(-distance / (std::numbers::sqrt2 * endDoubt));
}

/// How far an end beside so many seconds that came in may be off.
double doubtBeside(double insertion, double endDoubt)
{
    return insertion >= leastInsertion ? std::max(endDoubt, doubtBesideInsertion) : endDoubt;
}

/// How likely it is that an end lies within `distance` on both sides.
double surenessWithin(double distance, double endDoubt)
{
    return std::erf(distance / (std::numbers::sqrt2 * endDoubt));
}

/// Whether the show has this moment of the piece once more, in a cut beside it.
bool isRepeated(const ZLSoundPiece& piece, double showTime)
{
    return showTime < piece.showStart + piece.beginRepeats || showTime >= piece.showEnd() - piece.endRepeats;
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
        return { ZLMomentState::Kept, former->fileTimeOf(showTime),
            confidenceIn(*former) * surenessOf(*former, showTime) };
    if (!next && showTime > m_alignment.showLength)
        return {};
    return placeBetween(former, next, showTime, spanEnd);
}

/// How likely it is that the moment is one of the piece that has it.
double ZLShowMap::surenessOf(const ZLSoundPiece& piece, double showTime) const
{
    const auto& pieces = m_alignment.pieces;
    const auto index = &piece - pieces.data();
    const double before = piece.fileStart - (index == 0 ? 0.0 : pieces[size_t(index - 1)].fileEnd());
    const double behind =
        (size_t(index + 1) == pieces.size() ? m_alignment.fileLength : pieces[size_t(index + 1)].fileStart)
        - piece.fileEnd();
    return (isRepeated(piece, showTime) ? doubt : 1.0)
        * surenessBeside(showTime - piece.showStart, doubtBeside(before, piece.beginDoubt))
        * surenessBeside(piece.showEnd() - showTime, doubtBeside(behind, piece.endDoubt));
}

ZLMappedMoment ZLShowMap::placeBetween(
    const ZLSoundPiece* former, const ZLSoundPiece* next, double showTime, double spanEnd) const
{
    double confidence = std::min(former ? confidenceIn(*former) : 1.0, next ? confidenceIn(*next) : 1.0);
    if (former && next && lieAtOneDistance(*former, *next))
        return { ZLMomentState::Kept, former->fileTimeOf(showTime), confidence * doubt };
    const double fileBegin = former ? former->fileEnd() : 0.0;
    const double fileEnd = next ? next->fileStart : m_alignment.fileLength;
    const double insertion = fileEnd - fileBegin;
    const bool repeats = (former && former->endRepeats > 0.0) || (next && next->beginRepeats > 0.0);
    if (insertion >= leastInsertion || repeats)
        confidence *= doubt;
    if (former)
        confidence *= surenessBeside(showTime - former->showEnd(), doubtBeside(insertion, former->endDoubt));
    if (next)
        confidence *= surenessBeside(next->showStart - showTime, doubtBeside(insertion, next->beginDoubt));
    const ZLMomentState state = isPartOfSpanKept(showTime, spanEnd) ? ZLMomentState::Seam : ZLMomentState::Cut;
    return { state, next ? fileEnd : fileBegin,
        confidence * surenessWithin(nearSeam, next ? next->beginDoubt : former->endDoubt) };
}

bool ZLShowMap::isPartOfSpanKept(double showTime, double spanEnd) const
{
    return std::ranges::any_of(m_alignment.pieces, [=](const ZLSoundPiece& piece) {
        return std::min(piece.showEnd(), spanEnd) - std::max(piece.showStart, showTime) >= leastPart;
    });
}
