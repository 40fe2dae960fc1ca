#include "app/ZLDocumentControllerFixture.h"
#include "document/saving/journal/ZLJournalTail.h"
#include "platform/ZLBoundedFile.h"

#include <sys/stat.h>

using namespace Qt::StringLiterals;

class ZLDocumentControllerRecoveryTest : public ZLDocumentControllerFixture {
protected:
    /// An untitled one whose clock ran, as the start after the kill brings it back.
    ZLChapterDocument* documentOfKilledRecording()
    {
        ZLChapterDocument* document = controller->newDocument();
        document->startRecordingWithTime(clock->seconds);
        clock->seconds += 30.0;
        addChapter(*document, "Marked live");
        start();
        controller->restoreSession();
        return controller->documents().value(0);
    }
};

TEST_F(ZLDocumentControllerRecoveryTest, AfterAKillTheNewestStateOfAFileIsBackAndThenInTheFile)
{
    const QString path = storedFile("show.zelta");
    addChapter(*open(path), "Marked live");
    start();
    EXPECT_EQ(controller->restoreSession(), QStringList());
    ASSERT_EQ(controller->documents().size(), 1);
    ZLChapterDocument* document = controller->documents().first();
    EXPECT_EQ(document->chapterManager().count(), 2);
    EXPECT_TRUE(document->isDocumentEdited());
    EXPECT_EQ(controller->saveAllNow(), QStringList());
    start();
    EXPECT_EQ(open(path)->chapterManager().count(), 2);
    controller.reset();
    EXPECT_EQ(ZLRecoveryFolder(filePath("state/recovery")).journaledFiles(), QStringList());
}

TEST_F(ZLDocumentControllerRecoveryTest, AfterAKillAnUntitledDocumentThatWasNeverSavedIsBack)
{
    addChapter(*controller->newDocument(), "Marked live");
    EXPECT_EQ(recoveryFiles(), QStringList()) << "there was no time for an automatic save";
    start();
    EXPECT_EQ(controller->restoreSession(), QStringList());
    EXPECT_EQ(openDocuments(), QStringList { u"Untitled:Marked live"_s });
    EXPECT_TRUE(controller->saverOf(controller->documents().first())->isUntitled());
}

