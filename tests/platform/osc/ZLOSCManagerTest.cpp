#include "platform/osc/ZLOSCManager.h"

#include "LoopbackPeer.h"
#include "support/ZLNoMoreDescriptors.h"

#include <QHostInfo>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// Answers only when the test says so.
class HeldResolver {
public:
    ZLOSCOutPort::Resolver function()
    {
        return [this](const QString& name, QObject*, std::function<void(const QHostInfo&)> done) {
            names.append(name);
            m_waiting.append(std::move(done));
        };
    }

    void answer(const QStringList& addresses)
    {
        QHostInfo info;
        QList<QHostAddress> list;
        for (const QString& address : addresses)
            list.append(QHostAddress(address));
        info.setAddresses(list);
        if (list.isEmpty()) {
            info.setError(QHostInfo::HostNotFound);
            info.setErrorString(u"Host not found"_s);
        }
        m_waiting.takeFirst()(info);
    }

    bool isAsked() const { return !m_waiting.isEmpty(); }
    QStringList names;

private:
    QList<std::function<void(const QHostInfo&)>> m_waiting;
};

void sendToAll(const ZLOSCManager& manager, const ZLOSCMessage& message)
{
    manager.outPortArray().rdlock();
    for (ZLOSCOutPort* port : manager.outPortArray().ports())
        port->sendThisMessage(message);
    manager.outPortArray().unlock();
}

quint16 deadPort()
{
    const LoopbackPeer gone;
    return gone.port();
}

}

TEST(ZLOSCManager, inputsAreLabelledAndTakeTheFirstFreePort)
{
    ZLOSCManager manager(u"Show"_s);
    ZLOSCInPort* first = manager.createNewInput();
    ZLOSCInPort* second = manager.createNewInput();
    EXPECT_EQ(first->label(), u"Show"_s);
    EXPECT_EQ(second->label(), u"Show 2"_s);
    EXPECT_GE(first->port(), 9358);
    EXPECT_LT(first->port(), second->port());
    EXPECT_LE(second->port(), 9367);
}

TEST(ZLOSCManager, settingsReachInputsThatExistAndThoseThatComeLater)
{
    ZLOSCManager manager(u"Show"_s);
    manager.setPortRange(ZLOSCPortRange::exactly(0));
    ZLOSCInPort* early = manager.createNewInput();
    manager.setFilter([](const ZLOSCMessage& message) { return message.floatValue() > 0; });
    ZLOSCInPort* late = manager.createNewInput();
    QStringList received;
    QObject::connect(&manager, &ZLOSCManager::receivedOSCMessage, &manager,
        [&](const ZLOSCReceivedMessage& each) { received.append(each.message.description()); });
    QList<ZLOSCDropReason> reasons;
    QObject::connect(&manager, &ZLOSCManager::droppedOSCDatagram, &manager,
        [&](const ZLOSCDroppedDatagram& each) { reasons.append(each.reason); });
    LoopbackPeer peer;
    for (const ZLOSCInPort* input : { early, late }) {
        peer.send(encoded(u"/a"_s, { 0.0F }), input->port());
        peer.send(encoded(u"/a"_s, { 1.0F }), input->port());
    }
    ASSERT_TRUE(waitUntil([&] { return received.size() == 2 && reasons.size() == 2; }));
    EXPECT_EQ(received, QStringList({ u"/a 1"_s, u"/a 1"_s }));
    EXPECT_EQ(reasons, QList<ZLOSCDropReason>(2, ZLOSCDropReason::Filtered));

    manager.setAccessPolicy(ZLOSCAccessPolicy(ZLOSCAccessPolicy::Mode::OnlyTheseAddresses));
    ZLOSCInPort* latest = manager.createNewInput();
    for (const ZLOSCInPort* input : { early, late, latest })
        peer.send(encoded(u"/a"_s, { 1.0F }), input->port());
    ASSERT_TRUE(waitUntil([&] { return reasons.count(ZLOSCDropReason::RefusedSender) == 3; }));
    EXPECT_EQ(received.size(), 2);
}

