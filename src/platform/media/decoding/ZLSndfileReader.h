#pragma once

#include "platform/media/ZLMediaSource.h"
#include "platform/media/decoding/ZLSoundDecoder.h"

#include <memory>
#include <optional>

/// The files that libsndfile reads.
namespace ZLSndfileReader {

/// Nothing when the library does not know the file's form.
[[nodiscard]] std::optional<ZLStatus> decode(
    const ZLMediaSource& source, int samplesPerSecond, const ZLSoundDecoder::Sink& sink, double start);
[[nodiscard]] std::optional<double> claimedSeconds(const ZLMediaSource& source);

}
