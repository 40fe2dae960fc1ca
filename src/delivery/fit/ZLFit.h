#pragma once

#include "alignment/ZLShowMap.h"
#include "delivery/fit/ZLShowMarks.h"

/// Where one chapter is in the finished file.
struct ZLFittedChapter {
    ZLShowMark mark {};
    ZLMappedMoment place {};

    /// Seconds, as the chapter stands now.
    [[nodiscard]] double oldTime() const { return mark.chapter->timeStamp(); }
    [[nodiscard]] bool isFound() const { return place.state != ZLMomentState::NotFound; }
    /// Where it is in the finished file; what was not found stays where it is.
    [[nodiscard]] double newTime() const { return isFound() ? place.fileTime : oldTime(); }
    /// Whether the finished file has something of the chapter.
    [[nodiscard]] bool isInFile() const
    {
        return place.state == ZLMomentState::Kept || place.state == ZLMomentState::Seam;
    }
    [[nodiscard]] bool isEnabledThere() const { return mark.isWanted && isInFile(); }
};

/// The chapters of a show, found again in a finished file.
struct ZLFit {
    /// In the order of the show.
    QList<ZLFittedChapter> chapters {};
    ZLSoundAlignment alignment {};
    /// The place of the recording clock's zero in the sound that the alignment calls the show, in seconds.
    double zero = 0.0;

    [[nodiscard]] bool isTheShow() const { return alignment.isTheShow(); }
    [[nodiscard]] qsizetype count(ZLMomentState state) const;

    [[nodiscard]] static ZLFit of(const ZLShowMarks& marks, const ZLSoundAlignment& alignment, double zero);
    /// Copies of the chapters at their new times, in the order of `chapters`. Those that are not in the file are not
    /// enabled; one that was not found keeps its time.
    [[nodiscard]] ZLChapterSequence fittedChapters() const;
};
