#include "platform/media/wave/ZLWaveChunks.h"

#include "platform/media/ZLBytes.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

struct ChunkTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLWaveChunks)
};

constexpr qint64 headerOfTheFile = 12;
constexpr qsizetype mostChunks = 10'000;
/// In a file with 64-bit sizes: the size stands in the chunk ds64.
constexpr quint32 sizeIsElsewhere = 0xFFFFFFFF;

/// The sizes that a chunk ds64 gives.
struct LargeSizes {
    qint64 file = 0;
    qint64 sound = 0;
};

LargeSizes readLargeSizes(const ZLMediaSource& source)
{
    const QByteArray bytes = source.read(headerOfTheFile, 8 + 28);
    if (!bytes.startsWith("ds64") || ZLBytes::little<quint32>(bytes, 4) < 28 || bytes.size() < 8 + 28)
        return {};
    return { ZLBytes::little<qint64>(bytes, 8), ZLBytes::little<qint64>(bytes, 16) };
}

}

const ZLWaveChunk* ZLWaveChunks::find(const QByteArray& id) const
{
    const auto chunk = std::ranges::find(list, id, &ZLWaveChunk::id);
    return chunk == list.end() ? nullptr : &*chunk;
}

bool ZLWaveChunks::isWave(const ZLMediaSource& source)
{
    const QByteArray header = source.read(0, headerOfTheFile);
    const QByteArray kind = header.left(4);
    return (kind == "RIFF" || kind == "RF64" || kind == "BW64") && header.mid(8) == "WAVE";
}

ZLResult<ZLWaveChunks> ZLWaveChunks::read(const ZLMediaSource& source)
{
    const QByteArray header = source.read(0, headerOfTheFile);
    ZLWaveChunks chunks;
    chunks.sizes = header.startsWith("RIFF") ? Sizes::Bits32 : Sizes::Bits64;
    const LargeSizes large = chunks.sizes == Sizes::Bits64 ? readLargeSizes(source) : LargeSizes();
    const auto told = ZLBytes::little<quint32>(header, 4);
    const qint64 toldSize = chunks.sizes == Sizes::Bits64 ? large.file : qint64(told);
    const qint64 toldEnd = std::clamp(toldSize, qint64(0), source.size()) + 8;
    chunks.isCutOff = toldSize < 4 || toldSize > source.size() - 8 + (source.size() & 1);
    const qint64 end = chunks.isCutOff ? source.size() : std::min(toldEnd, source.size());
    for (chunks.end = headerOfTheFile; chunks.end + 8 <= end;) {
        const QByteArray bytes = source.read(chunks.end, 12);
        ZLWaveChunk chunk { bytes.left(4), chunks.end, qint64(ZLBytes::little<quint32>(bytes, 4)) };
        if (chunks.sizes == Sizes::Bits64 && chunk.size == sizeIsElsewhere && chunk.id == "data")
            chunk.size = large.sound;
        if (chunk.id == "LIST")
            chunk.listKind = bytes.mid(8);
        if (chunks.list.size() == mostChunks)
            return ZLError { ChunkTexts::tr("This WAV file has too many parts.") };
        if (chunk.size < 0 || chunk.size > source.size() - chunk.begin()) {
            chunks.isCutOff = true;
            chunk.size = source.size() - chunk.begin();
        }
        chunks.list.append(chunk);
        chunks.end = chunk.end();
    }
    return chunks;
}
