#pragma once

#include "platform/media/decoding/ZLSoundDecoder.h"

/// The files that the program ffmpeg reads, where it is installed.
namespace ZLFfmpegReader {

/// The error does not name the file.
[[nodiscard]] ZLStatus decode(
    const QString& path, int samplesPerSecond, const ZLSoundDecoder::Sink& sink, double start);
/// How long the file says it is, by the program ffprobe, which comes with ffmpeg.
[[nodiscard]] std::optional<double> claimedSeconds(const QString& path);

}
