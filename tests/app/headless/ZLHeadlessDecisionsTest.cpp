#include "app/headless/ZLHeadlessRecorderFixture.h"
#include "platform/ZLBoundedFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

/// What a recorder without a window asks its user, and what the answers do.
class ZLHeadlessDecisionsTest : public ZLHeadlessRecorderFixture {
protected:
    /// A recording was killed at 30 seconds, 60 seconds ago.
    void startAfterAKill(ZLHeadlessStart headlessStart = ZLHeadlessStart::Paused)
    {
        start(ZLHeadlessStart::Recording);
        clock->seconds += 30.0;
        answerTo(u"newChapter"_s);
        beginProcess();
        clock->seconds += 60.0;
        wallClock = wallClock.addSecs(60);
        start(headlessStart);
    }

    /// The file at `path` holds one chapter "Theirs", the document one chapter "Mine".
    void startWithAConflict()
    {
        start(ZLHeadlessStart::Recording);
        answerTo(u"newChapter"_s);
        answerTo(u"title Mine"_s);
        ZLChapterDocument theirs({});
        const auto chapter = std::make_shared<ZLChapter>();
        chapter->setTitle(u"Theirs"_s);
        theirs.addChapter(chapter);
        ASSERT_TRUE(ZLAtomicFile::write(path, theirs.dataOfType()));
        EXPECT_FALSE(controller->saverOf(document)->saveNow());
        ASSERT_EQ(controller->saverOf(document)->state(), ZLSavingState::Conflict);
    }

    static QStringList titlesIn(const QString& file)
    {
        const auto bytes = ZLBoundedFile::read(file, ZLFileBound::Document);
        ZLChapterDocument document({});
        EXPECT_TRUE(bytes && document.readFromData(bytes.value())) << qPrintable(file);
        return titlesOf(document);
    }
    static QStringList titlesOf(ZLChapterDocument& document)
    {
        QStringList titles;
        const auto chapters = document.chapterManager().allChapters();
        for (const ZLChapterPointer& chapter : chapters)
            titles.append(chapter->title());
        return titles;
    }
};

TEST_F(ZLHeadlessDecisionsTest, AnInterruptedRecordingIsToldWithItsTwoAnswers)
{
    startAfterAKill();
    EXPECT_FALSE(document->isRecording());
    EXPECT_EQ(document->currentDuration(), 30.0);
    ASSERT_EQ(errors.size(), 1);
    for (const char* part : { "interrupted", "00:00:30.0", "\"continue\"", "\"keep\"" })
        EXPECT_TRUE(errors.first().contains(QString::fromLatin1(part))) << part;
}

TEST_F(ZLHeadlessDecisionsTest, ARecoveryFolderThatCannotBeWrittenIsToldUntilItCan)
{
    const QString folder = temporary.filePath(u"state/recovery"_s);
    start(ZLHeadlessStart::Recording);
    errors.clear();
    ASSERT_TRUE(QDir(folder).removeRecursively());
    ASSERT_TRUE(QFile(folder).open(QIODevice::WriteOnly));
    answerTo(u"newChapter"_s);
    answerTo(u"newChapter"_s);
    const QString failure =
        u"The recovery folder cannot be written: %1: Not a directory. A crash may take what is not in the file yet. Zelta keeps trying."_s
            .arg(folder);
    EXPECT_EQ(errors, QStringList { failure }) << "told once";
    ASSERT_TRUE(QFile::remove(folder));
    answerTo(u"newChapter"_s);
    EXPECT_EQ(errors, (QStringList { failure, u"The recovery folder can be written again."_s }));
}

TEST_F(ZLHeadlessDecisionsTest, ContinueLetsTheClockRunAsIfItHadNeverStopped)
{
    startAfterAKill();
    EXPECT_EQ(answerTo(u"continue"_s), QStringList { u"recording from 00:01:30.0"_s });
    EXPECT_TRUE(document->isRecording());
    clock->seconds += 10.0;
    EXPECT_EQ(document->currentDuration(), 100.0);
    EXPECT_EQ(answerTo(u"continue"_s), QStringList { u"no recording was interrupted"_s }) << "only once";
    EXPECT_EQ(document->currentDuration(), 100.0);
}

TEST_F(ZLHeadlessDecisionsTest, KeepLeavesTheClockAtItsLastReading)
{
    startAfterAKill();
    EXPECT_EQ(answerTo(u"keep"_s), QStringList { u"paused at 00:00:30.0"_s });
    EXPECT_FALSE(document->interruptedRecording());
    EXPECT_EQ(answerTo(u"continue"_s), QStringList { u"no recording was interrupted"_s });
    EXPECT_EQ(answerTo(u"keep"_s), QStringList { u"no recording was interrupted"_s });
    EXPECT_EQ(document->currentDuration(), 30.0);
    EXPECT_FALSE(document->isRecording());
}

TEST_F(ZLHeadlessDecisionsTest, WhoWasToldToRecordContinuesByItself)
{
    startAfterAKill(ZLHeadlessStart::Recording);
    EXPECT_TRUE(document->isRecording());
    EXPECT_EQ(document->currentDuration(), 90.0);
    EXPECT_FALSE(document->interruptedRecording());
}

TEST_F(ZLHeadlessDecisionsTest, WithoutAnInterruptionThereIsNothingToDecide)
{
    start();
    EXPECT_EQ(errors, QStringList());
    EXPECT_EQ(answerTo(u"continue"_s), QStringList { u"no recording was interrupted"_s });
    EXPECT_EQ(answerTo(u"keep"_s), QStringList { u"no recording was interrupted"_s });
    EXPECT_FALSE(document->undoManager().canUndo());
}

