#include "document/shared/ZLDocumentChange.h"

#include "support/ZLChapterBuilders.h"

#include <gtest/gtest.h>

using Change = ZLDocumentChange;

TEST(ZLDocumentChangeTest, TwoChangesBecomeOne)
{
    const auto first = ZLTestChapters::chapterAt(1.0);
    const auto second = ZLTestChapters::chapterAt(2.0);
    Change change { Change::Texts, { first } };
    change.add({ Change::Selection });
    change.add({ Change::Times, { second } });
    EXPECT_EQ(change.parts, Change::Texts | Change::Selection | Change::Times);
    EXPECT_EQ(change.chapters, ZLChapterSequence({ first, second }));
    EXPECT_TRUE(change.concerns(Change::Rows | Change::Times));
    EXPECT_FALSE(change.concerns(Change::Rows));
}

TEST(ZLDocumentChangeTest, AnEditOfAnyChapterIsNotNarrowedByAnEditOfOne)
{
    const auto chapter = ZLTestChapters::chapterAt(1.0);
    Change any { Change::Times };
    any.add({ Change::Texts, { chapter } });
    EXPECT_TRUE(any.chapters.isEmpty());
    Change one { Change::Texts, { chapter } };
    one.add({ Change::Times });
    EXPECT_TRUE(one.chapters.isEmpty());
}
