#include "import/ZLImportSource.h"

#include "document/ZLDocumentFile.h"
#include "model/ZLChapter.h"
#include "platform/ZLAtomicFile.h"

#include <QTemporaryDir>
#include <QTimeZone>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QDateTime dateOfTheChapter()
{
    return { QDate(2026, 3, 1), QTime(20, 15), QTimeZone::utc() };
}

QByteArray document()
{
    ZLChapter chapter;
    chapter.setTimeStamp(12.5);
    chapter.setTitle(u"From a document"_s);
    chapter.setEnabled(false);
    chapter.setTags(u"politics"_s);
    chapter.setRealDate(dateOfTheChapter());
    chapter.setUuid(u"A1"_s);
    return ZLDocumentFile::encode(
        { .chapters = { chapter.dictionaryRepresentation() }, .duration = 60, .templates = {} });
}

}

class ZLImportSourceTest : public testing::Test {
protected:
    QString written(const QString& name, const QByteArray& bytes) const
    {
        const QString path = m_folder.filePath(name);
        EXPECT_TRUE(ZLAtomicFile::write(path, bytes).isOk());
        return path;
    }

    QTemporaryDir m_folder;
};

TEST_F(ZLImportSourceTest, TheContentsTellTheFormWhateverTheName)
{
    const auto labels = ZLImportSource::fromFile(written(u"labels.json"_s, "1.5\t1.5\tOne\n"));
    ASSERT_TRUE(labels.isOk()) << qPrintable(labels.error().message);
    EXPECT_EQ(labels.value().found.formName, u"Audacity Labels"_s);
    EXPECT_EQ(labels.value().found.lists.constFirst().chapters.constFirst().start, 1.5);

    const auto stored = ZLImportSource::fromFile(written(u"show.txt"_s, document()));
    ASSERT_TRUE(stored.isOk());
    EXPECT_EQ(stored.value().found.formName, u"Zelta"_s);
    EXPECT_EQ(stored.value().duration, 60.0);
    const ZLListedChapter expected { .start = 12.5,
        .title = u"From a document"_s,
        .isEnabled = false,
        .tags = u"politics"_s,
        .date = dateOfTheChapter(),
        .uuid = u"A1"_s };
    EXPECT_EQ(stored.value().found.lists.constFirst().chapters, QList { expected });
}

TEST_F(ZLImportSourceTest, AnAudioFileGivesItsChaptersAndItsLength)
{
    const auto audio = ZLImportSource::fromFile(QStringLiteral(ZELTA_AUDIO_FILE));
    ASSERT_TRUE(audio.isOk()) << qPrintable(audio.error().message);
    EXPECT_EQ(audio.value().found.formName, u"MP3"_s);
    EXPECT_FALSE(audio.value().found.lists.constFirst().chapters.isEmpty());
    EXPECT_GT(audio.value().duration, 0.0);
    EXPECT_FALSE(ZLImportSource::isList(QStringLiteral(ZELTA_AUDIO_FILE)));
}

TEST_F(ZLImportSourceTest, LinesOfAPastedListWithoutATimeAreKept)
{
    const auto source = ZLImportSource::fromText(u"Today\n0:00 Welcome\n\n  Mail bag\n1:00 News\n"_s);
    ASSERT_TRUE(source.isOk());
    EXPECT_EQ(source.value().textsWithoutTime, (QStringList { u"Today"_s, u"Mail bag"_s }));
    const auto labels = ZLImportSource::fromText(u"0.0\t0.0\tOne\nodd\n"_s);
    ASSERT_TRUE(labels.isOk());
    EXPECT_TRUE(labels.value().textsWithoutTime.isEmpty());
}

TEST_F(ZLImportSourceTest, WhatIsNoneIsRefusedWithItsName)
{
    for (const QString& path : { written(u"notes.txt"_s, "no times at all\n"), written(u"broken.zelta"_s, "0:00 One\n"),
             written(u"large.txt"_s, QByteArray(ZLListSource::MostBytes + 1, 'x')), m_folder.filePath(u"missing.txt"_s),
             m_folder.path() }) {
        const auto source = ZLImportSource::fromFile(path);
        ASSERT_FALSE(source.isOk()) << qPrintable(path);
        EXPECT_TRUE(source.error().message.contains(path)) << qPrintable(source.error().message);
    }
}
