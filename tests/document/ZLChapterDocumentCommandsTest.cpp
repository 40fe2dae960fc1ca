#include "document/ZLChapterDocument.h"

#include "support/ZLDocumentFixture.h"

#include <QSignalSpy>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;
using Settings = ZLSettingsManager;

class ZLChapterDocumentCommandsTest : public ZLDocumentFixture {
protected:
    void startAndAdvance(double seconds)
    {
        m_document.recordButtonPressed();
        advance(seconds);
    }

    void expectUndoName(const QString& name) { EXPECT_EQ(history().undoActionName(), name); }
    void expectRedoName(const QString& name) { EXPECT_EQ(history().redoActionName(), name); }

    /// Undoes until nothing is left; returns how many steps there were.
    int undoEverything()
    {
        int steps = 0;
        for (; history().canUndo() && steps < 1000; ++steps)
            history().undo();
        return steps;
    }
};

TEST_F(ZLChapterDocumentCommandsTest, ANewChapterCarriesTheClocksReadingAndTheDate)
{
    startAndAdvance(12.5);
    m_document.addChapterButtonPressed();
    ASSERT_EQ(chapters().count(), 1);
    EXPECT_EQ(chapters().lastChapter()->timeStamp(), 12.5);
    EXPECT_EQ(chapters().lastChapter()->realDate(), m_wallClock);
    EXPECT_TRUE(chapters().lastChapter()->isEnabled());
    expectUndoName(u"Create Chapter"_s);
}

TEST_F(ZLChapterDocumentCommandsTest, WithoutARunningClockNoChapterIsAdded)
{
    addTemplate(u"News"_s);
    m_document.addChapterButtonPressed();
    EXPECT_EQ(chapters().count(), 0);
    EXPECT_EQ(templates().count(), 1);
    EXPECT_FALSE(history().canUndo());
    record(5.0);
    m_document.addChapterButtonPressed();
    EXPECT_EQ(chapters().count(), 0);
}

TEST_F(ZLChapterDocumentCommandsTest, CreatingAChapterIsUndoneAndRedone)
{
    startAndAdvance(1.0);
    m_document.addChapterButtonPressed();
    const auto chapter = chapters().lastChapter();
    history().undo();
    EXPECT_EQ(chapters().count(), 0);
    expectRedoName(u"Delete Chapter"_s);
    advance(10.0);
    history().redo();
    EXPECT_EQ(chapters().allChapters(), ZLChapterSequence({ chapter }));
    EXPECT_EQ(chapter->timeStamp(), 1.0);
    expectUndoName(u"Create Chapter"_s);
}

TEST_F(ZLChapterDocumentCommandsTest, TheFirstTemplateIsTakenFirst)
{
    addTemplate(u"Intro"_s);
    addTemplate(u"News"_s);
    startAndAdvance(7.0);
    m_document.addChapterButtonPressed();
    EXPECT_EQ(titles(), QStringList({ u"Intro"_s }));
    EXPECT_EQ(times(), QList<double>({ 7.0 }));
    EXPECT_EQ(chapters().lastChapter()->realDate(), m_wallClock);
    EXPECT_EQ(ZLTestChapters::titles(templates().allChapters()), QStringList({ u"News"_s }));
    expectUndoName(u"Create Chapter"_s);
}

TEST_F(ZLChapterDocumentCommandsTest, WithOptionHeldTheTemplatesAreLeftAlone)
{
    addTemplate(u"Intro"_s);
    startAndAdvance(7.0);
    m_isOptionKeyHeld = true;
    m_document.addChapterButtonPressed();
    EXPECT_EQ(titles(), QStringList({ u""_s }));
    EXPECT_EQ(templates().count(), 1);
}

TEST_F(ZLChapterDocumentCommandsTest, ATemplateWithATimeOfItsOwnKeepsTimeAndDate)
{
    const auto prepared = addTemplate(u"Planned"_s, 30.0);
    startAndAdvance(600.0);
    m_document.addChapterButtonPressed();
    EXPECT_EQ(prepared->timeStamp(), 30.0);
    EXPECT_EQ(prepared->realDate(), ZLChapter::distantPast());
    EXPECT_EQ(chapters().lastChapter(), prepared);
}

