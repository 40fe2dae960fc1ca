#pragma once

#include "platform/ZLAtomicFile.h"
#include "platform/media/ZLBytes.h"

/// A WAV file of silence with so many seconds, 1000 samples each.
inline bool writeWaveFile(const QString& path, int seconds)
{
    const QByteArray format = ZLBytes::fromLittle(quint16(1)) + ZLBytes::fromLittle(quint16(1))
        + ZLBytes::fromLittle(quint32(1000)) + ZLBytes::fromLittle(quint32(2000)) + ZLBytes::fromLittle(quint16(2))
        + ZLBytes::fromLittle(quint16(16));
    const QByteArray data(qsizetype(seconds) * 2000, '\0');
    const QByteArray body = "WAVEfmt " + ZLBytes::fromLittle(quint32(16)) + format + "data"
        + ZLBytes::fromLittle(quint32(data.size())) + data;
    return ZLAtomicFile::write(path, "RIFF" + ZLBytes::fromLittle(quint32(body.size())) + body).isOk();
}
