#include "platform/osc/ZLOSCInPort.h"

#include "LoopbackPeer.h"

#include <QEventLoop>
#include <QMap>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using Mode = ZLOSCAccessPolicy::Mode;

/// An input on a port that the system chose, and what it reported.
class Input {
public:
    Input()
    {
        EXPECT_TRUE(port.bind(ZLOSCPortRange::exactly(0)).isOk());
        QObject::connect(&port, &ZLOSCInPort::messageReceived, &port,
            [this](const ZLOSCReceivedMessage& received) { messages.append(received); });
        QObject::connect(&port, &ZLOSCInPort::datagramDropped, &port,
            [this](const ZLOSCDroppedDatagram& sample) { dropped.append(sample); });
    }

    QStringList addresses() const
    {
        QStringList result;
        for (const ZLOSCReceivedMessage& received : messages)
            result.append(received.message.address());
        return result;
    }

    ZLOSCInPort port { u"Input"_s };
    QList<ZLOSCReceivedMessage> messages;
    QList<ZLOSCDroppedDatagram> dropped;
};

/// Three ports in a row that nobody uses, of which the first ones are then taken.
class TakenPorts {
public:
    explicit TakenPorts(int taken)
    {
        for (int attempt = 0; attempt < 200 && m_first == 0; ++attempt)
            tryToTake(taken, quint16(20000 + attempt * 7));
    }

    quint16 first() const { return m_first; }
    ZLOSCPortRange range() const { return { m_first, quint16(m_first + 2) }; }
    void release(int index) { m_sockets[size_t(index)]->close(); }

private:
    void tryToTake(int taken, quint16 candidate)
    {
        m_sockets.clear();
        for (int index = 0; index < 3; ++index) {
            m_sockets.push_back(std::make_unique<QUdpSocket>());
            if (!m_sockets.back()->bind(QHostAddress::Any, quint16(candidate + index)))
                return;
        }
        for (int index = taken; index < 3; ++index)
            release(index);
        m_first = candidate;
    }

    quint16 m_first = 0;
    std::vector<std::unique_ptr<QUdpSocket>> m_sockets;
};

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

QByteArray garbage(int number)
{
    switch (number % 4) {
    case 0:
        return {};
    case 1:
        return "garbage that is no message";
    case 2:
        return QByteArray("#bundle\0\0\0\0\0\0\0\0\1\x7f\xff\xff\xfc", 20);
    default:
        return encoded(u"/zl/flood"_s, { 1.0F }).chopped(1 + number % 3);
    }
}

}

TEST(ZLOSCInPort, aMessageArrivesOnTheMainThreadWithItsSender)
{
    Input input;
    LoopbackPeer peer;
    ASSERT_TRUE(peer.send(encoded(u"/zl/newChapter"_s, { 1.0F }), input.port.port()));
    ASSERT_TRUE(waitUntil([&] { return input.messages.size() == 1; }));
    EXPECT_EQ(input.messages.first().message, ZLOSCMessage(u"/zl/newChapter"_s, { 1.0F }));
    EXPECT_EQ(input.messages.first().peer, (ZLOSCPeer { QHostAddress(QHostAddress::LocalHost), peer.port() }));
    EXPECT_EQ(input.messages.first().peer.text(), u"127.0.0.1:%1"_s.arg(peer.port()));
    EXPECT_GT(input.messages.first().receivedAt, 0);
}

TEST(ZLOSCInPort, everyMessageArrivesHoweverBusyTheComputerIs)
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

TEST(ZLOSCInPort, IPv6ArrivesWhereTheComputerHasIt)
{
    Input input;
    LoopbackPeer peer { QHostAddress(QHostAddress::LocalHostIPv6) };
    EXPECT_NE(input.port.port(), 0);
    if (peer.isBound()) {
        ASSERT_TRUE(peer.send(encoded(u"/six"_s), input.port.port()));
        ASSERT_TRUE(waitUntil([&] { return input.messages.size() == 1; }));
        EXPECT_EQ(input.messages.first().peer.text(), u"[::1]:%1"_s.arg(peer.port()));
    }
}

TEST(ZLOSCInPort, aBundleArrivesAsItsMessages)
{
    Input input;
    LoopbackPeer peer;
    const QList<ZLOSCMessage> messages { ZLOSCMessage(u"/1"_s), ZLOSCMessage(u"/2"_s), ZLOSCMessage(u"/3"_s) };
    ASSERT_TRUE(peer.send(ZLOSCCodec::encodeBundle(messages).value(), input.port.port()));
    ASSERT_TRUE(waitUntil([&] { return input.messages.size() == 3; }));
    EXPECT_EQ(input.addresses(), QStringList({ u"/1"_s, u"/2"_s, u"/3"_s }));
}

