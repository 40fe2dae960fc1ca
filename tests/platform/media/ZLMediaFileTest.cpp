#include "ZLMediaFixture.h"
#include "support/ZLFullDisk.h"

#include <QFile>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

class ZLMediaFileTest : public ZLMediaFixture { };

TEST_F(ZLMediaFileTest, WhatWasWrittenIsRead)
{
    for (const QByteArray& bytes : { wave(), mp3Sound() }) {
        const QString path = store(bytes);
        ASSERT_TRUE(write(path, m_chapters));
        const auto read = ZLMediaFile::read(path);
        ASSERT_TRUE(read) << qPrintable(read.error().message);
        EXPECT_EQ(read.value().chapters, m_chapters);
    }
}

TEST_F(ZLMediaFileTest, NoChaptersTakeTheOldOnesOut)
{
    for (const QByteArray& bytes : { wave(), mp3Sound() }) {
        const QString path = store(bytes);
        ASSERT_TRUE(write(path, m_chapters));
        ASSERT_TRUE(write(path, {}));
        EXPECT_TRUE(ZLMediaFile::read(path).value().chapters.isEmpty());
        EXPECT_TRUE(contentsOf(path).endsWith(bytes.right(1000)));
    }
}

TEST_F(ZLMediaFileTest, AFileWithoutChaptersStaysAsItIsWhenNoneAreWritten)
{
    for (const QByteArray& bytes : { wave(), mp3Sound() }) {
        const QString path = store(bytes);
        ASSERT_TRUE(write(path, {}));
        EXPECT_EQ(contentsOf(path), bytes);
    }
}

TEST_F(ZLMediaFileTest, ACancelledWritingLeavesTheOldFileAndNothingBesideIt)
{
    const QString path = store(wave());
    m_progress.cancel();
    const ZLStatus status = write(path, m_chapters);
    ASSERT_FALSE(status);
    EXPECT_TRUE(status.error().message.contains("cancelled"_L1)) << qPrintable(status.error().message);
    EXPECT_EQ(contentsOf(path), wave());
    EXPECT_EQ(names(), QStringList { u"sound"_s });
}

TEST_F(ZLMediaFileTest, ProgressReachesTheEnd)
{
    const QString path = store(wave());
    EXPECT_EQ(m_progress.fraction(), 0.0);
    ASSERT_TRUE(write(path, m_chapters));
    EXPECT_EQ(m_progress.fraction(), 1.0);
}

TEST_F(ZLMediaFileTest, AFullDiskLeavesTheOldFileAndNothingBesideIt)
{
    const QByteArray bytes = wave(200'000);
    const QString path = store(bytes);
    {
        const ZLFullDisk disk(100'000);
        EXPECT_FALSE(write(path, m_chapters));
    }
    EXPECT_EQ(contentsOf(path), bytes);
    EXPECT_EQ(names(), QStringList { u"sound"_s });
}

TEST_F(ZLMediaFileTest, AFileThatMayNotBeWrittenStays)
{
    const QString path = store(wave());
    ASSERT_EQ(chmod(QFile::encodeName(path).constData(), 0444), 0);
    // The superuser may write everything, so another user tries.
    const bool isSuperuser = geteuid() == 0;
    ASSERT_EQ(chmod(QFile::encodeName(m_folder.path()).constData(), 0777), 0);
    ASSERT_TRUE(!isSuperuser || setresuid(65534, 65534, 0) == 0);
    const ZLStatus status = write(path, m_chapters);
    ASSERT_TRUE(!isSuperuser || setresuid(0, 0, 0) == 0);
    ASSERT_FALSE(status);
    EXPECT_TRUE(status.error().message.startsWith(path));
    EXPECT_EQ(contentsOf(path), wave());
    EXPECT_EQ(names(), QStringList { u"sound"_s });
}

TEST_F(ZLMediaFileTest, AnotherFileIsWrittenBesideTheFirst)
{
    const QString path = store(wave());
    const QString output = m_folder.filePath(u"out"_s);
    ASSERT_TRUE(ZLMediaFile::write(path, m_chapters, output, m_progress));
    EXPECT_EQ(contentsOf(path), wave());
    EXPECT_EQ(ZLMediaFile::read(output).value().chapters, m_chapters);
}

TEST_F(ZLMediaFileTest, AChangeByAnotherProgramIsSeen)
{
    const QString path = store(wave());
    const auto source = ZLMediaSource::open(path);
    ASSERT_TRUE(source);
    EXPECT_TRUE(source.value()->checkUnchanged());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::Append));
    file.write("more");
    file.close();
    EXPECT_FALSE(source.value()->checkUnchanged());
    EXPECT_EQ(store(wave()), path);
    EXPECT_FALSE(source.value()->checkUnchanged()) << "another file is there now";
    EXPECT_TRUE(QFile::remove(path));
    EXPECT_FALSE(source.value()->checkUnchanged());
}

TEST_F(ZLMediaFileTest, OtherFilesAreRefusedWithTheirName)
{
    for (const QByteArray& bytes : { QByteArray(), QByteArray("bplist00"), QByteArray(70'000, '\xFF') }) {
        const QString path = store(bytes);
        const auto read = ZLMediaFile::read(path);
        ASSERT_FALSE(read);
        EXPECT_TRUE(read.error().message.startsWith(path)) << qPrintable(read.error().message);
        EXPECT_FALSE(write(path, m_chapters));
        EXPECT_FALSE(ZLMediaFile::isMediaFile(path));
        EXPECT_EQ(contentsOf(path), bytes);
    }
    EXPECT_FALSE(ZLMediaFile::read(m_folder.path()));
    EXPECT_FALSE(ZLMediaFile::read(m_folder.filePath(u"missing"_s)));
    ASSERT_EQ(mkfifo(QFile::encodeName(m_folder.filePath(u"pipe"_s)).constData(), 0600), 0);
    EXPECT_FALSE(ZLMediaFile::read(m_folder.filePath(u"pipe"_s)));
}

TEST_F(ZLMediaFileTest, AMarkerIsNeverLaterThanItsChapter)
{
    const QString path = store(wave().replace(24, 4, ZLBytes::fromLittle(quint32(44100))));
    ASSERT_TRUE(write(path, { { 1, 2, u"a"_s, {} }, { 999, 1000, u"b"_s, {} } }));
    const QByteArray bytes = contentsOf(path);
    const qsizetype points = bytes.indexOf("cue ") + 12;
    EXPECT_EQ(ZLBytes::little<quint32>(bytes, points + 20), 44U);
    EXPECT_EQ(ZLBytes::little<quint32>(bytes, points + 24 + 20), 44055U);
    EXPECT_EQ(ZLMediaFile::read(path).value().chapters.last().start, 999);
}
