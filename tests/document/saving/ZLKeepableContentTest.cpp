#include "document/saving/ZLKeepableContent.h"

#include "SavingFixture.h"

namespace {

class ZLKeepableContentTest : public SavingFixture { };

TEST_F(ZLKeepableContentTest, AChapterATemplateOrAReadingWouldBeMissed)
{
    EXPECT_FALSE(ZLKeepableContent::isIn(document));
    addChapter("One");
    EXPECT_TRUE(ZLKeepableContent::isIn(document));
    document.undoManager().undo();
    EXPECT_FALSE(ZLKeepableContent::isIn(document));
    document.startRecordingWithTime(clock->seconds);
    EXPECT_TRUE(ZLKeepableContent::isIn(document)) << "the clock runs, also at zero";
    clock->seconds += 5.0;
    document.recordButtonPressed();
    EXPECT_TRUE(ZLKeepableContent::isIn(document)) << "the clock has a reading";
}

TEST_F(ZLKeepableContentTest, ATemplateWouldBeMissedToo)
{
    const auto prepared = std::make_shared<ZLChapter>();
    document.templateViewController().chapterManager().insertChapterAtIndex(prepared, 0);
    EXPECT_TRUE(ZLKeepableContent::isIn(document));
}

TEST_F(ZLKeepableContentTest, WhatCanComeBackMayBeIn)
{
    EXPECT_FALSE(ZLKeepableContent::isOrMayBeIn(document));
    addChapter("One");
    EXPECT_TRUE(ZLKeepableContent::isOrMayBeIn(document));
    document.undoManager().undo();
    EXPECT_TRUE(ZLKeepableContent::isOrMayBeIn(document)) << "redo brings it back";
    document.undoManager().removeAllActions();
    EXPECT_FALSE(ZLKeepableContent::isOrMayBeIn(document));
}

}
