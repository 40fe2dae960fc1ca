#pragma once

#include "platform/ZLResult.h"

#include <QString>

#include <functional>
#include <optional>
#include <span>

/// What a media file sounds like. libsndfile reads WAV, FLAC, Ogg, Opus and MP3; all else, video too, goes through the
/// program ffmpeg where it is installed.
namespace ZLSoundDecoder {

/// Gets the samples one part after the other; false ends the decoding, which then is a success.
using Sink = std::function<bool(std::span<const float>)>;

/// No file is read any farther.
inline constexpr double MostSeconds = 48.0 * 3600.0;

/// All channels mixed into one, `samplesPerSecond` a second, from -1 to 1, beginning `start` seconds after the
/// beginning of the file. The error names the file.
[[nodiscard]] ZLStatus decode(const QString& path, int samplesPerSecond, const Sink& sink, double start = 0.0);

/// How long the sound in the file claims to be; nothing where that is not told without decoding it.
[[nodiscard]] std::optional<double> claimedSeconds(const QString& path);
/// The same, also of the files that go through ffmpeg, which count picture and sound as one. It may take a while.
[[nodiscard]] std::optional<double> expectedSeconds(const QString& path);

}
