#include "delivery/fit/ZLFitDraft.h"

#include "ZLFitFixture.h"
#include "ZLShowSounds.h"

#include "alignment/ZLFingerprinter.h"
#include "delivery/fit/ZLKeptFits.h"
#include "document/shared/ZLChapterMoves.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

class ZLFitDraftTest : public ZLFitFixture {
protected:
    QString makeFile(const QString& name, const ZLShowSounds::Samples& samples) const
    {
        EXPECT_TRUE(ZLShowSounds::write(m_folder.filePath(name), samples));
        return m_folder.filePath(name);
    }
    /// 20 to 30 s of the show are not in it.
    [[nodiscard]] QString finishedFile() const
    {
        return makeFile(u"finished.wav"_s,
            ZLShowSounds::joined(ZLShowSounds::part(m_show, 0.0, 20.0), ZLShowSounds::part(m_show, 30.0, 60.0)));
    }
    void fit(const QString& finished)
    {
        m_draft.setRecordingPath(makeFile(u"raw.wav"_s, m_show));
        m_draft.setFinishedPath(finished);
        start();
    }
    void start()
    {
        QSignalSpy ends(&m_draft, &ZLFitDraft::didEnd);
        m_draft.start();
        EXPECT_EQ(m_draft.state(), ZLFitDraft::State::Working);
        EXPECT_TRUE(QTest::qWaitFor([&] { return ends.count() == 1; }, 60'000));
    }

    QTemporaryDir m_folder;
    const ZLShowSounds::Samples m_show = ZLShowSounds::show(1, 60.0);
    ZLFitDraft m_draft { m_document };
};

TEST_F(ZLFitDraftTest, FindsTheMarksAndKeepsWhatItFound)
{
    addChapterAt(10.0);
    addChapterAt(40.0);
    EXPECT_FALSE(m_draft.canStart());
    fit(finishedFile());
    ASSERT_EQ(m_draft.state(), ZLFitDraft::State::Ready) << qPrintable(m_draft.message());
    ASSERT_EQ(m_draft.fit()->chapters.size(), 2);
    EXPECT_NEAR(m_draft.fit()->chapters[0].newTime(), 10.0, 0.05);
    EXPECT_NEAR(m_draft.fit()->chapters[1].newTime(), 30.0, 0.05);
    EXPECT_EQ(times(), (QList<double> { 10.0, 40.0 })) << "nothing is applied yet";
    ASSERT_EQ(ZLKeptFits::in(m_document.extras()).size(), 1);
    EXPECT_EQ(ZLKeptFits::in(m_document.extras()).constFirst().fileName, u"finished.wav"_s);
    EXPECT_FALSE(m_document.dataOfType().contains(m_folder.path().toUtf8())) << "nothing tells where it lies here";
}

TEST_F(ZLFitDraftTest, TheFilesOfTheRecorderAreTheShow)
{
    EXPECT_TRUE(m_draft.recorderFiles().isEmpty());
    // The recording was split, and had begun before the clock did.
    const auto before = ZLShowSounds::show(3, 5.0);
    ZLRecorderFiles::add(m_document.extras(),
        { makeFile(u"one.wav"_s, ZLShowSounds::joined(before, ZLShowSounds::part(m_show, 0.0, 25.0))), -5.0 });
    ZLRecorderFiles::add(m_document.extras(), { makeFile(u"two.wav"_s, ZLShowSounds::part(m_show, 25.0, 60.0)), 25.0 });
    addChapterAt(10.0);
    addChapterAt(40.0);
    m_draft.setFinishedPath(finishedFile());
    m_draft.takeBestSource();
    ASSERT_EQ(m_draft.source(), ZLFitDraft::Source::RecorderFiles);
    start();
    ASSERT_EQ(m_draft.state(), ZLFitDraft::State::Ready) << qPrintable(m_draft.message());
    EXPECT_NEAR(m_draft.fit()->chapters[0].newTime(), 10.0, 0.05);
    EXPECT_NEAR(m_draft.fit()->chapters[1].newTime(), 30.0, 0.05);
}

TEST_F(ZLFitDraftTest, AFileOfTheRecorderThatIsGoneIsNamed)
{
    ZLRecorderFiles::add(m_document.extras(), { m_folder.filePath(u"gone.wav"_s), 0.0 });
    m_draft.setFinishedPath(finishedFile());
    m_draft.takeBestSource();
    start();
    EXPECT_EQ(m_draft.state(), ZLFitDraft::State::Failed);
    EXPECT_TRUE(m_draft.message().contains(u"gone.wav"_s)) << qPrintable(m_draft.message());
}

TEST_F(ZLFitDraftTest, FollowsTheChaptersAndCarriesLaterOnesOver)
{
    addChapterAt(10.0);
    fit(finishedFile());
    m_draft.apply();
    EXPECT_TRUE(m_draft.isApplied());
    EXPECT_FALSE(m_draft.canApply());
    const auto later = addChapterAt(50.0);
    EXPECT_TRUE(QTest::qWaitFor([this] { return m_draft.fit()->chapters.size() == 2; }));
    EXPECT_TRUE(m_draft.canApply());
    m_draft.apply();
    EXPECT_NEAR(later->timeStamp(), 40.0, 0.05);
}

TEST_F(ZLFitDraftTest, AnotherShowIsNoneAndNothingIsKept)
{
    addChapterAt(10.0);
    fit(makeFile(u"other.wav"_s, ZLShowSounds::show(2, 60.0)));
    EXPECT_EQ(m_draft.state(), ZLFitDraft::State::Failed);
    EXPECT_EQ(m_draft.message(), u"other.wav is not this show: too little of raw.wav is in it."_s);
    EXPECT_FALSE(m_draft.fit());
    EXPECT_TRUE(m_document.extras().values().isEmpty());
    EXPECT_FALSE(m_draft.canApply());
}

TEST_F(ZLFitDraftTest, FilesThatHaveNoSoundAreToldInOneLine)
{
    addChapterAt(10.0);
    const auto tone = [](double seconds) {
        ZLShowSounds::Samples samples(std::size_t(seconds * ZLShowSounds::SamplesPerSecond));
        for (std::size_t at = 0; at < samples.size(); ++at)
            samples[at] =
                float(0.5 * std::sin(2.0 * std::numbers::pi * 1000.0 * double(at) / ZLShowSounds::SamplesPerSecond));
        return samples;
    };
    ASSERT_TRUE(ZLAtomicFile::write(m_folder.filePath(u"empty.wav"_s), QByteArray()));
    const QStringList files { m_folder.filePath(u"empty.wav"_s), m_folder.filePath(u"missing.wav"_s),
        makeFile(u"none.wav"_s, {}), makeFile(u"silence.wav"_s, ZLShowSounds::Samples(480'000)),
        makeFile(u"tone.wav"_s, tone(60.0)), makeFile(u"hour.wav"_s, ZLShowSounds::Samples(28'800'000)) };
    for (const QString& file : files) {
        fit(file);
        EXPECT_EQ(m_draft.state(), ZLFitDraft::State::Failed) << qPrintable(file);
        EXPECT_TRUE(m_draft.message().contains(QFileInfo(file).fileName())) << qPrintable(m_draft.message());
        EXPECT_FALSE(m_draft.message().contains(u'\n'));
    }
    EXPECT_TRUE(m_document.extras().values().isEmpty());
}

TEST_F(ZLFitDraftTest, IsCancelledAtAnyTime)
{
    addChapterAt(10.0);
    m_draft.setRecordingPath(makeFile(u"raw.wav"_s, ZLShowSounds::show(3, 600.0)));
    m_draft.setFinishedPath(finishedFile());
    QSignalSpy ends(&m_draft, &ZLFitDraft::didEnd);
    m_draft.start();
    m_draft.cancel();
    ASSERT_TRUE(QTest::qWaitFor([&] { return ends.count() == 1; }, 60'000));
    EXPECT_EQ(m_draft.state(), ZLFitDraft::State::Choosing);
    EXPECT_EQ(m_draft.message(), u"The fit was cancelled."_s);
    EXPECT_TRUE(m_document.extras().values().isEmpty());
}

TEST_F(ZLFitDraftTest, AFileThatWasFittedBeforeNeedsNoSecondFit)
{
    addChapterAt(10.0);
    fit(finishedFile());
    const QString identifier = m_draft.shownIdentifier();
    ZLFitDraft later(m_document);
    later.setFinishedPath(m_folder.filePath(u"finished.wav"_s));
    ASSERT_TRUE(QTest::qWaitFor([&] { return later.fit().has_value(); }));
    EXPECT_EQ(later.shownIdentifier(), identifier);
    // Also without the file.
    ZLFitDraft elsewhere(m_document);
    elsewhere.showKeptFit(identifier);
    ASSERT_TRUE(elsewhere.fit());
    EXPECT_TRUE(elsewhere.finishedPath().isEmpty());
}

TEST_F(ZLFitDraftTest, TheClockMayHaveStartedWithinTheRecording)
{
    addChapterAt(5.0);
    m_draft.setZero(5.0);
    fit(finishedFile());
    ASSERT_TRUE(m_draft.fit());
    EXPECT_NEAR(m_draft.fit()->chapters[0].newTime(), 10.0, 0.05);
}

TEST_F(ZLFitDraftTest, OutlivesItsDocumentWhileItWorks)
{
    auto document = std::make_unique<ZLChapterDocument>(environment());
    ZLFitDraft draft(*document);
    draft.setRecordingPath(makeFile(u"raw.wav"_s, m_show));
    draft.setFinishedPath(finishedFile());
    const QSignalSpy changes(&draft, &ZLFitDraft::didChange);
    draft.start();
    document.reset();
    EXPECT_FALSE(draft.canStart());
    EXPECT_FALSE(draft.hasHeardAlong());
    draft.cancel();
    QTest::qWait(50);
    EXPECT_FALSE(draft.fit());
}

TEST_F(ZLFitDraftTest, WhatWasHeardAlongNeedsNoRecording)
{
    addChapterAt(40.0);
    ZLListeningData heard;
    heard.add(ZLListeningSpan { .start = 0.0, .frames = ZLFingerprinter::of(m_show).frames });
    m_document.extras().keep(ZLListeningData::Key, heard.stored());
    ZLFitDraft draft(m_document);
    EXPECT_TRUE(draft.hasHeardAlong());
    draft.setSource(ZLFitDraft::Source::HeardAlong);
    draft.setFinishedPath(finishedFile());
    QSignalSpy ends(&draft, &ZLFitDraft::didEnd);
    draft.start();
    ASSERT_TRUE(QTest::qWaitFor([&] { return ends.count() == 1; }, 60'000));
    ASSERT_TRUE(draft.fit()) << qPrintable(draft.message());
    EXPECT_NEAR(draft.fit()->chapters[0].newTime(), 30.0, 0.05);
}
