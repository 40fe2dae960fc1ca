#pragma once

#include "platform/media/ZLFilePieces.h"
#include "platform/media/ZLMediaChapter.h"
#include "platform/media/mp4/ZLMP4Movie.h"

/// Makes an MP4 file with other chapters. No sound moves: the texts and the new description stand behind everything
/// else, and the old description becomes free space. Where the description is at the beginning and the new one fits
/// into its place, it stays there.
class ZLMP4Rewriter {
public:
    ZLMP4Rewriter(const ZLMediaSource& source, const ZLMP4Movie& movie, const ZLMediaChapters& chapters);

    [[nodiscard]] ZLResult<ZLFilePieces> pieces() const;

    /// Whether the pictures of the former chapters stay: they do when the new chapters stand at the same times.
    [[nodiscard]] static bool keepsPictures(const ZLMediaChapters& former, const ZLMediaChapters& chapters);

private:
    [[nodiscard]] bool isRemoved(quint32 track) const { return m_removedTracks.contains(track); }
    [[nodiscard]] bool isFormerTexts(const ZLMP4Atom& atom) const;
    [[nodiscard]] qint64 endOfKept() const;
    [[nodiscard]] qint64 roomForDescription() const;

    [[nodiscard]] ZLFilePieces withDescriptionInPlace(const ZLFilePieces& description, qint64 end) const;
    [[nodiscard]] ZLFilePieces withFreedDescription(qint64 end) const;
    [[nodiscard]] ZLFilePieces description(qint64 placeOfTexts) const;
    [[nodiscard]] ZLFilePieces trackWithReference(const ZLMP4Track& track) const;
    [[nodiscard]] ZLFilePieces references(const ZLMP4Track& track) const;
    [[nodiscard]] ZLFilePieces movieHeader(const ZLMP4Atom& header) const;
    [[nodiscard]] ZLFilePieces userData(const ZLMP4Atom* former) const;
    [[nodiscard]] ZLFilePieces wholeAtom(const ZLMP4Atom& atom) const;

    const ZLMediaSource& m_source;
    const ZLMP4Movie& m_movie;
    const ZLMediaChapters& m_chapters;
    QList<quint32> m_removedTracks;
    /// Tracks with pictures that stay chapters.
    QList<quint32> m_keptTracks;
    quint32 m_newTrack = 0;
};
