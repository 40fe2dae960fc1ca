#include "ZLRecordedInput.h"

#include "LoopbackPeer.h"

#include <QEventLoop>
#include <QMap>

using namespace Qt::StringLiterals;

namespace {

/// Read on the receiving thread, moved on the test's.
class FakeReceptionClock final : public ZLHostClock {
public:
    double now() const override { return m_time; }
    void advance(double seconds) { m_time = m_time + seconds; }

private:
    std::atomic<double> m_time = 100;
};

/// A computer on which something else always gets to run before the next look at the clock.
class BusyReceptionClock final : public ZLHostClock {
public:
    double now() const override { return m_time = m_time + 1.0; }

private:
    mutable std::atomic<double> m_time = 100;
};

}

TEST(ZLOSCInPortFlood, everyMessageArrivesHoweverBusyTheComputerIs)
{
    ZLOSCInPort port(
        u"Input"_s, nullptr, &ZLOSCConnectedNetworks::ofThisComputer, std::make_shared<BusyReceptionClock>());
    ASSERT_TRUE(port.bind(ZLOSCPortRange::exactly(0)).isOk());
    QStringList addresses;
    QObject::connect(&port, &ZLOSCInPort::messageReceived, &port,
        [&](const ZLOSCReceivedMessage& received) { addresses.append(received.message.address()); });
    LoopbackPeer peer;
    const QStringList sent { u"/one"_s, u"/two"_s, u"/three"_s };
    for (const QString& address : sent)
        ASSERT_TRUE(peer.send(encoded(address, { 1.0F }), port.port()));
    EXPECT_TRUE(waitUntil([&] { return addresses.size() == sent.size(); }));
    EXPECT_EQ(addresses, sent);
}

TEST(ZLOSCInPortFlood, aFloodOfDroppedDatagramsGivesAFewSamplesOfEachReasonEverySecond)
{
    const auto clock = std::make_shared<FakeReceptionClock>();
    ZLOSCInPort port(u"Input"_s, nullptr, &ZLOSCConnectedNetworks::ofThisComputer, clock);
    port.setFilter([](const ZLOSCMessage& message) { return message.floatValue() > 0; });
    ASSERT_TRUE(port.bind(ZLOSCPortRange::exactly(0)).isOk());
    QMap<ZLOSCDropReason, int> samples;
    QObject::connect(&port, &ZLOSCInPort::datagramDropped, &port,
        [&](const ZLOSCDroppedDatagram& dropped) { ++samples[dropped.reason]; });
    LoopbackPeer peer;
    quint64 sent = 0;
    const auto flood = [&](const QByteArray& datagram) {
        for (int number = 0; number < 100; ++number) {
            ASSERT_TRUE(peer.send(datagram, port.port()));
            ASSERT_TRUE(waitUntil([&] { return port.counters().received == sent + 1; }));
            ++sent;
        }
    };
    flood("garbage");
    flood(encoded(u"/zl/a"_s, { 0.0F }));
    ASSERT_TRUE(waitUntil([&] { return samples.value(ZLOSCDropReason::Filtered) == 20; }));
    EXPECT_EQ(samples.value(ZLOSCDropReason::Malformed), 20);
    clock->advance(1);
    flood("garbage");
    ASSERT_TRUE(waitUntil([&] { return samples.value(ZLOSCDropReason::Malformed) == 30; }));
    // What comes after shows that nothing more was under way.
    clock->advance(1);
    ASSERT_TRUE(peer.send(encoded(u"/zl/a"_s, { 0.0F }), port.port()));
    ASSERT_TRUE(waitUntil([&] { return samples.value(ZLOSCDropReason::Filtered) == 21; }));
    EXPECT_EQ(samples.value(ZLOSCDropReason::Malformed), 30);
}

