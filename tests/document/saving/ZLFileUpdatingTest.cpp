#include "document/saving/ZLFileUpdating.h"

#include "SavingPartsFixture.h"

#include <QThread>

#include <thread>

using namespace Qt::StringLiterals;

namespace {

class ZLFileUpdatingTest : public SavingPartsFixture {
protected:
    void change(Parts& parts, const char* title)
    {
        addChapter(title);
        parts.schedule.noteChange();
        parts.report.noteChange();
    }

    const QDeadlineTimer withoutEnd { QDeadlineTimer::Forever };
};

TEST_F(ZLFileUpdatingTest, AnUpdateIsInTheFileWhenItReturns)
{
    const auto parts = titledParts();
    change(*parts, "One");
    parts->schedule.plan(ZLWriteSchedule::Haste::None);
    EXPECT_TRUE(parts->updating.update(withoutEnd));
    EXPECT_EQ(titlesIn(path), QStringList { u"One"_s });
    EXPECT_EQ(parts->report.state(), ZLSavingState::Saved);
    EXPECT_EQ(parts->schedule.plannedDelay(), std::nullopt) << "what was planned is done";
    EXPECT_EQ(parts->knownFile.bytes(), document.dataOfType());
}

TEST_F(ZLFileUpdatingTest, AWriteThatIsDueIsCarriedOutBesideTheEventLoop)
{
    const auto parts = titledParts();
    change(*parts, "One");
    Q_EMIT parts->schedule.writeIsDue();
    EXPECT_TRUE(parts->updating.isUnderWay());
    EXPECT_EQ(parts->report.state(), ZLSavingState::Saving);
    EXPECT_EQ(titlesIn(path), QStringList());
    parts->updating.begin();
    EXPECT_EQ(tasks.size(), 1U) << "one at a time";
    runTasks();
    EXPECT_FALSE(parts->updating.isUnderWay());
    EXPECT_EQ(parts->report.state(), ZLSavingState::Saved);
    EXPECT_EQ(titlesIn(path), QStringList { u"One"_s });
}

TEST_F(ZLFileUpdatingTest, WhatIsAskedForDuringAWriteIsServedByTheNextOne)
{
    const auto parts = titledParts();
    change(*parts, "One");
    parts->updating.begin();
    change(*parts, "Two");
    QStringList written;
    parts->updating.request([&](const ZLStatus& status, const ZLDocumentSnapshot* state) {
        EXPECT_TRUE(status && state && state->chapters.size() == 2);
        written = titlesIn(path);
    });
    parts->schedule.plan(ZLWriteSchedule::Haste::None);
    runTasks();
    EXPECT_EQ(written, QStringList()) << "that write began before";
    runTasks();
    EXPECT_EQ(written, (QStringList { u"One"_s, u"Two"_s }));
}

TEST_F(ZLFileUpdatingTest, AnUpdateServesWhatWasAskedForAlsoWhenItsWriteHasNotBegun)
{
    const auto parts = titledParts();
    change(*parts, "One");
    std::optional<ZLStatus> told;
    parts->updating.request([&](const ZLStatus& status, const ZLDocumentSnapshot*) { told = status; });
    EXPECT_FALSE(told);
    EXPECT_TRUE(parts->updating.update(withoutEnd));
    ASSERT_TRUE(told);
    EXPECT_TRUE(*told);
}

TEST_F(ZLFileUpdatingTest, AFileThatWasTakenAwayIsWrittenAgainOnlyWhenAskedFor)
{
    const auto parts = titledParts();
    ASSERT_TRUE(QFile::remove(path));
    EXPECT_TRUE(parts->updating.update(withoutEnd));
    EXPECT_FALSE(QFile::exists(path));
    std::optional<ZLStatus> told;
    parts->updating.request([&](const ZLStatus& status, const ZLDocumentSnapshot*) { told = status; });
    parts->updating.settleRequests(withoutEnd);
    EXPECT_TRUE(told && *told);
    EXPECT_TRUE(QFile::exists(path));
}

TEST_F(ZLFileUpdatingTest, WhilePausedNothingBeginsAndAfterwardsItIsMadeUpFor)
{
    const auto parts = titledParts();
    change(*parts, "One");
    parts->updating.begin();
    int pauses = 0;
    QObject::connect(&parts->updating, &ZLFileUpdating::didPause, &parts->updating, [&pauses] { ++pauses; });
    parts->updating.pause();
    EXPECT_EQ(pauses, 0) << "a write is under way";
    change(*parts, "Two");
    runTasks();
    EXPECT_EQ(pauses, 1);
    parts->updating.begin();
    EXPECT_TRUE(tasks.empty());
    parts->updating.resume();
    runTasks();
    EXPECT_EQ(titlesIn(path), (QStringList { u"One"_s, u"Two"_s }));
}

TEST_F(ZLFileUpdatingTest, TheEndOfAWriteLooksForNewerChangesUnlessOneIsPlanned)
{
    const auto parts = titledParts();
    change(*parts, "One");
    parts->updating.begin();
    change(*parts, "Two");
    runTasks();
    EXPECT_EQ(tasks.size(), 1U) << "the next write";
    runTasks();
    EXPECT_EQ(titlesIn(path).size(), 2);
    change(*parts, "Three");
    parts->updating.begin();
    change(*parts, "Four");
    parts->schedule.plan(ZLWriteSchedule::Haste::None);
    runTasks();
    EXPECT_TRUE(tasks.empty());
    EXPECT_EQ(titlesIn(path).size(), 3) << "the plan brings the fourth";
}

TEST_F(ZLFileUpdatingTest, AFailureIsReportedAndAConflictStopsFurtherWrites)
{
    const auto parts = titledParts();
    change(*parts, "One");
    ASSERT_TRUE(ZLAtomicFile::write(path, "what another program wrote"));
    parts->updating.begin();
    runTasks();
    EXPECT_TRUE(parts->report.isConflict());
    parts->updating.begin();
    EXPECT_TRUE(tasks.empty());
    const ZLStatus updated = parts->updating.update(withoutEnd);
    ASSERT_FALSE(updated);
    EXPECT_EQ(updated.error().message, parts->report.failureText());
    ASSERT_TRUE(QFile::remove(path));
    ASSERT_TRUE(QDir().mkdir(path));
    parts->report.noteDecision();
    EXPECT_FALSE(parts->updating.update(withoutEnd));
    EXPECT_EQ(parts->report.state(), ZLSavingState::Failed);
}

TEST_F(ZLFileUpdatingTest, ADiskThatHangsIsNoted)
{
    machinery.writeFile = [](const QString&, const QByteArray&) {
        QThread::msleep(50);
        return ZLStatus(ZLDone {});
    };
    const auto parts = titledParts();
    change(*parts, "One");
    EXPECT_FALSE(parts->updating.update(QDeadlineTimer(0)));
    EXPECT_EQ(parts->report.failureText(), path + u": The disk does not answer"_s);
    EXPECT_TRUE(parts->updating.isUnderWay());
    EXPECT_FALSE(parts->updating.commandDeadline().hasExpired()) << "it hangs only when it was looked at for a while";
    parts->updating.abandon();
    EXPECT_FALSE(parts->updating.isUnderWay());
}

TEST_F(ZLFileUpdatingTest, AnEmptyUntitledDocumentIsSavedWithoutAWrite)
{
    const auto parts = untitledParts();
    parts->schedule.noteChange();
    EXPECT_TRUE(parts->updating.update(withoutEnd));
    parts->updating.begin();
    EXPECT_TRUE(tasks.empty());
    EXPECT_EQ(writeCount, 0);
    EXPECT_TRUE(parts->schedule.isEverythingWritten());
}

TEST_F(ZLFileUpdatingTest, WhatIsStoppedWritesNothingAnyMore)
{
    const auto parts = titledParts();
    change(*parts, "One");
    parts->updating.begin();
    parts->updating.stop();
    EXPECT_TRUE(parts->updating.isStopped());
    runTasks();
    EXPECT_TRUE(parts->updating.update(withoutEnd));
    parts->updating.begin();
    EXPECT_TRUE(tasks.empty());
    EXPECT_EQ(writeCount, 0) << "the write that had not begun was called off";
}

TEST_F(ZLFileUpdatingTest, AtTheEndTheWriteUnderWayIsNotTold)
{
    const auto parts = titledParts();
    change(*parts, "One");
    parts->updating.begin();
    std::thread worker(tasks.front());
    worker.join();
    tasks.clear();
    parts->updating.end(withoutEnd);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    EXPECT_EQ(titlesIn(path), QStringList { u"One"_s });
    EXPECT_EQ(parts->report.state(), ZLSavingState::Saving) << "nothing is told of its outcome";
}

}
