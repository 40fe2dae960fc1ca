#include "platform/hotkey/ZLPortalHotKeyBackend.h"

#include "platform/ZLHostClock.h"
#include "platform/hotkey/ZLPortalBus.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QTest>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;

namespace {

constexpr int portalDeadlineMilliseconds = 30000;

const QString boundA = u"bind a=CTRL+ALT+m (Do a)"_s;

}

class ZLPortalHotKeyBackendTest : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_EQ(bus.error(), QString());
        backend = std::make_unique<ZLPortalHotKeyBackend>(bus.connection());
        QObject::connect(backend.get(), &ZLHotKeyCenter::hotKeyPressed, backend.get(),
            [this](const QString& identifier, const ZLPressStamp& press) {
                pressed.append(identifier);
                lastPress = press.hostTime();
            });
    }

    void registerHotKey(const QString& identifier, int keyCode)
    {
        ZLHotKey hotKey;
        hotKey.identifier = identifier;
        hotKey.purpose = u"Do "_s + identifier;
        hotKey.keyCombo = { keyCode, ZLHotKeyModifier::control | ZLHotKeyModifier::option };
        backend->registerHotKey(hotKey);
    }

    [[nodiscard]] ZLHotKey hotKey(const QString& identifier) const
    {
        for (const ZLHotKey& candidate : backend->allHotKeys()) {
            if (candidate.identifier == identifier)
                return candidate;
        }
        return {};
    }

    [[nodiscard]] bool reaches(const QString& identifier, ZLHotKey::State state) const
    {
        return QTest::qWaitFor([&] { return hotKey(identifier).state == state; }, portalDeadlineMilliseconds);
    }

    [[nodiscard]] bool portalHears(const QString& line)
    {
        return QTest::qWaitFor([&] { return bus.log().contains(line); }, portalDeadlineMilliseconds);
    }

    [[nodiscard]] bool fires(const QString& identifier)
    {
        bus.control(u"Press"_s, { identifier });
        return QTest::qWaitFor([&] { return pressed.contains(identifier); }, portalDeadlineMilliseconds);
    }

    ZLPortalBus bus;
    std::unique_ptr<ZLPortalHotKeyBackend> backend;
    QStringList pressed;
    double lastPress = 0.0;
};

TEST_F(ZLPortalHotKeyBackendTest, IntroducesItselfThenBindsTheWholeSetAtOnce)
{
    ASSERT_TRUE(bus.startPortal(u"full"_s, u"grant"_s));
    registerHotKey(u"a"_s, 46);
    registerHotKey(u"b"_s, 97);
    EXPECT_EQ(hotKey(u"a"_s).state, ZLHotKey::State::Pending);
    ASSERT_TRUE(reaches(u"a"_s, ZLHotKey::State::Registered));
    ASSERT_TRUE(reaches(u"b"_s, ZLHotKey::State::Registered));
    EXPECT_THAT(bus.log(),
        ElementsAre(
            u"register org.zelta.Zelta"_s, u"create session"_s, u"bind a=CTRL+ALT+m (Do a), b=CTRL+ALT+F6 (Do b)"_s));
    EXPECT_EQ(hotKey(u"a"_s).desktopTrigger, u"Press CTRL+ALT+m"_s);
    EXPECT_EQ(backend->unavailabilityReason(), QString());
}

TEST_F(ZLPortalHotKeyBackendTest, FiresWithTheIdentifierOfTheHotKey)
{
    ASSERT_TRUE(bus.startPortal(u"full"_s, u"grant"_s));
    registerHotKey(u"a"_s, 46);
    registerHotKey(u"b"_s, 97);
    ASSERT_TRUE(reaches(u"b"_s, ZLHotKey::State::Registered));
    EXPECT_TRUE(fires(u"b"_s));
    EXPECT_TRUE(fires(u"a"_s));
    EXPECT_THAT(pressed, ElementsAre(u"b"_s, u"a"_s));
}

