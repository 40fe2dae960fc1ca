#include "document/ZLChapterDocument.h"

#include "support/ZLChangeSpy.h"
#include "support/ZLDocumentFixture.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

class ZLSleptTimeTest : public ZLDocumentFixture {
protected:
    void press() { m_document.recordButtonPressed(); }
    void mark() { m_document.addChapterButtonPressed(); }

    /// The show goes on for `seconds`, of which the recording clock sees nothing.
    void sleep(double seconds)
    {
        m_bootClock->advance(seconds);
        m_wallClock = m_wallClock.addMSecs(qint64(seconds * 1000.0));
    }
    [[nodiscard]] QList<ZLSleepWhileRecording> sleeps() const { return m_document.undecidedSleeps(); }
    [[nodiscard]] QList<QDateTime> dates()
    {
        QList<QDateTime> result;
        const auto all = chapters().allChapters();
        for (const auto& chapter : all)
            result.append(chapter->realDate());
        return result;
    }

    /// Marks at 10 s and 20 s, sleeps twelve minutes at 30 s and marks at 40 s, which was 760 s of the show.
    void recordAShowWithASleep()
    {
        press();
        advance(10.0);
        mark();
        advance(10.0);
        mark();
        advance(10.0);
        sleep(720.0);
        advance(10.0);
        mark();
    }
};

TEST_F(ZLSleptTimeTest, ASleepWhileRecordingIsTold)
{
    const QDateTime start = m_wallClock;
    press();
    advance(30.0);
    sleep(720.0);
    const ZLChangeSpy changes(m_document, ZLDocumentChange::Sleeps);
    m_document.noticeSleep();
    m_document.noticeSleep();
    EXPECT_EQ(changes.size(), 1);
    EXPECT_EQ(sleeps(), (QList { ZLSleepWhileRecording { 30.0, 720.0, start.addSecs(30) } }));
    EXPECT_EQ(m_document.currentDuration(), 30.0) << "the clock stood";
    EXPECT_EQ(history().undoActionName(), u"Start Recording"_s) << "nothing is decided";
}

TEST_F(ZLSleptTimeTest, TheRunningClockLooksByItself)
{
    press();
    advance(30.0);
    sleep(720.0);
    EXPECT_TRUE(QTest::qWaitFor([this] { return sleeps().size() == 1; }));
}

TEST_F(ZLSleptTimeTest, ASleepWhileTheClockStandsIsNothing)
{
    sleep(720.0);
    m_document.noticeSleep();
    press();
    m_document.noticeSleep();
    EXPECT_EQ(sleeps().size(), 0);
    advance(5.0);
    press();
    sleep(720.0);
    press();
    m_document.noticeSleep();
    EXPECT_EQ(sleeps().size(), 0) << "nor in a pause";
}

TEST_F(ZLSleptTimeTest, AddingTheTimeMovesTheClockAndTheChaptersAfterTheSleep)
{
    recordAShowWithASleep();
    const QList<QDateTime> datesBefore = dates();
    ASSERT_EQ(times(), (QList { 10.0, 20.0, 40.0 }));
    m_document.addSleptTime();
    EXPECT_EQ(times(), (QList { 10.0, 20.0, 760.0 }));
    EXPECT_EQ(m_document.currentDuration(), 760.0);
    EXPECT_EQ(dates(), datesBefore) << "the wall clock had gone on";
    EXPECT_TRUE(m_document.isRecording());
    EXPECT_EQ(sleeps().size(), 0);
    advance(5.0);
    mark();
    EXPECT_EQ(times().last(), 765.0);
}

TEST_F(ZLSleptTimeTest, AMarkRightAfterWakingLiesAfterTheSleep)
{
    press();
    advance(30.0);
    mark();
    advance(0.001);
    sleep(720.0);
    // Before the clock's timer came to look.
    mark();
    m_document.addSleptTime();
    EXPECT_EQ(times(), (QList { 30.0, 750.001 }));
}

TEST_F(ZLSleptTimeTest, AStopRightAfterWakingTellsTheSleepToo)
{
    press();
    advance(30.0);
    sleep(720.0);
    press();
    ASSERT_EQ(sleeps().size(), 1);
    m_document.addSleptTime();
    EXPECT_FALSE(m_document.isRecording());
    EXPECT_EQ(m_document.currentDuration(), 750.0);
}

