#include "delivery/fit/ZLClockStart.h"

#include "ZLShowSounds.h"

#include "alignment/ZLFingerprinter.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class ZLClockStartTest : public testing::Test {
protected:
    QString makeFile(const QString& name, const ZLShowSounds::Samples& samples) const
    {
        EXPECT_TRUE(ZLShowSounds::write(m_folder.filePath(name), samples));
        return m_folder.filePath(name);
    }
    [[nodiscard]] QByteArray bytesOf(const ZLShowSounds::Samples& samples) const
    {
        QFile file(makeFile(u"beep.wav"_s, samples));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    QTemporaryDir m_folder;
    ZLWorkProgress m_progress;
    const ZLShowSounds::Samples m_show = ZLShowSounds::show(1, 60.0);
};

TEST_F(ZLClockStartTest, IsTheEndOfTheBeep)
{
    const auto beep = ZLShowSounds::show(9, 0.5);
    const auto recording =
        ZLShowSounds::joined(ZLShowSounds::joined(ZLShowSounds::part(m_show, 0.0, 10.0), beep), m_show);
    const auto start = ZLClockStart::byBeep(makeFile(u"raw.wav"_s, recording), bytesOf(beep), m_progress);
    ASSERT_TRUE(start);
    EXPECT_NEAR(start.value(), 10.5, 0.005);
}

TEST_F(ZLClockStartTest, ARecordingWithoutTheBeepIsTold)
{
    const auto start =
        ZLClockStart::byBeep(makeFile(u"raw.wav"_s, m_show), bytesOf(ZLShowSounds::show(9, 0.5)), m_progress);
    ASSERT_FALSE(start);
    EXPECT_TRUE(start.error().message.endsWith(u"raw.wav: The start beep is not to be heard in it."_s));
    EXPECT_FALSE(ZLClockStart::byBeep(m_folder.filePath(u"missing.wav"_s), bytesOf(m_show), m_progress));
    EXPECT_FALSE(ZLClockStart::byBeep(makeFile(u"raw.wav"_s, m_show), "no sound", m_progress));
}

TEST_F(ZLClockStartTest, IsFoundByAPartThatWasHeardAlong)
{
    // Heard from the clock's 20 s on, of which 3 s are the recording's beginning before the clock.
    const auto heard = ZLShowSounds::part(m_show, 23.0, 50.0);
    const ZLHeardShow sound { ZLFingerprinter::of(heard), -20.0 };
    const auto start = ZLClockStart::byHeard(makeFile(u"raw.wav"_s, m_show), sound, m_progress);
    ASSERT_TRUE(start);
    EXPECT_NEAR(start.value(), 3.0, 0.05);
    const auto other = ZLClockStart::byHeard(makeFile(u"other.wav"_s, ZLShowSounds::show(2, 60.0)), sound, m_progress);
    ASSERT_FALSE(other);
    EXPECT_TRUE(other.error().message.contains(u"other.wav is not the recording of this show"_s));
}
