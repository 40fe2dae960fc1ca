#include "app/ui/saving/ZLSavingDisplay.h"

#include "app/ui/ZLDesktopFixture.h"

using namespace Qt::StringLiterals;

class ZLSavingDisplayTest : public ZLDesktopFixture {
protected:
    /// A titled document whose last change could not be written.
    ZLChapterDocument* documentThatFails()
    {
        ZLChapterDocument* document = openFile(storedFile(u"show.zelta"_s));
        addChapter(document, u"Mine"_s);
        m_diskError = u"show.zelta: The disk is full."_s;
        writeNow(document);
        return document;
    }
};

TEST_F(ZLSavingDisplayTest, AnUntitledDocumentSaysThatItIsKept)
{
    ZLChapterDocument* document = newDocument();
    EXPECT_EQ(saveStatus(document)->text(), u"Empty"_s);
    addChapter(document, u"Mine"_s);
    EXPECT_EQ(saveStatus(document)->text(), u"Saving…"_s);
    writeNow(document);
    EXPECT_EQ(saveStatus(document)->text(), u"Not in a file yet, kept safe"_s);
    EXPECT_TRUE(saveStatus(document)->toolTip().contains("not in a file yet"_L1));
}

TEST_F(ZLSavingDisplayTest, ATitledDocumentSaysWhereItIs)
{
    ZLChapterDocument* document = openFile(storedFile(u"show.zelta"_s));
    EXPECT_EQ(saveStatus(document)->text(), u"Saved"_s);
    EXPECT_TRUE(saveStatus(document)->toolTip().contains(filePath(u"show.zelta"_s)));
    addChapter(document, u"Mine"_s);
    EXPECT_EQ(saveStatus(document)->text(), u"Saving…"_s);
    writeNow(document);
    EXPECT_EQ(saveStatus(document)->text(), u"Saved"_s);
    EXPECT_EQ(barText(document), QString());
}

TEST_F(ZLSavingDisplayTest, ItLeadsToTheSaveDialog)
{
    ZLChapterDocument* document = newDocument();
    saveStatus(document)->click();
    ASSERT_NE(dialogOf(document), nullptr);
    EXPECT_EQ(dialogOf(document)->acceptMode(), QFileDialog::AcceptSave);
}

TEST_F(ZLSavingDisplayTest, AFailureIsToldInTheLineAndTheBar)
{
    ZLChapterDocument* document = documentThatFails();
    EXPECT_EQ(saveStatus(document)->text(), u"Not saved"_s);
    EXPECT_TRUE(saveStatus(document)->toolTip().contains("The disk is full."_L1));
    EXPECT_TRUE(barText(document).startsWith("The document is not saved: "_L1));
    EXPECT_TRUE(barText(document).contains("show.zelta: The disk is full."_L1));
    EXPECT_EQ(barButtons(document), (QStringList { u"Try Now"_s, u"Save As…"_s }));
}

TEST_F(ZLSavingDisplayTest, TheBarStaysWhileTryingFails)
{
    ZLChapterDocument* document = documentThatFails();
    const QString text = barText(document);
    pressInBar(document, u"Try Now"_s);
    flush();
    EXPECT_EQ(barText(document), text);
    EXPECT_EQ(barButtons(document), (QStringList { u"Try Now"_s, u"Save As…"_s }));
}

TEST_F(ZLSavingDisplayTest, TryingAgainWithSuccessTakesTheBarAway)
{
    ZLChapterDocument* document = documentThatFails();
    m_diskError.clear();
    pressInBar(document, u"Try Now"_s);
    EXPECT_EQ(barText(document), QString());
    EXPECT_EQ(saveStatus(document)->text(), u"Saved"_s);
    EXPECT_EQ(titlesInFile(filePath(u"show.zelta"_s)), (QStringList { u"Stored"_s, u"Mine"_s }));
}

TEST_F(ZLSavingDisplayTest, TheBarGoesByItselfWhenTheDiskIsBack)
{
    ZLChapterDocument* document = documentThatFails();
    m_diskError.clear();
    writeNow(document);
    EXPECT_EQ(barText(document), QString());
}

TEST_F(ZLSavingDisplayTest, AnotherFailureTakesThePlaceOfTheFirst)
{
    ZLChapterDocument* document = documentThatFails();
    m_diskError = u"show.zelta: The disk is gone."_s;
    writeNow(document);
    EXPECT_TRUE(barText(document).contains("The disk is gone."_L1));
    m_diskError.clear();
    writeNow(document);
    EXPECT_EQ(barText(document), QString());
}

TEST_F(ZLSavingDisplayTest, AnotherMessageIsLeftAlone)
{
    ZLChapterDocument* document = documentThatFails();
    windowOf(document).messageBar().showMessage(u"other"_s, u"Something else"_s, {});
    EXPECT_EQ(windowOf(document).messageBar().texts().size(), 2);
    m_diskError.clear();
    writeNow(document);
    EXPECT_EQ(barText(document), u"Something else"_s);
}

