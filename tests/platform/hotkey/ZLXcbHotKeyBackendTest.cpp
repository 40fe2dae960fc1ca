#include "platform/ZLHostClock.h"
#include "platform/hotkey/ZLHotKeyCenter.h"
#include "platform/hotkey/ZLXPeer.h"

#include <QAbstractNativeEventFilter>
#include <QCoreApplication>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>
#include <QWindow>

#include <gmock/gmock.h>

#include <xcb/xcb.h>

using namespace Qt::StringLiterals;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;

namespace {

constexpr int keyDeadlineMilliseconds = 30000;
constexpr int codeOfF6 = 97;
constexpr int codeOfF7 = 98;
constexpr int codeOfZ = 6;
constexpr int codeOfM = 46;
constexpr quint8 positionOfF6 = 72;
constexpr quint8 positionOfF7 = 73;
constexpr quint8 positionOfZ = 52;

/// Counts the key presses that reach this program, also those that the centre swallows.
class PressCounter final : public QAbstractNativeEventFilter {
public:
    PressCounter() { QCoreApplication::instance()->installNativeEventFilter(this); }

    bool nativeEventFilter(const QByteArray&, void* message, qintptr*) override
    {
        if (static_cast<xcb_generic_event_t*>(message)->response_type == XCB_KEY_PRESS)
            ++presses;
        return false;
    }

    int presses = 0;
};

/// A window of this program that notes which keys it gets.
class NotingWindow final : public QWindow {
public:
    QList<int> keys;

protected:
    void keyPressEvent(QKeyEvent* event) override { keys.append(event->key()); }
};

}

class ZLXcbHotKeyBackendTest : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(run(u"setxkbmap"_s, { u"us"_s }));
        ASSERT_TRUE(setLocks(0));
        QObject::connect(center.get(), &ZLHotKeyCenter::hotKeyPressed, center.get(),
            [this](const QString& identifier, const ZLPressStamp& press) {
                pressed.append(identifier);
                lastPress = press.hostTime();
            });
    }
    void TearDown() override { ASSERT_TRUE(setLocks(0)); }

    static bool run(const QString& program, const QStringList& arguments)
    {
        QProcess process;
        process.start(program, arguments);
        return process.waitForFinished(keyDeadlineMilliseconds) && process.exitStatus() == QProcess::NormalExit
            && process.exitCode() == 0;
    }

    static void type(const QString& keys) { ASSERT_TRUE(run(u"xdotool"_s, { u"key"_s, keys })); }
    static void typePosition(quint8 keycode) { type(QString::number(keycode)); }

    /// Presses the lock keys until exactly these of Caps Lock (0x02) and Num Lock (0x10) are on.
    bool setLocks(quint16 wanted)
    {
        const quint16 wrong = (peer.modifierState() ^ wanted) & 0x12U;
        if (wrong & 0x02U)
            type(u"Caps_Lock"_s);
        if (wrong & 0x10U)
            type(u"Num_Lock"_s);
        return (peer.modifierState() & 0x12U) == wanted;
    }

    void registerHotKey(const QString& identifier, int keyCode, quint32 modifiers = 0)
    {
        ZLHotKey hotKey;
        hotKey.identifier = identifier;
        hotKey.keyCombo = { keyCode, modifiers };
        center->registerHotKey(hotKey);
    }

    [[nodiscard]] ZLHotKey hotKey(const QString& identifier) const
    {
        for (const ZLHotKey& candidate : center->allHotKeys()) {
            if (candidate.identifier == identifier)
                return candidate;
        }
        return {};
    }

    [[nodiscard]] bool waitForPresses(qsizetype count) const
    {
        return QTest::qWaitFor([this, count] { return pressed.size() >= count; }, keyDeadlineMilliseconds);
    }

    [[nodiscard]] bool peerReceives(quint8 keycode)
    {
        return QTest::qWaitFor(
            [this, keycode] { return peer.receivedKeycodes().contains(keycode); }, keyDeadlineMilliseconds);
    }

    ZLXPeer peer;
    std::unique_ptr<ZLHotKeyCenter> center = ZLHotKeyCenter::create();
    QStringList pressed;
    double lastPress = 0.0;
};

