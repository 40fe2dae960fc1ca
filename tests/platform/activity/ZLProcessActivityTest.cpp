#include "platform/activity/ZLActivityBus.h"
#include "platform/activity/ZLBusProcessActivity.h"

#include <QDBusPendingCallWatcher>
#include <QProcess>
#include <gtest/gtest.h>

#include <memory>

using namespace Qt::StringLiterals;

class ZLProcessActivityTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(m_bus.error(), QString()); }

    /// An activity on a system whose services are these; nothing is asked yet.
    void makeActivity(const QStringList& services)
    {
        ASSERT_TRUE(m_bus.startSystem(services));
        m_session = m_bus.connection();
        m_activity = std::make_unique<ZLBusProcessActivity>(m_session, m_session);
    }
    /// Until the session's services have answered what they were asked: their answers come in order.
    [[nodiscard]] bool areAnswersHere()
    {
        const QDBusPendingCallWatcher last(m_session.asyncCall(
            QDBusMessage::createMethodCall(u"org.zelta.Test"_s, u"/control"_s, u"org.zelta.Test"_s, u"Held"_s)));
        return ZLActivityBus::comesTrue([&last] { return last.isFinished(); });
    }
    void begin(const QStringList& services)
    {
        makeActivity(services);
        m_activity->begin(u"receiving OSC messages"_s);
    }
    void holdBackLogOut() { m_activity->holdBackLogOut(u"A recording is running."_s); }

    static const inline QString Idle = u"logind idle block Zelta: receiving OSC messages"_s;
    static const inline QString Delay = u"logind shutdown delay Zelta: receiving OSC messages"_s;
    static const inline QString Shutdown = u"logind shutdown block Zelta: A recording is running."_s;
    static const inline QString SessionSuspend = u"session 4 org.zelta.Zelta: receiving OSC messages"_s;
    static const inline QString SessionLogOut = u"session 1 org.zelta.Zelta: A recording is running."_s;
    static const inline QString PortalSuspend = u"portal 4: receiving OSC messages"_s;
    static const inline QString PortalLogOut = u"portal 1: A recording is running."_s;
    const QStringList m_everybody { ZLActivityBus::Logind, ZLActivityBus::SessionManager, ZLActivityBus::Portal };

    ZLActivityBus m_bus;
    QDBusConnection m_session { u"none yet"_s };
    std::unique_ptr<ZLProcessActivity> m_activity;
};

TEST_F(ZLProcessActivityTest, IdleSleepIsBlockedFromBeginToEnd)
{
    makeActivity(m_everybody);
    EXPECT_EQ(m_bus.held(), QStringList());
    m_activity->begin(u"receiving OSC messages"_s);
    EXPECT_TRUE(m_bus.holds({ Idle, Delay, SessionSuspend }));
    m_activity->end();
    EXPECT_TRUE(m_bus.holds({}));
}

TEST_F(ZLProcessActivityTest, DestroyingItGivesEverythingBack)
{
    begin(m_everybody);
    holdBackLogOut();
    ASSERT_TRUE(m_bus.holds({ Idle, Shutdown, Delay, SessionLogOut, SessionSuspend }));
    ASSERT_TRUE(areAnswersHere());
    m_activity.reset();
    EXPECT_TRUE(m_bus.holds({}));
}

TEST_F(ZLProcessActivityTest, ALogOutIsHeldBackOnlyWhileThatIsWished)
{
    begin(m_everybody);
    holdBackLogOut();
    EXPECT_TRUE(m_bus.holds({ Idle, Shutdown, Delay, SessionLogOut, SessionSuspend }));
    m_activity->allowLogOut();
    EXPECT_TRUE(m_bus.holds({ Idle, Delay, SessionSuspend }));
    holdBackLogOut();
    EXPECT_TRUE(m_bus.holds({ Idle, Shutdown, Delay, SessionLogOut, SessionSuspend }));
}

TEST_F(ZLProcessActivityTest, WhereTheLoginManagerIsAbsentThePortalIsAsked)
{
    begin({ ZLActivityBus::Portal });
    EXPECT_TRUE(m_bus.holds({ PortalSuspend }));
    holdBackLogOut();
    EXPECT_TRUE(m_bus.holds({ PortalLogOut, PortalSuspend }));
    m_activity->allowLogOut();
    EXPECT_TRUE(m_bus.holds({ PortalSuspend }));
    m_activity->end();
    EXPECT_TRUE(m_bus.holds({}));
}

TEST_F(ZLProcessActivityTest, WithoutASystemBusThePortalIsAsked)
{
    ASSERT_TRUE(m_bus.startSystem(m_everybody));
    const QDBusConnection none(u"no such connection"_s);
    m_activity = std::make_unique<ZLBusProcessActivity>(none, m_bus.connection());
    m_activity->begin(u"receiving OSC messages"_s);
    EXPECT_TRUE(m_bus.holds({ PortalSuspend, SessionSuspend }));
}

