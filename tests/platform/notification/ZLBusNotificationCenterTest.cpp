#include "platform/notification/ZLBusNotificationCenter.h"

#include "platform/ZLPrivateBus.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using Type = ZLUserNotificationActivationType;

namespace {

constexpr int notificationDeadlineMilliseconds = 30000;

const QStringList withReplyFields { u"body"_s, u"actions"_s, u"inline-reply"_s };
const QStringList withButtons { u"body"_s, u"actions"_s };

constexpr uint notificationExpired = 1;
constexpr uint notificationDismissed = 2;

}

/// The centre on a bus of its own, with a server on it that the test makes come and go.
class ZLBusNotificationCenterTest : public testing::Test {
protected:
    struct Activation {
        QString chapter;
        ZLUserNotificationActivation what;

        bool operator==(const Activation&) const = default;
    };

    void SetUp() override
    {
        ASSERT_EQ(bus.error(), QString());
        center = std::make_unique<ZLBusNotificationCenter>(bus.connection());
        QObject::connect(center.get(), &ZLUserNotificationCenter::didActivateNotification, center.get(),
            [this](const ZLUserNotification& notification, const ZLUserNotificationActivation& activation) {
                activations.append({ notification.userInfo.value(u"ChapterUUID"_s).toString(), activation });
            });
    }

    [[nodiscard]] bool startServer(const QStringList& capabilities)
    {
        return bus.startMock(QStringLiteral(ZELTA_NOTIFICATION_MOCK), capabilities);
    }
    QVariant control(const QString& method, const QVariantList& arguments = {})
    {
        return bus.call(u"org.freedesktop.Notifications"_s, u"/org/freedesktop/Notifications"_s, u"org.zelta.Test"_s,
            method, arguments);
    }

    void deliver(const QString& chapter)
    {
        center->deliverNotification({ .title = u"New Chapter Added"_s,
            .subtitle = u"00:00:00.000"_s,
            .hasActionButton = true,
            .hasReplyButton = true,
            .userInfo = { { u"ChapterUUID"_s, chapter } } });
    }
    [[nodiscard]] QJsonArray shown()
    {
        return QJsonDocument::fromJson(control(u"Notifications"_s).toString().toUtf8()).array();
    }
    [[nodiscard]] bool deliverAndSee(const QString& chapter, qsizetype count)
    {
        deliver(chapter);
        return QTest::qWaitFor([&] { return shown().size() == count; }, notificationDeadlineMilliseconds);
    }
    [[nodiscard]] bool receives(qsizetype count)
    {
        return QTest::qWaitFor([&] { return activations.size() == count; }, notificationDeadlineMilliseconds);
    }
    /// Whether a reply to the next notification is the next thing that arrives: what was sent before it has arrived
    /// then too, so whatever is missing was ignored.
    [[nodiscard]] bool nothingArrivesBeforeTheNext(uint number)
    {
        activations.clear();
        if (!deliverAndSee(u"next"_s, number))
            return false;
        control(u"Reply"_s, { number, u"Next"_s });
        return receives(1) && activations.constFirst() == Activation { u"next"_s, { Type::Replied, u"Next"_s } };
    }

    ZLPrivateBus bus;
    std::unique_ptr<ZLBusNotificationCenter> center;
    QList<Activation> activations;
};

TEST_F(ZLBusNotificationCenterTest, AReplyComesWithTheNotificationItIsFor)
{
    ASSERT_TRUE(startServer(withReplyFields));
    ASSERT_TRUE(deliverAndSee(u"a"_s, 1));
    ASSERT_TRUE(deliverAndSee(u"b"_s, 2));
    EXPECT_EQ(shown().at(0)[u"actions"_s].toArray().at(0).toString(), u"inline-reply"_s);
    control(u"Reply"_s, { 2U, u"Grüße & <b>Küsse</b>"_s });
    ASSERT_TRUE(receives(1));
    EXPECT_EQ(activations.at(0), (Activation { u"b"_s, { Type::Replied, u"Grüße & <b>Küsse</b>"_s } }));
    control(u"Reply"_s, { 1U, u""_s });
    ASSERT_TRUE(receives(2));
    EXPECT_EQ(activations.at(1), (Activation { u"a"_s, { Type::Replied, u""_s } })) << "an empty title is one too";
}

