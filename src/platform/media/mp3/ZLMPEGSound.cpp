#include "platform/media/mp3/ZLMPEGSound.h"

#include "platform/media/ZLBytes.h"

#include <algorithm>
#include <array>

namespace {

constexpr qint64 searchLength = 64 * 1024;
constexpr qint64 readingLength = 1024 * 1024;
constexpr qsizetype frameHeaderSize = 4;

struct FrameHeader {
    int sampleRate = 0;
    int samples = 0;
    int size = 0;
    /// Bytes between the header and what an encoder says of the whole file.
    int sideInformation = 0;
};

/// Layer III in kilobits a second, for version 1 and for versions 2 and 2.5.
constexpr std::array<std::array<int, 15>, 2> bitRates { {
    { 0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320 },
    { 0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160 },
} };
constexpr std::array<int, 3> sampleRates { 44100, 48000, 32000 };

std::optional<FrameHeader> frameHeader(const QByteArray& bytes, qsizetype at)
{
    const auto word = ZLBytes::big<quint32>(bytes, at);
    const int version = int(word >> 19 & 3);
    const int layer = int(word >> 17 & 3);
    const int bitRate = int(word >> 12 & 15);
    const int rate = int(word >> 10 & 3);
    if (word >> 21 != 0x7FF || version == 1 || layer != 1 || bitRate == 0 || bitRate == 15 || rate == 3)
        return std::nullopt;
    const bool isVersion1 = version == 3;
    const bool isMono = (word >> 6 & 3) == 3;
    FrameHeader header;
    header.sampleRate = sampleRates.at(size_t(rate)) / (isVersion1 ? 1 : version == 2 ? 2 : 4);
    header.samples = isVersion1 ? 1152 : 576;
    const int bitsPerSecond = bitRates.at(isVersion1 ? 0 : 1).at(size_t(bitRate)) * 1000;
    header.size = header.samples / 8 * bitsPerSecond / header.sampleRate + int(word >> 9 & 1);
    header.sideInformation = isVersion1 ? (isMono ? 17 : 32) : (isMono ? 9 : 17);
    return header;
}

/// How many frames the encoder says that there are, in the first frame, which then has no sound.
std::optional<quint32> countOfTheEncoder(const QByteArray& frame, const FrameHeader& header)
{
    const QByteArray own = frame.mid(frameHeaderSize + header.sideInformation);
    const bool hasCount = (own.startsWith("Xing") || own.startsWith("Info")) && (ZLBytes::big<quint32>(own, 4) & 1);
    if (hasCount)
        return ZLBytes::big<quint32>(own, 8);
    constexpr qsizetype fixedPlace = frameHeaderSize + 32;
    if (frame.mid(fixedPlace, 4) == "VBRI")
        return ZLBytes::big<quint32>(frame, fixedPlace + 14);
    return std::nullopt;
}

/// Reads forward in large stretches and hands out four bytes at any place.
class HeaderReader {
public:
    explicit HeaderReader(const ZLMediaSource& source)
        : m_source(source)
    {
    }

    std::optional<FrameHeader> at(qint64 place)
    {
        if (place < m_begin || place + frameHeaderSize > m_begin + m_bytes.size())
            load(place);
        return m_bytes.size() < frameHeaderSize ? std::nullopt : frameHeader(m_bytes, qsizetype(place - m_begin));
    }

    /// The next place behind `place` at which a header can begin.
    qint64 nextBehind(qint64 place)
    {
        for (++place; place + frameHeaderSize <= m_source.size();) {
            if (place >= m_begin + m_bytes.size())
                load(m_source.endOfHole(place));
            const qsizetype found = indexOfBeginning(std::max<qsizetype>(qsizetype(place - m_begin), 0));
            if (found >= 0)
                return m_begin + found;
            if (m_bytes.isEmpty())
                break;
            place = m_begin + m_bytes.size();
        }
        return m_source.size();
    }

private:
    /// Of two bytes that say "sound in layer III", or of the last byte, behind which the second one may stand.
    [[nodiscard]] qsizetype indexOfBeginning(qsizetype from) const
    {
        const QByteArrayView bytes = m_bytes;
        for (qsizetype at = bytes.indexOf(char(0xFF), from); at >= 0; at = bytes.indexOf(char(0xFF), at + 1)) {
            if (at + 1 == bytes.size() || (uchar(bytes[at + 1]) & 0xE6) == 0xE2)
                return at;
            while (at + 2 < bytes.size() && bytes[at + 2] == char(0xFF))
                ++at;
        }
        return -1;
    }

    void load(qint64 place)
    {
        m_begin = place;
        m_bytes = m_source.read(place, readingLength);
    }

    const ZLMediaSource& m_source;
    qint64 m_begin = 0;
    QByteArray m_bytes;
};

double secondsByCounting(const ZLMediaSource& source, qint64 place)
{
    HeaderReader reader(source);
    double seconds = 0.0;
    while (place + frameHeaderSize <= source.size()) {
        const auto header = reader.at(place);
        if (header)
            seconds += double(header->samples) / header->sampleRate;
        place = header ? place + header->size : reader.nextBehind(place);
    }
    return seconds;
}

bool isEndOfSound(const ZLMediaSource& source, qint64 place)
{
    const QByteArray bytes = source.read(place, 8);
    return bytes.isEmpty() || bytes.startsWith("TAG") || bytes == "APETAGEX";
}

/// Bytes that look like a header are common in any file; three of them at the right distances are not.
bool hasFramesBehind(const ZLMediaSource& source, qint64 place)
{
    for (int frame = 0; frame < 3; ++frame) {
        const auto header = frameHeader(source.read(place, frameHeaderSize), 0);
        if (!header)
            return frame > 0 && isEndOfSound(source, place);
        place += header->size;
    }
    return true;
}

}

std::optional<qint64> ZLMPEGSound::firstFrame(const ZLMediaSource& source, qint64 offset)
{
    const QByteArray bytes = source.read(offset, searchLength);
    for (qsizetype at = 0; at + frameHeaderSize <= bytes.size(); ++at) {
        const auto header = frameHeader(bytes, at);
        if (!header)
            continue;
        if (hasFramesBehind(source, offset + at))
            return offset + at;
    }
    return std::nullopt;
}

qint64 ZLMPEGSound::length(const ZLMediaSource& source, qint64 firstFrame)
{
    const QByteArray bytes = source.read(firstFrame, 2048);
    const auto header = frameHeader(bytes, 0);
    if (!header)
        return 0;
    const auto count = countOfTheEncoder(bytes, *header);
    const double seconds =
        count ? double(*count) * header->samples / header->sampleRate : secondsByCounting(source, firstFrame);
    return qRound64(seconds * 1000.0);
}