TEST_F(ZLPortalHotKeyBackendTest, IgnoresOtherSessionsUnknownShortcutsAndOtherPrograms)
{
    ASSERT_TRUE(bus.startPortal(u"full"_s, u"grant"_s));
    registerHotKey(u"a"_s, 46);
    registerHotKey(u"last"_s, 97);
    ASSERT_TRUE(reaches(u"last"_s, ZLHotKey::State::Registered));
    bus.control(u"PressInOtherSession"_s, { u"a"_s });
    bus.control(u"Press"_s, { u"unknown"_s });
    QDBusMessage forged = QDBusMessage::createSignal(
        u"/org/freedesktop/portal/desktop"_s, u"org.freedesktop.portal.GlobalShortcuts"_s, u"Activated"_s);
    const QDBusObjectPath session(bus.control(u"SessionPath"_s).toString());
    forged.setArguments({ QVariant::fromValue(session), u"a"_s, qulonglong(1), QVariantMap() });
    ASSERT_TRUE(bus.connection().send(forged));
    EXPECT_TRUE(fires(u"last"_s));
    EXPECT_THAT(pressed, ElementsAre(u"last"_s));
}

TEST_F(ZLPortalHotKeyBackendTest, IsPendingUntilTheLateResponse)
{
    ASSERT_TRUE(bus.startPortal(u"full"_s, u"hold"_s));
    registerHotKey(u"a"_s, 46);
    ASSERT_TRUE(portalHears(boundA));
    EXPECT_EQ(hotKey(u"a"_s).state, ZLHotKey::State::Pending);
    bus.control(u"ReleaseAnswer"_s);
    EXPECT_TRUE(reaches(u"a"_s, ZLHotKey::State::Registered));
    EXPECT_TRUE(fires(u"a"_s));
}

TEST_F(ZLPortalHotKeyBackendTest, HearsAResponseThatOvertakesTheReply)
{
    ASSERT_TRUE(bus.startPortal(u"full"_s, u"at once"_s));
    registerHotKey(u"a"_s, 46);
    EXPECT_TRUE(reaches(u"a"_s, ZLHotKey::State::Registered));
}

TEST_F(ZLPortalHotKeyBackendTest, TellsThatTheUserDeclined)
{
    ASSERT_TRUE(bus.startPortal(u"full"_s, u"decline"_s));
    registerHotKey(u"a"_s, 46);
    ASSERT_TRUE(reaches(u"a"_s, ZLHotKey::State::Refused));
    EXPECT_EQ(hotKey(u"a"_s).refusalReason, u"The shortcuts were declined in the desktop's dialog."_s);
    EXPECT_EQ(backend->unavailabilityReason(), QString());
    // Registered once more, the user is asked once more.
    bus.control(u"SetAnswer"_s, { u"grant"_s });
    registerHotKey(u"a"_s, 46);
    EXPECT_TRUE(reaches(u"a"_s, ZLHotKey::State::Registered));
}

TEST_F(ZLPortalHotKeyBackendTest, TellsThatTheDesktopRefuses)
{
    ASSERT_TRUE(bus.startPortal(u"full"_s, u"fail"_s));
    registerHotKey(u"a"_s, 46);
    ASSERT_TRUE(reaches(u"a"_s, ZLHotKey::State::Refused));
    EXPECT_EQ(hotKey(u"a"_s).refusalReason, u"The desktop refuses the shortcuts."_s);
}

TEST_F(ZLPortalHotKeyBackendTest, RefusesOnlyTheShortcutThatGotNoKeys)
{
    ASSERT_TRUE(bus.startPortal(u"full"_s, u"first only"_s));
    registerHotKey(u"a"_s, 46);
    registerHotKey(u"b"_s, 97);
    ASSERT_TRUE(reaches(u"b"_s, ZLHotKey::State::Refused));
    EXPECT_EQ(hotKey(u"b"_s).refusalReason, u"The desktop assigned no keys to this shortcut."_s);
    EXPECT_EQ(hotKey(u"a"_s).state, ZLHotKey::State::Registered);
}

TEST_F(ZLPortalHotKeyBackendTest, TakesAResponseWithoutAListForAYesToAll)
{
    ASSERT_TRUE(bus.startPortal(u"full"_s, u"no list"_s));
    registerHotKey(u"a"_s, 46);
    EXPECT_TRUE(reaches(u"a"_s, ZLHotKey::State::Registered));
}

