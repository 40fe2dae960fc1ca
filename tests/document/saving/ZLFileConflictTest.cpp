#include "SavingFixture.h"

#include <QSysInfo>

using namespace Qt::StringLiterals;

class ZLFileConflictTest : public SavingFixture {
protected:
    /// What another program makes of the file.
    void writeTheirs()
    {
        ZLChapterDocument other(environment());
        const auto chapter = std::make_shared<ZLChapter>();
        chapter->setTitle(u"Theirs"_s);
        other.addChapter(chapter);
        ASSERT_TRUE(ZLAtomicFile::write(path, other.dataOfType()));
    }

    std::unique_ptr<ZLDocumentSaver> saverInConflict()
    {
        auto saver = titledSaver(path);
        addChapter("Mine");
        writeTheirs();
        writeAndSettle(*saver);
        EXPECT_EQ(saver->state(), ZLSavingState::Conflict);
        return saver;
    }

    const QString path = filePath("show.zelta");
    const QStringList mine { u"Mine"_s };
    const QStringList theirs { u"Theirs"_s };
};

TEST_F(ZLFileConflictTest, WhatAnotherProgramWroteIsNotOverwritten)
{
    const auto saver = saverInConflict();
    EXPECT_EQ(titlesIn(path), theirs);
    EXPECT_EQ(journaledTitles(), mine) << "and nothing of ours is lost";
    EXPECT_TRUE(saver->failureText().startsWith(path));
    EXPECT_EQ(saver->plannedDelay(), std::nullopt);
    EXPECT_TRUE(document.isDocumentEdited());

    addChapter("More");
    writeAndSettle(*saver);
    EXPECT_FALSE(saver->saveNow());
    EXPECT_EQ(titlesIn(path), theirs);
    EXPECT_EQ(journaledTitles(), (QStringList { u"Mine"_s, u"More"_s }));
}

TEST_F(ZLFileConflictTest, SavingAtOnceFindsItToo)
{
    const auto saver = titledSaver(path);
    addChapter("Mine");
    writeTheirs();
    EXPECT_FALSE(saver->saveNow());
    EXPECT_EQ(saver->state(), ZLSavingState::Conflict);
    EXPECT_EQ(titlesIn(path), theirs);
}

TEST_F(ZLFileConflictTest, KeepMineWritesOverItOnce)
{
    const auto saver = saverInConflict();
    EXPECT_TRUE(keptMine(*saver));
    EXPECT_EQ(saver->state(), ZLSavingState::Saved);
    EXPECT_EQ(titlesIn(path), mine);
    writeTheirs();
    addChapter("More");
    writeAndSettle(*saver);
    EXPECT_EQ(saver->state(), ZLSavingState::Conflict) << "the next change of theirs is a new question";
}

TEST_F(ZLFileConflictTest, TakeTheirsIsOneUndoableStep)
{
    const auto saver = saverInConflict();
    EXPECT_TRUE(tookTheirs(*saver));
    EXPECT_EQ(document.chapterManager().chapterAtIndex(0)->title(), u"Theirs"_s);
    writeAndSettle(*saver);
    EXPECT_EQ(saver->state(), ZLSavingState::Saved);
    EXPECT_EQ(titlesIn(path), theirs);
    document.undoManager().undo();
    writeAndSettle(*saver);
    EXPECT_EQ(titlesIn(path), mine);
}

TEST_F(ZLFileConflictTest, TakeTheirsLeavesARunningClockAlone)
{
    const auto saver = saverInConflict();
    document.startRecordingWithTime(clock->seconds);
    clock->seconds += 40.0;
    EXPECT_TRUE(tookTheirs(*saver));
    EXPECT_TRUE(document.isRecording());
    EXPECT_EQ(document.currentDuration(), 40.0);
}

TEST_F(ZLFileConflictTest, TheirsThatIsNoDocumentIsRefusedAndTheQuestionStays)
{
    const auto saver = titledSaver(path);
    addChapter("Mine");
    ASSERT_TRUE(ZLAtomicFile::write(path, "not a document"));
    writeAndSettle(*saver);
    const ZLStatus taken = tookTheirs(*saver);
    ASSERT_FALSE(taken);
    EXPECT_TRUE(taken.error().message.startsWith(path));
    EXPECT_EQ(saver->state(), ZLSavingState::Conflict);
    EXPECT_EQ(document.chapterManager().chapterAtIndex(0)->title(), u"Mine"_s);
}

TEST_F(ZLFileConflictTest, KeepBothGoesOnInANewFileBesideIt)
{
    ASSERT_TRUE(ZLAtomicFile::write(filePath("show 2.zelta"), "taken"));
    const auto saver = saverInConflict();
    ASSERT_TRUE(keptBoth(*saver));
    EXPECT_EQ(saver->path(), filePath("show 3.zelta"));
    EXPECT_EQ(saver->state(), ZLSavingState::Saved);
    EXPECT_EQ(titlesIn(path), theirs);
    EXPECT_EQ(titlesIn(saver->path()), mine);
}

TEST_F(ZLFileConflictTest, AFileWithTheSameBytesIsNoConflict)
{
    const auto saver = titledSaver(path);
    const auto bytes = ZLBoundedFile::read(path, ZLFileBound::Document);
    ASSERT_TRUE(QFile::remove(path));
    ASSERT_TRUE(ZLAtomicFile::write(path, bytes.value()));
    addChapter("Mine");
    writeAndSettle(*saver);
    EXPECT_EQ(saver->state(), ZLSavingState::Saved);
}

TEST_F(ZLFileConflictTest, AFileThatIsOpenTwiceIsTold)
{
    auto first = titledSaver(path);
    EXPECT_EQ(first->otherHolder(), QString());
    ZLChapterDocument again(environment());
    const ZLDocumentSaver second(again, recoveryFolder, machinery, path, asRead());
    EXPECT_TRUE(second.otherHolder().startsWith(QSysInfo::machineHostName())) << qPrintable(second.otherHolder());
    EXPECT_TRUE(second.otherHolder().contains(QString::number(QCoreApplication::applicationPid())));
    first.reset();
    EXPECT_EQ(ZLDocumentLock(path).otherHolder(), QString());
}

TEST_F(ZLFileConflictTest, TheLockOfADeadProcessHereIsTakenOverAndThatOfAnotherMachineIsTold)
{
    const QString lockPath = ZLDocumentLock::lockPath(path);
    ASSERT_TRUE(ZLAtomicFile::write(lockPath, QSysInfo::machineHostName().toUtf8() + "\n1\n"));
    EXPECT_EQ(ZLDocumentLock(path).otherHolder(), QString());
    EXPECT_FALSE(QFile::exists(lockPath));

    ASSERT_TRUE(ZLAtomicFile::write(lockPath, "studio-elsewhere\n77\n"));
    EXPECT_EQ(ZLDocumentLock(path).otherHolder(), u"studio-elsewhere, process 77"_s);
    EXPECT_TRUE(QFile::exists(lockPath)) << "it is not ours to remove";
    ASSERT_TRUE(ZLAtomicFile::write(lockPath, QByteArray(100'000, 'x')));
    EXPECT_EQ(ZLDocumentLock(path).otherHolder(), u"another program"_s);
}
