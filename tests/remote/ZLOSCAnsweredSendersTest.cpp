#include "remote/ZLOSCAnsweredSenders.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class ZLOSCAnsweredSendersTest : public testing::Test {
protected:
    [[nodiscard]] static ZLOSCPeer peer(quint16 port) { return { QHostAddress(QHostAddress::LocalHost), port }; }
    [[nodiscard]] QList<quint16> outputs() const
    {
        QList<quint16> numbers;
        for (const ZLOSCOutPort* port : m_manager.outPortArray().ports())
            numbers.append(port->port());
        return numbers;
    }

    ZLOSCManager m_manager { u"Zelta"_s };
    ZLOSCAnsweredSenders m_senders { m_manager };
};

TEST_F(ZLOSCAnsweredSendersTest, ASenderIsAnsweredOnceHoweverOftenItSpeaks)
{
    for (int second = 0; second < 5; ++second)
        m_senders.noteCommand(peer(9001), second);
    m_senders.noteCommand(peer(9002), 5);
    EXPECT_EQ(outputs(), (QList<quint16> { 9001, 9002 }));
    EXPECT_TRUE(m_senders.contains(m_manager.outPortArray().ports().first()));
}

TEST_F(ZLOSCAnsweredSendersTest, SilentOnesGoAfterTheirTimeAndOthersStay)
{
    m_senders.noteCommand(peer(9001), 0);
    m_senders.noteCommand(peer(9002), 30);
    m_senders.update(59.9);
    EXPECT_EQ(outputs(), (QList<quint16> { 9001, 9002 }));
    m_senders.update(60);
    EXPECT_EQ(outputs(), QList<quint16> { 9002 });
    m_senders.update(1000);
    EXPECT_EQ(outputs(), QList<quint16>());
}

TEST_F(ZLOSCAnsweredSendersTest, ForgedSendersAreFewAndRoomComesBackWithTime)
{
    for (quint16 port = 1; port <= 1000; ++port)
        m_senders.noteCommand(peer(port), 0);
    EXPECT_EQ(outputs().size(), ZLOSCAnsweredSenders::MostSenders);
    m_senders.update(60);
    m_senders.noteCommand(peer(5000), 60);
    EXPECT_EQ(outputs(), QList<quint16> { 5000 });
}

TEST_F(ZLOSCAnsweredSendersTest, WhomAnotherOutputReachesIsNotAnsweredTwice)
{
    m_manager.createNewOutput(u"Desk"_s, u"127.0.0.1"_s, 9001);
    m_senders.noteCommand(peer(9001), 0);
    EXPECT_EQ(outputs(), QList<quint16> { 9001 });
    m_senders.noteCommand(peer(9002), 0);
    const ZLOSCOutPort* configured = m_manager.createNewOutput(u"Desk"_s, u"127.0.0.1"_s, 9002);
    m_senders.update(1);
    EXPECT_EQ(outputs(), (QList<quint16> { 9001, 9002 }));
    EXPECT_EQ(m_manager.outPortArray().ports().last(), configured);
    EXPECT_FALSE(m_senders.contains(configured));
}

TEST_F(ZLOSCAnsweredSendersTest, ClearLeavesTheOutputsOfOthers)
{
    m_manager.createNewOutput(u"Desk"_s, u"127.0.0.1"_s, 9001);
    m_senders.noteCommand(peer(9002), 0);
    m_senders.clear();
    EXPECT_EQ(outputs(), QList<quint16> { 9001 });
    m_senders.noteCommand(peer(9002), 0);
    EXPECT_EQ(outputs().size(), 2);
}
