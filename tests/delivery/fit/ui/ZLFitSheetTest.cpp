#include "delivery/fit/ui/ZLFitSheet.h"

#include "../ZLFitFixture.h"
#include "../ZLShowSounds.h"

#include "delivery/fit/ZLKeptFits.h"
#include "delivery/fit/ui/ZLFitPicture.h"
#include "support/ZLSheetParts.h"

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>

using namespace Qt::StringLiterals;

class ZLFitSheetTest : public ZLFitFixture, protected ZLSheetParts {
protected:
    void SetUp() override
    {
        m_window.resize(900, 500);
        showSheet(m_window, m_sheet);
    }

    /// A fit that was made before, of a file that lies in the test's folder.
    void showKeptFit()
    {
        const ZLKeptFit kept = ZLKeptFits::keep(
            m_document.extras(), { .identifier = u"id"_s, .fileName = u"finished.wav"_s, .alignment = cutShow() });
        m_draft.setKnownPaths({ m_folder.filePath(u"finished.wav"_s) });
        m_draft.showKeptFit(kept.identifier);
        m_sheet->takeKeyboard();
    }

    [[nodiscard]] QString outcome() const { return part<QLabel>(u"fitOutcome"_s)->text(); }
    [[nodiscard]] QTreeView* list() const { return part<QTreeView>(u"fittedMarks"_s); }
    [[nodiscard]] ZLFitPicture* picture() const { return part<ZLFitPicture>(u"fitPicture"_s); }
    [[nodiscard]] QStringList column(int column) const { return shownIn(u"fittedMarks"_s, column); }

    QTemporaryDir m_folder;
    ZLFitDraft m_draft { m_document };
    ZLSheetWindow m_window;
    ZLFitSheet* m_sheet = new ZLFitSheet(m_draft, *m_window.menuBar(), &m_window);
};

TEST_F(ZLFitSheetTest, AsksForBothFilesOneAfterTheOther)
{
    EXPECT_EQ(QApplication::focusWidget(), button(u"chooseFinishedFile"_s));
    EXPECT_FALSE(button(u"startFit"_s)->isEnabled());
    EXPECT_FALSE(button(u"applyFit"_s)->isEnabled());
    EXPECT_FALSE(picture()->isVisible());
    EXPECT_EQ(outcome(), u"Choose the finished file, and the recording as it was before it was cut."_s);
    m_sheet->setFolder(m_folder.path());
    press(Qt::Key_Return);
    auto* dialog = m_window.findChild<QFileDialog*>(u"finishedPanel"_s);
    ASSERT_NE(dialog, nullptr);
    EXPECT_FALSE(dialog->isModal()) << "the clock may run";
    Q_EMIT dialog->fileSelected(m_folder.filePath(u"finished.wav"_s));
    dialog->reject();
    EXPECT_EQ(QApplication::focusWidget(), button(u"chooseRecording"_s));
    EXPECT_EQ(part<QComboBox>(u"finishedFiles"_s)->currentText(), u"finished.wav"_s);
    m_draft.setRecordingPath(m_folder.filePath(u"raw.wav"_s));
    EXPECT_EQ(part<QComboBox>(u"showSources"_s)->currentText(), u"raw.wav"_s);
    EXPECT_TRUE(button(u"startFit"_s)->isEnabled());
}

TEST_F(ZLFitSheetTest, ShowsEachMarkWithItsTimesItsStateAndHowSureThatIs)
{
    addMarks();
    showKeptFit();
    EXPECT_EQ(column(0), (QStringList { u"Kept"_s, u"Cut"_s, u"Seam"_s, u"Later"_s, u"Unheard"_s }));
    EXPECT_EQ(column(1).first(), u"00:00:10.000"_s);
    EXPECT_EQ(column(2),
        (QStringList { u"00:00:15.000"_s, u"00:00:45.000"_s, u"00:00:45.000"_s, u"00:00:55.000"_s, u"–"_s }));
    EXPECT_EQ(column(3), (QStringList { u"kept"_s, u"cut"_s, u"moved to the seam"_s, u"kept"_s, u"not found"_s }));
    EXPECT_EQ(column(4).first(), u"100 %"_s);
    EXPECT_EQ(column(4).last(), u"–"_s);
    EXPECT_EQ(outcome(), u"Kept: 2, moved to the seam: 1, cut: 1, not found: 1."_s);
    EXPECT_TRUE(picture()->isVisible());
    EXPECT_EQ(part<QComboBox>(u"finishedFiles"_s)->currentText(), u"finished.wav, 1:25, fitted"_s);
}

TEST_F(ZLFitSheetTest, ATeaserIsNamed)
{
    addMarks();
    ZLSoundAlignment alignment = cutShow();
    alignment.movedPieces = { { 72.0, 0.4, 4.0, 1.0, 0.1 } };
    const ZLKeptFit kept = ZLKeptFits::keep(
        m_document.extras(), { .identifier = u"id"_s, .fileName = u"finished.wav"_s, .alignment = alignment });
    m_draft.setKnownPaths({ m_folder.filePath(u"finished.wav"_s) });
    m_draft.showKeptFit(kept.identifier);
    EXPECT_TRUE(outcome().endsWith(u"At 00:00:00 the file also has 00:01:12 to 00:01:16 of the show."_s))
        << qPrintable(outcome());
}

