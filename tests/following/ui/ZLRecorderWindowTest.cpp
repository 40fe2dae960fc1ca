#include "following/ui/ZLRecorderWindow.h"

#include "document/ZLChapterDocument.h"
#include "following/ZLFakeRecorder.h"
#include "following/ZLFollowingSettings.h"
#include "support/ZLDocumentFixture.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class ZLRecorderWindowTest : public ZLDocumentFixture {
protected:
    ZLRecorderWindowTest() { m_window->show(); }

    [[nodiscard]] std::unique_ptr<ZLRecorder> makeRecorder()
    {
        auto recorder = std::make_unique<ZLFakeRecorder>();
        m_recorder = recorder.get();
        ++m_made;
        return recorder;
    }

    template <typename Widget>
    [[nodiscard]] Widget* part(const QString& name) const
    {
        return m_window->findChild<Widget*>(name);
    }
    void click(const QString& name) { part<QAbstractButton>(name)->click(); }
    [[nodiscard]] QString text(const QString& name) const { return part<QLabel>(name)->text(); }

    void report(double position)
    {
        Q_EMIT m_recorder->didReport({ ZLRecorderState::Recording, position, m_hostClock->now(), 0.0 });
    }

    /// Shown numbers come with the next look.
    void lookAnew()
    {
        m_window->hide();
        m_window->show();
    }

    QTemporaryDir m_folder;
    ZLFakeRecorder* m_recorder = nullptr;
    int m_made = 0;
    ZLChapterDocument* m_current = &m_document;
    ZLFollowing m_following { { { u"fake"_s, u"Fake Recorder"_s, [this] { return makeRecorder(); } },
                                  { u"osc"_s, u"OSC"_s, [this] { return makeRecorder(); } } },
        m_hostClock };
    std::unique_ptr<ZLRecorderWindow> m_window = std::make_unique<ZLRecorderWindow>(ZLRecorderWindowSetup {
        .following = m_following,
        .currentDocument = [this] { return m_current; },
        .stateStore = ZLWindowStateStore(m_folder.filePath(u"recorder.ini"_s)),
    });
};

TEST_F(ZLRecorderWindowTest, OffIsTheDefault)
{
    EXPECT_TRUE(part<QAbstractButton>(u"followNone"_s)->isChecked());
    EXPECT_EQ(m_following.state(), ZLFollowingState::Off);
    EXPECT_EQ(m_following.lampText(), QString());
    EXPECT_EQ(text(u"recorderState"_s), u"No recorder is followed.");
    EXPECT_EQ(m_made, 0);
    EXPECT_FALSE(part<QWidget>(u"oscTimePanel"_s)->isVisible());
}

TEST_F(ZLRecorderWindowTest, TheDocumentInFrontFollowsWhatIsChosen)
{
    click(u"follow-fake"_s);
    EXPECT_EQ(m_following.document(), &m_document);
    EXPECT_EQ(ZLFollowingSettings::kind(), u"fake");
    EXPECT_TRUE(text(u"followingDocument"_s).contains(m_document.displayName()));
    report(0.0);
    lookAnew();
    EXPECT_EQ(text(u"recorderDistance"_s), u"0 ms") << "nothing has no sign";
    m_hostClock->advance(5.0);
    report(5.05);
    lookAnew();
    EXPECT_TRUE(m_document.isRecording());
    EXPECT_EQ(m_following.state(), ZLFollowingState::Following);
    EXPECT_EQ(text(u"recorderPosition"_s), u"00:00:05");
    EXPECT_TRUE(text(u"recorderDistance"_s).startsWith(u'+')) << text(u"recorderDistance"_s).toStdString();
    EXPECT_TRUE(text(u"recorderDistance"_s).endsWith(u" ms"));
    EXPECT_EQ(text(u"recorderDrift"_s), u"–") << "not known yet";
    EXPECT_EQ(m_following.lampText(), u"Fake Recorder: following");
    click(u"followNone"_s);
    EXPECT_EQ(m_following.document(), nullptr);
    EXPECT_TRUE(m_document.isRecording()) << "the recording goes on";
    EXPECT_EQ(ZLFollowingSettings::kind(), QString());
}

