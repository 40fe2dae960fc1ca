#include "app/ui/saving/ZLConcernDisplay.h"

#include "app/ui/ZLDesktopFixture.h"
#include "document/concerns/ZLSleepText.h"

using namespace Qt::StringLiterals;

class ZLConcernDisplayTest : public ZLDesktopFixture {
protected:
    [[nodiscard]] ZLChapterDocument* recordingDocumentThatSlept()
    {
        ZLChapterDocument* document = newDocument();
        document->recordButtonPressed();
        pass(30.0);
        m_bootClock->advance(720.0);
        document->noticeSleep();
        return document;
    }
    void pass(double seconds)
    {
        m_clock->advance(seconds);
        m_bootClock->advance(seconds);
    }
};

TEST_F(ZLConcernDisplayTest, ASleepIsToldWithItsTwoWaysOut)
{
    ZLChapterDocument* document = recordingDocumentThatSlept();
    EXPECT_EQ(barText(document), ZLSleepText::sentence(document->undecidedSleeps()));
    EXPECT_TRUE(barText(document).startsWith("The computer slept for 12 min from "_L1));
    EXPECT_EQ(barButtons(document), (QStringList { u"Add That Time"_s, u"Leave It Out"_s }));
}

TEST_F(ZLConcernDisplayTest, AddingTheTimeTakesTheBarAwayAndUndoingBringsItBack)
{
    ZLChapterDocument* document = recordingDocumentThatSlept();
    pass(10.0);
    document->addChapterButtonPressed();
    pressInBar(document, u"Add That Time"_s);
    EXPECT_EQ(barText(document), QString());
    EXPECT_EQ(document->currentDuration(), 760.0);
    EXPECT_EQ(document->chapterManager().lastChapter()->timeStamp(), 760.0);
    document->undoManager().undo();
    EXPECT_TRUE(barText(document).startsWith("The computer slept"_L1));
    EXPECT_EQ(document->currentDuration(), 40.0);
}

TEST_F(ZLConcernDisplayTest, LeavingItTakesTheBarAway)
{
    ZLChapterDocument* document = recordingDocumentThatSlept();
    pressInBar(document, u"Leave It Out"_s);
    EXPECT_EQ(barText(document), QString());
    EXPECT_EQ(document->currentDuration(), 30.0);
}

TEST_F(ZLConcernDisplayTest, UndoingTheStartTakesTheBarAway)
{
    ZLChapterDocument* document = recordingDocumentThatSlept();
    document->undoManager().undo();
    EXPECT_EQ(barText(document), QString());
}

TEST_F(ZLConcernDisplayTest, ASecondSleepTakesThePlaceOfTheFirst)
{
    ZLChapterDocument* document = recordingDocumentThatSlept();
    m_bootClock->advance(120.0);
    document->noticeSleep();
    EXPECT_TRUE(barText(document).startsWith("The computer slept 2 times, for 14 min altogether"_L1));
    EXPECT_EQ(windowOf(document).messageBar().texts().size(), 1);
}
