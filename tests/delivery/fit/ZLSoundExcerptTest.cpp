#include "delivery/fit/ZLSoundExcerpt.h"

#include "ZLShowSounds.h"

#include "platform/sound/ZLSoundSamples.h"
#include "support/ZLFakeSound.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class ZLSoundExcerptTest : public testing::Test {
protected:
    ZLSoundExcerptTest() { EXPECT_TRUE(ZLShowSounds::write(m_path, samples())); }

    /// Silence but for the seconds 10 to 12.
    [[nodiscard]] static ZLShowSounds::Samples samples()
    {
        ZLShowSounds::Samples samples(std::size_t(20) * ZLShowSounds::SamplesPerSecond);
        for (std::size_t at = std::size_t(10) * ZLShowSounds::SamplesPerSecond;
            at < std::size_t(12) * ZLShowSounds::SamplesPerSecond; ++at)
            samples[at] = at % 8 < 4 ? 0.5F : -0.5F;
        return samples;
    }
    /// Mean of what is heard between two seconds of an excerpt.
    [[nodiscard]] static double loudness(const ZLSoundSamples& sound, double begin, double end)
    {
        double sum = 0.0;
        const auto first = std::size_t(begin * sound.frameRate);
        const auto last = std::size_t(end * sound.frameRate);
        for (std::size_t at = first; at < last; ++at)
            sum += std::abs(double(sound.samples.at(at)));
        return sum / double(last - first);
    }

    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(u"a.wav"_s);
};

TEST_F(ZLSoundExcerptTest, HasFourSecondsFromTheRightPlaceOn)
{
    const auto bytes = ZLSoundExcerpt::bytesOf(m_path, 9.0);
    ASSERT_TRUE(bytes);
    const auto sound = ZLSoundSamples::decode(bytes.value());
    ASSERT_TRUE(sound);
    EXPECT_EQ(sound.value().milliseconds(), 4000);
    EXPECT_LT(loudness(sound.value(), 0.0, 0.95), 0.01);
    EXPECT_GT(loudness(sound.value(), 1.05, 2.95), 0.3);
    EXPECT_LT(loudness(sound.value(), 3.05, 4.0), 0.01);
}

TEST_F(ZLSoundExcerptTest, IsShorterAtTheEndAndNothingBehindIt)
{
    const auto last = ZLSoundExcerpt::bytesOf(m_path, 18.5);
    ASSERT_TRUE(last);
    EXPECT_NEAR(ZLSoundSamples::decode(last.value()).value().milliseconds(), 1500, 20);
    EXPECT_FALSE(ZLSoundExcerpt::bytesOf(m_path, 25.0));
    EXPECT_TRUE(ZLSoundExcerpt::bytesOf(m_path, -1.0)) << "the beginning";
    EXPECT_FALSE(ZLSoundExcerpt::bytesOf(m_folder.filePath(u"missing.wav"_s), 0.0));
}

TEST_F(ZLSoundExcerptTest, PlaysAndSaysWhatCannotBePlayed)
{
    QByteArray played;
    ZLSoundExcerpt excerpt([&played](const QByteArray& file) {
        played = file;
        return std::make_unique<ZLFakeSound>();
    });
    QSignalSpy failures(&excerpt, &ZLSoundExcerpt::didFail);
    excerpt.play(m_path, 9.0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !played.isEmpty(); }));
    EXPECT_EQ(played, ZLSoundExcerpt::bytesOf(m_path, 9.0).value());
    EXPECT_EQ(failures.count(), 0);
    excerpt.play(m_folder.filePath(u"missing.wav"_s), 0.0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return failures.count() == 1; }));
    EXPECT_TRUE(failures.first().first().toString().contains(u"missing.wav"_s));
}

TEST_F(ZLSoundExcerptTest, SaysWhereThereIsNoSoundOutput)
{
    ZLSoundExcerpt excerpt({});
    QSignalSpy failures(&excerpt, &ZLSoundExcerpt::didFail);
    excerpt.play(m_path, 9.0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return failures.count() == 1; }));
    EXPECT_EQ(failures.first().first().toString(), u"There is no sound output to play it on."_s);
}