TEST_F(ZLDocumentControllerRecoveryTest, AKilledRecordingIsBackPausedAndCanGoOnAsIfItHadNeverStopped)
{
    const QString path = storedFile("show.zelta");
    ZLChapterDocument* document = open(path);
    document->startRecordingWithTime(clock->seconds);
    clock->seconds += 30.0;
    addChapter(*document, "Marked live");
    start();
    document = open(path);
    EXPECT_FALSE(document->isRecording());
    EXPECT_EQ(document->currentDuration(), 30.0);
    ASSERT_TRUE(document->interruptedRecording());

    // The host clock may have begun anew; only the wall clock tells how long the program was away.
    clock->seconds = 20.0;
    wallClock = document->interruptedRecording()->lastSeen.addMSecs(125'400);
    document->continueInterruptedRecording();
    EXPECT_TRUE(document->isRecording());
    EXPECT_NEAR(document->currentDuration(), 155.4, 0.1);
    EXPECT_EQ(document->undoManager().undoActionName(), u"Continue Recording"_s);
    clock->seconds += 10.0;
    EXPECT_NEAR(document->currentDuration(), 165.4, 0.1);

    document->undoManager().undo();
    EXPECT_FALSE(document->isRecording());
    EXPECT_EQ(document->currentDuration(), 30.0);
    EXPECT_TRUE(document->interruptedRecording()) << "the choice is back";
    document->undoManager().redo();
    EXPECT_NEAR(document->currentDuration(), 165.4, 0.1);
}

TEST_F(ZLDocumentControllerRecoveryTest, AKilledRecordingCanStayPausedAndTheChoiceCanBeUndone)
{
    ZLChapterDocument* document = documentOfKilledRecording();
    document->keepInterruptedRecordingPaused();
    EXPECT_FALSE(document->interruptedRecording());
    EXPECT_EQ(document->currentDuration(), 30.0);
    document->undoManager().undo();
    EXPECT_TRUE(document->interruptedRecording());
    document->undoManager().redo();
    EXPECT_FALSE(document->interruptedRecording());
}

TEST_F(ZLDocumentControllerRecoveryTest, AnUndecidedInterruptionSurvivesTheNextKillAndTheNextEnd)
{
    const QString path = storedFile("show.zelta");
    ZLChapterDocument* document = open(path);
    document->startRecordingWithTime(clock->seconds);
    clock->seconds += 30.0;
    addChapter(*document, "Marked live");
    start();
    const auto interruption = open(path)->interruptedRecording();
    ASSERT_TRUE(interruption);
    start();
    EXPECT_EQ(open(path)->interruptedRecording(), interruption);
    EXPECT_EQ(controller->saveAllNow(), QStringList());
    start();
    EXPECT_EQ(open(path)->interruptedRecording(), interruption);
}

TEST_F(ZLDocumentControllerRecoveryTest, StartingTheClockDecidesForThePause)
{
    ZLChapterDocument* document = documentOfKilledRecording();
    document->startRecordingWithTime(clock->seconds);
    EXPECT_FALSE(document->interruptedRecording());
    EXPECT_EQ(document->currentDuration(), 30.0);
    document->undoManager().undo();
    EXPECT_TRUE(document->interruptedRecording());
}

TEST_F(ZLDocumentControllerRecoveryTest, RecoveryDataOfAFileThatChangedSinceAreSetAside)
{
    const QString path = storedFile("show.zelta");
    addChapter(*open(path), "Mine");
    start();
    storedFile("show.zelta", "Theirs");
    ZLChapterDocument* document = open(path);
    ASSERT_EQ(document->chapterManager().count(), 1);
    EXPECT_EQ(document->chapterManager().chapterAtIndex(0)->title(), u"Theirs"_s);
    EXPECT_EQ(openDocuments(), (QStringList { u"show.zelta:Theirs"_s, u"show.zelta (recovered):Stored"_s }))
        << "what was set aside is to be seen, behind what was asked for";
    EXPECT_EQ(controller->currentOrLastDocument(), document);
    EXPECT_EQ(recoveryFiles().size(), 1);
    start();
    EXPECT_EQ(open(path)->chapterManager().count(), 1) << "and is not applied later";
}

TEST_F(ZLDocumentControllerRecoveryTest, ATemplateWithTheIdentifierOfAChapterIsBackAfterAKill)
{
    const QString path = filePath("show.zelta");
    const QVariantMap both { { ZLChapterKey::TimeStamp, 3.0 }, { ZLChapterKey::Enabled, true },
        { ZLChapterKey::Title, u"Both"_s }, { ZLChapterKey::Link, QString() }, { ZLChapterKey::Tags, QString() },
        { ZLChapterKey::Date, wallClock }, { ZLChapterKey::UUID, u"1"_s } };
    ASSERT_TRUE(ZLAtomicFile::write(
        path, ZLDocumentFile::encode({ .chapters = { both }, .duration = 0.0, .templates = { both } })));
    addChapter(*open(path), "Marked live");
    start();
    ZLChapterDocument* document = open(path);
    EXPECT_EQ(document->chapterManager().count(), 2);
    EXPECT_EQ(document->templateViewController().chapterManager().count(), 1);
}

TEST_F(ZLDocumentControllerRecoveryTest, DatesAreBackUnchangedAfterAKill)
{
    const QString path = filePath("show.zelta");
    QVariantMap chapter = ZLChapter().dictionaryRepresentation();
    chapter.insert(ZLChapterKey::Date, QVariant::fromValue(ZLArchivedDate { 700'000'000.123'456 }));
    ASSERT_TRUE(ZLAtomicFile::write(
        path, ZLDocumentFile::encode({ .chapters = { chapter }, .duration = 0.0, .templates = {} })));
    ZLChapterDocument* document = open(path);
    document->updateChapterToTitle(document->chapterManager().chapterAtIndex(0), u"Edited"_s);
    start();
    document = open(path);
    EXPECT_EQ(document->chapterManager().chapterAtIndex(0)->title(), u"Edited"_s);
    EXPECT_EQ(document->chapterManager().chapterAtIndex(0)->dateAsRead(), ZLArchivedDate { 700'000'000.123'456 });
}

TEST_F(ZLDocumentControllerRecoveryTest, AFileThatIsOutOfReachAtTheStartIsBackFromTheJournalAndWrittenLater)
{
    ASSERT_TRUE(QDir().mkpath(filePath("stick")));
    const QString path = storedFile("stick/show.zelta");
    addChapter(*open(path), "Marked live");
    ASSERT_TRUE(QDir(filePath("stick")).removeRecursively());
    start();
    EXPECT_EQ(controller->restoreSession(), QStringList());
    ASSERT_EQ(controller->documents().size(), 1);
    EXPECT_EQ(controller->documents().first()->chapterManager().count(), 2);
    EXPECT_EQ(controller->saveAllNow().size(), 1);
    ASSERT_TRUE(QDir().mkpath(filePath("stick")));
    EXPECT_EQ(controller->saveAllNow(), QStringList());
    start();
    EXPECT_EQ(open(path)->chapterManager().count(), 2);
}

TEST_F(ZLDocumentControllerRecoveryTest, AFileThatWasOutOfReachAtTheStartAndComesBackChangedIsNotOverwritten)
{
    ASSERT_TRUE(QDir().mkpath(filePath("stick")));
    const QString path = storedFile("stick/show.zelta");
    addChapter(*open(path), "Mine");
    ASSERT_TRUE(QDir(filePath("stick")).removeRecursively());
    for (int process = 0; process < 2; ++process) {
        start();
        EXPECT_EQ(controller->restoreSession(), QStringList()) << "also at the second start without the file";
    }
    ZLChapterDocument* document = controller->documents().first();
    ASSERT_TRUE(QDir().mkpath(filePath("stick")));
    storedFile("stick/show.zelta", "Theirs");
    EXPECT_EQ(controller->saveAllNow(), QStringList { path + u": Another program changed the file."_s });
    ZLDocumentSaver* saver = controller->saverOf(document);
    EXPECT_EQ(saver->state(), ZLSavingState::Conflict) << "so it is asked";
    EXPECT_EQ(document->chapterManager().count(), 2);
    EXPECT_TRUE(tookTheirs(*saver));
    EXPECT_EQ(document->chapterManager().chapterAtIndex(0)->title(), u"Theirs"_s);
}

TEST_F(ZLDocumentControllerRecoveryTest, AFileThatWasOutOfReachAtTheStartAndComesBackAsItWasIsWritten)
{
    ASSERT_TRUE(QDir().mkpath(filePath("stick")));
    const QString path = storedFile("stick/show.zelta");
    const auto first = ZLBoundedFile::read(path, ZLFileBound::Document);
    ZLChapterDocument* document = open(path);
    addChapter(*document, "One");
    write(document);
    addChapter(*document, "Two");
    ASSERT_TRUE(QDir(filePath("stick")).removeRecursively());
    start();
    EXPECT_EQ(controller->restoreSession(), QStringList());
    ASSERT_TRUE(QDir().mkpath(filePath("stick")));
    // The disk may have lost the last write, and holds a version before it.
    ASSERT_TRUE(ZLAtomicFile::write(path, first.value()));
    EXPECT_EQ(controller->saveAllNow(), QStringList());
    start();
    EXPECT_EQ(open(path)->chapterManager().count(), 3);
}

TEST_F(ZLDocumentControllerRecoveryTest, ATornJournalGivesTheStateBefore)
{
    const QString path = storedFile("show.zelta");
    ZLChapterDocument* document = open(path);
    addChapter(*document, "One");
    addChapter(*document, "Two");
    controller.reset();
    const QStringList journals = ZLRecoveryFolder(filePath("state/recovery")).journaledFiles();
    ASSERT_EQ(journals.size(), 1);
    QFile journal(journals.first() + ZLRecoveryFile::JournalSuffix);
    ASSERT_TRUE(journal.resize(journal.size() - 3));
    // A loss of power, which can tear a journal, also empties the memory.
    ZLJournalTail::remove(journal.fileName());
    start();
    EXPECT_EQ(open(path)->chapterManager().count(), 2);
}

TEST_F(ZLDocumentControllerRecoveryTest, AJournalThatIsNoneHindersNothing)
{
    ASSERT_TRUE(ZLRecoveryFolder(filePath("state/recovery")).prepare());
    const QString journal = filePath("state/recovery/a.zelta.journal");
    ASSERT_TRUE(ZLAtomicFile::write(journal, "zelta journal 1\nnonsense"));
    EXPECT_EQ(controller->restoreSession(), QStringList());
    EXPECT_EQ(openDocuments(), QStringList { u"Untitled:"_s });
    EXPECT_TRUE(QFile::exists(journal + u".unreadable"_s));
}

TEST_F(ZLDocumentControllerRecoveryTest, AJournalThatIsTooLargeStandsInNobodysWay)
{
    const QString path = storedFile("show.zelta");
    ASSERT_TRUE(ZLRecoveryFolder(filePath("state/recovery")).prepare());
    QFile journal(filePath("state/recovery/a.zelta.journal"));
    ASSERT_TRUE(journal.open(QIODevice::WriteOnly) && journal.resize(qint64(1000) * 1000 * 1000 * 1000));
    EXPECT_EQ(controller->restoreSession(), QStringList());
    EXPECT_TRUE(QFile::exists(journal.fileName() + u".unreadable"_s));
    EXPECT_EQ(open(path)->chapterManager().count(), 1);
}

TEST_F(ZLDocumentControllerRecoveryTest, AFileThatWasReplacedByAHugeOneIsLeftAloneAndWhatIsNewerIsBackBesideIt)
{
    const QString path = storedFile("show.zelta");
    addChapter(*open(path), "Marked live");
    start();
    constexpr qint64 hugeSize = qint64(1000) * 1000 * 1000 * 1000;
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.resize(hugeSize));
    EXPECT_EQ(controller->restoreSession(), QStringList { path + u": The file is larger than 512 MiB."_s });
    EXPECT_EQ(openDocuments(), QStringList { u"show.zelta (recovered):Stored"_s });
    EXPECT_EQ(controller->documents().first()->chapterManager().count(), 2);
    EXPECT_EQ(controller->saveAllNow(), QStringList());
    EXPECT_EQ(QFileInfo(path).size(), hugeSize);
}

TEST_F(ZLDocumentControllerRecoveryTest, ListsThatAreTooLargeOrPipesAreNoLists)
{
    controller.reset();
    QFile session(filePath("state/session.json"));
    ASSERT_TRUE(session.open(QIODevice::WriteOnly) && session.resize(qint64(1000) * 1000 * 1000 * 1000));
    const QString recent = filePath("state/recent.json");
    ASSERT_EQ(mkfifo(QFile::encodeName(recent).constData(), 0600), 0);
    start();
    EXPECT_EQ(controller->restoreSession(), QStringList());
    EXPECT_EQ(controller->recentDocuments().paths(), QStringList());
    const QString path = storedFile("show.zelta");
    open(path);
    EXPECT_EQ(controller->recentDocuments().paths(), QStringList { path }) << "a new list takes their place";
    start();
    EXPECT_EQ(controller->restoreSession(), QStringList());
    EXPECT_EQ(openDocuments(), QStringList { u"show.zelta:Stored"_s });
}

TEST_F(ZLDocumentControllerRecoveryTest, WhatTheProgramRemembersIsForItsUserAlone)
{
    controller.reset();
    const QByteArray state = QFile::encodeName(filePath("state"));
    ASSERT_EQ(chmod(state.constData(), 0755), 0);
    start();
    open(storedFile("show.zelta"));
    const auto modeOf = [this](const char* name) {
        struct stat status {};
        EXPECT_EQ(stat(QFile::encodeName(filePath(name)).constData(), &status), 0) << name;
        return status.st_mode & 07777;
    };
    EXPECT_EQ(modeOf("state"), mode_t(0700));
    EXPECT_EQ(modeOf("state/session.json"), mode_t(0600));
    EXPECT_EQ(modeOf("state/recent.json"), mode_t(0600));
}
