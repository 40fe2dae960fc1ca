#pragma once

#include "alignment/ZLSoundFingerprint.h"
#include "platform/ZLWorkProgress.h"

#include <vector>

/// A piece of the show that is in the file without a break. All times are in seconds.
struct ZLSoundPiece {
    double showStart = 0.0;
    double fileStart = 0.0;
    /// In the show.
    double length = 0.0;
    /// Seconds of the file for one of the show: 1 but for the clocks of the two devices.
    double rate = 1.0;
    /// Share of the bits that differ, from 0 to 1: how sure it is that they are the same.
    double differingShare = 0.0;
    /// The least such share at other places near by: how sure the place is. By chance it is about a half.
    double shareElsewhere = 0.5;
    /// By how many seconds the beginning and the end may be off, at two thirds of all seams.
    double beginDoubt = 0.1;
    double endDoubt = 0.1;
    /// So many seconds at its beginning and at its end are in the show once more, at the far end of the cut beside
    /// them.
    double beginRepeats = 0.0;
    double endRepeats = 0.0;

    [[nodiscard]] double showEnd() const { return showStart + length; }
    [[nodiscard]] double fileEnd() const { return fileStart + length * rate; }
    [[nodiscard]] double fileTimeOf(double showTime) const { return fileStart + (showTime - showStart) * rate; }
};

/// Which pieces of a show are in a finished file, in the order of both.
struct ZLSoundAlignment {
    std::vector<ZLSoundPiece> pieces {};
    /// What else of the show is in the file, out of order: a teaser in front of it, for example.
    std::vector<ZLSoundPiece> movedPieces {};
    double showLength = 0.0;
    double fileLength = 0.0;

    /// Whether the pieces cover a tenth of the shorter one at least.
    [[nodiscard]] bool isTheShow() const;

    /// Empty when cancelled.
    [[nodiscard]] static ZLSoundAlignment of(
        const ZLSoundFingerprint& show, const ZLSoundFingerprint& file, ZLWorkProgress& progress);
};
