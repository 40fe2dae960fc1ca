#include "platform/media/mp3/ZLID3Tag.h"

#include "platform/media/ZLBytes.h"
#include "platform/media/ZLPadding.h"
#include "platform/media/mp3/ZLID3OldFrames.h"
#include "platform/media/mp3/ZLID3Unsynchronisation.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

struct TagTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLID3Tag)
};

constexpr qsizetype tagHeader = 10;
/// What is written has to be read again.
constexpr qint64 largestTag = ZLMediaSource::largestReading;
constexpr qsizetype mostFrames = 20'000;

enum HeaderFlag : uchar { Unsynchronised = 0x80, ExtendedHeader = 0x40, Experimental = 0x20, Footer = 0x10 };
constexpr uchar FrameUnsynchronised = 0x02;

ZLError tooManyEntries()
{
    return ZLError { TagTexts::tr("The tag at the beginning has too many entries.") };
}

bool isSynchsafe(quint32 number)
{
    return (number & 0x80808080U) == 0;
}

quint32 fromSynchsafe(quint32 number)
{
    return (number & 0x7FU) | (number >> 1 & 0x3F80U) | (number >> 2 & 0x1FC000U) | (number >> 3 & 0xFE00000U);
}

bool isFrameId(const QByteArray& id)
{
    return id.size() == 4 && std::ranges::all_of(id, [](char letter) {
        return (letter >= 'A' && letter <= 'Z') || (letter >= '0' && letter <= '9');
    });
}

/// Whether a frame, padding or the end of the tag is at that place.
bool canStandBehindAFrame(const QByteArray& bytes, qsizetype at)
{
    return at == bytes.size() || (at < bytes.size() && (bytes.at(at) == 0 || isFrameId(bytes.mid(at, 4))));
}

/// Some writers of version 2.4 give sizes as version 2.3 does, so that the next frame decides which one is meant.
qsizetype frameSize(const QByteArray& bytes, qsizetype at, int version)
{
    const auto number = ZLBytes::big<quint32>(bytes, at + 4);
    if (version == 3 || !isSynchsafe(number))
        return qsizetype(number);
    const auto synchsafeSize = qsizetype(fromSynchsafe(number));
    const bool isPlain = !canStandBehindAFrame(bytes, at + tagHeader + synchsafeSize)
        && canStandBehindAFrame(bytes, at + tagHeader + qsizetype(number));
    return isPlain ? qsizetype(number) : synchsafeSize;
}

/// The extended header tells sums and sizes of the tag as it was; a new tag goes without.
qsizetype extendedHeaderSize(const QByteArray& body, int version)
{
    const auto number = ZLBytes::big<quint32>(body, 0);
    const qint64 size = version == 3 ? qint64(number) + 4 : qint64(fromSynchsafe(number));
    return qsizetype(std::min(size, qint64(body.size())));
}

QByteArray withoutPadding(QByteArray bytes)
{
    while (bytes.endsWith('\0'))
        bytes.chop(1);
    return bytes;
}

/// In version 2.4 the header can say that all frames are unsynchronised. The new header does not, so each frame has to.
void markUnsynchronised(QList<ZLID3Frame>& frames)
{
    for (ZLID3Frame& frame : frames) {
        if (frame.bytes.contains(QByteArrayLiteral("\xFF\0")))
            frame.bytes[9] = char(uchar(frame.bytes.at(9)) | FrameUnsynchronised);
    }
}

}

QByteArray ZLID3Tag::synchsafe(qint64 size)
{
    QByteArray bytes;
    for (int shift = 21; shift >= 0; shift -= 7)
        bytes.append(char(size >> shift & 0x7F));
    return bytes;
}

qint64 ZLID3Tag::sizeAt(const ZLMediaSource& source, qint64 offset)
{
    const QByteArray header = source.read(offset, tagHeader);
    const int version = header.size() == tagHeader ? quint8(header.at(3)) : 0;
    const auto size = ZLBytes::big<quint32>(header, 6);
    if (!header.startsWith("ID3") || version < 2 || version > 4 || !isSynchsafe(size))
        return 0;
    const bool hasFooter = version == 4 && (header.at(5) & Footer);
    return tagHeader + qint64(fromSynchsafe(size)) + (hasFooter ? tagHeader : 0);
}

