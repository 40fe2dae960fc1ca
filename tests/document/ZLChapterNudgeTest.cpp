#include "document/ZLChapterNudge.h"

#include "document/ZLChapterDocumentCommandsFixture.h"

using namespace Qt::StringLiterals;

class ZLChapterNudgeTest : public ZLChapterDocumentCommandsTest {
protected:
    void SetUp() override
    {
        m_chapter = addChapterAt(10.0, u"One"_s);
        m_chapter->setRealDate(m_wallClock);
        addChapterAt(20.0, u"Two"_s);
        select(0);
        history().removeAllActions();
    }

    void press(double seconds, double secondsAfterTheLastOne = 0.2)
    {
        m_pressClock->advance(secondsAfterTheLastOne);
        m_nudge.moveSelectedChapterBySeconds(seconds);
    }

    std::shared_ptr<ZLFakeHostClock> m_pressClock = std::make_shared<ZLFakeHostClock>();
    ZLChapterNudge m_nudge { m_document, m_pressClock };
    ZLChapterPointer m_chapter;
};

TEST_F(ZLChapterNudgeTest, PressesInQuickSuccessionAreOneStep)
{
    for (int presses = 0; presses < 3; ++presses)
        press(0.1, 1.0);
    press(-1.0);
    EXPECT_DOUBLE_EQ(m_chapter->timeStamp(), 9.3);
    EXPECT_EQ(m_chapter->realDate(), m_wallClock.addMSecs(-700));
    expectUndoName(u"Change Time"_s);
    history().undo();
    EXPECT_EQ(m_chapter->timeStamp(), 10.0);
    EXPECT_EQ(m_chapter->realDate(), m_wallClock);
    EXPECT_FALSE(history().canUndo());
    history().redo();
    EXPECT_DOUBLE_EQ(m_chapter->timeStamp(), 9.3);
    expectUndoName(u"Change Time"_s);
}

TEST_F(ZLChapterNudgeTest, APauseAnotherChapterOrAnythingInBetweenBeginsAnotherStep)
{
    press(0.1);
    press(0.1, 1.01);
    EXPECT_EQ(undoEverything(), 2);
    press(0.1);
    select(1);
    press(0.1);
    select(0);
    press(0.1);
    EXPECT_EQ(undoEverything(), 3);
    press(0.1);
    m_document.updateChapterToTitle(m_chapter, u"changed"_s);
    press(0.1);
    EXPECT_EQ(undoEverything(), 3);
    press(0.1);
    press(0.1);
    history().undo();
    press(0.1);
    EXPECT_EQ(undoEverything(), 1);
    EXPECT_EQ(m_chapter->timeStamp(), 10.0);
}

TEST_F(ZLChapterNudgeTest, StopsAtTheStart)
{
    m_chapter->setTimeStamp(0.05);
    press(-0.1);
    EXPECT_EQ(m_chapter->timeStamp(), 0.0);
    press(-1.0);
    EXPECT_EQ(m_chapter->timeStamp(), 0.0);
    EXPECT_TRUE(m_chapter->isEnabled());
    EXPECT_EQ(undoEverything(), 1);
    EXPECT_EQ(m_chapter->timeStamp(), 0.05);
    m_chapter->setTimeStamp(-3.0);
    m_chapter->setEnabled(false);
    press(-1.0);
    EXPECT_EQ(m_chapter->timeStamp(), -4.0) << "one before the start is free";
}

TEST_F(ZLChapterNudgeTest, GoesPastItsNeighbourAndStaysSelected)
{
    for (int presses = 0; presses < 11; ++presses)
        press(1.0);
    EXPECT_EQ(titles(), (QStringList { u"Two"_s, u"One"_s }));
    EXPECT_EQ(m_document.selectedRow(), 1);
    EXPECT_EQ(undoEverything(), 1);
    EXPECT_EQ(titles(), (QStringList { u"One"_s, u"Two"_s }));
}

TEST_F(ZLChapterNudgeTest, ManyTenthsAddUpAndReadSo)
{
    double time = 0.0;
    for (int tenths = 1; tenths <= 100'000; ++tenths) {
        time = ZLChapterNudge::movedTime(time, 0.1);
        ZLChapter chapter;
        chapter.setTimeStamp(time);
        ASSERT_EQ(chapter.timeString().last(4), u".%1"_s.arg(tenths % 10 * 100, 3, 10, QChar(u'0'))) << tenths;
    }
    EXPECT_DOUBLE_EQ(time, 10'000.0);
}

TEST_F(ZLChapterNudgeTest, DoesNothingWithoutAChapter)
{
    m_document.removeChapter(chapters().lastChapter());
    m_document.removeChapter(chapters().lastChapter());
    history().removeAllActions();
    press(0.1);
    EXPECT_FALSE(history().canUndo());
}
