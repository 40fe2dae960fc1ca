#include "document/ZLChapterDocument.h"

#include "document/ZLChapterDocumentCommandsFixture.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;

class ZLChapterEditingRemovingTest : public ZLChapterDocumentCommandsTest { };

TEST_F(ZLChapterEditingRemovingTest, DeletingInTheMiddleSelectsTheRowAbove)
{
    for (const double seconds : { 1.0, 2.0, 3.0 })
        addChapterAt(seconds);
    select(1);
    m_document.deleteButtonPressed();
    EXPECT_EQ(times(), QList<double>({ 1.0, 3.0 }));
    EXPECT_EQ(m_document.selectedRow(), 0);
    expectUndoName(u"Delete Chapter"_s);
    history().undo();
    EXPECT_EQ(times(), QList<double>({ 1.0, 2.0, 3.0 }));
    EXPECT_EQ(m_document.selectedRow(), 1);
    expectRedoName(u"Create Chapter"_s);
}

TEST_F(ZLChapterEditingRemovingTest, DeletingTheFirstRowKeepsTheFirstRowSelected)
{
    for (const double seconds : { 1.0, 2.0, 3.0 })
        addChapterAt(seconds);
    select(0);
    m_document.deleteButtonPressed();
    EXPECT_EQ(times(), QList<double>({ 2.0, 3.0 }));
    EXPECT_EQ(m_document.selectedRow(), 0);
}

TEST_F(ZLChapterEditingRemovingTest, DeletingAboveTheSelectionSelectsTheRowAboveTheGap)
{
    for (const double seconds : { 1.0, 2.0, 3.0, 4.0 })
        addChapterAt(seconds);
    select(3);
    m_document.removeChapter(chapters().chapterAtIndex(2));
    EXPECT_EQ(m_document.selectedRow(), 1);
}

TEST_F(ZLChapterEditingRemovingTest, DeletingBelowTheSelectionSelectsTheRowThatCameUp)
{
    for (const double seconds : { 1.0, 2.0, 3.0, 4.0 })
        addChapterAt(seconds);
    select(0);
    m_document.removeChapter(chapters().chapterAtIndex(1));
    EXPECT_EQ(m_document.selectedRow(), 1);
    EXPECT_EQ(chapters().chapterAtIndex(1)->timeStamp(), 3.0);
}

TEST_F(ZLChapterEditingRemovingTest, DeletingTheLastRowKeepsASelectionThatLiesAboveIt)
{
    for (const double seconds : { 1.0, 2.0, 3.0, 4.0 })
        addChapterAt(seconds);
    select(1);
    m_document.deleteLastChapter();
    EXPECT_EQ(m_document.selectedRow(), 1);
    EXPECT_EQ(times(), QList<double>({ 1.0, 2.0, 3.0 }));
}

TEST_F(ZLChapterEditingRemovingTest, WhileTheSelectedRowGoesAnotherOneIsSelected)
{
    for (const double seconds : { 1.0, 2.0, 3.0 })
        addChapterAt(seconds);
    QList<int> rows;
    QObject::connect(
        &m_document, &ZLChapterDocument::changed, &m_document, [&] { rows.append(m_document.selectedRow()); });
    select(0);
    m_document.deleteButtonPressed();
    m_document.deleteButtonPressed();
    EXPECT_FALSE(rows.isEmpty());
    EXPECT_FALSE(rows.contains(-1));
    m_document.deleteButtonPressed();
    EXPECT_EQ(rows.last(), -1) << "none is left";
}

TEST_F(ZLChapterEditingRemovingTest, DeletingTheOnlyChapterLeavesNoSelection)
{
    addChapterAt(1.0);
    m_document.deleteButtonPressed();
    EXPECT_EQ(m_document.selectedRow(), -1);
    EXPECT_FALSE(m_document.canDeleteChapter());
}

TEST_F(ZLChapterEditingRemovingTest, TheLastChapterIsTheLatestAndNotTheOneAddedLast)
{
    addChapterAt(50.0);
    addChapterAt(10.0);
    m_document.deleteLastChapter();
    EXPECT_EQ(times(), QList<double>({ 10.0 }));
}

TEST_F(ZLChapterEditingRemovingTest, CommandsWithoutAChapterDoNothingAndLeaveNoStep)
{
    const QSignalSpy edits(&m_document.typing(), &ZLTypingRequests::wantsEditing);
    m_document.deleteButtonPressed();
    m_document.deleteLastChapter();
    m_document.selectLastChapter();
    m_document.selectNextChapter();
    m_document.editCurrentTitle();
    m_document.editCurrentLink();
    EXPECT_FALSE(history().canUndo());
    EXPECT_EQ(edits.size(), 0);
    EXPECT_EQ(m_document.selectedRow(), -1);
}

TEST_F(ZLChapterEditingRemovingTest, RemovingAChapterThatIsNotThereKeepsTheSelection)
{
    addChapterAt(1.0);
    addChapterAt(2.0);
    m_document.removeChapter(ZLTestChapters::chapterAt(1.0));
    EXPECT_EQ(chapters().count(), 2);
    EXPECT_EQ(m_document.selectedRow(), 1);
}

TEST_F(ZLChapterEditingRemovingTest, TheSelectionMovesOneRowAndStopsAtTheEnds)
{
    for (const double seconds : { 1.0, 2.0, 3.0 })
        addChapterAt(seconds);
    m_document.selectNextChapter();
    EXPECT_EQ(m_document.selectedRow(), 2);
    m_document.selectLastChapter();
    EXPECT_EQ(m_document.selectedRow(), 1);
    m_document.selectLastChapter();
    m_document.selectLastChapter();
    EXPECT_EQ(m_document.selectedRow(), 0);
    m_document.selectNextChapter();
    EXPECT_EQ(m_document.selectedRow(), 1);
}

TEST_F(ZLChapterEditingRemovingTest, NextWithoutASelectionIsTheFirstRow)
{
    addChapterAt(1.0);
    addChapterAt(2.0);
    m_document.selectionModel().clearSelection();
    EXPECT_EQ(m_document.selectedRow(), -1);
    m_document.selectLastChapter();
    EXPECT_EQ(m_document.selectedRow(), -1);
    m_document.selectNextChapter();
    EXPECT_EQ(m_document.selectedRow(), 0);
}

TEST_F(ZLChapterEditingRemovingTest, TitleAndLinkOfTheSelectedRowAreOpened)
{
    addChapterAt(1.0);
    addChapterAt(2.0);
    select(0);
    QStringList opened;
    QObject::connect(
        &m_document.typing(), &ZLTypingRequests::wantsEditing, &m_document, [&opened](const QModelIndex& index) {
            opened.append(QString::number(index.row()) + ZLChapterTableModel::columnIdentifier(index.column()));
        });
    m_document.editCurrentTitle();
    m_document.editCurrentLink();
    EXPECT_EQ(opened, QStringList({ u"0title"_s, u"0link"_s }));
}