TEST_F(ZLChapterDocumentCommandsTest, UndoPutsTheTemplateBackInFront)
{
    const auto intro = addTemplate(u"Intro"_s);
    addTemplate(u"News"_s);
    startAndAdvance(7.0);
    m_document.addChapterButtonPressed();
    history().undo();
    EXPECT_EQ(chapters().count(), 0);
    EXPECT_EQ(templates().chapterAtIndex(0), intro);
    EXPECT_EQ(templates().count(), 2);
    expectRedoName(u"Remove Chapter"_s);
    history().redo();
    EXPECT_EQ(titles(), QStringList({ u"Intro"_s }));
    EXPECT_EQ(templates().count(), 1);
    expectUndoName(u"Create Chapter"_s);
}

TEST_F(ZLChapterDocumentCommandsTest, ATemplateThatIsAddedAgainKeepsTheTimeOfItsFirstAdding)
{
    const auto intro = addTemplate(u"Intro"_s);
    startAndAdvance(7.0);
    m_document.addChapterButtonPressed();
    const QDateTime firstDate = intro->realDate();
    history().undo();
    advance(100.0);
    history().redo();
    EXPECT_EQ(intro->timeStamp(), 7.0);
    history().undo();
    advance(100.0);
    m_document.addChapterButtonPressed();
    EXPECT_EQ(chapters().lastChapter(), intro);
    EXPECT_EQ(intro->timeStamp(), 7.0);
    EXPECT_EQ(intro->realDate(), firstDate);
}

TEST_F(ZLChapterDocumentCommandsTest, ANewChapterIsSelectedAndOpenedOnlyInTheActiveProgram)
{
    const QSignalSpy edits(&m_document, &ZLChapterDocument::wantsEditing);
    addChapterAt(50.0);
    addChapterAt(10.0);
    EXPECT_EQ(m_document.selectedRow(), 0);
    EXPECT_EQ(edits.size(), 0);
    m_isApplicationActive = true;
    addChapterAt(30.0);
    EXPECT_EQ(m_document.selectedRow(), 1);
    ASSERT_EQ(edits.size(), 1);
    const auto index = edits.first().first().toModelIndex();
    EXPECT_EQ(index.row(), 1);
    EXPECT_EQ(ZLChapterTableModel::columnIdentifier(index.column()), u"title"_s);
}

TEST_F(ZLChapterDocumentCommandsTest, ANewChapterIsNotifiedToAUserWhoIsElsewhere)
{
    Settings::setShowQuickEdit(true);
    addChapterAt(500.0);
    startAndAdvance(65.5);
    m_document.addChapterButtonPressed();
    const auto last = chapters().lastChapter();
    EXPECT_EQ(m_notificationCenter->delivered(),
        QList<ZLUserNotification>({ { .title = u"New Chapter Added"_s,
            .subtitle = u"00:08:20.000"_s,
            .informativeText = u"Press Reply to quickly set a title"_s,
            .hasActionButton = true,
            .hasReplyButton = true,
            .responsePlaceholder = u"Chapter title"_s,
            .userInfo = { { u"ChapterUUID"_s, last->uuid() } } } }));
}

TEST_F(ZLChapterDocumentCommandsTest, NothingIsNotifiedWithoutTheSettingInTheActiveProgramOrForATemplate)
{
    startAndAdvance(1.0);
    m_document.addChapterButtonPressed();
    Settings::setShowQuickEdit(true);
    m_isApplicationActive = true;
    m_document.addChapterButtonPressed();
    m_isApplicationActive = false;
    addTemplate(u"News"_s);
    m_document.addChapterButtonPressed();
    EXPECT_EQ(chapters().count(), 3);
    EXPECT_TRUE(m_notificationCenter->delivered().isEmpty());
    history().undo();
    history().redo();
    EXPECT_TRUE(m_notificationCenter->delivered().isEmpty());
}

TEST_F(ZLChapterDocumentCommandsTest, DeletingInTheMiddleSelectsTheRowAbove)
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

