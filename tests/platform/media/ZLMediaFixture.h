#pragma once

#include "platform/ZLAtomicFile.h"
#include "platform/ZLBoundedFile.h"
#include "platform/media/ZLBytes.h"
#include "platform/media/file/ZLMediaFile.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

/// Small media files made by hand, in a folder of their own.
class ZLMediaFixture : public testing::Test {
protected:
    /// A second of silence in one channel with 1000 samples.
    static QByteArray wave(qsizetype bytes = 2000)
    {
        const QByteArray format = ZLBytes::fromLittle(quint16(1)) + ZLBytes::fromLittle(quint16(1))
            + ZLBytes::fromLittle(quint32(1000)) + ZLBytes::fromLittle(quint32(2000)) + ZLBytes::fromLittle(quint16(2))
            + ZLBytes::fromLittle(quint16(16));
        const QByteArray body = "WAVEfmt " + ZLBytes::fromLittle(quint32(16)) + format + "data"
            + ZLBytes::fromLittle(quint32(bytes)) + QByteArray(bytes, '\0');
        return "RIFF" + ZLBytes::fromLittle(quint32(body.size())) + body;
    }

    /// Frames of 417 bytes, each 26 milliseconds long.
    static QByteArray mp3Sound(int frames = 100)
    {
        return (QByteArray("\xFF\xFB\x90\x64", 4) + QByteArray(413, '\0')).repeated(frames);
    }

    static QByteArray id3Tag(char version, const QByteArray& frames, char flags = 0)
    {
        const auto size = frames.size();
        const QByteArray sizeBytes { QByteArray(1, char(size >> 21 & 127)) + char(size >> 14 & 127)
            + char(size >> 7 & 127) + char(size & 127) };
        return "ID3" + QByteArray(1, version) + '\0' + flags + sizeBytes + frames;
    }

    static QByteArray frameOfVersion3(const QByteArray& id, const QByteArray& contents)
    {
        return id + ZLBytes::fromBig(quint32(contents.size())) + QByteArray(2, '\0') + contents;
    }

    QString store(const QByteArray& bytes, const QString& name = QStringLiteral("sound")) const
    {
        const QString path = m_folder.filePath(name);
        EXPECT_TRUE(ZLAtomicFile::write(path, bytes));
        return path;
    }

    static QByteArray contentsOf(const QString& path)
    {
        return ZLBoundedFile::read(path, ZLFileBound::Document).value();
    }
    QStringList names() const
    {
        return QDir(m_folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    ZLStatus write(const QString& path, const ZLMediaChapters& chapters)
    {
        return ZLMediaFile::write(path, chapters, path, m_progress);
    }

    QTemporaryDir m_folder;
    ZLWorkProgress m_progress;
    const ZLMediaChapters m_chapters { { 100, 500, QStringLiteral("Eins"), {} },
        { 500, 1000, QStringLiteral("世界"), {} } };
};
