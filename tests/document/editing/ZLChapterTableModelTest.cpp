#include "document/editing/ZLChapterTableModel.h"

#include "support/ZLChangeSpy.h"
#include "support/ZLDocumentFixture.h"
#include "support/ZLTimeZone.h"

#include <QSignalSpy>

#include <limits>

using namespace Qt::StringLiterals;
using Settings = ZLSettingsManager;
using Model = ZLChapterTableModel;

class ZLChapterTableModelTest : public ZLDocumentFixture {
protected:
    [[nodiscard]] QModelIndex cell(int row, int column) const { return m_model.index(row, column); }
    [[nodiscard]] QString text(int row, int column) const { return cell(row, column).data().toString(); }
    bool enter(int row, int column, const QString& text) { return m_model.setData(cell(row, column), text); }

    ZLChapterTableModel& m_model = m_document.tableModel();
};

TEST_F(ZLChapterTableModelTest, ColumnsAreKnownByTheirIdentifiers)
{
    QStringList identifiers;
    for (int column = 0; column < m_model.columnCount(); ++column)
        identifiers.append(Model::columnIdentifier(column));
    EXPECT_EQ(identifiers, QStringList({ u"number"_s, u"enabled"_s, u"time"_s, u"duration"_s, u"title"_s, u"link"_s }));
    EXPECT_TRUE(Model::columnIdentifier(Model::ColumnCount).isEmpty());
}

TEST_F(ZLChapterTableModelTest, EveryColumnShowsItsPartOfTheChapter)
{
    addChapterAt(10.0, u"Intro"_s)->setLink(u"example.org"_s);
    const auto second = addChapterAt(75.9);
    second->setEnabled(false);
    EXPECT_EQ(m_model.rowCount(), 2);
    EXPECT_EQ(text(0, Model::NumberColumn), u"1"_s);
    EXPECT_EQ(text(1, Model::NumberColumn), u"2"_s);
    EXPECT_EQ(text(0, Model::TimeColumn), u"00:00:10.000"_s);
    EXPECT_EQ(text(0, Model::DurationColumn), u"00:01:05"_s);
    EXPECT_EQ(text(1, Model::DurationColumn), u""_s);
    EXPECT_EQ(text(0, Model::TitleColumn), u"Intro"_s);
    EXPECT_EQ(text(0, Model::LinkColumn), u"example.org"_s);
    EXPECT_EQ(cell(0, Model::EnabledColumn).data(Qt::CheckStateRole).toInt(), Qt::Checked);
    EXPECT_EQ(cell(1, Model::EnabledColumn).data(Qt::CheckStateRole).toInt(), Qt::Unchecked);
    EXPECT_TRUE(text(0, Model::EnabledColumn).isEmpty());
    EXPECT_TRUE(cell(0, Model::ColumnCount).data().isNull());
    EXPECT_FALSE(cell(1, Model::TitleColumn).data(Model::ChapterEnabledRole).toBool());
}

TEST_F(ZLChapterTableModelTest, ALoneChapterLastsUntilNoOther)
{
    addChapterAt(10.0);
    EXPECT_EQ(text(0, Model::DurationColumn), u""_s);
}

TEST_F(ZLChapterTableModelTest, EveryColumnHasAHeader)
{
    EXPECT_EQ(m_model.headerData(Model::TitleColumn, Qt::Horizontal, Qt::DisplayRole).toString(), u"Title"_s);
    for (int column = 0; column < Model::ColumnCount; ++column)
        EXPECT_FALSE(m_model.headerData(column, Qt::Horizontal, Qt::AccessibleTextRole).toString().isEmpty()) << column;
    EXPECT_TRUE(m_model.headerData(0, Qt::Vertical, Qt::DisplayRole).isNull());
}

TEST_F(ZLChapterTableModelTest, OnlyTimeTitleAndLinkAreTyped)
{
    addChapterAt(10.0);
    for (int column = 0; column < Model::ColumnCount; ++column) {
        const bool isTyped = column == Model::TimeColumn || column == Model::TitleColumn || column == Model::LinkColumn;
        EXPECT_EQ(cell(0, column).flags().testFlag(Qt::ItemIsEditable), isTyped) << column;
        EXPECT_EQ(cell(0, column).flags().testFlag(Qt::ItemIsUserCheckable), column == Model::EnabledColumn) << column;
    }
}

