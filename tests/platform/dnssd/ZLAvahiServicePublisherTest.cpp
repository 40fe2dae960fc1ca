#include "platform/dnssd/ZLAvahiServicePublisher.h"

#include "platform/dnssd/ZLAvahiBus.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;
using PublisherState = ZLServicePublisher::State;

class ZLAvahiServicePublisherTest : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_EQ(bus.error(), QString());
        publisher = std::make_unique<ZLAvahiServicePublisher>(bus.connection());
    }

    void publish(quint16 port = 9000) { publisher->publish(u"Studio"_s, u"_osc._udp"_s, port); }

    [[nodiscard]] bool reaches(PublisherState state) const
    {
        return ZLAvahiBus::comesTrue([&] { return publisher->state() == state; });
    }

    ZLAvahiBus bus;
    std::unique_ptr<ZLAvahiServicePublisher> publisher;
};

TEST_F(ZLAvahiServicePublisherTest, AnnouncesWithNameTypeAndPort)
{
    ASSERT_TRUE(bus.startAvahi());
    EXPECT_EQ(publisher->state(), PublisherState::Idle);
    EXPECT_EQ(publisher->stateText(), QString());
    publish();
    EXPECT_EQ(publisher->state(), PublisherState::Publishing);
    ASSERT_TRUE(reaches(PublisherState::Published));
    EXPECT_THAT(bus.log(), ElementsAre(u"add Studio _osc._udp 9000"_s, u"commit"_s));
    EXPECT_EQ(publisher->stateText(), u"Announced on the network as “Studio”, port 9000."_s);
    EXPECT_EQ(publisher->announcedName(), u"Studio"_s);
}

TEST_F(ZLAvahiServicePublisherTest, SaysThatAvahiIsNotRunningAndAnnouncesWhenItComes)
{
    publish();
    ASSERT_TRUE(reaches(PublisherState::Unavailable));
    EXPECT_EQ(publisher->stateText(), u"Not announced on the network: Avahi is not running"_s);
    ASSERT_TRUE(bus.startAvahi());
    EXPECT_TRUE(reaches(PublisherState::Published));
}

TEST_F(ZLAvahiServicePublisherTest, AnnouncesAnewWhenAvahiRestarts)
{
    ASSERT_TRUE(bus.startAvahi());
    publish();
    ASSERT_TRUE(reaches(PublisherState::Published));
    bus.endMock();
    ASSERT_TRUE(reaches(PublisherState::Unavailable));
    ASSERT_TRUE(bus.startAvahi());
    ASSERT_TRUE(reaches(PublisherState::Published));
    EXPECT_THAT(bus.log(), ElementsAre(u"add Studio _osc._udp 9000"_s, u"commit"_s));
}

TEST_F(ZLAvahiServicePublisherTest, WaitsUntilTheComputersOwnNameIsSettled)
{
    ASSERT_TRUE(bus.startAvahi({ u"--state"_s, u"1"_s }));
    publish();
    bus.control(u"SetState"_s, { 3 });
    EXPECT_THAT(bus.log(), Not(Contains(u"commit"_s)));
    bus.control(u"SetState"_s, { 2 });
    ASSERT_TRUE(reaches(PublisherState::Published));
    // Another name of the computer: what was announced goes, and comes back with it.
    bus.control(u"SetState"_s, { 1 });
    ASSERT_TRUE(reaches(PublisherState::Publishing));
    EXPECT_TRUE(bus.hears(u"free Studio"_s));
    bus.control(u"SetState"_s, { 2 });
    EXPECT_TRUE(reaches(PublisherState::Published));
}

TEST_F(ZLAvahiServicePublisherTest, FollowsAChangedPort)
{
    ASSERT_TRUE(bus.startAvahi());
    publish(9000);
    ASSERT_TRUE(reaches(PublisherState::Published));
    publish(9001);
    EXPECT_EQ(publisher->state(), PublisherState::Publishing);
    ASSERT_TRUE(reaches(PublisherState::Published));
    EXPECT_THAT(bus.log(),
        ElementsAre(u"add Studio _osc._udp 9000"_s, u"commit"_s, u"free Studio"_s, u"add Studio _osc._udp 9001"_s,
            u"commit"_s));
    EXPECT_EQ(publisher->stateText(), u"Announced on the network as “Studio”, port 9001."_s);
}

