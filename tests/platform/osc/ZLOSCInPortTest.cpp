#include "ZLRecordedInput.h"

#include "LoopbackPeer.h"
#include "OSCBundle.h"

using namespace Qt::StringLiterals;

namespace {

using Mode = ZLOSCAccessPolicy::Mode;

/// Three free ports in a row, of which the first ones are then taken.
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

}

TEST(ZLOSCInPort, aMessageArrivesOnTheMainThreadWithItsSender)
{
    ZLRecordedInput input;
    LoopbackPeer peer;
    ASSERT_TRUE(peer.send(encoded(u"/zl/newChapter"_s, { 1.0F }), input.port.port()));
    ASSERT_TRUE(waitUntil([&] { return input.messages.size() == 1; }));
    EXPECT_EQ(input.messages.first().message, ZLOSCMessage(u"/zl/newChapter"_s, { 1.0F }));
    EXPECT_EQ(input.messages.first().peer, (ZLOSCPeer { QHostAddress(QHostAddress::LocalHost), peer.port() }));
    EXPECT_EQ(input.messages.first().peer.text(), u"127.0.0.1:%1"_s.arg(peer.port()));
    EXPECT_GT(input.messages.first().receivedAt, 0);
}

TEST(ZLOSCInPort, IPv6ArrivesWhereTheComputerHasIt)
{
    ZLRecordedInput input;
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
    ZLRecordedInput input;
    LoopbackPeer peer;
    const QByteArray bundle = OSCBundle::of({ encoded(u"/1"_s), encoded(u"/2"_s), encoded(u"/3"_s) });
    ASSERT_TRUE(peer.send(bundle, input.port.port()));
    ASSERT_TRUE(waitUntil([&] { return input.messages.size() == 3; }));
    EXPECT_EQ(input.addresses(), QStringList({ u"/1"_s, u"/2"_s, u"/3"_s }));
}

TEST(ZLOSCInPort, theFilterRunsOnTheReceivingThreadAndDecides)
{
    ZLRecordedInput input;
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
    ZLRecordedInput input;
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
    ZLRecordedInput input;
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
    ZLRecordedInput input;
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