TEST_F(ZLChapterTableModelTest, AChapterBeforeTheStartCannotBeEnabledButEditedOtherwise)
{
    const auto early = addChapterAt(-1.0);
    EXPECT_EQ(cell(0, Model::EnabledColumn).data(Qt::ToolTipRole).toString(), u"This chapter is exported."_s);
    early->setEnabled(false);
    EXPECT_FALSE(cell(0, Model::EnabledColumn).flags().testFlag(Qt::ItemIsUserCheckable));
    EXPECT_TRUE(cell(0, Model::TimeColumn).flags().testFlag(Qt::ItemIsEditable));
    EXPECT_TRUE(cell(0, Model::TitleColumn).flags().testFlag(Qt::ItemIsEditable));
    EXPECT_FALSE(cell(0, Model::TitleColumn).data(Qt::ToolTipRole).toString().isEmpty());
    addChapterAt(0.0);
    EXPECT_TRUE(cell(1, Model::EnabledColumn).flags().testFlag(Qt::ItemIsUserCheckable));
}

TEST_F(ZLChapterTableModelTest, ALinkThatLooksLikeMarkupIsShownAsItStands)
{
    addChapterAt(10.0)->setLink(u"<img src=x>&amp;"_s);
    const QString toolTip = cell(0, Model::LinkColumn).data(Qt::ToolTipRole).toString();
    EXPECT_TRUE(toolTip.contains("&lt;img src=x&gt;&amp;amp;"_L1)) << qPrintable(toolTip);
    EXPECT_FALSE(toolTip.contains("<img"_L1));
}

TEST_F(ZLChapterTableModelTest, EditsBecomeUndoableCommands)
{
    const auto chapter = addChapterAt(10.0);
    EXPECT_TRUE(enter(0, Model::TitleColumn, u"News"_s));
    EXPECT_EQ(history().undoActionName(), u"Change Title"_s);
    EXPECT_TRUE(enter(0, Model::LinkColumn, u"example.org"_s));
    EXPECT_EQ(history().undoActionName(), u"Change Link"_s);
    EXPECT_TRUE(enter(0, Model::TimeColumn, u"01:02:03.004"_s));
    EXPECT_EQ(history().undoActionName(), u"Change Time"_s);
    EXPECT_TRUE(m_model.setData(cell(0, Model::EnabledColumn), Qt::Unchecked, Qt::CheckStateRole));
    EXPECT_EQ(history().undoActionName(), u"Change Enabled"_s);
    EXPECT_EQ(chapter->title(), u"News"_s);
    EXPECT_EQ(chapter->link(), u"example.org"_s);
    EXPECT_NEAR(chapter->timeStamp(), 3723.004, 1e-9);
    EXPECT_FALSE(chapter->isEnabled());
    EXPECT_EQ(text(0, Model::TimeColumn), u"01:02:03.004"_s);
}

TEST_F(ZLChapterTableModelTest, TheEnabledCellTakesCheckStatesAndPlainBooleans)
{
    const auto chapter = addChapterAt(10.0);
    EXPECT_TRUE(m_model.setData(cell(0, Model::EnabledColumn), false, Qt::CheckStateRole));
    EXPECT_FALSE(chapter->isEnabled());
    EXPECT_TRUE(m_model.setData(cell(0, Model::EnabledColumn), true, Qt::CheckStateRole));
    EXPECT_TRUE(chapter->isEnabled());
    EXPECT_TRUE(m_model.setData(cell(0, Model::EnabledColumn), Qt::Unchecked, Qt::CheckStateRole));
    EXPECT_TRUE(m_model.setData(cell(0, Model::EnabledColumn), Qt::Checked, Qt::CheckStateRole));
    EXPECT_TRUE(chapter->isEnabled());
}

TEST_F(ZLChapterTableModelTest, ATypedNegativeTimeDisablesTheChapter)
{
    const auto chapter = addChapterAt(10.0);
    EXPECT_TRUE(enter(0, Model::TimeColumn, u"-00:00:02.500"_s));
    EXPECT_EQ(chapter->timeStamp(), -2.5);
    EXPECT_FALSE(chapter->isEnabled());
}

