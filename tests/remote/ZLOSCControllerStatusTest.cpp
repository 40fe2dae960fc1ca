#include "remote/ZLOSCControllerFixture.h"
#include "support/ZLNoMoreDescriptors.h"

using namespace Qt::StringLiterals;

class ZLOSCControllerStatusTest : public ZLOSCControllerFixture {
protected:
    ZLOSCControllerStatusTest() { createController(); }

    /// The clock shown after `seconds` of recording.
    [[nodiscard]] QString clockAfter(double seconds)
    {
        m_document.recordButtonPressed();
        advance(seconds);
        (void)news(m_peer);
        m_controller->sendTime();
        m_document.recordButtonPressed();
        return news(m_peer).value(0);
    }

    /// As if two seconds had passed since a message could not be sent.
    void retry() { QMetaObject::invokeMethod(&m_controller->unsentMessages().retryTimer(), "timeout"); }

    LoopbackPeer m_peer;
};

TEST_F(ZLOSCControllerStatusTest, AnOutputIsToldEverythingWhenItComes)
{
    addOutput(m_peer);
    EXPECT_EQ(news(m_peer),
        (QStringList {
            u"/zl/isRecording false"_s, u"/zl/lastChapterTitle \"\""_s, u"/zl/selectedChapterTitle \"\""_s }));
    addChapterAt(1, u"Intro"_s);
    addChapterAt(2, u"News"_s);
    select(0);
    m_document.recordButtonPressed();
    advance(65.4);
    (void)news(m_peer);
    LoopbackPeer late;
    addOutput(late);
    EXPECT_EQ(news(late),
        (QStringList { u"/zl/isRecording true"_s, u"/zl/lastChapterTitle \"News\""_s,
            u"/zl/selectedChapterTitle \"Intro\""_s, u"/zl/currentTime \"00:01:05\""_s,
            u"/zl/currentChapterDuration \"00:01:03\""_s }));
    EXPECT_EQ(news(m_peer), QStringList()) << "those who know it already are not told again";
}

TEST_F(ZLOSCControllerStatusTest, EachMessageHasOneArgumentOfItsType)
{
    addChapterAt(1, u"Grüße 日本"_s);
    m_document.recordButtonPressed();
    advance(3);
    addOutput(m_peer);
    EXPECT_EQ(m_peer.received(),
        (QList<ZLOSCMessage> {
            ZLOSCMessage(u"/zl/isRecording"_s, { true }),
            ZLOSCMessage(u"/zl/lastChapterTitle"_s, { u"Grüße 日本"_s }),
            ZLOSCMessage(u"/zl/selectedChapterTitle"_s, { u"Grüße 日本"_s }),
            ZLOSCMessage(u"/zl/currentTime"_s, { u"00:00:03"_s }),
            ZLOSCMessage(u"/zl/currentChapterDuration"_s, { u"00:00:02"_s }),
        }));
}

TEST_F(ZLOSCControllerStatusTest, AStatusUpdateSendsThreeMessagesInOrderAndTheClockOnlyWhileRecording)
{
    addChapterAt(1, u"Intro"_s);
    addOutput(m_peer);
    (void)news(m_peer);
    m_controller->sendUpdatesStatusInformation();
    EXPECT_EQ(news(m_peer),
        (QStringList { u"/zl/isRecording false"_s, u"/zl/lastChapterTitle \"Intro\""_s,
            u"/zl/selectedChapterTitle \"Intro\""_s }));
    m_document.recordButtonPressed();
    (void)news(m_peer);
    m_controller->sendUpdatesStatusInformation();
    EXPECT_EQ(news(m_peer).size(), 5);
}

