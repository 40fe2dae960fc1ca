#include "platform/ZLDiskWork.h"

#include "platform/ZLAbandonedWork.h"

#include <QSignalSpy>
#include <QThread>
#include <gtest/gtest.h>

#include <atomic>
#include <future>

TEST(ZLDiskWorkTest, WorksBesideTheMainThreadAndTellsThere)
{
    ZLDiskWork work;
    QSignalSpy end(&work, &ZLDiskWork::didEnd);
    QThread* const mainThread = QThread::currentThread();
    const auto workThread = std::make_shared<std::atomic<QThread*>>();
    QList<QThread*> tellings;
    work.start([&tellings, workThread](const ZLDiskWork::Teller& tell) {
        *workThread = QThread::currentThread();
        tell([&tellings] { tellings.append(QThread::currentThread()); });
        tell([&tellings] { tellings.append(QThread::currentThread()); });
    });
    EXPECT_TRUE(work.isUnderWay());
    ASSERT_TRUE(end.wait());
    EXPECT_FALSE(work.isUnderWay());
    EXPECT_NE(workThread->load(), mainThread);
    EXPECT_EQ(tellings, (QList<QThread*> { mainThread, mainThread }));
}

TEST(ZLDiskWorkTest, WaitsForTheEndAsLongAsItIsToldTo)
{
    const auto isOver = std::make_shared<std::atomic<bool>>(false);
    {
        ZLDiskWork work(std::chrono::hours(1));
        work.start([isOver](const ZLDiskWork::Teller&) {
            QThread::msleep(20);
            *isOver = true;
        });
    }
    EXPECT_TRUE(*isOver);
}

TEST(ZLDiskWorkTest, GoesBeforeItsWorkIsOverAndHearsNothingMore)
{
    const auto mayEnd = std::make_shared<std::promise<void>>();
    const auto isTold = std::make_shared<std::atomic<bool>>(false);
    const auto hasEnded = std::make_shared<std::promise<void>>();
    {
        ZLDiskWork work;
        work.start([mayEnd, isTold, hasEnded](const ZLDiskWork::Teller& tell) {
            mayEnd->get_future().wait();
            tell([isTold] { *isTold = true; });
            hasEnded->set_value();
        });
    }
    EXPECT_TRUE(ZLAbandonedWork::isAny());
    mayEnd->set_value();
    hasEnded->get_future().wait();
    QCoreApplication::processEvents();
    EXPECT_FALSE(*isTold);
    while (ZLAbandonedWork::isAny())
        QThread::yieldCurrentThread();
}