TEST_F(ZLBusNotificationCenterTest, TheReplyButtonOfAServerWithoutReplyFieldsIsTold)
{
    ASSERT_TRUE(startServer(withButtons));
    ASSERT_TRUE(deliverAndSee(u"a"_s, 1));
    EXPECT_EQ(shown().at(0)[u"actions"_s].toArray().at(0).toString(), u"reply"_s);
    control(u"Press"_s, { 1U, u"default"_s });
    control(u"Press"_s, { 1U, u"something"_s });
    control(u"Press"_s, { 1U, u"reply"_s });
    ASSERT_TRUE(receives(2));
    EXPECT_EQ(activations.at(0), (Activation { u"a"_s, { Type::ContentsClicked } }));
    EXPECT_EQ(activations.at(1), (Activation { u"a"_s, { Type::ReplyButtonClicked } }));
}

TEST_F(ZLBusNotificationCenterTest, ThePressBringsTheTokenThatTheDesktopHandedOutForItOnce)
{
    ASSERT_TRUE(startServer(withButtons));
    ASSERT_TRUE(deliverAndSee(u"a"_s, 1));
    control(u"PressWithToken"_s, { 1U, u"reply"_s, u"token 7"_s });
    control(u"Press"_s, { 1U, u"reply"_s });
    ASSERT_TRUE(receives(2));
    EXPECT_EQ(activations.at(0), (Activation { u"a"_s, { Type::ReplyButtonClicked, {}, u"token 7"_s } }));
    EXPECT_EQ(activations.at(1), (Activation { u"a"_s, { Type::ReplyButtonClicked } }));
}

TEST_F(ZLBusNotificationCenterTest, AnAnswerThatComesAtOnceIsNotLost)
{
    ASSERT_TRUE(startServer(withReplyFields));
    control(u"ReplyAtOnce"_s, { u"Fast"_s });
    deliver(u"a"_s);
    ASSERT_TRUE(receives(1));
    EXPECT_EQ(activations.at(0), (Activation { u"a"_s, { Type::Replied, u"Fast"_s } }));
}

TEST_F(ZLBusNotificationCenterTest, WhatIsDeliveredWhileTheServerIsAskedIsShownInOrder)
{
    ASSERT_TRUE(startServer(withReplyFields));
    deliver(u"a"_s);
    deliver(u"b"_s);
    ASSERT_TRUE(deliverAndSee(u"c"_s, 3));
    EXPECT_EQ(control(u"Questions"_s).toInt(), 1) << "the server is asked once for all";
    control(u"Reply"_s, { 2U, u"Second"_s });
    ASSERT_TRUE(receives(1));
    EXPECT_EQ(activations.at(0).chapter, u"b"_s);
}

TEST_F(ZLBusNotificationCenterTest, TheSecondReplyToOneNotificationIsIgnored)
{
    ASSERT_TRUE(startServer(withReplyFields));
    ASSERT_TRUE(deliverAndSee(u"a"_s, 1));
    control(u"Reply"_s, { 1U, u"First"_s });
    ASSERT_TRUE(receives(1));
    control(u"Reply"_s, { 1U, u"Second"_s });
    EXPECT_TRUE(nothingArrivesBeforeTheNext(2));
}

TEST_F(ZLBusNotificationCenterTest, NumbersOfOtherProgramsNotificationsAreIgnored)
{
    ASSERT_TRUE(startServer(withReplyFields));
    ASSERT_TRUE(deliverAndSee(u"a"_s, 1));
    control(u"Reply"_s, { 17U, u"Not ours"_s });
    control(u"Press"_s, { 17U, u"reply"_s });
    control(u"Close"_s, { 17U, notificationDismissed });
    EXPECT_TRUE(nothingArrivesBeforeTheNext(2));
}

TEST_F(ZLBusNotificationCenterTest, AProgramThatIsNotTheServerIsNotListenedTo)
{
    ASSERT_TRUE(startServer(withReplyFields));
    ASSERT_TRUE(deliverAndSee(u"a"_s, 1));
    const QDBusConnection stranger = bus.connection();
    QDBusMessage forged = QDBusMessage::createSignal(
        u"/org/freedesktop/Notifications"_s, u"org.freedesktop.Notifications"_s, u"NotificationReplied"_s);
    forged.setArguments({ 1U, u"Forged"_s });
    ASSERT_TRUE(stranger.send(forged));
    // The bus answers after it has passed on what came before.
    stranger.call(QDBusMessage::createMethodCall(
        u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s, u"GetId"_s));
    EXPECT_TRUE(nothingArrivesBeforeTheNext(2));
}

