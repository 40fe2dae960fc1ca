// The centre and a notification server that others wrote: dunst, which has buttons and no reply fields. It needs a
// display, see run_in_display.py beside the tests of the hot keys.
#include "platform/notification/ZLBusNotificationCenter.h"

#include "platform/ZLPrivateBus.h"

#include <QDBusVariant>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTest>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using Type = ZLUserNotificationActivationType;

namespace {
constexpr int dunstDeadlineMilliseconds = 30000;
}

class RealServerTest : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_EQ(bus.error(), QString());
        ASSERT_TRUE(startDunst());
        QObject::connect(&center.emplace(bus.connection()), &ZLUserNotificationCenter::didActivateNotification,
            &*center, [this](const ZLUserNotification& notification, const ZLUserNotificationActivation& activation) {
                chapters.append(notification.userInfo.value(u"ChapterUUID"_s).toString());
                types.append(activation.type);
            });
    }
    void TearDown() override { endDunst(); }

    [[nodiscard]] bool startDunst()
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, bus.address());
        dunst.setProcessEnvironment(environment);
        dunst.setStandardOutputFile(QProcess::nullDevice());
        dunst.setStandardErrorFile(QProcess::nullDevice());
        dunst.start(u"dunst"_s, { u"-conf"_s, u"/dev/null"_s });
        return dunst.waitForStarted(dunstDeadlineMilliseconds)
            && QTest::qWaitFor([this] { return hasName(); }, dunstDeadlineMilliseconds);
    }
    void endDunst()
    {
        dunst.terminate();
        dunst.waitForFinished(dunstDeadlineMilliseconds);
    }
    [[nodiscard]] bool hasName()
    {
        return bus
            .call(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s, u"NameHasOwner"_s,
                { u"org.freedesktop.Notifications"_s })
            .toBool();
    }
    [[nodiscard]] uint displayed()
    {
        return bus
            .call(u"org.freedesktop.Notifications"_s, u"/org/freedesktop/Notifications"_s,
                u"org.freedesktop.DBus.Properties"_s, u"Get"_s, { u"org.dunstproject.cmd0"_s, u"displayedLength"_s })
            .value<QDBusVariant>()
            .variant()
            .toUInt();
    }
    [[nodiscard]] bool deliverAndSee(const QString& chapter, uint count)
    {
        center->deliverNotification({ .title = u"New Chapter Added"_s,
            .subtitle = u"00:01:05.000"_s,
            .informativeText = u"Press Reply to quickly set a title"_s,
            .hasActionButton = true,
            .hasReplyButton = true,
            .userInfo = { { u"ChapterUUID"_s, chapter } } });
        return QTest::qWaitFor([&] { return displayed() == count; }, dunstDeadlineMilliseconds);
    }
    /// What its user does with the middle mouse button, or with `dunstctl action`.
    void pressAction(uint position)
    {
        bus.call(u"org.freedesktop.Notifications"_s, u"/org/freedesktop/Notifications"_s, u"org.dunstproject.cmd0"_s,
            u"NotificationAction"_s, { position });
    }

    ZLPrivateBus bus;
    QProcess dunst;
    std::optional<ZLBusNotificationCenter> center;
    QStringList chapters;
    QList<Type> types;
};

TEST_F(RealServerTest, ItsActionIsTheReplyButton)
{
    ASSERT_TRUE(deliverAndSee(u"a"_s, 1));
    pressAction(0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !types.isEmpty(); }, dunstDeadlineMilliseconds));
    EXPECT_EQ(types, QList<Type> { Type::ReplyButtonClicked });
    EXPECT_EQ(chapters, QStringList { u"a"_s });
}

TEST_F(RealServerTest, ItIsFoundAgainAfterItWasStartedAnew)
{
    ASSERT_TRUE(deliverAndSee(u"a"_s, 1));
    endDunst();
    ASSERT_TRUE(startDunst());
    ASSERT_TRUE(deliverAndSee(u"b"_s, 1));
    pressAction(0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !types.isEmpty(); }, dunstDeadlineMilliseconds));
    EXPECT_EQ(chapters, QStringList { u"b"_s });
}
