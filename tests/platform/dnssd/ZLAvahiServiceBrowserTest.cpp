#include "platform/dnssd/ZLAvahiServiceBrowser.h"

#include "platform/dnssd/ZLAvahiBus.h"

#include <QDBusMessage>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using State = ZLServiceBrowser::State;

class ZLAvahiServiceBrowserTest : public testing::Test {
protected:
    static constexpr int v4 = 0;
    static constexpr int v6 = 1;
    static constexpr uint local = 8;

    void SetUp() override
    {
        ASSERT_EQ(bus.error(), QString());
        browser = std::make_unique<ZLAvahiServiceBrowser>(u"_osc._udp"_s, bus.connection());
        QObject::connect(browser.get(), &ZLServiceBrowser::serviceWasAdded, browser.get(),
            [this](const ZLFoundService& service) { events.append(u"+ "_s + line(service)); });
        QObject::connect(browser.get(), &ZLServiceBrowser::serviceWasRemoved, browser.get(),
            [this](const ZLFoundService& service) { events.append(u"- "_s + line(service)); });
    }

    static QString line(const ZLFoundService& service)
    {
        // Put together by hand: a scope such as "%2" would be taken for a place to fill.
        return service.name + u" at "_s + service.address.toString() + u':' + QString::number(service.port);
    }

    [[nodiscard]] QStringList lines() const
    {
        QStringList result;
        for (const ZLFoundService& service : browser->services())
            result.append(line(service));
        return result;
    }

    void announce(
        const QString& name, const QString& address, int port, int interface = 2, int protocol = v4, uint flags = 0)
    {
        const QVariant portOnWire = QVariant::fromValue(ushort(port));
        bus.control(u"Announce"_s, { interface, protocol, name, u"desk.local"_s, address, portOnWire, flags });
    }

    /// What comes over the bus comes in order, so this one is the end of what was announced before.
    [[nodiscard]] bool seesTheLast()
    {
        announce(u"~last"_s, u"192.0.2.99"_s, 99);
        return sees(u"~last at 192.0.2.99:99"_s);
    }

    [[nodiscard]] bool sees(const QString& wanted) const
    {
        return ZLAvahiBus::comesTrue([&] { return lines().contains(wanted); });
    }

    [[nodiscard]] bool seesNothing() const
    {
        return ZLAvahiBus::comesTrue([&] { return browser->services().isEmpty(); });
    }

    [[nodiscard]] bool reaches(State state) const
    {
        return ZLAvahiBus::comesTrue([&] { return browser->state() == state; });
    }

    ZLAvahiBus bus;
    std::unique_ptr<ZLAvahiServiceBrowser> browser;
    QStringList events;
};

TEST_F(ZLAvahiServiceBrowserTest, ListsWhatAppearsAndForgetsWhatVanishes)
{
    ASSERT_TRUE(bus.startAvahi());
    announce(u"Mixer"_s, u"192.0.2.7"_s, 8000);
    ASSERT_TRUE(sees(u"Mixer at 192.0.2.7:8000"_s));
    const ZLFoundService mixer = browser->services().constFirst();
    EXPECT_EQ(mixer.hostName, u"desk.local"_s);
    EXPECT_FALSE(mixer.isLocal);
    announce(u"Lights"_s, u"192.0.2.8"_s, 8001);
    ASSERT_TRUE(sees(u"Lights at 192.0.2.8:8001"_s));
    EXPECT_THAT(lines(), ElementsAre(u"Lights at 192.0.2.8:8001"_s, u"Mixer at 192.0.2.7:8000"_s));
    bus.control(u"Withdraw"_s, { 2, v4, u"Mixer"_s });
    ASSERT_TRUE(ZLAvahiBus::comesTrue([&] { return browser->services().size() == 1; }));
    EXPECT_THAT(events,
        ElementsAre(u"+ Mixer at 192.0.2.7:8000"_s, u"+ Lights at 192.0.2.8:8001"_s, u"- Mixer at 192.0.2.7:8000"_s));
    EXPECT_TRUE(bus.hears(u"free resolver Mixer"_s));
}

TEST_F(ZLAvahiServiceBrowserTest, SaysThatAvahiIsNotRunningAndLooksWhenItComes)
{
    ASSERT_TRUE(reaches(State::Unavailable));
    EXPECT_EQ(browser->stateText(), u"Cannot look for services on the network: Avahi is not running"_s);
    EXPECT_THAT(browser->services(), IsEmpty());
    ASSERT_TRUE(bus.startAvahi());
    ASSERT_TRUE(reaches(State::Browsing));
    EXPECT_EQ(browser->stateText(), u"Services on the network are listed as they are found."_s);
    announce(u"Mixer"_s, u"192.0.2.7"_s, 8000);
    EXPECT_TRUE(sees(u"Mixer at 192.0.2.7:8000"_s));
}

