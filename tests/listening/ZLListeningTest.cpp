#include "listening/ZLListening.h"
#include "support/ZLFakeSoundInput.h"

#include <gtest/gtest.h>

#include <cmath>

class ZLListeningTest : public testing::Test {
protected:
    /// A tenth of a second at this height.
    static ZLHeardBlock block(float height)
    {
        return { 0.0, std::vector<float>(ZLSoundInput::SamplesPerSecond / 10, height) };
    }
    void hear(float height, double seconds)
    {
        for (int count = 0; count < std::lround(seconds * 10.0); ++count)
            m_input->hear(block(height));
    }

    ZLFakeSoundInput* m_input = new ZLFakeSoundInput;
    ZLListening m_listening { std::unique_ptr<ZLSoundInput>(m_input) };
};

TEST_F(ZLListeningTest, IsOffAtFirst)
{
    EXPECT_FALSE(m_listening.isOn());
    EXPECT_EQ(m_listening.state(), ZLListeningState::Off);
    EXPECT_EQ(m_input->state(), ZLSoundInput::State::Off);
}

TEST_F(ZLListeningTest, TellsWhatItHearsAndHowLoud)
{
    int blockCount = 0;
    QObject::connect(&m_listening, &ZLListening::didHear, &m_listening, [&](const ZLHeardBlock&) { ++blockCount; });
    m_listening.listenTo(QStringLiteral("microphone"));
    EXPECT_EQ(m_input->wantedId(), QStringLiteral("microphone"));
    EXPECT_EQ(m_listening.state(), ZLListeningState::Opening);
    hear(0.1F, 0.3);
    EXPECT_EQ(m_listening.state(), ZLListeningState::Hearing);
    EXPECT_EQ(blockCount, 3);
    // A tenth is 20 decibels less, of 60.
    EXPECT_NEAR(m_listening.level(), 2.0 / 3.0, 0.01);
    hear(0.0F, 0.1);
    EXPECT_EQ(m_listening.level(), 0.0);
}

TEST_F(ZLListeningTest, TenSecondsOfSilenceAreToldAndNotNine)
{
    m_listening.listenTo({});
    hear(0.1F, 1.0);
    hear(0.0005F, 9.9);
    EXPECT_EQ(m_listening.state(), ZLListeningState::Hearing);
    hear(0.0005F, 0.2);
    EXPECT_EQ(m_listening.state(), ZLListeningState::Silent);
    hear(0.1F, 0.1);
    EXPECT_EQ(m_listening.state(), ZLListeningState::Hearing);
}

TEST_F(ZLListeningTest, AMissingInputAndAServerThatIsGoneAreTold)
{
    m_listening.listenTo(QStringLiteral("unplugged"));
    EXPECT_EQ(m_listening.state(), ZLListeningState::Missing);
    EXPECT_EQ(m_listening.sourceName(), QStringLiteral("unplugged"));
    m_listening.listenTo(QStringLiteral("microphone"));
    hear(0.1F, 0.1);
    EXPECT_EQ(m_listening.sourceName(), QStringLiteral("Microphone"));
    m_input->setState(ZLSoundInput::State::NoServer);
    EXPECT_EQ(m_listening.state(), ZLListeningState::NoServer);
    EXPECT_EQ(m_listening.level(), 0.0);
    m_listening.stop();
    EXPECT_EQ(m_listening.state(), ZLListeningState::Off);
}

TEST_F(ZLListeningTest, AnInputThatComesBackHasItsTenSecondsAgain)
{
    m_listening.listenTo({});
    hear(0.0F, 11.0);
    ASSERT_EQ(m_listening.state(), ZLListeningState::Silent);
    m_input->setState(ZLSoundInput::State::Missing);
    hear(0.0F, 1.0);
    EXPECT_EQ(m_listening.state(), ZLListeningState::Hearing);
}

TEST_F(ZLListeningTest, NumbersThatAreNoneAreSilence)
{
    m_listening.listenTo({});
    hear(std::numeric_limits<float>::quiet_NaN(), 0.1);
    EXPECT_EQ(m_listening.level(), 0.0);
}
