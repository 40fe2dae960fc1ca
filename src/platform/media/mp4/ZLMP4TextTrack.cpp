#include "platform/media/mp4/ZLMP4TextTrack.h"

#include "platform/media/ZLBytes.h"
#include "platform/media/mp4/ZLMP4Texts.h"

#include <QStringDecoder>

#include <algorithm>

namespace {

constexpr qint64 largestText = 0xFFFF;
/// All samples may point to the same bytes, so that a small file can claim any amount.
constexpr qint64 mostTexts = 4 * 1024 * 1024;
constexpr quint32 unitsPerSecond = 1000;

QByteArray numbers(std::initializer_list<quint32> list)
{
    QByteArray bytes;
    for (const quint32 number : list)
        bytes += ZLBytes::fromBig(number);
    return bytes;
}

QByteArray shortNumbers(std::initializer_list<quint16> list)
{
    QByteArray bytes;
    for (const quint16 number : list)
        bytes += ZLBytes::fromBig(number);
    return bytes;
}

QByteArray atom(const QByteArray& type, const QByteArray& contents)
{
    return ZLMP4Atoms::atom(type, contents);
}

/// The text of one sample: its length, its bytes, and then what describes them.
QString textOf(const QByteArray& sample)
{
    const QByteArray bytes = sample.mid(2, ZLBytes::big<quint16>(sample, 0));
    const bool isUtf16 = bytes.startsWith("\xFE\xFF") || bytes.startsWith("\xFF\xFE");
    return isUtf16 ? QString(QStringDecoder(QStringDecoder::Utf16).decode(bytes)) : QString::fromUtf8(bytes);
}

/// How much later than its own times a track is shown, in milliseconds.
double delayOf(const ZLMediaSource& source, const ZLMP4Track& track, quint32 movieTimescale)
{
    const QByteArray bytes = ZLMP4Atoms::contents(source, ZLMP4Atoms::find(source, track.atom, { "edts", "elst" }), 64);
    const bool isLarge = !bytes.isEmpty() && bytes.at(0) != 0;
    const qsizetype sizeOfEdit = isLarge ? 20 : 12;
    double delay = 0.0;
    for (qsizetype edit = 0; edit < std::min<qsizetype>(ZLBytes::big<quint32>(bytes, 4), 2); ++edit) {
        const qsizetype at = 8 + edit * sizeOfEdit;
        const quint64 duration = isLarge ? ZLBytes::big<quint64>(bytes, at) : ZLBytes::big<quint32>(bytes, at);
        const qint64 mediaTime = isLarge ? ZLBytes::big<qint64>(bytes, at + 8) : ZLBytes::big<qint32>(bytes, at + 4);
        if (mediaTime >= 0)
            return delay - double(mediaTime) * 1000.0 / track.timescale;
        delay += double(duration) * 1000.0 / movieTimescale;
    }
    return delay;
}

QByteArray sampleOf(const ZLMediaChapter& chapter)
{
    // The mark behind the text says that it is Unicode.
    static const QByteArray encoding = atom("encd", numbers({ 0x100 }));
    const QByteArray text = ZLMP4Texts::cutUtf8(chapter.title, largestText);
    return ZLBytes::fromBig(quint16(text.size())) + text + encoding;
}

/// In the units of the movie, never later than the time.
quint32 movieTime(qint64 milliseconds, quint32 movieTimescale)
{
    return quint32(std::min<qint64>(milliseconds * movieTimescale / 1000, 0xFFFFFFFE));
}

QByteArray unityMatrix()
{
    return numbers({ 0x10000, 0, 0, 0, 0x10000, 0, 0, 0, 0x40000000 });
}

/// The track is not enabled, so that no player shows the titles over a picture.
QByteArray trackHeader(quint32 id, quint32 duration)
{
    return atom("tkhd", numbers({ 0, 0, 0, id, 0, duration, 0, 0, 0, 0 }) + unityMatrix() + numbers({ 0, 0 }));
}

/// The samples begin with the first chapter, which need not stand at the beginning.
QByteArray edits(quint32 delay, quint32 duration)
{
    constexpr quint32 normalRate = 0x10000;
    QByteArray list;
    if (delay > 0)
        list += numbers({ delay, 0xFFFFFFFF, normalRate });
    list += numbers({ duration, 0, normalRate });
    return atom("edts", atom("elst", numbers({ 0, delay > 0 ? 2U : 1U }) + list));
}

QByteArray mediaHeader(quint32 duration)
{
    constexpr quint16 undeterminedLanguage = 0x55C4;
    return atom("mdhd", numbers({ 0, 0, 0, unitsPerSecond, duration }) + shortNumbers({ undeterminedLanguage, 0 }));
}

QByteArray handler()
{
    return atom("hdlr", numbers({ 0, 0 }) + "text" + numbers({ 0, 0, 0 }) + QByteArray(1, '\0'));
}

QByteArray textMediaHeader()
{
    const QByteArray general = atom("gmin", numbers({ 0 }) + shortNumbers({ 0x40, 0x8000, 0x8000, 0x8000, 0, 0 }));
    return atom("gmhd", general + atom("text", unityMatrix()));
}

QByteArray dataInformation()
{
    constexpr quint32 inThisFile = 1;
    return atom("dinf", atom("dref", numbers({ 0, 1 }) + atom("url ", numbers({ inThisFile }))));
}

/// How the text would look: no flags, no colours, no box, no font.
QByteArray sampleDescription()
{
    const QByteArray entry = QByteArray(6, '\0') + shortNumbers({ 1 }) + numbers({ 0, 0 }) + QByteArray(35, '\0');
    return atom("stsd", numbers({ 0, 1 }) + atom("text", entry));
}

QByteArray sampleTable(const ZLMediaChapters& chapters, qint64 placeOfTexts)
{
    const auto count = quint32(chapters.size());
    QByteArray times = numbers({ 0, count });
    QByteArray sizes = numbers({ 0, 0, count });
    for (qsizetype index = 0; index < chapters.size(); ++index) {
        const bool isLast = index + 1 == chapters.size();
        const qint64 end = isLast ? chapters.at(index).end : chapters.at(index + 1).start;
        times += numbers({ 1, quint32(std::max<qint64>(end - chapters.at(index).start, 0)) });
        sizes += numbers({ quint32(sampleOf(chapters.at(index)).size()) });
    }
    const bool isFar = placeOfTexts > 0xFFFFFFFF;
    const QByteArray place = isFar ? atom("co64", numbers({ 0, 1 }) + ZLBytes::fromBig(placeOfTexts))
                                   : atom("stco", numbers({ 0, 1, quint32(placeOfTexts) }));
    return atom("stbl",
        sampleDescription() + atom("stts", times) + atom("stsc", numbers({ 0, 1, 1, count, 1 })) + atom("stsz", sizes)
            + place);
}

}