TEST_F(ZLAvahiServiceBrowserTest, ForgetsAllWhenAvahiEndsAndLooksAnewWhenItRestarts)
{
    ASSERT_TRUE(bus.startAvahi());
    announce(u"Mixer"_s, u"192.0.2.7"_s, 8000);
    ASSERT_TRUE(sees(u"Mixer at 192.0.2.7:8000"_s));
    bus.endMock();
    ASSERT_TRUE(reaches(State::Unavailable));
    EXPECT_THAT(browser->services(), IsEmpty());
    EXPECT_THAT(events, Contains(u"- Mixer at 192.0.2.7:8000"_s));
    ASSERT_TRUE(bus.startAvahi());
    announce(u"Lights"_s, u"192.0.2.8"_s, 8001);
    ASSERT_TRUE(sees(u"Lights at 192.0.2.8:8001"_s));
    EXPECT_THAT(browser->services(), testing::SizeIs(1));
}

TEST_F(ZLAvahiServiceBrowserTest, FollowsAServiceToAnotherPort)
{
    ASSERT_TRUE(bus.startAvahi());
    announce(u"Mixer"_s, u"192.0.2.7"_s, 8000);
    ASSERT_TRUE(sees(u"Mixer at 192.0.2.7:8000"_s));
    announce(u"Mixer"_s, u"192.0.2.7"_s, 8005);
    ASSERT_TRUE(sees(u"Mixer at 192.0.2.7:8005"_s));
    EXPECT_THAT(events,
        ElementsAre(u"+ Mixer at 192.0.2.7:8000"_s, u"- Mixer at 192.0.2.7:8000"_s, u"+ Mixer at 192.0.2.7:8005"_s));
}

TEST_F(ZLAvahiServiceBrowserTest, ListsAServiceOnceOverHoweverManyNetworks)
{
    ASSERT_TRUE(bus.startAvahi());
    announce(u"Mixer"_s, u"fe80::7"_s, 8000, 2, v6);
    ASSERT_TRUE(sees(u"Mixer at fe80::7%2:8000"_s));
    announce(u"Mixer"_s, u"192.0.2.7"_s, 8000, 2, v4);
    ASSERT_TRUE(sees(u"Mixer at 192.0.2.7:8000"_s));
    announce(u"Mixer"_s, u"198.51.100.7"_s, 8000, 3, v4);
    ASSERT_TRUE(seesTheLast());
    EXPECT_THAT(lines(), testing::UnorderedElementsAre(u"~last at 192.0.2.99:99"_s, u"Mixer at 192.0.2.7:8000"_s));
    bus.control(u"Withdraw"_s, { 2, v4, u"Mixer"_s });
    EXPECT_TRUE(sees(u"Mixer at 198.51.100.7:8000"_s));
    bus.control(u"Withdraw"_s, { 3, v4, u"Mixer"_s });
    EXPECT_TRUE(sees(u"Mixer at fe80::7%2:8000"_s));
}

TEST_F(ZLAvahiServiceBrowserTest, MarksWhatThisComputerAnnouncesAndReachesItInside)
{
    ASSERT_TRUE(bus.startAvahi());
    announce(u"Studio"_s, u"192.0.2.1"_s, 9000, 2, v4, local);
    ASSERT_TRUE(sees(u"Studio at 192.0.2.1:9000"_s));
    EXPECT_TRUE(browser->services().constFirst().isLocal);
    announce(u"Studio"_s, u"127.0.0.1"_s, 9000, 1, v4, local);
    EXPECT_TRUE(sees(u"Studio at 127.0.0.1:9000"_s));
}

TEST_F(ZLAvahiServiceBrowserTest, IgnoresWhatCannotBeReached)
{
    ASSERT_TRUE(bus.startAvahi());
    announce(u"Port zero"_s, u"192.0.2.7"_s, 0);
    announce(u"No address"_s, u""_s, 8000);
    announce(u"Nonsense"_s, u"192.0.2.7; rm -rf"_s, 8000);
    announce(u"Many"_s, u"224.0.0.251"_s, 8000);
    announce(u"All"_s, u"255.255.255.255"_s, 8000);
    announce(u"Any"_s, u"0.0.0.0"_s, 8000);
    announce(u"Any new"_s, u"::"_s, 8000, 2, v6);
    ASSERT_TRUE(seesTheLast());
    EXPECT_THAT(lines(), ElementsAre(u"~last at 192.0.2.99:99"_s));
}

TEST_F(ZLAvahiServiceBrowserTest, DropsAServiceThatCanNoLongerBeReached)
{
    ASSERT_TRUE(bus.startAvahi());
    announce(u"Mixer"_s, u"192.0.2.7"_s, 8000);
    ASSERT_TRUE(sees(u"Mixer at 192.0.2.7:8000"_s));
    announce(u"Mixer"_s, u"192.0.2.7"_s, 0);
    // The mock keeps both records, as a network may; the later one holds.
    EXPECT_TRUE(seesNothing());
}

