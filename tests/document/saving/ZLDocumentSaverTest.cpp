#include "SavingFixture.h"

#include <semaphore>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

class ZLDocumentSaverTest : public SavingFixture { };

TEST_F(ZLDocumentSaverTest, AChangeIsPlannedThenWrittenByTheWorker)
{
    const QString path = filePath("show.zelta");
    const auto saver = titledSaver(path);
    EXPECT_EQ(saver->state(), ZLSavingState::Saved);
    EXPECT_EQ(saver->plannedDelay(), std::nullopt);

    addChapter("News");
    EXPECT_EQ(saver->state(), ZLSavingState::Waiting);
    EXPECT_EQ(saver->plannedDelay(), ZLWriteSchedule::QuietTime);
    EXPECT_TRUE(document.isDocumentEdited());

    saver->writeNewestState();
    EXPECT_EQ(saver->state(), ZLSavingState::Saving);
    EXPECT_EQ(titlesIn(path), QStringList());
    ASSERT_EQ(tasks.size(), 1U);

    runTasks();
    EXPECT_EQ(saver->state(), ZLSavingState::Saved);
    EXPECT_EQ(titlesIn(path), QStringList { u"News"_s });
    EXPECT_FALSE(document.isDocumentEdited());
    EXPECT_EQ(saver->plannedDelay(), std::nullopt);
}

TEST_F(ZLDocumentSaverTest, EveryKindOfChangeIsPlanned)
{
    const auto saver = titledSaver(filePath("show.zelta"));
    const auto expectPlanned = [&](const char* what) {
        EXPECT_TRUE(saver->plannedDelay()) << what;
        writeAndSettle(*saver);
        EXPECT_EQ(saver->state(), ZLSavingState::Saved) << what;
    };
    addChapter("News");
    expectPlanned("adding");
    document.updateChapterToTitle(document.chapterManager().lastChapter(), u"Other"_s);
    expectPlanned("a title");
    document.undoManager().undo();
    expectPlanned("undo");
    document.undoManager().redo();
    expectPlanned("redo");
    document.templateViewController().addChapterButtonPressed();
    expectPlanned("a template");
    document.startRecordingWithTime(clock->seconds);
    expectPlanned("a start");
}

TEST_F(ZLDocumentSaverTest, ASteadyStreamOfChangesDoesNotPutTheWriteOffForEver)
{
    const auto saver = titledSaver(filePath("show.zelta"));
    const double firstChange = clock->seconds;
    double due = 0.0;
    for (int change = 0; change < 20; ++change, clock->seconds += 0.1) {
        addChapter("Again");
        due = clock->seconds + *saver->plannedDelay() / 1000.0;
        ASSERT_LE(due, std::max(firstChange + 0.8, clock->seconds + 0.0011)) << "change " << change;
    }
    EXPECT_EQ(saver->plannedDelay(), 0);

    writeAndSettle(*saver);
    addChapter("Later");
    EXPECT_EQ(saver->plannedDelay(), ZLWriteSchedule::QuietTime);
}

TEST_F(ZLDocumentSaverTest, TheTimerReallyWrites)
{
    machinery.executor = {};
    const QString path = filePath("show.zelta");
    const auto saver = titledSaver(path);
    addChapter("News");
    for (int turn = 0; turn < 1000 && saver->state() != ZLSavingState::Saved; ++turn)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_EQ(titlesIn(path), QStringList { u"News"_s });
}

TEST_F(ZLDocumentSaverTest, OneWriteAtATimeAndTheNewestStateWins)
{
    const QString path = filePath("show.zelta");
    const auto saver = titledSaver(path);
    addChapter("One");
    saver->writeNewestState();
    addChapter("Two");
    saver->writeNewestState();
    addChapter("Three");
    saver->writeNewestState();
    EXPECT_EQ(tasks.size(), 1U);

    runTasks();
    EXPECT_EQ(titlesIn(path), QStringList { u"One"_s });
    EXPECT_NE(saver->state(), ZLSavingState::Saved);
    EXPECT_TRUE(document.isDocumentEdited()) << "there are newer changes";

    writeAndSettle(*saver);
    EXPECT_EQ(titlesIn(path), (QStringList { u"One"_s, u"Two"_s, u"Three"_s }));
    EXPECT_EQ(saver->state(), ZLSavingState::Saved);
    EXPECT_EQ(writeCount, 2);
}

TEST_F(ZLDocumentSaverTest, AWriteHoldsTheDocumentAsItWasWhenTheWriteWasStarted)
{
    const QString path = filePath("show.zelta");
    const auto saver = titledSaver(path);
    addChapter("One");
    addChapter("Two");
    saver->writeNewestState();
    document.updateChapterToTitle(document.chapterManager().chapterAtIndex(0), u"Other"_s);
    document.removeChapter(document.chapterManager().chapterAtIndex(1));
    runTasks();
    EXPECT_EQ(titlesIn(path), (QStringList { u"One"_s, u"Two"_s }));
    writeAndSettle(*saver);
    EXPECT_EQ(titlesIn(path), QStringList { u"Other"_s });
}

