#include "app/ui/saving/ZLWindowCloser.h"

#include "app/ui/ZLDesktopFixture.h"

#include <QMessageBox>

using namespace Qt::StringLiterals;

class ZLWindowCloserTest : public ZLDesktopFixture {
protected:
    [[nodiscard]] bool isOpen(ZLChapterDocument* document) { return m_controller.documents().contains(document); }
    [[nodiscard]] QStringList recoveryFiles() const
    {
        return QDir(filePath(u"state/recovery"_s)).entryList({ u"*.zelta"_s }, QDir::Files);
    }
    /// An untitled document with something in it, beside another window.
    ZLChapterDocument* untitledBesideAnother()
    {
        ZLChapterDocument* document = newDocument();
        addChapter(document, u"Mine"_s);
        newDocument();
        return document;
    }
};

TEST_F(ZLWindowCloserTest, ARecordingWindowStaysAndSaysWhy)
{
    ZLChapterDocument* document = untitledBesideAnother();
    document->recordButtonPressed();
    EXPECT_FALSE(windowOf(document).close());
    EXPECT_TRUE(windowOf(document).isVisible());
    EXPECT_EQ(passingMessage(document), u"Pause the recording before closing this window."_s);
    EXPECT_EQ(barText(document), QString());
    EXPECT_EQ(windowOf(document).findChild<QDialog*>(), nullptr);
    document->recordButtonPressed();
}

TEST_F(ZLWindowCloserTest, AnUntitledDocumentWithContentIsAskedAbout)
{
    ZLChapterDocument* document = untitledBesideAnother();
    EXPECT_FALSE(windowOf(document).close());
    EXPECT_EQ(barText(document), u"“Untitled” is not in a file yet. Save it before closing?"_s);
    EXPECT_EQ(barButtons(document), (QStringList { u"Save As…"_s, u"Discard"_s, u"Cancel"_s }));
}

TEST_F(ZLWindowCloserTest, WhileAnotherRecordsTheDocumentIsWrittenBesideItAndThenCloses)
{
    ZLChapterDocument* recording = newDocument();
    recording->recordButtonPressed();
    const QString path = storedFile(u"show.zelta"_s);
    ZLChapterDocument* document = openFile(path);
    addChapter(document, u"Mine"_s);
    m_diskError = u"show.zelta: The disk is full."_s;
    EXPECT_FALSE(windowOf(document).close());
    settle();
    EXPECT_TRUE(isOpen(document));
    EXPECT_TRUE(barText(document).contains("Close it anyway?"_L1)) << qPrintable(barText(document));
    m_diskError.clear();
    EXPECT_FALSE(windowOf(document).close()) << "not before it is written";
    settle();
    flush();
    EXPECT_FALSE(isOpen(document));
    EXPECT_EQ(titlesInFile(path), (QStringList { u"Stored"_s, u"Mine"_s }));
    recording->recordButtonPressed();
}

TEST_F(ZLWindowCloserTest, DiscardClosesAndForgets)
{
    ZLChapterDocument* document = untitledBesideAnother();
    writeNow(document);
    EXPECT_EQ(recoveryFiles().size(), 1);
    windowOf(document).close();
    pressInBar(document, u"Discard"_s);
    EXPECT_FALSE(isOpen(document));
    EXPECT_EQ(m_windows->windowOf(document), nullptr);
    EXPECT_EQ(recoveryFiles(), QStringList());
}

TEST_F(ZLWindowCloserTest, CancelLeavesTheWindowOpenAndAsksAgainTheNextTime)
{
    ZLChapterDocument* document = untitledBesideAnother();
    windowOf(document).close();
    pressInBar(document, u"Cancel"_s);
    EXPECT_TRUE(isOpen(document));
    EXPECT_EQ(barText(document), QString());
    EXPECT_FALSE(windowOf(document).close());
    EXPECT_NE(barText(document), QString());
}

TEST_F(ZLWindowCloserTest, SaveAsWritesAndCloses)
{
    ZLChapterDocument* document = untitledBesideAnother();
    windowOf(document).close();
    pressInBar(document, u"Save As…"_s);
    choose(dialogOf(document), filePath(u"show.zelta"_s));
    EXPECT_FALSE(isOpen(document));
    EXPECT_EQ(titlesInFile(filePath(u"show.zelta"_s)), QStringList { u"Mine"_s });
    EXPECT_EQ(recoveryFiles(), QStringList());
}

TEST_F(ZLWindowCloserTest, CancellingTheSaveDialogLeavesTheWindowOpen)
{
    ZLChapterDocument* document = untitledBesideAnother();
    windowOf(document).close();
    pressInBar(document, u"Save As…"_s);
    dialogOf(document)->reject();
    flush();
    EXPECT_TRUE(isOpen(document));
    EXPECT_EQ(titles(document), QStringList { u"Mine"_s });
}

TEST_F(ZLWindowCloserTest, AnEmptyUntitledDocumentClosesWithoutAQuestion)
{
    ZLChapterDocument* document = newDocument();
    newDocument();
    EXPECT_TRUE(windowOf(document).close());
    EXPECT_FALSE(isOpen(document));
}