TEST_F(ZLAvahiServicePublisherTest, LeavesAloneWhatAlreadyStands)
{
    ASSERT_TRUE(bus.startAvahi());
    publish();
    publish();
    ASSERT_TRUE(reaches(PublisherState::Published));
    publish();
    EXPECT_EQ(publisher->state(), PublisherState::Published);
    EXPECT_THAT(bus.log(), ElementsAre(u"add Studio _osc._udp 9000"_s, u"commit"_s));
}

TEST_F(ZLAvahiServicePublisherTest, TakesAnotherNameWhenAProgramHereHasIt)
{
    ASSERT_TRUE(bus.startAvahi({ u"--here"_s, u"Studio"_s, u"--here"_s, u"Studio #2"_s }));
    publish();
    ASSERT_TRUE(reaches(PublisherState::Published));
    EXPECT_EQ(publisher->announcedName(), u"Studio #3"_s);
    EXPECT_EQ(publisher->stateText(), u"Announced on the network as “Studio #3”, port 9000."_s);
}

TEST_F(ZLAvahiServicePublisherTest, TakesAnotherNameWhenAComputerElsewhereHasItAndKeepsItOnAnotherPort)
{
    ASSERT_TRUE(bus.startAvahi({ u"--elsewhere"_s, u"Studio"_s }));
    publish();
    ASSERT_TRUE(reaches(PublisherState::Published));
    EXPECT_EQ(publisher->announcedName(), u"Studio #2"_s);
    publish(9001);
    ASSERT_TRUE(reaches(PublisherState::Published));
    EXPECT_THAT(bus.log(),
        ElementsAre(u"add Studio _osc._udp 9000"_s, u"commit"_s, u"free Studio"_s, u"add Studio #2 _osc._udp 9000"_s,
            u"commit"_s, u"free Studio #2"_s, u"add Studio #2 _osc._udp 9001"_s, u"commit"_s));
}

TEST_F(ZLAvahiServicePublisherTest, TakesAnotherNameWhenItCollidesLater)
{
    ASSERT_TRUE(bus.startAvahi());
    publish();
    ASSERT_TRUE(reaches(PublisherState::Published));
    bus.control(u"TakeNamesElsewhere"_s, { QStringList { u"Studio"_s } });
    bus.control(u"SettleLastGroup"_s);
    EXPECT_TRUE(ZLAvahiBus::comesTrue([&] {
        return publisher->state() == PublisherState::Published && publisher->announcedName() == u"Studio #2"_s;
    }));
}

TEST_F(ZLAvahiServicePublisherTest, GivesUpWhenEveryNameIsTaken)
{
    QStringList taken { u"--elsewhere"_s, u"Studio"_s };
    for (int number = 2; number <= ZLAvahiServicePublisher::maximumRenames + 1; ++number)
        taken << u"--elsewhere"_s << u"Studio #%1"_s.arg(number);
    ASSERT_TRUE(bus.startAvahi(taken));
    publish();
    ASSERT_TRUE(reaches(PublisherState::Failed));
    EXPECT_THAT(publisher->stateText().toStdString(), testing::HasSubstr("every name is taken"));
}

TEST_F(ZLAvahiServicePublisherTest, TellsWhyAvahiRefuses)
{
    ASSERT_TRUE(bus.startAvahi({ u"--forbid"_s }));
    publish();
    ASSERT_TRUE(reaches(PublisherState::Failed));
    EXPECT_EQ(publisher->stateText(), u"Not announced on the network: Not permitted"_s);
    ASSERT_TRUE(bus.startAvahi());
    EXPECT_TRUE(reaches(PublisherState::Published));
}

TEST_F(ZLAvahiServicePublisherTest, TellsThatAnnouncingFailedAndTriesAgainWhenAsked)
{
    ASSERT_TRUE(bus.startAvahi({ u"--failure"_s, u"Out of luck"_s }));
    publish();
    ASSERT_TRUE(reaches(PublisherState::Failed));
    EXPECT_EQ(publisher->stateText(), u"Not announced on the network: Out of luck"_s);
    publish();
    EXPECT_EQ(publisher->state(), PublisherState::Publishing);
    EXPECT_TRUE(reaches(PublisherState::Failed));
}

TEST_F(ZLAvahiServicePublisherTest, IgnoresWhatComesTooLate)
{
    ASSERT_TRUE(bus.startAvahi({ u"--slow"_s }));
    publish(9000);
    ASSERT_TRUE(bus.hears(u"commit"_s));
    publish(9001);
    ASSERT_TRUE(bus.hears(u"add Studio _osc._udp 9001"_s));
    publisher->withdraw();
    EXPECT_EQ(publisher->state(), PublisherState::Idle);
    bus.control(u"TakeNamesElsewhere"_s, { QStringList { u"Studio"_s } });
    publisher->publish(u"Booth"_s, u"_osc._udp"_s, 9002);
    ASSERT_TRUE(bus.hears(u"add Booth _osc._udp 9002"_s));
    bus.control(u"SettleLastGroup"_s);
    ASSERT_TRUE(reaches(PublisherState::Published));
    EXPECT_EQ(publisher->announcedName(), u"Booth"_s);
}