TEST_F(ZLChapterDocumentCommandsTest, DeletingTheFirstRowKeepsTheFirstRowSelected)
{
    for (const double seconds : { 1.0, 2.0, 3.0 })
        addChapterAt(seconds);
    select(0);
    m_document.deleteButtonPressed();
    EXPECT_EQ(times(), QList<double>({ 2.0, 3.0 }));
    EXPECT_EQ(m_document.selectedRow(), 0);
}

TEST_F(ZLChapterDocumentCommandsTest, DeletingAboveTheSelectionSelectsTheRowAboveTheGap)
{
    for (const double seconds : { 1.0, 2.0, 3.0, 4.0 })
        addChapterAt(seconds);
    select(3);
    m_document.removeChapter(chapters().chapterAtIndex(2));
    EXPECT_EQ(m_document.selectedRow(), 1);
}

TEST_F(ZLChapterDocumentCommandsTest, DeletingBelowTheSelectionSelectsTheRowThatCameUp)
{
    for (const double seconds : { 1.0, 2.0, 3.0, 4.0 })
        addChapterAt(seconds);
    select(0);
    m_document.removeChapter(chapters().chapterAtIndex(1));
    EXPECT_EQ(m_document.selectedRow(), 1);
    EXPECT_EQ(chapters().chapterAtIndex(1)->timeStamp(), 3.0);
}

TEST_F(ZLChapterDocumentCommandsTest, DeletingTheLastRowKeepsASelectionThatLiesAboveIt)
{
    for (const double seconds : { 1.0, 2.0, 3.0, 4.0 })
        addChapterAt(seconds);
    select(1);
    m_document.deleteLastChapter();
    EXPECT_EQ(m_document.selectedRow(), 1);
    EXPECT_EQ(times(), QList<double>({ 1.0, 2.0, 3.0 }));
}

TEST_F(ZLChapterDocumentCommandsTest, DeletingTheOnlyChapterLeavesNoSelection)
{
    addChapterAt(1.0);
    m_document.deleteButtonPressed();
    EXPECT_EQ(m_document.selectedRow(), -1);
    EXPECT_FALSE(m_document.canDeleteChapter());
}

TEST_F(ZLChapterDocumentCommandsTest, TheLastChapterIsTheLatestAndNotTheOneAddedLast)
{
    addChapterAt(50.0);
    addChapterAt(10.0);
    m_document.deleteLastChapter();
    EXPECT_EQ(times(), QList<double>({ 10.0 }));
}

