#include "recorder/obs/ZLOBSLateChapters.h"
#include "support/ZLFakeHostClock.h"
#include "support/ZLFakeTimers.h"

#include <QCoreApplication>
#include <QStringList>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class ZLOBSLateChaptersTest : public testing::Test {
protected:
    void SetUp() override
    {
        QObject::connect(
            &m_chapters, &ZLOBSLateChapters::isDue, &m_chapters, [this](const QString& title) { m_out.append(title); });
    }
    void passMilliseconds(int milliseconds)
    {
        m_clock.advance(milliseconds / 1000.0);
        m_timers.advance(std::chrono::milliseconds(milliseconds));
        QCoreApplication::sendPostedEvents();
    }

    ZLFakeHostClock m_clock;
    ZLFakeTimers m_timers;
    ZLOBSLateChapters m_chapters { m_clock, m_timers.starter() };
    QStringList m_out;
};

TEST_F(ZLOBSLateChaptersTest, EachComesOutAfterItsDelay)
{
    m_chapters.add(u"one"_s, 0.6);
    passMilliseconds(200);
    m_chapters.add(u"two"_s, 0.6);
    passMilliseconds(399);
    EXPECT_EQ(m_out, QStringList());
    passMilliseconds(1);
    EXPECT_EQ(m_out, QStringList { u"one"_s });
    passMilliseconds(199);
    EXPECT_EQ(m_out, QStringList { u"one"_s });
    passMilliseconds(1);
    EXPECT_EQ(m_out, (QStringList { u"one"_s, u"two"_s }));
    EXPECT_EQ(m_timers.running(), 0);
}

TEST_F(ZLOBSLateChaptersTest, WithoutADelayOneComesOutAtOnce)
{
    m_chapters.add(u"one"_s, 0.0);
    EXPECT_EQ(m_out, QStringList { u"one"_s });
}

TEST_F(ZLOBSLateChaptersTest, NoneOvertakesAnotherWhenTheDelayBecomesShorter)
{
    m_chapters.add(u"one"_s, 0.6);
    m_chapters.add(u"two"_s, 0.2);
    passMilliseconds(300);
    EXPECT_EQ(m_out, QStringList());
    passMilliseconds(300);
    EXPECT_EQ(m_out, (QStringList { u"one"_s, u"two"_s }));
}

TEST_F(ZLOBSLateChaptersTest, APauseLengthensTheWait)
{
    m_chapters.add(u"before"_s, 0.6);
    passMilliseconds(200);
    m_chapters.setRecording(false);
    m_chapters.add(u"within"_s, 0.6);
    passMilliseconds(10'000);
    EXPECT_EQ(m_out, QStringList());
    m_chapters.setRecording(true);
    passMilliseconds(399);
    EXPECT_EQ(m_out, QStringList());
    passMilliseconds(1);
    EXPECT_EQ(m_out, QStringList { u"before"_s });
    passMilliseconds(200);
    EXPECT_EQ(m_out, (QStringList { u"before"_s, u"within"_s }));
}

TEST_F(ZLOBSLateChaptersTest, AtTheEndAllComeOutAtOnce)
{
    m_chapters.add(u"one"_s, 0.6);
    m_chapters.setRecording(false);
    m_chapters.add(u"two"_s, 0.6);
    m_chapters.finish();
    EXPECT_EQ(m_out, (QStringList { u"one"_s, u"two"_s }));
    m_chapters.setRecording(true);
    passMilliseconds(1000);
    EXPECT_EQ(m_out.size(), 2);
}

TEST_F(ZLOBSLateChaptersTest, WhatIsDueWhileOBSCannotBeReachedComesOutWhenItCan)
{
    m_chapters.add(u"one"_s, 0.6);
    m_chapters.setReachable(false);
    passMilliseconds(5000);
    m_chapters.add(u"two"_s, 0.6);
    EXPECT_EQ(m_out, QStringList());
    m_chapters.setReachable(true);
    EXPECT_EQ(m_out, QStringList { u"one"_s });
    passMilliseconds(600);
    EXPECT_EQ(m_out, (QStringList { u"one"_s, u"two"_s }));
}

TEST_F(ZLOBSLateChaptersTest, ARecordingThatEndedOutOfReachGetsNothing)
{
    m_chapters.add(u"one"_s, 0.6);
    m_chapters.setReachable(false);
    m_chapters.finish();
    m_chapters.setReachable(true);
    passMilliseconds(1000);
    EXPECT_EQ(m_out, QStringList());
}
