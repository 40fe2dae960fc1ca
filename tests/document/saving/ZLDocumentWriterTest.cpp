#include "document/saving/ZLDocumentWriter.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

#include <atomic>
#include <deque>
#include <memory>
#include <semaphore>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

ZLWriteOrder order(const QByteArray& bytes)
{
    return { .path = u"show.zelta"_s, .bytes = bytes };
}

/// A disk that answers when the test lets it. A write that was abandoned may outlive the test, so it shares these.
struct Disk {
    std::counting_semaphore<> answers { 0 };
    std::counting_semaphore<> questions { 0 };
};

class ZLDocumentWriterTest : public testing::Test {
protected:
    ZLDocumentWriterTest()
    {
        QObject::connect(&writer, &ZLDocumentWriter::didWrite, &writer,
            [this](const ZLWriteOrder& done) { written.append(done.bytes); });
    }
    ~ZLDocumentWriterTest() override { disk.release(100); }

    const QDeadlineTimer atOnce { 0 };
    const QDeadlineTimer forEver { QDeadlineTimer::Forever };
    const std::shared_ptr<Disk> shared = std::make_shared<Disk>();
    std::counting_semaphore<>& disk = shared->answers;
    std::counting_semaphore<>& begun = shared->questions;
    std::deque<std::function<void()>> tasks;
    QList<QByteArray> written;
    ZLDocumentWriter writer {
        [shared = shared](const QString&, const QByteArray&) {
            shared->questions.release();
            shared->answers.acquire();
            return ZLStatus(ZLDone {});
        },
        [this](std::function<void()> task) { tasks.push_back(std::move(task)); },
    };
};

TEST_F(ZLDocumentWriterTest, TheThreadThatWritesMakesTheBytes)
{
    QByteArray made;
    QObject::connect(&writer, &ZLDocumentWriter::didWrite, &writer,
        [&made](const ZLWriteOrder&, const ZLWriteOutcome& outcome) { made = outcome.bytes; });
    const ZLDocumentSnapshot snapshot { .duration = 12.5 };
    writer.start({ .path = u"show.zelta"_s, .snapshot = snapshot });
    EXPECT_FALSE(writer.progress().isAtDisk) << "a long document is no disk that does not answer";
    std::thread thread(tasks.front());
    begun.acquire();
    EXPECT_TRUE(writer.progress().isAtDisk);
    disk.release();
    thread.join();
    EXPECT_TRUE(writer.settle(forEver));
    EXPECT_EQ(made, snapshot.encoded());
}

TEST_F(ZLDocumentWriterTest, WhatTheFileHoldsAlreadyIsNotWritten)
{
    bool isUnchanged = false;
    QObject::connect(&writer, &ZLDocumentWriter::didWrite, &writer,
        [&isUnchanged](const ZLWriteOrder&, const ZLWriteOutcome& outcome) { isUnchanged = outcome.isUnchanged; });
    const ZLDocumentSnapshot snapshot { .duration = 12.5 };
    writer.start({ .path = u"show.zelta"_s, .snapshot = snapshot, .present = snapshot.encoded() });
    tasks.front()();
    EXPECT_TRUE(writer.settle(forEver));
    EXPECT_TRUE(isUnchanged);
    EXPECT_FALSE(begun.try_acquire()) << "the disk was asked to write";
}

TEST_F(ZLDocumentWriterTest, AWriteThatHasNotBegunIsCalledOff)
{
    writer.start(order("one"));
    EXPECT_TRUE(writer.isUnderWay());
    EXPECT_TRUE(writer.settle(forEver));
    EXPECT_FALSE(writer.isUnderWay());
    tasks.front()();
    EXPECT_EQ(written, QList<QByteArray>());
}

TEST_F(ZLDocumentWriterTest, AWriteIsWaitedForAndToldOnce)
{
    disk.release();
    const auto outcome = writer.write(order("one"), forEver);
    ASSERT_TRUE(outcome);
    EXPECT_TRUE(*outcome);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    EXPECT_EQ(written, QList<QByteArray> { "one" });
}

TEST_F(ZLDocumentWriterTest, AWriteThatWasWaitedForInVainIsNotWaitedForAgain)
{
    EXPECT_FALSE(writer.write(order("one"), atOnce));
    begun.acquire();
    // Were it to wait, the test would stand here for ever.
    EXPECT_FALSE(writer.settle(forEver));
    disk.release();
    for (int turn = 0; turn < 1000 && writer.isUnderWay(); ++turn)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_EQ(written, QList<QByteArray> { "one" });
}

TEST_F(ZLDocumentWriterTest, TheWriteAfterOneThatWasGivenUpIsWaitedForAgain)
{
    EXPECT_FALSE(writer.write(order("one"), atOnce));
    // It is called off or it ends, whichever comes first.
    disk.release();
    for (int turn = 0; turn < 10'000 && !writer.settle(atOnce); ++turn)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    ASSERT_FALSE(writer.isUnderWay());
    while (disk.try_acquire() || begun.try_acquire()) { }
    writer.start(order("two"));
    std::thread worker(tasks.back());
    begun.acquire();
    std::thread opener([this] { disk.release(); });
    EXPECT_TRUE(writer.settle(forEver));
    worker.join();
    opener.join();
    EXPECT_EQ(written.last(), "two");
}

TEST_F(ZLDocumentWriterTest, AWriteThatIsAbandonedTellsNobody)
{
    EXPECT_FALSE(writer.write(order("one"), atOnce));
    begun.acquire();
    writer.abandon();
    EXPECT_FALSE(writer.isUnderWay());
    disk.release(2);
    EXPECT_TRUE(writer.write(order("two"), forEver)) << "on a thread of its own";
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    EXPECT_EQ(written, QList<QByteArray> { "two" });
}

}
