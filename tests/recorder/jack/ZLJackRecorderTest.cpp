#include "recorder/jack/ZLJackRecorder.h"
#include "recorder/jack/ZLPrivateJackServer.h"

#include <gtest/gtest.h>

#include <QTest>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int jackPatience = 20000;

class ZLJackRecorderTest : public testing::Test {
protected:
    ZLJackRecorderTest()
    {
        QObject::connect(&recorder, &ZLRecorder::didReport, &recorder,
            [this](const ZLRecorderReport& report) { reports.append(report); });
        QObject::connect(&recorder, &ZLRecorder::connectionDidChange, &recorder,
            [this](ZLRecorderConnection connection, const QString& reason) {
                connections.append(connection);
                reasons.append(reason);
            });
    }

    [[nodiscard]] bool comesTo(ZLRecorderConnection connection)
    {
        return QTest::qWaitFor(
            [&] { return !connections.isEmpty() && connections.last() == connection; }, jackPatience);
    }
    [[nodiscard]] bool comesTo(ZLRecorderState state)
    {
        return QTest::qWaitFor([&] { return !reports.isEmpty() && reports.last().state == state; }, jackPatience);
    }
    [[nodiscard]] bool comesTo(const QString& reason)
    {
        return QTest::qWaitFor([&] { return reasons.contains(reason); }, jackPatience);
    }

    const ZLSteadyHostClock clock;
    /// Before the recorder, which leaves it.
    ZLPrivateJackServer server;
    ZLJackRecorder recorder { clock };
    QList<ZLRecorderReport> reports;
    QList<ZLRecorderConnection> connections;
    QStringList reasons;
};

TEST_F(ZLJackRecorderTest, WithoutAServerItLooksForOneAndStartsNone)
{
    recorder.open();
    EXPECT_EQ(connections.last(), ZLRecorderConnection::Connecting);
    EXPECT_TRUE(comesTo(u"No JACK server is running."_s));
    EXPECT_FALSE(recorder.canBeStarted());
    ASSERT_TRUE(server.start());
    EXPECT_TRUE(comesTo(ZLRecorderConnection::Connected));
}

TEST_F(ZLJackRecorderTest, FollowsTheTransport)
{
    ASSERT_TRUE(server.start());
    recorder.open();
    ASSERT_TRUE(comesTo(ZLRecorderState::Standing));
    ASSERT_TRUE(recorder.canBeStarted());
    recorder.startRecording();
    ASSERT_TRUE(comesTo(ZLRecorderState::Recording));
    ASSERT_TRUE(QTest::qWaitFor([this] { return reports.last().position > 1.0; }, jackPatience));
    // The moments are near those at which the reports came.
    EXPECT_NEAR(reports.last().hostTime, clock.now(), 0.5);
    recorder.stopRecording();
    ASSERT_TRUE(comesTo(ZLRecorderState::Paused));
    EXPECT_GT(reports.last().position, 1.0);
}

TEST_F(ZLJackRecorderTest, TheServerGoesAndComesBack)
{
    ASSERT_TRUE(server.start());
    recorder.open();
    ASSERT_TRUE(comesTo(ZLRecorderConnection::Connected));
    server.kill();
    EXPECT_TRUE(comesTo(u"The JACK server has gone."_s));
    EXPECT_EQ(connections.last(), ZLRecorderConnection::Connecting);
    ASSERT_TRUE(server.start());
    EXPECT_TRUE(comesTo(ZLRecorderConnection::Connected));
    EXPECT_TRUE(comesTo(ZLRecorderState::Standing));
}

TEST_F(ZLJackRecorderTest, ClosedItIsSilent)
{
    ASSERT_TRUE(server.start());
    recorder.open();
    ASSERT_TRUE(comesTo(ZLRecorderState::Standing));
    recorder.close();
    EXPECT_EQ(connections.last(), ZLRecorderConnection::Off);
    reports.clear();
    EXPECT_FALSE(QTest::qWaitFor([this] { return !reports.isEmpty(); }, 300));
}

}