TEST_F(ZLFitSheetTest, PictureAndListHaveTheSameMarkSelected)
{
    addMarks();
    showKeptFit();
    EXPECT_EQ(list()->currentIndex().row(), 0);
    EXPECT_EQ(picture()->selectedMark(), 0);
    QTest::mouseClick(picture(), Qt::LeftButton, {}, picture()->pointOf(3));
    EXPECT_EQ(list()->currentIndex().row(), 3);
    QTest::keyClick(list(), Qt::Key_Up);
    EXPECT_EQ(picture()->selectedMark(), 2);
}

TEST_F(ZLFitSheetTest, PlaysTheNewPlaceByClickKeyAndButton)
{
    addMarks();
    showKeptFit();
    QSignalSpy played(m_sheet, &ZLFitSheet::playRequested);
    QTest::mouseClick(
        list()->viewport(), Qt::LeftButton, {}, list()->visualRect(list()->model()->index(3, 0)).center());
    ASSERT_EQ(played.count(), 1);
    EXPECT_NEAR(played.last().first().toDouble(), 55.0, 1e-9);
    QTest::mouseClick(picture(), Qt::LeftButton, {}, picture()->pointOf(0));
    ASSERT_EQ(played.count(), 2);
    EXPECT_NEAR(played.last().first().toDouble(), 15.0, 1e-9);
    picture()->setFocus();
    press(Qt::Key_Space);
    EXPECT_EQ(played.count(), 3);
    button(u"playExcerpt"_s)->click();
    EXPECT_EQ(played.count(), 4);
    list()->setFocus();
    press(Qt::Key_Space);
    EXPECT_EQ(played.count(), 5);
    press(Qt::Key_End);
    EXPECT_FALSE(button(u"playExcerpt"_s)->isEnabled()) << "it was not found";
    press(Qt::Key_Space);
    EXPECT_EQ(played.count(), 5);
}

TEST_F(ZLFitSheetTest, ReturnAppliesAndTheLastMarksAreNamed)
{
    addMarks();
    showKeptFit();
    QSignalSpy news(m_sheet, &ZLFitSheet::hasNews);
    press(Qt::Key_Return);
    EXPECT_EQ(times(), (QList<double> { 15.0, 45.0, 45.0, 55.0, 200.0 }));
    ASSERT_EQ(news.count(), 1);
    EXPECT_EQ(news.first().first().toString(), u"Not found, unticked at their old times: Unheard"_s);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !button(u"applyFit"_s)->isEnabled(); }));
    EXPECT_TRUE(outcome().startsWith(u"The chapters of this document follow this file."_s)) << qPrintable(outcome());
    history().undo();
    EXPECT_TRUE(QTest::qWaitFor([this] { return button(u"applyFit"_s)->isEnabled(); }));
}

TEST_F(ZLFitSheetTest, ALaterTitleAppearsWithoutASecondFit)
{
    addMarks();
    showKeptFit();
    m_document.updateChapterToTitle(chapters().chapterAtIndex(0), u"Better"_s);
    EXPECT_TRUE(QTest::qWaitFor([this] { return column(0).first() == u"Better"_s; }));
    EXPECT_EQ(list()->currentIndex().row(), 0);
}

TEST_F(ZLFitSheetTest, ShowsHowFarItIsAndEscapeCancelsThenCloses)
{
    ASSERT_TRUE(ZLShowSounds::write(m_folder.filePath(u"raw.wav"_s), ZLShowSounds::show(1, 300.0)));
    ASSERT_TRUE(ZLShowSounds::write(m_folder.filePath(u"finished.wav"_s), ZLShowSounds::show(1, 60.0)));
    m_draft.setRecordingPath(m_folder.filePath(u"raw.wav"_s));
    m_draft.setFinishedPath(m_folder.filePath(u"finished.wav"_s));
    const QSignalSpy closes(m_sheet, &ZLFitSheet::wantsToClose);
    m_sheet->takeKeyboard();
    press(Qt::Key_Return);
    EXPECT_TRUE(part<QProgressBar>(u"fitProgress"_s)->isVisible());
    EXPECT_EQ(QApplication::focusWidget(), button(u"closeSheet"_s)) << "the button that was pressed is out of service";
    EXPECT_EQ(button(u"closeSheet"_s)->text().remove(u'&'), u"Cancel"_s);
    press(Qt::Key_Escape);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !m_draft.isWorking(); }, 60'000));
    EXPECT_EQ(outcome(), u"The fit was cancelled."_s);
    EXPECT_FALSE(part<QProgressBar>(u"fitProgress"_s)->isVisible());
    EXPECT_EQ(closes.count(), 0);
    press(Qt::Key_Escape);
    EXPECT_EQ(closes.count(), 1);
}

TEST_F(ZLFitSheetTest, EveryControlHasANameAndALetterOfItsOwn)
{
    addMarks();
    showKeptFit();
    QStringList letters;
    for (const auto* each : m_sheet->findChildren<QPushButton*>()) {
        EXPECT_FALSE(each->text().isEmpty());
        letters.append(QKeySequence::mnemonic(each->text()).toString());
    }
    EXPECT_EQ(QSet<QString>(letters.cbegin(), letters.cend()).size(), letters.size()) << qPrintable(letters.join(u' '));
    for (const QWidget* each : { static_cast<QWidget*>(list()), static_cast<QWidget*>(picture()) })
        EXPECT_FALSE(each->accessibleName().isEmpty());
}
