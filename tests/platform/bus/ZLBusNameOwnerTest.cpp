#include "platform/bus/ZLBusNameOwner.h"

#include "platform/ZLPrivateBus.h"

#include <QTest>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int ownerDeadlineMilliseconds = 30000;
const QString mockService = u"org.freedesktop.Notifications"_s;

}

/// A bus of the test's own, asked for the owner of a name.
class ZLBusNameOwnerTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(bus.error(), QString()); }

    [[nodiscard]] std::optional<ZLResult<QString>> ownerFoundBy(const QDBusConnection& connection)
    {
        std::optional<ZLResult<QString>> found;
        QObject context;
        ZLBusNameOwner::find(connection, mockService, ownerDeadlineMilliseconds, &context,
            [&found](const ZLResult<QString>& owner) { found = owner; });
        EXPECT_TRUE(QTest::qWaitFor([&found] { return found.has_value(); }, ownerDeadlineMilliseconds));
        return found;
    }
    [[nodiscard]] QString ownerToldByBus()
    {
        return bus
            .call(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s, u"GetNameOwner"_s,
                { mockService })
            .toString();
    }

    ZLPrivateBus bus;
};

TEST_F(ZLBusNameOwnerTest, TheProgramThatHasTheNameIsFound)
{
    ASSERT_TRUE(bus.startMock(QStringLiteral(ZELTA_NOTIFICATION_MOCK)));
    const auto owner = ownerFoundBy(bus.connection());
    ASSERT_TRUE(owner && owner->isOk());
    EXPECT_TRUE(owner->value().startsWith(u':'));
    EXPECT_EQ(owner->value(), ownerToldByBus());
}

TEST_F(ZLBusNameOwnerTest, AProgramThatTheDesktopKnowsIsStarted)
{
    bus.offerService(mockService, QStringLiteral(ZELTA_NOTIFICATION_MOCK));
    const auto owner = ownerFoundBy(bus.connection());
    ASSERT_TRUE(owner && owner->isOk()) << qPrintable(owner ? owner->error().message : QString());
    EXPECT_EQ(owner->value(), ownerToldByBus());
}

TEST_F(ZLBusNameOwnerTest, WhereThereIsNoneTheBusSaysSo)
{
    const auto owner = ownerFoundBy(bus.connection());
    ASSERT_TRUE(owner && !owner->isOk());
    EXPECT_TRUE(owner->error().message.contains(mockService)) << qPrintable(owner->error().message);
}

TEST_F(ZLBusNameOwnerTest, WithoutABusThereIsNone)
{
    const auto owner = ownerFoundBy(QDBusConnection(u"no such connection"_s));
    ASSERT_TRUE(owner && !owner->isOk());
}
