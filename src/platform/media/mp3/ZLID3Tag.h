#pragma once

#include "platform/media/ZLMediaSource.h"

#include <QList>

/// One frame of an ID3v2 tag, as it stands in the file.
struct ZLID3Frame {
    QByteArray id {};
    /// Header and contents; after the reversal of a whole tag's unsynchronisation.
    QByteArray bytes {};

    [[nodiscard]] QByteArray contents() const { return bytes.mid(10); }
};

/// An ID3v2 tag taken apart into its frames, without a look into them: what is not known stays as it is. A tag of
/// version 2.2 is made one of 2.3. The tag that is written is not unsynchronised, since some readers find no chapters
/// in one that is.
class ZLID3Tag {
public:
    /// The bytes that a tag at `offset` takes up, with a footer; 0 when there is none.
    [[nodiscard]] static qint64 sizeAt(const ZLMediaSource& source, qint64 offset);

    /// The tag at `offset`, or an empty one of version 2.3 when there is none.
    [[nodiscard]] static ZLResult<ZLID3Tag> readAt(const ZLMediaSource& source, qint64 offset);

    /// 3 or 4.
    [[nodiscard]] int version() const { return m_version; }
    /// 2, 3 or 4: that of the tag in the file.
    [[nodiscard]] int formerVersion() const { return m_formerVersion; }
    /// What the file has, with its padding.
    [[nodiscard]] qint64 formerSize() const { return m_formerSize; }
    /// Frames of version 2.2 that version 2.3 does not know.
    [[nodiscard]] int lostFrames() const { return m_lostFrames; }

    [[nodiscard]] const QList<ZLID3Frame>& frames() const { return m_frames; }
    void removeFrames(const QByteArray& id);
    void append(const ZLID3Frame& frame) { m_frames.append(frame); }

    /// A header of ten bytes that says so much.
    [[nodiscard]] QByteArray header(qint64 sizeBehindHeader) const;
    /// The whole tag. Padding makes it as long as the former one where it fits, see ZLPadding. The error is that it is
    /// too large.
    [[nodiscard]] ZLResult<QByteArray> bytes() const;

    /// The frames in `bytes`, which stand behind a header of version 3 or 4; `end` is where they end. A tag with
    /// thousands of them is not read to its end.
    [[nodiscard]] static QList<ZLID3Frame> splitFrames(const QByteArray& bytes, int version, qsizetype& end);

    /// A size in four bytes of seven bits, as headers of tags and of frames in version 2.4 have it.
    [[nodiscard]] static QByteArray synchsafe(qint64 size);

private:
    int m_version = 3;
    int m_formerVersion = 3;
    qint64 m_formerSize = 0;
    int m_lostFrames = 0;
    /// What the header says of the whole tag: that it is an experiment, or nothing.
    char m_flags = 0;
    QList<ZLID3Frame> m_frames;
    /// What stands behind the last frame that could be read and is no padding.
    QByteArray m_remainder;
};
