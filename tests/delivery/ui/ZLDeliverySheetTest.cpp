#include "delivery/ui/ZLDeliverySheet.h"

#include "../ZLWaveFile.h"

#include "platform/media/file/ZLMediaFile.h"
#include "support/ZLDocumentFixture.h"
#include "support/ZLSheetParts.h"

#include <QAccessible>
#include <QApplication>
#include <QDoubleSpinBox>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>

using namespace Qt::StringLiterals;
using State = ZLDeliveryTarget::State;

class ZLDeliverySheetTest : public ZLDocumentFixture, protected ZLSheetParts {
protected:
    ZLDeliverySheetTest()
    {
        addChapterAt(1.0, u"Eins"_s);
        addChapterAt(2.0, u"Zwei"_s);
    }

    void SetUp() override { showSheet(m_window, m_sheet); }

    QString makeFile(const QString& name) const
    {
        const QString path = m_folder.filePath(name);
        EXPECT_TRUE(writeWaveFile(path, 60));
        return path;
    }

    void choose(const QStringList& paths)
    {
        m_draft.setPaths(paths);
        EXPECT_TRUE(QTest::qWaitFor([this] {
            return std::ranges::none_of(
                m_draft.targets(), [](const auto& target) { return target.state == State::Reading; });
        }));
    }

    void waitForEnd()
    {
        EXPECT_TRUE(QTest::qWaitFor([this] { return !m_draft.isWriting(); }));
    }

    [[nodiscard]] QString advice() const { return part<QLabel>(u"exportAdviceText"_s)->text(); }
    [[nodiscard]] QString outcome() const { return part<QLabel>(u"deliveryOutcome"_s)->text(); }

    QTemporaryDir m_folder;
    ZLDeliveryDraft m_draft { m_document };
    ZLSheetWindow m_window;
    ZLDeliverySheet* m_sheet = new ZLDeliverySheet(m_draft, *m_window.menuBar(), &m_window);
};

TEST_F(ZLDeliverySheetTest, AsksForAFileFirst)
{
    EXPECT_EQ(QApplication::focusWidget(), button(u"chooseFiles"_s));
    EXPECT_FALSE(button(u"writeChapters"_s)->isEnabled());
    EXPECT_EQ(outcome(), u"Choose the finished audio files, or drop them on this window."_s);
    m_sheet->setFolder(m_folder.path());
    press(Qt::Key_Return);
    auto* dialog = m_window.findChild<QFileDialog*>(u"audioPanel"_s);
    ASSERT_NE(dialog, nullptr);
    EXPECT_FALSE(dialog->isModal()) << "the clock may run";
    EXPECT_EQ(dialog->directory(), QDir(m_folder.path()));
    Q_EMIT dialog->filesSelected({ makeFile(u"a.wav"_s) });
    dialog->reject();
    EXPECT_EQ(m_draft.paths(), QStringList { m_folder.filePath(u"a.wav"_s) });
    EXPECT_EQ(QApplication::focusWidget(), part<QTreeView>(u"deliveryFiles"_s));
}

TEST_F(ZLDeliverySheetTest, ShowsTheChaptersNowAndToComeAndWhatToKnow)
{
    addChapterAt(70.0, u"Late"_s);
    choose({ makeFile(u"a.wav"_s) });
    EXPECT_EQ(shownIn(u"deliveryFiles"_s, 0), QStringList { u"a.wav"_s });
    EXPECT_EQ(shownIn(u"deliveryFiles"_s, 2), QStringList { u"1:00"_s });
    EXPECT_EQ(shownIn(u"chaptersNow"_s, 1), QStringList());
    EXPECT_EQ(shownIn(u"chaptersToCome"_s, 1), (QStringList { u"Eins"_s, u"Zwei"_s }));
    EXPECT_EQ(advice(), u"Chapters behind the end of the file, left out: 1."_s);
    part<QDoubleSpinBox>(u"shift"_s)->setValue(1.25);
    EXPECT_EQ(shownIn(u"chaptersToCome"_s, 0), (QStringList { u"00:00:02.250"_s, u"00:00:03.250"_s }));
    part<QDoubleSpinBox>(u"shift"_s)->setValue(100.0);
    EXPECT_FALSE(button(u"writeChapters"_s)->isEnabled());
    EXPECT_TRUE(advice().startsWith(u"No enabled chapter lies in this file"_s)) << qPrintable(advice());
}

TEST_F(ZLDeliverySheetTest, ReturnWritesAndTellsWhatIsInTheFile)
{
    choose({ makeFile(u"a.wav"_s) });
    m_sheet->takeKeyboard();
    const QSignalSpy news(m_sheet, &ZLDeliverySheet::hasNews);
    press(Qt::Key_Return);
    waitForEnd();
    EXPECT_EQ(outcome(), u"2 of 2 chapters are in a.wav"_s);
    EXPECT_EQ(shownIn(u"deliveryFiles"_s, 3), QStringList { u"2 of 2 chapters are in a.wav"_s });
    ASSERT_EQ(news.count(), 1);
    EXPECT_EQ(news.at(0).at(0).toString(), u"2 of 2 chapters are in a.wav"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return shownIn(u"chaptersNow"_s, 1).size() == 2; }));
    EXPECT_EQ(ZLMediaFile::read(m_folder.filePath(u"a.wav"_s)).value().chapters.size(), 2);
}

