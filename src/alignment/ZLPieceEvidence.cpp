#include "alignment/ZLPieceEvidence.h"

#include "alignment/ZLSoundFingerprint.h"

#include <algorithm>
#include <bit>
#include <cstdlib>

namespace {

using ZLFrameAlignment::Frames;

/// In frames: as near, it is the same sound still.
constexpr std::int64_t nearest = 10;
/// Bars and beats are shorter.
constexpr std::int64_t farthest = 500;
/// So many frames of a piece stand for all of them.
constexpr std::int64_t mostSamples = 300;
/// Fewer frames say nothing.
constexpr std::int64_t leastSamples = 12;
/// Of many places that are alike, the best one is better than the next by less, and was chosen for that.
constexpr double leastAdvantage = 0.06;

struct FramePair {
    std::int64_t show;
    std::int64_t file;
};

std::vector<FramePair> samplesOf(const ZLDriftingRuns& piece)
{
    std::int64_t count = 0;
    for (const ZLFrameRun& run : piece)
        count += run.count;
    const std::int64_t step = std::max<std::int64_t>(count / mostSamples, 1);
    std::vector<FramePair> samples;
    for (const ZLFrameRun& run : piece) {
        for (std::int64_t frame = 0; frame < run.count; frame += step)
            samples.push_back({ run.showFrame + frame, run.fileFrame + frame });
    }
    return samples;
}

bool isIn(std::int64_t frame, Frames frames)
{
    return frame >= 0 && frame < std::int64_t(frames.size());
}

/// As many bits as differ when one of both is taken from so many frames later; as by chance when few of them are there.
double shareWhenMoved(
    const std::vector<FramePair>& samples, std::int64_t showMove, std::int64_t fileMove, Frames show, Frames file)
{
    double differing = 0.0;
    std::int64_t count = 0;
    for (const FramePair& pair : samples) {
        if (isIn(pair.show + showMove, show) && isIn(pair.file + fileMove, file)) {
            differing += std::popcount(show[size_t(pair.show + showMove)] ^ file[size_t(pair.file + fileMove)]);
            ++count;
        }
    }
    const bool isEnough = count >= leastSamples && 2 * count >= std::int64_t(samples.size());
    return isEnough ? differing / (double(ZLSoundFingerprint::BitsPerFrame) * double(count)) : 0.5;
}

}

double ZLPieceEvidence::shareElsewhere(const ZLDriftingRuns& piece, Frames show, Frames file)
{
    const auto samples = samplesOf(piece);
    double least = 0.5;
    for (std::int64_t move = nearest; move <= farthest; ++move) {
        for (const std::int64_t signedMove : { move, -move }) {
            least = std::min({ least, shareWhenMoved(samples, signedMove, 0, show, file),
                shareWhenMoved(samples, 0, signedMove, show, file) });
        }
    }
    return least;
}

double ZLPieceEvidence::worthlessShare(double shareElsewhere)
{
    return std::min(shareElsewhere - leastAdvantage, ZLFrameAlignment::WorthlessShare);
}

double ZLPieceEvidence::agreement(double frames, double differingShare, double shareElsewhere)
{
    return frames * std::max(worthlessShare(shareElsewhere) - differingShare, 0.0);
}
