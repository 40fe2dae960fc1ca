#include "app/ui/ZLDesktopFixture.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QDropEvent>
#include <QLabel>
#include <QListWidget>
#include <QMimeData>
#include <QRadioButton>
#include <QTreeView>
#include <QUrl>

#include "document/ui/table/ZLChapterTableView.h"

using namespace Qt::StringLiterals;

class ZLImportDisplayTest : public ZLDesktopFixture {
protected:
    QString list(const QByteArray& bytes, const QString& name = u"list.txt"_s)
    {
        EXPECT_TRUE(ZLAtomicFile::write(filePath(name), bytes).isOk());
        return filePath(name);
    }
    void drop(const QStringList& paths)
    {
        QMimeData data;
        QList<QUrl> addresses;
        for (const QString& path : paths)
            addresses.append(QUrl::fromLocalFile(path));
        data.setUrls(addresses);
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&windowOf(m_document), &enter);
        QDropEvent event({ 5, 5 }, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&windowOf(m_document), &event);
    }
    template <typename Part>
    Part& part(const QString& name)
    {
        return *windowOf(m_document).findChild<Part*>(name);
    }
    bool isSheetShown()
    {
        const auto* sheet = windowOf(m_document).findChild<QWidget*>(u"importSheet"_s);
        return sheet && sheet->isVisible();
    }
    /// Files and texts are read beside the main thread.
    bool sheetComes()
    {
        return QTest::qWaitFor([this] { return isSheetShown(); }, readingDeadlineMilliseconds);
    }
    /// A preview is made there as well.
    bool rowsBecome(const QStringList& expected)
    {
        return QTest::qWaitFor([&] { return rows() == expected; }, readingDeadlineMilliseconds);
    }
    QStringList rows()
    {
        QStringList rows;
        const QAbstractItemModel& model = *part<QTreeView>(u"importRows"_s).model();
        for (int row = 0; row < model.rowCount(); ++row)
            rows.append(u"%1|%2|%3"_s.arg(model.index(row, 0).data().toString(), model.index(row, 1).data().toString(),
                model.index(row, 2).data().toString()));
        return rows;
    }
    QStringList remarks()
    {
        QStringList texts;
        const auto& list = part<QListWidget>(u"importRemarks"_s);
        for (int row = 0; row < list.count(); ++row)
            texts.append(list.item(row)->text());
        return texts;
    }
    void paste(const QString& text)
    {
        makeCurrent(m_document);
        windowOf(m_document).tableView().setFocus();
        windowOf(m_document).statusLine().hidePassingMessage();
        QApplication::clipboard()->setText(text);
        trigger(m_document, u"paste"_s);
        EXPECT_TRUE(QTest::qWaitFor(
            [this] { return isSheetShown() || !passingMessage(m_document).isEmpty(); }, readingDeadlineMilliseconds));
    }

    static constexpr int readingDeadlineMilliseconds = 30'000;

    ZLChapterDocument* m_document = newDocument();
};

TEST_F(ZLImportDisplayTest, AFileIsShownAndThenImportedByTheKeyboard)
{
    addChapter(m_document, u"Mine"_s);
    trigger(m_document, u"importChapters"_s);
    choose(dialogOf(m_document), list("1:00 News https://a.example/\nodd\n0:10 Welcome\n"));
    ASSERT_TRUE(sheetComes());
    EXPECT_EQ(rows(), (QStringList { u"00:00:10.000|Welcome|"_s, u"00:01:00.000|News|https://a.example/"_s }));
    EXPECT_EQ(remarks(), QStringList { u"Line 2: “odd” was not understood."_s });
    EXPECT_FALSE(part<QTreeView>(u"importRows"_s).isColumnHidden(2));
    EXPECT_EQ(part<QLabel>(u"importHeading"_s).text(), u"2 chapters from list.txt, read as Simple List"_s);
    EXPECT_EQ(titles(m_document), QStringList { u"Mine"_s }) << "nothing has come yet";

    QTest::keyClick(&part<QTreeView>(u"importRows"_s), Qt::Key_Return);
    EXPECT_EQ(titles(m_document), (QStringList { u"Mine"_s, u"Welcome"_s, u"News"_s }));
    EXPECT_FALSE(isSheetShown());
    EXPECT_EQ(passingMessage(m_document), u"2 chapters imported"_s);
    trigger(m_document, u"undo"_s);
    EXPECT_EQ(titles(m_document), QStringList { u"Mine"_s });
}

TEST_F(ZLImportDisplayTest, EscapeChangesNothing)
{
    paste(u"0:10 Welcome\n"_s);
    ASSERT_TRUE(isSheetShown());
    QTest::keyClick(&part<QTreeView>(u"importRows"_s), Qt::Key_Escape);
    EXPECT_FALSE(isSheetShown());
    EXPECT_EQ(titles(m_document), QStringList());
}