TEST_F(ZLDeliverySheetTest, WhatIsTypedAsTheShiftCountsWhenReturnIsPressedThere)
{
    choose({ makeFile(u"a.wav"_s) });
    auto* shift = part<QDoubleSpinBox>(u"shift"_s);
    shift->setFocus();
    shift->selectAll();
    QTest::keyClicks(shift, u"4.5"_s);
    press(Qt::Key_Return);
    waitForEnd();
    const auto chapters = ZLMediaFile::read(m_folder.filePath(u"a.wav"_s)).value().chapters;
    ASSERT_EQ(chapters.size(), 2);
    EXPECT_EQ(chapters.first().start, 5500);
}

TEST_F(ZLDeliverySheetTest, EachFileHasItsLineAndTheSelectedOneIsCompared)
{
    const QString other = m_folder.filePath(u"b.txt"_s);
    ASSERT_TRUE(ZLAtomicFile::write(other, "no audio"));
    choose({ makeFile(u"a.wav"_s), other });
    const QSignalSpy news(m_sheet, &ZLDeliverySheet::hasNews);
    button(u"writeChapters"_s)->click();
    waitForEnd();
    EXPECT_EQ(news.at(0).at(0).toString(), u"Chapters were written into 1 of 2 files."_s);
    const QString why = shownIn(u"deliveryFiles"_s, 3).value(1);
    EXPECT_TRUE(why.startsWith(u"this is no audio file"_s)) << qPrintable(why);
    auto* files = part<QTreeView>(u"deliveryFiles"_s);
    files->setFocus();
    press(Qt::Key_Down);
    EXPECT_TRUE(advice().startsWith(other)) << qPrintable(advice());
    EXPECT_FALSE(button(u"importItsChapters"_s)->isEnabled());
}

TEST_F(ZLDeliverySheetTest, ALongNameLeavesRoomForWhatBecameOfTheFile)
{
    choose({ makeFile(u"a.wav"_s) });
    const auto* files = part<QTreeView>(u"deliveryFiles"_s);
    const int narrow = files->columnWidth(0);
    EXPECT_EQ(files->viewport()->height() % files->visualRect(files->model()->index(0, 0)).height(), 0)
        << "no row is cut in two";
    choose({ makeFile(QString(100, u'm') + u".wav"_s) });
    EXPECT_GT(files->columnWidth(0), narrow);
    EXPECT_LT(files->visualRect(files->model()->index(0, 3)).left(), files->viewport()->width());
}

TEST_F(ZLDeliverySheetTest, TheKeyboardIsNotLostWhenAButtonGoesOutOfService)
{
    choose({ makeFile(u"a.wav"_s) });
    button(u"writeChapters"_s)->setFocus();
    press(Qt::Key_Return);
    EXPECT_TRUE(m_draft.isWriting());
    EXPECT_EQ(QApplication::focusWidget(), button(u"closeSheet"_s));
    EXPECT_EQ(button(u"closeSheet"_s)->text().remove(u'&'), u"Cancel"_s);
    press(Qt::Key_Escape);
    waitForEnd();
    EXPECT_EQ(button(u"closeSheet"_s)->text().remove(u'&'), u"Close"_s);
}

TEST_F(ZLDeliverySheetTest, EscapeClosesIt)
{
    const QSignalSpy closing(m_sheet, &ZLDeliverySheet::wantsToClose);
    press(Qt::Key_Escape);
    EXPECT_EQ(closing.count(), 1);
    button(u"closeSheet"_s)->click();
    EXPECT_EQ(closing.count(), 2);
}

TEST_F(ZLDeliverySheetTest, TheChaptersOfAFileComeIntoTheDocument)
{
    choose({ makeFile(u"a.wav"_s) });
    button(u"writeChapters"_s)->click();
    waitForEnd();
    EXPECT_TRUE(QTest::qWaitFor([&] { return button(u"importItsChapters"_s)->isEnabled(); }));
    m_document.deleteLastChapter();
    const QSignalSpy news(m_sheet, &ZLDeliverySheet::hasNews);
    button(u"importItsChapters"_s)->click();
    EXPECT_EQ(titles(), (QStringList { u"Eins"_s, u"Eins"_s, u"Zwei"_s }));
    EXPECT_EQ(news.at(0).at(0).toString(), u"Imported chapters: 2"_s);
    EXPECT_EQ(history().undoActionName(), u"Import Chapters"_s);
}

TEST_F(ZLDeliverySheetTest, EveryPartHasANameAndALetterOfItsOwn)
{
    const auto nameOf = [](QWidget* widget) {
        return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
    };
    EXPECT_EQ(nameOf(m_sheet), u"Write Chapters into Audio File"_s);
    EXPECT_EQ(nameOf(part<QDoubleSpinBox>(u"shift"_s)), u"Shift in seconds"_s);
    EXPECT_EQ(nameOf(part<QTreeView>(u"deliveryFiles"_s)), u"Audio files"_s);
    EXPECT_EQ(nameOf(part<QTreeView>(u"chaptersNow"_s)), u"In the file now: 0"_s);
    EXPECT_EQ(nameOf(part<QTreeView>(u"chaptersToCome"_s)), u"After writing: 0"_s);
    QSet<QChar> letters { u'w' };
    for (const QPushButton* one : m_sheet->findChildren<QPushButton*>()) {
        const QChar letter = one->text().at(one->text().indexOf(u'&') + 1).toLower();
        EXPECT_FALSE(letters.contains(letter)) << qPrintable(one->text());
        letters.insert(letter);
    }
}
