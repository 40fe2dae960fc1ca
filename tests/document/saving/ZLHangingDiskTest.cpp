#include "SavingFixture.h"

#include <QThread>

#include <semaphore>

using namespace Qt::StringLiterals;

/// Disks that do not answer, each of the two while the other one is well.
class ZLHangingDiskTest : public SavingFixture {
protected:
    /// Shared with threads that may outlive the test. Who comes while it is closed waits until it is opened for good.
    struct Gate {
        std::mutex mutex;
        std::condition_variable didOpen;
        bool isClosed = false;
        int waiting = 0;

        void pass()
        {
            std::unique_lock lock(mutex);
            ++waiting;
            didOpen.notify_all();
            didOpen.wait(lock, [this] { return !isClosed; });
            --waiting;
        }
        void set(bool closed)
        {
            const std::lock_guard lock(mutex);
            isClosed = closed;
            didOpen.notify_all();
        }
        void waitForSomebody()
        {
            std::unique_lock lock(mutex);
            didOpen.wait(lock, [this] { return waiting > 0; });
        }
    };

    ZLHangingDiskTest()
    {
        machinery.executor = {};
        machinery.journalDisk.longestHandOver = ZLJournalDisk().longestHandOver;
        machinery.journalDisk.write = [gate = journalGate](int descriptor, const void* bytes, size_t count) {
            gate->pass();
            return ::write(descriptor, bytes, count);
        };
        machinery.writeFile = [gate = fileGate](const QString& path, const QByteArray& bytes) {
            gate->pass();
            return ZLAtomicFile::write(path, bytes);
        };
    }
    ~ZLHangingDiskTest() override
    {
        journalGate->set(false);
        fileGate->set(false);
    }

    /// While the clock goes on.
    template <typename Condition>
    bool comesTrue(Condition condition)
    {
        for (int attempt = 0; attempt < 10'000 && !condition(); ++attempt) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
            QThread::msleep(1);
            clock->seconds += 0.01;
        }
        return condition();
    }

    std::shared_ptr<Gate> journalGate = std::make_shared<Gate>();
    std::shared_ptr<Gate> fileGate = std::make_shared<Gate>();
};

TEST_F(ZLHangingDiskTest, TheFileIsWrittenWhileTheJournalHangs)
{
    const QString path = filePath("show.zelta");
    const auto saver = titledSaver(path);
    addChapter("One");
    ASSERT_TRUE(saver->saveNow());
    journalGate->set(true);
    addChapter("Two");
    EXPECT_EQ(saver->plannedDelay(), 0) << "no journal holds it";
    EXPECT_TRUE(comesTrue([&] { return titlesIn(path) == QStringList({ u"One"_s, u"Two"_s }); }));
    addChapter("Three");
    EXPECT_TRUE(comesTrue([&] { return titlesIn(path).size() == 3; })) << "and again";
    EXPECT_EQ(journaledTitles(), QStringList { u"One"_s });
    const QString failure = recoveryFolder.path() + u": The disk does not answer"_s;
    EXPECT_TRUE(comesTrue([&] { return saver->recoveryFailureText() == failure; }));
    EXPECT_TRUE(comesTrue([&] { return saver->state() == ZLSavingState::Saved; }));
    journalGate->set(false);
    EXPECT_TRUE(comesTrue([&] { return saver->recoveryFailureText().isEmpty(); }));
    EXPECT_EQ(journaledTitles().size(), 3);
    EXPECT_EQ(saver->plannedDelay(), std::nullopt);
}

TEST_F(ZLHangingDiskTest, TheJournalTakesEverythingWhileTheFileHangs)
{
    const QString path = filePath("show.zelta");
    const auto saver = titledSaver(path);
    addChapter("One");
    ASSERT_TRUE(saver->saveNow());
    fileGate->set(true);
    addChapter("Two");
    saver->writeNewestState();
    fileGate->waitForSomebody();
    addChapter("Three");
    EXPECT_TRUE(comesTrue([&] { return journaledTitles().size() == 3; }));
    EXPECT_TRUE(comesTrue([&] { return saver->state() == ZLSavingState::Failed; }));
    EXPECT_EQ(saver->failureText(), path + u": The disk does not answer"_s);
    EXPECT_EQ(titlesIn(path), QStringList { u"One"_s });
    fileGate->set(false);
    EXPECT_TRUE(comesTrue([&] { return saver->state() == ZLSavingState::Saved; }));
    EXPECT_EQ(titlesIn(path).size(), 3);
    EXPECT_EQ(saver->failureText(), QString());
}