TEST_F(ZLSleptTimeTest, ItIsOneStepThatUndoAndRedoKnow)
{
    recordAShowWithASleep();
    m_document.addSleptTime();
    EXPECT_EQ(history().undoActionName(), u"Add Slept Time"_s);
    history().undo();
    EXPECT_EQ(times(), (QList { 10.0, 20.0, 40.0 }));
    EXPECT_EQ(m_document.currentDuration(), 40.0);
    EXPECT_EQ(sleeps().size(), 1) << "it can be decided anew";
    EXPECT_EQ(history().redoActionName(), u"Add Slept Time"_s);
    history().redo();
    EXPECT_EQ(times(), (QList { 10.0, 20.0, 760.0 }));
    EXPECT_EQ(m_document.currentDuration(), 760.0);
    EXPECT_EQ(sleeps().size(), 0);
}

TEST_F(ZLSleptTimeTest, LeavingItChangesNothingAndCanBeTakenBack)
{
    recordAShowWithASleep();
    m_document.leaveSleptTime();
    EXPECT_EQ(times(), (QList { 10.0, 20.0, 40.0 }));
    EXPECT_EQ(m_document.currentDuration(), 40.0);
    EXPECT_EQ(sleeps().size(), 0);
    EXPECT_EQ(history().undoActionName(), u"Leave Slept Time"_s);
    history().undo();
    EXPECT_EQ(sleeps().size(), 1);
}

TEST_F(ZLSleptTimeTest, SeveralSleepsAreAddedInOneStep)
{
    recordAShowWithASleep();
    advance(10.0);
    sleep(100.0);
    advance(10.0);
    mark();
    EXPECT_EQ(sleeps().size(), 2);
    m_document.addSleptTime();
    EXPECT_EQ(times(), (QList { 10.0, 20.0, 760.0, 880.0 }));
    EXPECT_EQ(m_document.currentDuration(), 880.0);
    history().undo();
    EXPECT_EQ(times(), (QList { 10.0, 20.0, 40.0, 60.0 }));
}

TEST_F(ZLSleptTimeTest, ASleepAfterTheDecisionIsAnotherOne)
{
    recordAShowWithASleep();
    m_document.addSleptTime();
    sleep(100.0);
    advance(10.0);
    mark();
    EXPECT_EQ(sleeps().size(), 1);
    m_document.addSleptTime();
    EXPECT_EQ(times(), (QList { 10.0, 20.0, 760.0, 870.0 }));
}

TEST_F(ZLSleptTimeTest, TheTimeCanBeAddedAfterTheStopAndTheStopUndoneBeforeThat)
{
    recordAShowWithASleep();
    advance(10.0);
    press();
    m_document.addSleptTime();
    EXPECT_EQ(m_document.currentDuration(), 770.0);
    history().undo();
    EXPECT_EQ(m_document.currentDuration(), 50.0);
    history().undo();
    EXPECT_TRUE(m_document.isRecording());
    EXPECT_EQ(m_document.currentDuration(), 50.0);
    m_document.addSleptTime();
    EXPECT_EQ(m_document.currentDuration(), 770.0);
}

TEST_F(ZLSleptTimeTest, ASleepBetweenAStopAndItsUndoingBelongsToTheRecording)
{
    press();
    advance(30.0);
    press();
    sleep(720.0);
    history().undo();
    m_document.noticeSleep();
    ASSERT_EQ(sleeps().size(), 1);
    m_document.addSleptTime();
    EXPECT_EQ(m_document.currentDuration(), 750.0);
}

TEST_F(ZLSleptTimeTest, UndoingTheStartTakesTheOfferAway)
{
    press();
    advance(30.0);
    sleep(720.0);
    m_document.noticeSleep();
    history().undo();
    EXPECT_EQ(m_document.currentDuration(), 0.0);
    EXPECT_EQ(sleeps().size(), 0);
    m_document.addSleptTime();
    EXPECT_EQ(m_document.currentDuration(), 0.0);
    history().redo();
    EXPECT_EQ(sleeps().size(), 1);
}

TEST_F(ZLSleptTimeTest, ANewFileHasNoOffer)
{
    recordAShowWithASleep();
    press();
    ASSERT_TRUE(m_document.readFromData(m_document.dataOfType()));
    EXPECT_EQ(sleeps().size(), 0);
}

TEST_F(ZLSleptTimeTest, WithoutASleepThereIsNothingToDecide)
{
    record(10.0);
    m_document.addSleptTime();
    m_document.leaveSleptTime();
    EXPECT_EQ(m_document.currentDuration(), 10.0);
    EXPECT_EQ(history().undoActionName(), u"Stop Recording"_s);
}

TEST_F(ZLSleptTimeTest, TheAddedTimeIsSaved)
{
    recordAShowWithASleep();
    const ZLChangeSpy changes(m_document, ZLDocumentChange::Contents);
    m_document.addSleptTime();
    EXPECT_GE(changes.size(), 1);
    const auto stored = ZLDocumentFile::decode(m_document.dataOfType());
    ASSERT_TRUE(stored);
    EXPECT_EQ(stored.value().duration, 760.0);
}
