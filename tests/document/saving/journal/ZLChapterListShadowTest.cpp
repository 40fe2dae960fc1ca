#include "document/saving/journal/ZLChapterListShadow.h"

#include "document/ZLDocumentFile.h"
#include "support/ZLChapterBuilders.h"

#include <QTimeZone>
#include <gtest/gtest.h>

#include <limits>
#include <random>

using namespace Qt::StringLiterals;

/// What a shadow tells is applied to a copy of the list, which must then read as the list does.
class ZLChapterListShadowTest : public testing::Test {
protected:
    /// Four chapters, at 10 to 40 seconds, that the shadow knows.
    ZLChapterListShadowTest()
    {
        for (int number = 1; number <= 4; ++number)
            list.addChapter(ZLTestChapters::chapterAt(number * 10.0, QString::number(number)));
        follow();
    }

    /// What is told now; the copy follows it.
    std::optional<ZLJournalSplice> follow()
    {
        const auto difference = shadow.takeDifference();
        const auto splice = difference ? std::optional(difference->asSplice()) : std::nullopt;
        if (splice) {
            copy.remove(splice->first, splice->removedCount);
            for (qsizetype index = 0; index < splice->inserted.size(); ++index)
                copy.insert(splice->first + index, splice->inserted.at(index));
        }
        EXPECT_EQ(bytesOf(copy), bytesOfList()) << "the journal would hold something else than the list";
        return splice;
    }

    void expectSplice(qsizetype first, qsizetype removed, qsizetype inserted)
    {
        const auto splice = follow();
        ASSERT_TRUE(splice);
        EXPECT_EQ(splice->first, first);
        EXPECT_EQ(splice->removedCount, removed);
        EXPECT_EQ(splice->inserted.size(), inserted);
    }

    void expectNoDifference() { EXPECT_FALSE(follow()); }

    /// By the bytes of a file: a time that is no number is not equal to itself.
    static QByteArray bytesOf(const QVariantList& chapters) { return ZLDocumentFile::encode({ chapters, 0.0, {} }); }
    QByteArray bytesOfList()
    {
        QVariantList chapters;
        for (const ZLChapterPointer& chapter : list.chapters())
            chapters.append(chapter->dictionaryRepresentation());
        return bytesOf(chapters);
    }

    void changeSomething(std::mt19937& random)
    {
        const auto below = [&random](qsizetype limit) { return qsizetype(random() % quint32(limit)); };
        const ZLChapterPointer some = list.count() > 0 ? list.chapters().at(below(list.count())) : nullptr;
        const int kind = int(below(11));
        if (!some || kind < 2)
            list.addChapter(ZLTestChapters::chapterAt(double(below(50)), QString::number(random())));
        else if (kind == 2)
            list.removeChapter(some);
        else if (kind == 3)
            some->setTitle(QString::number(random()));
        else if (kind == 4)
            some->setTimeStamp(double(below(50)));
        else if (kind == 5)
            some->setEnabled(!some->isEnabled());
        else if (kind == 6)
            list.removeChapterAtIndex(below(list.count()));
        else if (kind == 7)
            list.setChapters(list.allChapters().mid(below(list.count())));
        else if (kind == 8)
            list.exchangeChapters(
                {}, { ZLTestChapters::chapterAt(double(below(50))), ZLTestChapters::chapterAt(30.0) });
        else if (kind == 9)
            list.exchangeChapters(
                { some, list.chapters().at(below(list.count())) }, { ZLTestChapters::chapterAt(7.0) });
        else
            list.moveTimes(1.0);
    }

    ZLChapterManager list;
    ZLChapterListShadow shadow { list };
    QVariantList copy;
};

TEST_F(ZLChapterListShadowTest, NothingIsRememberedAtFirst)
{
    ZLChapterListShadow another(list);
    const auto everything = another.takeDifference();
    ASSERT_TRUE(everything);
    EXPECT_EQ(everything->first, 0);
    EXPECT_EQ(everything->removedCount, 0);
    EXPECT_EQ(everything->inserted.size(), 4);
    EXPECT_FALSE(another.takeDifference());
}

TEST_F(ZLChapterListShadowTest, AMarkIsTheOneChapterWhateverTheLengthOfTheList)
{
    for (int number = 0; number < 1000; ++number)
        list.addChapter(ZLTestChapters::chapterAt(100.0 + number));
    expectSplice(4, 0, 1000);
    list.addChapter(ZLTestChapters::chapterAt(2000.0));
    expectSplice(1004, 0, 1);
    list.addChapter(ZLTestChapters::chapterAt(15.0));
    expectSplice(1, 0, 1);
    list.addChapter(ZLTestChapters::chapterAt(0.0));
    expectSplice(0, 0, 1);
    expectNoDifference();
}

