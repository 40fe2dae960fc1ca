#include "platform/dnssd/ZLAvahiServiceBrowser.h"
#include "platform/dnssd/ZLAvahiServicePublisher.h"

#include <QTest>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using State = ZLServicePublisher::State;

class RealAvahiTest : public testing::Test {
protected:
    [[nodiscard]] static bool comesTrue(const std::function<bool()>& condition)
    {
        constexpr int deadlineMilliseconds = 20000;
        return QTest::qWaitFor(condition, deadlineMilliseconds);
    }

    [[nodiscard]] const ZLFoundService* found(const QString& name)
    {
        services = browser.services();
        for (const ZLFoundService& service : std::as_const(services)) {
            if (service.name == name)
                return &service;
        }
        return nullptr;
    }

    [[nodiscard]] bool finds(const QString& name, quint16 port)
    {
        return comesTrue([&] {
            const ZLFoundService* const service = found(name);
            return service && service->port == port;
        });
    }

    [[nodiscard]] static bool isPublished(const ZLServicePublisher& publisher)
    {
        return comesTrue([&] { return publisher.state() == State::Published; });
    }

    ZLAvahiServiceBrowser browser { u"_osc._udp"_s };
    QList<ZLFoundService> services;
};

TEST_F(RealAvahiTest, AnnouncesMovesAndWithdraws)
{
    auto publisher = std::make_unique<ZLAvahiServicePublisher>();
    publisher->publish(u"Töne. 日本 \\ <x>"_s, u"_osc._udp"_s, 9100);
    ASSERT_TRUE(isPublished(*publisher)) << publisher->stateText().toStdString();
    ASSERT_TRUE(finds(u"Töne. 日本 \\ <x>"_s, 9100));
    EXPECT_EQ(found(u"Töne. 日本 \\ <x>"_s)->address, QHostAddress(QHostAddress::LocalHost));
    EXPECT_TRUE(found(u"Töne. 日本 \\ <x>"_s)->isLocal);
    EXPECT_TRUE(publisher->announces(*found(u"Töne. 日本 \\ <x>"_s)));
    publisher->publish(u"Töne. 日本 \\ <x>"_s, u"_osc._udp"_s, 9101);
    ASSERT_TRUE(isPublished(*publisher));
    EXPECT_TRUE(finds(u"Töne. 日本 \\ <x>"_s, 9101));
    publisher.reset();
    EXPECT_TRUE(comesTrue([&] { return browser.services().isEmpty(); }));
}

TEST_F(RealAvahiTest, GivesTheSecondOfANameAnotherOne)
{
    ZLAvahiServicePublisher first;
    first.publish(u"Studio"_s, u"_osc._udp"_s, 9100);
    ASSERT_TRUE(isPublished(first));
    ZLAvahiServicePublisher second;
    second.publish(u"Studio"_s, u"_osc._udp"_s, 9200);
    ASSERT_TRUE(isPublished(second));
    EXPECT_EQ(second.announcedName(), u"Studio #2"_s);
    EXPECT_TRUE(finds(u"Studio"_s, 9100));
    ASSERT_TRUE(finds(u"Studio #2"_s, 9200));
    EXPECT_TRUE(second.announces(*found(u"Studio #2"_s)));
    EXPECT_FALSE(first.announces(*found(u"Studio #2"_s)));
}

TEST_F(RealAvahiTest, TakesTheLongestName)
{
    ZLAvahiServicePublisher publisher;
    publisher.publish(QString(80, u'ä'), u"_osc._udp"_s, 9100);
    ASSERT_TRUE(isPublished(publisher)) << publisher.stateText().toStdString();
    EXPECT_TRUE(finds(QString(31, u'ä'), 9100));
}