TEST_F(ZLChapterDocumentCommandsTest, CommandsWithoutAChapterDoNothingAndLeaveNoStep)
{
    const QSignalSpy edits(&m_document, &ZLChapterDocument::wantsEditing);
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

TEST_F(ZLChapterDocumentCommandsTest, RemovingAChapterThatIsNotThereKeepsTheSelection)
{
    addChapterAt(1.0);
    addChapterAt(2.0);
    m_document.removeChapter(ZLTestChapters::chapterAt(1.0));
    EXPECT_EQ(chapters().count(), 2);
    EXPECT_EQ(m_document.selectedRow(), 1);
}

TEST_F(ZLChapterDocumentCommandsTest, TheSelectionMovesOneRowAndStopsAtTheEnds)
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

TEST_F(ZLChapterDocumentCommandsTest, NextWithoutASelectionIsTheFirstRow)
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

TEST_F(ZLChapterDocumentCommandsTest, TitleAndLinkOfTheSelectedRowAreOpened)
{
    addChapterAt(1.0);
    addChapterAt(2.0);
    select(0);
    QStringList opened;
    QObject::connect(&m_document, &ZLChapterDocument::wantsEditing, &m_document, [&opened](const QModelIndex& index) {
        opened.append(QString::number(index.row()) + ZLChapterTableModel::columnIdentifier(index.column()));
    });
    m_document.editCurrentTitle();
    m_document.editCurrentLink();
    EXPECT_EQ(opened, QStringList({ u"0title"_s, u"0link"_s }));
}

TEST_F(ZLChapterDocumentCommandsTest, MovingBeforeTheStartDisablesAndOneUndoRestoresBoth)
{
    const auto chapter = addChapterAt(3.0);
    chapter->setRealDate(m_wallClock);
    m_document.moveChaptersByMilliseconds(-5000.0F);
    EXPECT_EQ(chapter->timeStamp(), -2.0);
    EXPECT_FALSE(chapter->isEnabled());
    EXPECT_EQ(chapter->realDate(), m_wallClock);
    expectUndoName(u"Move Chapters"_s);
    history().undo();
    EXPECT_EQ(chapter->timeStamp(), 3.0);
    EXPECT_TRUE(chapter->isEnabled());
    expectRedoName(u"Change Enabled"_s);
    history().redo();
    EXPECT_EQ(chapter->timeStamp(), -2.0);
    EXPECT_FALSE(chapter->isEnabled());
    expectUndoName(u"Move Chapters"_s);
}

TEST_F(ZLChapterDocumentCommandsTest, MovingBackDoesNotEnableAgain)
{
    const auto chapter = addChapterAt(3.0);
    m_document.moveChaptersByMilliseconds(-5000.0F);
    m_document.moveChaptersByMilliseconds(5000.0F);
    EXPECT_EQ(chapter->timeStamp(), 3.0);
    EXPECT_FALSE(chapter->isEnabled());
}

TEST_F(ZLChapterDocumentCommandsTest, AMoveLeavesDisabledChaptersAsTheyWereWhenItIsUndone)
{
    const auto disabled = addChapterAt(1.0);
    const auto enabled = addChapterAt(2.0);
    const auto later = addChapterAt(100.0);
    m_document.updateChapterToEnabledState(disabled, false);
    m_document.moveChaptersByMilliseconds(-5000.0F);
    EXPECT_FALSE(enabled->isEnabled());
    EXPECT_TRUE(later->isEnabled());
    history().undo();
    EXPECT_FALSE(disabled->isEnabled());
    EXPECT_TRUE(enabled->isEnabled());
    expectRedoName(u"Change Enabled"_s);
}

TEST_F(ZLChapterDocumentCommandsTest, AMoveWithoutDisablingIsNamedTheSameOnBothSides)
{
    addChapterAt(3.0);
    addChapterAt(4.0);
    m_document.moveChaptersByMilliseconds(250.0F);
    EXPECT_EQ(times(), QList<double>({ 3.25, 4.25 }));
    history().undo();
    EXPECT_EQ(times(), QList<double>({ 3.0, 4.0 }));
    expectRedoName(u"Move Chapters"_s);
}

TEST_F(ZLChapterDocumentCommandsTest, AMoveIsComputedInSinglePrecision)
{
    addChapterAt(0.0);
    m_document.moveChaptersByMilliseconds(100.0F);
    EXPECT_EQ(times(), QList<double>({ double(100.0F / 1000.0F) }));
}

TEST_F(ZLChapterDocumentCommandsTest, AMoveByNoNumberChangesNothing)
{
    addChapterAt(3.0);
    history().removeAllActions();
    m_document.moveChaptersByMilliseconds(std::numeric_limits<float>::infinity());
    m_document.moveChaptersByMilliseconds(std::nanf(""));
    EXPECT_EQ(times(), QList<double>({ 3.0 }));
    EXPECT_FALSE(history().canUndo());
}

TEST_F(ZLChapterDocumentCommandsTest, AnUnchangedEnabledStateLeavesNoStep)
{
    const auto chapter = addChapterAt(1.0);
    history().removeAllActions();
    m_document.updateChapterToEnabledState(chapter, true);
    EXPECT_FALSE(history().canUndo());
    m_document.updateChapterToEnabledState(chapter, false);
    EXPECT_FALSE(chapter->isEnabled());
    expectUndoName(u"Change Enabled"_s);
    history().undo();
    EXPECT_TRUE(chapter->isEnabled());
    expectRedoName(u"Change Enabled"_s);
}

TEST_F(ZLChapterDocumentCommandsTest, TitlesAndLinksAreChangedUndoneAndRedone)
{
    const auto chapter = addChapterAt(1.0, u"Old"_s);
    m_document.updateChapterToTitle(chapter, u"New"_s);
    expectUndoName(u"Change Title"_s);
    m_document.updateChapterToLink(chapter, u"example.org"_s);
    expectUndoName(u"Change Link"_s);
    history().undo();
    EXPECT_EQ(chapter->link(), u""_s);
    expectRedoName(u"Change Link"_s);
    history().undo();
    EXPECT_EQ(chapter->title(), u"Old"_s);
    expectRedoName(u"Change Title"_s);
    history().redo();
    history().redo();
    EXPECT_EQ(chapter->title(), u"New"_s);
    EXPECT_EQ(chapter->link(), u"example.org"_s);
}

TEST_F(ZLChapterDocumentCommandsTest, AnUnchangedTitleTypedAnewIsAStepButTheVerySameTextIsNot)
{
    const QString typed = QString::number(2024);
    const auto chapter = addChapterAt(1.0, typed);
    chapter->setLink(u"literal"_s);
    history().removeAllActions();
    m_document.updateChapterToTitle(chapter, chapter->title());
    m_document.updateChapterToLink(chapter, chapter->link());
    EXPECT_FALSE(history().canUndo());
    m_document.updateChapterToTitle(chapter, QString::number(2024));
    EXPECT_TRUE(history().canUndo());
}

TEST_F(ZLChapterDocumentCommandsTest, AnAbsentTitleBecomesAnEmptyOneAndBack)
{
    const auto chapter = std::make_shared<ZLChapter>(QVariantMap {});
    m_document.addChapter(chapter);
    m_document.updateChapterToTitle(chapter, u""_s);
    EXPECT_FALSE(chapter->title().isNull());
    history().undo();
    EXPECT_TRUE(chapter->title().isNull());
}

TEST_F(ZLChapterDocumentCommandsTest, AnEditedTimeMovesTheDateAlong)
{
    const auto chapter = addChapterAt(60.0);
    chapter->setRealDate(m_wallClock);
    m_document.updateChapterToTime(chapter, 50.0);
    EXPECT_EQ(chapter->timeStamp(), 50.0);
    EXPECT_EQ(chapter->realDate(), m_wallClock.addSecs(-10));
    expectUndoName(u"Change Time"_s);
    history().undo();
    EXPECT_EQ(chapter->timeStamp(), 60.0);
    EXPECT_EQ(chapter->realDate(), m_wallClock);
    expectRedoName(u"Change Time"_s);
}

TEST_F(ZLChapterDocumentCommandsTest, AnEqualTimeLeavesNoStep)
{
    const auto chapter = addChapterAt(60.0);
    history().removeAllActions();
    m_document.updateChapterToTime(chapter, 60.0);
    EXPECT_FALSE(history().canUndo());
}

TEST_F(ZLChapterDocumentCommandsTest, ATimeBeforeTheStartDisablesAndRenamesTheStep)
{
    const auto chapter = addChapterAt(60.0);
    history().removeAllActions();
    m_document.updateChapterToTime(chapter, -2.5);
    EXPECT_FALSE(chapter->isEnabled());
    expectUndoName(u"Change Enabled"_s);
    for (int round = 0; round < 3; ++round) {
        history().undo();
        EXPECT_TRUE(chapter->isEnabled());
        EXPECT_EQ(chapter->timeStamp(), 60.0);
        EXPECT_FALSE(history().canUndo());
        expectRedoName(u"Change Time"_s);
        history().redo();
        EXPECT_FALSE(chapter->isEnabled());
        EXPECT_EQ(chapter->timeStamp(), -2.5);
        EXPECT_FALSE(history().canRedo());
    }
}

TEST_F(ZLChapterDocumentCommandsTest, ADisabledChapterBeforeTheStartKeepsTheNameOfTheTimeChange)
{
    const auto chapter = addChapterAt(60.0);
    m_document.updateChapterToEnabledState(chapter, false);
    m_document.updateChapterToTime(chapter, -1.0);
    expectUndoName(u"Change Time"_s);
}

TEST_F(ZLChapterDocumentCommandsTest, ATimeThatReordersTheListMovesOnlyItsOwnDate)
{
    const auto first = addChapterAt(10.0);
    const auto second = addChapterAt(20.0);
    first->setRealDate(m_wallClock);
    second->setRealDate(m_wallClock);
    // The pointer lies in the list that the command reorders.
    m_document.updateChapterToTime(chapters().chapters().at(1), -5.0);
    EXPECT_EQ(chapters().allChapters(), ZLChapterSequence({ second, first }));
    EXPECT_EQ(second->realDate(), m_wallClock.addSecs(-25));
    EXPECT_EQ(first->realDate(), m_wallClock);
    EXPECT_TRUE(first->isEnabled());
}

TEST_F(ZLChapterDocumentCommandsTest, AChapterIsRemovedByThePointerThatLiesInTheList)
{
    addChapterAt(10.0, u"a"_s);
    addChapterAt(20.0, u"b"_s);
    m_document.removeChapter(chapters().chapters().first());
    EXPECT_EQ(titles(), QStringList({ u"b"_s }));
    history().undo();
    EXPECT_EQ(titles(), QStringList({ u"a"_s, u"b"_s }));
}

TEST_F(ZLChapterDocumentCommandsTest, TimesBeyondAllDatesLeaveTheDateAlone)
{
    const auto chapter = addChapterAt(60.0);
    chapter->setRealDate(m_wallClock);
    for (const double seconds : { 1e300, std::numeric_limits<double>::infinity(), std::nan("") }) {
        m_document.updateChapterToTime(chapter, seconds);
        EXPECT_EQ(chapter->realDate(), m_wallClock) << seconds;
        history().undo();
        EXPECT_EQ(chapter->timeStamp(), 60.0);
    }
}

TEST_F(ZLChapterDocumentCommandsTest, ANewCommandMakesWhatWasUndoneUnreachable)
{
    const auto chapter = addChapterAt(1.0);
    m_document.updateChapterToTitle(chapter, u"x"_s);
    history().undo();
    addChapterAt(2.0);
    EXPECT_FALSE(history().canRedo());
}

TEST_F(ZLChapterDocumentCommandsTest, EveryCommandIsOneStepAndAllOfThemGoBackToTheBeginning)
{
    startAndAdvance(5.0);
    m_document.addChapterButtonPressed();
    addTemplate(u"News"_s);
    advance(5.0);
    m_document.addChapterButtonPressed();
    const auto news = chapters().lastChapter();
    m_document.updateChapterToTitle(news, u"More news"_s);
    m_document.updateChapterToTime(news, -1.0);
    m_document.moveChaptersByMilliseconds(-60000.0F);
    m_document.deleteLastChapter();
    m_document.recordButtonPressed();
    const QByteArray atTheEnd = m_document.dataOfType();
    EXPECT_EQ(undoEverything(), 8);
    EXPECT_EQ(chapters().count(), 0);
    EXPECT_EQ(templates().count(), 1);
    EXPECT_FALSE(m_document.isRecording());
    for (int step = 0; step < 8; ++step)
        history().redo();
    EXPECT_FALSE(history().canRedo());
    EXPECT_EQ(m_document.dataOfType(), atTheEnd);
}

TEST_F(ZLChapterDocumentCommandsTest, EveryCommandTellsTheControllersAndMarksTheDocument)
{
    const QSignalSpy informs(&m_document, &ZLChapterDocument::controllersShouldBeInformed);
    const QSignalSpy contents(&m_document, &ZLChapterDocument::contentsDidChange);
    addChapterAt(1.0);
    EXPECT_GE(informs.size(), 1);
    EXPECT_EQ(contents.size(), 1);
    EXPECT_TRUE(m_document.isDocumentEdited());
    const qsizetype before = informs.size();
    addTemplate(u"News"_s);
    EXPECT_EQ(informs.size(), before + 1);
}

TEST_F(ZLChapterDocumentCommandsTest, TheAbsoluteTimeCommandInvertsTheSetting)
{
    m_document.showAbsoluteTimePressed();
    EXPECT_TRUE(Settings::showAbsoluteTime());
    m_document.showAbsoluteTimePressed();
    EXPECT_FALSE(Settings::showAbsoluteTime());
}