TEST_F(ZLOSCControllerStatusTest, TheTimerSendsTheClockEverySecondOnlyWhileRecording)
{
    EXPECT_EQ(m_controller->displayTimer().interval(), 1000);
    EXPECT_TRUE(m_controller->displayTimer().isActive());
    EXPECT_FALSE(m_controller->displayTimer().isSingleShot());
    addOutput(m_peer);
    (void)news(m_peer);
    tick();
    EXPECT_EQ(news(m_peer), QStringList());
    m_document.recordButtonPressed();
    (void)news(m_peer);
    for (int second = 1; second <= 3; ++second) {
        advance(1);
        tick();
        EXPECT_EQ(news(m_peer),
            (QStringList { u"/zl/currentTime \"00:00:0%1\""_s.arg(second), u"/zl/currentChapterDuration \"\""_s }));
    }
    m_document.recordButtonPressed();
    (void)news(m_peer);
    tick();
    EXPECT_EQ(news(m_peer), QStringList());
}

TEST_F(ZLOSCControllerStatusTest, TheClockIsTruncatedAndItsHoursDoNotWrap)
{
    addOutput(m_peer);
    EXPECT_EQ(clockAfter(3725.9), u"/zl/currentTime \"01:02:05\""_s);
    m_document.stopRecording(0, 0, 0);
    EXPECT_EQ(clockAfter(90000 - m_document.duration()), u"/zl/currentTime \"25:00:00\""_s);
}

TEST_F(ZLOSCControllerStatusTest, EarlierSpansCount)
{
    addOutput(m_peer);
    record(10.25);
    EXPECT_EQ(clockAfter(5.5), u"/zl/currentTime \"00:00:15\""_s);
}

TEST_F(ZLOSCControllerStatusTest, StartAndStopChaptersAndSelectionAreToldAtOnce)
{
    addOutput(m_peer);
    (void)news(m_peer);
    m_document.recordButtonPressed();
    EXPECT_TRUE(news(m_peer).contains(u"/zl/isRecording true"_s));
    addChapterAt(1, u"Intro"_s);
    EXPECT_TRUE(news(m_peer).contains(u"/zl/lastChapterTitle \"Intro\""_s));
    addChapterAt(2, u"News"_s);
    EXPECT_TRUE(news(m_peer).contains(u"/zl/lastChapterTitle \"News\""_s));
    select(0);
    EXPECT_TRUE(news(m_peer).contains(u"/zl/selectedChapterTitle \"Intro\""_s));
    ASSERT_TRUE(m_document.tableModel().setData(
        m_document.tableModel().index(1, ZLChapterTableModel::TitleColumn), u"Weather"_s, Qt::EditRole));
    EXPECT_TRUE(news(m_peer).contains(u"/zl/lastChapterTitle \"Weather\""_s));
    m_document.deleteLastChapter();
    EXPECT_TRUE(news(m_peer).contains(u"/zl/lastChapterTitle \"Intro\""_s));
    addTemplate(u"Prepared"_s);
    EXPECT_FALSE(news(m_peer).isEmpty());
    m_document.recordButtonPressed();
    EXPECT_TRUE(news(m_peer).contains(u"/zl/isRecording false"_s));
}

TEST_F(ZLOSCControllerStatusTest, WhenTheSelectedLastRowGoesTheTitleOfTheNewLastRowIsSent)
{
    addChapterAt(1, u"Intro"_s);
    addChapterAt(2, u"News"_s);
    select(1);
    addOutput(m_peer);
    (void)news(m_peer);
    m_document.deleteButtonPressed();
    QStringList told = news(m_peer).filter(u"selected"_s);
    EXPECT_GE(told.size(), 1);
    told.removeDuplicates();
    EXPECT_EQ(told, QStringList { u"/zl/selectedChapterTitle \"Intro\""_s }) << "never an empty one in between";
}

TEST_F(ZLOSCControllerStatusTest, UndoAndRedoTellWhetherTheClockRuns)
{
    m_document.recordButtonPressed();
    addOutput(m_peer);
    (void)news(m_peer);
    history().undo();
    EXPECT_EQ(news(m_peer).value(0), u"/zl/isRecording false"_s);
    history().redo();
    EXPECT_EQ(news(m_peer).value(0), u"/zl/isRecording true"_s);
}