TEST_F(ZLDocumentSaverTest, AChangeDuringAWriteWhoseTimerFiredIsWrittenRightAfterIt)
{
    const QString path = filePath("show.zelta");
    const auto saver = titledSaver(path);
    addChapter("One");
    saver->writeNewestState();
    addChapter("Two");
    // The timer of the second change fires while the first write is under way.
    for (int turn = 0; turn < 1000 && saver->plannedDelay(); ++turn)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    runTasks();
    ASSERT_EQ(tasks.size(), 1U) << "the end of the first write starts the second one";
    runTasks();
    EXPECT_EQ(titlesIn(path), (QStringList { u"One"_s, u"Two"_s }));
}

TEST_F(ZLDocumentSaverTest, SaveNowCallsAWaitingWriteOff)
{
    const QString path = filePath("show.zelta");
    const auto saver = titledSaver(path);
    addChapter("One");
    saver->writeNewestState();
    addChapter("Two");
    EXPECT_TRUE(saver->saveNow());
    EXPECT_EQ(titlesIn(path), (QStringList { u"One"_s, u"Two"_s }));
    EXPECT_EQ(saver->state(), ZLSavingState::Saved);
    EXPECT_FALSE(document.isDocumentEdited());
    EXPECT_EQ(saver->plannedDelay(), std::nullopt);

    runTasks();
    EXPECT_EQ(titlesIn(path), (QStringList { u"One"_s, u"Two"_s })) << "the old state came after the new one";
    EXPECT_EQ(writeCount, 1);
}

TEST_F(ZLDocumentSaverTest, SaveNowWaitsForAWriteThatHasBegun)
{
    std::binary_semaphore hasBegun { 0 };
    std::binary_semaphore mayGoOn { 0 };
    std::atomic<int> begun = 0;
    machinery.executor = {};
    machinery.writeFile = [&](const QString& path, const QByteArray& bytes) {
        if (++begun == 1) {
            hasBegun.release();
            mayGoOn.acquire();
        }
        return ZLAtomicFile::write(path, bytes);
    };
    const QString path = filePath("show.zelta");
    const auto saver = titledSaver(path);
    addChapter("One");
    saver->writeNewestState();
    hasBegun.acquire();
    addChapter("Two");
    std::thread disk([&] { mayGoOn.release(); });
    EXPECT_TRUE(saver->saveNow());
    disk.join();
    EXPECT_EQ(titlesIn(path), (QStringList { u"One"_s, u"Two"_s }));
    EXPECT_EQ(begun, 2);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    EXPECT_EQ(saver->state(), ZLSavingState::Saved);
}

TEST_F(ZLDocumentSaverTest, ASaverThatEndsWaitsForItsWrite)
{
    std::binary_semaphore hasBegun { 0 };
    machinery.executor = {};
    machinery.writeFile = [&](const QString& path, const QByteArray& bytes) {
        hasBegun.release();
        return ZLAtomicFile::write(path, bytes);
    };
    const QString path = filePath("show.zelta");
    auto saver = titledSaver(path);
    addChapter("One");
    saver->writeNewestState();
    hasBegun.acquire();
    saver.reset();
    EXPECT_EQ(titlesIn(path), QStringList { u"One"_s });
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
}

TEST_F(ZLDocumentSaverTest, WhatIsOnTheDiskAlreadyIsNotWrittenAgain)
{
    const QString path = filePath("show.zelta");
    const auto saver = titledSaver(path);
    EXPECT_TRUE(saver->saveNow());
    EXPECT_EQ(writeCount, 0);
    addChapter("One");
    document.undoManager().undo();
    writeAndSettle(*saver);
    EXPECT_EQ(writeCount, 0);
    EXPECT_EQ(saver->state(), ZLSavingState::Saved);
    EXPECT_FALSE(document.isDocumentEdited());
}

TEST_F(ZLDocumentSaverTest, TheUsersSaveWritesAFileThatAnotherProgramTookAway)
{
    const QString path = filePath("show.zelta");
    const auto saver = titledSaver(path);
    ASSERT_TRUE(QFile::remove(path));
    EXPECT_TRUE(saved(*saver));
    EXPECT_TRUE(QFile::exists(path));
}

TEST_F(ZLDocumentSaverTest, ARunningRecordingIsSavedWithItsReadingAndGoesOn)
{
    const QString path = filePath("show.zelta");
    const auto saver = titledSaver(path);
    document.startRecordingWithTime(clock->seconds);
    clock->seconds += 65.5;
    EXPECT_TRUE(saver->saveNow());
    EXPECT_TRUE(document.isRecording());
    EXPECT_EQ(durationIn(path), 65.5);

    // What the timer for the reading does, without any change in between.
    clock->seconds += 5.0;
    writeAndSettle(*saver);
    EXPECT_EQ(durationIn(path), 70.5);
    EXPECT_EQ(document.startTime(), clock->seconds - 70.5);
}

