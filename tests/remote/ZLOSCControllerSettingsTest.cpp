#include "remote/ZLOSCControllerFixture.h"

#include <QUdpSocket>

using namespace Qt::StringLiterals;

namespace {

/// A port that no other program gets as long as the object lives.
class TakenPort {
public:
    TakenPort() { m_socket.bind(QHostAddress::Any, 0); }
    quint16 number() const { return m_socket.localPort(); }
    void release() { m_socket.close(); }

private:
    QUdpSocket m_socket;
};

QStringList outputLabels(ZLOSCController& controller)
{
    QStringList labels;
    for (const ZLOSCOutPort* port : controller.manager().outPortArray().ports())
        labels.append(port->label());
    return labels;
}

}

using ZLOSCControllerSettingsTest = ZLOSCControllerFixture;

TEST_F(ZLOSCControllerSettingsTest, TheInputIsTheFirstFreePortFromTheStoredOne)
{
    const TakenPort taken;
    ASSERT_NE(taken.number(), 0);
    ZLSettingsManager::setOSCInputPort(taken.number());
    ZLOSCControllerSetup fromSettings = setup();
    fromSettings.inputPort.reset();
    createController(std::move(fromSettings));
    EXPECT_GT(m_controller->inPort().port(), taken.number());
    EXPECT_LT(m_controller->inPort().port(), taken.number() + ZLOSCPortRange::portsToTry);
    EXPECT_EQ(m_controller->inPort().label(), u"Zelta"_s);
    EXPECT_EQ(ZLOSCController::inPortLabelBase(), u"Zelta"_s);
}

TEST_F(ZLOSCControllerSettingsTest, APortGivenForThisRunIsTakenOrNoneAndIsNotStored)
{
    TakenPort taken;
    const quint16 stored = ZLSettingsManager::oscInputPort();
    ZLOSCControllerSetup given = setup();
    given.inputPort = taken.number();
    createController(std::move(given));
    EXPECT_EQ(m_controller->inPort().port(), 0);
    EXPECT_FALSE(m_controller->inPort().failure().isEmpty());
    EXPECT_EQ(ZLSettingsManager::oscInputPort(), stored);

    const quint16 wanted = taken.number();
    taken.release();
    ZLSettingsManager::setOSCInputPort(wanted);
    EXPECT_GE(m_controller->inPort().port(), wanted) << "what the user chooses later holds";
    EXPECT_TRUE(m_controller->inPort().failure().isEmpty());
}

TEST_F(ZLOSCControllerSettingsTest, TheInputMovesWithTheSetting)
{
    createController();
    TakenPort next;
    const quint16 wanted = next.number();
    next.release();
    ZLSettingsManager::setOSCInputPort(wanted);
    EXPECT_GE(m_controller->inPort().port(), wanted);
    EXPECT_LT(m_controller->inPort().port(), wanted + ZLOSCPortRange::portsToTry);
    LoopbackPeer peer;
    ASSERT_TRUE(peer.send(encoded(u"/zl/toggleRecording"_s, { 1 }), m_controller->inPort().port()));
    EXPECT_TRUE(waitUntil([&] { return m_document.isRecording(); }));
}

TEST_F(ZLOSCControllerSettingsTest, OutputsFollowTheSettingAndThoseThatStayAreNotMadeAnew)
{
    createController();
    ZLSettingsManager::setOSCOutputs({ { u"127.0.0.1"_s, 9001 }, { u"127.0.0.1"_s, 9002 } });
    EXPECT_EQ(outputLabels(*m_controller), (QStringList { u"127.0.0.1:9001"_s, u"127.0.0.1:9002"_s }));
    const ZLOSCOutPort* staying = m_controller->manager().outPortArray().ports().at(1);
    ZLSettingsManager::setOSCOutputs({ { u"127.0.0.1"_s, 9002 }, { u"127.0.0.1"_s, 9003 } });
    EXPECT_EQ(outputLabels(*m_controller), (QStringList { u"127.0.0.1:9002"_s, u"127.0.0.1:9003"_s }));
    EXPECT_EQ(m_controller->manager().outPortArray().ports().at(0), staying);
    ZLSettingsManager::setOSCOutputs({});
    EXPECT_EQ(outputLabels(*m_controller), QStringList());
}

TEST_F(ZLOSCControllerSettingsTest, OutputsGivenForThisRunStandInForTheStoredOnesAndAreNotStored)
{
    ZLSettingsManager::setOSCOutputs({ { u"127.0.0.1"_s, 9001 } });
    ZLOSCControllerSetup given = setup();
    given.outputs = QList<ZLOSCDestination> { { u"127.0.0.1"_s, 9005 } };
    createController(std::move(given));
    EXPECT_EQ(outputLabels(*m_controller), QStringList { u"127.0.0.1:9005"_s });
    EXPECT_EQ(ZLSettingsManager::oscOutputs(), (QList<ZLOSCDestination> { { u"127.0.0.1"_s, 9001 } }));
    ZLSettingsManager::setOSCOutputs({ { u"127.0.0.1"_s, 9002 } });
    EXPECT_EQ(outputLabels(*m_controller), QStringList { u"127.0.0.1:9002"_s }) << "the user chose otherwise";
}