TEST_F(ZLImportDisplayTest, ThePreviewFollowsTheChoices)
{
    addChapter(m_document, u"Mine"_s);
    paste(u"0:10 Welcome\nMail bag\n"_s);
    part<QDoubleSpinBox>(u"importShift"_s).setValue(-15.5);
    EXPECT_TRUE(rowsBecome({ u"-00:00:05.500|Welcome|"_s }));
    EXPECT_TRUE(part<QTreeView>(u"importRows"_s).isColumnHidden(2)) << "no chapter has a link";
    EXPECT_EQ(remarks().size(), 1);
    part<QCheckBox>(u"importTemplates"_s).setChecked(true);
    EXPECT_TRUE(QTest::qWaitFor([this] { return remarks().isEmpty(); }, readingDeadlineMilliseconds));
    part<QRadioButton>(u"importReplace"_s).setChecked(true);
    part<QPushButton>(u"importNow"_s).click();
    EXPECT_EQ(titles(m_document), QStringList { u"Welcome"_s });
    EXPECT_FALSE(m_document->chapterManager().chapterAtIndex(0)->isEnabled());
    EXPECT_EQ(m_document->templateViewController().chapterManager().count(), 1);
}

TEST_F(ZLImportDisplayTest, WhatIsChosenRightBeforeTheImportCounts)
{
    paste(u"0:10 Welcome\n0:20 News\n"_s);
    part<QDoubleSpinBox>(u"importShift"_s).setValue(5.0);
    part<QPushButton>(u"importNow"_s).click();
    EXPECT_EQ(m_document->chapterManager().chapterAtIndex(0)->timeStamp(), 15.0);
    EXPECT_EQ(m_document->chapterManager().count(), 2);
}

TEST_F(ZLImportDisplayTest, OneShowOfAFeedIsChosen)
{
    paste(u"<rss xmlns:psc='http://podlove.org/simple-chapters'><channel>"
          "<item><title>One</title><psc:chapters><psc:chapter start='1' title='a'/></psc:chapters></item>"
          "<item><title>Two</title><psc:chapters><psc:chapter start='2' title='b'/></psc:chapters></item>"
          "</channel></rss>"_s);
    auto& items = part<QComboBox>(u"importItem"_s);
    EXPECT_TRUE(items.isVisible());
    EXPECT_EQ(items.itemText(1), u"Two"_s);
    items.setCurrentIndex(1);
    EXPECT_TRUE(rowsBecome({ u"00:00:02.000|b|"_s }));
    part<QPushButton>(u"importNow"_s).click();
    EXPECT_EQ(titles(m_document), QStringList { u"b"_s });

    paste(u"0:10 Welcome\n"_s);
    EXPECT_FALSE(items.isVisible());
}

TEST_F(ZLImportDisplayTest, ADroppedListIsImportedAndADocumentIsOpened)
{
    addChapter(m_document, u"Mine"_s);
    drop({ list("0:10 Welcome\n"), storedFile(u"other.zelta"_s) });
    EXPECT_TRUE(sheetComes());
    EXPECT_EQ(rows().size(), 1);
    waitUntilRead();
    EXPECT_EQ(m_controller.documents().size(), 2);
}

TEST_F(ZLImportDisplayTest, WhatIsNoListIsToldInTheBar)
{
    drop({ list("no times at all\n") });
    EXPECT_TRUE(QTest::qWaitFor([&] { return !barText(m_document).isEmpty(); }, readingDeadlineMilliseconds));
    EXPECT_FALSE(isSheetShown());
    EXPECT_TRUE(barText(m_document).contains(u"list.txt"_s)) << qPrintable(barText(m_document));
    drop({ list("0:10 Welcome\n") });
    EXPECT_TRUE(sheetComes());
    EXPECT_EQ(barText(m_document), QString());
}

TEST_F(ZLImportDisplayTest, TemplatesThatCameAreTold)
{
    paste(u"0:10 Welcome\nMail bag\nGuests\n"_s);
    part<QCheckBox>(u"importTemplates"_s).setChecked(true);
    part<QPushButton>(u"importNow"_s).click();
    EXPECT_EQ(passingMessage(m_document), u"1 chapter imported, 2 templates imported"_s);
}

TEST_F(ZLImportDisplayTest, OfTwoFilesTheLastOneIsShown)
{
    drop({ list("0:10 Welcome\n", u"first.txt"_s) });
    drop({ list("0:20 News\n", u"second.txt"_s) });
    ASSERT_TRUE(sheetComes());
    EXPECT_EQ(rows(), QStringList { u"00:00:20.000|News|"_s }) << "the file that was named last";
}

TEST_F(ZLImportDisplayTest, PastingATextWithoutTimesIsToldInTheStatusLine)
{
    paste(u"nothing\n"_s);
    EXPECT_FALSE(isSheetShown());
    EXPECT_FALSE(passingMessage(m_document).isEmpty());
    EXPECT_EQ(barText(m_document), QString());
}

TEST_F(ZLImportDisplayTest, TheClockRunsOnWhileTheSheetIsOpen)
{
    m_document->startRecordingWithTime(m_clock->now());
    paste(u"0:10 Welcome\n"_s);
    m_clock->advance(5);
    m_document->addNewBlankChapter();
    EXPECT_TRUE(isSheetShown());
    part<QPushButton>(u"importNow"_s).click();
    EXPECT_TRUE(m_document->isRecording());
    EXPECT_EQ(m_document->currentDuration(), 5.0);
    EXPECT_EQ(titles(m_document), (QStringList { u""_s, u"Welcome"_s }));
}