TEST(ZLOSCManager, everyOutputIsSentToInOrder)
{
    ZLOSCManager manager(u"Show"_s);
    LoopbackPeer four;
    manager.createNewOutput(u"four"_s, u"127.0.0.1"_s, four.port());
    manager.createNewOutput(u"peer"_s, ZLOSCPeer { QHostAddress(QHostAddress::LocalHost), four.port() });
    const ZLOSCMessage title(u"/zl/lastChapterTitle"_s, { u"Grüße"_s });
    const ZLOSCMessage flag(u"/zl/isRecording"_s, { true });
    sendToAll(manager, title);
    sendToAll(manager, flag);
    ASSERT_TRUE(waitUntil([&] { return four.received().size() == 4; }));
    EXPECT_EQ(four.received(), QList<ZLOSCMessage>({ title, title, flag, flag }));
}

TEST(ZLOSCManager, IPv6OutputsAreSentToWhereTheComputerHasIt)
{
    const ZLOSCOutPort output(u"six"_s, u"[::1]"_s, 9);
    EXPECT_EQ(output.address(), QHostAddress(QHostAddress::LocalHostIPv6));
    LoopbackPeer peer { QHostAddress(QHostAddress::LocalHostIPv6) };
    ZLOSCOutPort toPeer(u"six"_s, u"::1"_s, peer.port());
    EXPECT_EQ(toPeer.sendThisMessage(ZLOSCMessage(u"/a"_s)), peer.isBound());
    EXPECT_TRUE(!peer.isBound() || waitUntil([&] { return peer.received().size() == 1; }));
}

TEST(ZLOSCManager, aNewOutputReportsThatItIsReady)
{
    ZLOSCManager manager(u"Show"_s);
    QList<ZLOSCOutPort*> ready;
    int changes = 0;
    QObject::connect(
        &manager, &ZLOSCManager::outputDidBecomeReady, &manager, [&](ZLOSCOutPort* port) { ready.append(port); });
    QObject::connect(&manager, &ZLOSCManager::outputsDidChange, &manager, [&] { ++changes; });
    ZLOSCOutPort* first = manager.createNewOutput(u"a"_s, u"127.0.0.1"_s, 9);
    ZLOSCOutPort* second = manager.createNewOutput(u"b"_s, u"localhost"_s, 9);
    EXPECT_TRUE(ready.isEmpty()) << "the caller has not seen its output yet";
    EXPECT_EQ(changes, 2);
    ASSERT_TRUE(waitUntil([&] { return ready.size() == 2; }));
    EXPECT_EQ(ready, QList<ZLOSCOutPort*>({ first, second }));
    EXPECT_EQ(second->state(), ZLOSCOutPort::State::Ready);
    EXPECT_TRUE(second->address().isLoopback());
}

TEST(ZLOSCManager, aRemovedOutputIsNeitherSentToNorHeardOf)
{
    ZLOSCManager manager(u"Show"_s);
    LoopbackPeer gone;
    LoopbackPeer kept;
    QList<ZLOSCOutPort*> ready;
    QObject::connect(
        &manager, &ZLOSCManager::outputDidBecomeReady, &manager, [&](ZLOSCOutPort* port) { ready.append(port); });
    ZLOSCOutPort* first = manager.createNewOutput(u"gone"_s, u"127.0.0.1"_s, gone.port());
    ZLOSCOutPort* second = manager.createNewOutput(u"kept"_s, u"127.0.0.1"_s, kept.port());
    int changes = 0;
    QObject::connect(&manager, &ZLOSCManager::outputsDidChange, &manager, [&] { ++changes; });
    manager.removeOutput(first);
    EXPECT_EQ(changes, 1);
    manager.removeOutput(nullptr);
    EXPECT_EQ(changes, 1);
    sendToAll(manager, ZLOSCMessage(u"/a"_s));
    ASSERT_TRUE(waitUntil([&] { return kept.received().size() == 1 && !ready.isEmpty(); }));
    EXPECT_TRUE(gone.received().isEmpty());
    EXPECT_EQ(ready, QList<ZLOSCOutPort*>({ second }));
}

