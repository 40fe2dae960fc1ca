#pragma once

#include "platform/ZLResult.h"
#include "platform/media/ZLMediaChapter.h"

#include <QByteArray>

/// The block of texts that Ogg Vorbis, Opus and FLAC share, with the chapters among them. Every other field stays byte
/// for byte, and so does what stands behind the fields.
class ZLVorbisComment {
public:
    /// Fields are numbered with three digits.
    static constexpr qsizetype mostChapters = 1000;

    /// Without a name of a program and without fields.
    ZLVorbisComment() = default;

    /// `bytes` begin with the length of the name of the program that wrote them.
    [[nodiscard]] static ZLResult<ZLVorbisComment> parse(const QByteArray& bytes);

    /// The last chapter ends at `length`, in milliseconds.
    [[nodiscard]] ZLMediaChapters chapters(qint64 length) const;
    void replaceChapters(const ZLMediaChapters& chapters);

    [[nodiscard]] QByteArray bytes() const;

private:
    QByteArray m_program;
    QList<QByteArray> m_fields;
    QByteArray m_remainder;
};