QList<ZLMP4Sample> ZLMP4TextTrack::samples(const ZLMediaSource& source, const ZLMP4Track& track)
{
    const auto table = ZLMP4Atoms::find(source, track.atom, { "mdia", "minf", "stbl" });
    return table ? ZLMP4Samples::read(source, *table) : QList<ZLMP4Sample>();
}

ZLMediaChapters ZLMP4TextTrack::read(const ZLMediaSource& source, const ZLMP4Track& track, quint32 movieTimescale)
{
    ZLMediaChapters chapters;
    if (track.timescale == 0)
        return chapters;
    const double delay = delayOf(source, track, movieTimescale);
    const auto milliseconds = [&](qint64 units) { return qRound64(double(units) * 1000.0 / track.timescale + delay); };
    qint64 textsRead = 0;
    for (const ZLMP4Sample& sample : samples(source, track)) {
        textsRead += std::min(sample.size, largestText + 2);
        if (textsRead > mostTexts)
            break;
        chapters.append({ .start = milliseconds(sample.start),
            .end = milliseconds(sample.start + sample.duration),
            .title = textOf(source.read(sample.offset, std::min(sample.size, largestText + 2))) });
    }
    return chapters;
}

QByteArray ZLMP4TextTrack::texts(const ZLMediaChapters& chapters)
{
    QByteArray bytes;
    for (const ZLMediaChapter& chapter : chapters)
        bytes += sampleOf(chapter);
    return bytes;
}

QByteArray ZLMP4TextTrack::track(
    const ZLMediaChapters& chapters, quint32 id, quint32 movieTimescale, qint64 placeOfTexts)
{
    const qint64 begin = chapters.first().start;
    const qint64 length = std::max<qint64>(chapters.last().end - begin, 0);
    const quint32 delay = movieTime(begin, movieTimescale);
    const quint32 duration = movieTime(length, movieTimescale);
    const QByteArray information =
        atom("minf", textMediaHeader() + dataInformation() + sampleTable(chapters, placeOfTexts));
    const QByteArray media = atom("mdia", mediaHeader(quint32(length)) + handler() + information);
    return atom("trak", trackHeader(id, delay + duration) + edits(delay, duration) + media);
}
