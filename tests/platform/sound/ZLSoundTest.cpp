#include "platform/sound/ZLSound.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

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
