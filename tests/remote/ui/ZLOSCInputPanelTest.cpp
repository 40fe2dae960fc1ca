#include "remote/ui/ZLOSCInputPanel.h"

#include "remote/ui/ZLConnectionsFixture.h"

#include <QSpinBox>
#include <QUdpSocket>

using namespace Qt::StringLiterals;

class ZLOSCInputPanelTest : public ZLConnectionsFixture {
protected:
    static ZLOSCNetwork network(const QString& text) { return *ZLOSCNetwork::fromText(text); }

    QList<ZLOSCNetwork> m_networks { network(u"127.0.0.1/8"_s) };
    ZLFakePublisher m_publisher;
    ZLOSCInputPanel m_panel { m_controller.inPort(), &m_publisher, [this] { return m_networks; } };
};

TEST_F(ZLOSCInputPanelTest, TheAddressesAreThoseAnotherDeviceCanUse)
{
    m_networks = { network(u"127.0.0.1/8"_s), network(u"fe80::1/64"_s), network(u"2001:db8::2/64"_s),
        network(u"192.0.2.2/24"_s) };
    m_panel.show();
    EXPECT_EQ(text(m_panel, "inputAddresses"), u"192.0.2.2\n2001:db8::2"_s);
}

TEST_F(ZLOSCInputPanelTest, WithoutANetworkTheAddressIsThisComputersOwn)
{
    m_panel.show();
    EXPECT_EQ(text(m_panel, "inputAddresses"), u"127.0.0.1"_s);
    m_networks.append(network(u"192.0.2.2/24"_s));
    m_panel.hide();
    m_panel.show();
    EXPECT_EQ(text(m_panel, "inputAddresses"), u"192.0.2.2"_s);
}

TEST_F(ZLOSCInputPanelTest, ThePortIsTheOneInUse)
{
    EXPECT_EQ(text(m_panel, "inputPort"), QString::number(m_controller.inPort().port()));
    EXPECT_TRUE(text(m_panel, "portNote").contains(QString::number(m_controller.inPort().port())));
    m_controller.inPort().close();
    EXPECT_EQ(text(m_panel, "inputPort"), u"none"_s);
}

TEST_F(ZLOSCInputPanelTest, AnotherWantedPortIsStoredAndTaken)
{
    QUdpSocket free;
    ASSERT_TRUE(free.bind(QHostAddress::LocalHost));
    const quint16 wanted = free.localPort();
    free.close();
    auto& box = child<QSpinBox>(m_panel, "wantedPort");
    EXPECT_EQ(box.value(), 9358);
    box.setValue(wanted);
    EXPECT_EQ(ZLSettingsManager::oscInputPort(), wanted);
    EXPECT_EQ(text(m_panel, "inputPort"), QString::number(m_controller.inPort().port()));
    ZLSettingsManager::setOSCInputPort(9400);
    EXPECT_EQ(box.value(), 9400);
}

TEST_F(ZLOSCInputPanelTest, TheAnnouncementIsToldInASentence)
{
    EXPECT_FALSE(isShown(m_panel, "announcement"));
    m_publisher.show(ZLServicePublisher::State::Unavailable, u"Zelta"_s);
    EXPECT_EQ(text(m_panel, "announcement"), u"state of Zelta"_s);
    EXPECT_TRUE(isShown(m_panel, "announcement"));
}

TEST_F(ZLOSCInputPanelTest, TheTextsToReadOffGrowWithTheFont)
{
    m_panel.show();
    const double before = child<QLabel>(m_panel, "inputPort").font().pointSizeF();
    QFont font = m_panel.font();
    font.setPointSizeF(font.pointSizeF() * 1.5);
    m_panel.setFont(font);
    EXPECT_NEAR(child<QLabel>(m_panel, "inputPort").font().pointSizeF(), before * 1.5, 0.5);
    EXPECT_GT(child<QLabel>(m_panel, "inputPort").font().pointSizeF(), font.pointSizeF());
}