TEST_F(ZLWindowCloserTest, ATitledDocumentIsSavedAndClosed)
{
    const QString path = storedFile(u"show.zelta"_s);
    ZLChapterDocument* document = openFile(path);
    newDocument();
    addChapter(document, u"Mine"_s);
    EXPECT_TRUE(windowOf(document).close());
    EXPECT_FALSE(isOpen(document));
    EXPECT_EQ(titlesInFile(path), (QStringList { u"Stored"_s, u"Mine"_s }));
}

TEST_F(ZLWindowCloserTest, TextBeingTypedIsSavedToo)
{
    const QString path = storedFile(u"show.zelta"_s);
    ZLChapterDocument* document = openFile(path);
    newDocument();
    makeCurrent(document);
    document->editCurrentTitle();
    QTest::keyClicks(QApplication::focusWidget(), u"Typed"_s);
    EXPECT_TRUE(windowOf(document).close());
    EXPECT_EQ(titlesInFile(path), QStringList { u"Typed"_s });
}

TEST_F(ZLWindowCloserTest, WhatCannotBeSavedIsAskedAbout)
{
    const QString path = storedFile(u"show.zelta"_s);
    ZLChapterDocument* document = openFile(path);
    newDocument();
    addChapter(document, u"Mine"_s);
    m_diskError = u"show.zelta: The disk is full."_s;
    EXPECT_FALSE(windowOf(document).close());
    EXPECT_EQ(barText(document), u"The document cannot be saved: show.zelta: The disk is full. Close it anyway?"_s);
    EXPECT_EQ(barButtons(document), (QStringList { u"Save As…"_s, u"Close Without Saving"_s, u"Cancel"_s }));
    pressInBar(document, u"Close Without Saving"_s);
    EXPECT_FALSE(isOpen(document));
    m_diskError.clear();
    EXPECT_EQ(titlesInFile(path), QStringList { u"Stored"_s });
}

TEST_F(ZLWindowCloserTest, TheQuestionStandsInForTheFailureUntilItIsAnswered)
{
    ZLChapterDocument* document = openFile(storedFile(u"show.zelta"_s));
    newDocument();
    addChapter(document, u"Mine"_s);
    m_diskError = u"show.zelta: The disk is full."_s;
    writeNow(document);
    const QString failure = barText(document);
    EXPECT_TRUE(failure.startsWith("The document is not saved: "_L1));
    windowOf(document).close();
    EXPECT_FALSE(barText(document).contains(failure));
    pressInBar(document, u"Cancel"_s);
    EXPECT_EQ(barText(document), failure);
    EXPECT_EQ(barButtons(document), (QStringList { u"Try Now"_s, u"Save As…"_s }));
}

TEST_F(ZLWindowCloserTest, WhatCannotBeSavedMayGoElsewhere)
{
    ZLChapterDocument* document = openFile(storedFile(u"show.zelta"_s));
    newDocument();
    addChapter(document, u"Mine"_s);
    m_diskError = u"show.zelta: The disk is full."_s;
    windowOf(document).close();
    pressInBar(document, u"Save As…"_s);
    m_diskError.clear();
    choose(dialogOf(document), filePath(u"elsewhere.zelta"_s));
    EXPECT_FALSE(isOpen(document));
    EXPECT_EQ(titlesInFile(filePath(u"elsewhere.zelta"_s)), (QStringList { u"Stored"_s, u"Mine"_s }));
}

TEST_F(ZLWindowCloserTest, TheLastWindowEndsTheProgramAndItsDocumentIsKept)
{
    ZLChapterDocument* document = newDocument();
    addChapter(document, u"Mine"_s);
    EXPECT_EQ(ZLProgramRun::run({ [&] { EXPECT_TRUE(windowOf(document).close()); } }), 0);
    ASSERT_EQ(recoveryFiles().size(), 1);
    EXPECT_EQ(titlesInFile(filePath(u"state/recovery/"_s + recoveryFiles().first())), QStringList { u"Mine"_s });
}

TEST_F(ZLWindowCloserTest, ClosingOneOfTwoWindowsDoesNotEndTheProgram)
{
    ZLChapterDocument* document = newDocument();
    newDocument();
    const int status = ZLProgramRun::run({ [&] { EXPECT_TRUE(windowOf(document).close()); } });
    EXPECT_EQ(status, ZLProgramRun::StillRunning);
}

TEST_F(ZLWindowCloserTest, TheQuestionHasTheKeyboard)
{
    ZLChapterDocument* document = untitledBesideAnother();
    makeCurrent(document);
    EXPECT_FALSE(windowOf(document).close());
    auto* button = qobject_cast<QPushButton*>(windowOf(document).focusWidget());
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(plainTextOf(*button), u"Save As…"_s);
    QTest::keyClick(button, Qt::Key_Escape);
    EXPECT_EQ(windowOf(document).focusWidget()->accessibleName(), u"Chapters"_s);
    EXPECT_NE(barText(document), QString());
}

TEST_F(ZLWindowCloserTest, AMinimizedWindowThatRecordsComesToTheFrontInsteadOfClosing)
{
    ZLChapterDocument* document = untitledBesideAnother();
    document->recordButtonPressed();
    windowOf(document).showMinimized();
    EXPECT_FALSE(windowOf(document).close());
    EXPECT_FALSE(windowOf(document).windowHandle()->windowStates() & Qt::WindowMinimized);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&windowOf(document)));
    document->recordButtonPressed();
}