TEST_F(ZLPortalHotKeyBackendTest, WorksWithAPortalThatWantsNoIntroduction)
{
    ASSERT_TRUE(bus.startPortal(u"without registry"_s, u"grant"_s));
    registerHotKey(u"a"_s, 46);
    ASSERT_TRUE(reaches(u"a"_s, ZLHotKey::State::Registered));
    EXPECT_TRUE(fires(u"a"_s));
}

TEST_F(ZLPortalHotKeyBackendTest, TellsThatThePortalHasNoShortcuts)
{
    ASSERT_TRUE(bus.startPortal(u"without shortcuts"_s, u"grant"_s));
    registerHotKey(u"a"_s, 46);
    ASSERT_TRUE(reaches(u"a"_s, ZLHotKey::State::Refused));
    EXPECT_EQ(hotKey(u"a"_s).refusalReason, u"This desktop's portal has no global shortcuts."_s);
    EXPECT_EQ(backend->unavailabilityReason(), hotKey(u"a"_s).refusalReason);
}

TEST_F(ZLPortalHotKeyBackendTest, TellsThatThereIsNoPortalAndBindsWhenOneComes)
{
    registerHotKey(u"a"_s, 46);
    ASSERT_TRUE(reaches(u"a"_s, ZLHotKey::State::Refused));
    EXPECT_EQ(
        hotKey(u"a"_s).refusalReason, u"There is no desktop portal, so the desktop cannot be asked for shortcuts."_s);
    EXPECT_EQ(backend->unavailabilityReason(), hotKey(u"a"_s).refusalReason);
    ASSERT_TRUE(bus.startPortal(u"full"_s, u"grant"_s));
    ASSERT_TRUE(reaches(u"a"_s, ZLHotKey::State::Registered));
    EXPECT_EQ(backend->unavailabilityReason(), QString());
}

TEST_F(ZLPortalHotKeyBackendTest, TellsThatThereIsNoBus)
{
    ZLPortalHotKeyBackend busless(QDBusConnection(u"never connected"_s));
    busless.registerHotKey(ZLHotKey::hotKeyWithIdentifier(u"a"_s, {}));
    ASSERT_TRUE(QTest::qWaitFor([&] { return busless.allHotKeys().constFirst().state == ZLHotKey::State::Refused; },
        portalDeadlineMilliseconds));
    EXPECT_FALSE(busless.unavailabilityReason().isEmpty());
}

TEST_F(ZLPortalHotKeyBackendTest, BindsAgainWhenThePortalRestarts)
{
    ASSERT_TRUE(bus.startPortal(u"full"_s, u"grant"_s));
    registerHotKey(u"a"_s, 46);
    ASSERT_TRUE(reaches(u"a"_s, ZLHotKey::State::Registered));
    bus.endPortal();
    ASSERT_TRUE(reaches(u"a"_s, ZLHotKey::State::Refused));
    EXPECT_EQ(hotKey(u"a"_s).refusalReason, u"The desktop portal has ended."_s);
    EXPECT_EQ(backend->unavailabilityReason(), hotKey(u"a"_s).refusalReason);
    ASSERT_TRUE(bus.startPortal(u"full"_s, u"grant"_s));
    ASSERT_TRUE(reaches(u"a"_s, ZLHotKey::State::Registered));
    EXPECT_THAT(bus.log(), ElementsAre(u"register org.zelta.Zelta"_s, u"create session"_s, boundA));
    EXPECT_EQ(backend->unavailabilityReason(), QString());
    EXPECT_TRUE(fires(u"a"_s));
}

TEST_F(ZLPortalHotKeyBackendTest, BindsAgainWhenThePortalRestartsBeforeItAnswered)
{
    ASSERT_TRUE(bus.startPortal(u"full"_s, u"hold"_s));
    registerHotKey(u"a"_s, 46);
    ASSERT_TRUE(portalHears(boundA));
    ASSERT_TRUE(bus.startPortal(u"full"_s, u"grant"_s));
    ASSERT_TRUE(reaches(u"a"_s, ZLHotKey::State::Registered));
    EXPECT_TRUE(fires(u"a"_s));
}