TEST_F(ZLBusNotificationCenterTest, AReplyToADismissedNotificationThatOvertakesTheAnswerIsIgnored)
{
    ASSERT_TRUE(startServer(withReplyFields));
    control(u"DismissAndReplyBeforeTheAnswer"_s, { u"Never"_s });
    ASSERT_TRUE(deliverAndSee(u"dismissed"_s, 1));
    EXPECT_TRUE(nothingArrivesBeforeTheNext(2));
}

TEST_F(ZLBusNotificationCenterTest, ADismissedNotificationIsForgottenAndAnExpiredOneCanStillBeAnswered)
{
    ASSERT_TRUE(startServer(withReplyFields));
    ASSERT_TRUE(deliverAndSee(u"dismissed"_s, 1));
    ASSERT_TRUE(deliverAndSee(u"expired"_s, 2));
    control(u"Close"_s, { 1U, notificationDismissed });
    control(u"Close"_s, { 2U, notificationExpired });
    control(u"Reply"_s, { 1U, u"Never"_s });
    control(u"Reply"_s, { 2U, u"From the list"_s });
    ASSERT_TRUE(receives(1));
    EXPECT_EQ(activations.at(0), (Activation { u"expired"_s, { Type::Replied, u"From the list"_s } }));
}

TEST_F(ZLBusNotificationCenterTest, AServerThatDiesAndReturnsIsFoundAgainAndAskedAnewWhatItCanDo)
{
    ASSERT_TRUE(startServer(withReplyFields));
    ASSERT_TRUE(deliverAndSee(u"a"_s, 1));
    ASSERT_TRUE(startServer(withButtons));
    control(u"Reply"_s, { 1U, u"To the wrong one"_s });
    ASSERT_TRUE(deliverAndSee(u"b"_s, 1));
    EXPECT_EQ(shown().at(0)[u"actions"_s].toArray().at(0).toString(), u"reply"_s);
    EXPECT_TRUE(activations.isEmpty()) << "number 1 of the first server is not number 1 of the second";
    control(u"Press"_s, { 1U, u"reply"_s });
    ASSERT_TRUE(receives(1));
    EXPECT_EQ(activations.at(0), (Activation { u"b"_s, { Type::ReplyButtonClicked } }));
}

TEST_F(ZLBusNotificationCenterTest, WithoutAServerItIsToldThatNothingIsShownAndTheNextIsTriedAgain)
{
    QSignalSpy notShown(center.get(), &ZLUserNotificationCenter::couldNotShowNotification);
    deliver(u"lost"_s);
    ASSERT_TRUE(QTest::qWaitFor([&] { return notShown.size() == 1; }, notificationDeadlineMilliseconds));
    EXPECT_EQ(notShown.at(0).at(0).value<ZLUserNotification>().userInfo.value(u"ChapterUUID"_s), u"lost"_s);
    ASSERT_TRUE(startServer(withReplyFields));
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            deliver(u"seen"_s);
            return !shown().isEmpty();
        },
        notificationDeadlineMilliseconds));
    control(u"Reply"_s, { 1U, u"Here"_s });
    ASSERT_TRUE(receives(1));
    const qsizetype lost = notShown.size();
    ASSERT_TRUE(deliverAndSee(u"shown"_s, shown().size() + 1));
    EXPECT_EQ(notShown.size(), lost);
}

TEST_F(ZLBusNotificationCenterTest, TheEndOfTheBusIsSurvived)
{
    ASSERT_TRUE(startServer(withReplyFields));
    ASSERT_TRUE(deliverAndSee(u"a"_s, 1));
    deliver(u"under way"_s);
    bus.end();
    deliver(u"b"_s);
    QTest::qWait(0);
    deliver(u"c"_s);
    QTest::qWait(0);
    EXPECT_TRUE(activations.isEmpty());
}

TEST_F(ZLBusNotificationCenterTest, WithoutABusNothingIsShownAndThatIsTold)
{
    ZLBusNotificationCenter lonely(QDBusConnection(u"no such connection"_s));
    QSignalSpy notShown(&lonely, &ZLUserNotificationCenter::couldNotShowNotification);
    for (int count = 1; count <= 2; ++count) {
        lonely.deliverNotification({ .title = u"New Chapter Added"_s });
        ASSERT_TRUE(QTest::qWaitFor([&] { return notShown.size() == count; }, notificationDeadlineMilliseconds));
    }
}
