#include "document/ZLStoredDocument.h"

#include "platform/ZLAtomicFile.h"
#include "platform/archive/ZLArchivedDictionary.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class ZLStoredDocumentTest : public testing::Test {
protected:
    ZLStoredDocumentTest()
    {
        ZLDocumentContents contents;
        contents.chapters = { QVariantMap { { u"Title"_s, u"One"_s } } };
        contents.duration = 12.5;
        stored = ZLDocumentFile::encode(contents);
    }

    [[nodiscard]] QString write(const QByteArray& bytes) const
    {
        const QString path = temporary.filePath(u"show.zelta"_s);
        EXPECT_TRUE(ZLAtomicFile::write(path, bytes));
        return path;
    }

    QByteArray stored;
    QTemporaryDir temporary;
};

TEST_F(ZLStoredDocumentTest, ADocumentIsReadWithItsBytes)
{
    const QString path = write(stored);
    const auto read = ZLStoredDocument::read(path);
    ASSERT_TRUE(read);
    EXPECT_EQ(read.value().bytes, stored);
    EXPECT_EQ(read.value().contents.duration, 12.5);
    const auto contents = ZLStoredDocument::contentsOf(path);
    ASSERT_TRUE(contents);
    EXPECT_EQ(contents.value(), read.value().contents);
}

TEST_F(ZLStoredDocumentTest, DictionariesMayStayAsTheyAreStored)
{
    const auto contents = ZLStoredDocument::contentsOf(write(stored), ZLFileLinks::Follow, ZLDictionaryForm::Archived);
    ASSERT_TRUE(contents);
    EXPECT_NE(ZLArchivedDictionary::in(contents.value().chapters.first()), nullptr);
}

TEST_F(ZLStoredDocumentTest, WhatIsNotThereOrNoDocumentIsToldWithItsPath)
{
    const QString missing = temporary.filePath(u"missing.zelta"_s);
    const auto unread = ZLStoredDocument::read(missing);
    ASSERT_FALSE(unread);
    EXPECT_EQ(unread.error().message, missing + u": No such file or directory"_s);
    const QString path = write("a text");
    const auto text = ZLStoredDocument::contentsOf(path);
    ASSERT_FALSE(text);
    EXPECT_EQ(text.error().message, path + u" is not a Zelta document."_s);
    ASSERT_EQ(write("bplist, and then nothing"), path);
    const auto damaged = ZLStoredDocument::read(path);
    ASSERT_FALSE(damaged);
    EXPECT_EQ(damaged.error().message, path + u" is damaged, or it is not a Zelta document."_s);
}

TEST_F(ZLStoredDocumentTest, ALinkIsFollowedUnlessItIsRefused)
{
    const QString link = temporary.filePath(u"link.zelta"_s);
    ASSERT_TRUE(QFile::link(write(stored), link));
    EXPECT_TRUE(ZLStoredDocument::read(link));
    EXPECT_FALSE(ZLStoredDocument::read(link, ZLFileLinks::Refuse));
}

}