TEST_F(ZLOSCControllerStatusTest, WithoutADocumentItIsFalseAndTwoEmptyTitlesAndNoClock)
{
    m_document.recordButtonPressed();
    addChapterAt(1, u"Intro"_s);
    m_currentDocument = nullptr;
    addOutput(m_peer);
    const QStringList nothing { u"/zl/isRecording false"_s, u"/zl/lastChapterTitle \"\""_s,
        u"/zl/selectedChapterTitle \"\""_s };
    EXPECT_EQ(news(m_peer), nothing);
    m_controller->sendUpdatesStatusInformation();
    EXPECT_EQ(news(m_peer), nothing);
    tick();
    EXPECT_EQ(news(m_peer), QStringList());
}

TEST_F(ZLOSCControllerStatusTest, TheDocumentIsAskedForAnewEachTime)
{
    ZLChapterDocument other(environment());
    other.addChapter(ZLTestChapters::chapterAt(1, u"Other"_s));
    addOutput(m_peer);
    (void)news(m_peer);
    m_currentDocument = &other;
    m_controller->sendUpdatesStatusInformation();
    EXPECT_EQ(news(m_peer).value(1), u"/zl/lastChapterTitle \"Other\""_s);
}

TEST_F(ZLOSCControllerStatusTest, EveryOutputGetsEveryMessageInTheListsOrder)
{
    LoopbackPeer second;
    addOutput(m_peer);
    addOutput(second);
    (void)news(m_peer);
    (void)news(second);
    m_controller->log().flush();
    m_controller->log().clear();
    m_controller->sendMessageToAllOutputs(ZLOSCMessage(u"/zl/isRecording"_s, { true }));
    EXPECT_EQ(news(m_peer), QStringList { u"/zl/isRecording true"_s });
    EXPECT_EQ(news(second), QStringList { u"/zl/isRecording true"_s });
    m_controller->log().flush();
    ASSERT_EQ(m_controller->log().entries().size(), 2);
    EXPECT_EQ(m_controller->log().entries().at(0).peer, u"127.0.0.1:%1"_s.arg(m_peer.port()));
    EXPECT_EQ(m_controller->log().entries().at(1).peer, u"127.0.0.1:%1"_s.arg(second.port()));
    EXPECT_EQ(m_controller->log().entries().at(1).outcome, u"sent"_s);
}

TEST_F(ZLOSCControllerStatusTest, WithoutOutputsNothingIsSentAndNothingReported)
{
    m_document.recordButtonPressed();
    m_controller->sendUpdatesStatusInformation();
    tick();
    EXPECT_TRUE(m_controller->manager().outPortArray().ports().isEmpty());
    EXPECT_EQ(loggedOutcomes(), QStringList());
}

TEST_F(ZLOSCControllerStatusTest, UndoAndRedoOfATitleAndOfATimeAreToldOnceEach)
{
    const ZLChapterPointer first = addChapterAt(1, u"Intro"_s);
    addChapterAt(2, u"News"_s);
    m_document.updateChapterToTitle(first, u"Welcome"_s);
    m_document.updateChapterToTime(first, 3);
    addOutput(m_peer);
    (void)news(m_peer);
    const auto titlesTold = [this] {
        const QStringList told = news(m_peer);
        return told.size() == 3 ? told.sliced(1).join(u' ') : told.join(u'|');
    };
    history().undo();
    EXPECT_EQ(titlesTold(), u"/zl/lastChapterTitle \"News\" /zl/selectedChapterTitle \"News\""_s);
    select(0);
    (void)news(m_peer);
    history().undo();
    EXPECT_EQ(titlesTold(), u"/zl/lastChapterTitle \"News\" /zl/selectedChapterTitle \"Intro\""_s);
    history().redo();
    EXPECT_EQ(titlesTold(), u"/zl/lastChapterTitle \"News\" /zl/selectedChapterTitle \"Welcome\""_s);
    history().redo();
    EXPECT_EQ(titlesTold(), u"/zl/lastChapterTitle \"Welcome\" /zl/selectedChapterTitle \"Welcome\""_s);
}