TEST_F(ZLSavingDisplayTest, SavingElsewhereTakesTheBarAway)
{
    ZLChapterDocument* document = documentThatFails();
    pressInBar(document, u"Save As…"_s);
    m_diskError.clear();
    choose(dialogOf(document), filePath(u"elsewhere.zelta"_s));
    EXPECT_EQ(barText(document), QString());
    EXPECT_EQ(saveStatus(document)->text(), u"Saved"_s);
    EXPECT_TRUE(saveStatus(document)->toolTip().contains("elsewhere.zelta"_L1));
}

TEST_F(ZLSavingDisplayTest, TheFailureIsStillToldAfterTheDialogWasCancelled)
{
    ZLChapterDocument* document = documentThatFails();
    pressInBar(document, u"Save As…"_s);
    dialogOf(document)->reject();
    flush();
    EXPECT_TRUE(barText(document).contains("The disk is full."_L1));
}

TEST_F(ZLSavingDisplayTest, ARecoveryFolderThatCannotBeWrittenIsToldUntilItCan)
{
    ZLChapterDocument* document = openFile(storedFile(u"show.zelta"_s));
    const QString folder = filePath(u"state/recovery"_s);
    ASSERT_TRUE(QDir(folder).removeRecursively());
    ASSERT_TRUE(QFile(folder).open(QIODevice::WriteOnly));
    addChapter(document, u"Mine"_s);
    EXPECT_EQ(barText(document),
        u"The recovery folder cannot be written: %1: Not a directory. A crash may take what is not in the file yet. Zelta keeps trying."_s
            .arg(folder));
    writeNow(document);
    EXPECT_EQ(saveStatus(document)->text(), u"Saved"_s) << "the file itself is all right";
    ASSERT_TRUE(QFile::remove(folder));
    addChapter(document, u"More"_s);
    EXPECT_EQ(barText(document), QString());
}

TEST_F(ZLSavingDisplayTest, AnUntitledDocumentThatCannotBeKeptIsToldOnce)
{
    ZLChapterDocument* document = newDocument();
    const QString folder = filePath(u"state/recovery"_s);
    ASSERT_TRUE(QDir(folder).removeRecursively());
    ASSERT_TRUE(QFile(folder).open(QIODevice::WriteOnly));
    addChapter(document, u"Mine"_s);
    writeNow(document);
    EXPECT_TRUE(barText(document).startsWith("The document is not saved: "_L1));
    EXPECT_EQ(windowOf(document).messageBar().texts().size(), 1);
}

TEST_F(ZLSavingDisplayTest, AnInterruptedRecordingOffersBothChoicesAndUndoOffersThemAgain)
{
    ZLChapterDocument* document = openFile(storedFile(u"show.zelta"_s));
    document->setInterruptedRecording(ZLInterruptedRecording { 30.0, QDateTime::currentDateTimeUtc() });
    EXPECT_TRUE(barText(document).startsWith("The recording was interrupted on "_L1));
    const QStringList choices { u"Continue as if Never Stopped"_s, u"Stay Paused"_s };
    EXPECT_EQ(barButtons(document), choices);
    pressInBar(document, choices.last());
    EXPECT_EQ(barText(document), QString());
    document->undoManager().undo();
    EXPECT_EQ(barButtons(document), choices);
    pressInBar(document, choices.first());
    EXPECT_TRUE(document->isRecording());
    EXPECT_EQ(barText(document), QString());
    document->undoManager().undo();
    EXPECT_FALSE(document->isRecording());
    EXPECT_EQ(barButtons(document), choices);
}

TEST_F(ZLSavingDisplayTest, AFileThatAnotherProgramChangedAsksWhatToDo)
{
    ZLChapterDocument* document = openFile(storedFile(u"show.zelta"_s));
    addChapter(document, u"Mine"_s);
    storedFile(u"show.zelta"_s, u"Theirs"_s);
    writeNow(document);
    EXPECT_TRUE(barText(document).contains("Another program changed"_L1));
    EXPECT_EQ(barButtons(document), (QStringList { u"Keep Mine"_s, u"Take Theirs"_s, u"Keep Both"_s }));
    EXPECT_EQ(saveStatus(document)->text(), u"Not saved"_s);
    pressInBar(document, u"Take Theirs"_s);
    EXPECT_EQ(titles(document), QStringList { u"Theirs"_s });
    EXPECT_EQ(barText(document), QString());
}

TEST_F(ZLSavingDisplayTest, AFileThatIsOpenElsewhereIsToldOnce)
{
    const QString path = storedFile(u"show.zelta"_s);
    ASSERT_TRUE(ZLAtomicFile::write(ZLDocumentLock::lockPath(path), "studio-elsewhere\n77\n"));
    ZLChapterDocument* document = openFile(path);
    EXPECT_TRUE(barText(document).contains("studio-elsewhere, process 77"_L1));
    pressInBar(document, u"OK"_s);
    addChapter(document, u"Mine"_s);
    writeNow(document);
    EXPECT_EQ(barText(document), QString());
    EXPECT_EQ(titlesInFile(path), (QStringList { u"Stored"_s, u"Mine"_s }));
}
