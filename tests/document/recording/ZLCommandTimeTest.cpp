#include "document/recording/ZLCommandTime.h"

#include "support/ZLDocumentFixture.h"

using namespace Qt::StringLiterals;
using Settings = ZLSettingsManager;

/// Commands that are carried out later than they were given. The host clock stands at 100 at first.
class ZLCommandTimeTest : public ZLDocumentFixture {
protected:
    /// Gives a command at a moment of the host clock; it is carried out `late` seconds after that.
    template <typename Command>
    void giveAt(double hostTime, double late, Command command)
    {
        advance(hostTime + late - m_hostClock->now());
        m_press = ZLPressStamp(hostTime);
        (m_document.*command)();
        m_press.reset();
    }
    void toggleAt(double hostTime, double late = 0.0)
    {
        giveAt(hostTime, late, &ZLChapterDocument::recordButtonPressed);
    }
    void markAt(double hostTime, double late = 0.0)
    {
        giveAt(hostTime, late, &ZLChapterDocument::addChapterButtonPressed);
    }
};

TEST_F(ZLCommandTimeTest, AMarkHasTheTimeOfItsPress)
{
    toggleAt(100.0);
    markAt(110.0, 0.5);
    EXPECT_EQ(times(), QList<double> { 10.0 });
    EXPECT_EQ(chapters().lastChapter()->realDate(), m_wallClock.addMSecs(-500)) << "and so has its date";
}

TEST_F(ZLCommandTimeTest, WhatNoPressGaveHasTheTimeOfItsBeingCarriedOut)
{
    toggleAt(100.0);
    advance(10.5);
    m_document.addChapterButtonPressed();
    EXPECT_EQ(times(), QList<double> { 10.5 });
    EXPECT_EQ(chapters().lastChapter()->realDate(), m_wallClock);
}

TEST_F(ZLCommandTimeTest, StartAndStopCountFromTheirPressesToo)
{
    toggleAt(100.0, 0.25);
    EXPECT_EQ(m_document.startTime(), 100.0);
    EXPECT_EQ(m_document.currentDuration(), 0.25);
    toggleAt(160.0, 0.75);
    EXPECT_EQ(m_document.duration(), 60.0);
    toggleAt(500.0, 0.5);
    advance(29.5);
    EXPECT_EQ(m_document.currentDuration(), 90.0);
    history().undo();
    history().undo();
    EXPECT_EQ(m_document.startTime(), 100.0) << "as if it had never been stopped";
    history().redo();
    EXPECT_EQ(m_document.currentDuration(), 60.0);
}

TEST_F(ZLCommandTimeTest, TheChapterThatAStartMakesStandsAtExactlyZero)
{
    Settings::setCreateNewChapterOnStart(true);
    Settings::setCreateNewChapterAfterPause(true);
    toggleAt(100.1, 0.7);
    EXPECT_EQ(times(), QList<double> { 0.0 });
    EXPECT_EQ(chapters().lastChapter()->realDate(), m_wallClock.addMSecs(-700));
    toggleAt(160.3, 0.3);
    const double reading = m_document.duration();
    toggleAt(500.7, 0.9);
    EXPECT_EQ(times(), (QList<double> { 0.0, reading })) << "and after a pause where the clock stood";
}

TEST_F(ZLCommandTimeTest, TheChapterOfAStartWithAGivenTimeStandsThere)
{
    Settings::setCreateNewChapterOnStart(true);
    m_document.startRecordingWithTime(60.0);
    EXPECT_EQ(times(), QList<double> { 0.0 });
    EXPECT_EQ(m_document.currentDuration(), 40.0);
}

TEST_F(ZLCommandTimeTest, AfterTheBeepTheEndOfTheBeepCountsAndNotThePress)
{
    Settings::setPlaySoundBeforeRecording(true);
    Settings::setCreateNewChapterOnStart(true);
    toggleAt(100.0, 0.2);
    ASSERT_TRUE(m_document.isWaitingForBeep());
    advance(0.8);
    // A press that is under way has nothing to do with the sound.
    m_press = ZLPressStamp(100.5);
    m_document.soundDidFinishPlaying();
    EXPECT_EQ(m_document.startTime(), 101.0);
    EXPECT_EQ(times(), QList<double> { 0.0 });
}

TEST_F(ZLCommandTimeTest, APressFromBeforeTheSpanCountsAsItsStart)
{
    record(60.0);
    toggleAt(500.0);
    markAt(499.0, 1.5);
    EXPECT_EQ(times(), QList<double> { 60.0 });
    toggleAt(499.5, 1.5);
    EXPECT_EQ(m_document.duration(), 60.0) << "a stop does not take away what was recorded before";
}

TEST_F(ZLCommandTimeTest, APressOfTheFutureCountsWhenItIsCarriedOut)
{
    toggleAt(100.0);
    markAt(120.0, -10.0);
    EXPECT_EQ(times(), QList<double> { 10.0 });
}

TEST_F(ZLCommandTimeTest, WhetherTheClockRunsIsDecidedWhenTheCommandIsCarriedOut)
{
    markAt(100.0, 5.0);
    EXPECT_EQ(chapters().count(), 0) << "the clock stands";
    toggleAt(106.0);
    toggleAt(120.0);
    markAt(119.0, 2.0);
    EXPECT_EQ(chapters().count(), 0) << "it ran when the press came, and stands now";
}

TEST_F(ZLCommandTimeTest, CommandsAreCarriedOutAsTheyComeAndMarksStandInTheOrderOfTheirTimes)
{
    toggleAt(100.0);
    const auto first = addTemplate(u"came first"_s);
    const auto second = addTemplate(u"pressed first"_s);
    markAt(112.0, 1.0);
    markAt(110.0, 3.5);
    EXPECT_EQ(titles(), QStringList({ u"pressed first"_s, u"came first"_s }));
    EXPECT_EQ(times(), (QList<double> { 10.0, 12.0 }));
    EXPECT_EQ(chapters().chapterAtIndex(m_document.selectedRow()), second) << "the newest one is selected";
}

TEST_F(ZLCommandTimeTest, ATemplateIsStampedWithThePressAndItsOwnTimeStays)
{
    toggleAt(100.0);
    addTemplate(u"prepared"_s);
    addTemplate(u"timed"_s, 30.0);
    markAt(105.0, 1.0);
    markAt(106.0, 1.0);
    EXPECT_EQ(times(), (QList<double> { 5.0, 30.0 }));
}

TEST_F(ZLCommandTimeTest, AMarkRightAfterWakingUpLiesAfterTheSleepHoweverLateItIsCarriedOut)
{
    toggleAt(100.0);
    advance(10.0);
    // The host clock stands during the sleep.
    m_bootClock->advance(600.0);
    m_document.noticeSleep();
    markAt(109.95, 0.5);
    ASSERT_EQ(m_document.undecidedSleeps().size(), 1);
    m_document.addSleptTime();
    EXPECT_EQ(times(), QList<double> { 610.0 });
}

TEST_F(ZLCommandTimeTest, RedoingAMarkKeepsItsTime)
{
    toggleAt(100.0);
    markAt(110.0, 0.5);
    history().undo();
    advance(5.0);
    m_press = ZLPressStamp(115.0);
    history().redo();
    EXPECT_EQ(times(), QList<double> { 10.0 });
}
