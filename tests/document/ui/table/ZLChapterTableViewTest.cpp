#include "document/ui/ZLWindowFixture.h"
#include "document/ui/table/ZLChapterColumnLayout.h"

#include <QAccessible>
#include <QDockWidget>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QPaintEvent>
#include <QSignalSpy>
#include <QStyledItemDelegate>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

/// Notes which part of a widget is painted.
class PaintedRegion : public QObject {
public:
    explicit PaintedRegion(QWidget& widget) { widget.installEventFilter(this); }
    [[nodiscard]] const QRegion& region() const { return m_region; }

private:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            m_region += static_cast<QPaintEvent*>(event)->region();
        return QObject::eventFilter(watched, event);
    }

    QRegion m_region;
};

}

class ZLChapterTableViewTest : public ZLWindowFixture { };

TEST_F(ZLChapterTableViewTest, ReturnWritesWhatWasTyped)
{
    addChapterAt(10.0, u"Welcome"_s);
    editTo(titleCell(0), u"Hello"_s);
    EXPECT_EQ(titles(), QStringList { u"Hello"_s });
    EXPECT_EQ(history().undoActionName(), u"Change Title"_s);
    EXPECT_TRUE(table().hasFocus());
}

TEST_F(ZLChapterTableViewTest, ALongListOpensWithoutAHeightForEachRow)
{
    addChapterAt(1.0);
    addChapterAt(2.0);
    ZLChapterTableView view;
    const QSignalSpy heights(view.verticalHeader(), &QHeaderView::sectionResized);
    view.showDocument(m_document);
    EXPECT_EQ(view.rowHeight(0), table().rowHeight(0));
    EXPECT_EQ(heights.count(), 0);
}

TEST_F(ZLChapterTableViewTest, AnEditedTitleRepaintsItsRowAlone)
{
    for (int row = 0; row < 5; ++row)
        addChapterAt(double(row));
    QCoreApplication::processEvents();
    const PaintedRegion painted(*table().viewport());
    m_document.updateChapterToTitle(chapters().chapterAtIndex(2), u"News"_s);
    QCoreApplication::processEvents();
    const QRect row(0, table().rowViewportPosition(2), table().viewport()->width(), table().rowHeight(2));
    EXPECT_FALSE(painted.region().isEmpty());
    EXPECT_TRUE(row.contains(painted.region().boundingRect())) << painted.region().boundingRect().height();
}

