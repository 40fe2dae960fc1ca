#include "platform/sound/ZLSoundSamples.h"

#include "resources/sounds/ZLSoundResource.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QByteArray beepFile()
{
    return ZLSoundResource::named(u"beep.aiff"_s);
}

}

TEST(ZLSoundSamplesTest, TheProgramsBeepIsAShortCueThatEndsInSilence)
{
    const auto decoded = ZLSoundSamples::decode(beepFile());
    ASSERT_TRUE(decoded) << qPrintable(decoded.error().message);
    const ZLSoundSamples& beep = decoded.value();
    EXPECT_EQ(beep.channelCount, 1);
    EXPECT_EQ(beep.frameRate, 44100);
    EXPECT_EQ(beep.milliseconds(), 450);
    const auto quieter = [](float a, float b) { return std::abs(a) < std::abs(b); };
    const float loudest = std::abs(*std::max_element(beep.samples.begin(), beep.samples.end(), quieter));
    EXPECT_NEAR(loudest, 0.5F, 0.01F);
    EXPECT_LT(std::abs(beep.samples.back()), 0.0001F);
}

TEST(ZLSoundSamplesTest, ASoundThatIsNotThereIsRefused)
{
    EXPECT_TRUE(ZLSoundResource::named(u"gong.aiff"_s).isEmpty());
    EXPECT_FALSE(ZLSoundSamples::decode({}));
    EXPECT_FALSE(ZLSoundSamples::decode("this is no sound"));
}

TEST(ZLSoundSamplesTest, ATornFileIsRefusedOrPlayedAsFarAsItGoes)
{
    const QByteArray whole = beepFile();
    for (qsizetype length = 0; length < whole.size(); length += length < 100 ? 1 : 997) {
        const auto decoded = ZLSoundSamples::decode(whole.first(length));
        if (decoded) {
            EXPECT_LE(decoded.value().samples.size(), std::size_t(length)) << length;
        }
    }
}

TEST(ZLSoundSamplesTest, AHeaderThatClaimsTooMuchAllocatesNothing)
{
    QByteArray file = beepFile();
    // The number of channels stands behind the names and sizes of the first two chunks.
    const qsizetype channelCount = file.indexOf("COMM") + 8;
    file[channelCount] = 0x7f;
    EXPECT_FALSE(ZLSoundSamples::decode(file));
    EXPECT_FALSE(
        ZLSoundSamples::decode(QByteArray("FORM\x7f\xff\xff\xff"
                                          "AIFFCOMM\0\0\0\x12\0\1\x7f\xff\xff\xff\0\x10\x40\x0e\xac\x44\0\0\0\0\0\0",
            38)));
}
