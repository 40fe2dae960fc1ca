#include "platform/media/xiph/ZLOggPages.h"

#include "platform/media/ZLBytes.h"
#include "platform/media/xiph/ZLOggChecksum.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

struct PageTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLOggPages)
};

constexpr qsizetype fixedHeaderSize = 27;
constexpr qsizetype mostSegments = 255;
constexpr qsizetype largestPage = fixedHeaderSize + mostSegments + mostSegments * 255;
constexpr qsizetype placeOfNumber = 18;
constexpr qsizetype placeOfChecksum = 22;
/// Small enough for the caches of a processor.
constexpr qint64 pageReading = 256 * 1024;
constexpr qint64 lookBackLength = 256 * 1024;
constexpr int mostTries = 1'000;
/// Of the description at the beginning. Far less than that is enough for the largest one.
constexpr int mostHeaderPages = 10'000;

enum PageFlag : uchar { Continued = 1, Begins = 2 };

std::optional<ZLOggPage> pageIn(const QByteArray& bytes, qsizetype at)
{
    if (at + fixedHeaderSize > bytes.size() || QByteArrayView(bytes).sliced(at, 4) != "OggS" || bytes.at(at + 4) != 0)
        return std::nullopt;
    const auto flags = uchar(bytes.at(at + 5));
    ZLOggPage page {
        .continuesPacket = bool(flags & Continued),
        .beginsStream = bool(flags & Begins),
        .position = ZLBytes::little<qint64>(bytes, at + 6),
        .stream = ZLBytes::little<quint32>(bytes, at + 14),
        .number = ZLBytes::little<quint32>(bytes, at + placeOfNumber),
        .segments = bytes.mid(at + fixedHeaderSize, uchar(bytes.at(at + 26))),
    };
    if (page.segments.size() < uchar(bytes.at(at + 26)))
        return std::nullopt;
    page.size = page.headerSize();
    for (const char length : std::as_const(page.segments))
        page.size += uchar(length);
    return page;
}

/// Only a page as a whole whose checksum is right: what a page begins with may stand in a text as well.
std::optional<ZLOggPage> intactPageIn(const QByteArray& bytes, qsizetype at)
{
    const auto page = pageIn(bytes, at);
    if (!page || page->size > bytes.size() - at)
        return std::nullopt;
    QByteArray whole = bytes.mid(at, qsizetype(page->size));
    const auto checksum = ZLBytes::little<quint32>(whole, placeOfChecksum);
    whole.replace(placeOfChecksum, 4, QByteArray(4, '\0'));
    return ZLOggChecksum::of(whole) == checksum ? page : std::nullopt;
}

/// Puts the contents of pages together to packets.
class PacketCollector {
public:
    void add(const ZLOggPage& page, const QByteArray& contents)
    {
        qsizetype at = 0;
        m_size += contents.size();
        for (const char length : page.segments) {
            m_open += contents.mid(at, uchar(length));
            at += uchar(length);
            m_isOpen = uchar(length) == 255;
            if (!m_isOpen)
                m_packets.append(std::exchange(m_open, {}));
        }
    }
    [[nodiscard]] bool isOpen() const { return m_isOpen; }
    /// Of all packets together.
    [[nodiscard]] qsizetype size() const { return m_size; }
    [[nodiscard]] const QList<QByteArray>& packets() const { return m_packets; }

private:
    QList<QByteArray> m_packets;
    QByteArray m_open;
    qsizetype m_size = 0;
    bool m_isOpen = false;
};

/// The lengths of all pieces of the packets, in their order.
QByteArray segmentsOf(const QList<QByteArray>& packets)
{
    QByteArray segments;
    for (const QByteArray& packet : packets)
        segments += QByteArray(packet.size() / 255, char(255)) + char(packet.size() % 255);
    return segments;
}

QByteArray withChecksum(QByteArray page)
{
    page.replace(placeOfChecksum, 4, ZLBytes::fromLittle(ZLOggChecksum::of(page)));
    return page;
}

QByteArray pageOf(
    quint32 stream, quint32 number, bool isContinued, const QByteArray& segments, const QByteArray& contents)
{
    // A page on which no packet ends has no position.
    const bool endsPacket = std::ranges::any_of(segments, [](char length) { return uchar(length) < 255; });
    return withChecksum(QByteArray("OggS\0", 5) + char(isContinued ? Continued : 0)
        + ZLBytes::fromLittle(qint64(endsPacket ? 0 : -1)) + ZLBytes::fromLittle(stream) + ZLBytes::fromLittle(number)
        + QByteArray(4, '\0') + char(segments.size()) + segments + contents);
}

/// How many pages the pieces take, as many as before if that can be.
int pagesFor(qsizetype segments, int former)
{
    const auto fewest = int((segments + mostSegments - 1) / mostSegments);
    return former >= fewest && former <= segments ? former : fewest;
}

QByteArray pagesOf(quint32 stream, const QList<QByteArray>& packets, int pages)
{
    const QByteArray segments = segmentsOf(packets);
    const QByteArray contents = packets.join();
    QByteArray result;
    qsizetype segment = 0;
    qsizetype at = 0;
    for (int page = 0; page < pages; ++page) {
        // Each page that follows needs a piece as well.
        const qsizetype count = std::min(mostSegments, segments.size() - segment - (pages - page - 1));
        const QByteArray own = segments.mid(segment, count);
        qsizetype size = 0;
        for (const char length : own)
            size += uchar(length);
        const bool isContinued = segment > 0 && uchar(segments.at(segment - 1)) == 255;
        result += pageOf(stream, quint32(page + 1), isContinued, own, contents.mid(at, size));
        segment += count;
        at += size;
    }
    return result;
}

