#include "platform/sound/ZLLongSound.h"
#include "platform/sound/ZLOutputRecording.h"
#include "platform/sound/ZLPrivateSoundServer.h"
#include "platform/sound/ZLPulseSoundServer.h"
#include "resources/sounds/ZLSoundResource.h"

#include <QLocalServer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int endDeadlineMilliseconds = 20000;
constexpr double beepSeconds = 0.45;
/// Starting and fading make the first and the last samples too quiet to be told from silence.
constexpr double beepTolerance = 0.015;

std::unique_ptr<ZLSound> soundOn(ZLSoundServer& server, const QByteArray& file, const QString& output)
{
    auto sound = server.sound(file);
    sound->setPlaybackDeviceIdentifier(output);
    return sound;
}

std::unique_ptr<ZLSound> beepOf(ZLSoundServer& server, const QString& output)
{
    return soundOn(server, ZLSoundResource::named(u"beep.aiff"_s), output);
}

bool waitForEnd(const QSignalSpy& ends)
{
    return QTest::qWaitFor([&ends] { return !ends.isEmpty(); }, endDeadlineMilliseconds);
}

void expectBeep(const ZLOutputRecording::Stretch& stretch)
{
    EXPECT_NEAR(double(stretch.length) / ZLOutputRecording::Rate, beepSeconds, beepTolerance);
}

/// Sends this process's sound somewhere else for as long as it lives.
class SoundServerAddress {
public:
    explicit SoundServerAddress(const QString& socket) { qputenv("PULSE_SERVER", "unix:" + socket.toUtf8()); }
    ~SoundServerAddress() { qunsetenv("PULSE_SERVER"); }
    SoundServerAddress(const SoundServerAddress&) = delete;
    SoundServerAddress& operator=(const SoundServerAddress&) = delete;
};

}

class ZLPulseSoundTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(m_system.error().isEmpty()) << qPrintable(m_system.error()); }

    ZLPrivateSoundServer m_system;
    ZLPulseSoundServer m_server;
};

TEST_F(ZLPulseSoundTest, TheBeepIsHeardInFullOnTheChosenOutputAndOnNoOther)
{
    ZLOutputRecording left(u"left_card"_s);
    ZLOutputRecording right(u"right_card"_s);
    ASSERT_TRUE(left.isRunning() && right.isRunning());
    const auto beep = beepOf(m_server, u"right_card"_s);
    const QSignalSpy ends(beep.get(), &ZLSound::didFinishPlaying);
    beep->play();
    ASSERT_TRUE(waitForEnd(ends));
    ASSERT_TRUE(left.goesOnFor(0.3) && right.goesOnFor(0.3));
    ASSERT_EQ(ends.size(), 1);
    EXPECT_TRUE(ends.first().first().toBool());
    ASSERT_EQ(right.stretches().size(), 1);
    expectBeep(right.stretches().first());
    EXPECT_TRUE(left.stretches().isEmpty());
}

TEST_F(ZLPulseSoundTest, WithoutAChosenOutputTheDefaultOnePlays)
{
    ZLOutputRecording left(u"left_card"_s);
    ASSERT_TRUE(left.isRunning());
    const auto beep = beepOf(m_server, {});
    const QSignalSpy ends(beep.get(), &ZLSound::didFinishPlaying);
    beep->play();
    ASSERT_TRUE(waitForEnd(ends));
    ASSERT_TRUE(left.goesOnFor(0.3));
    EXPECT_TRUE(ends.first().first().toBool());
    ASSERT_EQ(left.stretches().size(), 1);
    expectBeep(left.stretches().first());
}

TEST_F(ZLPulseSoundTest, WhatBeginsAtTheReportedEndIsHeardAfterTheBeep)
{
    ZLOutputRecording right(u"right_card"_s);
    ASSERT_TRUE(right.isRunning());
    const auto beep = beepOf(m_server, u"right_card"_s);
    const auto marker = beepOf(m_server, u"right_card"_s);
    QObject::connect(beep.get(), &ZLSound::didFinishPlaying, marker.get(), &ZLSound::play);
    const QSignalSpy markerEnds(marker.get(), &ZLSound::didFinishPlaying);
    beep->play();
    ASSERT_TRUE(waitForEnd(markerEnds));
    ASSERT_TRUE(right.goesOnFor(0.3));
    // Two beeps that overlapped would sound for less time than both take. They may follow each other without a pause.
    double heard = 0.0;
    for (const ZLOutputRecording::Stretch& stretch : right.stretches())
        heard += double(stretch.length) / ZLOutputRecording::Rate;
    EXPECT_NEAR(heard, 2.0 * beepSeconds, 2.0 * beepTolerance);
}

