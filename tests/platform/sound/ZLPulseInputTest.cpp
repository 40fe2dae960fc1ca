#include "platform/sound/ZLPulseInput.h"
#include "platform/ZLHostClock.h"
#include "platform/sound/ZLOutputRecording.h"
#include "platform/sound/ZLPrivateSoundServer.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int deadline = 20000;
const QString leftMonitor = QStringLiteral("left_card.monitor");

/// Plays a tone on an output as long as it lives.
class TonePlayer {
public:
    explicit TonePlayer(const QString& output)
    {
        m_process.start(u"pacat"_s,
            { u"--playback"_s, u"--device="_s + output, u"--rate=8000"_s, u"--channels=1"_s, u"--format=float32le"_s,
                u"--latency-msec=50"_s });
        m_process.waitForStarted();
        std::vector<float> samples(60 * 8000);
        for (std::size_t index = 0; index < samples.size(); ++index)
            samples[index] = 0.3F * std::sin(float(index) * 0.5F);
        m_process.write(reinterpret_cast<const char*>(samples.data()), qint64(samples.size()) * qint64(sizeof(float)));
    }
    ~TonePlayer()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

private:
    QProcess m_process;
};

}

class ZLPulseInputTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(m_server.error(), QString()); }

    [[nodiscard]] bool reaches(ZLSoundInput::State state)
    {
        return QTest::qWaitFor([&] { return m_input.state() == state; }, deadline);
    }
    /// Whether the newest block is as loud as a tone.
    [[nodiscard]] bool hearsTone()
    {
        return QTest::qWaitFor([this] { return loudBlock().has_value(); }, deadline);
    }
    [[nodiscard]] std::optional<ZLHeardBlock> loudBlock()
    {
        for (const ZLHeardBlock& block : m_input.takeBlocks()) {
            for (const float sample : block.samples) {
                if (std::abs(sample) > 0.1F)
                    return block;
            }
        }
        return std::nullopt;
    }
    [[nodiscard]] QStringList ids() const
    {
        QStringList ids;
        for (const ZLInputDevice& device : m_input.devices())
            ids.append(device.id);
        return ids;
    }

    ZLPrivateSoundServer m_server;
    ZLPulseInput m_input;
};

TEST_F(ZLPulseInputTest, ListsMicrophonesAndMonitorsAndFollowsThem)
{
    m_input.prepare();
    const auto lists = [this](const QStringList& wanted) {
        return QTest::qWaitFor([&] { return ids() == wanted; }, deadline);
    };
    EXPECT_TRUE(lists({ leftMonitor, u"right_card.monitor"_s }));
    EXPECT_TRUE(m_input.devices().at(0).isMonitor);
    EXPECT_EQ(m_input.devices().at(0).name, u"Monitor of Left Card"_s);
    ASSERT_TRUE(m_server.addMicrophone(u"studio"_s));
    EXPECT_TRUE(lists({ leftMonitor, u"right_card.monitor"_s, u"studio"_s }));
    EXPECT_FALSE(m_input.devices().at(2).isMonitor);
    EXPECT_EQ(m_input.state(), ZLSoundInput::State::Off);
}

TEST_F(ZLPulseInputTest, HearsWhatAnOutputPlays)
{
    m_input.listenTo(leftMonitor);
    ASSERT_TRUE(reaches(ZLSoundInput::State::Hearing));
    EXPECT_FALSE(loudBlock());
    const TonePlayer tone(u"left_card"_s);
    EXPECT_TRUE(hearsTone());
}

TEST_F(ZLPulseInputTest, BlocksFollowEachOtherAtTheirTimes)
{
    m_input.listenTo(leftMonitor);
    ASSERT_TRUE(reaches(ZLSoundInput::State::Hearing));
    std::vector<ZLHeardBlock> blocks;
    const auto hasEnough = [&] {
        for (ZLHeardBlock& block : m_input.takeBlocks())
            blocks.push_back(std::move(block));
        return blocks.size() >= 30;
    };
    ASSERT_TRUE(QTest::qWaitFor(hasEnough, deadline));
    double samples = 0.0;
    double worst = 0.0;
    for (std::size_t index = 0; index < blocks.size(); ++index) {
        // The first ones come while the delay is still being measured.
        if (index >= 10)
            worst = std::max(worst, std::abs(blocks[index].hostTime - blocks[10].hostTime - samples / 8000.0));
        samples = index >= 10 ? samples + double(blocks[index].samples.size()) : 0.0;
    }
    EXPECT_LT(worst, 0.03);
    EXPECT_LT(std::abs(ZLSteadyHostClock().now() - blocks.back().hostTime), 5.0);
}

TEST_F(ZLPulseInputTest, FollowsTheDefaultSource)
{
    m_input.listenTo({});
    ASSERT_TRUE(reaches(ZLSoundInput::State::Hearing));
    const TonePlayer tone(u"left_card"_s);
    EXPECT_TRUE(hearsTone());
}

TEST_F(ZLPulseInputTest, AMissingSourceIsToldAndTakenWhenItComes)
{
    m_input.listenTo(u"late_card.monitor"_s);
    ASSERT_TRUE(reaches(ZLSoundInput::State::Missing));
    const QString number = m_server.addOutput(u"late_card"_s, u"Late Card"_s);
    ASSERT_TRUE(reaches(ZLSoundInput::State::Hearing));
    // Unplugged while it is heard, and back again.
    ASSERT_TRUE(m_server.removeOutput(number));
    ASSERT_TRUE(reaches(ZLSoundInput::State::Missing));
    ASSERT_FALSE(m_server.addOutput(u"late_card"_s, u"Late Card"_s).isEmpty());
    EXPECT_TRUE(reaches(ZLSoundInput::State::Hearing));
}

TEST_F(ZLPulseInputTest, AServerThatIsGoneIsToldAndFoundAgain)
{
    m_input.listenTo(leftMonitor);
    ASSERT_TRUE(reaches(ZLSoundInput::State::Hearing));
    m_server.kill();
    ASSERT_TRUE(reaches(ZLSoundInput::State::NoServer));
    EXPECT_TRUE(m_input.devices().isEmpty());
    m_server.start();
    ASSERT_EQ(m_server.error(), QString());
    ASSERT_TRUE(reaches(ZLSoundInput::State::Hearing));
    const TonePlayer tone(u"left_card"_s);
    EXPECT_TRUE(hearsTone());
}

TEST_F(ZLPulseInputTest, WhatIsSwitchedOffHearsNothing)
{
    m_input.listenTo(leftMonitor);
    ASSERT_TRUE(reaches(ZLSoundInput::State::Hearing));
    m_input.stop();
    EXPECT_EQ(m_input.state(), ZLSoundInput::State::Off);
    EXPECT_TRUE(m_input.takeBlocks().empty());
}

TEST(ZLPulseInputWithoutServerTest, SaysThatThereIsNone)
{
    const QTemporaryDir nowhere;
    qputenv("PULSE_SERVER", "unix:" + QFile::encodeName(nowhere.filePath(u"native"_s)));
    ZLPulseInput input;
    input.listenTo({});
    EXPECT_TRUE(QTest::qWaitFor([&] { return input.state() == ZLSoundInput::State::NoServer; }, deadline));
    qunsetenv("PULSE_SERVER");
}
