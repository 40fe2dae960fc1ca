#include "app/ui/ZLInputPress.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QShortcutEvent>
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

double ageOf(const std::optional<ZLPressStamp>& press)
{
    return press ? ZLSteadyHostClock().now() - press->hostTime() : -1.0;
}

}

class ZLInputPressTest : public testing::Test {
protected:
    /// How old the press is that counts while the event is dispatched; -1 for none.
    double ageDuring(const QEvent& event)
    {
        const ZLInputPress::Dispatch dispatch(m_press, event);
        return ageOf(m_press.underWay());
    }

    ZLInputPress m_press;
};

TEST_F(ZLInputPressTest, AKeyAndAButtonCountFromTheirOwnTimeWhileTheyAreDispatched)
{
    EXPECT_GE(ageDuring(TimedKey(QEvent::KeyPress, timeBefore(0.5))), 0.5 - reading);
    QMouseEvent click(QEvent::MouseButtonRelease, QPointF(1, 1), QPointF(1, 1), Qt::LeftButton, {}, {});
    click.setTimestamp(timeBefore(1.5));
    EXPECT_GE(ageDuring(click), 1.5 - reading);
    EXPECT_FALSE(m_press.underWay());
}

TEST_F(ZLInputPressTest, AShortcutHasTheTimeOfItsKey)
{
    EXPECT_GE(ageDuring(TimedKey(QEvent::ShortcutOverride, timeBefore(0.75))), 0.75 - reading);
    EXPECT_GE(ageDuring(QShortcutEvent(QKeySequence(Qt::CTRL | Qt::Key_M), 1)), 0.75 - reading);
}

TEST_F(ZLInputPressTest, WhatAnInputBringsAboutAtOnceBelongsToItAndATimerDoesNot)
{
    const ZLInputPress::Dispatch dispatch(m_press, TimedKey(QEvent::KeyPress, timeBefore(0.5)));
    EXPECT_GE(ageDuring(QEvent(QEvent::Show)), 0.5 - reading);
    EXPECT_EQ(ageDuring(QTimerEvent(1)), -1.0) << "a menu that is open has a loop of its own";
    EXPECT_EQ(ageDuring(QEvent(QEvent::MetaCall)), -1.0);
    EXPECT_GE(ageOf(m_press.underWay()), 0.5 - reading);
}

TEST_F(ZLInputPressTest, AnEventThatAProgramMadeUpCountsWhenItIsDispatched)
{
    const double before = ZLSteadyHostClock().now();
    const ZLInputPress::Dispatch dispatch(m_press, TimedKey(QEvent::KeyPress, 0));
    ASSERT_TRUE(m_press.underWay());
    EXPECT_GE(m_press.underWay()->hostTime(), before);
}