TEST_F(ZLXcbHotKeyBackendTest, FiresWhileAnotherProgramHasTheFocus)
{
    EXPECT_EQ(center->backendName(), u"X11"_s);
    EXPECT_EQ(center->unavailabilityReason(), QString());
    registerHotKey(u"plain"_s, codeOfF6);
    registerHotKey(u"mixed"_s, codeOfM, ZLHotKeyModifier::control | ZLHotKeyModifier::option);
    registerHotKey(u"super"_s, codeOfZ, ZLHotKeyModifier::command | ZLHotKeyModifier::shift);
    EXPECT_EQ(hotKey(u"super"_s).state, ZLHotKey::State::Registered);
    ASSERT_TRUE(peer.takeFocus());
    type(u"F6"_s);
    type(u"ctrl+alt+m"_s);
    type(u"super+shift+z"_s);
    ASSERT_TRUE(waitForPresses(3));
    EXPECT_THAT(pressed, ElementsAre(u"plain"_s, u"mixed"_s, u"super"_s));
    EXPECT_THAT(peer.receivedKeycodes(), Not(Contains(positionOfF6)));
    EXPECT_THAT(peer.receivedKeycodes(), Not(Contains(positionOfZ)));
}

TEST_F(ZLXcbHotKeyBackendTest, FiresInEveryStateOfTheLockKeys)
{
    registerHotKey(u"plain"_s, codeOfF6);
    registerHotKey(u"mixed"_s, codeOfM, ZLHotKeyModifier::control | ZLHotKeyModifier::option);
    ASSERT_TRUE(peer.takeFocus());
    for (const quint16 locks : { 0x02, 0x10, 0x12, 0x00 }) {
        ASSERT_TRUE(setLocks(locks)) << locks;
        pressed.clear();
        type(u"F6"_s);
        type(u"ctrl+alt+m"_s);
        ASSERT_TRUE(waitForPresses(2)) << locks;
        EXPECT_THAT(pressed, ElementsAre(u"plain"_s, u"mixed"_s)) << locks;
    }
}

TEST_F(ZLXcbHotKeyBackendTest, FindsNumLockWhenItsModifierMoves)
{
    registerHotKey(u"plain"_s, codeOfF6);
    const QSignalSpy changes(center.get(), &ZLHotKeyCenter::keyboardLayoutDidChange);
    peer.moveModifier(4, 5);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !changes.isEmpty(); }, keyDeadlineMilliseconds));
    ASSERT_TRUE(peer.takeFocus());
    type(u"Num_Lock"_s);
    ASSERT_EQ(peer.modifierState(), 0x20);
    type(u"F6"_s);
    EXPECT_TRUE(waitForPresses(1));
    type(u"Num_Lock"_s);
    ASSERT_EQ(peer.modifierState(), 0);
}

TEST_F(ZLXcbHotKeyBackendTest, DoesNotFireWithAnotherModifierHeld)
{
    registerHotKey(u"plain"_s, codeOfF6);
    registerHotKey(u"last"_s, codeOfF7);
    ASSERT_TRUE(peer.takeFocus());
    for (const QString& keys : { u"shift+F6"_s, u"ctrl+F6"_s, u"alt+F6"_s, u"super+F6"_s })
        type(keys);
    type(u"F7"_s);
    ASSERT_TRUE(waitForPresses(1));
    EXPECT_THAT(pressed, ElementsAre(u"last"_s));
    EXPECT_EQ(peer.receivedKeycodes().count(positionOfF6), 4);
}

TEST_F(ZLXcbHotKeyBackendTest, IgnoresAKeyPressThatAnotherProgramMadeUp)
{
    registerHotKey(u"plain"_s, codeOfF6);
    registerHotKey(u"last"_s, codeOfF7);
    peer.forgeKeyPress(positionOfF6);
    type(u"F7"_s);
    ASSERT_TRUE(waitForPresses(1));
    EXPECT_THAT(pressed, ElementsAre(u"last"_s));
}

TEST_F(ZLXcbHotKeyBackendTest, TellsThatAnotherProgramHoldsTheKeys)
{
    ASSERT_TRUE(peer.grabKey(positionOfF6, 0));
    registerHotKey(u"held"_s, codeOfF6);
    registerHotKey(u"free"_s, codeOfF7);
    EXPECT_EQ(hotKey(u"held"_s).state, ZLHotKey::State::Refused);
    EXPECT_EQ(hotKey(u"held"_s).refusalReason, u"Another program uses these keys."_s);
    EXPECT_EQ(hotKey(u"free"_s).state, ZLHotKey::State::Registered);
    type(u"F6"_s);
    type(u"F7"_s);
    ASSERT_TRUE(waitForPresses(1));
    EXPECT_THAT(pressed, ElementsAre(u"free"_s));

    peer.releaseKey(positionOfF6, 0);
    registerHotKey(u"held"_s, codeOfF6);
    EXPECT_EQ(hotKey(u"held"_s).state, ZLHotKey::State::Registered);
    EXPECT_EQ(hotKey(u"held"_s).refusalReason, QString());
    type(u"F6"_s);
    ASSERT_TRUE(waitForPresses(2));
    EXPECT_FALSE(peer.grabKey(positionOfF6, 0));
}

