#include "document/ZLChapterDocument.h"

#include "document/ZLChapterDocumentCommandsFixture.h"
#include "support/ZLChangeSpy.h"

#include <QSignalSpy>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;
using Settings = ZLSettingsManager;

class ZLChapterEditingTest : public ZLChapterDocumentCommandsTest { };

TEST_F(ZLChapterEditingTest, MovingBeforeTheStartDisablesAndOneUndoRestoresBoth)
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

TEST_F(ZLChapterEditingTest, MovingBackDoesNotEnableAgain)
{
    const auto chapter = addChapterAt(3.0);
    m_document.moveChaptersByMilliseconds(-5000.0F);
    m_document.moveChaptersByMilliseconds(5000.0F);
    EXPECT_EQ(chapter->timeStamp(), 3.0);
    EXPECT_FALSE(chapter->isEnabled());
}

TEST_F(ZLChapterEditingTest, AMoveLeavesDisabledChaptersAsTheyWereWhenItIsUndone)
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

TEST_F(ZLChapterEditingTest, AMoveWithoutDisablingIsNamedTheSameOnBothSides)
{
    addChapterAt(3.0);
    addChapterAt(4.0);
    m_document.moveChaptersByMilliseconds(250.0F);
    EXPECT_EQ(times(), QList<double>({ 3.25, 4.25 }));
    history().undo();
    EXPECT_EQ(times(), QList<double>({ 3.0, 4.0 }));
    expectRedoName(u"Move Chapters"_s);
}

TEST_F(ZLChapterEditingTest, AMoveIsComputedInSinglePrecision)
{
    addChapterAt(0.0);
    m_document.moveChaptersByMilliseconds(100.0F);
    EXPECT_EQ(times(), QList<double>({ double(100.0F / 1000.0F) }));
}

TEST_F(ZLChapterEditingTest, AMoveByNoNumberChangesNothing)
{
    addChapterAt(3.0);
    history().removeAllActions();
    m_document.moveChaptersByMilliseconds(std::numeric_limits<float>::infinity());
    m_document.moveChaptersByMilliseconds(std::nanf(""));
    EXPECT_EQ(times(), QList<double>({ 3.0 }));
    EXPECT_FALSE(history().canUndo());
}

TEST_F(ZLChapterEditingTest, AnUnchangedEnabledStateLeavesNoStep)
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

TEST_F(ZLChapterEditingTest, TitlesAndLinksAreChangedUndoneAndRedone)
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

TEST_F(ZLChapterEditingTest, AnUnchangedTitleTypedAnewIsAStepButTheVerySameTextIsNot)
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

TEST_F(ZLChapterEditingTest, AnAbsentTitleBecomesAnEmptyOneAndBack)
{
    const auto chapter = std::make_shared<ZLChapter>(QVariantMap {});
    m_document.addChapter(chapter);
    m_document.updateChapterToTitle(chapter, u""_s);
    EXPECT_FALSE(chapter->title().isNull());
    history().undo();
    EXPECT_TRUE(chapter->title().isNull());
}

TEST_F(ZLChapterEditingTest, AnEditedTimeMovesTheDateAlong)
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

TEST_F(ZLChapterEditingTest, AnEqualTimeLeavesNoStep)
{
    const auto chapter = addChapterAt(60.0);
    history().removeAllActions();
    m_document.updateChapterToTime(chapter, 60.0);
    EXPECT_FALSE(history().canUndo());
}

TEST_F(ZLChapterEditingTest, ATimeBeforeTheStartDisablesAndRenamesTheStep)
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

TEST_F(ZLChapterEditingTest, ADisabledChapterBeforeTheStartKeepsTheNameOfTheTimeChange)
{
    const auto chapter = addChapterAt(60.0);
    m_document.updateChapterToEnabledState(chapter, false);
    m_document.updateChapterToTime(chapter, -1.0);
    expectUndoName(u"Change Time"_s);
}

TEST_F(ZLChapterEditingTest, ATimeThatReordersTheListMovesOnlyItsOwnDate)
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

TEST_F(ZLChapterEditingTest, AChapterIsRemovedByThePointerThatLiesInTheList)
{
    addChapterAt(10.0, u"a"_s);
    addChapterAt(20.0, u"b"_s);
    m_document.removeChapter(chapters().chapters().first());
    EXPECT_EQ(titles(), QStringList({ u"b"_s }));
    history().undo();
    EXPECT_EQ(titles(), QStringList({ u"a"_s, u"b"_s }));
}

TEST_F(ZLChapterEditingTest, TimesBeyondAllDatesLeaveTheDateAlone)
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

TEST_F(ZLChapterEditingTest, ANewCommandMakesWhatWasUndoneUnreachable)
{
    const auto chapter = addChapterAt(1.0);
    m_document.updateChapterToTitle(chapter, u"x"_s);
    history().undo();
    addChapterAt(2.0);
    EXPECT_FALSE(history().canRedo());
}

TEST_F(ZLChapterEditingTest, EveryCommandIsOneStepAndAllOfThemGoBackToTheBeginning)
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

TEST_F(ZLChapterEditingTest, EveryCommandTellsTheControllersAndMarksTheDocument)
{
    const ZLChangeSpy informs(m_document, ZLDocumentChange::concerningControllers);
    const ZLChangeSpy contents(m_document, ZLDocumentChange::Contents);
    addChapterAt(1.0);
    EXPECT_GE(informs.size(), 1);
    EXPECT_EQ(contents.size(), 1);
    EXPECT_TRUE(m_document.isDocumentEdited());
    const qsizetype before = informs.size();
    addTemplate(u"News"_s);
    EXPECT_EQ(informs.size(), before + 1);
}

TEST_F(ZLChapterEditingTest, TheAbsoluteTimeCommandInvertsTheSetting)
{
    m_document.showAbsoluteTimePressed();
    EXPECT_TRUE(Settings::showAbsoluteTime());
    m_document.showAbsoluteTimePressed();
    EXPECT_FALSE(Settings::showAbsoluteTime());
}
