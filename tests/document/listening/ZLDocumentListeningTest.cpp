#include "document/listening/ZLDocumentListening.h"
#include "support/ZLAsksSaver.h"
#include "support/ZLDocumentFixture.h"
#include "support/ZLFakeSoundInput.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <cmath>
#include <random>

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t blockSamples = ZLSoundInput::SamplesPerSecond / 10;

}

/// A document in a file, its saver, and an input that the test plays to.
class ZLDocumentListeningTest : public ZLDocumentFixture, protected ZLAsksSaver {
protected:
    void SetUp() override
    {
        m_path = m_folder.filePath(u"show.zelta"_s);
        makeSaver();
        ASSERT_TRUE(savedAs(*m_saver, m_path));
        m_emptyFile = fileBytes();
        m_listening.listenTo(u"microphone"_s);
        m_along = std::make_unique<ZLDocumentListening>(m_listening, m_document, *m_saver);
    }

    void makeSaver()
    {
        m_saver = std::make_unique<ZLDocumentSaver>(m_document, m_recoveryFolder, ZLSavingMachinery {});
    }

    /// Lets time pass in which the input hears something.
    void hear(double seconds)
    {
        for (int count = 0; count < std::lround(seconds * 10.0); ++count) {
            ZLHeardBlock block { m_hostClock->now(), {} };
            for (std::size_t index = 0; index < blockSamples; ++index)
                block.samples.push_back(m_noise(m_chance));
            advance(0.1);
            m_input->hear(block);
        }
    }

