#include "recorder/osctime/ZLOSCTimeRecorder.h"

#include "platform/osc/ZLOSCManager.h"
#include "support/ZLFakeHostClock.h"

#include <QSignalSpy>
#include <QTest>
#include <QUdpSocket>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int hangLimitMilliseconds = 60000;

class ZLOSCTimeRecorderTest : public testing::Test {
protected:
    void receive(const QString& address, float value)
    {
        m_recorder.receive({ ZLOSCMessage(address, { value }), m_clock->now() });
    }

    std::shared_ptr<ZLFakeHostClock> m_clock = std::make_shared<ZLFakeHostClock>();
    ZLOSCManager m_manager { u"Test"_s };
    ZLOSCTimeRecorder m_recorder { m_manager, ZLOSCTimeAddresses::reaper(), m_clock };
    QSignalSpy m_reports { &m_recorder, &ZLRecorder::didReport };
    QSignalSpy m_connections { &m_recorder, &ZLRecorder::connectionDidChange };
};

TEST_F(ZLOSCTimeRecorderTest, ItIsConnectedFromItsFirstMessageOn)
{
    m_recorder.open();
    EXPECT_EQ(m_connections.takeFirst().first().value<ZLRecorderConnection>(), ZLRecorderConnection::Connecting);
    receive(u"/time"_s, 0.0F);
    EXPECT_EQ(m_connections.takeFirst().first().value<ZLRecorderConnection>(), ZLRecorderConnection::Connected);
    m_recorder.close();
    EXPECT_EQ(m_connections.takeFirst().first().value<ZLRecorderConnection>(), ZLRecorderConnection::Off);
}

TEST_F(ZLOSCTimeRecorderTest, ItIsGoneWhenNoTimeComesWhileItRecords)
{
    m_recorder.open();
    receive(u"/record"_s, 1.0F);
    receive(u"/time"_s, 0.1F);
    ASSERT_EQ(m_reports.size(), 1);
    m_connections.clear();
    m_clock->advance(ZLOSCTimeRecorder::LongestSilence + 0.1);
    ASSERT_TRUE(m_connections.wait(hangLimitMilliseconds));
    EXPECT_EQ(m_connections.first().first().value<ZLRecorderConnection>(), ZLRecorderConnection::Connecting);
    EXPECT_FALSE(m_connections.first().last().toString().isEmpty());
    receive(u"/time"_s, 3.0F);
    EXPECT_EQ(m_connections.last().first().value<ZLRecorderConnection>(), ZLRecorderConnection::Connected);
}

TEST_F(ZLOSCTimeRecorderTest, AMessageWithoutANumberIsNone)
{
    m_recorder.open();
    receive(u"/record"_s, 1.0F);
    receive(u"/time"_s, 0.1F);
    for (const ZLOSCArgument& argument : { ZLOSCArgument(QByteArray("blob")), ZLOSCArgument(ZLOSCNil()),
             ZLOSCArgument(u"stop"_s), ZLOSCArgument(ZLOSCTimeTag()) })
        m_recorder.receive({ ZLOSCMessage(u"/record"_s, { argument }), m_clock->now() });
    m_recorder.receive({ ZLOSCMessage(u"/record"_s), m_clock->now() });
    EXPECT_EQ(m_reports.size(), 1);
    m_recorder.receive({ ZLOSCMessage(u"/record"_s, { u"0"_s }), m_clock->now() });
    EXPECT_EQ(m_reports.size(), 2);
}

TEST_F(ZLOSCTimeRecorderTest, ItHearsTheTimeAtTheOSCPortWhileItIsOpen)
{
    m_manager.setPortRange(ZLOSCPortRange::exactly(0));
    m_manager.setFilter([](const ZLOSCMessage&) { return false; });
    const ZLOSCInPort* port = m_manager.createNewInput();
    QUdpSocket peer;
    const auto send = [&] {
        const QByteArray time("/time\0\0\0,f\0\0\x42\x28\0\0", 16);
        return peer.writeDatagram(time, QHostAddress::LocalHost, port->port()) == time.size();
    };
    m_recorder.open();
    ASSERT_TRUE(send());
    ASSERT_TRUE(m_reports.wait(hangLimitMilliseconds));
    EXPECT_EQ(m_reports.first().first().value<ZLRecorderReport>().state, ZLRecorderState::Standing);
    m_recorder.close();
    ASSERT_TRUE(send());
    ASSERT_TRUE(QTest::qWaitFor([&] { return port->counters().filtered == 1; }, hangLimitMilliseconds));
    EXPECT_EQ(m_reports.size(), 1);
}

}