TEST_F(ZLPortalHotKeyBackendTest, AsksAnewForAnotherSetAndEndsTheOldSession)
{
    ASSERT_TRUE(bus.startPortal(u"full"_s, u"grant"_s));
    registerHotKey(u"a"_s, 46);
    ASSERT_TRUE(reaches(u"a"_s, ZLHotKey::State::Registered));
    backend->unregisterHotKey(u"a"_s);
    registerHotKey(u"b"_s, 97);
    ASSERT_TRUE(reaches(u"b"_s, ZLHotKey::State::Registered));
    EXPECT_THAT(bus.log(), Contains(u"close session"_s));
    EXPECT_THAT(bus.log(), Contains(u"bind b=CTRL+ALT+F6 (Do b)"_s));
    bus.control(u"Press"_s, { u"a"_s });
    EXPECT_TRUE(fires(u"b"_s));
    EXPECT_THAT(pressed, ElementsAre(u"b"_s));
}

TEST_F(ZLPortalHotKeyBackendTest, DoesNotAskAgainForTheSameSet)
{
    ASSERT_TRUE(bus.startPortal(u"full"_s, u"grant"_s));
    registerHotKey(u"a"_s, 46);
    ASSERT_TRUE(reaches(u"a"_s, ZLHotKey::State::Registered));
    backend->unregisterHotKey(u"a"_s);
    registerHotKey(u"a"_s, 46);
    EXPECT_EQ(hotKey(u"a"_s).state, ZLHotKey::State::Pending);
    ASSERT_TRUE(reaches(u"a"_s, ZLHotKey::State::Registered));
    EXPECT_EQ(bus.log().count(boundA), 1);
    EXPECT_THAT(bus.log(), Not(Contains(u"close session"_s)));
    EXPECT_EQ(hotKey(u"a"_s).desktopTrigger, u"Press CTRL+ALT+m"_s);
}

TEST_F(ZLPortalHotKeyBackendTest, WithdrawsTheQuestionWhenNothingIsWantedAnyMore)
{
    ASSERT_TRUE(bus.startPortal(u"full"_s, u"hold"_s));
    registerHotKey(u"a"_s, 46);
    ASSERT_TRUE(portalHears(boundA));
    backend->unregisterHotKey(u"a"_s);
    EXPECT_TRUE(portalHears(u"close request"_s));
    EXPECT_TRUE(portalHears(u"close session"_s));
    EXPECT_TRUE(backend->allHotKeys().isEmpty());
}

TEST_F(ZLPortalHotKeyBackendTest, FollowsTheDesktopsSettings)
{
    ASSERT_TRUE(bus.startPortal(u"full"_s, u"grant"_s));
    registerHotKey(u"a"_s, 46);
    registerHotKey(u"b"_s, 97);
    ASSERT_TRUE(reaches(u"a"_s, ZLHotKey::State::Registered));
    bus.control(u"Rebind"_s, { u"a"_s, u"Press F12"_s });
    EXPECT_TRUE(reaches(u"b"_s, ZLHotKey::State::Refused));
    EXPECT_EQ(hotKey(u"a"_s).desktopTrigger, u"Press F12"_s);
    bus.control(u"EndSession"_s);
    ASSERT_TRUE(reaches(u"a"_s, ZLHotKey::State::Refused));
    EXPECT_EQ(hotKey(u"a"_s).refusalReason, u"The desktop has withdrawn the shortcuts."_s);
}

TEST_F(ZLPortalHotKeyBackendTest, APressHasThePortalsTimeWhereThatIsOfTheSystemsClock)
{
    ASSERT_TRUE(bus.startPortal(u"full"_s, u"grant"_s));
    registerHotKey(u"a"_s, 46);
    ASSERT_TRUE(reaches(u"a"_s, ZLHotKey::State::Registered));
    const ZLSteadyHostClock clock;
    const double aMomentAgo = clock.now() - 0.5;
    bus.control(u"PressAt"_s, { u"a"_s, qulonglong(aMomentAgo * 1000.0) });
    ASSERT_TRUE(QTest::qWaitFor([&] { return pressed.size() == 1; }, portalDeadlineMilliseconds));
    EXPECT_NEAR(lastPress, aMomentAgo, 0.002) << "a portal tells whole milliseconds";
    const double before = clock.now();
    bus.control(u"PressAt"_s, { u"a"_s, qulonglong(aMomentAgo) });
    ASSERT_TRUE(QTest::qWaitFor([&] { return pressed.size() == 2; }, portalDeadlineMilliseconds));
    EXPECT_GE(lastPress, before) << "seconds are not understood, so the arrival counts";
}
