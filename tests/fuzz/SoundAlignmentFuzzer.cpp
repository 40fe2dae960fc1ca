// Any samples, as a decoder may give them, in parts of any size: a fingerprint has a frame for each 20 ms, whatever the
// parts were, and what two of them share lies within both and in order.
#include "alignment/ZLFingerprinter.h"
#include "alignment/ZLSoundAlignment.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace {

/// A quarter of a minute, so that an input takes no longer than it says something.
constexpr std::size_t mostSamples = 120'000;
constexpr double oneFrame = 2.0 * ZLSoundFingerprint::SecondsPerFrame;

void require(bool holds)
{
    if (!holds)
        std::abort();
}

ZLSoundFingerprint fingerprintOf(std::span<const float> samples, std::size_t samplesAtOnce)
{
    ZLFingerprinter fingerprinter;
    ZLSoundFingerprint fingerprint;
    const auto take = [&] {
        const auto frames = fingerprinter.takeFrames();
        fingerprint.frames.insert(fingerprint.frames.end(), frames.begin(), frames.end());
    };
    for (std::size_t at = 0; at < samples.size(); at += samplesAtOnce) {
        fingerprinter.hear(samples.subspan(at, std::min(samplesAtOnce, samples.size() - at)));
        take();
    }
    fingerprinter.finish();
    take();
    return fingerprint;
}

void requireInOrder(const ZLSoundAlignment& alignment)
{
    double show = -oneFrame;
    double file = -oneFrame;
    for (const ZLSoundPiece& piece : alignment.pieces) {
        require(std::isfinite(piece.rate) && piece.length > 0.0 && piece.showStart >= 0.0 && piece.fileStart >= 0.0);
        require(piece.beginDoubt > 0.0 && piece.endDoubt > 0.0 && std::isfinite(piece.beginDoubt + piece.endDoubt));
        require(piece.showStart >= show - oneFrame && piece.fileStart >= file - oneFrame);
        show = piece.showEnd();
        file = piece.fileEnd();
        require(show <= alignment.showLength + oneFrame && file <= alignment.fileLength + oneFrame);
    }
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    if (size < 2)
        return 0;
    const std::size_t samplesAtOnce = std::size_t(bytes[0]) * 7 + 1;
    std::vector<float> samples(std::min((size - 2) / sizeof(float), mostSamples));
    // A vector without elements may have no storage at all.
    if (!samples.empty())
        std::memcpy(samples.data(), bytes + 2, samples.size() * sizeof(float));
    const std::size_t split = samples.size() * bytes[1] / 255;
    const auto show = fingerprintOf(std::span(samples).first(split), samplesAtOnce);
    const auto file = fingerprintOf(std::span(samples).subspan(split), samplesAtOnce);
    require(show.frames == ZLFingerprinter::of(std::span(samples).first(split)).frames);
    ZLWorkProgress progress;
    requireInOrder(ZLSoundAlignment::of(show, file, progress));
    return 0;
}
