#include "document/ZLChapterDocument.h"

#include "support/ZLChangeSpy.h"
#include "support/ZLDocumentFixture.h"

#include <QCoreApplication>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using Settings = ZLSettingsManager;

class ZLRecordingTest : public ZLDocumentFixture {
protected:
    void press() { m_document.recordButtonPressed(); }

    /// Chapters after a first start and after a resume, made by the clock itself.
    QList<qsizetype> automaticChapters(bool onStart, bool afterPause)
    {
        Settings::setCreateNewChapterOnStart(onStart);
        Settings::setCreateNewChapterAfterPause(afterPause);
        ZLChapterDocument document(environment());
        document.recordButtonPressed();
        const qsizetype afterStart = document.chapterManager().count();
        advance(10.0);
        document.recordButtonPressed();
        document.recordButtonPressed();
        return { afterStart, document.chapterManager().count() };
    }
};

TEST_F(ZLRecordingTest, ANewDocumentIsIdle)
{
    EXPECT_FALSE(m_document.isRecording());
    EXPECT_EQ(m_document.currentDuration(), 0.0);
    EXPECT_EQ(m_document.startTime(), 0.0);
    EXPECT_FALSE(m_document.canAddChapter());
    EXPECT_EQ(m_document.clockText(), u"00:00:00.0"_s);
}

TEST_F(ZLRecordingTest, APauseKeepsTheRecordedTime)
{
    m_hostClock->setNow(100.0);
    press();
    m_hostClock->setNow(160.0);
    press();
    EXPECT_FALSE(m_document.isRecording());
    m_hostClock->setNow(500.0);
    EXPECT_EQ(m_document.currentDuration(), 60.0);
    press();
    m_hostClock->setNow(530.0);
    EXPECT_EQ(m_document.currentDuration(), 90.0);
}

TEST_F(ZLRecordingTest, AChangeOfTheWallClockDoesNotMoveTheRecordedTime)
{
    press();
    m_hostClock->advance(10.0);
    m_wallClock = m_wallClock.addDays(-1);
    EXPECT_EQ(m_document.currentDuration(), 10.0);
}

TEST_F(ZLRecordingTest, UndoingAStopCountsTheStoppedTimeToo)
{
    record(60.0);
    EXPECT_EQ(history().undoActionName(), u"Stop Recording"_s);
    advance(1000.0);
    history().undo();
    EXPECT_TRUE(m_document.isRecording());
    EXPECT_EQ(m_document.startTime(), 100.0);
    EXPECT_EQ(m_document.duration(), 0.0);
    EXPECT_EQ(m_document.currentDuration(), 1060.0);
    EXPECT_EQ(history().redoActionName(), u"Start Recording"_s);
}

TEST_F(ZLRecordingTest, RedoingAStopGoesBackToTheTimeOfTheStop)
{
    record(60.0);
    advance(1000.0);
    history().undo();
    advance(5.0);
    history().redo();
    EXPECT_FALSE(m_document.isRecording());
    EXPECT_EQ(m_document.currentDuration(), 60.0);
    EXPECT_EQ(history().undoActionName(), u"Stop Recording"_s);
    history().undo();
    EXPECT_EQ(m_document.currentDuration(), 1065.0);
}

TEST_F(ZLRecordingTest, UndoingAStartLeavesTheEarlierSpans)
{
    record(60.0);
    press();
    advance(7.0);
    EXPECT_EQ(history().undoActionName(), u"Start Recording"_s);
    history().undo();
    EXPECT_FALSE(m_document.isRecording());
    EXPECT_EQ(m_document.startTime(), 0.0);
    EXPECT_EQ(m_document.currentDuration(), 60.0);
    EXPECT_EQ(history().redoActionName(), u"Start Recording"_s);
}

TEST_F(ZLRecordingTest, RedoingAStartCountsFromTheFirstStart)
{
    press();
    const double firstStart = m_document.startTime();
    advance(5.0);
    history().undo();
    advance(20.0);
    history().redo();
    EXPECT_TRUE(m_document.isRecording());
    EXPECT_EQ(m_document.startTime(), firstStart);
    EXPECT_EQ(m_document.currentDuration(), 25.0);
    EXPECT_EQ(history().undoActionName(), u"Start Recording"_s);
}

TEST_F(ZLRecordingTest, TheAfterPauseSettingOnlyRefinesTheOnStartSetting)
{
    EXPECT_EQ(automaticChapters(false, false), QList<qsizetype>({ 0, 0 }));
    EXPECT_EQ(automaticChapters(false, true), QList<qsizetype>({ 0, 0 }));
    EXPECT_EQ(automaticChapters(true, false), QList<qsizetype>({ 1, 1 }));
    EXPECT_EQ(automaticChapters(true, true), QList<qsizetype>({ 1, 2 }));
}

