#include "ZLRecordedInput.h"

#include "LoopbackPeer.h"

using namespace Qt::StringLiterals;

namespace {

class ZLOSCNewestMessagesTest : public testing::Test {
protected:
    ZLOSCNewestMessagesTest()
    {
        m_input.port.setFilter([](const ZLOSCMessage& message) { return message.address().startsWith(u"/zl/"); });
        m_input.port.setNewestOnly([](const ZLOSCMessage& message) { return message.address() == u"/time"; });
        QObject::connect(&m_input.port, &ZLOSCInPort::newestReceived, &m_input.port,
            [this](const ZLOSCTimedMessage& timed) { m_newest.append(timed); });
    }

    ZLRecordedInput m_input;
    QList<ZLOSCTimedMessage> m_newest;
    LoopbackPeer m_peer;
};

TEST_F(ZLOSCNewestMessagesTest, AFloodOfTimesPushesNoCommandOut)
{
    constexpr int flood = 2000;
    ASSERT_TRUE(m_peer.send(encoded(u"/zl/newChapter"_s, { 1.0F }), m_input.port.port()));
    for (int count = 1; count <= flood; ++count) {
        ASSERT_TRUE(m_peer.send(encoded(u"/time"_s, { float(count) }), m_input.port.port()));
        // The kernel's buffer is not the point here.
        ASSERT_TRUE(waitWithoutEvents([&] { return m_input.port.counters().received == quint64(count) + 1; }));
    }
    EXPECT_TRUE(waitUntil([this] { return !m_newest.isEmpty() && !m_input.messages.isEmpty(); }));
    EXPECT_EQ(m_input.addresses(), QStringList { u"/zl/newChapter"_s });
    ASSERT_EQ(m_newest.size(), 1) << "only the newest one waits";
    EXPECT_EQ(m_newest.first().message.floatValue(), flood);
    EXPECT_TRUE(m_input.dropped.isEmpty()) << "none of them is in the list of messages";
}

TEST_F(ZLOSCNewestMessagesTest, EachCarriesTheMomentOfItsArrival)
{
    const ZLSteadyHostClock clock;
    const double before = clock.now();
    ASSERT_TRUE(m_peer.send(encoded(u"/time"_s, { 1.0F }), m_input.port.port()));
    ASSERT_TRUE(waitWithoutEvents([&] { return m_input.port.counters().accepted == 1; }));
    const double after = clock.now();
    QThread::msleep(50);
    EXPECT_TRUE(waitUntil([this] { return !m_newest.isEmpty(); }));
    EXPECT_GE(m_newest.first().hostTime, before);
    EXPECT_LE(m_newest.first().hostTime, after) << "however late the main thread comes to it";
}

TEST_F(ZLOSCNewestMessagesTest, SomebodyWhoMayNotSpeakIsNotHeard)
{
    m_input.port.setAccessPolicy(
        ZLOSCAccessPolicy(ZLOSCAccessPolicy::Mode::OnlyTheseAddresses, { *ZLOSCNetwork::fromText(u"192.0.2.1"_s) }));
    ASSERT_TRUE(m_peer.send(encoded(u"/time"_s, { 1.0F }), m_input.port.port()));
    EXPECT_TRUE(waitUntil([this] { return m_input.port.counters().refusedSender == 1; }));
    EXPECT_EQ(m_input.port.counters().accepted, 0);
}

TEST(ZLOSCNewestMessages, ThereAreOnlySoManyAddresses)
{
    ZLOSCNewestMessages newest;
    for (int count = 0; count < 100; ++count)
        newest.put({ ZLOSCMessage(u"/time/%1"_s.arg(count)), double(count) });
    newest.put({ ZLOSCMessage(u"/time/0"_s), 1000.0 });
    const QList<ZLOSCTimedMessage> all = newest.takeAll();
    ASSERT_EQ(all.size(), ZLOSCNewestMessages::MostAddresses);
    EXPECT_EQ(all.last().hostTime, 1000.0) << "one that waits already is renewed, and comes last";
    EXPECT_TRUE(newest.takeAll().isEmpty());
}

}
