#include "alignment/ZLRepeatedEnds.h"

#include "alignment/ZLPieceEvidence.h"

#include <algorithm>

namespace {

using ZLFrameAlignment::Frames;

/// In frames: the end of a piece may be so far off.
constexpr std::int64_t mostOff = 25;
/// In seconds. What is shorter is a word or a beat.
constexpr double leastRepeated = 1.0;
/// As ZLFrameAlignment::agreement() counts it. Chance alone does not reach it.
constexpr double leastAgreement = 12.0;

/// From frame `begin` up to frame `end`, as far as there are such.
Frames stretch(Frames frames, std::int64_t begin, std::int64_t end)
{
    const auto size = std::int64_t(frames.size());
    const std::int64_t first = std::clamp<std::int64_t>(begin, 0, size);
    return frames.subspan(
        size_t(first), size_t(std::max(std::clamp<std::int64_t>(end, 0, size) - first, std::int64_t(0))));
}

Frames soundOf(const ZLSoundPiece& piece, Frames file)
{
    return stretch(file, ZLSoundFingerprint::frameAt(piece.fileStart), ZLSoundFingerprint::frameAt(piece.fileEnd()));
}

/// In seconds; 0 where the sound says too little.
double repeated(Frames cut, Frames kept, double shareElsewhere)
{
    const auto count = double(cut.size());
    const double seconds = count * ZLSoundFingerprint::SecondsPerFrame;
    const double share = ZLFrameAlignment::differingShare(cut, kept);
    return seconds >= leastRepeated && ZLPieceEvidence::agreement(count, share, shareElsewhere) >= leastAgreement
        ? seconds
        : 0.0;
}

/// How much of the end of `kept` is also the end of `cut`.
double repeatedAtEnd(Frames cut, Frames kept, double shareElsewhere)
{
    const auto same = size_t(ZLFrameAlignment::sameAtEnd(cut, kept));
    return repeated(cut.last(same), kept.last(same), shareElsewhere);
}

/// How much of the beginning of `kept` is also the beginning of `cut`.
double repeatedAtBeginning(Frames cut, Frames kept, double shareElsewhere)
{
    const auto same = size_t(ZLFrameAlignment::sameAtBeginning(cut, kept));
    return repeated(cut.first(same), kept.first(same), shareElsewhere);
}

}

void ZLRepeatedEnds::find(std::vector<ZLSoundPiece>& pieces, Frames show, Frames file)
{
    for (size_t index = 1; index < pieces.size(); ++index) {
        ZLSoundPiece& former = pieces[index - 1];
        ZLSoundPiece& next = pieces[index];
        const std::int64_t cutBegin = ZLSoundFingerprint::frameAt(former.showEnd());
        const std::int64_t cutEnd = ZLSoundFingerprint::frameAt(next.showStart);
        for (std::int64_t off = -mostOff; off <= mostOff; ++off) {
            former.endRepeats = std::max(former.endRepeats,
                repeatedAtEnd(stretch(show, cutBegin, cutEnd + off), soundOf(former, file), former.shareElsewhere));
            next.beginRepeats = std::max(next.beginRepeats,
                repeatedAtBeginning(stretch(show, cutBegin + off, cutEnd), soundOf(next, file), next.shareElsewhere));
        }
    }
}
