#pragma once

#include "platform/media/mp4/ZLMP4Atoms.h"

/// One track of a movie, as far as chapters need it.
struct ZLMP4Track {
    ZLMP4Atom atom {};
    quint32 id = 0;
    /// "soun", "text" and so on.
    QByteArray handler {};
    /// Units a second of the track's own times.
    quint32 timescale = 0;
    /// In the movie's units.
    qint64 duration = 0;
    /// The tracks that it names as its chapters.
    QList<quint32> chapterTracks {};

    /// Chapters as texts, as opposed to pictures.
    [[nodiscard]] bool hasTexts() const { return handler == "text" || handler == "sbtl"; }
};

/// An MP4 file taken apart as far as chapters need it.
struct ZLMP4Movie {
    ZLMP4AtomList atoms {};
    ZLMP4Atom moov {};
    /// Inside of moov.
    ZLMP4AtomList parts {};
    QList<ZLMP4Track> tracks {};
    /// Units a second of the movie's times.
    quint32 timescale = 0;
    /// In those units.
    qint64 duration = 0;
    quint32 nextTrackId = 0;

    [[nodiscard]] const ZLMP4Track* track(quint32 id) const;
    /// Those that another track names as its chapters.
    [[nodiscard]] QList<ZLMP4Track> chapterTracks() const;
    /// The length of the sound, in milliseconds.
    [[nodiscard]] qint64 length() const;

    [[nodiscard]] static bool isMovie(const ZLMediaSource& source);
    /// The error says what about the file is not understood.
    [[nodiscard]] static ZLResult<ZLMP4Movie> read(const ZLMediaSource& source);
};
