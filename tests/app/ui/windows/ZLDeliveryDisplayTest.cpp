#include "delivery/ui/ZLDeliverySheet.h"

#include "app/ui/ZLDesktopFixture.h"
#include "document/ui/ZLDocumentToolbar.h"
#include "document/ui/table/ZLChapterTableView.h"
#include "platform/media/file/ZLMediaFile.h"

#include "../../../delivery/ZLWaveFile.h"

#include <QDoubleSpinBox>
#include <QTreeView>

using namespace Qt::StringLiterals;

class ZLDeliveryDisplayTest : public ZLDesktopFixture {
protected:
    QString audioFile(const QString& name) const
    {
        EXPECT_TRUE(writeWaveFile(filePath(name), 60));
        return filePath(name);
    }

    ZLDeliverySheet* sheetOf(ZLChapterDocument* document)
    {
        return windowOf(document).findChild<ZLDeliverySheet*>(u"deliverySheet"_s);
    }
    bool isSheetShown(ZLChapterDocument* document) { return sheetOf(document) && sheetOf(document)->isVisible(); }
    int fileCount(ZLChapterDocument* document)
    {
        return sheetOf(document)->findChild<QTreeView*>(u"deliveryFiles"_s)->model()->rowCount();
    }
    void drop(ZLChapterDocument* document, const QStringList& paths) { Q_EMIT windowOf(document).filesDropped(paths); }
    void write(ZLChapterDocument* document)
    {
        auto* button = sheetOf(document)->findChild<QPushButton*>(u"writeChapters"_s);
        EXPECT_TRUE(QTest::qWaitFor([&] { return button->isEnabled(); }));
        button->click();
        EXPECT_TRUE(QTest::qWaitFor([&] { return passingMessage(document).contains(u"chapters are in"_s); }));
    }
};

TEST_F(ZLDeliveryDisplayTest, OpensBetweenTheClockAndTheTableAndGivesTheKeyboardBack)
{
    ZLChapterDocument* document = newDocument();
    makeCurrent(document);
    EXPECT_EQ(action(document, u"writeChaptersIntoAudio"_s)->shortcut(), QKeySequence(u"Ctrl+Shift+E"_s));
    trigger(document, u"writeChaptersIntoAudio"_s);
    ASSERT_TRUE(isSheetShown(document));
    EXPECT_FALSE(sheetOf(document)->isWindow()) << "so that it can cover no clock";
    EXPECT_TRUE(sheetOf(document)->isAncestorOf(QApplication::focusWidget()));
    QCoreApplication::processEvents();
    EXPECT_GT(windowOf(document).tableView().height(), 60);
    EXPECT_FALSE(sheetOf(document)->geometry().intersects(windowOf(document).tableView().geometry()));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(isSheetShown(document));
    EXPECT_EQ(QApplication::focusWidget(), &windowOf(document).tableView());
}

TEST_F(ZLDeliveryDisplayTest, ADroppedAudioFileComesIntoTheSheetAndOthersAreOpened)
{
    ZLChapterDocument* document = newDocument();
    addChapter(document, u"Mine"_s);
    drop(document, { audioFile(u"a.wav"_s), storedFile(u"show.zelta"_s), audioFile(u"b.wav"_s) });
    ASSERT_TRUE(isSheetShown(document));
    EXPECT_EQ(fileCount(document), 2);
    // Whether a file is a list is looked for beside the main thread.
    EXPECT_TRUE(QTest::qWaitFor([this] { return m_controller.documents().size() == 2; }, 30'000));
}

TEST_F(ZLDeliveryDisplayTest, WritesWhileTheClockRunsAndMarksArrive)
{
    ZLChapterDocument* document = newDocument();
    drop(document, { audioFile(u"a.wav"_s) });
    document->recordButtonPressed();
    m_clock->advance(3.0);
    document->addNewBlankChapter();
    document->updateChapterToTitle(document->chapterManager().lastChapter(), u"Live"_s);
    write(document);
    EXPECT_TRUE(document->isRecording());
    const auto chapters = ZLMediaFile::read(filePath(u"a.wav"_s)).value().chapters;
    ASSERT_EQ(chapters.size(), 1);
    EXPECT_EQ(chapters.first().title, u"Live"_s);
    EXPECT_EQ(chapters.first().start, 3000);
    EXPECT_EQ(passingMessage(document), u"1 of 1 chapters are in a.wav"_s);
}

TEST_F(ZLDeliveryDisplayTest, TheDocumentRemembersItsFileAndItsShift)
{
    const QString path = storedFile(u"show.zelta"_s);
    const QByteArray bytes = ZLBoundedFile::read(path, ZLFileBound::Document).value();
    ZLChapterDocument* document = openFile(path);
    drop(document, { audioFile(u"a.wav"_s) });
    sheetOf(document)->findChild<QDoubleSpinBox*>(u"shift"_s)->setValue(2.5);
    write(document);
    EXPECT_EQ(ZLBoundedFile::read(path, ZLFileBound::Document).value(), bytes) << "the document says nothing of it";
    ASSERT_TRUE(m_controller.closeDocument(document, ZLClosing::Keep));
    document = openFile(path);
    trigger(document, u"writeChaptersIntoAudio"_s);
    EXPECT_EQ(fileCount(document), 1);
    EXPECT_EQ(sheetOf(document)->findChild<QDoubleSpinBox*>(u"shift"_s)->value(), 2.5);
}

TEST_F(ZLDeliveryDisplayTest, AnAudioFileOpensAsAnUntitledDocumentOfItsChapters)
{
    const QString path = audioFile(u"a.wav"_s);
    ZLWorkProgress progress;
    ASSERT_TRUE(ZLMediaFile::write(path, { { 1500, 60'000, u"Eins"_s } }, path, progress));
    const QByteArray bytes = ZLBoundedFile::read(path, ZLFileBound::Document).value();
    newDocument();
    openAndWait({ path });
    ASSERT_EQ(m_controller.documents().size(), 1) << "in place of the untouched one";
    ZLChapterDocument* document = m_controller.documents().first();
    EXPECT_EQ(titles(document), QStringList { u"Eins"_s });
    EXPECT_EQ(document->currentDuration(), 60.0);
    EXPECT_TRUE(m_controller.saverOf(document)->isUntitled());
    EXPECT_TRUE(document->isDocumentEdited());
    EXPECT_FALSE(document->undoManager().canUndo());
    addChapter(document, u"Mine"_s);
    EXPECT_TRUE(m_controller.saveAllNow().isEmpty());
    EXPECT_EQ(ZLBoundedFile::read(path, ZLFileBound::Document).value(), bytes) << "nothing is saved to that file";
}

TEST_F(ZLDeliveryDisplayTest, AnAudioFileThatCannotBeReadIsToldInTheBar)
{
    ZLChapterDocument* document = newDocument();
    ASSERT_TRUE(ZLAtomicFile::write(filePath(u"a.mp3"_s), "no audio"));
    openAndWait({ filePath(u"a.mp3"_s) });
    EXPECT_TRUE(barText(document).contains(u"a.mp3: this is no audio file"_s)) << qPrintable(barText(document));
    EXPECT_EQ(m_controller.documents().size(), 1);
}