TEST(ZLOSCManager, anUnreachableOutputDoesNotHoldUpAnother)
{
    ZLOSCManager manager(u"Show"_s);
    LoopbackPeer alive;
    ZLOSCOutPort* dead = manager.createNewOutput(u"dead"_s, u"127.0.0.1"_s, deadPort());
    ZLOSCOutPort* unknown = manager.createNewOutput(u"unknown"_s, u"name.invalid"_s, 9000);
    manager.createNewOutput(u"alive"_s, u"127.0.0.1"_s, alive.port());
    for (int number = 0; number < 20; ++number)
        sendToAll(manager, ZLOSCMessage(u"/a"_s, { qint32(number) }));
    ASSERT_TRUE(waitUntil([&] { return alive.received().size() == 20; }));
    EXPECT_EQ(dead->state(), ZLOSCOutPort::State::Ready) << "a missing listener is no failure of a datagram";
    ASSERT_TRUE(waitUntil([&] { return unknown->state() == ZLOSCOutPort::State::Failed; }));
    EXPECT_FALSE(unknown->failure().isEmpty());
}

TEST(ZLOSCOutPort, aListenerThatComesLateToADeadPortIsReached)
{
    const quint16 port = deadPort();
    ZLOSCOutPort output(u"late"_s, u"127.0.0.1"_s, port);
    for (int number = 0; number < 10; ++number)
        EXPECT_TRUE(output.sendThisMessage(ZLOSCMessage(u"/early"_s)));
    QUdpSocket listener;
    ASSERT_TRUE(listener.bind(QHostAddress::LocalHost, port));
    EXPECT_TRUE(output.sendThisMessage(ZLOSCMessage(u"/late"_s)));
    EXPECT_TRUE(waitUntil([&] { return listener.hasPendingDatagrams(); }));
}

TEST(ZLOSCOutPort, aNameIsResolvedInTheBackgroundAndIPv4IsPreferred)
{
    HeldResolver resolver;
    LoopbackPeer peer;
    ZLOSCOutPort output(u"named"_s, u" studio.local "_s, peer.port(), nullptr, resolver.function());
    int ready = 0;
    QObject::connect(&output, &ZLOSCOutPort::didBecomeReady, &output, [&] { ++ready; });
    EXPECT_EQ(resolver.names, QStringList({ u"studio.local"_s }));
    EXPECT_EQ(output.state(), ZLOSCOutPort::State::Resolving);
    EXPECT_FALSE(output.sendThisMessage(ZLOSCMessage(u"/early"_s)));
    resolver.answer({ u"::1"_s, u"127.0.0.1"_s });
    EXPECT_EQ(output.state(), ZLOSCOutPort::State::Ready);
    EXPECT_EQ(output.address(), QHostAddress(QHostAddress::LocalHost));
    EXPECT_TRUE(output.sendThisMessage(ZLOSCMessage(u"/a"_s)));
    ASSERT_TRUE(waitUntil([&] { return peer.received().size() == 1 && ready == 1; }));
}

TEST(ZLOSCOutPort, aNameThatFailedIsTriedAgainByItself)
{
    HeldResolver resolver;
    ZLOSCOutPort output(u"named"_s, u"studio.local"_s, 9, nullptr, resolver.function(), 1);
    QList<ZLOSCOutPort::State> states;
    int ready = 0;
    QObject::connect(&output, &ZLOSCOutPort::stateDidChange, &output, [&] { states.append(output.state()); });
    QObject::connect(&output, &ZLOSCOutPort::didBecomeReady, &output, [&] { ++ready; });
    for (int attempt = 0; attempt < 3; ++attempt) {
        ASSERT_TRUE(waitUntil([&] { return resolver.isAsked(); }));
        resolver.answer({});
        EXPECT_EQ(output.state(), ZLOSCOutPort::State::Failed);
        EXPECT_EQ(output.failure(), u"Host not found"_s);
    }
    ASSERT_TRUE(waitUntil([&] { return resolver.isAsked(); }));
    resolver.answer({ u"127.0.0.1"_s });
    EXPECT_EQ(output.failure(), QString());
    ASSERT_TRUE(waitUntil([&] { return ready == 1; }));
    EXPECT_EQ(states.last(), ZLOSCOutPort::State::Ready);
}