TEST(ZLOSCInPort, theFilterRunsOnTheReceivingThreadAndDecides)
{
    Input input;
    std::atomic<bool> ranOnTheMainThread = false;
    input.port.setFilter([&, mainThread = QThread::currentThread()](const ZLOSCMessage& message) {
        if (QThread::currentThread() == mainThread)
            ranOnTheMainThread = true;
        return message.floatValue() > 0;
    });
    LoopbackPeer peer;
    for (const float value : { 0.0F, 1.0F, -1.0F, 2.0F })
        ASSERT_TRUE(peer.send(encoded(u"/zl/a"_s, { value }), input.port.port()));
    ASSERT_TRUE(waitUntil([&] { return input.messages.size() == 2 && input.dropped.size() == 2; }));
    EXPECT_FALSE(ranOnTheMainThread);
    EXPECT_EQ(input.messages.last().message.floatValue(), 2.0);
    EXPECT_EQ(input.dropped.first().reason, ZLOSCDropReason::Filtered);
    EXPECT_EQ(input.dropped.first().address, u"/zl/a"_s);
    EXPECT_EQ(input.dropped.first().detail, u"/zl/a 0"_s);
    EXPECT_EQ(input.port.counters(), (ZLOSCInPortCounters { 4, 0, 0, 2, 2, 0 }));
}

TEST(ZLOSCInPort, malformedDatagramsOfAnyKindAreDroppedAndCounted)
{
    Input input;
    LoopbackPeer peer;
    for (int number = 0; number < 8; ++number)
        ASSERT_TRUE(peer.send(garbage(number), input.port.port()));
    ASSERT_TRUE(peer.send(encoded(u"/after"_s), input.port.port()));
    ASSERT_TRUE(waitUntil([&] { return !input.messages.isEmpty() && input.dropped.size() == 8; }));
    EXPECT_EQ(input.addresses(), QStringList({ u"/after"_s }));
    EXPECT_EQ(input.port.counters(), (ZLOSCInPortCounters { 9, 0, 8, 0, 1, 0 }));
    EXPECT_EQ(input.dropped.first().reason, ZLOSCDropReason::Malformed);
    EXPECT_FALSE(input.dropped.first().detail.isEmpty());
    EXPECT_EQ(input.dropped.first().peer.port, peer.port());
}

TEST(ZLOSCInPort, whoMayNotSpeakIsNotEvenRead)
{
    Input input;
    LoopbackPeer peer;
    bool filterRan = false;
    input.port.setFilter([&](const ZLOSCMessage&) { return filterRan = true; });
    input.port.setAccessPolicy(
        ZLOSCAccessPolicy(Mode::OnlyTheseAddresses, { ZLOSCNetwork::fromText(u"203.0.113.5").value() }));
    ASSERT_TRUE(peer.send(encoded(u"/zl/a"_s, { 1.0F }), input.port.port()));
    ASSERT_TRUE(peer.send("garbage", input.port.port()));
    ASSERT_TRUE(waitUntil([&] { return input.dropped.size() == 2; }));
    EXPECT_EQ(input.port.counters(), (ZLOSCInPortCounters { 2, 2, 0, 0, 0, 0 }));
    EXPECT_FALSE(filterRan);
    EXPECT_EQ(input.dropped.first().reason, ZLOSCDropReason::RefusedSender);
    EXPECT_EQ(input.dropped.first().address, QString());

    input.port.setAccessPolicy(
        ZLOSCAccessPolicy(Mode::OnlyTheseAddresses, { ZLOSCNetwork::fromText(u"127.0.0.1").value() }));
    ASSERT_TRUE(peer.send(encoded(u"/zl/b"_s, { 1.0F }), input.port.port()));
    ASSERT_TRUE(waitUntil([&] { return !input.messages.isEmpty(); }));
    EXPECT_EQ(input.addresses(), QStringList({ u"/zl/b"_s }));
}

TEST(ZLOSCInPort, aFloodOfDroppedDatagramsGivesAFewSamplesOfEachReasonEverySecond)
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

TEST(ZLOSCInPort, theConnectedNetworksAreAskedForBeforeASenderIsRefused)
{
    for (const bool hasLoopbackOnly : { true, false }) {
        const QList<ZLOSCNetwork> networks =
            hasLoopbackOnly ? QList<ZLOSCNetwork>() : ZLOSCConnectedNetworks::ofThisComputer();
        int asked = 0;
        ZLOSCInPort port(u"Input"_s, nullptr, [&] { return ++asked, networks; });
        ASSERT_TRUE(port.bind(ZLOSCPortRange::exactly(0)).isOk());
        LoopbackPeer peer;
        ASSERT_TRUE(peer.send(encoded(u"/a"_s), port.port()));
        ASSERT_TRUE(waitUntil([&] { return port.counters().received == 1 && port.counters().accepted == 1; }));
        EXPECT_EQ(asked, 1);
    }
}