TEST_F(ZLXcbHotKeyBackendTest, LeavesNothingBehindWhenOneStateOfTheLocksIsHeld)
{
    ASSERT_TRUE(peer.grabKey(positionOfF6, 0x12));
    registerHotKey(u"held"_s, codeOfF6);
    EXPECT_EQ(hotKey(u"held"_s).state, ZLHotKey::State::Refused);
    for (const quint16 locks : { 0x00, 0x02, 0x10 })
        EXPECT_TRUE(peer.grabKey(positionOfF6, locks)) << locks;
}

TEST_F(ZLXcbHotKeyBackendTest, StaysAtThePositionWhenTheLayoutChanges)
{
    registerHotKey(u"position"_s, codeOfZ, ZLHotKeyModifier::command);
    registerHotKey(u"last"_s, codeOfF7);
    ASSERT_TRUE(peer.takeFocus());
    const QSignalSpy changes(center.get(), &ZLHotKeyCenter::keyboardLayoutDidChange);
    ASSERT_TRUE(run(u"setxkbmap"_s, { u"de"_s }));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !changes.isEmpty(); }, keyDeadlineMilliseconds));
    EXPECT_EQ(hotKey(u"position"_s).state, ZLHotKey::State::Registered);
    type(u"super+z"_s);
    type(u"super+y"_s);
    type(u"F7"_s);
    ASSERT_TRUE(waitForPresses(2));
    EXPECT_THAT(pressed, ElementsAre(u"position"_s, u"last"_s));
}

TEST_F(ZLXcbHotKeyBackendTest, FollowsTheKeyWhenTheServerNumbersTheKeysAnew)
{
    const int codeOfUp = 126;
    registerHotKey(u"up"_s, codeOfUp);
    const QSignalSpy changes(center.get(), &ZLHotKeyCenter::keyboardLayoutDidChange);
    ASSERT_TRUE(run(u"setxkbmap"_s, { u"-keycodes"_s, u"xfree86"_s, u"us"_s }));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !changes.isEmpty(); }, keyDeadlineMilliseconds));
    typePosition(98);
    EXPECT_TRUE(waitForPresses(1));
    ASSERT_TRUE(run(u"setxkbmap"_s, { u"-keycodes"_s, u"evdev"_s, u"us"_s }));
}

TEST_F(ZLXcbHotKeyBackendTest, TriesARefusedCombinationAgainWhenTheKeyboardChanges)
{
    ASSERT_TRUE(peer.grabKey(positionOfF6, 0));
    registerHotKey(u"held"_s, codeOfF6);
    ASSERT_EQ(hotKey(u"held"_s).state, ZLHotKey::State::Refused);
    peer.releaseKey(positionOfF6, 0);
    ASSERT_TRUE(run(u"setxkbmap"_s, { u"de"_s }));
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return hotKey(u"held"_s).state == ZLHotKey::State::Registered; }, keyDeadlineMilliseconds));
}

TEST_F(ZLXcbHotKeyBackendTest, FiresInTheSecondOfTwoLayouts)
{
    ASSERT_TRUE(run(u"setxkbmap"_s, { u"us,ru"_s }));
    registerHotKey(u"position"_s, codeOfZ, ZLHotKeyModifier::command);
    ASSERT_TRUE(peer.takeFocus());
    peer.lockGroup(1);
    ASSERT_TRUE(run(u"xdotool"_s,
        { u"keydown"_s, u"Super_L"_s, u"key"_s, QString::number(positionOfZ), u"keyup"_s, u"Super_L"_s }));
    EXPECT_TRUE(waitForPresses(1));
    peer.lockGroup(0);
}

TEST_F(ZLXcbHotKeyBackendTest, DoesNotFireOnceUnregistered)
{
    registerHotKey(u"plain"_s, codeOfF6);
    registerHotKey(u"last"_s, codeOfF7);
    ASSERT_TRUE(peer.takeFocus());
    center->unregisterHotKey(u"plain"_s);
    for (const quint16 locks : { 0x02, 0x10, 0x12, 0x00 }) {
        ASSERT_TRUE(setLocks(locks)) << locks;
        type(u"F6"_s);
    }
    type(u"F7"_s);
    ASSERT_TRUE(waitForPresses(1));
    EXPECT_THAT(pressed, ElementsAre(u"last"_s));
    EXPECT_EQ(peer.receivedKeycodes().count(positionOfF6), 4);
    EXPECT_EQ(center->allHotKeys().size(), 1);
}

