#include "document/saving/ZLConflictDecisions.h"

#include "SavingPartsFixture.h"
#include "document/saving/ZLTheirVersion.h"

using namespace Qt::StringLiterals;

namespace {

class ZLConflictDecisionsTest : public SavingPartsFixture {
protected:
    ZLConflictDecisionsTest()
    {
        ZLChapterDocument other(environment());
        const auto chapter = std::make_shared<ZLChapter>();
        chapter->setTitle(u"Theirs"_s);
        other.addChapter(chapter);
        theirs = other.dataOfType();
        addChapter("Mine");
    }

    /// What another program makes of the file, noticed by a write.
    void bringConflict(const QByteArray& bytes)
    {
        ASSERT_TRUE(ZLAtomicFile::write(path, bytes));
        parts->report.noteConflict({ path + u": changed"_s });
    }

    ZLStatus takeTheirs()
    {
        std::optional<ZLStatus> outcome;
        parts->decisions.takeTheirs([&outcome](const ZLStatus& taken) { outcome = taken; });
        parts->decisions.settle(QDeadlineTimer(QDeadlineTimer::Forever));
        EXPECT_TRUE(outcome);
        return outcome.value_or(ZLError {});
    }

    const std::unique_ptr<Parts> parts = titledParts();
    QByteArray theirs;
};

TEST_F(ZLConflictDecisionsTest, WithoutAConflictNothingHappens)
{
    const QByteArray mine = document.dataOfType();
    ASSERT_TRUE(ZLAtomicFile::write(path, theirs));
    const auto versions = parts->knownFile.versions();
    parts->decisions.allowMine();
    EXPECT_EQ(parts->knownFile.versions(), versions) << "what they wrote may not be replaced";
    EXPECT_TRUE(takeTheirs());
    EXPECT_EQ(document.dataOfType(), mine);
}

TEST_F(ZLConflictDecisionsTest, KeepingMineAllowsToReplaceTheirsOnceAndKeepsThemAsAState)
{
    bringConflict(theirs);
    parts->states.noteOutcome(ZLStateKeeping::Kept);
    parts->schedule.noteChange();
    parts->decisions.allowMine();
    EXPECT_EQ(parts->report.state(), ZLSavingState::Waiting);
    const auto order = parts->orders.next();
    ASSERT_TRUE(order);
    EXPECT_TRUE(order.value().replacesAnything);
    ASSERT_TRUE(order.value().formerState) << "however soon after the last one";
    parts->orders.noteOutcome({ .status = ZLError { QStringLiteral("full") }, .replaced = ZLKnownFile() });
    EXPECT_FALSE(parts->orders.next().value().replacesAnything) << "what comes there later is again another program's";
}

TEST_F(ZLConflictDecisionsTest, TakingTheirsIsOneStepAndKeepsMineAsAState)
{
    bringConflict(theirs);
    document.undoManager().removeAllActions();
    EXPECT_TRUE(takeTheirs());
    EXPECT_EQ(document.chapterManager().lastChapter()->title(), u"Theirs"_s);
    EXPECT_EQ(parts->report.state(), ZLSavingState::Waiting);
    EXPECT_FALSE(parts->reverting.canRevert()) << "theirs is what the document goes back to now";
    const auto states = parts->place.history()->states();
    ASSERT_EQ(states.size(), 1);
    EXPECT_EQ(titlesIn(states.first().path), QStringList { u"Mine"_s });
    document.undoManager().undo();
    EXPECT_EQ(document.chapterManager().lastChapter()->title(), u"Mine"_s);
}

TEST_F(ZLConflictDecisionsTest, WhatIsNoDocumentIsNotTakenAndTheConflictStays)
{
    bringConflict("no document");
    const QByteArray mine = document.dataOfType();
    const ZLStatus taken = takeTheirs();
    ASSERT_FALSE(taken);
    EXPECT_TRUE(taken.error().message.startsWith(path)) << qPrintable(taken.error().message);
    EXPECT_TRUE(parts->report.isConflict());
    EXPECT_EQ(document.dataOfType(), mine);
    EXPECT_TRUE(parts->place.history()->states().isEmpty());
}

TEST_F(ZLConflictDecisionsTest, BothMeansAFreeNameBesideTheFile)
{
    EXPECT_EQ(parts->decisions.pathForBoth(), filePath("show 2.zelta"));
}

}
