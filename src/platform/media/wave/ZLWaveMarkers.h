#pragma once

#include "platform/media/ZLMediaChapter.h"
#include "platform/media/ZLMediaSource.h"
#include "platform/media/wave/ZLWaveChunks.h"

#include <optional>

/// The markers of a WAV file: a chunk `cue ` with a sample position each, and labels in a list of the kind `adtl`.
namespace ZLWaveMarkers {

/// The sound of the file, as far as positions need it.
struct Sound {
    /// Samples a second.
    quint32 rate = 0;
    /// Milliseconds.
    qint64 length = 0;
};

/// The last chapter ends with the sound.
[[nodiscard]] ZLMediaChapters read(const ZLMediaSource& source, const ZLWaveChunks& chunks, const Sound& sound);

/// Whether the chunk has markers, or texts that belong to them.
[[nodiscard]] bool isOfMarkers(const ZLWaveChunk& chunk);

/// Whether there is more in the lists than labels: notes, or regions with their lengths.
[[nodiscard]] bool haveMoreThanLabels(const ZLMediaSource& source, const ZLWaveChunks& chunks);

/// Both chunks for these chapters; no bytes for none.
[[nodiscard]] QByteArray bytes(const ZLMediaChapters& chapters, quint32 rate);

}
