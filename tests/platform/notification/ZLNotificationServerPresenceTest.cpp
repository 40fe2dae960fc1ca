#include "platform/notification/ZLNotificationServerPresence.h"

#include "platform/ZLPrivateBus.h"

#include <QCoreApplication>
#include <QTest>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int presenceDeadlineMilliseconds = 30000;

bool becomes(const ZLNotificationServerPresence& presence, bool isMissing)
{
    return QTest::qWaitFor([&] { return presence.isMissing() == isMissing; }, presenceDeadlineMilliseconds);
}

}

class ZLNotificationServerPresenceTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(bus.error(), QString()); }

    ZLPrivateBus bus;
};

TEST_F(ZLNotificationServerPresenceTest, AServerThatComesAndGoesIsNoticed)
{
    const ZLNotificationServerPresence presence(bus.connection());
    EXPECT_TRUE(becomes(presence, true));
    ASSERT_TRUE(bus.startMock(QStringLiteral(ZELTA_NOTIFICATION_MOCK)));
    EXPECT_TRUE(becomes(presence, false));
    bus.endMock();
    EXPECT_TRUE(becomes(presence, true));
}

TEST_F(ZLNotificationServerPresenceTest, AServerThatTheBusCanStartIsThereWithoutBeingStarted)
{
    bus.offerService(u"org.freedesktop.Notifications"_s, QStringLiteral(ZELTA_NOTIFICATION_MOCK));
    const QDBusConnection connection = bus.connection();
    const ZLNotificationServerPresence presence(connection);
    // It asks twice. The bus answers in order, so each time its answer is there before this one.
    for (int questions = 0; questions < 3; ++questions) {
        connection.call(QDBusMessage::createMethodCall(
            u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s, u"GetId"_s));
        QCoreApplication::processEvents();
    }
    EXPECT_FALSE(presence.isMissing());
    EXPECT_FALSE(
        bus.call(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s, u"NameHasOwner"_s,
               { u"org.freedesktop.Notifications"_s })
            .toBool());
}

TEST_F(ZLNotificationServerPresenceTest, WithoutABusThereIsNone)
{
    const ZLNotificationServerPresence presence(QDBusConnection(u"no such connection"_s));
    EXPECT_TRUE(becomes(presence, true));
}
