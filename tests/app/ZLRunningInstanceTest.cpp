#include "app/ZLRunningInstance.h"

#include <QTemporaryDir>
#include <QTest>
#include <QThread>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class ZLRunningInstanceTest : public testing::Test {
protected:
    static constexpr int handoverDeadlineMilliseconds = 30000;

    [[nodiscard]] std::unique_ptr<ZLRunningInstance> startInstance()
    {
        return std::make_unique<ZLRunningInstance>(
            [this](const ZLLaunchRequest& request, const ZLRunningInstance::Answer& answer) {
                m_requests.append(request);
                QStringList problems;
                for (const QString& file : request.files) {
                    if (file.contains("missing"_L1))
                        problems.append(file + u": No such file"_s);
                }
                answer(problems);
            },
            m_path);
    }

    /// As a process that is started later would, while this one goes on with its events.
    [[nodiscard]] ZLResult<ZLHandover> handOver(const ZLLaunchRequest& request) const
    {
        std::optional<ZLResult<ZLHandover>> result;
        const std::unique_ptr<QThread> later(
            QThread::create([&] { result = ZLRunningInstance::handOver(request, m_path); }));
        later->start();
        EXPECT_TRUE(QTest::qWaitFor([&] { return later->isFinished(); }, handoverDeadlineMilliseconds));
        later->wait();
        QCoreApplication::processEvents();
        return *result;
    }

    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(u"windows"_s);
    QList<ZLLaunchRequest> m_requests;
};

TEST_F(ZLRunningInstanceTest, NobodyTakesItWhereNothingRuns)
{
    const auto handedOver = handOver({ .files = { u"/shows/one.zelta"_s } });
    ASSERT_TRUE(handedOver);
    EXPECT_FALSE(handedOver.value().isTaken);
}

TEST_F(ZLRunningInstanceTest, TheRunningProcessTakesEveryFileInOrder)
{
    const auto instance = startInstance();
    const auto handedOver = handOver({ .files = { u"/shows/one.zelta"_s, u"/shows/zwölf \U0001F600.zelta"_s } });
    ASSERT_TRUE(handedOver);
    EXPECT_TRUE(handedOver.value().isTaken);
    EXPECT_EQ(handedOver.value().problems, QStringList());
    const QList<ZLLaunchRequest> expected { { .files = { u"/shows/one.zelta"_s } },
        { .files = { u"/shows/zwölf \U0001F600.zelta"_s } } };
    EXPECT_EQ(m_requests, expected);
}

TEST_F(ZLRunningInstanceTest, EveryFileThatCannotBeOpenedIsTold)
{
    const auto instance = startInstance();
    const auto handedOver =
        handOver({ .files = { u"/missing/one.zelta"_s, u"/shows/two.zelta"_s, u"/missing/three.zelta"_s } });
    ASSERT_TRUE(handedOver);
    EXPECT_TRUE(handedOver.value().isTaken);
    EXPECT_EQ(handedOver.value().problems,
        (QStringList { u"/missing/one.zelta: No such file"_s, u"/missing/three.zelta: No such file"_s }));
    EXPECT_EQ(m_requests.size(), 3) << "one that fails keeps no other one back";
}

TEST_F(ZLRunningInstanceTest, ANewDocumentIsAskedForBeforeTheFiles)
{
    const auto instance = startInstance();
    ASSERT_TRUE(handOver({ .files = { u"/one.zelta"_s }, .wantsNewDocument = true }));
    const QList<ZLLaunchRequest> expected { { .wantsNewDocument = true }, { .files = { u"/one.zelta"_s } } };
    EXPECT_EQ(m_requests, expected);
}

TEST_F(ZLRunningInstanceTest, AStartWithoutFilesIsToldToo)
{
    const auto instance = startInstance();
    ASSERT_TRUE(handOver({}));
    EXPECT_EQ(m_requests, QList<ZLLaunchRequest> { {} });
}

TEST_F(ZLRunningInstanceTest, TheLongestPathFits)
{
    const auto instance = startInstance();
    const QString path = u'/' + QString(4094, u'x');
    const auto handedOver = handOver({ .files = { path } });
    ASSERT_TRUE(handedOver) << handedOver.error().message.toStdString();
    ASSERT_EQ(m_requests.size(), 1);
    EXPECT_EQ(m_requests.first().files, QStringList { path });
}

TEST_F(ZLRunningInstanceTest, AnInstanceThatEndedIsNotAskedAnyMore)
{
    startInstance().reset();
    const auto handedOver = handOver({});
    ASSERT_TRUE(handedOver);
    EXPECT_FALSE(handedOver.value().isTaken);
}

TEST_F(ZLRunningInstanceTest, OneThatDoesNotAnswerIsSaid)
{
    // As a process that hangs before it listens.
    const auto lock = ZLFileLock::tryLock(ZLCommandSocket::lockPath(m_path));
    ASSERT_TRUE(lock && lock.value());
    EXPECT_FALSE(handOver({ .files = { u"/one.zelta"_s } }));
}

TEST_F(ZLRunningInstanceTest, WhatItDoesNotKnowIsNotTaken)
{
    const auto instance = startInstance();
    std::optional<ZLResult<QString>> answer;
    const std::unique_ptr<QThread> stranger(QThread::create(
        [&] { answer = ZLCommandSocket::send(ZLOSCMessage(u"/zelta/open"_s, { qint32(5) }), m_path); }));
    stranger->start();
    ASSERT_TRUE(QTest::qWaitFor([&] { return stranger->isFinished(); }, handoverDeadlineMilliseconds));
    EXPECT_FALSE(*answer);
    EXPECT_TRUE(m_requests.isEmpty());
}

TEST_F(ZLRunningInstanceTest, AStateFolderThatLiesDeepIsNoObstacle)
{
    m_path = m_folder.filePath(QString(200, u'd') + u"/windows"_s);
    const auto instance = startInstance();
    const auto handedOver = handOver({ .files = { u"/one.zelta"_s } });
    ASSERT_TRUE(handedOver) << qPrintable(handedOver.error().message);
    EXPECT_TRUE(handedOver.value().isTaken);
    EXPECT_EQ(handedOver.value().problems, QStringList());
    EXPECT_EQ(m_requests, QList<ZLLaunchRequest> { { .files = { u"/one.zelta"_s } } });
}
