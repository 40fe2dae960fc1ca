#include "platform/osc/ZLOSCAccessPolicy.h"

#include "platform/osc/ZLOSCConnectedNetworks.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using Mode = ZLOSCAccessPolicy::Mode;

struct Case {
    const char* sender;
    bool thisComputer;
    bool connected;
    bool listed;
};

// This computer is 192.168.1.7 and 10.8.0.2 (alone in its network), fd00:1::7 and fe80::7 on "eth9"; listed are
// 203.0.113.5, 198.51.100.0/24, 2001:db8:5::/48 and ::ffff:172.16.0.0/108.
constexpr Case cases[] = {
    { "127.0.0.1", true, true, false },
    { "127.8.9.10", true, true, false },
    { "::1", true, true, false },
    { "::ffff:127.0.0.1", true, true, false },
    { "192.168.1.7", true, true, false },
    { "::ffff:192.168.1.7", true, true, false },
    { "192.168.1.99", false, true, false },
    { "::ffff:192.168.1.99", false, true, false },
    { "192.168.2.7", false, false, false },
    { "10.8.0.2", true, true, false },
    { "10.8.0.3", false, false, false },
    { "fd00:1::7", true, true, false },
    { "fd00:1::8", false, true, false },
    { "fd00:2::8", false, false, false },
    { "fe80::7%eth9", true, true, false },
    { "fe80::8%eth9", false, true, false },
    { "fe80::8%eth8", false, false, false },
    { "fe80::8", false, false, false },
    { "203.0.113.5", false, false, true },
    { "::ffff:203.0.113.5", false, false, true },
    { "203.0.113.6", false, false, false },
    { "198.51.100.255", false, false, true },
    { "198.51.101.0", false, false, false },
    { "2001:db8:5:9::1", false, false, true },
    { "2001:db8:6::1", false, false, false },
    { "172.16.200.1", false, false, true },
    { "172.32.0.1", false, false, false },
    { "8.8.8.8", false, false, false },
    { "0.0.0.0", false, false, false },
    { "::", false, false, false },
};

QList<ZLOSCNetwork> networks(const QStringList& texts)
{
    QList<ZLOSCNetwork> result;
    for (const QString& text : texts)
        result.append(ZLOSCNetwork::fromText(text).value());
    return result;
}

ZLOSCAccessPolicy policy(Mode mode)
{
    ZLOSCAccessPolicy made(
        mode, networks({ u"203.0.113.5"_s, u"198.51.100.0/24"_s, u"2001:db8:5::/48"_s, u"::ffff:172.16.0.0/108"_s }));
    made.setConnectedNetworks(
        networks({ u"192.168.1.7/24"_s, u"10.8.0.2"_s, u"fd00:1::7/64"_s, u"fe80::7%eth9/64"_s }));
    return made;
}

class FakeClock final : public ZLHostClock {
public:
    double now() const override { return time; }
    double time = 100;
};

}

TEST(ZLOSCAccessPolicy, eachModeLetsInWhomItNames)
{
    for (const Case& each : cases) {
        const QHostAddress sender(QString::fromLatin1(each.sender));
        ASSERT_FALSE(sender.isNull()) << each.sender;
        EXPECT_EQ(policy(Mode::ThisComputerOnly).isAllowed(sender), each.thisComputer) << each.sender;
        EXPECT_EQ(policy(Mode::DirectlyConnectedNetworks).isAllowed(sender), each.connected) << each.sender;
        EXPECT_EQ(policy(Mode::OnlyTheseAddresses).isAllowed(sender), each.listed) << each.sender;
    }
}

TEST(ZLOSCAccessPolicy, directlyConnectedNetworksAreTheDefault)
{
    EXPECT_EQ(ZLOSCAccessPolicy().mode(), Mode::DirectlyConnectedNetworks);
    EXPECT_TRUE(ZLOSCAccessPolicy().isAllowed(QHostAddress(QHostAddress::LocalHost)));
    EXPECT_FALSE(ZLOSCAccessPolicy().isAllowed(QHostAddress(u"192.168.1.7"_s)));
}