TEST_F(ZLAvahiServicePublisherTest, WithdrawsWhenToldAndWhenItEnds)
{
    ASSERT_TRUE(bus.startAvahi());
    publish();
    ASSERT_TRUE(reaches(PublisherState::Published));
    publisher->withdraw();
    EXPECT_EQ(publisher->state(), PublisherState::Idle);
    EXPECT_EQ(publisher->announcedName(), QString());
    EXPECT_TRUE(bus.hears(u"free Studio"_s));
    publisher->publish(u"Booth"_s, u"_osc._udp"_s, 9000);
    ASSERT_TRUE(reaches(PublisherState::Published));
    publisher.reset();
    EXPECT_TRUE(bus.hears(u"free Booth"_s));
}

TEST_F(ZLAvahiServicePublisherTest, FreesAGroupThatWasMadeTooLate)
{
    ASSERT_TRUE(bus.startAvahi());
    publish();
    ASSERT_TRUE(reaches(PublisherState::Published));
    // Withdrawn again before Avahi can have answered.
    publisher->publish(u"Booth"_s, u"_osc._udp"_s, 9000);
    publisher->withdraw();
    EXPECT_TRUE(bus.hears(u"free "_s));
    EXPECT_THAT(bus.log(), Not(Contains(u"add Booth _osc._udp 9000"_s)));
}

TEST_F(ZLAvahiServicePublisherTest, RefusesAnEmptyNameAndPortZero)
{
    ASSERT_TRUE(bus.startAvahi());
    publisher->publish(u" \n"_s, u"_osc._udp"_s, 9000);
    EXPECT_EQ(publisher->state(), PublisherState::Failed);
    publish(0);
    EXPECT_EQ(publisher->state(), PublisherState::Failed);
    publish();
    ASSERT_TRUE(reaches(PublisherState::Published));
    EXPECT_THAT(bus.log(), ElementsAre(u"add Studio _osc._udp 9000"_s, u"commit"_s));
}

TEST_F(ZLAvahiServicePublisherTest, AnnouncesANameThatFits)
{
    ASSERT_TRUE(bus.startAvahi());
    publisher->publish(u"Töne\n日本 "_s + QString(80, u'x'), u"_osc._udp"_s, 9000);
    ASSERT_TRUE(reaches(PublisherState::Published));
    EXPECT_EQ(publisher->announcedName(), u"Töne 日本 "_s + QString(50, u'x'));
}

TEST_F(ZLAvahiServicePublisherTest, KnowsItsOwnServiceAmongThoseFound)
{
    ASSERT_TRUE(bus.startAvahi({ u"--elsewhere"_s, u"Studio"_s }));
    publish();
    ASSERT_TRUE(reaches(PublisherState::Published));
    ZLFoundService found { u"Studio #2"_s, u"host.local"_s, QHostAddress(QHostAddress::LocalHost), 9000, true };
    EXPECT_TRUE(publisher->announces(found));
    found.isLocal = false;
    EXPECT_FALSE(publisher->announces(found));
    found = { u"Studio"_s, u"host.local"_s, QHostAddress(QHostAddress::LocalHost), 9000, true };
    EXPECT_FALSE(publisher->announces(found));
}

TEST_F(ZLAvahiServicePublisherTest, SaysThatThereIsNoBus)
{
    ZLAvahiServicePublisher alone { QDBusConnection(u"no such connection"_s) };
    alone.publish(u"Studio"_s, u"_osc._udp"_s, 9000);
    EXPECT_EQ(alone.state(), PublisherState::Unavailable);
    EXPECT_EQ(alone.stateText(), u"Not announced on the network: no system D-Bus"_s);
}

TEST_F(ZLAvahiServicePublisherTest, SurvivesTheEndOfTheBus)
{
    ASSERT_TRUE(bus.startAvahi());
    publish();
    ASSERT_TRUE(reaches(PublisherState::Published));
    bus.end();
    ASSERT_TRUE(reaches(PublisherState::Unavailable));
    publish(9001);
    EXPECT_EQ(publisher->state(), PublisherState::Unavailable);
}