TEST_F(ZLOSCControllerStatusTest, ATitleThatIsSetFromElsewhereIsToldOnce)
{
    const ZLChapterPointer chapter = addChapterAt(1);
    addOutput(m_peer);
    (void)news(m_peer);
    m_document.updateChapterToTitle(chapter, u"Interview"_s);
    EXPECT_EQ(news(m_peer),
        (QStringList { u"/zl/isRecording false"_s, u"/zl/lastChapterTitle \"Interview\""_s,
            u"/zl/selectedChapterTitle \"Interview\""_s }));
}

// The sanitizer's check of types opens a pipe for itself and takes it for an error when it gets none.
#ifndef ZELTA_SANITIZED
TEST_F(ZLOSCControllerStatusTest, WhatCouldNotBeSentIsTriedAgainEveryTwoSecondsUntilItGoesOut)
{
    EXPECT_EQ(m_controller->unsentMessages().retryTimer().interval(), 2000);
    EXPECT_FALSE(m_controller->unsentMessages().retryTimer().isActive());
    {
        const ZLNoMoreDescriptors withoutSockets;
        addOutput(m_peer);
        EXPECT_TRUE(m_controller->unsentMessages().retryTimer().isActive());
        retry();
        m_document.addChapter(ZLTestChapters::chapterAt(1, u"Intro"_s));
        EXPECT_TRUE(m_controller->unsentMessages().retryTimer().isActive());
        EXPECT_EQ(news(m_peer), QStringList());
    }
    retry();
    EXPECT_EQ(news(m_peer),
        (QStringList { u"/zl/isRecording false"_s, u"/zl/lastChapterTitle \"Intro\""_s,
            u"/zl/selectedChapterTitle \"Intro\""_s }));
    EXPECT_FALSE(m_controller->unsentMessages().retryTimer().isActive());
    retry();
    EXPECT_EQ(news(m_peer), QStringList());
}

TEST_F(ZLOSCControllerStatusTest, WhileRecordingTheClockGoesOutAtTheNextSecondAndTheRestAtTheNextAttempt)
{
    m_document.recordButtonPressed();
    {
        const ZLNoMoreDescriptors withoutSockets;
        addOutput(m_peer);
        tick();
    }
    tick();
    EXPECT_EQ(news(m_peer), (QStringList { u"/zl/currentTime \"00:00:00\""_s, u"/zl/currentChapterDuration \"\""_s }));
    EXPECT_TRUE(m_controller->unsentMessages().retryTimer().isActive());
    retry();
    EXPECT_EQ(news(m_peer).value(0), u"/zl/isRecording true"_s);
    EXPECT_FALSE(m_controller->unsentMessages().retryTimer().isActive());
}

TEST_F(ZLOSCControllerStatusTest, TheLogIsToldOfAFailureOnceAndWhenItIsOver)
{
    {
        const ZLNoMoreDescriptors withoutSockets;
        addOutput(m_peer);
        for (int attempt = 0; attempt < 5; ++attempt) {
            retry();
            press(u"/zl/unknown"_s);
            m_controller->log().flush();
        }
    }
    const auto countOf = [this](const QString& beginning) {
        int count = 0;
        for (const ZLOSCLogEntry& entry : m_controller->log().entries())
            count += entry.outcome.startsWith(beginning) ? entry.count : 0;
        return count;
    };
    EXPECT_EQ(countOf(u"not sent"_s), 3) << "one for each message";
    retry();
    m_controller->log().flush();
    EXPECT_EQ(countOf(u"sent"_s), 3);
    EXPECT_EQ(countOf(u"not sent"_s), 3);
}

TEST_F(ZLOSCControllerStatusTest, AnOutputThatIsTakenAwayIsNotTriedAgain)
{
    const ZLNoMoreDescriptors withoutSockets;
    addOutput(m_peer);
    ASSERT_TRUE(m_controller->unsentMessages().retryTimer().isActive());
    ZLSettingsManager::setOSCOutputs({});
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(m_controller->unsentMessages().retryTimer().isActive());
}
#endif
