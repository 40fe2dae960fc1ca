#include "remote/ui/ZLOSCServicesPanel.h"

#include "remote/ui/ZLConnectionsFixture.h"

#include <QListWidget>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

class ZLOSCServicesPanelTest : public ZLConnectionsFixture {
protected:
    void SetUp() override { m_panel.show(); }

    static ZLFoundService service(const QString& name, const QString& address, quint16 port, bool isLocal = false)
    {
        return { name, u"host.local"_s, QHostAddress(address), port, isLocal };
    }
    [[nodiscard]] QListWidget& list() const { return child<QListWidget>(m_panel, "services"); }
    [[nodiscard]] QStringList shown() const { return column(*list().model(), 0); }

    ZLFakeBrowser m_browser;
    ZLFakePublisher m_publisher;
    ZLOSCServicesPanel m_panel { m_browser, &m_publisher };
};

TEST_F(ZLOSCServicesPanelTest, ServicesComeAndGo)
{
    m_browser.find({ service(u"Mixer"_s, u"192.0.2.7"_s, 8000), service(u"Tablet"_s, u"2001:db8::1"_s, 8001) });
    EXPECT_EQ(shown(), (QStringList { u"Mixer (192.0.2.7:8000)"_s, u"Tablet ([2001:db8::1]:8001)"_s }));
    m_browser.find({});
    EXPECT_TRUE(shown().isEmpty());
}

TEST_F(ZLOSCServicesPanelTest, TheRecordersOwnServiceIsLeftOut)
{
    m_browser.find({ service(u"Zelta"_s, u"127.0.0.1"_s, 9358, true), service(u"Mixer"_s, u"192.0.2.7"_s, 8000) });
    EXPECT_EQ(shown().size(), 2);
    m_publisher.show(ZLServicePublisher::State::Published, u"Zelta"_s);
    EXPECT_EQ(shown(), QStringList(u"Mixer (192.0.2.7:8000)"_s));
}

TEST_F(ZLOSCServicesPanelTest, TheSelectedServiceBecomesAnOutput)
{
    const QSignalSpy requests(&m_panel, &ZLOSCServicesPanel::outputRequested);
    m_browser.find({ service(u"Mixer"_s, u"192.0.2.7"_s, 8000), service(u"Tablet"_s, u"2001:db8::1"_s, 8001) });
    EXPECT_FALSE(child<QPushButton>(m_panel, "addService").isEnabled());
    list().setCurrentRow(1);
    // The selection stays with its service.
    m_browser.find({ service(u"Tablet"_s, u"2001:db8::1"_s, 8001) });
    click(m_panel, "addService");
    ASSERT_EQ(requests.size(), 1);
    EXPECT_EQ(requests.first().first().toString(), u"[2001:db8::1]:8001"_s);
}

TEST_F(ZLOSCServicesPanelTest, WithoutAvahiItSaysSo)
{
    m_browser.show(ZLServiceBrowser::State::Unavailable, u"Avahi is not running."_s);
    EXPECT_EQ(text(m_panel, "servicesNote"), u"Avahi is not running."_s);
}
