#include "app/ui/saving/ZLSavePanel.h"

#include "app/ui/ZLDesktopFixture.h"

using namespace Qt::StringLiterals;

class ZLSavePanelTest : public ZLDesktopFixture { };

TEST_F(ZLSavePanelTest, SavingAnUntitledDocumentAsksForAFile)
{
    ZLChapterDocument* document = newDocument();
    addChapter(document, u"Mine"_s);
    trigger(document, u"save"_s);
    choose(dialogOf(document), filePath(u"show"_s));
    EXPECT_EQ(titlesInFile(filePath(u"show.zelta"_s)), QStringList { u"Mine"_s });
    EXPECT_EQ(document->displayName(), u"show.zelta"_s);
    EXPECT_EQ(passingMessage(document), u"Saved as show.zelta."_s);
    EXPECT_EQ(windowOf(document).windowFilePath(), filePath(u"show.zelta"_s));
}

TEST_F(ZLSavePanelTest, ATypedNameGetsItsExtensionBehindAnyDot)
{
    ZLChapterDocument* document = newDocument();
    addChapter(document, u"Mine"_s);
    trigger(document, u"saveAs"_s);
    choose(dialogOf(document), filePath(u"Episode 1.5"_s));
    EXPECT_EQ(titlesInFile(filePath(u"Episode 1.5.zelta"_s)), QStringList { u"Mine"_s });
    trigger(document, u"saveAs"_s);
    choose(dialogOf(document), filePath(u"Other.Zelta"_s));
    EXPECT_EQ(titlesInFile(filePath(u"Other.Zelta"_s)), QStringList { u"Mine"_s });
}

TEST_F(ZLSavePanelTest, AFileThatTheDialogDidNotAskAboutIsNotReplacedWithoutAQuestion)
{
    const QString path = storedFile(u"Episode 1.5.zelta"_s);
    ZLChapterDocument* document = newDocument();
    addChapter(document, u"Mine"_s);
    trigger(document, u"saveAs"_s);
    // As the desktop's own dialog does, which knows nothing of the extension.
    Q_EMIT dialogOf(document)->fileSelected(filePath(u"Episode 1.5"_s));
    settle();
    EXPECT_EQ(titlesInFile(path), QStringList { u"Stored"_s });
    EXPECT_TRUE(barText(document).contains("Episode 1.5.zelta"_L1));
    pressInBar(document, u"Replace"_s);
    EXPECT_EQ(titlesInFile(path), QStringList { u"Mine"_s });
}

TEST_F(ZLSavePanelTest, SavingATitledDocumentWritesAtOnce)
{
    const QString path = storedFile(u"show.zelta"_s);
    ZLChapterDocument* document = openFile(path);
    addChapter(document, u"Mine"_s);
    trigger(document, u"save"_s);
    EXPECT_EQ(dialogOf(document), nullptr);
    EXPECT_EQ(titlesInFile(path), (QStringList { u"Stored"_s, u"Mine"_s }));
    EXPECT_EQ(passingMessage(document), u"Saved. Further changes are saved automatically."_s);
}

TEST_F(ZLSavePanelTest, SavingGivesChaptersWithoutAnIdentifierTheirsAlthoughNothingWasEdited)
{
    const QString path = filePath(u"show.zelta"_s);
    QVariantMap chapter = ZLChapter().dictionaryRepresentation();
    chapter.remove(ZLChapterKey::UUID);
    ASSERT_TRUE(ZLAtomicFile::write(path, ZLDocumentFile::encode({ .chapters = { chapter }, .templates = {} })));
    const auto identifier = [this, &path] {
        ZLChapterDocument* document = openFile(path);
        const QString uuid = document->chapterManager().chapterAtIndex(0)->uuid();
        EXPECT_TRUE(m_controller.closeDocument(document, ZLClosing::Keep));
        return uuid;
    };
    EXPECT_NE(identifier(), identifier()) << "opening alone writes nothing";
    ZLChapterDocument* document = openFile(path);
    const QString uuid = document->chapterManager().chapterAtIndex(0)->uuid();
    trigger(document, u"save"_s);
    EXPECT_TRUE(m_controller.closeDocument(document, ZLClosing::Keep));
    EXPECT_EQ(identifier(), uuid);
}

TEST_F(ZLSavePanelTest, CancellingChangesNothing)
{
    ZLChapterDocument* document = newDocument();
    addChapter(document, u"Mine"_s);
    trigger(document, u"saveAs"_s);
    ASSERT_NE(dialogOf(document), nullptr);
    EXPECT_EQ(dialogOf(document)->acceptMode(), QFileDialog::AcceptSave);
    dialogOf(document)->reject();
    flush();
    EXPECT_EQ(document->displayName(), u"Untitled"_s);
    EXPECT_TRUE(m_controller.saverOf(document)->isUntitled());
    EXPECT_EQ(passingMessage(document), QString());
    EXPECT_EQ(QDir(m_folder.path()).entryList(QDir::Files), QStringList());
}

TEST_F(ZLSavePanelTest, TheTextBeingTypedIsSaved)
{
    const QString path = storedFile(u"show.zelta"_s);
    ZLChapterDocument* document = openFile(path);
    makeCurrent(document);
    document->editCurrentTitle();
    ASSERT_TRUE(qobject_cast<QLineEdit*>(QApplication::focusWidget()));
    QTest::keyClicks(QApplication::focusWidget(), u"Typed"_s);
    trigger(document, u"save"_s);
    EXPECT_EQ(titlesInFile(path), QStringList { u"Typed"_s });
}

TEST_F(ZLSavePanelTest, AFailureIsToldInTheBarAndAnotherPlaceIsOffered)
{
    ZLChapterDocument* document = openFile(storedFile(u"show.zelta"_s));
    addChapter(document, u"Mine"_s);
    m_diskError = u"show.zelta: The disk is full."_s;
    trigger(document, u"save"_s);
    EXPECT_TRUE(barText(document).contains("show.zelta: The disk is full."_L1)) << qPrintable(barText(document));
    EXPECT_TRUE(barButtons(document).contains(u"Save As…"_s));
    m_diskError.clear();
    pressInBar(document, u"Save As…"_s);
    choose(dialogOf(document), filePath(u"elsewhere.zelta"_s));
    EXPECT_EQ(titlesInFile(filePath(u"elsewhere.zelta"_s)), (QStringList { u"Stored"_s, u"Mine"_s }));
    EXPECT_EQ(barText(document), QString());
}

TEST_F(ZLSavePanelTest, AFileThatIsOpenInAnotherWindowIsNotTaken)
{
    ZLChapterDocument* other = openFile(storedFile(u"show.zelta"_s));
    ZLChapterDocument* document = newDocument();
    addChapter(document, u"Mine"_s);
    trigger(document, u"saveAs"_s);
    Q_EMIT dialogOf(document)->fileSelected(filePath(u"show.zelta"_s));
    settle();
    EXPECT_TRUE(barText(document).contains(" is in use by Zelta. Choose another name."_L1));
    EXPECT_EQ(titlesInFile(filePath(u"show.zelta"_s)), titles(other));
}