TEST(ZLOSCInPort, theNextFreePortIsUsedWhenTheFirstOnesAreTaken)
{
    const TakenPorts taken(2);
    ASSERT_NE(taken.first(), 0);
    ZLOSCInPort port(u"Input"_s);
    ASSERT_TRUE(port.bind(taken.range()).isOk());
    EXPECT_EQ(port.port(), taken.first() + 2);
    EXPECT_EQ(port.failure(), QString());
}

TEST(ZLOSCInPort, withoutAFreePortThereIsAReasonAndLaterAPort)
{
    TakenPorts taken(3);
    ASSERT_NE(taken.first(), 0);
    ZLOSCInPort port(u"Input"_s);
    int changes = 0;
    QObject::connect(&port, &ZLOSCInPort::portDidChange, &port, [&] { ++changes; });
    EXPECT_FALSE(port.bind(taken.range()).isOk());
    EXPECT_EQ(port.port(), 0);
    EXPECT_TRUE(port.failure().contains(QString::number(taken.first())));
    EXPECT_EQ(changes, 1);

    taken.release(1);
    ASSERT_TRUE(port.bind(taken.range()).isOk());
    EXPECT_EQ(port.port(), taken.first() + 1);
    EXPECT_EQ(port.failure(), QString());
    EXPECT_EQ(changes, 2);
}

TEST(ZLOSCInPort, twoInputsNeverShareAPort)
{
    const TakenPorts free(0);
    ASSERT_NE(free.first(), 0);
    ZLOSCInPort first(u"A"_s);
    ZLOSCInPort second(u"B"_s);
    ASSERT_TRUE(first.bind(free.range()).isOk());
    ASSERT_TRUE(second.bind(free.range()).isOk());
    EXPECT_EQ(first.port(), free.first());
    EXPECT_EQ(second.port(), free.first() + 1);
    ASSERT_TRUE(first.bind(ZLOSCPortRange::exactly(first.port())).isOk());
    EXPECT_EQ(first.port(), free.first());
}

TEST(ZLOSCInPort, afterMovingOnlyTheNewPortListens)
{
    Input input;
    LoopbackPeer peer;
    const quint16 oldPort = input.port.port();
    QUdpSocket holder;
    input.port.close();
    EXPECT_EQ(input.port.port(), 0);
    ASSERT_TRUE(holder.bind(QHostAddress::Any, oldPort));
    ASSERT_TRUE(input.port.bind(ZLOSCPortRange::exactly(0)).isOk());
    ASSERT_NE(input.port.port(), oldPort);
    ASSERT_TRUE(peer.send(encoded(u"/old"_s), oldPort));
    ASSERT_TRUE(peer.send(encoded(u"/new"_s), input.port.port()));
    ASSERT_TRUE(waitUntil([&] { return !input.messages.isEmpty(); }));
    EXPECT_EQ(input.addresses(), QStringList({ u"/new"_s }));
}

TEST(ZLOSCInPort, theDefaultRangeIsTheDocumentedOne)
{
    EXPECT_EQ(ZLOSCPortRange(), (ZLOSCPortRange { 9358, 9367 }));
    EXPECT_EQ(ZLOSCPortRange::startingAt(7000), (ZLOSCPortRange { 7000, 7009 }));
    EXPECT_EQ(ZLOSCPortRange::startingAt(65530), (ZLOSCPortRange { 65530, 65535 }));
}

TEST(ZLOSCInPort, aFloodIsBoundedAndTheHonestPressAfterItArrives)
{
    constexpr int floodSize = 50000;
    constexpr quint64 mostUnread = 60;
    Input input;
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

TEST(ZLOSCInPort, theMainThreadHandlesOtherEventsBetweenMessages)
{
    Input input;
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

TEST(ZLOSCInPort, largeMessagesAreBoundedByTheirSize)
{
    Input input;
    LoopbackPeer peer;
    for (int number = 0; number < 100; ++number) {
        ASSERT_TRUE(peer.send(encoded(u"/large"_s, { QString(60000, u'x') }), input.port.port()));
        ASSERT_TRUE(waitWithoutEvents([&] { return input.port.counters().accepted == quint64(number) + 1; }));
    }
    EXPECT_LE(input.port.longestQueue(), ZLOSCReception::mostMessageBytes / 60000);
    EXPECT_GE(input.port.longestQueue(), 10);
}

TEST(ZLOSCInPort, messagesGoOnWhileOneOfThemHoldsAnEventLoopOfItsOwn)
{
    Input input;
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

TEST(ZLOSCInPort, anInputMayGoWhileMessagesPourIn)
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