TEST_F(ZLOSCControllerSettingsTest, WhoMaySpeakFollowsTheSettingForSendersOfSeveralAddresses)
{
    ZLSettingsManager::setOSCAnswersSenders(false);
    createController();
    m_delegate.perform = {};
    LoopbackPeer first(QHostAddress(u"127.0.0.1"_s));
    LoopbackPeer second(QHostAddress(u"127.0.0.2"_s));
    ASSERT_TRUE(first.isBound() && second.isBound());
    const auto outcomeFor = [&](LoopbackPeer& peer) {
        const qsizetype before = loggedOutcomes().size();
        EXPECT_TRUE(peer.send(encoded(u"/zl/selectNextChapter"_s, { 1.0F }), m_controller->inPort().port()));
        EXPECT_TRUE(waitUntil([&] { return loggedOutcomes().size() > before; }));
        return loggedOutcomes().last();
    };
    const QString accepted = u"did nothing: there is no chapter after"_s;
    EXPECT_EQ(outcomeFor(first), accepted);
    EXPECT_EQ(outcomeFor(second), accepted);
    ZLSettingsManager::setOSCAcceptedAddresses({ u"127.0.0.2"_s, u"no address"_s });
    ZLSettingsManager::setOSCAccept(ZLOSCAccept::OnlyTheseAddresses);
    EXPECT_EQ(outcomeFor(first), u"dropped: not from one of the accepted addresses"_s);
    EXPECT_EQ(outcomeFor(second), accepted);
    ZLSettingsManager::setOSCAcceptedAddresses({ u"127.0.0.1"_s });
    EXPECT_EQ(outcomeFor(first), accepted);
    EXPECT_EQ(outcomeFor(second), u"dropped: not from one of the accepted addresses"_s);
    ZLSettingsManager::setOSCAccept(ZLOSCAccept::ThisComputerOnly);
    EXPECT_EQ(outcomeFor(second), accepted);
    EXPECT_EQ(m_delegate.actions.size(), 5);
}

TEST_F(ZLOSCControllerSettingsTest, WithoutTheSettingNobodyIsAnswered)
{
    ZLSettingsManager::setOSCAnswersSenders(false);
    createController();
    receive(ZLOSCMessage(u"/zl/toggleRecording"_s, { 1.0F }));
    EXPECT_EQ(outputLabels(*m_controller), QStringList());
}

TEST_F(ZLOSCControllerSettingsTest, WhoSentAValidCommandIsToldTheStateForAWhile)
{
    ZLSettingsManager::setOSCAnswersSenders(true);
    createController();
    LoopbackPeer peer;
    const ZLOSCPeer sender { QHostAddress(QHostAddress::LocalHost), peer.port() };
    receive(ZLOSCMessage(u"/zl/toggleRecording"_s, { 0.0F }), sender);
    receive(ZLOSCMessage(u"/zl/unknown"_s, { 1.0F }), sender);
    EXPECT_EQ(outputLabels(*m_controller), QStringList()) << "only a command makes the program speak";

    receive(ZLOSCMessage(u"/zl/toggleRecording"_s, { 1.0F }), sender);
    QCoreApplication::processEvents();
    EXPECT_EQ(news(peer).value(0), u"/zl/isRecording true"_s);
    EXPECT_TRUE(m_controller->isAnsweredSender(m_controller->manager().outPortArray().ports().value(0)));
    advance(ZLOSCAnsweredSenders::LifetimeInSeconds - 1);
    tick();
    EXPECT_EQ(news(peer).size(), 2);
    receive(ZLOSCMessage(u"/zl/selectNextChapter"_s, { 1.0F }), sender);
    advance(ZLOSCAnsweredSenders::LifetimeInSeconds - 1);
    tick();
    EXPECT_EQ(news(peer).size(), 2) << "each command begins the time anew";
    advance(1);
    tick();
    (void)news(peer);
    tick();
    EXPECT_EQ(news(peer), QStringList());
    EXPECT_EQ(outputLabels(*m_controller), QStringList());
}

TEST_F(ZLOSCControllerSettingsTest, SwitchedOffTheAnsweredSendersGoAndTheOutputsStay)
{
    ZLSettingsManager::setOSCAnswersSenders(true);
    createController();
    ZLSettingsManager::setOSCOutputs({ { u"127.0.0.1"_s, 9001 } });
    receive(ZLOSCMessage(u"/zl/toggleRecording"_s, { 1.0F }), { QHostAddress(QHostAddress::LocalHost), 9002 });
    EXPECT_EQ(outputLabels(*m_controller).size(), 2);
    ZLSettingsManager::setOSCAnswersSenders(false);
    EXPECT_EQ(outputLabels(*m_controller), QStringList { u"127.0.0.1:9001"_s });
}
