#include "remote/ZLOSCControllerFixture.h"

#include <QScopeGuard>
#include <QThread>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

const QString newChapterAddress = u"/zl/newChapter"_s;

QStringList systemLog;

void keepSystemLog(QtMsgType, const QMessageLogContext& context, const QString& text)
{
    if (qstrcmp(context.category, "zelta.remote.osc") == 0)
        systemLog.append(text);
}

}

class ZLOSCControllerReceivingTest : public ZLOSCControllerFixture {
protected:
    ZLOSCControllerReceivingTest()
    {
        ZLSettingsManager::setOSCAnswersSenders(false);
        createController();
    }

    [[nodiscard]] quint16 port() const { return m_controller->inPort().port(); }
    [[nodiscard]] qsizetype actionCount() const { return m_delegate.actions.size(); }
};

TEST_F(ZLOSCControllerReceivingTest, EachAddressDeliversItsActionAsThePublishedConstant)
{
    m_delegate.perform = {};
    for (const ZLRemoteAction& action : ZLRemoteActions::all()) {
        press(action.oscAddress);
        ASSERT_FALSE(m_delegate.actions.isEmpty());
        EXPECT_TRUE(ZLRemoteActions::isSameAction(m_delegate.actions.last(), action.identifier));
        EXPECT_EQ(m_delegate.controllers.last(), m_controller.get());
    }
    EXPECT_EQ(actionCount(), 6);
}

TEST_F(ZLOSCControllerReceivingTest, AButtonAddsOneChapterWhenPressedAndNoneWhenReleased)
{
    m_document.recordButtonPressed();
    receive(ZLOSCMessage(newChapterAddress, { 1.0F }));
    receive(ZLOSCMessage(newChapterAddress, { 0.0F }));
    receive(ZLOSCMessage(newChapterAddress));
    EXPECT_EQ(chapters().count(), 1);
}

TEST_F(ZLOSCControllerReceivingTest, AnyNumberAboveZeroIsAPress)
{
    m_delegate.perform = {};
    const QList<ZLOSCArgument> values { 1.0F, 0.001F, 127, qint64(1), 0.5, true, u"1"_s,
        std::numeric_limits<float>::infinity() };
    for (const ZLOSCArgument& value : values)
        receive(ZLOSCMessage(newChapterAddress, { value }));
    EXPECT_EQ(actionCount(), values.size());
}

TEST_F(ZLOSCControllerReceivingTest, WhatIsNotGreaterThanZeroIsNone)
{
    const QList<ZLOSCArgument> values { 0.0F, -0.0F, -1.0F, std::numeric_limits<float>::quiet_NaN(), 0, -5, qint64(-1),
        false, u"on"_s, u""_s, QByteArray("\1"), ZLOSCNil(), ZLOSCInfinitum(), ZLOSCTimeTag { 5 } };
    for (const ZLOSCArgument& value : values)
        receive(ZLOSCMessage(newChapterAddress, { value }));
    receive(ZLOSCMessage(newChapterAddress, { 0.0F, 1.0F }));
    EXPECT_EQ(actionCount(), 0);
}

TEST_F(ZLOSCControllerReceivingTest, AnAddressThatDiffersInAnythingDoesNothing)
{
    for (const QString& address : { u"/zl/newchapter"_s, u"/ZL/newChapter"_s, u"/zl/newChapter/"_s,
             u"/zl/newChapter "_s, u"/zl//newChapter"_s, u"/zl/*"_s, u"/zl/currentTime"_s })
        press(address);
    EXPECT_EQ(actionCount(), 0);
}