TEST_F(ZLPulseSoundTest, ASecondPlayWhileItPlaysStartsNothing)
{
    ZLOutputRecording left(u"left_card"_s);
    ASSERT_TRUE(left.isRunning());
    const auto beep = beepOf(m_server, {});
    const QSignalSpy ends(beep.get(), &ZLSound::didFinishPlaying);
    beep->play();
    beep->play();
    ASSERT_TRUE(waitForEnd(ends));
    ASSERT_TRUE(left.goesOnFor(0.8));
    EXPECT_EQ(ends.size(), 1);
    ASSERT_EQ(left.stretches().size(), 1);
    expectBeep(left.stretches().first());
}

TEST_F(ZLPulseSoundTest, AnUnknownOutputEndsTheBeepUnheard)
{
    ZLOutputRecording left(u"left_card"_s);
    ASSERT_TRUE(left.isRunning());
    const auto beep = beepOf(m_server, u"unplugged_card"_s);
    const QSignalSpy ends(beep.get(), &ZLSound::didFinishPlaying);
    beep->play();
    ASSERT_TRUE(waitForEnd(ends));
    ASSERT_TRUE(left.goesOnFor(0.8));
    ASSERT_EQ(ends.size(), 1);
    EXPECT_FALSE(ends.first().first().toBool());
    EXPECT_TRUE(left.stretches().isEmpty());
}

TEST_F(ZLPulseSoundTest, WithoutAnyOutputTheBeepEndsUnheard)
{
    ASSERT_TRUE(m_system.removeOutput(m_system.leftOutput()) && m_system.removeOutput(m_system.rightOutput()));
    const auto beep = beepOf(m_server, {});
    const QSignalSpy ends(beep.get(), &ZLSound::didFinishPlaying);
    beep->play();
    ASSERT_TRUE(waitForEnd(ends));
    EXPECT_FALSE(ends.first().first().toBool());
    EXPECT_EQ(m_server.outputDevices(), QList<ZLOutputDevice>());
    EXPECT_TRUE(m_server.isReachable());
}

TEST_F(ZLPulseSoundTest, AnOutputThatIsPulledOutEndsTheBeepOnce)
{
    for (const QString& output : { u"right_card"_s, QString() }) {
        ZLOutputRecording recording(output.isEmpty() ? u"left_card"_s : output);
        ASSERT_TRUE(recording.isRunning());
        const auto sound = soundOn(m_server, ZLLongSound(), output);
        const QSignalSpy ends(sound.get(), &ZLSound::didFinishPlaying);
        sound->play();
        ASSERT_TRUE(recording.hearsSomething());
        ASSERT_TRUE(m_system.removeOutput(output.isEmpty() ? m_system.leftOutput() : m_system.rightOutput()));
        ASSERT_TRUE(waitForEnd(ends));
        QTest::qWait(0);
        ASSERT_EQ(ends.size(), 1);
        EXPECT_FALSE(ends.first().first().toBool());
    }
}

TEST_F(ZLPulseSoundTest, AServerThatDiesEndsTheBeepOnceAndTheNextServerIsFound)
{
    {
        ZLOutputRecording left(u"left_card"_s);
        ASSERT_TRUE(left.isRunning());
        const auto sound = soundOn(m_server, ZLLongSound(), {});
        const QSignalSpy ends(sound.get(), &ZLSound::didFinishPlaying);
        sound->play();
        ASSERT_TRUE(left.hearsSomething());
        m_system.kill();
        ASSERT_TRUE(waitForEnd(ends));
        ASSERT_EQ(ends.size(), 1);
        EXPECT_FALSE(ends.first().first().toBool());
    }
    EXPECT_FALSE(m_server.isReachable());
    EXPECT_EQ(m_server.outputDevices(), std::nullopt);
    m_system.start();
    ASSERT_TRUE(m_system.error().isEmpty()) << qPrintable(m_system.error());
    const auto beep = beepOf(m_server, {});
    const QSignalSpy ends(beep.get(), &ZLSound::didFinishPlaying);
    beep->play();
    ASSERT_TRUE(waitForEnd(ends));
    EXPECT_TRUE(ends.first().first().toBool());
}

TEST_F(ZLPulseSoundTest, ABeepMayBeDroppedWhileItPlays)
{
    ZLOutputRecording left(u"left_card"_s);
    ASSERT_TRUE(left.isRunning());
    auto dropped = soundOn(m_server, ZLLongSound(), {});
    dropped->play();
    ASSERT_TRUE(left.hearsSomething());
    dropped.reset();
    const auto next = beepOf(m_server, {});
    const QSignalSpy ends(next.get(), &ZLSound::didFinishPlaying);
    next->play();
    ASSERT_TRUE(waitForEnd(ends));
    EXPECT_TRUE(ends.first().first().toBool());
}

