#include "remote/ZLRemoteOutcome.h"

#include "support/ZLDocumentFixture.h"

using namespace Qt::StringLiterals;

class ZLRemoteOutcomeTest : public ZLDocumentFixture {
protected:
    using Operation = void (ZLChapterDocument::*)();

    [[nodiscard]] QString outcomeOf(const QString& identifier, Operation operation)
    {
        const ZLRemoteOutcome outcome(&m_document);
        (m_document.*operation)();
        return outcome.description(*ZLRemoteActions::withIdentifier(identifier));
    }
};

TEST_F(ZLRemoteOutcomeTest, WhatHasChangedIsTold)
{
    const auto toggle = [this] {
        return outcomeOf(ZLControllerToggleRecordingAction, &ZLChapterDocument::recordButtonPressed);
    };
    const auto add = [this] {
        return outcomeOf(ZLControllerNewChapterAction, &ZLChapterDocument::addChapterButtonPressed);
    };
    EXPECT_EQ(add(), u"did nothing: the clock is not running"_s);
    EXPECT_EQ(toggle(), u"started the recording"_s);
    EXPECT_EQ(add(), u"added a chapter"_s);
    EXPECT_EQ(add(), u"added a chapter"_s);
    EXPECT_EQ(toggle(), u"paused the recording"_s);
    select(1);
    EXPECT_EQ(outcomeOf(ZLControllerSelectLastAction, &ZLChapterDocument::selectLastChapter), u"selected chapter 1"_s);
    EXPECT_EQ(outcomeOf(ZLControllerSelectLastAction, &ZLChapterDocument::selectLastChapter),
        u"did nothing: there is no chapter before"_s);
    EXPECT_EQ(outcomeOf(ZLControllerSelectNextAction, &ZLChapterDocument::selectNextChapter), u"selected chapter 2"_s);
    EXPECT_EQ(outcomeOf(ZLControllerSelectNextAction, &ZLChapterDocument::selectNextChapter),
        u"did nothing: there is no chapter after"_s);
    EXPECT_EQ(outcomeOf(ZLControllerDeleteSelectedChapterAction, &ZLChapterDocument::deleteButtonPressed),
        u"deleted a chapter"_s);
    EXPECT_EQ(
        outcomeOf(ZLControllerDeleteLastChapterAction, &ZLChapterDocument::deleteLastChapter), u"deleted a chapter"_s);
    EXPECT_EQ(outcomeOf(ZLControllerDeleteLastChapterAction, &ZLChapterDocument::deleteLastChapter),
        u"did nothing: there are no chapters"_s);
    EXPECT_EQ(outcomeOf(ZLControllerDeleteSelectedChapterAction, &ZLChapterDocument::deleteButtonPressed),
        u"did nothing: no chapter is selected"_s);
}

TEST_F(ZLRemoteOutcomeTest, TheStartSoundIsToldBeforeTheClockRuns)
{
    ZLSettingsManager::setPlaySoundBeforeRecording(true);
    EXPECT_EQ(
        outcomeOf(ZLControllerToggleRecordingAction, &ZLChapterDocument::recordButtonPressed), u"played the beep"_s);
    EXPECT_FALSE(m_document.isRecording());
}

TEST_F(ZLRemoteOutcomeTest, WithoutADocumentThatIsTheReason)
{
    const ZLRemoteOutcome outcome(nullptr);
    EXPECT_EQ(outcome.description(*ZLRemoteActions::withIdentifier(ZLControllerNewChapterAction)),
        u"did nothing: no document is open"_s);
}