TEST_F(ZLXcbHotKeyBackendTest, GivesTheKeysBackWhenTheCentreEnds)
{
    registerHotKey(u"plain"_s, codeOfF6);
    EXPECT_FALSE(peer.grabKey(positionOfF6, 0));
    center.reset();
    EXPECT_TRUE(QTest::qWaitFor([&] { return peer.grabKey(positionOfF6, 0); }, keyDeadlineMilliseconds));
}

TEST_F(ZLXcbHotKeyBackendTest, FiresOncePerPressHoweverLongTheKeyIsHeld)
{
    registerHotKey(u"plain"_s, codeOfF6);
    PressCounter counter;
    ASSERT_TRUE(run(u"xdotool"_s, { u"keydown"_s, u"F6"_s }));
    // The server repeats the key until it is released.
    ASSERT_TRUE(QTest::qWaitFor([&] { return counter.presses >= 5; }, keyDeadlineMilliseconds));
    ASSERT_TRUE(run(u"xdotool"_s, { u"keyup"_s, u"F6"_s }));
    EXPECT_THAT(pressed, ElementsAre(u"plain"_s));
    type(u"F6"_s);
    ASSERT_TRUE(waitForPresses(2));
    EXPECT_THAT(pressed, ElementsAre(u"plain"_s, u"plain"_s));
}

TEST_F(ZLXcbHotKeyBackendTest, HeldKeysFireOnceAndLeaveTheOthersWorking)
{
    registerHotKey(u"held"_s, codeOfM, ZLHotKeyModifier::control | ZLHotKeyModifier::option);
    registerHotKey(u"other"_s, codeOfZ, ZLHotKeyModifier::control | ZLHotKeyModifier::option);
    registerHotKey(u"plain"_s, codeOfF7);
    ASSERT_TRUE(peer.takeFocus());
    const PressCounter counter;
    ASSERT_TRUE(run(u"xdotool"_s, { u"keydown"_s, u"ctrl"_s, u"keydown"_s, u"alt"_s, u"keydown"_s, u"m"_s }));
    ASSERT_TRUE(QTest::qWaitFor([&] { return counter.presses >= 5; }, keyDeadlineMilliseconds));
    type(u"z"_s);
    type(u"z"_s);
    ASSERT_TRUE(waitForPresses(3));
    EXPECT_THAT(pressed, ElementsAre(u"held"_s, u"other"_s, u"other"_s));
    ASSERT_TRUE(run(u"xdotool"_s, { u"keyup"_s, u"m"_s, u"keyup"_s, u"alt"_s, u"keyup"_s, u"ctrl"_s }));
    type(u"F7"_s);
    type(u"ctrl+alt+m"_s);
    ASSERT_TRUE(waitForPresses(5));
    EXPECT_THAT(pressed, ElementsAre(u"held"_s, u"other"_s, u"other"_s, u"plain"_s, u"held"_s));
}

TEST_F(ZLXcbHotKeyBackendTest, KeepsTheKeysFromTheProgramsOwnWindow)
{
    registerHotKey(u"plain"_s, codeOfF6);
    NotingWindow window;
    window.show();
    window.requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window, keyDeadlineMilliseconds));
    type(u"F6"_s);
    type(u"F7"_s);
    ASSERT_TRUE(QTest::qWaitFor([&] { return window.keys.contains(Qt::Key_F7); }, keyDeadlineMilliseconds));
    ASSERT_TRUE(waitForPresses(1));
    EXPECT_THAT(pressed, ElementsAre(u"plain"_s));
    EXPECT_THAT(window.keys, ElementsAre(int(Qt::Key_F7)));
    EXPECT_TRUE(window.isActive());
}

TEST_F(ZLXcbHotKeyBackendTest, LetsTheListenerChangeTheHotKeys)
{
    registerHotKey(u"plain"_s, codeOfF6);
    QObject::connect(center.get(), &ZLHotKeyCenter::hotKeyPressed, center.get(), [this](const QString& identifier) {
        center->unregisterHotKey(identifier);
        registerHotKey(u"next"_s, codeOfF7);
    });
    type(u"F6"_s);
    ASSERT_TRUE(waitForPresses(1));
    type(u"F7"_s);
    ASSERT_TRUE(waitForPresses(2));
    EXPECT_THAT(pressed, ElementsAre(u"plain"_s, u"next"_s));
}

TEST_F(ZLXcbHotKeyBackendTest, APressHasTheServersTimeHoweverBusyTheProgramIs)
{
    registerHotKey(u"plain"_s, codeOfF6);
    const ZLSteadyHostClock clock;
    const double before = clock.now();
    type(u"F6"_s);
    const double after = clock.now();
    QThread::msleep(50);
    ASSERT_TRUE(waitForPresses(1));
    // The server tells whole milliseconds.
    EXPECT_GE(lastPress, before - 0.001);
    EXPECT_LE(lastPress, after);
}