TEST_F(ZLRecordingTest, TheFirstChapterStandsAtTheStart)
{
    Settings::setCreateNewChapterOnStart(true);
    press();
    ASSERT_EQ(chapters().count(), 1);
    EXPECT_EQ(chapters().lastChapter()->timeStamp(), 0.0);
    EXPECT_EQ(chapters().lastChapter()->realDate(), m_wallClock);
    EXPECT_EQ(m_document.selectedRow(), 0);
}

TEST_F(ZLRecordingTest, TheFirstChapterIsTheFirstTemplateWhenThereIsOne)
{
    Settings::setCreateNewChapterOnStart(true);
    addTemplate(u"Welcome"_s);
    press();
    EXPECT_EQ(titles(), QStringList({ u"Welcome"_s }));
    EXPECT_EQ(templates().count(), 0);
}

TEST_F(ZLRecordingTest, AStartAndItsChapterAreOneUndoableStep)
{
    Settings::setCreateNewChapterOnStart(true);
    press();
    const auto chapter = chapters().lastChapter();
    EXPECT_EQ(history().undoActionName(), u"Start Recording"_s);
    history().undo();
    EXPECT_FALSE(m_document.isRecording());
    EXPECT_EQ(chapters().count(), 0);
    EXPECT_FALSE(history().canUndo());
    EXPECT_EQ(history().redoActionName(), u"Delete Chapter"_s);
    history().redo();
    EXPECT_TRUE(m_document.isRecording());
    EXPECT_EQ(chapters().allChapters(), ZLChapterSequence({ chapter }));
    EXPECT_EQ(history().undoActionName(), u"Start Recording"_s);
}

TEST_F(ZLRecordingTest, UndoAndRedoNeverCreateAChapter)
{
    Settings::setCreateNewChapterOnStart(true);
    Settings::setCreateNewChapterAfterPause(true);
    press();
    advance(10.0);
    press();
    ASSERT_EQ(chapters().count(), 1);
    history().undo();
    EXPECT_TRUE(m_document.isRecording());
    EXPECT_EQ(chapters().count(), 1);
    history().redo();
    EXPECT_EQ(chapters().count(), 1);
    press();
    ASSERT_EQ(chapters().count(), 2);
    history().undo();
    EXPECT_EQ(chapters().count(), 1);
    history().redo();
    EXPECT_EQ(chapters().count(), 2);
}

TEST_F(ZLRecordingTest, TheClockStartsWhenTheBeepHasEnded)
{
    Settings::setPlaySoundBeforeRecording(true);
    Settings::setAudioOutputDevice(u"right_card"_s);
    press();
    ASSERT_TRUE(m_sound);
    EXPECT_EQ(m_soundNames, QStringList({ u"beep.aiff"_s }));
    EXPECT_EQ(m_sound->playbackDeviceIdentifier(), u"right_card"_s);
    EXPECT_EQ(m_sound->playCount(), 1);
    EXPECT_TRUE(m_document.isWaitingForBeep());
    EXPECT_FALSE(m_document.isRecording());
    m_hostClock->setNow(101.25);
    EXPECT_EQ(m_document.currentDuration(), 0.0);
    m_sound->finish();
    EXPECT_TRUE(m_document.isRecording());
    EXPECT_FALSE(m_document.isWaitingForBeep());
    EXPECT_EQ(m_document.startTime(), 101.25);
}

TEST_F(ZLRecordingTest, WithoutAChosenDeviceTheBeepPlaysOnTheDefaultOne)
{
    Settings::setPlaySoundBeforeRecording(true);
    press();
    ASSERT_TRUE(m_sound);
    EXPECT_TRUE(m_sound->playbackDeviceIdentifier().isEmpty());
}

TEST_F(ZLRecordingTest, NoChapterCanBeAddedWhileTheBeepPlays)
{
    Settings::setPlaySoundBeforeRecording(true);
    press();
    EXPECT_FALSE(m_document.canAddChapter());
    m_document.addChapterButtonPressed();
    EXPECT_EQ(chapters().count(), 0);
    EXPECT_FALSE(history().canUndo());
}

TEST_F(ZLRecordingTest, ASecondPressWhileTheBeepPlaysDoesNothing)
{
    Settings::setPlaySoundBeforeRecording(true);
    Settings::setCreateNewChapterOnStart(true);
    press();
    const QPointer<ZLFakeSound> first = m_sound;
    press();
    ASSERT_EQ(m_soundNames.size(), 1);
    EXPECT_EQ(first->playCount(), 1);
    first->finish();
    EXPECT_TRUE(m_document.isRecording());
    EXPECT_EQ(chapters().count(), 1);
    history().undo();
    EXPECT_FALSE(history().canUndo());
}

TEST_F(ZLRecordingTest, ABeepThatEndsTwiceStartsTheClockOnce)
{
    Settings::setPlaySoundBeforeRecording(true);
    press();
    m_sound->finish();
    const double start = m_document.startTime();
    advance(3.0);
    m_document.soundDidFinishPlaying();
    EXPECT_EQ(m_document.startTime(), start);
}

