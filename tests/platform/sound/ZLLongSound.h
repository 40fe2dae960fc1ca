#pragma once

#include <QByteArray>
#include <QDataStream>
#include <QIODevice>

/// The bytes of a sound file that plays for ten seconds, so that what happens "while it plays" does, on any machine.
inline QByteArray ZLLongSound()
{
    constexpr quint32 rate = 44100;
    constexpr quint32 sampleCount = 10 * rate;
    constexpr quint32 byteCount = 2 * sampleCount;
    QByteArray file;
    QDataStream stream(&file, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.writeRawData("RIFF", 4);
    stream << quint32(36 + byteCount);
    stream.writeRawData("WAVEfmt ", 8);
    stream << quint32(16) << quint16(1) << quint16(1) << rate << 2 * rate << quint16(2) << quint16(16);
    stream.writeRawData("data", 4);
    stream << byteCount;
    // A square wave of 441 Hz.
    for (quint32 i = 0; i < sampleCount; ++i)
        stream << qint16(i / 50 % 2 ? 4000 : -4000);
    return file;
}
