#include "SavingFixture.h"

#include <semaphore>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

class ZLDocumentSaverRevertTest : public SavingFixture { };

TEST_F(ZLDocumentSaverRevertTest, RevertGoesBackToTheLastSaveAsOneUndoableStep)
{
    const auto saver = titledSaver(filePath("show.zelta"));
    addChapter("One");
    EXPECT_TRUE(saved(*saver));
    addChapter("Two");
    addChapter("Three");
    EXPECT_TRUE(saver->saveNow()) << "saving by itself is no point to go back to";

    EXPECT_TRUE(saver->revert());
    EXPECT_EQ(document.chapterManager().count(), 1);
    writeAndSettle(*saver);
    EXPECT_EQ(titlesIn(saver->path()), QStringList { u"One"_s });

    document.undoManager().undo();
    EXPECT_EQ(document.chapterManager().count(), 3);
}

TEST_F(ZLDocumentSaverRevertTest, RevertWithoutASaveGoesBackToTheOpening)
{
    addChapter("Stored");
    const auto saver = titledSaver(filePath("show.zelta"));
    document.undoManager().removeAllActions();
    document.deleteLastChapter();
    EXPECT_TRUE(saver->revert());
    EXPECT_EQ(document.chapterManager().lastChapter()->title(), u"Stored"_s);

    document.undoManager().removeAllActions();
    EXPECT_TRUE(saver->revert());
    EXPECT_FALSE(document.undoManager().canUndo()) << "going back to where it stands is no step";
}

TEST_F(ZLDocumentSaverRevertTest, AnUntitledDocumentHasNothingToGoBackTo)
{
    const auto saver = untitledSaver();
    addChapter("One");
    EXPECT_FALSE(saver->canRevert());
    EXPECT_TRUE(saver->revert());
    EXPECT_EQ(document.chapterManager().count(), 1);
}

TEST_F(ZLDocumentSaverRevertTest, WhatIsAsItWasSavedHasNothingToGoBackTo)
{
    addChapter("Stored");
    const auto saver = titledSaver(filePath("show.zelta"));
    EXPECT_FALSE(saver->canRevert());
    addChapter("Two");
    EXPECT_TRUE(saver->canRevert());
    document.undoManager().undo();
    EXPECT_FALSE(saver->canRevert()) << "it is as it was again";
    document.undoManager().redo();
    EXPECT_TRUE(saved(*saver));
    EXPECT_FALSE(saver->canRevert());
}

TEST_F(ZLDocumentSaverRevertTest, RevertIsRefusedWhileTheClockRuns)
{
    const auto saver = titledSaver(filePath("show.zelta"));
    addChapter("One");
    document.startRecordingWithTime(clock->seconds);
    EXPECT_FALSE(saver->revert());
    EXPECT_GE(document.chapterManager().count(), 1);
    EXPECT_TRUE(document.isRecording());
}

}
