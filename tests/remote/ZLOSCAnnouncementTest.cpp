#include "remote/ZLOSCAnnouncement.h"

#include "platform/dnssd/ZLAvahiBus.h"
#include "platform/dnssd/ZLAvahiServicePublisher.h"
#include "remote/ZLOSCControllerFixture.h"

#include <QUdpSocket>

using namespace Qt::StringLiterals;

namespace {

/// Notes what it is asked to announce, as "_osc._udp 9358".
class NotingPublisher final : public ZLServicePublisher {
public:
    explicit NotingPublisher(QStringList& notes)
        : m_notes(notes)
    {
    }
    void publish(const QString&, const QString& type, quint16 port) override
    {
        m_notes.append(u"%1 %2"_s.arg(type).arg(port));
    }
    void withdraw() override { m_notes.append(u"withdrawn"_s); }

private:
    QStringList& m_notes;
};

/// No other program gets its port as long as it lives.
class PortHolder {
public:
    PortHolder() { m_socket.bind(QHostAddress::Any, 0); }
    [[nodiscard]] quint16 number() const { return m_socket.localPort(); }
    void release() { m_socket.close(); }

private:
    QUdpSocket m_socket;
};

}

class ZLOSCAnnouncementTest : public ZLOSCControllerFixture {
protected:
    void announceBy(std::unique_ptr<ZLServicePublisher> publisher)
    {
        m_announcement = std::make_unique<ZLOSCAnnouncement>(m_controller->inPort(), std::move(publisher));
    }
    void announce() { announceBy(std::make_unique<NotingPublisher>(m_notes)); }

    /// The input's port as the publisher notes it.
    [[nodiscard]] QString portInUse() const { return u"_osc._udp %1"_s.arg(m_controller->inPort().port()); }

    QStringList m_notes;
    std::unique_ptr<ZLOSCAnnouncement> m_announcement;
};

TEST_F(ZLOSCAnnouncementTest, ThePortInUseIsAnnouncedAndNotTheWantedOne)
{
    const PortHolder taken;
    ZLSettingsManager::setOSCInputPort(taken.number());
    ZLOSCControllerSetup fromSettings = setup();
    fromSettings.inputPort.reset();
    createController(std::move(fromSettings));
    announce();
    ASSERT_NE(m_controller->inPort().port(), 0);
    EXPECT_NE(m_controller->inPort().port(), taken.number());
    EXPECT_EQ(m_notes, QStringList { portInUse() });
}

TEST_F(ZLOSCAnnouncementTest, TheAnnouncementFollowsThePortInUse)
{
    createController();
    announce();
    const QString first = portInUse();
    const PortHolder wanted;
    ZLSettingsManager::setOSCInputPort(wanted.number());
    EXPECT_NE(portInUse(), first);
    EXPECT_EQ(m_notes, (QStringList { first, portInUse() }));
}

TEST_F(ZLOSCAnnouncementTest, NothingIsAnnouncedWhileThereIsNoPort)
{
    PortHolder taken;
    ZLOSCControllerSetup given = setup();
    given.inputPort = taken.number();
    createController(std::move(given));
    announce();
    EXPECT_EQ(m_notes, QStringList { u"withdrawn"_s });
    const quint16 wanted = taken.number();
    taken.release();
    ZLSettingsManager::setOSCInputPort(wanted);
    EXPECT_EQ(m_notes, (QStringList { u"withdrawn"_s, portInUse() }));
    m_controller->inPort().close();
    EXPECT_EQ(m_notes.last(), u"withdrawn"_s);
}

TEST_F(ZLOSCAnnouncementTest, AvahiHearsOfTheNewPortAndForgetsTheOldOne)
{
    ZLAvahiBus bus;
    ASSERT_EQ(bus.error(), QString());
    ASSERT_TRUE(bus.startAvahi());
    createController();
    announceBy(std::make_unique<ZLAvahiServicePublisher>(bus.connection()));
    const auto isAnnounced = [this] {
        return ZLAvahiBus::comesTrue(
            [this] { return m_announcement->publisher().state() == ZLServicePublisher::State::Published; });
    };
    ASSERT_TRUE(isAnnounced());
    const QString name = m_announcement->publisher().announcedName();
    const QString first = portInUse();
    const PortHolder wanted;
    ZLSettingsManager::setOSCInputPort(wanted.number());
    ASSERT_TRUE(isAnnounced());
    EXPECT_EQ(m_announcement->publisher().announcedName(), name);
    EXPECT_EQ(bus.log(),
        (QStringList { u"add %1 %2"_s.arg(name, first), u"commit"_s, u"free "_s + name,
            u"add %1 %2"_s.arg(name, portInUse()), u"commit"_s }));
    // Before the bus.
    m_announcement.reset();
}
