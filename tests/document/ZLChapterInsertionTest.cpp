#include "document/ZLChapterInsertion.h"

#include "document/ZLChapterDocumentCommandsFixture.h"

using namespace Qt::StringLiterals;

class ZLChapterInsertionTest : public ZLChapterDocumentCommandsTest {
protected:
    /// A chapter with a known date.
    ZLChapterPointer addDatedChapterAt(double seconds, const QDateTime& date)
    {
        const auto chapter = ZLTestChapters::chapterAt(seconds, u""_s);
        chapter->setRealDate(date);
        m_document.addChapter(chapter);
        return chapter;
    }

    [[nodiscard]] QDateTime dateAt(double seconds)
    {
        return ZLChapterInsertion::blankChapterAt(seconds, chapters().allChapters())->realDate();
    }
};

TEST_F(ZLChapterInsertionTest, ProposesTheMiddleOfTheSelectedChapterAndTheClockBehindTheLast)
{
    EXPECT_EQ(ZLChapterInsertion::proposedTime(m_document), 0.0);
    record(100.0);
    EXPECT_EQ(ZLChapterInsertion::proposedTime(m_document), 100.0) << "there is no chapter";
    addChapterAt(10.0);
    addChapterAt(30.0);
    select(0);
    EXPECT_EQ(ZLChapterInsertion::proposedTime(m_document), 20.0);
    select(1);
    EXPECT_EQ(ZLChapterInsertion::proposedTime(m_document), 100.0);
    startAndAdvance(5.0);
    EXPECT_EQ(ZLChapterInsertion::proposedTime(m_document), 105.0);
}

TEST_F(ZLChapterInsertionTest, IsOneStepWhetherTheClockStandsOrRuns)
{
    addChapterAt(10.0);
    ZLChapterInsertion::insertBlankChapterAt(m_document, 5.0);
    expectUndoName(u"Create Chapter"_s);
    EXPECT_EQ(times(), (QList<double> { 5.0, 10.0 }));
    EXPECT_EQ(m_document.selectedRow(), 0);
    startAndAdvance(60.0);
    addTemplate(u"News"_s);
    ZLChapterInsertion::insertBlankChapterAt(m_document, 20.0);
    EXPECT_EQ(titles(), (QStringList { u""_s, u""_s, u""_s })) << "templates are for marks";
    history().undo();
    EXPECT_EQ(times(), (QList<double> { 5.0, 10.0 }));
    EXPECT_TRUE(m_document.isRecording());
}

TEST_F(ZLChapterInsertionTest, TheDateComesFromTheNearestEarlierChapterOrElseTheNearestLaterOne)
{
    EXPECT_EQ(dateAt(5.0), ZLChapter::distantPast());
    addChapterAt(4.0);
    EXPECT_EQ(dateAt(5.0), ZLChapter::distantPast()) << "whose date is not known either";
    const QDateTime later = m_wallClock.addDays(1);
    addDatedChapterAt(100.0, later);
    addDatedChapterAt(200.0, m_wallClock.addDays(2));
    EXPECT_EQ(dateAt(5.0), later.addSecs(-95));
    addDatedChapterAt(1.0, m_wallClock.addDays(-1));
    addDatedChapterAt(3.0, m_wallClock);
    EXPECT_EQ(dateAt(5.5), m_wallClock.addMSecs(2500));
    EXPECT_EQ(dateAt(100.0), later) << "one at the same time is as near as can be";
    EXPECT_EQ(dateAt(0.0), m_wallClock.addDays(-1).addSecs(-1));
}

TEST_F(ZLChapterInsertionTest, AChapterBeforeTheStartIsNotExported)
{
    ZLChapterInsertion::insertBlankChapterAt(m_document, -2.0);
    EXPECT_FALSE(chapters().chapterAtIndex(0)->isEnabled());
    EXPECT_EQ(undoEverything(), 1);
}