TEST_F(ZLRecordingTest, ABeepThatCannotBePlayedStartsTheClockAllTheSame)
{
    Settings::setPlaySoundBeforeRecording(true);
    press();
    m_sound->finish(false);
    EXPECT_TRUE(m_document.isRecording());
}

TEST_F(ZLRecordingTest, ASilentBeepStartsTheClockAtOnce)
{
    Settings::setPlaySoundBeforeRecording(true);
    ZLDocumentEnvironment silent = environment();
    silent.soundNamed = ZLDocumentEnvironment().soundNamed;
    ZLChapterDocument document(silent);
    document.recordButtonPressed();
    EXPECT_TRUE(document.isRecording());
    EXPECT_FALSE(document.isWaitingForBeep());
}

TEST_F(ZLRecordingTest, EachPressPlaysASoundOfItsOwnAndLetsItGo)
{
    Settings::setPlaySoundBeforeRecording(true);
    for (int start = 0; start < 3; ++start) {
        press();
        const QPointer<ZLFakeSound> sound = m_sound;
        sound->finish();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(sound.isNull());
        press();
        EXPECT_FALSE(m_document.isRecording());
    }
    EXPECT_EQ(m_soundNames.size(), 3);
}

TEST_F(ZLRecordingTest, AClockThatRedoStartedIsNotStartedAgainByTheBeep)
{
    press();
    advance(5.0);
    history().undo();
    Settings::setPlaySoundBeforeRecording(true);
    press();
    history().redo();
    const double start = m_document.startTime();
    advance(2.0);
    m_sound->finish();
    EXPECT_EQ(m_document.startTime(), start);
    EXPECT_EQ(m_document.currentDuration(), 7.0);
}

TEST_F(ZLRecordingTest, AStopIsNotPrecededByABeep)
{
    press();
    Settings::setPlaySoundBeforeRecording(true);
    press();
    EXPECT_FALSE(m_document.isRecording());
    EXPECT_TRUE(m_soundNames.isEmpty());
}

TEST_F(ZLRecordingTest, EveryPressTellsTheWindowAndTheControllers)
{
    Settings::setPlaySoundBeforeRecording(true);
    ZLChangeSpy states(m_document, ZLDocumentChange::Recording);
    ZLChangeSpy informs(m_document, ZLDocumentChange::concerningControllers);
    const auto expectBoth = [&states, &informs](const char* when) {
        EXPECT_GE(states.size(), 1) << when;
        EXPECT_GE(informs.size(), 1) << when;
        states.clear();
        informs.clear();
    };
    press();
    expectBoth("while the beep plays");
    m_sound->finish();
    expectBoth("when the beep has ended");
    press();
    expectBoth("on a stop");
}

TEST_F(ZLRecordingTest, UndoAndRedoOfStartAndStopTellTheControllersTheNewState)
{
    QList<bool> told;
    QObject::connect(
        &m_document, &ZLChapterDocument::changed, &m_document, [&] { told.append(m_document.isRecording()); });
    record(60.0);
    told.clear();
    history().undo();
    EXPECT_EQ(told, QList<bool> { true }) << "undo of the stop";
    history().undo();
    EXPECT_EQ(told, (QList<bool> { true, false })) << "undo of the start";
    history().redo();
    EXPECT_EQ(told, (QList<bool> { true, false, true })) << "redo of the start";
    history().redo();
    EXPECT_EQ(told, (QList<bool> { true, false, true, false })) << "redo of the stop";
}

TEST_F(ZLRecordingTest, AStopShowsTheFrozenReading)
{
    press();
    advance(65.38);
    QStringList shown;
    QObject::connect(
        &m_document, &ZLChapterDocument::changed, &m_document, [this, &shown](const ZLDocumentChange& change) {
            if (change.concerns(ZLDocumentChange::Recording))
                shown.append(m_document.clockText());
        });
    press();
    EXPECT_EQ(shown, QStringList({ u"00:01:05.3"_s }));
}

TEST_F(ZLRecordingTest, TheDisplayFollowsARunningClockAndRestsOtherwise)
{
    QSignalSpy updates(&m_document, &ZLChapterDocument::displayDidUpdate);
    press();
    EXPECT_TRUE(updates.wait(5000));
    press();
    updates.clear();
    EXPECT_FALSE(updates.wait(250));
}

TEST_F(ZLRecordingTest, ADocumentMayGoAwayWhileItRecordsOrBeeps)
{
    Settings::setPlaySoundBeforeRecording(true);
    {
        ZLChapterDocument document(environment());
        document.recordButtonPressed();
        EXPECT_TRUE(document.isWaitingForBeep());
    }
    EXPECT_TRUE(m_sound.isNull());
    Settings::setPlaySoundBeforeRecording(false);
    ZLChapterDocument recording(environment());
    recording.recordButtonPressed();
    EXPECT_TRUE(recording.isRecording());
}
