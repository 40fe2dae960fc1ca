#include "platform/sound/ZLSound.h"

#include "platform/sound/ZLNullSoundServer.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// A sound system with one output that has a name, one without a name and one without an identifier.
class PartlyReadableSoundServer final : public ZLSoundServer {
public:
    [[nodiscard]] bool isReachable() override { return true; }
    [[nodiscard]] std::unique_ptr<ZLSound> sound(const QByteArray&) override { return nullptr; }

protected:
    [[nodiscard]] ZLOutputReading readOutputs() override
    {
        return { .outputs = { { u"speaker"_s, {} }, { u"phones"_s, u"Headphones"_s }, { {}, u"Ghost"_s } } };
    }
};

}

TEST(ZLSoundTest, ASilentSoundEndsAtOnceAndSaysThatNothingWasPlayed)
{
    ZLSilentSound sound;
    const QSignalSpy ends(&sound, &ZLSound::didFinishPlaying);
    sound.play();
    ASSERT_EQ(ends.size(), 1);
    EXPECT_FALSE(ends.first().first().toBool());
}

TEST(ZLSoundTest, TheOutputIsTheSystemsDefaultUnlessOneIsChosen)
{
    ZLSilentSound sound;
    EXPECT_TRUE(sound.playbackDeviceIdentifier().isEmpty());
    sound.setPlaybackDeviceIdentifier(u"left_card"_s);
    EXPECT_EQ(sound.playbackDeviceIdentifier(), u"left_card"_s);
}

TEST(ZLSoundServerTest, AnOutputThatCannotBeReadIsLeftOutWithAMessage)
{
    PartlyReadableSoundServer server;
    testing::internal::CaptureStderr();
    const auto devices = server.outputDevices();
    const std::string message = "AudioObjectGetPropertyData (kAudioDevicePropertyDeviceNameCFString) failed: 0\n";
    EXPECT_EQ(testing::internal::GetCapturedStderr(), message + message);
    EXPECT_EQ(devices, QList<ZLOutputDevice>({ { u"phones"_s, u"Headphones"_s } }));
}

TEST(ZLSoundServerTest, ASystemWithoutSoundHasNoListWhichIsNotAnEmptyOne)
{
    ZLNullSoundServer server;
    EXPECT_FALSE(server.isReachable());
    testing::internal::CaptureStderr();
    EXPECT_EQ(server.outputDevices(), std::nullopt);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
        "AudioObjectGetPropertyData (kAudioHardwarePropertyDevices) failed: -1\n");
    const auto sound = server.sound({});
    const QSignalSpy ends(sound.get(), &ZLSound::didFinishPlaying);
    sound->play();
    EXPECT_EQ(ends.size(), 1);
}
