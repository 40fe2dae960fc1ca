#include "SavingFixture.h"

#include "support/ZLFullDisk.h"

using namespace Qt::StringLiterals;

namespace {

class ZLDocumentSaverFailureTest : public SavingFixture {
protected:
    void takeFolderAway() { ASSERT_TRUE(QDir(filePath("stick")).removeRecursively()); }
    void putFolderBack() { ASSERT_TRUE(QDir().mkpath(filePath("stick"))); }
};

TEST_F(ZLDocumentSaverFailureTest, AFailedWriteIsToldAndTriedAgainUntilItWorks)
{
    putFolderBack();
    const QString path = filePath("stick/show.zelta");
    const auto saver = titledSaver(path);
    int tellings = 0;
    QObject::connect(saver.get(), &ZLDocumentSaver::stateDidChange, saver.get(), [&] { ++tellings; });
    takeFolderAway();
    addChapter("News");
    writeAndSettle(*saver);
    EXPECT_EQ(saver->state(), ZLSavingState::Failed);
    EXPECT_TRUE(saver->failureText().startsWith(path)) << qPrintable(saver->failureText());
    EXPECT_TRUE(saver->failureText().contains(u"No such file or directory"_s)) << qPrintable(saver->failureText());
    EXPECT_TRUE(document.isDocumentEdited());
    EXPECT_GT(tellings, 0);

    // It is tried at a steady pace, and the bar does not flicker.
    EXPECT_EQ(saver->plannedDelay(), ZLWriteSchedule::RetryInterval);
    tellings = 0;
    saver->writeNewestState();
    EXPECT_EQ(saver->state(), ZLSavingState::Failed);
    runTasks();
    addChapter("Weather");
    EXPECT_EQ(saver->state(), ZLSavingState::Failed);
    EXPECT_EQ(tellings, 0);
    EXPECT_EQ(document.chapterManager().count(), 2);

    putFolderBack();
    writeAndSettle(*saver);
    EXPECT_EQ(saver->state(), ZLSavingState::Saved);
    EXPECT_EQ(saver->failureText(), QString());
    EXPECT_EQ(titlesIn(path), (QStringList { u"News"_s, u"Weather"_s }));
    EXPECT_FALSE(document.isDocumentEdited());
}

TEST_F(ZLDocumentSaverFailureTest, WhileItsFileIsOutOfReachADocumentIsKeptInTheRecoveryFolder)
{
    putFolderBack();
    const QString path = filePath("stick/show.zelta");
    auto saver = titledSaver(path);
    takeFolderAway();
    addChapter("News");
    writeAndSettle(*saver);
    EXPECT_EQ(saver->state(), ZLSavingState::Failed);
    EXPECT_EQ(journaledTitles(), QStringList { u"News"_s });
    EXPECT_EQ(journaled().filePath, path) << "it still belongs into its file";
    EXPECT_EQ(saver->recoveryPath(), QString());

    saver.reset();
    EXPECT_EQ(journaledTitles(), QStringList { u"News"_s }) << "also when the program ends like that";
}

TEST_F(ZLDocumentSaverFailureTest, WhatIsInTheFileAgainNeedsNoJournalAfterTheEnd)
{
    putFolderBack();
    auto saver = titledSaver(filePath("stick/show.zelta"));
    takeFolderAway();
    addChapter("News");
    EXPECT_FALSE(saver->saveNow());
    putFolderBack();
    EXPECT_TRUE(saver->saveNow());
    saver.reset();
    EXPECT_EQ(recoveryFolder.journaledFiles(), QStringList());
}

TEST_F(ZLDocumentSaverFailureTest, AFullDiskLeavesTheOldFileWhole)
{
    const QString path = filePath("show.zelta");
    addChapter("Old");
    const auto saver = titledSaver(path);
    const auto before = ZLBoundedFile::read(path, ZLFileBound::Document);
    ASSERT_TRUE(before);
    for (int index = 0; index < 100; ++index)
        addChapter("A title that needs room");
    ZLStatus saved = ZLDone {};
    {
        const ZLFullDisk full(1024);
        saved = saver->saveNow();
    }
    ASSERT_FALSE(saved);
    EXPECT_TRUE(saved.error().message.startsWith(path)) << qPrintable(saved.error().message);
    EXPECT_EQ(saver->state(), ZLSavingState::Failed);
    const auto after = ZLBoundedFile::read(path, ZLFileBound::Document);
    ASSERT_TRUE(after);
    EXPECT_EQ(after.value(), before.value());
    EXPECT_EQ(QDir(temporary.path()).entryList(QDir::Files), QStringList { u"show.zelta"_s }) << "nothing half-written";

    EXPECT_TRUE(saver->saveNow());
    EXPECT_EQ(titlesIn(path).size(), 101);
}

TEST_F(ZLDocumentSaverFailureTest, AFullDiskUnderTheWorkerIsToldToo)
{
    const QString path = filePath("show.zelta");
    const auto saver = titledSaver(path);
    for (int index = 0; index < 100; ++index)
        addChapter("A title that needs room");
    {
        const ZLFullDisk full(1024);
        writeAndSettle(*saver);
    }
    EXPECT_EQ(saver->state(), ZLSavingState::Failed);
    EXPECT_EQ(titlesIn(path), QStringList());
    writeAndSettle(*saver);
    EXPECT_EQ(saver->state(), ZLSavingState::Saved);
    EXPECT_EQ(titlesIn(path).size(), 100);
}

TEST_F(ZLDocumentSaverFailureTest, ARecoveryFolderThatCannotBeMadeIsTold)
{
    ASSERT_TRUE(ZLAtomicFile::write(filePath("state"), "a file where the folder should be"));
    const auto saver = untitledSaver();
    addChapter("News");
    writeAndSettle(*saver);
    EXPECT_EQ(saver->state(), ZLSavingState::Failed);
    EXPECT_TRUE(saver->failureText().startsWith(recoveryFolder.path())) << qPrintable(saver->failureText());
    EXPECT_TRUE(saver->failureText().contains(u"Not a directory"_s)) << qPrintable(saver->failureText());
    EXPECT_EQ(saver->plannedDelay(), ZLWriteSchedule::RetryInterval);

    ASSERT_TRUE(QFile::remove(filePath("state")));
    writeAndSettle(*saver);
    EXPECT_EQ(saver->state(), ZLSavingState::Saved);
    EXPECT_EQ(titlesIn(saver->recoveryPath()), QStringList { u"News"_s });
}

TEST_F(ZLDocumentSaverFailureTest, ARecoveryFolderThatVanishesIsMadeAgain)
{
    const auto saver = untitledSaver();
    addChapter("News");
    writeAndSettle(*saver);
    ASSERT_TRUE(QDir(recoveryFolder.path()).removeRecursively());
    addChapter("Weather");
    writeAndSettle(*saver);
    EXPECT_EQ(saver->state(), ZLSavingState::Saved);
    EXPECT_EQ(titlesIn(saver->recoveryPath()), (QStringList { u"News"_s, u"Weather"_s }));
}

TEST_F(ZLDocumentSaverFailureTest, AFailedSaveAsLeavesEverythingAsItWas)
{
    const auto saver = untitledSaver();
    addChapter("News");
    writeAndSettle(*saver);
    const QString recoveryPath = saver->recoveryPath();
    addChapter("Weather");
    saver->writeNewestState();

    const ZLStatus saved = savedAs(*saver, filePath("no/such/folder/show.zelta"));
    ASSERT_FALSE(saved);
    EXPECT_TRUE(saved.error().message.startsWith(filePath("no/such/folder/show.zelta")));
    EXPECT_TRUE(saver->isUntitled());
    EXPECT_EQ(document.displayName(), u"Untitled"_s);
    EXPECT_TRUE(document.isDocumentEdited());
    EXPECT_EQ(saver->recoveryPath(), recoveryPath);
    EXPECT_EQ(recoveryFolder.files(), QStringList { recoveryPath });

    EXPECT_EQ(saver->state(), ZLSavingState::Saving) << "the write that was called off begins anew";
    runTasks();
    writeAndSettle(*saver);
    EXPECT_EQ(titlesIn(recoveryPath), (QStringList { u"News"_s, u"Weather"_s }));
}

}
