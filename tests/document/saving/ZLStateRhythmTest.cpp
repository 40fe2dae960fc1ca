#include "document/saving/ZLStateRhythm.h"

#include "document/saving/journal/ZLJournalRecord.h"
#include "support/ZLFakeHostClock.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

class ZLStateRhythmTest : public testing::Test {
protected:
    std::shared_ptr<ZLFakeHostClock> clock = std::make_shared<ZLFakeHostClock>();
    ZLStateRhythm states { clock };
    QTemporaryDir temporary;
    const ZLRecoveryFolder folder { temporary.path() };
    const std::optional<ZLDocumentHistory> history =
        ZLDocumentHistory::ofFile(folder, temporary.filePath(QStringLiteral("show.zelta")));
    const ZLKnownFile file { "ours", ZLJournalRecords::digestOf("ours"), QDateTime::currentDateTimeUtc() };
};

TEST_F(ZLStateRhythmTest, WhatAWriteTakesThePlaceOfIsKeptWhereThereIsAnything)
{
    const auto state = states.stateToKeep(history, file);
    ASSERT_TRUE(state);
    EXPECT_EQ(state->bytes, file.bytes());
    EXPECT_EQ(state->time, file.timeOfBytes());
    EXPECT_EQ(state->history, *history);
    EXPECT_FALSE(states.stateToKeep(history, ZLKnownFile()));
    EXPECT_FALSE(states.stateToKeep(std::nullopt, file));
}

TEST_F(ZLStateRhythmTest, TheNextStateIsDueAfterAMinuteOrWhenItIsWorthIt)
{
    states.noteOutcome(ZLStateKeeping::Kept);
    EXPECT_FALSE(states.stateToKeep(history, file));
    clock->advance(59.0);
    EXPECT_FALSE(states.stateToKeep(history, file));
    clock->advance(1.0);
    EXPECT_TRUE(states.stateToKeep(history, file));
    states.noteOutcome(ZLStateKeeping::Failed);
    EXPECT_FALSE(states.stateToKeep(history, file)) << "a full disk is not asked more often";
    states.makeDue();
    EXPECT_TRUE(states.stateToKeep(history, file));
    states.noteOutcome(ZLStateKeeping::NothingNew);
    EXPECT_TRUE(states.stateToKeep(history, file)) << "nothing was kept";
}

}