    [[nodiscard]] ZLListeningData kept() const
    {
        return ZLListeningData::fromStored(m_document.extras().value(ZLListeningData::Key));
    }
    [[nodiscard]] static QByteArray bytesOf(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    [[nodiscard]] QByteArray fileBytes() const { return bytesOf(m_path); }
    /// The path of a file with these bytes.
    [[nodiscard]] QString written(const QByteArray& bytes) const
    {
        QFile file(m_folder.filePath(u"torn"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(bytes);
        return file.fileName();
    }
    /// What the next start finds when this process is killed now.
    [[nodiscard]] ZLListeningData afterKill() const
    {
        QVariantMap extras = m_document.extras().values();
        ZLDocumentListening::recover(extras, m_saver->listeningPath());
        return ZLListeningData::fromStored(extras.value(ZLListeningData::Key));
    }

    QTemporaryDir m_folder;
    QString m_path;
    QByteArray m_emptyFile;
    std::mt19937 m_chance { 1 };
    std::normal_distribution<float> m_noise { 0.0F, 0.1F };
    ZLRecoveryFolder m_recoveryFolder { m_folder.filePath(u"recovery"_s) };
    std::unique_ptr<ZLDocumentSaver> m_saver;
    ZLFakeSoundInput* m_input = new ZLFakeSoundInput;
    ZLListening m_listening { std::unique_ptr<ZLSoundInput>(m_input) };
    std::unique_ptr<ZLDocumentListening> m_along;
};

TEST_F(ZLDocumentListeningTest, KeepsWhatWasHeardWhenTheClockStops)
{
    hear(3.0);
    m_document.recordButtonPressed();
    hear(10.0);
    EXPECT_TRUE(kept().isEmpty());
    // So that what depends on it knows from the first second on.
    EXPECT_TRUE(m_document.extras().value(ZLListeningData::Key).isValid());
    EXPECT_TRUE(m_along->hasData());
    m_document.recordButtonPressed();
    const auto data = kept();
    ASSERT_EQ(data.spans().size(), 1U);
    EXPECT_NEAR(data.spans()[0].start, 0.0, 0.001);
    EXPECT_NEAR(data.spans()[0].end(), 10.0, 0.1);
    EXPECT_FALSE(m_document.undoManager().undoActionName().contains(u"Listening"_s));
}

TEST_F(ZLDocumentListeningTest, APauseIsAGap)
{
    m_document.recordButtonPressed();
    hear(5.0);
    m_document.recordButtonPressed();
    hear(20.0);
    m_document.recordButtonPressed();
    hear(5.0);
    m_document.recordButtonPressed();
    const auto data = kept();
    ASSERT_EQ(data.spans().size(), 2U);
    // The clock stood meanwhile, so that the gap is none on it.
    EXPECT_NEAR(data.spans()[1].start, 5.0, 0.001);
    EXPECT_NEAR(data.spans()[1].end(), 10.0, 0.1);
}

TEST_F(ZLDocumentListeningTest, WhoDoesNotListenKeepsNothingAndTheFileStaysAsItWas)
{
    m_listening.stop();
    m_document.recordButtonPressed();
    advance(5.0);
    m_document.recordButtonPressed();
    EXPECT_TRUE(kept().isEmpty());
    m_document.undoManager().undo();
    m_document.undoManager().undo();
    ASSERT_TRUE(m_saver->saveNow());
    EXPECT_EQ(fileBytes(), m_emptyFile);
    EXPECT_FALSE(QFile::exists(m_saver->listeningPath()));
}

TEST_F(ZLDocumentListeningTest, SwitchedOnInTheMiddleOfAShowItKnowsTheTime)
{
    m_listening.stop();
    m_document.recordButtonPressed();
    advance(60.0);
    m_listening.listenTo({});
    hear(5.0);
    m_listening.stop();
    ASSERT_EQ(kept().spans().size(), 1U);
    EXPECT_NEAR(kept().spans()[0].start, 60.0, 0.001);
}

TEST_F(ZLDocumentListeningTest, AKillLosesASecondAtMost)
{
    m_document.recordButtonPressed();
    hear(7.5);
    m_along.reset();
    EXPECT_NEAR(afterKill().spans().at(0).end(), 7.5, 0.1);
    const QFile file(m_saver->listeningPath());
    EXPECT_EQ(
        QFileInfo(file).permissions() & ~(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser),
        0);
    // Four bytes a frame, and some that frame a second of them.
    EXPECT_LT(file.size(), 9 * (50 * 4 + 41) + 50);
}

TEST_F(ZLDocumentListeningTest, AJournalThatIsBehindTakesNothingFromTheDocument)
{
    for (int run = 0; run < 2; ++run) {
        m_document.recordButtonPressed();
        hear(3.0);
        m_document.recordButtonPressed();
    }
    m_along.reset();
    const QByteArray whole = bytesOf(m_saver->listeningPath());
    ASSERT_GT(whole.size(), 6 * 50 * 4);
    for (qsizetype size = 0; size <= whole.size(); ++size) {
        ZLListeningData data = kept();
        ZLListeningJournal::addTo(data, written(whole.first(size)));
        ASSERT_EQ(data, kept()) << size;
    }
}

TEST_F(ZLDocumentListeningTest, ATornEndCostsItsSecondAndNothingElse)
{
    m_document.recordButtonPressed();
    hear(5.0);
    m_along.reset();
    const QByteArray whole = bytesOf(m_saver->listeningPath());
    double former = 0.0;
    for (qsizetype size = 0; size <= whole.size(); ++size) {
        ZLListeningData data;
        ZLListeningJournal::addTo(data, written(whole.first(size)));
        const double end = data.isEmpty() ? 0.0 : data.spans().back().end();
        EXPECT_GE(end, former);
        former = end;
    }
    EXPECT_NEAR(former, 5.0, 0.1);
    ZLListeningData none;
    ZLListeningJournal::addTo(none, m_folder.filePath(u"missing"_s));
    EXPECT_TRUE(none.isEmpty());
}

TEST_F(ZLDocumentListeningTest, WhatStandsInTheJournalAndTheDocumentCountsOnce)
{
    m_document.recordButtonPressed();
    hear(5.0);
    m_document.recordButtonPressed();
    EXPECT_EQ(afterKill(), kept());
    // The next run is added to the same file.
    m_document.recordButtonPressed();
    hear(5.0);
    m_document.recordButtonPressed();
    ASSERT_EQ(kept().spans().size(), 2U);
    EXPECT_EQ(afterKill(), kept());
}

TEST_F(ZLDocumentListeningTest, AFolderThatWasTakenAwayGetsEverythingAgain)
{
    m_document.recordButtonPressed();
    hear(5.0);
    QDir(m_recoveryFolder.path()).removeRecursively();
    addChapterAt(1.0);
    hear(2.0);
    m_along.reset();
    EXPECT_NEAR(afterKill().spans().at(0).end(), 7.0, 0.1);
}

TEST_F(ZLDocumentListeningTest, AClockThatFollowsARecorderIsHeardInOnePiece)
{
    m_document.recordButtonPressed();
    for (int minute = 0; minute < 10; ++minute) {
        // As a recorder does whose seconds are shorter, and each mark looks at the clock.
        m_document.recording().clock().setRate(minute % 2 == 0 ? 100e-6 : 300e-6);
        hear(60.0);
        m_document.addNewBlankChapter();
    }
    const double reading = m_document.currentDuration();
    ASSERT_NEAR(reading, 600.12, 0.001);
    EXPECT_TRUE(kept().isEmpty());
    m_document.recordButtonPressed();
    ASSERT_EQ(kept().spans().size(), 1U);
    EXPECT_NEAR(kept().spans()[0].end(), reading, 0.1);
    EXPECT_NEAR(kept().spans()[0].interval / 0.02, 1.0 + 200e-6, 20e-6);
}

TEST_F(ZLDocumentListeningTest, AClockThatIsSetToTheRecordersTimeBeginsAnotherStretch)
{
    m_document.recordButtonPressed();
    hear(10.0);
    m_document.recording().recorderDifference().setUndecided(
        ZLRecorderDifference::Undecided { .seconds = 3.0, .reading = 10.0 });
    m_document.recording().recorderDifference().takeRecorders();
    hear(10.0);
    m_document.recordButtonPressed();
    const auto data = kept();
    ASSERT_EQ(data.spans().size(), 2U);
    EXPECT_NEAR(data.spans()[0].end(), 10.0, 0.1);
    EXPECT_NEAR(data.spans()[1].start, 13.0, 0.001);
}

TEST_F(ZLDocumentListeningTest, AnUndoneStartTakesTheClockBackAndTheNextRunCounts)
{
    m_document.recordButtonPressed();
    hear(5.0);
    m_document.recordButtonPressed();
    m_document.undoManager().undo();
    m_document.undoManager().undo();
    EXPECT_EQ(m_document.currentDuration(), 0.0);
    m_document.recordButtonPressed();
    hear(2.0);
    m_document.recordButtonPressed();
    ASSERT_EQ(kept().spans().size(), 1U);
    EXPECT_NEAR(kept().spans()[0].end(), 2.0, 0.1);
}

TEST_F(ZLDocumentListeningTest, ListeningDataCanBeRemovedAndBroughtBack)
{
    m_document.recordButtonPressed();
    hear(3.0);
    m_document.recordButtonPressed();
    const auto data = kept();
    m_along->removeData();
    EXPECT_FALSE(QFile::exists(m_saver->listeningPath()));
    EXPECT_FALSE(m_along->hasData());
    EXPECT_TRUE(afterKill().isEmpty());
    EXPECT_EQ(m_document.undoManager().undoActionName(), u"Remove Listening Data"_s);
    m_document.undoManager().undo();
    EXPECT_EQ(kept(), data);
}

TEST_F(ZLDocumentListeningTest, RemovedInTheMiddleOfAShowItForgetsWhatWasHeardAndListensOn)
{
    m_document.recordButtonPressed();
    hear(3.0);
    m_along->removeData();
    hear(3.0);
    m_document.recordButtonPressed();
    ASSERT_EQ(kept().spans().size(), 1U);
    EXPECT_NEAR(kept().spans()[0].start, 3.0, 0.01);
}

TEST_F(ZLDocumentListeningTest, TimeThatWasSleptAndIsAddedMovesWhatWasHeardLater)
{
    m_document.recordButtonPressed();
    hear(5.0);
    m_bootClock->advance(60.0);
    m_document.noticeSleep();
    hear(5.0);
    m_document.addSleptTime();
    hear(5.0);
    m_document.recordButtonPressed();
    const auto data = kept();
    EXPECT_NEAR(data.spans().back().end(), 75.0, 0.2);
    for (const ZLListeningSpan& span : data.spans())
        EXPECT_TRUE(span.end() < 5.2 || span.start > 64.9) << span.start;
}

TEST_F(ZLDocumentListeningTest, SleptTimeThatIsTakenBackMovesWhatWasHeardBack)
{
    m_document.recordButtonPressed();
    hear(5.0);
    m_bootClock->advance(60.0);
    m_document.noticeSleep();
    hear(5.0);
    m_document.addSleptTime();
    m_document.recordButtonPressed();
    const auto added = kept();
    m_document.undoManager().undo();
    m_document.undoManager().undo();
    EXPECT_NEAR(kept().spans().back().end(), 10.0, 0.2);
    m_document.undoManager().redo();
    EXPECT_NEAR(kept().spans().back().end(), added.spans().back().end(), 0.001);
}

TEST_F(ZLDocumentListeningTest, FormerStatesLeaveItOutAndGoingBackToOneKeepsIt)
{
    addChapterAt(1.0, u"first"_s);
    m_document.recordButtonPressed();
    hear(3.0);
    m_document.recordButtonPressed();
    ASSERT_TRUE(m_saver->saveNow());
    const auto data = kept();
    const auto history = ZLDocumentHistory::ofFile(m_recoveryFolder, m_path);
    addChapterAt(2.0, u"second"_s);
    ASSERT_EQ(history.keep(fileBytes(), m_wallClock, m_document.dataOfType()), ZLStateKeeping::Kept);
    const auto states = history.states();
    ASSERT_EQ(states.size(), 1);
    const auto contents = ZLDocumentHistory::contentsOf(states.first());
    ASSERT_TRUE(contents);
    EXPECT_FALSE(contents.value().extras.contains(ZLListeningData::Key));
    ASSERT_TRUE(revertedTo(*m_saver, states.first()));
    EXPECT_EQ(titles(), QStringList { u"first"_s });
    EXPECT_EQ(kept(), data);
    m_document.undoManager().undo();
    EXPECT_EQ(kept(), data);
}

TEST_F(ZLDocumentListeningTest, WhatWasHeardAloneIsNothingToRevert)
{
    m_document.recordButtonPressed();
    hear(3.0);
    m_document.recordButtonPressed();
    ASSERT_TRUE(saved(*m_saver));
    m_listening.stop();
    m_document.extras().keep(ZLListeningData::Key, {});
    ASSERT_TRUE(saved(*m_saver));
    ZLListeningData data;
    data.add({ 0.0, 0.02, { 1, 2, 3 } });
    m_document.extras().keep(ZLListeningData::Key, data.stored());
    EXPECT_FALSE(m_saver->canRevert());
    addChapterAt(1.0);
    EXPECT_TRUE(m_saver->canRevert());
}

TEST_F(ZLDocumentListeningTest, TheFileTakesFourBytesAFrame)
{
    m_document.recordButtonPressed();
    hear(2.0);
    m_document.recordButtonPressed();
    ASSERT_TRUE(m_saver->saveNow());
    const auto contents = ZLDocumentFile::decode(fileBytes());
    ASSERT_TRUE(contents);
    EXPECT_EQ(contents.value().extras.keys(), QStringList { u"Listening"_s });
    const auto spans = contents.value().extras.value(u"Listening"_s).toMap().value(u"Spans"_s).toList();
    ASSERT_EQ(spans.size(), 1);
    EXPECT_EQ(
        spans.first().toMap().value(u"Frames"_s).toByteArray().size(), 4 * qsizetype(kept().spans()[0].frames.size()));
}
