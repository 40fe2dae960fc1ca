#include "document/saving/ZLReverting.h"

#include "SavingPartsFixture.h"
#include "listening/ZLListeningData.h"
#include "support/ZLChapterBuilders.h"

using namespace Qt::StringLiterals;

namespace {

/// Going back without the saver: the test sets the point that it leads to.
class ZLRevertingTest : public SavingPartsFixture {
protected:
    ZLRevertingTest()
    {
        addChapter("One");
        point = document.dataOfType();
        pointState = document.snapshot();
        document.undoManager().removeAllActions();
    }

    /// The point as a former state of the document.
    ZLDocumentState keptState()
    {
        EXPECT_EQ(parts->place.history()->keep(point, QDateTime::currentDateTimeUtc(), {}), ZLStateKeeping::Kept);
        return parts->place.history()->states().value(0);
    }

    [[nodiscard]] bool isStateDue() const
    {
        return parts->states.stateToKeep(parts->place.history(), parts->knownFile).has_value();
    }

    ZLStatus revertTo(const ZLDocumentState& state)
    {
        std::optional<ZLStatus> outcome;
        reverting.revertTo(state, [&outcome](const ZLStatus& reverted) { outcome = reverted; });
        reverting.settle(QDeadlineTimer(QDeadlineTimer::Forever));
        EXPECT_TRUE(outcome);
        return outcome.value_or(ZLError {});
    }

    const std::unique_ptr<Parts> parts = titledParts();
    ZLReverting& reverting = parts->reverting;
    QByteArray point;
    ZLDocumentSnapshot pointState;
};

TEST_F(ZLRevertingTest, WithoutAPointItLeadsNowhere)
{
    EXPECT_FALSE(reverting.canRevert());
    EXPECT_TRUE(reverting.revert());
    EXPECT_FALSE(document.undoManager().canUndo());
}

TEST_F(ZLRevertingTest, ItLeadsToThePointInOneStepWhereTheDocumentDiffers)
{
    reverting.setPoint(pointState);
    EXPECT_FALSE(reverting.canRevert());
    addChapter("Two");
    addChapter("Three");
    EXPECT_TRUE(reverting.canRevert());
    EXPECT_TRUE(reverting.revert());
    EXPECT_EQ(document.dataOfType(), point);
    EXPECT_FALSE(reverting.canRevert());
    document.undoManager().undo();
    EXPECT_EQ(document.chapterManager().count(), 3);
    EXPECT_TRUE(reverting.canRevert());
}

TEST_F(ZLRevertingTest, ChaptersThatAreAsTheyWereStayTheSameObjects)
{
    addChapter("Two");
    addChapter("Three");
    const ZLChapterSequence before = document.chapterManager().allChapters();
    reverting.setPoint(document.snapshot());
    document.updateChapterToTitle(before.at(1), u"Other"_s);
    EXPECT_TRUE(reverting.revert());
    const ZLChapterSequence after = document.chapterManager().allChapters();
    ASSERT_EQ(after.size(), 3);
    EXPECT_EQ(after.first(), before.first());
    EXPECT_NE(after.at(1), before.at(1));
    EXPECT_EQ(after.at(1)->title(), u"Two"_s);
    EXPECT_EQ(after.last(), before.last());
    document.updateChapterToTitle(after.last(), u"Later"_s);
    for (int step = 0; step < 3; ++step)
        document.undoManager().undo();
    EXPECT_EQ(document.chapterManager().allChapters(), before);
    EXPECT_EQ(ZLTestChapters::titles(before), (QStringList { u"One"_s, u"Two"_s, u"Three"_s }));
}

TEST_F(ZLRevertingTest, WhileTheClockRunsItIsRefusedWithTheReason)
{
    reverting.setPoint(pointState);
    const ZLDocumentState state = keptState();
    addChapter("Two");
    document.startRecordingWithTime(clock->seconds);
    EXPECT_FALSE(reverting.canRevert());
    const ZLStatus reverted = reverting.revert();
    const ZLStatus revertedTo = revertTo(state);
    ASSERT_FALSE(reverted);
    ASSERT_FALSE(revertedTo);
    EXPECT_EQ(reverted.error().message, u"The clock is running. Pause the recording before you revert."_s);
    EXPECT_EQ(revertedTo.error().message, reverted.error().message);
    EXPECT_EQ(document.chapterManager().count(), 2);
}

TEST_F(ZLRevertingTest, APointInBytesIsTheSamePointAndBytesThatAreNoDocumentLeadNowhere)
{
    reverting.setPointIn(point);
    EXPECT_FALSE(reverting.canRevert());
    addChapter("Two");
    EXPECT_TRUE(reverting.canRevert());
    EXPECT_TRUE(reverting.revert());
    EXPECT_EQ(document.dataOfType(), point);
    reverting.setPointIn("no document");
    EXPECT_FALSE(reverting.canRevert());
}

TEST_F(ZLRevertingTest, AFormerStateMakesTheNextStateDueSinceWhatIsLeftIsWorthIt)
{
    const ZLDocumentState state = keptState();
    parts->states.noteOutcome(ZLStateKeeping::Kept);
    ASSERT_FALSE(isStateDue());
    EXPECT_TRUE(revertTo(state));
    EXPECT_FALSE(document.undoManager().canUndo()) << "it is so already";
    EXPECT_FALSE(isStateDue()) << "nothing was left";
    addChapter("Two");
    EXPECT_TRUE(revertTo(state));
    EXPECT_EQ(document.dataOfType(), point);
    EXPECT_TRUE(isStateDue());
}

TEST_F(ZLRevertingTest, AStateThatIsGoneIsToldAndChangesNothing)
{
    const ZLDocumentState state = keptState();
    addChapter("Two");
    ASSERT_TRUE(QFile::remove(state.path));
    const ZLStatus reverted = revertTo(state);
    ASSERT_FALSE(reverted);
    EXPECT_TRUE(reverted.error().message.contains(state.path)) << qPrintable(reverted.error().message);
    EXPECT_EQ(document.chapterManager().count(), 2);
}

TEST_F(ZLRevertingTest, WhatWasHeardSinceIsNoReasonToGoBackAndIsNotLost)
{
    reverting.setPoint(pointState);
    document.extras().keep(ZLListeningData::Key, u"what was heard"_s);
    ASSERT_NE(document.dataOfType(), point);
    EXPECT_FALSE(reverting.canRevert());
    addChapter("Two");
    EXPECT_TRUE(reverting.canRevert());
    EXPECT_TRUE(reverting.revert());
    EXPECT_EQ(document.chapterManager().count(), 1);
    EXPECT_EQ(document.extras().value(ZLListeningData::Key), u"what was heard"_s);
}

}