ZLResult<ZLID3Tag> ZLID3Tag::readAt(const ZLMediaSource& source, qint64 offset)
{
    ZLID3Tag tag;
    tag.m_formerSize = sizeAt(source, offset);
    if (tag.m_formerSize == 0)
        return tag;
    if (tag.m_formerSize > ZLMediaSource::largestReading)
        return ZLError { TagTexts::tr("The tag at the beginning is larger than %1 MiB.")
                .arg(ZLMediaSource::largestReading / 1024 / 1024) };
    const QByteArray bytes = source.read(offset, tag.m_formerSize);
    if (bytes.size() < tag.m_formerSize)
        return ZLError { TagTexts::tr("The file ends inside the tag at its beginning.") };
    tag.m_formerVersion = quint8(bytes.at(3));
    tag.m_version = std::max(tag.m_formerVersion, 3);
    const uchar flags = uchar(bytes.at(5));
    tag.m_flags = char(flags & Experimental);
    QByteArray body = bytes.sliced(tagHeader);
    if (tag.m_formerVersion == 4 && (flags & Footer))
        body.chop(tagHeader);
    if (tag.m_formerVersion < 4 && (flags & Unsynchronised))
        body = ZLID3Unsynchronisation::decoded(body);
    if (tag.m_formerVersion == 2) {
        tag.m_flags = 0;
        tag.m_frames = ZLID3OldFrames::converted(body, mostFrames, tag.m_lostFrames);
        return tag.m_frames.size() + tag.m_lostFrames < mostFrames ? ZLResult(tag) : tooManyEntries();
    }
    if (flags & ExtendedHeader)
        body = body.sliced(extendedHeaderSize(body, tag.m_version));
    qsizetype end = 0;
    tag.m_frames = splitFrames(body, tag.m_version, end);
    if (tag.m_frames.size() == mostFrames)
        return tooManyEntries();
    tag.m_remainder = withoutPadding(body.sliced(end));
    if (tag.m_version == 4 && (flags & Unsynchronised))
        markUnsynchronised(tag.m_frames);
    return tag;
}

QList<ZLID3Frame> ZLID3Tag::splitFrames(const QByteArray& bytes, int version, qsizetype& end)
{
    QList<ZLID3Frame> frames;
    for (end = 0; end + tagHeader <= bytes.size() && frames.size() < mostFrames;) {
        const QByteArray id = bytes.mid(end, 4);
        const qsizetype size = tagHeader + frameSize(bytes, end, version);
        if (!isFrameId(id) || size > bytes.size() - end)
            break;
        frames.append({ id, bytes.mid(end, size) });
        end += size;
    }
    return frames;
}

void ZLID3Tag::removeFrames(const QByteArray& id)
{
    m_frames.removeIf([&](const ZLID3Frame& frame) { return frame.id == id; });
}

QByteArray ZLID3Tag::header(qint64 sizeBehindHeader) const
{
    return "ID3" + QByteArray(1, char(m_version)) + '\0' + m_flags + synchsafe(sizeBehindHeader);
}

ZLResult<QByteArray> ZLID3Tag::bytes() const
{
    if (m_frames.isEmpty() && m_remainder.isEmpty() && m_formerSize == 0)
        return QByteArray();
    QByteArray frames;
    for (const ZLID3Frame& frame : m_frames)
        frames += frame.bytes;
    const qint64 needed = tagHeader + frames.size() + m_remainder.size();
    const qint64 size = ZLPadding::paddedSize(needed, m_formerSize);
    if (size > largestTag)
        return ZLError { TagTexts::tr("The tag would become larger than %1 MiB.").arg(largestTag / 1024 / 1024) };
    // What could not be read stands last: padding behind it could complete a frame that was cut off.
    return header(size - tagHeader) + frames + QByteArray(qsizetype(size - needed), '\0') + m_remainder;
}