TEST_F(ZLHangingDiskTest, ASaveWaitsForAFileThatHangsOnceAndThenForNoneOfItsWrites)
{
    const QString path = filePath("show.zelta");
    const auto saver = titledSaver(path);
    fileGate->set(true);
    addChapter("One");
    const ZLStatus saved = saver->saveNow(QDeadlineTimer(1));
    ASSERT_FALSE(saved);
    EXPECT_EQ(saved.error().message, path + u": The disk does not answer"_s);
    EXPECT_EQ(saver->state(), ZLSavingState::Failed);
    // A write that has not begun would only be called off, and the next save would begin and await one of its own.
    fileGate->waitForSomebody();
    // Were it to wait once more, the test would stand here for ever.
    EXPECT_FALSE(saver->saveNow(QDeadlineTimer(QDeadlineTimer::Forever)));
    addChapter("Two");
    fileGate->set(false);
    EXPECT_TRUE(comesTrue([&] { return saver->state() == ZLSavingState::Saved; }));
    EXPECT_EQ(titlesIn(path), (QStringList { u"One"_s, u"Two"_s }));
    EXPECT_TRUE(saver->saveNow());
}

TEST_F(ZLHangingDiskTest, ADocumentMovesAwayFromAFileThatHangs)
{
    const auto isHanging = std::make_shared<std::atomic<bool>>(true);
    machinery.writeFile = [gate = fileGate, isHanging](const QString& path, const QByteArray& bytes) {
        if (isHanging->exchange(false))
            gate->pass();
        return ZLAtomicFile::write(path, bytes);
    };
    const auto saver = titledSaver(filePath("show.zelta"));
    fileGate->set(true);
    addChapter("One");
    EXPECT_FALSE(saver->saveNow(QDeadlineTimer(1)));
    fileGate->waitForSomebody();
    EXPECT_FALSE(savedAs(*saver, filePath("show.zelta"))) << "to where it is it cannot";
    ASSERT_TRUE(savedAs(*saver, filePath("elsewhere.zelta")));
    EXPECT_EQ(saver->state(), ZLSavingState::Saved);
    EXPECT_EQ(titlesIn(filePath("elsewhere.zelta")), QStringList { u"One"_s });
    addChapter("Two");
    EXPECT_TRUE(saver->saveNow());
    EXPECT_EQ(titlesIn(filePath("elsewhere.zelta")).size(), 2);
}

TEST_F(ZLHangingDiskTest, ASaverEndsWhileBothHangAndTheJournalIsLeftForTheNextStart)
{
    auto saver = titledSaver(filePath("show.zelta"));
    addChapter("One");
    ASSERT_TRUE(saver->saveNow());
    addChapter("Two");
    journalGate->set(true);
    fileGate->set(true);
    addChapter("Three");
    EXPECT_FALSE(saver->saveNow(QDeadlineTimer(1)));
    // Were it to wait for either of them, the test would stand here for ever.
    saver->end(QDeadlineTimer(1));
    saver.reset();
    EXPECT_EQ(journaledTitles(), (QStringList { u"One"_s, u"Two"_s }));
}

TEST_F(ZLHangingDiskTest, AMarkWaitsAgainOnceTheJournalHasCaughtUp)
{
    const auto saver = titledSaver(filePath("show.zelta"));
    addChapter("One");
    ASSERT_TRUE(saver->saveNow());
    journalGate->set(true);
    addChapter("Two");
    journalGate->set(false);
    EXPECT_TRUE(comesTrue([&] { return journaledTitles().size() == 2; }));
    for (int mark = 3; mark < 100; ++mark) {
        addChapter("More");
        ASSERT_EQ(journaledTitles().size(), mark) << "the kernel has it when the command returns";
    }
}