void renumberPage(QByteArray& bytes, qsizetype at, const ZLOggPage& page, int difference)
{
    const quint32 number = page.number + quint32(difference);
    const QByteArray change = ZLBytes::fromLittle(number ^ page.number);
    const auto checksum = ZLBytes::little<quint32>(bytes, at + placeOfChecksum);
    const quint32 changed = checksum ^ ZLOggChecksum::ofChange(change, page.size - placeOfNumber - 4);
    bytes.replace(at + placeOfNumber, 8, ZLBytes::fromLittle(number) + ZLBytes::fromLittle(changed));
}

/// Numbers the pages in `bytes` anew and leaves what is no page as it is. Tells how many bytes are done: a page at the
/// end of which the rest is still to come is not.
qsizetype renumber(QByteArray& bytes, bool hasMore, quint32 stream, int difference)
{
    qsizetype at = 0;
    while (at < bytes.size()) {
        const qsizetype left = bytes.size() - at;
        if (const auto page = pageIn(bytes, at); page && page->size <= left) {
            if (page->stream == stream)
                renumberPage(bytes, at, *page, difference);
            at += qsizetype(page->size);
            continue;
        }
        if (hasMore && left < largestPage)
            break;
        const qsizetype next = bytes.indexOf("OggS", at + 1);
        at = next > 0 ? next : hasMore ? bytes.size() - 3 : bytes.size();
    }
    return at;
}

/// Gives the source from `offset` on with its pages numbered anew.
ZLStatus writeRenumbered(
    const ZLMediaSource& source, qint64 offset, quint32 stream, int difference, const ZLByteTaker& take)
{
    while (offset < source.size()) {
        QByteArray bytes = source.read(offset, pageReading);
        bytes.truncate(renumber(bytes, offset + bytes.size() < source.size(), stream, difference));
        if (bytes.isEmpty())
            return ZLError { PageTexts::tr("The file ends early or cannot be read.") };
        if (const ZLStatus taken = take(bytes); !taken)
            return taken;
        offset += bytes.size();
    }
    return ZLDone {};
}

}

std::optional<ZLOggPage> ZLOggPage::at(const ZLMediaSource& source, qint64 offset)
{
    auto page = pageIn(source.read(offset, fixedHeaderSize + mostSegments), 0);
    if (!page || page->size > source.size() - offset)
        return std::nullopt;
    page->offset = offset;
    return page;
}

ZLResult<ZLOggPages::Headers> ZLOggPages::readHeaders(const ZLMediaSource& source, int count)
{
    const ZLError damaged { PageTexts::tr("The description at the beginning of this Ogg file is damaged.") };
    Headers headers;
    PacketCollector collector;
    while (collector.packets().size() < count) {
        const auto page = ZLOggPage::at(source, headers.end);
        const bool isFirst = headers.end == 0;
        if (!page || collector.size() > ZLMediaSource::largestReading || headers.pages == mostHeaderPages)
            return damaged;
        if (page->beginsStream != isFirst || (!isFirst && page->stream != headers.stream))
            return ZLError { PageTexts::tr("This Ogg file has more than one stream, which Zelta does not write to.") };
        collector.add(*page, source.read(page->offset + page->headerSize(), page->size - page->headerSize()));
        headers.stream = page->stream;
        headers.end += page->size;
        if (isFirst)
            headers.begin = headers.end;
        else
            ++headers.pages;
        if (isFirst && (collector.packets().size() != 1 || collector.isOpen()))
            return damaged;
    }
    if (collector.packets().size() != count || collector.isOpen())
        return damaged;
    headers.packets = collector.packets();
    return headers;
}

std::optional<qint64> ZLOggPages::lastPosition(const ZLMediaSource& source, quint32 stream)
{
    const qint64 begin = std::max(source.size() - lookBackLength, qint64(0));
    const QByteArray bytes = source.read(begin, lookBackLength);
    qsizetype at = bytes.lastIndexOf("OggS");
    for (int tries = 0; at >= 0 && tries != mostTries; ++tries) {
        const auto page = intactPageIn(bytes, at);
        if (page && page->stream != stream)
            return std::nullopt;
        if (page && page->position >= 0)
            return page->position;
        at = at > 0 ? bytes.lastIndexOf("OggS", at - 1) : -1;
    }
    return std::nullopt;
}

ZLFilePieces ZLOggPages::withPackets(
    const ZLMediaSource& source, const Headers& headers, const QList<QByteArray>& packets)
{
    ZLFilePieces pieces;
    const int pages = pagesFor(segmentsOf(packets).size(), headers.pages);
    pieces.appendRange(0, headers.begin);
    pieces.append(pagesOf(headers.stream, packets, pages));
    const qint64 rest = source.size() - headers.end;
    if (pages == headers.pages) {
        pieces.appendRange(headers.end, rest);
        return pieces;
    }
    const int difference = pages - headers.pages;
    pieces.appendMade(rest, [&source, headers, difference](const ZLByteTaker& take) {
        return writeRenumbered(source, headers.end, headers.stream, difference, take);
    });
    return pieces;
}
