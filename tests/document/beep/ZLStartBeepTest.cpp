#include "app/ZLApplicationSounds.h"
#include "document/ZLChapterDocument.h"
#include "platform/sound/ZLLongSound.h"
#include "platform/sound/ZLOutputRecording.h"
#include "platform/sound/ZLPrivateSoundServer.h"
#include "resources/sounds/ZLSoundResource.h"
#include "settings/ZLSettingsManager.h"
#include "support/ZLTemporarySettings.h"

#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int startDeadlineMilliseconds = 20000;

bool waitForStart(const ZLChapterDocument& document)
{
    return QTest::qWaitFor([&document] { return document.isRecording(); }, startDeadlineMilliseconds);
}

}

/// A document whose recording starts with the program's own beep on a real sound server.
class ZLStartBeepTest : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_system.error().isEmpty()) << qPrintable(m_system.error());
        ZLSettingsManager::setCreateNewChapterOnStart(false);
        ZLSettingsManager::setPlaySoundBeforeRecording(true);
        ZLSettingsManager::setAudioOutputDevice(u"right_card"_s);
        m_sounds.prepareForRecording();
    }

    ZLDocumentEnvironment environment()
    {
        ZLDocumentEnvironment environment;
        environment.soundNamed = m_sounds.soundNamed();
        return environment;
    }

    ZLTemporarySettings m_settings;
    ZLPrivateSoundServer m_system;
    ZLApplicationSounds m_sounds;
};

TEST_F(ZLStartBeepTest, APressAndAnotherWhileTheBeepPlaysStartTheClockOnceAfterTheBeep)
{
    ZLOutputRecording right(u"right_card"_s);
    ZLOutputRecording left(u"left_card"_s);
    ASSERT_TRUE(right.isRunning() && left.isRunning());
    ZLChapterDocument document(environment());
    // Heard on the same output, it marks in the recording where the clock started.
    const auto marker = environment().soundNamed(u"beep.aiff"_s);
    marker->setPlaybackDeviceIdentifier(u"right_card"_s);
    int startCount = 0;
    bool wasRecording = false;
    QObject::connect(&document, &ZLChapterDocument::changed, marker.get(), [&] {
        if (std::exchange(wasRecording, document.isRecording()) || !document.isRecording())
            return;
        ++startCount;
        marker->play();
    });
    const QSignalSpy markerEnds(marker.get(), &ZLSound::didFinishPlaying);

    document.recordButtonPressed();
    EXPECT_TRUE(document.isWaitingForBeep());
    EXPECT_FALSE(document.isRecording());
    document.recordButtonPressed();
    ASSERT_TRUE(waitForStart(document));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !markerEnds.isEmpty(); }, startDeadlineMilliseconds));
    ASSERT_TRUE(right.goesOnFor(0.5));

    EXPECT_EQ(startCount, 1);
    EXPECT_EQ(document.undoManager().undoActionName(), u"Start Recording"_s);
    const auto stretches = right.stretches();
    ASSERT_EQ(stretches.size(), 2);
    EXPECT_NEAR(double(stretches.first().length) / ZLOutputRecording::Rate, 0.45, 0.015);
    EXPECT_TRUE(left.stretches().isEmpty());
}

TEST_F(ZLStartBeepTest, ARecordingStartsAllTheSameWhenTheOutputIsGone)
{
    ZLSettingsManager::setAudioOutputDevice(u"unplugged_card"_s);
    ZLChapterDocument document(environment());
    document.recordButtonPressed();
    ASSERT_TRUE(waitForStart(document));
    EXPECT_EQ(ZLSettingsManager::audioOutputDevice(), u"unplugged_card"_s) << "it may be back the next time";
}

TEST_F(ZLStartBeepTest, ARecordingStartsAllTheSameWhenTheServerDiesDuringTheBeep)
{
    ZLOutputRecording right(u"right_card"_s);
    ASSERT_TRUE(right.isRunning());
    ZLDocumentEnvironment slow = environment();
    slow.soundNamed = [this](const QString&) { return m_sounds.server().sound(ZLLongSound()); };
    ZLChapterDocument document(slow);
    document.recordButtonPressed();
    ASSERT_TRUE(right.hearsSomething());
    EXPECT_FALSE(document.isRecording());
    m_system.kill();
    ASSERT_TRUE(waitForStart(document));
    document.recordButtonPressed();
    EXPECT_FALSE(document.isRecording());
    document.recordButtonPressed();
    ASSERT_TRUE(waitForStart(document));
}