TEST_F(ZLChapterTableModelTest, ATimeOfAnotherShapeIsRefusedAndChangesNothing)
{
    const auto chapter = addChapterAt(10.0);
    history().removeAllActions();
    const QSignalSpy alerts(&m_document.typing(), &ZLTypingRequests::invalidTimestampEntered);
    EXPECT_FALSE(enter(0, Model::TimeColumn, u"1:2"_s));
    EXPECT_EQ(alerts.size(), 1);
    EXPECT_EQ(chapter->timeStamp(), 10.0);
    EXPECT_FALSE(history().canUndo());
}

TEST_F(ZLChapterTableModelTest, TheControllersAreToldAfterEveryEditAndAfterARefusedOne)
{
    addChapterAt(10.0);
    const ZLChangeSpy informs(m_document, ZLDocumentChange::concerningControllers);
    enter(0, Model::TitleColumn, u"x"_s);
    EXPECT_EQ(informs.size(), 1);
    enter(0, Model::TimeColumn, u"1:2"_s);
    EXPECT_EQ(informs.size(), 2);
    EXPECT_FALSE(enter(0, Model::NumberColumn, u"7"_s));
    EXPECT_EQ(informs.size(), 3);
    m_model.setData(cell(0, Model::EnabledColumn), true, Qt::CheckStateRole);
    EXPECT_EQ(informs.size(), 4);
}

TEST_F(ZLChapterTableModelTest, AnEditThatReordersTheRowsMovesTheDateOfItsOwnChapter)
{
    const auto first = addChapterAt(10.0);
    const auto second = addChapterAt(20.0);
    first->setRealDate(m_wallClock);
    second->setRealDate(m_wallClock);
    EXPECT_TRUE(enter(1, Model::TimeColumn, u"-00:00:05.000"_s));
    EXPECT_EQ(chapters().chapterAtIndex(0), second);
    EXPECT_EQ(second->realDate(), m_wallClock.addSecs(-25));
    EXPECT_EQ(first->realDate(), m_wallClock);
}

TEST_F(ZLChapterTableModelTest, AbsoluteTimesAreShownInTheLocalTimeZone)
{
    const ZLTimeZone zone("Europe/Berlin");
    addChapterAt(10.0)->setRealDate(m_wallClock);
    Settings::setShowAbsoluteTime(true);
    EXPECT_EQ(text(0, Model::TimeColumn), u"16:03:07.250 2024-05-01"_s);
    Settings::setShowAbsoluteTime(false);
    EXPECT_EQ(text(0, Model::TimeColumn), u"00:00:10.000"_s);
}

TEST_F(ZLChapterTableModelTest, AnUnknownDateIsShownAsTheDistantPast)
{
    const ZLTimeZone zone("UTC");
    addChapterAt(10.0);
    Settings::setShowAbsoluteTime(true);
    EXPECT_EQ(text(0, Model::TimeColumn), u"00:00:00.000 001-01-01"_s);
}

TEST_F(ZLChapterTableModelTest, ATypedAbsoluteTimeMovesTheChapterByTheSameSpan)
{
    const ZLTimeZone zone("Europe/Berlin");
    const auto chapter = addChapterAt(10.0);
    chapter->setRealDate(m_wallClock);
    Settings::setShowAbsoluteTime(true);
    EXPECT_TRUE(enter(0, Model::TimeColumn, u"16:03:09.750 2024-05-01"_s));
    EXPECT_EQ(chapter->timeStamp(), 12.5);
    EXPECT_EQ(chapter->realDate(), m_wallClock.addMSecs(2500));
    EXPECT_EQ(text(0, Model::TimeColumn), u"16:03:09.750 2024-05-01"_s);
}

