#include "platform/osc/ZLDatagramTimes.h"

#include "LoopbackPeer.h"
#include "ZLRecordedInput.h"

#include <algorithm>
#include <atomic>
#include <memory>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// The wall clock, by which the kernel stamps, and the host clock are not read at the very same moment.
constexpr double readingTolerance = 0.001;
constexpr unsigned long delayMilliseconds = 30;

/// Between which moments a datagram was sent. Over loopback it is received then.
struct SendingTime {
    double begin = 0.0;
    double end = 0.0;
};

/// Shows the receiving thread, from begin() on, one reading after the other and then the last one, as when it is held
/// up in between.
class HeldUpClock final : public ZLHostClock {
public:
    explicit HeldUpClock(std::vector<double> readings)
        : m_readings(std::move(readings))
    {
    }
    void begin() { m_hasBegun = true; }
    double now() const override
    {
        if (!m_hasBegun || QThread::currentThread() == m_ownThread)
            return m_readings.front();
        return m_readings.at(std::min(m_next++, m_readings.size() - 1));
    }

private:
    const std::vector<double> m_readings;
    const QThread* const m_ownThread = QThread::currentThread();
    std::atomic<bool> m_hasBegun = false;
    mutable std::atomic<std::size_t> m_next = 0;
};

/// The times of messages that all wait when the input begins to look.
std::vector<double> timesByClock(std::vector<double> readings, int count)
{
    const auto clock = std::make_shared<HeldUpClock>(std::move(readings));
    std::atomic<bool> isHeld = false;
    std::atomic<bool> mayGoOn = false;
    ZLOSCInPort port(u"Input"_s, nullptr, &ZLOSCConnectedNetworks::ofThisComputer, clock);
    EXPECT_TRUE(port.bind(ZLOSCPortRange::exactly(0)).isOk());
    port.setFilter([&](const ZLOSCMessage& message) {
        isHeld = true;
        return message.address() != "/hold"_L1 || waitWithoutEvents([&] { return mayGoOn.load(); });
    });
    std::vector<double> times;
    QObject::connect(&port, &ZLOSCInPort::messageReceived, &port, [&](const ZLOSCReceivedMessage& received) {
        if (received.message.address() != "/hold"_L1)
            times.push_back(received.stamp->hostTime());
    });
    LoopbackPeer peer;
    EXPECT_TRUE(peer.send(encoded(u"/hold"_s, { 1.0F }), port.port()));
    for (int number = 0; number < count; ++number)
        EXPECT_TRUE(peer.send(encoded(u"/zl/newChapter"_s, { 1.0F }), port.port()));
    EXPECT_TRUE(waitWithoutEvents([&] { return isHeld.load(); }));
    clock->begin();
    mayGoOn = true;
    EXPECT_TRUE(waitUntil([&] { return times.size() == std::size_t(count); }));
    return times;
}

SendingTime sendTimed(LoopbackPeer& peer, const QByteArray& datagram, quint16 port)
{
    const ZLSteadyHostClock clock;
    SendingTime time { .begin = clock.now() };
    EXPECT_TRUE(peer.send(datagram, port));
    time.end = clock.now();
    return time;
}

void expectStamp(const ZLOSCReceivedMessage& received, const SendingTime& sent)
{
    ASSERT_TRUE(received.stamp);
    EXPECT_GE(received.stamp->hostTime(), sent.begin - readingTolerance);
    EXPECT_LE(received.stamp->hostTime(), sent.end + readingTolerance);
}

}

TEST(ZLDatagramTimes, AMessageHasTheTimeOfItsReceptionHoweverBusyTheMainThreadIs)
{
    ZLRecordedInput input;
    LoopbackPeer peer;
    const SendingTime sent = sendTimed(peer, encoded(u"/zl/newChapter"_s, { 1.0F }), input.port.port());
    ASSERT_TRUE(waitWithoutEvents([&] { return input.port.counters().accepted == 1; }));
    QThread::msleep(delayMilliseconds);
    ASSERT_TRUE(waitUntil([&] { return input.messages.size() == 1; }));
    expectStamp(input.messages.first(), sent);
}

TEST(ZLDatagramTimes, ItIsTheTimeOfTheKernelHoweverLateTheReceivingThreadReads)
{
    ZLRecordedInput input;
    LoopbackPeer peer;
    std::atomic<bool> isHeld = false;
    std::atomic<bool> mayGoOn = false;
    input.port.setFilter([&](const ZLOSCMessage& message) {
        if (message.address() == "/hold"_L1) {
            isHeld = true;
            waitWithoutEvents([&] { return mayGoOn.load(); });
        }
        return true;
    });
    ASSERT_TRUE(peer.send(encoded(u"/hold"_s, { 1.0F }), input.port.port()));
    ASSERT_TRUE(waitWithoutEvents([&] { return isHeld.load(); }));
    const SendingTime first = sendTimed(peer, encoded(u"/first"_s, { 1.0F }), input.port.port());
    QThread::msleep(delayMilliseconds);
    const SendingTime second = sendTimed(peer, encoded(u"/second"_s, { 1.0F }), input.port.port());
    QThread::msleep(delayMilliseconds);
    mayGoOn = true;
    ASSERT_TRUE(waitUntil([&] { return input.messages.size() == 3; }));
    expectStamp(input.messages.at(1), first);
    expectStamp(input.messages.at(2), second);
}

TEST(ZLDatagramTimes, AllMessagesOfABundleHaveTheTimeOfTheirDatagramAndNotThatOfTheBundle)
{
    ZLRecordedInput input;
    LoopbackPeer peer;
    const QByteArray message = encoded(u"/zl/newChapter"_s, { 1.0F });
    const QByteArray size("\0\0\0", 3);
    const QByteArray element = size + char(message.size()) + message;
    const QByteArray tomorrow("\xff\xff\xff\xff\0\0\0\0", 8);
    const QByteArray bundle = QByteArray("#bundle\0", 8) + tomorrow + element + element;
    const SendingTime sent = sendTimed(peer, bundle, input.port.port());
    ASSERT_TRUE(waitUntil([&] { return input.messages.size() == 2; }));
    expectStamp(input.messages.at(0), sent);
    EXPECT_EQ(input.messages.at(0).stamp, input.messages.at(1).stamp);
}

TEST(ZLDatagramTimes, WhoIsHeldUpWhileTheClocksAreReadReadsThemOnceMore)
{
    const auto times = timesByClock({ 100.0, 101.0 }, 1);
    EXPECT_LE(times.at(0), 101.0);
    EXPECT_GT(times.at(0), 100.5) << "the age was measured when the clock was read last";
}

TEST(ZLDatagramTimes, WithoutADatagramThereIsNoTime)
{
    QUdpSocket socket;
    ASSERT_TRUE(socket.bind(QHostAddress::LocalHost, 0));
    ZLDatagramTimes::switchOn(int(socket.socketDescriptor()));
    EXPECT_FALSE(ZLDatagramTimes::ageOfNext(int(socket.socketDescriptor())));
    EXPECT_FALSE(ZLDatagramTimes::ageOfNext(-1));
}
