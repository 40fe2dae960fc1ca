#include "app/ZLChapterChanges.h"

#include "support/ZLChapterBuilders.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class ZLChapterChangesTest : public testing::Test {
protected:
    ZLChapterChangesTest()
    {
        for (int number = 1; number <= 3; ++number)
            list.addChapter(ZLTestChapters::chapterAt(number * 10.0, QString::number(number)));
        changes = std::make_unique<ZLChapterChanges>(list);
    }

    /// "1:news" for each: where, and the title.
    static QStringList described(const QList<ZLChapterChanges::Row>& rows)
    {
        QStringList texts;
        for (const auto& row : rows)
            texts.append(u"%1:%2"_s.arg(row.index).arg(row.chapter->title()));
        return texts;
    }
    QStringList added() { return described(changes->takeAdded()); }
    QStringList removed() { return described(changes->takeRemoved()); }

    ZLChapterManager list;
    std::unique_ptr<ZLChapterChanges> changes;
};

TEST_F(ZLChapterChangesTest, WhatWasThereBeforeIsNoChange)
{
    EXPECT_TRUE(changes->isEmpty());
    EXPECT_EQ(added(), QStringList());
    EXPECT_EQ(removed(), QStringList());
}

TEST_F(ZLChapterChangesTest, WhatCameIsToldInOrderAndWhereItStandsNow)
{
    list.addChapter(ZLTestChapters::chapterAt(25.0, u"b"_s));
    list.addChapter(ZLTestChapters::chapterAt(5.0, u"a"_s));
    EXPECT_FALSE(changes->isEmpty());
    EXPECT_EQ(added(), (QStringList { u"0:a"_s, u"3:b"_s }));
    EXPECT_TRUE(changes->isEmpty()) << "told once";
    EXPECT_EQ(added(), QStringList());
}

TEST_F(ZLChapterChangesTest, WhatLeftIsToldInOrderAndWhereItStoodThen)
{
    list.removeLastChapter();
    list.removeChapterAtIndex(0);
    EXPECT_EQ(removed(), (QStringList { u"0:1"_s, u"2:3"_s }));
    EXPECT_TRUE(changes->isEmpty());
}

TEST_F(ZLChapterChangesTest, WhatCameAndWentInBetweenIsLeftOut)
{
    list.addChapter(ZLTestChapters::chapterAt(25.0));
    list.removeChapterAtIndex(2);
    EXPECT_TRUE(changes->isEmpty());
    const ZLChapterPointer first = list.chapterAtIndex(0);
    list.removeChapter(first);
    list.addChapter(first);
    EXPECT_TRUE(changes->isEmpty());
}

TEST_F(ZLChapterChangesTest, AnEditIsNeitherAComingNorAGoing)
{
    list.chapterAtIndex(0)->setTitle(u"x"_s);
    list.chapterAtIndex(0)->setTimeStamp(99.0);
    list.sortChapters();
    EXPECT_TRUE(changes->isEmpty());
}

TEST_F(ZLChapterChangesTest, OfAReplacedListOnlyTheDifferenceIsTold)
{
    ZLChapterSequence chapters = list.allChapters();
    chapters.removeFirst();
    chapters.append(ZLTestChapters::chapterAt(40.0, u"4"_s));
    list.setChapters(chapters);
    EXPECT_EQ(removed(), QStringList { u"0:1"_s });
    EXPECT_EQ(added(), QStringList { u"2:4"_s });
}

TEST_F(ZLChapterChangesTest, WhatWasToldIsNotHeldAnyLonger)
{
    const ZLChapterPointer first = list.chapterAtIndex(0);
    list.removeChapter(first);
    EXPECT_EQ(removed(), QStringList { u"0:1"_s });
    EXPECT_EQ(first.use_count(), 1);
}