TEST_F(ZLPulseSoundTest, OutputsAreListedByTheirLastingNamesAndThoseThatPeopleKnow)
{
    const QList<ZLOutputDevice> expected {
        { u"left_card"_s, u"Left Card"_s },
        { u"right_card"_s, u"Right Card"_s },
    };
    EXPECT_TRUE(m_server.isReachable());
    EXPECT_EQ(m_server.outputDevices(), expected);
}

TEST_F(ZLPulseSoundTest, AMicrophoneIsNoOutput)
{
    ASSERT_TRUE(m_system.removeOutput(m_system.rightOutput()) && m_system.addMicrophone(u"microphone"_s));
    EXPECT_EQ(m_server.outputDevices(), (QList<ZLOutputDevice> { { u"left_card"_s, u"Left Card"_s } }));
}

TEST_F(ZLPulseSoundTest, TheListFollowsWhatIsPluggedInAndOut)
{
    QSignalSpy changes(&m_server, &ZLSoundServer::outputDevicesDidChange);
    ASSERT_EQ(m_server.outputDevices()->size(), 2);
    ASSERT_TRUE(changes.wait(endDeadlineMilliseconds));
    changes.clear();
    const QString number = m_system.addOutput(u"usb_card"_s, u"Köpfhörer 日本"_s);
    ASSERT_FALSE(number.isEmpty());
    const auto lists = [this, &changes](int count) {
        const auto isListed = [&] { return m_server.outputDevices()->size() == count && !changes.isEmpty(); };
        return QTest::qWaitFor(isListed, endDeadlineMilliseconds);
    };
    ASSERT_TRUE(lists(3));
    EXPECT_EQ(m_server.outputDevices()->last(), (ZLOutputDevice { u"usb_card"_s, u"Köpfhörer 日本"_s }));
    changes.clear();
    ASSERT_TRUE(m_system.removeOutput(number));
    ASSERT_TRUE(lists(2));
}

TEST(ZLMissingSoundServerTest, TheBeepEndsAndThereIsNoList)
{
    const SoundServerAddress nowhere(u"/nonexistent/native"_s);
    ZLPulseSoundServer server;
    const auto beep = beepOf(server, {});
    const QSignalSpy ends(beep.get(), &ZLSound::didFinishPlaying);
    beep->play();
    ASSERT_TRUE(waitForEnd(ends));
    EXPECT_FALSE(ends.first().first().toBool());
    EXPECT_FALSE(server.isReachable());
    testing::internal::CaptureStderr();
    EXPECT_EQ(server.outputDevices(), std::nullopt);
    EXPECT_THAT(testing::internal::GetCapturedStderr(),
        testing::HasSubstr("AudioObjectGetPropertyData (kAudioHardwarePropertyDevices) failed: 6\n"));
    QTest::qWait(0);
    EXPECT_EQ(ends.size(), 1);
}

TEST(ZLMissingSoundServerTest, WhoAsksAgainAtEachChangeIsNotKeptBusy)
{
    const SoundServerAddress nowhere(u"/nonexistent/native"_s);
    ZLPulseSoundServer server;
    int changes = 0;
    QObject::connect(&server, &ZLSoundServer::outputDevicesDidChange, &server, [&] {
        ++changes;
        (void)server.isReachable();
    });
    for (int i = 0; i < 5; ++i) {
        EXPECT_FALSE(server.isReachable());
        QTest::qWait(0);
    }
    EXPECT_EQ(changes, 0);
}

TEST(ZLSilentSoundServerTest, AServerThatNeverAnswersDelaysTheEndButNotTheWindow)
{
    const QTemporaryDir folder;
    QLocalServer silent;
    ASSERT_TRUE(silent.listen(folder.filePath(u"native"_s)));
    const SoundServerAddress address(silent.fullServerName());
    ZLPulseSoundServer server;
    const auto beep = beepOf(server, {});
    QStringList order;
    QObject::connect(beep.get(), &ZLSound::didFinishPlaying, beep.get(),
        [&](bool finished) { order.append(finished ? u"heard"_s : u"unheard"_s); });
    QTimer::singleShot(0, beep.get(), [&] { order.append(u"window"_s); });
    beep->play();
    ASSERT_TRUE(QTest::qWaitFor([&] { return order.size() == 2; }, endDeadlineMilliseconds));
    EXPECT_EQ(order, QStringList({ u"window"_s, u"unheard"_s }));
    EXPECT_FALSE(server.isReachable());
    EXPECT_EQ(server.outputDevices(), std::nullopt);
    ASSERT_TRUE(silent.hasPendingConnections() || silent.waitForNewConnection(endDeadlineMilliseconds));
}