TEST(ZLOSCOutPort, anAddressThatCannotBeSentToFailsWithAReason)
{
    // Loopback has no link-local neighbours, so that the system refuses to send.
    ZLOSCOutPort output(u"nowhere"_s, u"fe80::1%lo"_s, 9);
    for (int attempt = 0; attempt < 2; ++attempt) {
        EXPECT_FALSE(output.sendThisMessage(ZLOSCMessage(u"/a"_s)));
        EXPECT_EQ(output.state(), ZLOSCOutPort::State::Failed);
        EXPECT_FALSE(output.failure().isEmpty());
    }
}

TEST(ZLOSCOutPort, afterAFailureTheNextMessageThatCanBeSentIsSent)
{
    LoopbackPeer peer;
    ZLOSCOutPort output(u"back"_s, u"127.0.0.1"_s, peer.port());
    {
        const ZLNoMoreDescriptors withoutSockets;
        for (int attempt = 0; attempt < 5; ++attempt)
            EXPECT_FALSE(output.sendThisMessage(ZLOSCMessage(u"/lost"_s)));
        EXPECT_EQ(output.state(), ZLOSCOutPort::State::Failed);
    }
    EXPECT_TRUE(output.sendThisMessage(ZLOSCMessage(u"/back"_s)));
    EXPECT_EQ(output.state(), ZLOSCOutPort::State::Ready);
    EXPECT_EQ(output.failure(), QString());
    ASSERT_TRUE(waitUntil([&] { return peer.received().size() == 1; }));
    EXPECT_EQ(peer.received().first().address(), u"/back"_s);
}

TEST(ZLOSCOutPort, aNameThatCannotBeSentToIsResolvedAgainSoonAndMayLeadElsewhere)
{
    HeldResolver resolver;
    LoopbackPeer peer;
    ZLOSCOutPort output(u"named"_s, u"studio.local"_s, peer.port(), nullptr, resolver.function(), 1);
    resolver.answer({ u"fe80::1%lo"_s });
    EXPECT_EQ(output.state(), ZLOSCOutPort::State::Ready);
    EXPECT_FALSE(output.sendThisMessage(ZLOSCMessage(u"/a"_s)));
    ASSERT_TRUE(waitUntil([&] { return resolver.isAsked(); }));
    resolver.answer({});
    EXPECT_EQ(output.state(), ZLOSCOutPort::State::Failed);
    ASSERT_TRUE(waitUntil([&] { return resolver.isAsked(); })) << "and again, as long as nothing can be sent";
    resolver.answer({ u"127.0.0.1"_s });
    EXPECT_EQ(output.state(), ZLOSCOutPort::State::Ready);
    EXPECT_TRUE(output.sendThisMessage(ZLOSCMessage(u"/b"_s)));
    EXPECT_TRUE(waitUntil([&] { return peer.received().size() == 1; }));
}

TEST(ZLOSCOutPort, withoutAHostOrAPortItSaysSo)
{
    for (const auto& [host, port] : { std::pair(u" "_s, quint16(9000)), std::pair(u"127.0.0.1"_s, quint16(0)) }) {
        ZLOSCOutPort output(u"incomplete"_s, host, port);
        EXPECT_EQ(output.state(), ZLOSCOutPort::State::Failed);
        EXPECT_FALSE(output.failure().isEmpty());
        EXPECT_FALSE(output.sendThisMessage(ZLOSCMessage(u"/a"_s)));
    }
}

TEST(ZLOSCOutPort, aMessageThatIsTooLargeIsLostAloneAndTheNextOneGoes)
{
    LoopbackPeer peer;
    ZLOSCOutPort output(u"out"_s, u"127.0.0.1"_s, peer.port());
    EXPECT_FALSE(output.sendThisMessage(ZLOSCMessage(u"/a"_s, { QString(70000, u'x') })));
    EXPECT_TRUE(output.sendThisMessage(ZLOSCMessage(u"/b"_s)));
    ASSERT_TRUE(waitUntil([&] { return peer.received().size() == 1; }));
}
