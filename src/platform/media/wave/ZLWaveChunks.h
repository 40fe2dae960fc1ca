#pragma once

#include "platform/media/ZLMediaSource.h"

#include <QList>

/// One chunk of a WAV file.
struct ZLWaveChunk {
    QByteArray id {};
    /// Where its header of eight bytes stands.
    qint64 offset = 0;
    /// Without the header and without the byte that makes it even.
    qint64 size = 0;
    /// Of a LIST chunk: what it lists.
    QByteArray listKind {};

    [[nodiscard]] qint64 begin() const { return offset + 8; }
    /// Where the next chunk begins.
    [[nodiscard]] qint64 end() const { return begin() + size + (size & 1); }
};

/// The chunks of a RIFF, RF64 or BW64 file that holds sound.
struct ZLWaveChunks {
    enum class Sizes { Bits32, Bits64 };

    Sizes sizes = Sizes::Bits32;
    QList<ZLWaveChunk> list {};
    /// Where the last chunk ends as the file says; there may be other bytes behind.
    qint64 end = 0;
    /// The header tells another size than that of the chunks, as of a recording that was cut off or piped.
    bool isCutOff = false;

    [[nodiscard]] const ZLWaveChunk* find(const QByteArray& id) const;

    [[nodiscard]] static bool isWave(const ZLMediaSource& source);
    [[nodiscard]] static ZLResult<ZLWaveChunks> read(const ZLMediaSource& source);
};