TEST_F(ZLChapterListShadowTest, ARemovalIsTheOnePlace)
{
    list.removeChapterAtIndex(1);
    expectSplice(1, 1, 0);
    list.removeLastChapter();
    expectSplice(2, 1, 0);
    list.removeChapterAtIndex(0);
    expectSplice(0, 1, 0);
    list.removeLastChapter();
    expectSplice(0, 1, 0);
    expectNoDifference();
}

TEST_F(ZLChapterListShadowTest, AnEditIsTheOneChapterAndTwoAreAllBetweenThem)
{
    list.chapterAtIndex(2)->setTitle(u"x"_s);
    expectSplice(2, 1, 1);
    list.chapterAtIndex(0)->setLink(u"https://example.org"_s);
    list.chapterAtIndex(2)->setEnabled(false);
    expectSplice(0, 3, 3);
    list.chapterAtIndex(3)->setTags(u"tag"_s);
    expectSplice(3, 1, 1);
    list.chapterAtIndex(3)->setRealDate(QDateTime::fromMSecsSinceEpoch(1, QTimeZone::utc()));
    expectSplice(3, 1, 1);
}

TEST_F(ZLChapterListShadowTest, ATimeThatReordersTheListIsFollowedBeforeAndAfterTheOrderIsRestored)
{
    list.chapters().at(0)->setTimeStamp(35.0);
    expectSplice(0, 1, 1);
    list.sortChapters();
    expectSplice(0, 3, 3);
    expectNoDifference();
}

TEST_F(ZLChapterListShadowTest, AnotherObjectWithTheSameContentsIsNoDifference)
{
    const ZLChapterPointer chapter = list.chapterAtIndex(1);
    list.removeChapter(chapter);
    list.addChapter(chapter);
    expectNoDifference();
    list.removeChapter(chapter);
    list.addChapter(std::make_shared<ZLChapter>(chapter->dictionaryRepresentation()));
    expectNoDifference();
}

TEST_F(ZLChapterListShadowTest, AChangeInAnotherListIsNoDifference)
{
    ZLChapterManager other;
    other.addChapter(ZLTestChapters::chapterAt(1.0));
    other.chapterAtIndex(0)->setTitle(u"x"_s);
    expectNoDifference();
}

TEST_F(ZLChapterListShadowTest, AnAbsentTextIsAnotherThanAnEmptyOne)
{
    const ZLChapterPointer chapter = list.chapterAtIndex(1);
    chapter->setTitle(u""_s);
    expectSplice(1, 1, 1);
    chapter->setTitle(QString());
    expectSplice(1, 1, 1);
    chapter->setTitle(QString());
    expectNoDifference();
}

TEST_F(ZLChapterListShadowTest, ATimeThatIsNoNumberIsNotAlwaysNews)
{
    list.addChapter(ZLTestChapters::chapterAt(std::numeric_limits<double>::quiet_NaN()));
    expectSplice(4, 0, 1);
    list.chapterAtIndex(0)->setTitle(u"x"_s);
    expectSplice(0, 1, 1);
    expectNoDifference();
}

TEST_F(ZLChapterListShadowTest, AListInItsUsersOrderIsFollowedToo)
{
    list.setWantsSortedChapters(false);
    list.addChapter(ZLTestChapters::chapterAt(5.0));
    expectSplice(4, 0, 1);
    const ZLChapterPointer last = list.chapterAtIndex(4);
    list.removeChapterAtIndex(4);
    list.insertChapterAtIndex(last, 1);
    expectSplice(1, 4, 4);
}

TEST_F(ZLChapterListShadowTest, AReplacedListIsComparedAnew)
{
    const ZLChapterSequence before = list.allChapters();
    list.setChapters({});
    expectSplice(0, 4, 0);
    list.setChapters(before);
    expectSplice(0, 0, 4);
    list.setChapters(before);
    expectNoDifference();
}

TEST_F(ZLChapterListShadowTest, WhateverHappensBetweenTwoQuestionsIsFollowed)
{
    std::mt19937 random(7);
    for (int question = 0; question < 1000 && !HasFailure(); ++question) {
        for (quint32 change = random() % 4; change > 0; --change)
            changeSomething(random);
        follow();
    }
}