TEST_F(ZLAvahiServiceBrowserTest, ShowsOddNamesOnOneLine)
{
    ASSERT_TRUE(bus.startAvahi());
    const QString odd = u"日本.\\ä \"<b>x</b>\"\n\u202Etxt"_s;
    announce(odd, u"192.0.2.7"_s, 8000);
    EXPECT_TRUE(sees(u"日本.\\ä \"<b>x</b>\"  txt at 192.0.2.7:8000"_s));
    bus.control(u"Withdraw"_s, { 2, v4, odd });
    EXPECT_TRUE(seesNothing());
}

TEST_F(ZLAvahiServiceBrowserTest, ListsNoMoreThanItCanHold)
{
    ASSERT_TRUE(bus.startAvahi());
    for (int number = 0; number < ZLAvahiServiceBrowser::maximumInstances + 3; ++number)
        announce(u"Flood %1"_s.arg(number), u"192.0.2.7"_s, 8000);
    ASSERT_TRUE(
        ZLAvahiBus::comesTrue([&] { return browser->services().size() == ZLAvahiServiceBrowser::maximumInstances; }));
    bus.control(u"Withdraw"_s, { 2, v4, u"Flood 0"_s });
    ASSERT_TRUE(seesTheLast());
    EXPECT_THAT(browser->services(), testing::SizeIs(ZLAvahiServiceBrowser::maximumInstances));
}

TEST_F(ZLAvahiServiceBrowserTest, DoesNotListenToOthers)
{
    ASSERT_TRUE(bus.startAvahi());
    ASSERT_TRUE(bus.hears(u"browse _osc._udp"_s));
    QDBusMessage forged = QDBusMessage::createSignal(
        u"/Client0/ServiceBrowser1"_s, u"org.freedesktop.Avahi.ServiceBrowser"_s, u"ItemNew"_s);
    forged.setArguments({ 2, v4, u"Forged"_s, u"_osc._udp"_s, u"local"_s, 0U });
    ASSERT_TRUE(bus.connection().send(forged));
    ASSERT_TRUE(seesTheLast());
    EXPECT_THAT(bus.log(), Not(Contains(u"resolve Forged"_s)));
}

TEST_F(ZLAvahiServiceBrowserTest, TellsWhyAvahiRefuses)
{
    ASSERT_TRUE(bus.startAvahi({ u"--forbid"_s }));
    ASSERT_TRUE(reaches(State::Failed));
    EXPECT_EQ(browser->stateText(), u"Avahi could not look for services on the network: Not permitted"_s);
    ASSERT_TRUE(bus.startAvahi());
    EXPECT_TRUE(reaches(State::Browsing));
}

TEST_F(ZLAvahiServiceBrowserTest, TellsThatLookingFailedLater)
{
    ASSERT_TRUE(bus.startAvahi());
    ASSERT_TRUE(bus.hears(u"browse _osc._udp"_s));
    bus.control(u"FailBrowsers"_s, { u"Out of luck"_s });
    ASSERT_TRUE(reaches(State::Failed));
    EXPECT_EQ(browser->stateText(), u"Avahi could not look for services on the network: Out of luck"_s);
}

TEST_F(ZLAvahiServiceBrowserTest, EndsItsBrowserAtAvahi)
{
    ASSERT_TRUE(bus.startAvahi());
    announce(u"Mixer"_s, u"192.0.2.7"_s, 8000);
    ASSERT_TRUE(sees(u"Mixer at 192.0.2.7:8000"_s));
    browser.reset();
    EXPECT_TRUE(bus.hears(u"free browser"_s));
    EXPECT_TRUE(bus.hears(u"free resolver Mixer"_s));
}

TEST_F(ZLAvahiServiceBrowserTest, EndsWhatAvahiIsStillMaking)
{
    ASSERT_TRUE(bus.startAvahi());
    auto* const hasty = new ZLAvahiServiceBrowser(u"_osc._udp"_s, bus.connection());
    // It looks from now on, so that its browser was asked for and has not come yet.
    QObject::connect(hasty, &ZLServiceBrowser::stateDidChange, hasty, [hasty] {
        if (hasty->state() == State::Browsing)
            hasty->deleteLater();
    });
    EXPECT_TRUE(bus.hears(u"free browser"_s));
}

TEST_F(ZLAvahiServiceBrowserTest, SaysThatThereIsNoBus)
{
    const ZLAvahiServiceBrowser alone { u"_osc._udp"_s, QDBusConnection(u"no such connection"_s) };
    EXPECT_EQ(alone.state(), State::Unavailable);
    EXPECT_EQ(alone.stateText(), u"Cannot look for services on the network: no system D-Bus"_s);
}

TEST_F(ZLAvahiServiceBrowserTest, SurvivesTheEndOfTheBus)
{
    ASSERT_TRUE(bus.startAvahi());
    announce(u"Mixer"_s, u"192.0.2.7"_s, 8000);
    ASSERT_TRUE(sees(u"Mixer at 192.0.2.7:8000"_s));
    bus.end();
    ASSERT_TRUE(reaches(State::Unavailable));
    EXPECT_THAT(browser->services(), IsEmpty());
}
