#include "document/ZLDocumentFile.h"

#include "document/ZLChapterDocument.h"
#include "platform/archive/ZLArchivedDate.h"
#include "platform/archive/ZLKeyedArchiver.h"
#include "platform/archive/ZLKeyedUnarchiver.h"
#include "support/ZLChapterBuilders.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;
using ZLTestChapters::chapterAt;

namespace {

ZLDocumentContents decoded(const QVariant& root)
{
    const auto contents = ZLDocumentFile::decode(ZLKeyedArchiver::archivedData(root));
    EXPECT_TRUE(contents.isOk()) << qPrintable(contents.error().message);
    return contents.isOk() ? contents.value() : ZLDocumentContents();
}

}

TEST(ZLDocumentFileTest, ContentsComeBackUnchanged)
{
    const ZLDocumentContents contents { .chapters = { chapterAt(1.5, u"Intro ☕"_s)->dictionaryRepresentation(),
                                            chapterAt(-2.0)->dictionaryRepresentation() },
        .duration = 65.5,
        .templates = { chapterAt(0.0, u"Later"_s)->dictionaryRepresentation() } };
    const auto read = ZLDocumentFile::decode(ZLDocumentFile::encode(contents));
    ASSERT_TRUE(read.isOk());
    EXPECT_EQ(read.value(), contents);
}

TEST(ZLDocumentFileTest, BothFormsOfDictionariesAreTheSameFile)
{
    const QByteArray bytes = ZLDocumentFile::encode({ .chapters = { chapterAt(1.5)->dictionaryRepresentation(),
                                                          chapterAt(2.5, u"Later"_s)->dictionaryRepresentation() },
        .duration = 65.5,
        .templates = { chapterAt(0.0)->dictionaryRepresentation() } });
    const auto read = ZLDocumentFile::decode(bytes, ZLDictionaryForm::Archived);
    ASSERT_TRUE(read.isOk());
    EXPECT_EQ(read.value().chapters.size(), 2);
    EXPECT_EQ(read.value().duration, 65.5);
    EXPECT_TRUE(ZLArchivedDictionary::in(read.value().templates.value(0)));
    EXPECT_EQ(ZLDocumentFile::encode(read.value()), bytes);
}

TEST(ZLDocumentFileTest, TheFileHasExactlyThreeKeys)
{
    const auto root = ZLKeyedUnarchiver::unarchivedRoot(ZLDocumentFile::encode({}));
    ASSERT_TRUE(root.isOk());
    EXPECT_EQ(root.value().toMap(),
        QVariantMap({ { u"Chapters"_s, QVariantList() }, { u"Duration"_s, 0.0 }, { u"Templates"_s, QVariantList() } }));
}

TEST(ZLDocumentFileTest, KeysOfOtherVersionsAreWrittenBackUnchanged)
{
    const QVariantMap inner { { u"b"_s, QByteArray("\0\xff", 2) }, { u"a"_s, QVariantList { 1.5, true, u"☕"_s } } };
    const QVariantMap root { { u"Aardvark"_s, inner }, { u"Chapters"_s, QVariantList() }, { u"Duration"_s, 3.0 },
        { u"Future"_s, QVariantList { inner, inner, ZLArchivedDate::value(700'000'000.123'456) } },
        { u"Templates"_s, QVariantList() }, { u"Zero"_s, QVariant() } };
    const QByteArray bytes = ZLKeyedArchiver::archivedData(root);
    const auto maps = ZLDocumentFile::decode(bytes);
    ASSERT_TRUE(maps.isOk());
    EXPECT_EQ(ZLDocumentFile::encode(maps.value()), bytes);
    ZLChapterDocument document({});
    ASSERT_TRUE(document.readFromData(bytes));
    EXPECT_EQ(document.dataOfType(), bytes);
}

TEST(ZLDocumentFileTest, MissingEntriesReadAsEmpty)
{
    EXPECT_EQ(decoded(QVariantMap()), ZLDocumentContents());
}

TEST(ZLDocumentFileTest, ADurationThatIsATextIsReadAsItsNumber)
{
    EXPECT_EQ(decoded(QVariantMap { { u"Duration"_s, u"65.5"_s } }).duration, 65.5);
    EXPECT_EQ(decoded(QVariantMap { { u"Duration"_s, 65 } }).duration, 65.0);
    EXPECT_EQ(decoded(QVariantMap { { u"Duration"_s, QVariantList() } }).duration, 0.0);
}

TEST(ZLDocumentFileTest, ChaptersThatAreNoListReadAsNone)
{
    const auto contents = decoded(QVariantMap { { u"Chapters"_s, 5 }, { u"Templates"_s, QVariantMap() } });
    EXPECT_TRUE(contents.chapters.isEmpty());
    EXPECT_TRUE(contents.templates.isEmpty());
}

TEST(ZLDocumentFileTest, BytesThatAreNoDocumentAreRefusedWithAReason)
{
    for (const QByteArray& bytes :
        { QByteArray(), QByteArray("hello"), QByteArray(5000, '\0'), ZLKeyedArchiver::archivedData(u"just a text"_s),
            ZLKeyedArchiver::archivedData(QVariantList { 1 }), ZLDocumentFile::encode({}).chopped(1) }) {
        const auto contents = ZLDocumentFile::decode(bytes);
        ASSERT_FALSE(contents.isOk()) << bytes.size() << " bytes";
        EXPECT_FALSE(contents.error().message.isEmpty());
    }
}

TEST(ZLDocumentFileTest, ADurationThatIsNoFiniteNumberCountsAsNone)
{
    constexpr double infinite = std::numeric_limits<double>::infinity();
    const double noNumber = std::numeric_limits<double>::quiet_NaN();
    for (const QVariant& stored : { QVariant(infinite), QVariant(-infinite), QVariant(noNumber), QVariant(u"1e999"_s) })
        EXPECT_EQ(decoded(QVariantMap { { u"Duration"_s, stored } }).duration, 0.0) << qPrintable(stored.toString());
    EXPECT_EQ(decoded(QVariantMap { { u"Duration"_s, 65.5 } }).duration, 65.5);
}

TEST(ZLDocumentFileTest, DatesGoThroughUnchangedWhenAChapterIsEdited)
{
    QVariantList chapters;
    for (const double seconds : { 700'000'000.123'456, 3e12, -3e12, 700'000'000.25 }) {
        QVariantMap chapter = chapterAt(double(chapters.size()))->dictionaryRepresentation();
        chapter.insert(ZLChapterKey::Date, ZLArchivedDate::value(seconds));
        chapters.append(chapter);
    }
    ZLChapterDocument document({});
    ASSERT_TRUE(
        document.readFromData(ZLDocumentFile::encode({ .chapters = chapters, .duration = 9.0, .templates = {} })));
    document.updateChapterToTitle(document.chapterManager().chapterAtIndex(0), u"Edited"_s);
    const auto written = ZLDocumentFile::decode(document.dataOfType());
    ASSERT_TRUE(written.isOk());
    QVariantMap edited = chapters.at(0).toMap();
    edited.insert(ZLChapterKey::Title, u"Edited"_s);
    chapters[0] = edited;
    EXPECT_EQ(written.value().chapters, chapters);
}