TEST_F(ZLOSCControllerReceivingTest, FromAnotherThreadTheActionComesLaterAndOnTheMainThread)
{
    const std::unique_ptr<QThread> thread(QThread::create([this] {
        press(newChapterAddress);
        press(u"/zl/unknown"_s);
        receive(ZLOSCMessage(newChapterAddress, { 0.0F }));
    }));
    thread->start();
    ASSERT_TRUE(thread->wait(hangLimitMilliseconds)) << "the receiving thread never waits for the main thread";
    EXPECT_EQ(actionCount(), 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(m_delegate.threads, QList<QThread*> { QThread::currentThread() });
}

TEST_F(ZLOSCControllerReceivingTest, TwoLinesOfTheSystemLogStandBeforeEachActionAndOnlyThere)
{
    systemLog.clear();
    const QtMessageHandler previous = qInstallMessageHandler(&keepSystemLog);
    const auto restore = qScopeGuard([previous] { qInstallMessageHandler(previous); });
    QStringList before;
    m_delegate.perform = [&](const QString&) { before = systemLog; };
    press(newChapterAddress);
    EXPECT_EQ(before, (QStringList { u"-[ZLOSCController receivedOSCMessage:]"_s, u"m: /zl/newChapter 1"_s }));
    press(u"/zl/unknown"_s);
    receive(ZLOSCMessage(newChapterAddress, { 0.0F }));
    m_controller->setDelegate(nullptr);
    press(newChapterAddress);
    EXPECT_EQ(systemLog.size(), 2);
}

TEST_F(ZLOSCControllerReceivingTest, WithoutADelegateEventsAreAcceptedAndDoNothing)
{
    m_controller->setDelegate(nullptr);
    press(newChapterAddress);
    m_controller->setDelegate(&m_delegate);
    EXPECT_EQ(actionCount(), 0);
    press(newChapterAddress);
    EXPECT_EQ(actionCount(), 1);
}

TEST_F(ZLOSCControllerReceivingTest, TheLogTellsWhatBecameOfEachMessageFromTheNetwork)
{
    LoopbackPeer peer;
    m_document.recordButtonPressed();
    const auto sendAndWait = [&](const QByteArray& datagram) {
        const qsizetype before = loggedOutcomes().size();
        ASSERT_TRUE(peer.send(datagram, port()));
        ASSERT_TRUE(waitUntil([&] { return loggedOutcomes().size() > before; }));
    };
    sendAndWait(encoded(newChapterAddress, { 1.0F }));
    sendAndWait(encoded(newChapterAddress, { 0.0F }));
    sendAndWait(encoded(newChapterAddress));
    sendAndWait(encoded(u"/zl/newchapter"_s, { 1.0F }));
    sendAndWait("garbage");
    EXPECT_EQ(loggedOutcomes(),
        (QStringList { u"added a chapter"_s, u"ignored: value 0"_s, u"ignored: no value"_s,
            u"ignored: unknown address"_s, u"dropped: malformed"_s }));
    const ZLOSCLogEntry first = m_controller->log().entries().first();
    EXPECT_EQ(first.peer, u"127.0.0.1:%1"_s.arg(peer.port()));
    EXPECT_EQ(first.address, newChapterAddress);
    EXPECT_EQ(first.value, u"1"_s);
    EXPECT_EQ(first.direction, ZLOSCLogEntry::Direction::In);
}

TEST_F(ZLOSCControllerReceivingTest, AMessageByAnotherWayIsCarriedOutAndAnswered)
{
    EXPECT_EQ(m_controller->performMessage(ZLOSCMessage(newChapterAddress, { 1.0F }), u"a script"_s),
        u"did nothing: the clock is not running"_s);
    EXPECT_EQ(m_controller->performMessage(ZLOSCMessage(u"/zl/toggleRecording"_s, { 1.0F }), u"a script"_s),
        u"started the recording"_s);
    EXPECT_EQ(
        m_controller->performMessage(ZLOSCMessage(newChapterAddress, { 0.0F }), u"a script"_s), u"ignored: value 0"_s);
    EXPECT_EQ(m_controller->performMessage(ZLOSCMessage(u"/zl/unknown"_s, { 1.0F }), u"a script"_s),
        u"ignored: unknown address"_s);
    EXPECT_EQ(loggedOutcomes().size(), 4);
    EXPECT_EQ(m_controller->log().entries().first().peer, u"a script"_s);
}

TEST_F(ZLOSCControllerReceivingTest, AFloodIsBoundedAndTheNextPressWorks)
{
    constexpr int floodSize = 20000;
    constexpr quint64 mostUnread = 60;
    const QList<QByteArray> mix { encoded(u"/zl/selectNextChapter"_s, { 1.0F }), "garbage", encoded(u"/other"_s),
        encoded(newChapterAddress, { 0.0F }) };
    LoopbackPeer peer;
    m_document.recordButtonPressed();
    const ZLOSCInPort& input = m_controller->inPort();
    for (int number = 0; number < floodSize; ++number) {
        ASSERT_TRUE(peer.send(mix.at(number % mix.size()), port()));
        // Loopback loses datagrams only when too many of them are unread.
        ASSERT_TRUE(waitWithoutEvents([&] { return input.counters().received + mostUnread > quint64(number); }));
        if (number % 1000 == 0)
            QCoreApplication::processEvents();
    }
    ASSERT_TRUE(peer.send(encoded(newChapterAddress, { 1.0F }), port()));
    ASSERT_TRUE(waitUntil([&] { return chapters().count() == 1; }));
    const ZLOSCInPortCounters counters = input.counters();
    EXPECT_EQ(counters.malformed, quint64(floodSize / 4));
    EXPECT_EQ(counters.filtered, quint64(floodSize / 2));
    EXPECT_EQ(counters.accepted, quint64(floodSize / 4 + 1));
    EXPECT_EQ(quint64(actionCount()), counters.accepted - counters.overflow);
    EXPECT_LE(input.longestQueue(), ZLOSCReception::mostMessages);
    m_controller->log().flush();
    EXPECT_LE(m_controller->log().rowCount(), ZLOSCLog::Capacity);
}
