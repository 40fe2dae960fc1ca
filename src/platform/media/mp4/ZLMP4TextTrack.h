#pragma once

#include "platform/media/ZLMediaChapter.h"
#include "platform/media/mp4/ZLMP4Movie.h"
#include "platform/media/mp4/ZLMP4Samples.h"

/// Chapters as a QuickTime text track: a sample with the title each, which lasts as long as the chapter.
namespace ZLMP4TextTrack {

[[nodiscard]] QList<ZLMP4Sample> samples(const ZLMediaSource& source, const ZLMP4Track& track);
[[nodiscard]] ZLMediaChapters read(const ZLMediaSource& source, const ZLMP4Track& track, quint32 movieTimescale);

/// What stands in the file for the samples, one behind the other.
[[nodiscard]] QByteArray texts(const ZLMediaChapters& chapters);

/// The track itself, whose texts begin at `placeOfTexts` in the file.
[[nodiscard]] QByteArray track(
    const ZLMediaChapters& chapters, quint32 id, quint32 movieTimescale, qint64 placeOfTexts);

}
