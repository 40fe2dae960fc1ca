#pragma once

#include "platform/media/ZLMediaChapter.h"

#include <limits>

enum class ZLMediaForm { MP3, MP4, OggVorbis, Opus, FLAC, Wave };

enum class ZLMediaLinks { Kept, NotKept };

/// What a media file says about itself, and what its form can hold.
struct ZLMediaContents {
    ZLMediaForm form = ZLMediaForm::MP3;
    /// What a person calls the form, such as "MP3" or "M4A".
    QString formName {};
    /// Milliseconds.
    qint64 length = 0;
    /// Rising by their start.
    ZLMediaChapters chapters {};
    /// Starts, in milliseconds, of those chapters that have a picture or something else of their own which only a new
    /// chapter at the same time can take over.
    QList<qint64> pictures {};
    /// The pictures stay only where all chapters keep their times.
    bool keepsPicturesTogether = false;

    qsizetype mostChapters = 0;
    /// The last place, in milliseconds, at which a chapter can stand.
    qint64 latestStart = std::numeric_limits<qint64>::max();
    ZLMediaLinks links = ZLMediaLinks::Kept;
    /// What writing changes beside the chapters, one sentence each for a person to read before.
    QStringList changes {};

    bool operator==(const ZLMediaContents&) const = default;
};
