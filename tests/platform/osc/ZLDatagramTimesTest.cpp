#include "platform/osc/ZLDatagramTimes.h"

#include "LoopbackPeer.h"
#include "ZLRecordedInput.h"

#include <atomic>

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

TEST(ZLDatagramTimes, WithoutADatagramThereIsNoTime)
{
    QUdpSocket socket;
    ASSERT_TRUE(socket.bind(QHostAddress::LocalHost, 0));
    ZLDatagramTimes::switchOn(int(socket.socketDescriptor()));
    EXPECT_FALSE(ZLDatagramTimes::ageOfNext(int(socket.socketDescriptor())));
    EXPECT_FALSE(ZLDatagramTimes::ageOfNext(-1));
}
