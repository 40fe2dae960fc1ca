#include "alignment/ZLPauseEvidence.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>

namespace {

using ZLFrameAlignment::Frames;

constexpr size_t numberOfBits = 32;
/// Around a frame, on each side: whether frames agree cannot be said of one alone.
constexpr std::int64_t framesAround = 7;
/// Where so many bits differ around a frame of a piece, it is a pause.
constexpr double leastShareOfPause = 0.43;
constexpr std::int64_t leastFramesOfPauses = 60;
constexpr std::int64_t leastFramesOfSpeech = 300;
constexpr double mostOfOneFrame = 2.0;
/// Of the shorter sound. Where two shows have a jingle in common, what cannot be recognised in it is speech.
constexpr double leastCoverOfExamples = 0.4;

/// What can be told of a frame without another sound: how many bits changed since the frame before, and from each band
/// to the next one.
struct Change {
    size_t inTime;
    size_t inBands;
};

Change changeAt(Frames frames, size_t frame)
{
    const std::uint32_t bits = frames[frame];
    const std::uint32_t former = frames[frame == 0 ? 0 : frame - 1];
    constexpr std::uint32_t allButHighest = 0x7FFFFFFFU;
    return { size_t(std::popcount(bits ^ former)), size_t(std::popcount((bits ^ (bits >> 1U)) & allButHighest)) };
}

/// How often each number of changed bits comes.
struct Frequencies {
    std::array<double, numberOfBits + 1> counts {};
    double total = 0.0;

    void add(size_t changed)
    {
        // Neighbouring numbers are alike, and a few examples do not have all of them.
        counts[changed] += 1.0;
        counts[std::min(changed + 1, numberOfBits)] += 0.5;
        counts[changed == 0 ? 0 : changed - 1] += 0.5;
        total += 2.0;
    }
    [[nodiscard]] double logarithmOf(size_t changed) const
    {
        return std::log((counts[changed] + 1.0) / (total + double(numberOfBits) + 1.0));
    }
};

struct Kind {
    Frequencies inTime {};
    Frequencies inBands {};

    void add(const Change& change)
    {
        inTime.add(change.inTime);
        inBands.add(change.inBands);
    }
    [[nodiscard]] double logarithmOf(const Change& change) const
    {
        return inTime.logarithmOf(change.inTime) + inBands.logarithmOf(change.inBands);
    }
};

struct FramePair {
    size_t show;
    size_t file;
};

struct Examples {
    std::vector<FramePair> pauses {};
    std::vector<FramePair> speech {};
};

std::vector<FramePair> framesOf(const ZLSoundPiece& piece, Frames show, Frames file)
{
    std::vector<FramePair> pairs;
    const auto first = std::llround(std::ceil(piece.showStart / ZLSoundFingerprint::SecondsPerFrame));
    const auto last = std::min(
        std::llround(piece.showEnd() / ZLSoundFingerprint::SecondsPerFrame), static_cast<long long>(show.size()));
    for (std::int64_t frame = first; frame < last; ++frame) {
        const double time = piece.fileTimeOf(double(frame) * ZLSoundFingerprint::SecondsPerFrame);
        const auto there = std::llround(time / ZLSoundFingerprint::SecondsPerFrame);
        if (there >= 0 && there < std::int64_t(file.size()))
            pairs.push_back({ size_t(frame), size_t(there) });
    }
    return pairs;
}

Examples examplesIn(const std::vector<ZLSoundPiece>& pieces, Frames show, Frames file)
{
    Examples examples;
    for (const ZLSoundPiece& piece : pieces) {
        const auto pairs = framesOf(piece, show, file);
        std::vector<std::int64_t> sums { 0 };
        for (const FramePair& pair : pairs)
            sums.push_back(sums.back() + std::popcount(show[pair.show] ^ file[pair.file]));
        for (std::int64_t index = framesAround; index + framesAround < std::int64_t(pairs.size()); ++index) {
            const double differing = double(sums[size_t(index + framesAround + 1)] - sums[size_t(index - framesAround)])
                / double(numberOfBits * (2 * framesAround + 1));
            if (differing >= leastShareOfPause)
                examples.pauses.push_back(pairs[size_t(index)]);
            else if (differing < piece.differingShare)
                examples.speech.push_back(pairs[size_t(index)]);
        }
    }
    return examples;
}

std::vector<double> sumsOf(const Kind& pause, const Kind& speech, Frames frames)
{
    std::vector<double> sums { 0.0 };
    for (size_t frame = 0; frame < frames.size(); ++frame) {
        const Change change = changeAt(frames, frame);
        const double worth = ZLPauseEvidence::ShareOfFrame * (pause.logarithmOf(change) - speech.logarithmOf(change));
        sums.push_back(sums.back() + std::clamp(worth, -mostOfOneFrame, mostOfOneFrame));
    }
    return sums;
}

std::vector<double> learned(const Examples& examples, Frames frames, size_t FramePair::* side)
{
    Kind pause;
    Kind speech;
    for (const FramePair& pair : examples.pauses)
        pause.add(changeAt(frames, pair.*side));
    for (const FramePair& pair : examples.speech)
        speech.add(changeAt(frames, pair.*side));
    return sumsOf(pause, speech, frames);
}

bool coverEnough(const std::vector<ZLSoundPiece>& pieces, Frames show, Frames file)
{
    double covered = 0.0;
    for (const ZLSoundPiece& piece : pieces)
        covered += piece.length;
    return covered
        >= leastCoverOfExamples * double(std::min(show.size(), file.size())) * ZLSoundFingerprint::SecondsPerFrame;
}

}

ZLPauseEvidence::ZLPauseEvidence(const std::vector<ZLSoundPiece>& pieces, Frames show, Frames file)
{
    if (!coverEnough(pieces, show, file))
        return;
    const Examples examples = examplesIn(pieces, show, file);
    if (std::int64_t(examples.pauses.size()) < leastFramesOfPauses
        || std::int64_t(examples.speech.size()) < leastFramesOfSpeech)
        return;
    m_show = learned(examples, show, &FramePair::show);
    m_file = learned(examples, file, &FramePair::file);
}

double ZLPauseEvidence::between(const Sums& sums, std::int64_t begin, std::int64_t end)
{
    const auto last = std::int64_t(sums.size()) - 1;
    return sums[size_t(std::clamp(end, std::int64_t(0), last))]
        - sums[size_t(std::clamp(begin, std::int64_t(0), last))];
}
