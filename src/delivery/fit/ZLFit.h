#pragma once

#include "alignment/ZLShowMap.h"
#include "model/ZLChapter.h"

#include <QList>

/// Where one chapter is in the finished file.
struct ZLFittedChapter {
    ZLChapterPointer chapter {};
    /// Seconds on the recording clock.
    double oldTime = 0.0;
    ZLMappedMoment place {};

    /// Whether the finished file has something of the chapter.
    [[nodiscard]] bool isInFile() const
    {
        return place.state == ZLMomentState::Kept || place.state == ZLMomentState::Seam;
    }
};

/// The chapters of a show, found again in a finished file.
struct ZLFit {
    QList<ZLFittedChapter> chapters {};
    ZLSoundAlignment alignment {};

    [[nodiscard]] bool isTheShow() const { return alignment.isTheShow(); }

    /// `chapters` are in ascending time order. `zero` is the place of the recording clock's zero in the sound that the
    /// alignment calls the show, in seconds.
    [[nodiscard]] static ZLFit of(const ZLChapterSequence& chapters, const ZLSoundAlignment& alignment, double zero);
    /// Copies of the chapters at their new times. Those that are not in the file are not enabled; one that was not
    /// found keeps its time.
    [[nodiscard]] ZLChapterSequence fittedChapters() const;
};