TEST_F(ZLRecorderWindowTest, OneDocumentFollowsAtATime)
{
    ZLChapterDocument other(environment());
    click(u"follow-fake"_s);
    m_current = &other;
    click(u"follow-fake"_s);
    EXPECT_EQ(m_following.document(), &other);
    report(0.0);
    EXPECT_TRUE(other.isRecording());
    EXPECT_FALSE(m_document.isRecording());
    m_following.stop();
}

TEST_F(ZLRecorderWindowTest, WithoutADocumentNothingFollows)
{
    m_current = nullptr;
    click(u"follow-fake"_s);
    EXPECT_EQ(m_made, 0);
    EXPECT_TRUE(part<QAbstractButton>(u"followNone"_s)->isChecked());
}

TEST_F(ZLRecorderWindowTest, ChangedSettingsHoldAtOnce)
{
    click(u"follow-osc"_s);
    EXPECT_TRUE(part<QWidget>(u"oscTimePanel"_s)->isVisible());
    EXPECT_EQ(part<QComboBox>(u"oscPreset"_s)->currentText(), u"REAPER");
    const int made = m_made;
    auto* const time = part<QLineEdit>(u"oscAddress-time"_s);
    time->setFocus();
    time->setText(u"/position"_s);
    QTest::keyClick(time, Qt::Key_Return);
    EXPECT_EQ(ZLFollowingSettings::oscAddress(u"time"_s), u"/position");
    EXPECT_EQ(m_made, made + 1);
    EXPECT_EQ(part<QComboBox>(u"oscPreset"_s)->currentIndex(), 2) << "own addresses";
    Q_EMIT part<QComboBox>(u"oscPreset"_s)->activated(1);
    EXPECT_EQ(ZLFollowingSettings::oscAddress(u"time"_s), u"/time");
    EXPECT_EQ(ZLFollowingSettings::oscAddress(u"record"_s), QString());
    EXPECT_EQ(part<QLineEdit>(u"oscAddress-record"_s)->text(), QString());
    click(u"startsRecorder"_s);
    EXPECT_TRUE(ZLFollowingSettings::startsRecorder());
    EXPECT_EQ(m_made, made + 3);
}

TEST_F(ZLRecorderWindowTest, WhatHappenedIsInTheLog)
{
    click(u"follow-fake"_s);
    report(0.0);
    const QAbstractItemModel* log = part<QTableView>(u"recorderLog"_s)->model();
    const QString last = log->index(log->rowCount() - 1, ZLFollowingLog::EventColumn).data().toString();
    EXPECT_EQ(last, u"Started with Fake Recorder at 00:00:00.");
    for (int count = 0; count < 2 * ZLFollowingLog::MostEntries; ++count)
        m_following.log().append(QDateTime::currentDateTimeUtc(), u"More"_s);
    EXPECT_EQ(log->rowCount(), ZLFollowingLog::MostEntries);
}

TEST_F(ZLRecorderWindowTest, TheTimesOfAllChaptersAreTakenByAButton)
{
    click(u"follow-fake"_s);
    report(0.0);
    lookAnew();
    EXPECT_FALSE(part<QAbstractButton>(u"takeRecorders"_s)->isEnabled()) << "no chapter has both";
    m_hostClock->advance(1.0);
    m_document.addNewBlankChapter();
    const ZLChapterPointer chapter = chapters().lastChapter();
    m_document.extras().keepOfChapter(chapter->uuid(), ZLReadingKey::Recorder, 3.5);
    lookAnew();
    click(u"takeRecorders"_s);
    EXPECT_NEAR(chapter->timeStamp(), 3.5, 1e-9);
    click(u"takeZeltas"_s);
    EXPECT_NEAR(chapter->timeStamp(), 1.0, 1e-9);
}

TEST_F(ZLRecorderWindowTest, TheKeysThatCloseWindowsCloseIt)
{
    QTest::keyClick(m_window.get(), Qt::Key_Escape);
    EXPECT_FALSE(m_window->isVisible());
}

}
