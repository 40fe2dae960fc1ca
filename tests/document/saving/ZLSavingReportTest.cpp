#include "document/saving/ZLSavingReport.h"

#include "SavingPartsFixture.h"

using namespace Qt::StringLiterals;

namespace {

class ZLSavingReportTest : public SavingPartsFixture {
protected:
    ZLSavingReportTest()
    {
        QObject::connect(&report, &ZLSavingReport::didChange, &report, [this] { ++tellings; });
    }

    const ZLError error { u"show.zelta: No space left on device"_s };
    const std::unique_ptr<Parts> parts = titledParts();
    ZLSavingReport& report = parts->report;
    ZLWriteSchedule& schedule = parts->schedule;
    int tellings = 0;
};

TEST_F(ZLSavingReportTest, AChangeWaitsUntilItsRevisionIsWritten)
{
    EXPECT_EQ(report.state(), ZLSavingState::Saved);
    schedule.noteChange();
    report.noteChange();
    EXPECT_EQ(report.state(), ZLSavingState::Waiting);
    const quint64 written = schedule.revision();
    report.noteBeginning();
    EXPECT_EQ(report.state(), ZLSavingState::Saving);
    schedule.noteChange();
    report.noteWritten(written);
    EXPECT_EQ(report.state(), ZLSavingState::Waiting) << "it changed meanwhile";
    document.setDocumentEdited(true);
    report.noteWritten(schedule.revision());
    EXPECT_EQ(report.state(), ZLSavingState::Saved);
    EXPECT_FALSE(document.isDocumentEdited());
    EXPECT_EQ(tellings, 4) << "each state once";
    report.noteWritten(schedule.revision());
    EXPECT_EQ(tellings, 4);
}

TEST_F(ZLSavingReportTest, AFailureIsToldUntilAWriteSucceedsAndIsTriedAgain)
{
    schedule.noteChange();
    EXPECT_EQ(report.noteFailure(error).message, error.message);
    EXPECT_EQ(report.state(), ZLSavingState::Failed);
    EXPECT_EQ(report.failureText(), error.message);
    EXPECT_TRUE(document.isDocumentEdited());
    EXPECT_EQ(schedule.plannedDelay(), ZLWriteSchedule::RetryInterval);
    report.noteChange();
    report.noteBeginning();
    EXPECT_EQ(report.state(), ZLSavingState::Failed) << "no attempt takes the failure away";
    EXPECT_EQ(tellings, 1);
    report.noteWritten(schedule.revision());
    EXPECT_EQ(report.state(), ZLSavingState::Saved);
    EXPECT_EQ(report.failureText(), QString());
}

TEST_F(ZLSavingReportTest, AConflictPlansNoWriteAndEndsWithTheDecision)
{
    schedule.noteChange();
    schedule.plan(ZLWriteSchedule::Haste::None);
    report.noteConflict(error);
    EXPECT_TRUE(report.isConflict());
    EXPECT_EQ(report.failureText(), error.message);
    EXPECT_EQ(schedule.plannedDelay(), std::nullopt);
    EXPECT_TRUE(document.isDocumentEdited());
    report.noteChange();
    EXPECT_TRUE(report.isConflict());
    report.noteDecision();
    EXPECT_EQ(report.state(), ZLSavingState::Waiting);
    EXPECT_EQ(report.failureText(), QString());
}

TEST_F(ZLSavingReportTest, ADiskThatDoesNotAnswerIsNamedByTheFile)
{
    EXPECT_EQ(report.noteHangingFile().message, path + u": The disk does not answer"_s);
    EXPECT_EQ(report.state(), ZLSavingState::Failed);
    EXPECT_EQ(schedule.plannedDelay(), std::nullopt) << "the write is under way still";
    const auto untitled = untitledParts();
    EXPECT_TRUE(untitled->report.noteHangingFile().message.startsWith(recoveryFolder.path() + u':'));
}

TEST_F(ZLSavingReportTest, AnUntitledDocumentWithContentCountsAsEditedHoweverWellItIsKept)
{
    const auto untitled = untitledParts();
    document.setDocumentEdited(true);
    untitled->report.noteEverythingIsSaved();
    EXPECT_FALSE(document.isDocumentEdited()) << "empty";
    addChapter("One");
    untitled->report.noteEverythingIsSaved();
    EXPECT_TRUE(document.isDocumentEdited());
    EXPECT_EQ(untitled->report.state(), ZLSavingState::Saved);
}

}