TEST_F(ZLHeadlessDecisionsTest, AChangedFileIsToldOnceWithItsThreeAnswers)
{
    startWithAConflict();
    EXPECT_FALSE(controller->saverOf(document)->saveNow());
    ASSERT_EQ(errors.size(), 1);
    for (const char* part : { "\"mine\"", "\"theirs\"", "\"both\"" })
        EXPECT_TRUE(errors.first().contains(QString::fromLatin1(part))) << part;
    EXPECT_EQ(titlesIn(path), QStringList { u"Theirs"_s }) << "untouched until then";
    EXPECT_TRUE(document->isRecording());
}

TEST_F(ZLHeadlessDecisionsTest, MineWritesOverIt)
{
    startWithAConflict();
    EXPECT_TRUE(answerTo(u"mine"_s).contains(u"file: %1, saved"_s.arg(path))) << qPrintable(output.join(u'\n'));
    EXPECT_EQ(titlesIn(path), QStringList { u"Mine"_s });
    EXPECT_EQ(answerTo(u"mine"_s), QStringList { u"no other program changed the file"_s });
}

TEST_F(ZLHeadlessDecisionsTest, TheirsTakesItOverAndTheClockGoesOn)
{
    startWithAConflict();
    clock->seconds += 5.0;
    EXPECT_FALSE(answerTo(u"theirs"_s).isEmpty());
    EXPECT_EQ(titlesOf(*document), QStringList { u"Theirs"_s });
    EXPECT_TRUE(document->isRecording());
    EXPECT_EQ(document->currentDuration(), 5.0);
    EXPECT_EQ(controller->saveAllNow(), QStringList());
    EXPECT_EQ(titlesIn(path), QStringList { u"Theirs"_s });
}

TEST_F(ZLHeadlessDecisionsTest, BothGoesOnInANewFile)
{
    startWithAConflict();
    const QString newPath = temporary.filePath(u"show 2.zelta"_s);
    EXPECT_TRUE(answerTo(u"both"_s).contains(u"file: %1, saved"_s.arg(newPath))) << qPrintable(output.join(u'\n'));
    EXPECT_EQ(titlesIn(path), QStringList { u"Theirs"_s });
    EXPECT_EQ(titlesIn(newPath), QStringList { u"Mine"_s });
    EXPECT_EQ(answerTo(u"status"_s).first(), u"document: "_s + newPath);
}

TEST_F(ZLHeadlessDecisionsTest, TheirsThatCannotBeReadIsRefusedAndMineStays)
{
    startWithAConflict();
    ASSERT_TRUE(ZLAtomicFile::write(path, "no document"));
    errors.clear();
    answerTo(u"theirs"_s);
    ASSERT_FALSE(errors.isEmpty());
    EXPECT_TRUE(errors.first().startsWith(path)) << qPrintable(errors.first());
    EXPECT_EQ(titlesOf(*document), QStringList { u"Mine"_s });
    EXPECT_EQ(controller->saverOf(document)->state(), ZLSavingState::Conflict) << "the question stands";
}

TEST_F(ZLHeadlessDecisionsTest, WithoutAConflictThereIsNothingToDecide)
{
    start();
    for (const char* answer : { "mine", "theirs", "both" })
        EXPECT_EQ(answerTo(QString::fromLatin1(answer)), QStringList { u"no other program changed the file"_s });
    EXPECT_FALSE(document->undoManager().canUndo());
}

TEST_F(ZLHeadlessDecisionsTest, TheFileThatWasAskedForRecordsAlsoWhenItsJournalNoLongerFits)
{
    start(ZLHeadlessStart::Recording);
    answerTo(u"newChapter"_s);
    answerTo(u"title Mine"_s);
    beginProcess();
    ZLChapterDocument theirs({});
    ZLDocumentContents longer;
    longer.duration = 60.0;
    theirs.adoptContents(longer);
    ASSERT_TRUE(ZLAtomicFile::write(path, theirs.dataOfType()));
    start(ZLHeadlessStart::Recording);
    ASSERT_EQ(controller->documents().size(), 2);
    EXPECT_EQ(controller->saverOf(controller->currentOrLastDocument())->path(), path) << "a remote control is heard";
    EXPECT_TRUE(document->isRecording());
    answerTo(u"newChapter"_s);
    answerTo(u"title Now"_s);
    EXPECT_EQ(titlesOf(*controller->documents().last()), QStringList { u"Mine"_s }) << "kept behind it";
    EXPECT_TRUE(answerTo(u"status"_s).contains(u"also open: show.zelta (recovered), saved"_s))
        << qPrintable(output.join(u'\n'));
    EXPECT_EQ(controller->saveAllNow(), QStringList());
    EXPECT_EQ(titlesIn(path), QStringList { u"Now"_s });
}

TEST_F(ZLHeadlessDecisionsTest, WhoseVersionOfAnotherDocumentStaysIsNotAskedHere)
{
    start();
    ZLChapterDocument* other = controller->newDocument();
    const QString otherPath = temporary.filePath(u"other.zelta"_s);
    ASSERT_TRUE(savedAs(*controller->saverOf(other), otherPath));
    ASSERT_TRUE(ZLAtomicFile::write(otherPath, "somebody else's"));
    other->addChapter(std::make_shared<ZLChapter>());
    EXPECT_FALSE(controller->saverOf(other)->saveNow());
    ASSERT_EQ(errors.size(), 1);
    EXPECT_TRUE(errors.first().contains(otherPath)) << qPrintable(errors.first());
    EXPECT_FALSE(errors.first().contains(u"\"mine\""_s)) << qPrintable(errors.first());
}