TEST_F(ZLChapterTableViewTest, ATitleOfAnyLengthIsEditedWhole)
{
    const QString title(100'000, u'x');
    const ZLChapterPointer chapter = addChapterAt(1.0, title);
    table().beginEditing(titleCell(0));
    press(Qt::Key_End);
    type(u"!"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(chapter->title(), title + u'!');
}

TEST_F(ZLChapterTableViewTest, EscapeKeepsTheOldText)
{
    addChapterAt(10.0, u"Welcome"_s);
    table().beginEditing(titleCell(0));
    type(u"Hello"_s);
    press(Qt::Key_Escape);
    EXPECT_EQ(titles(), QStringList { u"Welcome"_s });
    EXPECT_TRUE(table().hasFocus());
    EXPECT_FALSE(table().isEditing());
}

TEST_F(ZLChapterTableViewTest, AnEditorThatNobodyTypedInLeavesNoUndoStep)
{
    addChapterAt(10.0, u"Welcome"_s);
    table().beginEditing(titleCell(0));
    ASSERT_TRUE(field());
    EXPECT_EQ(field()->selectedText(), u"Welcome"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(history().undoActionName(), u"Create Chapter"_s);
}

TEST_F(ZLChapterTableViewTest, AnUnchangedTextThatWasTypedAnewIsAStep)
{
    addChapterAt(10.0, u"Same"_s);
    editTo(titleCell(0), u"Same"_s);
    EXPECT_EQ(history().undoActionName(), u"Change Title"_s);
}

TEST_F(ZLChapterTableViewTest, TabAndShiftTabGoThroughTitlesAndLinks)
{
    addChapterAt(10.0, u"One"_s);
    addChapterAt(20.0, u"Two"_s);
    table().beginEditing(titleCell(0));
    type(u"First"_s);
    press(Qt::Key_Tab);
    ASSERT_TRUE(field());
    EXPECT_EQ(field()->objectName(), u"link"_s);
    type(u"example.org"_s);
    press(Qt::Key_Tab);
    ASSERT_TRUE(field());
    EXPECT_EQ(field()->text(), u"Two"_s);
    EXPECT_EQ(m_document.selectedRow(), 1);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    ASSERT_TRUE(field());
    EXPECT_EQ(field()->text(), u"example.org"_s);
    EXPECT_EQ(titles(), (QStringList { u"First"_s, u"Two"_s }));
}

TEST_F(ZLChapterTableViewTest, HomeAndEndGoToTheFirstAndTheLastChapter)
{
    for (const double seconds : { 10.0, 20.0, 30.0 })
        addChapterAt(seconds);
    table().finishEditing();
    press(Qt::Key_Home);
    EXPECT_EQ(m_document.selectedRow(), 0);
    press(Qt::Key_End);
    EXPECT_EQ(m_document.selectedRow(), 2);
    select(1);
    press(Qt::Key_Home, Qt::KeypadModifier);
    EXPECT_EQ(m_document.selectedRow(), 0);
}

TEST_F(ZLChapterTableViewTest, TabBehindTheLastCellReturnsToTheTable)
{
    addChapterAt(10.0, u"One"_s);
    table().beginEditing(cell(0, ZLChapterTableModel::LinkColumn));
    press(Qt::Key_Tab);
    EXPECT_FALSE(table().isEditing());
    EXPECT_TRUE(table().hasFocus());
}

TEST_F(ZLChapterTableViewTest, TabFollowsAChapterThatMovedWithItsTime)
{
    addChapterAt(10.0, u"One"_s);
    addChapterAt(20.0, u"Two"_s);
    table().beginEditing(timeCell(0));
    type(u"00:00:30.000"_s);
    press(Qt::Key_Tab);
    ASSERT_TRUE(field());
    EXPECT_EQ(field()->text(), u"One"_s);
    EXPECT_EQ(titles(), (QStringList { u"Two"_s, u"One"_s }));
}

TEST_F(ZLChapterTableViewTest, ReturnOnTheTableOpensTheTitle)
{
    addChapterAt(10.0, u"One"_s);
    table().setFocus();
    press(Qt::Key_Return);
    ASSERT_TRUE(field());
    EXPECT_EQ(field()->text(), u"One"_s);
}

TEST_F(ZLChapterTableViewTest, TextFromAnInputMethodIsWritten)
{
    addChapterAt(10.0);
    table().beginEditing(titleCell(0));
    QInputMethodEvent composed;
    composed.setCommitString(u"Grüße"_s);
    QCoreApplication::sendEvent(field(), &composed);
    press(Qt::Key_Return);
    EXPECT_EQ(titles(), QStringList { u"Grüße"_s });
}

TEST_F(ZLChapterTableViewTest, ANewChapterOpensItsTitleWithoutLosingWhatIsBeingTyped)
{
    start();
    addChapterAt(0.0, u"Welcome"_s);
    table().beginEditing(titleCell(0));
    type(u"Hello"_s);
    advance(60.0);
    m_document.addChapterButtonPressed();
    ASSERT_TRUE(field());
    EXPECT_EQ(field()->text(), QString());
    type(u"News"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(titles(), (QStringList { u"Hello"_s, u"News"_s }));
}

TEST_F(ZLChapterTableViewTest, TypedTextThatANewChapterCommitsIsAStepOfItsOwn)
{
    start();
    addChapterAt(0.0, u"Welcome"_s);
    table().beginEditing(titleCell(0));
    type(u"Hello"_s);
    m_document.addChapterButtonPressed();
    EXPECT_EQ(history().undoActionName(), u"Create Chapter"_s);
    history().undo();
    EXPECT_EQ(titles(), QStringList { u"Hello"_s });
    EXPECT_EQ(history().undoActionName(), u"Change Title"_s);
}

TEST_F(ZLChapterTableViewTest, ATemplateThatIsBeingTypedComesWithItsNewTitle)
{
    addTemplate(u"Nws"_s);
    start();
    auto* list = m_window->findChild<QDockWidget*>()->findChild<QTableView*>();
    ASSERT_TRUE(list);
    list->setFocus();
    list->edit(list->model()->index(0, 0));
    ASSERT_TRUE(field());
    field()->selectAll();
    type(u"News"_s);
    m_document.addChapterButtonPressed();
    EXPECT_EQ(titles(), QStringList { u"News"_s });
    ASSERT_TRUE(field());
    EXPECT_EQ(field()->text(), u"News"_s);
}

TEST_F(ZLChapterTableViewTest, ARemoteChangeDoesNotReplaceWhatIsBeingTyped)
{
    const auto first = addChapterAt(0.0, u"One"_s);
    addChapterAt(10.0, u"Two"_s);
    table().beginEditing(titleCell(1));
    type(u"Typing"_s);
    m_document.updateChapterToTitle(first, u"Remote"_s);
    ASSERT_TRUE(field());
    EXPECT_EQ(field()->text(), u"Typing"_s);
}

TEST_F(ZLChapterTableViewTest, DeletingTheChapterBeingEditedReturnsToTheTable)
{
    addChapterAt(0.0, u"One"_s);
    const auto second = addChapterAt(10.0, u"Two"_s);
    table().beginEditing(titleCell(1));
    type(u"Typing"_s);
    m_document.deleteLastChapter();
    EXPECT_EQ(titles(), QStringList { u"One"_s });
    EXPECT_EQ(second->title(), u"Typing"_s);
    EXPECT_FALSE(table().isEditing());
    EXPECT_TRUE(table().hasFocus());
}

TEST_F(ZLChapterTableViewTest, ATimeTypedIntoAChapterThatIsRemovedIsWrittenFirst)
{
    const auto first = addChapterAt(0.0, u"One"_s);
    addChapterAt(10.0, u"Two"_s);
    table().beginEditing(timeCell(0));
    type(u"00:00:20.000"_s);
    m_document.removeChapter(first);
    EXPECT_EQ(titles(), QStringList { u"Two"_s });
    EXPECT_DOUBLE_EQ(first->timeStamp(), 20.0);
    EXPECT_TRUE(table().hasFocus());
    history().undo();
    EXPECT_EQ(titles(), (QStringList { u"Two"_s, u"One"_s }));
    EXPECT_EQ(history().undoActionName(), u"Change Time"_s);
}

TEST_F(ZLChapterTableViewTest, OtherContentsDropTheFieldAndReturnToTheTable)
{
    addChapterAt(0.0, u"One"_s);
    const QByteArray saved = m_document.dataOfType();
    table().beginEditing(titleCell(0));
    type(u"Typing"_s);
    ASSERT_TRUE(m_document.readFromData(saved));
    EXPECT_EQ(titles(), QStringList { u"One"_s });
    EXPECT_FALSE(table().isEditing());
    EXPECT_TRUE(table().hasFocus());
}

TEST_F(ZLChapterTableViewTest, ANewRowScrollsIntoView)
{
    for (int i = 0; i < 200; ++i)
        addChapterAt(double(i));
    table().finishEditing();
    table().scrollToTop();
    m_isApplicationActive = false;
    addChapterAt(500.0, u"Newest"_s);
    EXPECT_TRUE(table().viewport()->rect().contains(table().visualRect(titleCell(200)).center()));
}

TEST_F(ZLChapterTableViewTest, TheFontSizeSettingGivesRowsFourPointsHigher)
{
    ZLSettingsManager::setFontSize(13.0F);
    EXPECT_EQ(table().font().pointSizeF(), 13.0);
    EXPECT_EQ(table().verticalHeader()->defaultSectionSize(), std::lround(17.0 * table().logicalDpiY() / 72.0));
    addChapterAt(0.0);
    EXPECT_EQ(table().rowHeight(0), table().verticalHeader()->defaultSectionSize());
    EXPECT_GE(table().rowHeight(0), table().fontMetrics().height());
}

TEST_F(ZLChapterTableViewTest, ADamagedFontSizeStillGivesReadableRows)
{
    for (const float size : { 0.0F, -3.0F, std::numeric_limits<float>::quiet_NaN(), 1.0e9F }) {
        ZLSettingsManager::setFontSize(size);
        EXPECT_GE(table().verticalHeader()->defaultSectionSize(), 8) << size;
        EXPECT_LE(table().verticalHeader()->defaultSectionSize(), 400) << size;
    }
}

TEST_F(ZLChapterTableViewTest, TitleAndLinkShareTheRestTwoToOne)
{
    const int title = table().columnWidth(ZLChapterTableModel::TitleColumn);
    const int link = table().columnWidth(ZLChapterTableModel::LinkColumn);
    EXPECT_NEAR(double(title) / double(link), 2.0, 0.02);
    EXPECT_EQ(table().horizontalHeader()->length(), table().viewport()->width());
}

TEST_F(ZLChapterTableViewTest, DraggingTheTitlesBorderChangesTheShare)
{
    const int shared =
        table().columnWidth(ZLChapterTableModel::TitleColumn) + table().columnWidth(ZLChapterTableModel::LinkColumn);
    table().horizontalHeader()->resizeSection(ZLChapterTableModel::TitleColumn, shared / 2);
    EXPECT_NEAR(table().columnLayout()->titleShare(), 0.5, 0.01);
    EXPECT_EQ(table().horizontalHeader()->length(), table().viewport()->width());
}

TEST_F(ZLChapterTableViewTest, EveryTextOfATimeFitsItsColumn)
{
    addChapterAt(3723.004);
    table().finishEditing();
    for (const bool absolute : { false, true }) {
        ZLSettingsManager::setShowAbsoluteTime(absolute);
        const QString shown = text(0, ZLChapterTableModel::TimeColumn);
        EXPECT_GE(table().columnWidth(ZLChapterTableModel::TimeColumn), table().fontMetrics().horizontalAdvance(shown));
    }
}

TEST_F(ZLChapterTableViewTest, ACtrlClickOpensALink)
{
    const auto chapter = addChapterAt(0.0, u"One"_s);
    table().finishEditing();
    m_document.updateChapterToLink(chapter, u"example.org/show"_s);
    // Nothing may really be opened.
    table().disconnect(SIGNAL(linkActivated(QUrl)));
    const QSignalSpy activated(&table(), &ZLChapterTableView::linkActivated);
    const QPoint center = table().visualRect(cell(0, ZLChapterTableModel::LinkColumn)).center();
    QTest::mouseClick(table().viewport(), Qt::LeftButton, Qt::NoModifier, center);
    EXPECT_EQ(activated.count(), 0);
    QTest::mouseClick(table().viewport(), Qt::LeftButton, Qt::ControlModifier, center);
    ASSERT_EQ(activated.count(), 1);
    EXPECT_EQ(activated.first().first().toUrl(), QUrl(u"https://example.org/show"_s));
}

TEST_F(ZLChapterTableViewTest, OnlyWebAndMailAddressesAreOpened)
{
    EXPECT_EQ(ZLChapterTableView::addressOfLink(u" http://example.org/a?b=c "_s), QUrl(u"http://example.org/a?b=c"_s));
    EXPECT_EQ(ZLChapterTableView::addressOfLink(u"mailto:desk@example.org"_s), QUrl(u"mailto:desk@example.org"_s));
    for (const QString& text : { u""_s, u"file:///etc/passwd"_s, u"/etc/passwd"_s, u"ssh://host"_s, u"two words"_s })
        EXPECT_TRUE(ZLChapterTableView::addressOfLink(text).isEmpty()) << text.toStdString();
}

TEST_F(ZLChapterTableViewTest, NothingTheUserDoesEmptiesTheSelection)
{
    addChapterAt(0.0, u"One"_s);
    addChapterAt(10.0, u"Two"_s);
    table().finishEditing();
    const QPoint row = table().visualRect(titleCell(1)).center();
    QTest::mouseClick(table().viewport(), Qt::LeftButton, Qt::ControlModifier, row);
    EXPECT_EQ(m_document.selectedRow(), 1);
    QTest::mouseClick(table().viewport(), Qt::LeftButton, Qt::ControlModifier, row);
    EXPECT_EQ(m_document.selectedRow(), 1);
    QTest::mouseClick(
        table().viewport(), Qt::LeftButton, Qt::NoModifier, table().viewport()->rect().bottomLeft() - QPoint(-5, 5));
    EXPECT_EQ(m_document.selectedRow(), 1);
}

TEST_F(ZLChapterTableViewTest, ACheckBoxBeforeTheStartCannotBeTicked)
{
    const auto early = addChapterAt(-2.0);
    early->setEnabled(false);
    const auto later = addChapterAt(5.0);
    table().finishEditing();
    for (int row = 0; row < 2; ++row) {
        table().setCurrentIndex(cell(row, ZLChapterTableModel::EnabledColumn));
        press(Qt::Key_Space);
    }
    EXPECT_FALSE(early->isEnabled());
    EXPECT_FALSE(later->isEnabled());
    EXPECT_EQ(history().undoActionName(), u"Change Enabled"_s);
}

TEST_F(ZLChapterTableViewTest, AnEmptyTableSaysWhatToDo)
{
    const auto description = [this] {
        return QAccessible::queryAccessibleInterface(&table())->text(QAccessible::Description);
    };
    EXPECT_EQ(description(), u"Press Start, then Add at every new topic."_s);
    const QImage empty = table().viewport()->grab().toImage();
    addChapterAt(0.0);
    EXPECT_EQ(description(), QString());
    m_document.deleteLastChapter();
    EXPECT_EQ(description(), u"Press Start, then Add at every new topic."_s);
    EXPECT_EQ(table().viewport()->grab().toImage(), empty);
}

TEST_F(ZLChapterTableViewTest, AChangeInALongListPaintsOnlyWhatIsSeen)
{
    /// Counts the cells that are painted.
    class CountingDelegate final : public QStyledItemDelegate {
    public:
        mutable int count = 0;

    protected:
        void paint(QPainter*, const QStyleOptionViewItem&, const QModelIndex&) const override { ++count; }
    };
    // No field is opened, which would paint as well.
    m_isApplicationActive = false;
    ZLChapterSequence many;
    constexpr int rows = 5'000;
    for (int i = 0; i < rows; ++i)
        many.append(ZLTestChapters::chapterAt(double(i)));
    chapters().setChapters(many);
    start();
    advance(1.0e6);
    QCoreApplication::processEvents();
    CountingDelegate delegate;
    QAbstractItemDelegate* own = table().itemDelegate();
    table().setItemDelegate(&delegate);
    QCoreApplication::processEvents();
    delegate.count = 0;
    m_document.addNewBlankChapter();
    QCoreApplication::processEvents();
    table().setItemDelegate(own);
    const int rowsSeen = table().viewport()->height() / table().rowHeight(0) + 2;
    EXPECT_GT(delegate.count, 0);
    // Scrolling to the new row may paint the visible rows more than once.
    EXPECT_LE(delegate.count, 4 * rowsSeen * ZLChapterTableModel::ColumnCount);
    EXPECT_EQ(chapters().count(), rows + 1);
}
