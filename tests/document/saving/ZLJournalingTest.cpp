#include "document/saving/ZLJournaling.h"

#include "SavingPartsFixture.h"
#include "support/ZLFullDisk.h"

#include <QEventLoop>
#include <QThread>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

/// The journal of one document without the saver that calls it.
class ZLJournalingTest : public SavingPartsFixture {
protected:
    void putAFileInPlaceOfTheFolder()
    {
        ASSERT_TRUE(QDir().mkpath(QFileInfo(recoveryFolder.path()).path()));
        ASSERT_TRUE(ZLAtomicFile::write(recoveryFolder.path(), "a file in its place"));
    }

    const QDeadlineTimer withoutEnd { QDeadlineTimer::Forever };
};

TEST_F(ZLJournalingTest, ADocumentThatWasOnlyOpenedGetsItsJournalWithTheFirstChange)
{
    const auto parts = titledParts();
    parts->journaling.note();
    EXPECT_EQ(parts->journaling.file(), nullptr);
    EXPECT_EQ(recoveryFolder.journaledFiles(), QStringList());
    addChapter("One");
    parts->journaling.note();
    EXPECT_EQ(journaledTitles(), QStringList { u"One"_s });
    EXPECT_EQ(journaled().filePath, path);
    EXPECT_FALSE(parts->journaling.isBehind());
    addChapter("Two");
    parts->journaling.note();
    EXPECT_EQ(journaledTitles(), (QStringList { u"One"_s, u"Two"_s }));
}

TEST_F(ZLJournalingTest, ARunningClockIsAChangeAndItsReadingIsTaken)
{
    const auto parts = titledParts();
    document.startRecordingWithTime(clock->seconds);
    parts->journaling.note();
    ASSERT_TRUE(journaled().interruption);
    clock->seconds += 7.0;
    parts->journaling.noteReading();
    ASSERT_TRUE(parts->journaling.file()->waitUntilHandedOver(std::chrono::minutes(1)));
    EXPECT_NEAR(journaled().contents.duration, 7.0, 1e-6);
}

TEST_F(ZLJournalingTest, OfAnUntitledDocumentWithoutContentNothingIsJournaled)
{
    const auto parts = untitledParts();
    addChapter("One");
    parts->journaling.note();
    document.undoManager().undo();
    parts->journaling.note();
    parts->journaling.retry();
    EXPECT_EQ(journaledTitles(), QStringList { u"One"_s }) << "what is journaled is taken away as a whole";
    document.undoManager().redo();
    addChapter("Two");
    parts->journaling.note();
    EXPECT_EQ(journaledTitles(), (QStringList { u"One"_s, u"Two"_s }));
}

TEST_F(ZLJournalingTest, AFolderThatWasTakenAwayIsMadeAnewWithAJournalOfEverything)
{
    const auto parts = titledParts();
    addChapter("One");
    parts->journaling.note();
    ASSERT_TRUE(QDir(recoveryFolder.path()).removeRecursively());
    addChapter("Two");
    parts->journaling.note();
    EXPECT_EQ(journaledTitles(), (QStringList { u"One"_s, u"Two"_s }));
    EXPECT_EQ(parts->journaling.failureText(), QString());
}

TEST_F(ZLJournalingTest, AFolderThatFailsIsToldOnceAndTheRetryEndsIt)
{
    putAFileInPlaceOfTheFolder();
    const auto parts = titledParts();
    int tellings = 0;
    QObject::connect(&parts->journaling, &ZLJournaling::failureTextDidChange, &parts->journaling, [&] { ++tellings; });
    addChapter("One");
    parts->journaling.note();
    EXPECT_EQ(parts->journaling.failureText(), recoveryFolder.path() + u": Not a directory"_s);
    EXPECT_TRUE(parts->journaling.isBehind()) << "the change is in no journal";
    addChapter("Two");
    parts->journaling.note();
    parts->journaling.retry();
    EXPECT_EQ(tellings, 1);
    ASSERT_TRUE(QFile::remove(recoveryFolder.path()));
    parts->journaling.retry();
    EXPECT_EQ(parts->journaling.failureText(), QString());
    EXPECT_FALSE(parts->journaling.isBehind());
    EXPECT_EQ(tellings, 2);
    EXPECT_EQ(journaledTitles(), (QStringList { u"One"_s, u"Two"_s }));
}

TEST_F(ZLJournalingTest, AFolderThatFailsIsTriedAgainByTheTimer)
{
    putAFileInPlaceOfTheFolder();
    const auto parts = titledParts();
    addChapter("One");
    parts->journaling.note();
    QEventLoop loop;
    bool isDue = false;
    QObject::connect(&parts->journaling, &ZLJournaling::retryIsDue, &loop, [&] {
        isDue = true;
        loop.quit();
    });
    QTimer::singleShot(10 * ZLJournaling::RetryInterval, &loop, &QEventLoop::quit);
    loop.exec();
    EXPECT_TRUE(isDue);
}

TEST_F(ZLJournalingTest, ARetryJournalsNothingOfADocumentThatWasOnlyOpened)
{
    const auto parts = titledParts();
    document.startRecordingWithTime(clock->seconds);
    parts->journaling.retry();
    EXPECT_EQ(parts->journaling.file(), nullptr) << "note() begins a journal, a retry only goes on with one";
}

TEST_F(ZLJournalingTest, WhatIsRemovedComesBackWithTheNextChangeAlone)
{
    const auto parts = titledParts();
    addChapter("One");
    parts->journaling.note();
    parts->journaling.removeRecoveryFile();
    EXPECT_EQ(recoveryFolder.journaledFiles(), QStringList());
    EXPECT_EQ(parts->place.recoveryFile(), nullptr);
    parts->journaling.note();
    EXPECT_EQ(recoveryFolder.journaledFiles(), QStringList()) << "nothing changed since";
    addChapter("Two");
    parts->journaling.note();
    EXPECT_EQ(journaledTitles(), (QStringList { u"One"_s, u"Two"_s }));
}

TEST_F(ZLJournalingTest, RemovingTakesTheFailureAway)
{
    putAFileInPlaceOfTheFolder();
    const auto parts = titledParts();
    addChapter("One");
    parts->journaling.note();
    ASSERT_NE(parts->journaling.failureText(), QString());
    parts->journaling.removeRecoveryFile();
    EXPECT_EQ(parts->journaling.failureText(), QString());
}

TEST_F(ZLJournalingTest, TheEndLeavesTheJournalWhereItIs)
{
    const auto parts = titledParts();
    addChapter("One");
    parts->journaling.note();
    EXPECT_TRUE(parts->journaling.end(withoutEnd));
    EXPECT_EQ(journaledTitles(), QStringList { u"One"_s });
}

TEST_F(ZLJournalingTest, AFullDiskIsBehindUntilTheJournalIsBegunAnew)
{
    const auto parts = titledParts();
    addChapter("One");
    parts->journaling.note();
    {
        const ZLFullDisk disk(100);
        addChapter("Two");
        parts->journaling.note();
        EXPECT_EQ(parts->journaling.failureText(), recoveryFolder.path() + u": File too large"_s);
        EXPECT_TRUE(parts->journaling.isBehind());
    }
    for (int attempt = 0; attempt < 5000 && parts->journaling.isBehind(); ++attempt) {
        parts->journaling.retry();
        QThread::msleep(1);
    }
    EXPECT_EQ(parts->journaling.failureText(), QString());
    EXPECT_EQ(journaledTitles(), (QStringList { u"One"_s, u"Two"_s }));
}

}