TEST_F(ZLProcessActivityTest, WhereNobodyIsThereNothingHappens)
{
    begin({});
    holdBackLogOut();
    EXPECT_TRUE(m_bus.holds({}));
    m_activity->allowLogOut();
    m_activity->end();
    EXPECT_TRUE(m_bus.holds({}));
    const QDBusConnection none(u"no such connection"_s);
    ZLBusProcessActivity withoutBuses(none, none);
    withoutBuses.begin(u"receiving OSC messages"_s);
    withoutBuses.holdBackLogOut(u"A recording is running."_s);
    withoutBuses.end();
}

TEST_F(ZLProcessActivityTest, ARefusalIsHarmless)
{
    makeActivity(m_everybody);
    m_bus.control(u"Refuse"_s, { true });
    m_activity->begin(u"receiving OSC messages"_s);
    holdBackLogOut();
    ASSERT_TRUE(areAnswersHere());
    EXPECT_EQ(m_bus.held(), QStringList());
    m_bus.control(u"Refuse"_s, { false });
    m_activity->allowLogOut();
    holdBackLogOut();
    EXPECT_TRUE(m_bus.holds({ Shutdown, SessionLogOut })) << "what is wished anew is asked anew";
}

TEST_F(ZLProcessActivityTest, AfterARestartEverythingIsTakenAgain)
{
    begin(m_everybody);
    holdBackLogOut();
    ASSERT_TRUE(m_bus.holds({ Idle, Shutdown, Delay, SessionLogOut, SessionSuspend }));
    m_bus.endMock();
    ASSERT_TRUE(m_bus.startSystem(m_everybody));
    EXPECT_TRUE(m_bus.holds({ Idle, Shutdown, Delay, SessionLogOut, SessionSuspend }));
    m_activity->end();
    EXPECT_TRUE(m_bus.holds({}));
}

TEST_F(ZLProcessActivityTest, ALockOutlastsTheLoginManagerUntilTheNextOneIsTaken)
{
    begin(m_everybody);
    ASSERT_TRUE(m_bus.holds({ Idle, Delay, SessionSuspend }));
    m_bus.goAway(ZLActivityBus::Logind);
    EXPECT_TRUE(m_bus.holds({ Idle, Delay, PortalSuspend, SessionSuspend }));
    m_bus.appear(ZLActivityBus::Logind);
    EXPECT_TRUE(m_bus.holds({ Idle, Delay, SessionSuspend }));
}

TEST_F(ZLProcessActivityTest, AServiceThatComesLaterIsAskedThen)
{
    begin({ ZLActivityBus::Portal });
    ASSERT_TRUE(m_bus.holds({ PortalSuspend }));
    m_bus.appear(ZLActivityBus::Logind);
    EXPECT_TRUE(m_bus.holds({ Idle, Delay }));
    m_bus.appear(ZLActivityBus::SessionManager);
    EXPECT_TRUE(m_bus.holds({ Idle, Delay, SessionSuspend }));
}

TEST_F(ZLProcessActivityTest, AnAnswerThatComesAfterTheEndIsGivenBack)
{
    begin(m_everybody);
    holdBackLogOut();
    // No event has been handled, so not one answer has been seen.
    m_activity->end();
    ASSERT_TRUE(areAnswersHere());
    EXPECT_TRUE(m_bus.holds({}));
}

TEST_F(ZLProcessActivityTest, AChangeOfMindBeforeTheAnswerHoldsOnce)
{
    begin(m_everybody);
    holdBackLogOut();
    m_activity->allowLogOut();
    holdBackLogOut();
    EXPECT_TRUE(m_bus.holds({ Idle, Shutdown, Delay, SessionLogOut, SessionSuspend }));
    m_activity->end();
    EXPECT_TRUE(m_bus.holds({}));
}

TEST_F(ZLProcessActivityTest, AShutdownWaitsUntilItHasBeenTold)
{
    begin({ ZLActivityBus::Logind });
    ASSERT_TRUE(m_bus.holds({ Idle, Delay }));
    QStringList heldMeanwhile;
    QObject::connect(m_activity.get(), &ZLProcessActivity::systemWillShutDown, m_activity.get(),
        [&] { heldMeanwhile = m_bus.held(); });
    m_bus.control(u"PrepareForShutdown"_s, { true });
    EXPECT_TRUE(m_bus.holds({ Idle }));
    EXPECT_EQ(heldMeanwhile, (QStringList { Idle, Delay }));
    m_bus.control(u"PrepareForShutdown"_s, { false });
    EXPECT_TRUE(m_bus.holds({ Idle, Delay })) << "it was called off";
}

TEST_F(ZLProcessActivityTest, NothingOutlivesTheProcess)
{
    ASSERT_TRUE(m_bus.startSystem(m_everybody));
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"DBUS_SYSTEM_BUS_ADDRESS"_s, m_bus.address());
    environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, m_bus.address());
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(ZELTA_ACTIVITY_PROCESS), {});
    EXPECT_TRUE(m_bus.holds({ u"logind idle block Zelta: staying awake"_s, u"logind shutdown block Zelta: recording"_s,
        u"logind shutdown delay Zelta: staying awake"_s, u"session 1 org.zelta.Zelta: recording"_s,
        u"session 4 org.zelta.Zelta: staying awake"_s }));
    process.kill();
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_TRUE(m_bus.holds({}));
}