TEST(ZLOSCAccessPolicy, anEmptyListOrNoAddressLetsNobodyIn)
{
    EXPECT_FALSE(ZLOSCAccessPolicy(Mode::OnlyTheseAddresses).isAllowed(QHostAddress(QHostAddress::LocalHost)));
    for (const Mode mode : { Mode::ThisComputerOnly, Mode::DirectlyConnectedNetworks, Mode::OnlyTheseAddresses })
        EXPECT_FALSE(policy(mode).isAllowed(QHostAddress()));
}

TEST(ZLOSCAccessPolicy, aLinkLocalAddressIsListedWithOrWithoutItsInterface)
{
    const ZLOSCAccessPolicy anywhere(Mode::OnlyTheseAddresses, networks({ u"fe80::1"_s }));
    EXPECT_TRUE(anywhere.isAllowed(QHostAddress(u"fe80::1%eth0"_s)));
    EXPECT_FALSE(anywhere.isAllowed(QHostAddress(u"fe80::2%eth0"_s)));
    const ZLOSCAccessPolicy there(Mode::OnlyTheseAddresses, networks({ u"fe80::1%lo"_s }));
    EXPECT_TRUE(there.isAllowed(QHostAddress(u"fe80::1%lo"_s)));
    EXPECT_TRUE(there.isAllowed(QHostAddress(u"fe80::1%1"_s)));
    EXPECT_FALSE(there.isAllowed(QHostAddress(u"fe80::1%2"_s)));
}

TEST(ZLOSCNetwork, textsAreReadAndWritten)
{
    for (const char* text : { "192.168.1.7", "192.168.0.0/16", "fd00::/8", "::1", "0.0.0.0/0", "fe80::1%lo" })
        EXPECT_EQ(ZLOSCNetwork::fromText(QString::fromLatin1(text)).value().text(), QString::fromLatin1(text));
    EXPECT_EQ(ZLOSCNetwork::fromText(u" [::1] ").value().text(), u"::1"_s);
    EXPECT_EQ(ZLOSCNetwork::fromText(u"192.168.1.7/32").value().text(), u"192.168.1.7"_s);
    EXPECT_EQ(ZLOSCNetwork::fromText(u"::ffff:10.0.0.1").value().text(), u"10.0.0.1"_s);
    for (const char* text : { "", "studio", "7", "1.2.3", "1.2.3.4.5", "1.2.3.256", "1.2.3.4/33", "1.2.3.4/-1",
             "1.2.3.4/", "1.2.3.4/x", "::1/129", "::ffff:10.0.0.1/95", "/24", ":", "[", "1.2.3.4/8/8" })
        EXPECT_FALSE(ZLOSCNetwork::fromText(QString::fromLatin1(text)).has_value()) << text;
}

TEST(ZLOSCConnectedNetworks, theSystemIsAskedOnlyWhenTheAnswerHasGrownOld)
{
    int asked = 0;
    const auto clock = std::make_shared<FakeClock>();
    ZLOSCConnectedNetworks connected([&] { return ++asked, networks({ u"192.168.1.7/24"_s }); }, clock);
    EXPECT_TRUE(connected.refresh());
    EXPECT_EQ(connected.networks(), networks({ u"192.168.1.7/24"_s }));
    clock->time += ZLOSCConnectedNetworks::lifetimeInSeconds - 0.5;
    EXPECT_FALSE(connected.refresh());
    EXPECT_EQ(asked, 1);
    clock->time += 1;
    EXPECT_TRUE(connected.refresh());
    EXPECT_EQ(asked, 2);
}

TEST(ZLOSCConnectedNetworks, thisComputerHasLoopbackAndNoNetworkThatIsTheWholeWorld)
{
    const QList<ZLOSCNetwork> own = ZLOSCConnectedNetworks::ofThisComputer();
    EXPECT_TRUE(own.contains(ZLOSCNetwork::fromText(u"127.0.0.1/8").value()));
    for (const ZLOSCNetwork& network : own)
        EXPECT_GT(network.prefixLength, 0);
}
