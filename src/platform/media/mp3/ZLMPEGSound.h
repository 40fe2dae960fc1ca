#pragma once

#include "platform/media/ZLMediaSource.h"

#include <optional>

/// The sound frames of an MP3 file.
namespace ZLMPEGSound {

/// Where the first frame stands, at `offset` or not far behind.
[[nodiscard]] std::optional<qint64> firstFrame(const ZLMediaSource& source, qint64 offset);

/// The length of the sound from `firstFrame` on, in milliseconds. An encoder's own count of frames is believed; where
/// there is none, the frames are counted.
[[nodiscard]] qint64 length(const ZLMediaSource& source, qint64 firstFrame);

}