TEST(ZLOSCInPortFlood, aFloodIsBoundedAndTheHonestPressAfterItArrives)
{
    constexpr int floodSize = 50000;
    constexpr quint64 mostUnread = 60;
    ZLRecordedInput input;
    LoopbackPeer peer;
    quint64 valid = 0;
    for (int number = 0; number < floodSize; ++number) {
        const bool isValid = number % 2 == 0;
        valid += isValid ? 1 : 0;
        ASSERT_TRUE(
            peer.send(isValid ? encoded(u"/zl/flood"_s, { qint32(number) }) : garbage(number / 2), input.port.port()));
        // Loopback loses datagrams only when too many of them are unread, so each of them is seen.
        ASSERT_TRUE(waitWithoutEvents([&] { return input.port.counters().received + mostUnread > quint64(number); }));
    }
    ASSERT_TRUE(peer.send(encoded(u"/zl/honest"_s, { 1.0F }), input.port.port()));
    ASSERT_TRUE(waitWithoutEvents([&] { return input.port.counters().received == floodSize + 1; }));
    ASSERT_TRUE(waitWithoutEvents([&] { return input.port.counters().accepted == valid + 1; }));
    EXPECT_TRUE(input.messages.isEmpty()) << "nothing may be handled before the main thread is free";

    ASSERT_TRUE(waitUntil([&] { return input.addresses().contains(u"/zl/honest"_s); }));
    EXPECT_EQ(input.addresses().last(), u"/zl/honest"_s);
    EXPECT_EQ(input.messages.size(), ZLOSCReception::mostMessages);
    EXPECT_EQ(input.port.longestQueue(), ZLOSCReception::mostMessages);
    const ZLOSCInPortCounters counters = input.port.counters();
    EXPECT_EQ(counters.malformed, floodSize - valid);
    EXPECT_EQ(counters.accepted, valid + 1);
    EXPECT_EQ(counters.overflow, valid + 1 - quint64(ZLOSCReception::mostMessages));
    EXPECT_LE(input.dropped.size(), ZLOSCReception::mostSamples);
}

TEST(ZLOSCInPortFlood, theMainThreadHandlesOtherEventsBetweenMessages)
{
    ZLRecordedInput input;
    LoopbackPeer peer;
    for (int number = 0; number < 200; ++number) {
        ASSERT_TRUE(peer.send(encoded(u"/a"_s, { 1.0F }), input.port.port()));
        ASSERT_TRUE(waitWithoutEvents([&] { return input.port.counters().accepted == quint64(number) + 1; }));
    }
    qsizetype mostBetweenTwoEvents = 0;
    qsizetype handledBefore = 0;
    QTimer otherWork;
    QObject::connect(&otherWork, &QTimer::timeout, &otherWork, [&] {
        mostBetweenTwoEvents = qMax(mostBetweenTwoEvents, input.messages.size() - handledBefore);
        handledBefore = input.messages.size();
    });
    otherWork.start(0);
    ASSERT_TRUE(waitUntil([&] { return input.messages.size() == 200; }));
    ASSERT_TRUE(waitUntil([&] { return handledBefore == 200; }));
    EXPECT_LE(mostBetweenTwoEvents, 64);
}

TEST(ZLOSCInPortFlood, largeMessagesAreBoundedByTheirSize)
{
    ZLRecordedInput input;
    LoopbackPeer peer;
    for (int number = 0; number < 100; ++number) {
        ASSERT_TRUE(peer.send(encoded(u"/large"_s, { QString(60000, u'x') }), input.port.port()));
        ASSERT_TRUE(waitWithoutEvents([&] { return input.port.counters().accepted == quint64(number) + 1; }));
    }
    EXPECT_LE(input.port.longestQueue(), ZLOSCReception::mostMessageBytes / 60000);
    EXPECT_GE(input.port.longestQueue(), 10);
}

TEST(ZLOSCInPortFlood, messagesGoOnWhileOneOfThemHoldsAnEventLoopOfItsOwn)
{
    ZLRecordedInput input;
    LoopbackPeer peer;
    QEventLoop dialog;
    QObject::connect(&input.port, &ZLOSCInPort::messageReceived, &dialog, [&](const ZLOSCReceivedMessage& received) {
        if (received.message.address() == u"/open"_s)
            dialog.exec();
        else if (received.message.address() == u"/close"_s)
            dialog.quit();
    });
    ASSERT_TRUE(peer.send(encoded(u"/open"_s), input.port.port()));
    ASSERT_TRUE(peer.send(encoded(u"/between"_s), input.port.port()));
    ASSERT_TRUE(peer.send(encoded(u"/close"_s), input.port.port()));
    ASSERT_TRUE(waitUntil([&] { return input.messages.size() == 3 && !dialog.isRunning(); }));
    EXPECT_EQ(input.addresses(), QStringList({ u"/open"_s, u"/between"_s, u"/close"_s }));
}

TEST(ZLOSCInPortFlood, anInputMayGoWhileMessagesPourIn)
{
    LoopbackPeer peer;
    for (int round = 0; round < 20; ++round) {
        auto port = std::make_unique<ZLOSCInPort>(u"Input"_s);
        ASSERT_TRUE(port->bind(ZLOSCPortRange::exactly(0)).isOk());
        for (int number = 0; number < 50; ++number)
            ASSERT_TRUE(peer.send(encoded(u"/a"_s), port->port()));
        if (round % 2 == 0) {
            QObject::connect(port.get(), &ZLOSCInPort::messageReceived, qApp, [&] { port.reset(); });
            ASSERT_TRUE(waitUntil([&] { return !port; }));
        }
    }
}