TEST_F(ZLDocumentSaverTest, TheReadingIsStoredRegularlyExactlyWhileTheClockRuns)
{
    const QString path = filePath("show.zelta");
    const auto saver = titledSaver(path);
    const auto* timer = saver->findChild<QTimer*>();
    ASSERT_NE(timer, nullptr);
    EXPECT_FALSE(timer->isActive());
    document.startRecordingWithTime(clock->seconds);
    EXPECT_TRUE(timer->isActive());
    EXPECT_EQ(timer->interval(), ZLWriteSchedule::ReadingInterval);
    document.recordButtonPressed();
    EXPECT_FALSE(timer->isActive());
}

TEST_F(ZLDocumentSaverTest, AnUntitledDocumentIsKeptInTheRecoveryFolderWhileItHasContent)
{
    const auto saver = untitledSaver();
    EXPECT_TRUE(saver->isTransient());
    EXPECT_TRUE(saver->saveNow());
    EXPECT_EQ(recoveryFolder.files(), QStringList()) << "nothing to keep";

    addChapter("News");
    EXPECT_FALSE(saver->isTransient());
    writeAndSettle(*saver);
    ASSERT_EQ(recoveryFolder.files(), QStringList { saver->recoveryPath() });
    EXPECT_EQ(titlesIn(saver->recoveryPath()), QStringList { u"News"_s });
    EXPECT_EQ(saver->state(), ZLSavingState::Saved);
    EXPECT_TRUE(document.isDocumentEdited()) << "it is in no file of the user's";

    document.undoManager().undo();
    writeAndSettle(*saver);
    EXPECT_EQ(recoveryFolder.files(), QStringList());
    EXPECT_EQ(saver->recoveryPath(), QString());
    EXPECT_FALSE(document.isDocumentEdited());
    EXPECT_FALSE(saver->isTransient()) << "a redo would bring the chapter back";
}

TEST_F(ZLDocumentSaverTest, RecoveryFilesAreTheUsersAlone)
{
    const auto saver = untitledSaver();
    addChapter("News");
    writeAndSettle(*saver);
    const auto forOthers =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    EXPECT_FALSE(QFile::permissions(saver->recoveryPath()) & forOthers);
    EXPECT_FALSE(QFile::permissions(recoveryFolder.path()) & forOthers);
}

TEST_F(ZLDocumentSaverTest, ARecordingAtZeroIsContent)
{
    const auto saver = untitledSaver();
    document.startRecordingWithTime(clock->seconds);
    EXPECT_TRUE(saver->saveNow());
    EXPECT_EQ(recoveryFolder.files().size(), 1);
}

TEST_F(ZLDocumentSaverTest, SaveAsMovesAnUntitledDocumentToTheUsersFile)
{
    auto saver = untitledSaver();
    addChapter("News");
    writeAndSettle(*saver);
    EXPECT_FALSE(saved(*saver)) << "there is no file to save to";

    EXPECT_TRUE(savedAs(*saver, filePath("Episode 12")));
    const QString path = filePath("Episode 12.zelta");
    EXPECT_EQ(saver->path(), path);
    EXPECT_EQ(titlesIn(path), QStringList { u"News"_s });
    EXPECT_EQ(document.displayName(), u"Episode 12.zelta"_s);
    EXPECT_FALSE(document.isDocumentEdited());
    EXPECT_EQ(recoveryFolder.files(), QStringList());
    EXPECT_EQ(recoveryFolder.files(), QStringList());

    addChapter("Weather");
    EXPECT_EQ(journaled().filePath, path);
    writeAndSettle(*saver);
    EXPECT_EQ(titlesIn(path), (QStringList { u"News"_s, u"Weather"_s }));
    saver.reset();
    EXPECT_EQ(QDir(recoveryFolder.path()).entryList(QDir::Files), QStringList()) << "no lock is left either";
}

TEST_F(ZLDocumentSaverTest, ADiscardedDocumentLeavesNothingAndIsNotWrittenAgain)
{
    const auto saver = untitledSaver();
    addChapter("One");
    writeAndSettle(*saver);
    addChapter("Two");
    saver->writeNewestState();
    saver->discard();
    runTasks();
    addChapter("Three");
    writeAndSettle(*saver);
    EXPECT_TRUE(saver->saveNow());
    EXPECT_EQ(recoveryFolder.files(), QStringList());
}

TEST_F(ZLDocumentSaverTest, ARecoveredDocumentStaysInItsFile)
{
    addChapter("News");
    auto created = recoveryFolder.createFile();
    ASSERT_TRUE(created);
    auto file = std::move(created).value();
    const QString path = file->path();
    ASSERT_TRUE(ZLAtomicFile::write(path, document.dataOfType()));
    document.setDocumentEdited(false);
    ZLDocumentSaver saver(document, recoveryFolder, machinery, std::move(file), asRead());
    EXPECT_TRUE(document.isDocumentEdited());
    EXPECT_EQ(saver.recoveryPath(), path);
    addChapter("Weather");
    EXPECT_TRUE(saver.saveNow());
    EXPECT_EQ(recoveryFolder.files(), QStringList { path });
    EXPECT_EQ(titlesIn(path), (QStringList { u"News"_s, u"Weather"_s }));
}

}
