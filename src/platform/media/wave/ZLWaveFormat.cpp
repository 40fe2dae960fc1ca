#include "platform/media/wave/ZLWaveFormat.h"

#include "platform/media/ZLBytes.h"
#include "platform/media/wave/ZLWaveMarkers.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct WaveTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLWaveFormat)
};

constexpr qsizetype mostMarkers = 10'000;
constexpr qint64 largestSize = 0xFFFFFFFE;
constexpr qint64 latestSample = 0xFFFFFFFF;

ZLResult<ZLWaveMarkers::Sound> readSound(const ZLMediaSource& source, const ZLWaveChunks& chunks)
{
    const ZLWaveChunk* format = chunks.find("fmt ");
    const ZLWaveChunk* data = chunks.find("data");
    const QByteArray bytes = format ? source.read(format->begin(), std::min<qint64>(format->size, 16)) : QByteArray();
    ZLWaveMarkers::Sound sound { .rate = ZLBytes::little<quint32>(bytes, 4) };
    const auto bytesPerSecond = ZLBytes::little<quint32>(bytes, 8);
    if (!data || sound.rate == 0 || bytesPerSecond == 0)
        return ZLError { WaveTexts::tr("There is no sound in this WAV file.") };
    sound.length = qRound64(double(data->size) * 1000.0 / bytesPerSecond);
    return sound;
}

bool hasMarkers(const ZLWaveChunks& chunks)
{
    return std::ranges::any_of(chunks.list, ZLWaveMarkers::isOfMarkers);
}

/// The chunks behind the header of the file. Markers in front of the sound become empty space, so that the sound stays
/// where it is; those behind it go.
ZLFilePieces chunksWith(const ZLMediaSource& source, const ZLWaveChunks& chunks, const QByteArray& markers)
{
    ZLFilePieces pieces;
    bool isBehindSound = false;
    for (const ZLWaveChunk& chunk : chunks.list) {
        isBehindSound = isBehindSound || chunk.id == "data";
        const bool isOfMarkers = ZLWaveMarkers::isOfMarkers(chunk);
        if (isOfMarkers && isBehindSound)
            continue;
        if (isOfMarkers)
            pieces.append("JUNK");
        pieces.appendRange(chunk.offset + (isOfMarkers ? 4 : 0),
            std::min(chunk.end(), source.size()) - chunk.offset - (isOfMarkers ? 4 : 0));
        // A last chunk of odd size often comes without the byte that makes it even.
        if (chunk.end() > source.size())
            pieces.append(QByteArray(1, '\0'));
    }
    pieces.append(markers);
    return pieces;
}

/// The beginning of the file up to the first chunk, or in a file with 64-bit sizes to the sizes behind.
QByteArray headerFor(const ZLMediaSource& source, ZLWaveChunks::Sizes sizes, qint64 size)
{
    if (sizes == ZLWaveChunks::Sizes::Bits32)
        return "RIFF" + ZLBytes::fromLittle(quint32(size)) + "WAVE";
    return source.read(0, 20) + ZLBytes::fromLittle(size);
}

}

bool ZLWaveFormat::isFormOf(const ZLMediaSource& source) const
{
    return ZLWaveChunks::isWave(source);
}

ZLResult<ZLMediaContents> ZLWaveFormat::read(const ZLMediaSource& source) const
{
    const auto chunks = ZLWaveChunks::read(source);
    if (!chunks)
        return chunks.error();
    const auto sound = readSound(source, chunks.value());
    if (!sound)
        return sound.error();
    ZLMediaContents contents {
        .form = ZLMediaForm::Wave,
        .formName = u"WAV"_s,
        .length = sound.value().length,
        .chapters = ZLWaveMarkers::read(source, chunks.value(), sound.value()),
        .mostChapters = mostMarkers,
        .latestStart = latestSample * 1000 / sound.value().rate,
        .links = ZLMediaLinks::NotKept,
    };
    if (ZLWaveMarkers::haveMoreThanLabels(source, chunks.value()))
        contents.changes.append(WaveTexts::tr("Notes and regions of the markers that are in the file now are lost."));
    return contents;
}

ZLResult<ZLFilePieces> ZLWaveFormat::withChapters(const ZLMediaSource& source, const ZLMediaChapters& chapters) const
{
    const auto read = ZLWaveChunks::read(source);
    if (!read)
        return read.error();
    const ZLWaveChunks& chunks = read.value();
    const auto sound = readSound(source, chunks);
    if (!sound)
        return sound.error();
    if (chunks.isCutOff)
        return ZLError { WaveTexts::tr(
            "The sizes in this WAV file are not those of its parts, as in a recording that was "
            "cut off. Open it in an audio editor and save it once.") };
    ZLFilePieces pieces;
    if (chapters.isEmpty() && !hasMarkers(chunks)) {
        pieces.appendRange(0, source.size());
        return pieces;
    }
    const ZLFilePieces body = chunksWith(source, chunks, ZLWaveMarkers::bytes(chapters, sound.value().rate));
    const qint64 size = body.size() + 4;
    if (chunks.sizes == ZLWaveChunks::Sizes::Bits32 && size > largestSize)
        return ZLError { WaveTexts::tr("The WAV file would become larger than 4 GiB, which its form cannot hold.") };
    const QByteArray header = headerFor(source, chunks.sizes, size);
    ZLFilePieces whole;
    whole.append(header);
    whole.append(body.withoutBeginning(header.size() - 12));
    const qint64 end = std::min(chunks.end, source.size());
    whole.appendRange(end, source.size() - end);
    return whole;
}
