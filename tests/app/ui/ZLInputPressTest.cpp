#include "app/ui/ZLInputPress.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QShortcutEvent>
#include <QThread>
#include <QTimerEvent>
#include <gtest/gtest.h>

namespace {

constexpr double reading = 0.002; // Seconds: events have whole milliseconds.

/// Milliseconds of the system's clock so long ago.
quint64 timeBefore(double seconds)
{
    return quint64((ZLSteadyHostClock().now() - seconds) * 1000.0);
}

struct TimedKey : QKeyEvent {
    TimedKey(QEvent::Type type, quint64 time)
        : QKeyEvent(type, Qt::Key_M, Qt::ControlModifier)
    {
        setTimestamp(time);
    }
};

struct TimedButton : QMouseEvent {
    TimedButton(QEvent::Type type, quint64 time, Qt::MouseButton button = Qt::LeftButton)
        : QMouseEvent(type, QPointF(1, 1), QPointF(1, 1), button, {}, {})
    {
        setTimestamp(time);
    }
};

double ageOf(const std::optional<ZLPressStamp>& press)
{
    return press ? ZLSteadyHostClock().now() - press->hostTime() : -1.0;
}

}

class ZLInputPressTest : public testing::Test {
protected:
    /// How old the press is that counts while the event is dispatched; -1 for none.
    double ageDuring(const QEvent& event, const QObject* receiver = nullptr)
    {
        const ZLInputPress::Dispatch dispatch(m_press, receiver, event);
        return ageOf(m_press.underWay());
    }

    ZLInputPress m_press;
    const QObject m_window;
    const QObject m_button;
};

TEST_F(ZLInputPressTest, AKeyAndAButtonCountFromTheirOwnTimeWhileTheyAreDispatched)
{
    EXPECT_GE(ageDuring(TimedKey(QEvent::KeyPress, timeBefore(0.5))), 0.5 - reading);
    EXPECT_GE(ageDuring(TimedButton(QEvent::MouseButtonRelease, timeBefore(1.5))), 1.5 - reading);
    EXPECT_FALSE(m_press.underWay());
}

TEST_F(ZLInputPressTest, AShortcutHasTheTimeOfItsKey)
{
    EXPECT_GE(ageDuring(TimedKey(QEvent::ShortcutOverride, timeBefore(0.75))), 0.75 - reading);
    EXPECT_GE(ageDuring(QShortcutEvent(QKeySequence(Qt::CTRL | Qt::Key_M), 1)), 0.75 - reading);
}

TEST_F(ZLInputPressTest, WhatAnInputBringsAboutAtOnceBelongsToItAndATimerDoesNot)
{
    const ZLInputPress::Dispatch dispatch(m_press, nullptr, TimedKey(QEvent::KeyPress, timeBefore(0.5)));
    EXPECT_GE(ageDuring(QEvent(QEvent::Show)), 0.5 - reading);
    EXPECT_EQ(ageDuring(QTimerEvent(1)), -1.0) << "a menu that is open has a loop of its own";
    EXPECT_EQ(ageDuring(QEvent(QEvent::MetaCall)), -1.0);
    EXPECT_GE(ageOf(m_press.underWay()), 0.5 - reading);
}

TEST_F(ZLInputPressTest, AnEventThatAProgramMadeUpCountsWhenItIsDispatched)
{
    const double before = ZLSteadyHostClock().now();
    const ZLInputPress::Dispatch dispatch(m_press, nullptr, TimedKey(QEvent::KeyPress, 0));
    ASSERT_TRUE(m_press.underWay());
    EXPECT_GE(m_press.underWay()->hostTime(), before);
}

TEST_F(ZLInputPressTest, WhatActsWhenItIsLetGoCountsFromWhenItWentDown)
{
    for (const QObject* receiver : { &m_window, &m_button })
        EXPECT_GE(ageDuring(TimedButton(QEvent::MouseButtonPress, timeBefore(0.8)), receiver), 0.8 - reading);
    const TimedButton release(QEvent::MouseButtonRelease, timeBefore(0.5));
    EXPECT_LT(ageDuring(release, &m_window), 0.7);
    EXPECT_GE(ageDuring(release, &m_button), 0.8 - reading);

    EXPECT_GE(ageDuring(TimedKey(QEvent::KeyPress, timeBefore(0.4)), &m_button), 0.4 - reading);
    EXPECT_GE(ageDuring(TimedKey(QEvent::KeyRelease, timeBefore(0.1)), &m_button), 0.4 - reading);
}

TEST_F(ZLInputPressTest, ADoubleClickHasAPressOfItsOwn)
{
    EXPECT_GE(ageDuring(TimedButton(QEvent::MouseButtonPress, timeBefore(0.9)), &m_button), 0.9 - reading);
    EXPECT_GE(ageDuring(TimedButton(QEvent::MouseButtonDblClick, timeBefore(0.6)), &m_button), 0.6 - reading);
    const double age = ageDuring(TimedButton(QEvent::MouseButtonRelease, timeBefore(0.3)), &m_button);
    EXPECT_GE(age, 0.6 - reading);
    EXPECT_LT(age, 0.8);
}

TEST_F(ZLInputPressTest, WhatWasPressedElsewhereOrTooLongAgoCountsWhenItIsLetGo)
{
    EXPECT_GE(ageDuring(TimedButton(QEvent::MouseButtonPress, timeBefore(1.0)), &m_window), 1.0 - reading);
    const double dragged = ageDuring(TimedButton(QEvent::MouseButtonRelease, timeBefore(0.2)), &m_button);
    EXPECT_LT(dragged, 0.9) << "a menu that was opened by the press";
    const double other =
        ageDuring(TimedButton(QEvent::MouseButtonRelease, timeBefore(0.2), Qt::RightButton), &m_window);
    EXPECT_LT(other, 0.9) << "another button";

    const double longHold = ZLPressStamp::LongestAge - 0.5;
    EXPECT_GE(ageDuring(TimedButton(QEvent::MouseButtonPress, timeBefore(longHold)), &m_button), longHold - reading);
    QThread::msleep(700);
    EXPECT_LT(ageDuring(TimedButton(QEvent::MouseButtonRelease, timeBefore(0.1)), &m_button), longHold);
}