TEST_F(ZLChapterTableModelTest, AnAbsoluteTimeThatIsNoneCountsAsTheReferenceDate)
{
    const ZLTimeZone zone("Europe/Berlin");
    const auto chapter = addChapterAt(10.0);
    chapter->setRealDate(m_wallClock);
    Settings::setShowAbsoluteTime(true);
    const QSignalSpy alerts(&m_document.typing(), &ZLTypingRequests::invalidTimestampEntered);
    EXPECT_TRUE(enter(0, Model::TimeColumn, u"tomorrow"_s));
    const QDateTime reference(QDate(2001, 1, 1), QTime(0, 0), QTimeZone::utc());
    EXPECT_EQ(chapter->realDate(), reference);
    EXPECT_EQ(chapter->timeStamp(), 10.0 - double(reference.msecsTo(m_wallClock)) / 1000.0);
    EXPECT_FALSE(chapter->isEnabled());
    EXPECT_EQ(alerts.size(), 0);
}

TEST_F(ZLChapterTableModelTest, AnAbsoluteTimeThatIsLeftAsItIsChangesNothing)
{
    Settings::setShowAbsoluteTime(true);
    const auto chapter = addChapterAt(10.0);
    // The second of the two times that the clocks show half past two, and a date of the era before ours.
    const QDateTime secondPass(QDate(2024, 10, 27), QTime(1, 30), QTimeZone::utc());
    for (const auto& [name, date] :
        { std::pair("Europe/Berlin", secondPass), std::pair("America/New_York", ZLChapter::distantPast()) }) {
        const ZLTimeZone zone(name);
        chapter->setRealDate(date);
        history().removeAllActions();
        EXPECT_TRUE(enter(0, Model::TimeColumn, text(0, Model::TimeColumn)));
        EXPECT_FALSE(history().canUndo()) << name;
        EXPECT_EQ(chapter->timeStamp(), 10.0) << name;
    }
}

TEST_F(ZLChapterTableModelTest, AChangeOfTheAbsoluteTimeSettingRefreshesEveryCellAndTheAddButton)
{
    addChapterAt(1.0);
    addChapterAt(2.0);
    const QSignalSpy changes(&m_model, &QAbstractItemModel::dataChanged);
    const ZLChangeSpy faces(m_document, ZLDocumentChange::AddButton | ZLDocumentChange::Templates);
    Settings::setShowAbsoluteTime(true);
    ASSERT_EQ(changes.size(), 1);
    EXPECT_EQ(changes.first().at(0).toModelIndex(), cell(0, 0));
    EXPECT_EQ(changes.first().at(1).toModelIndex(), cell(1, Model::ColumnCount - 1));
    EXPECT_EQ(faces.size(), 1);
}

TEST_F(ZLChapterTableModelTest, AnEditedCellRefreshesTheCellsOfItsRowAlone)
{
    for (const double seconds : { 10.0, 20.0, 30.0 })
        addChapterAt(seconds);
    QSignalSpy changes(&m_model, &QAbstractItemModel::dataChanged);
    const auto takeRefreshed = [&changes] {
        QModelIndexList cells;
        for (const QVariantList& change : std::as_const(changes)) {
            EXPECT_EQ(change.at(0), change.at(1));
            cells.append(change.at(0).toModelIndex());
        }
        changes.clear();
        return cells;
    };
    QModelIndexList row;
    for (int column = 0; column < Model::ColumnCount; ++column)
        row.append(cell(1, column));
    enter(1, Model::TitleColumn, u"News"_s);
    EXPECT_EQ(takeRefreshed(), row);
    history().undo();
    EXPECT_EQ(takeRefreshed(), row);
    enter(1, Model::TimeColumn, u"00:00:25.000"_s);
    EXPECT_EQ(takeRefreshed(), row + QModelIndexList { cell(0, Model::DurationColumn) });
}

TEST_F(ZLChapterTableModelTest, TimesAtTheEdgeOfNumbersAreShown)
{
    using Limits = std::numeric_limits<double>;
    for (const double seconds :
        { 1e300, -1e300, Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN(), Limits::max(), 1.9e16 })
        addChapterAt(seconds);
    for (int row = 0; row < m_model.rowCount(); ++row) {
        EXPECT_FALSE(text(row, Model::TimeColumn).isEmpty()) << row;
        EXPECT_EQ(text(row, Model::DurationColumn).isEmpty(), row + 1 == m_model.rowCount()) << row;
    }
    EXPECT_FALSE(m_document.lastChapterAgeText().isEmpty());
}
