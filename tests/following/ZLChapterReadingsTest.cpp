#include "ZLFollowerFixture.h"
#include "document/shared/ZLChapterMoves.h"
#include "listening/ZLListeningData.h"

using namespace Qt::StringLiterals;

namespace {

class ZLChapterReadingsTest : public ZLFollowerFixture {
protected:
    ZLChapterReadingsTest()
    {
        reportStanding();
        startRecorder();
        run(10.0);
    }

    ZLChapterPointer mark()
    {
        m_document.addNewBlankChapter();
        return chapters().lastChapter();
    }

    [[nodiscard]] double kept(const ZLChapterPointer& chapter, const QString& key)
    {
        return m_document.extras().ofChapter(chapter->uuid(), key).toDouble();
    }

    ZLChapterReadings m_readings { m_document };
};

TEST_F(ZLChapterReadingsTest, BothReadingsOfAMarkAreKept)
{
    const ZLChapterPointer before = mark();
    m_recorder.jumpBy(2.0);
    run(1.0);
    const ZLChapterPointer between = mark();
    run(9.0);
    m_document.recording().recorderDifference().keepZeltas();
    const ZLChapterPointer after = mark();
    EXPECT_NEAR(kept(before, ZLReadingKey::Recorder) - kept(before, ZLReadingKey::Zelta), 0.0, 0.01);
    EXPECT_NEAR(kept(between, ZLReadingKey::Recorder) - kept(between, ZLReadingKey::Zelta), 2.0, 0.01)
        << "also where the difference was not noticed yet";
    EXPECT_NEAR(kept(after, ZLReadingKey::Recorder) - kept(after, ZLReadingKey::Zelta), 2.0, 0.01);
    EXPECT_EQ(kept(after, ZLReadingKey::Zelta), after->timeStamp());
}

TEST_F(ZLChapterReadingsTest, EitherIsTakenForAllAndUndone)
{
    const ZLChapterPointer first = mark();
    m_recorder.jumpBy(3.0);
    run(10.0);
    m_document.recording().recorderDifference().keepZeltas();
    const ZLChapterPointer second = mark();
    const double zeltas = second->timeStamp();
    EXPECT_TRUE(m_readings.hasAny());
    m_readings.takeForAll(ZLReadingOf::Recorder);
    EXPECT_NEAR(second->timeStamp(), zeltas + 3.0, 0.01);
    EXPECT_NEAR(first->timeStamp(), 10.0, 0.01);
    EXPECT_EQ(history().undoActionName(), u"Take Recorder's Times");
    const double taken = second->timeStamp();
    m_readings.takeForAll(ZLReadingOf::Recorder);
    EXPECT_EQ(second->timeStamp(), taken) << "twice is once";
    m_readings.takeForAll(ZLReadingOf::Zelta);
    EXPECT_NEAR(second->timeStamp(), zeltas, 1e-9);
    history().undo();
    EXPECT_EQ(second->timeStamp(), taken);
    history().undo();
    EXPECT_NEAR(second->timeStamp(), zeltas, 1e-9);
    EXPECT_EQ(history().redoActionName(), u"Take Recorder's Times");
    history().redo();
    EXPECT_EQ(second->timeStamp(), taken);
}

TEST_F(ZLChapterReadingsTest, TakingTheRecordersTimeMovesTheMarksSinceItDiffers)
{
    const ZLChapterPointer before = mark();
    m_recorder.jumpBy(4.0);
    run(10.0);
    const ZLChapterPointer since = mark();
    const double time = since->timeStamp();
    m_document.recording().recorderDifference().takeRecorders();
    EXPECT_NEAR(since->timeStamp(), time + 4.0, 0.01);
    EXPECT_NEAR(before->timeStamp(), 10.0, 0.01);
    history().undo();
    EXPECT_EQ(since->timeStamp(), time);
}

TEST_F(ZLChapterReadingsTest, AMarkIsStillFoundInWhatWasHeardAlong)
{
    m_document.extras().keep(ZLListeningData::Key, ZLListeningData::begun());
    m_recorder.jumpBy(4.0);
    run(10.0);
    const ZLChapterPointer mark = this->mark();
    const auto heardAt = [&] { return mark->timeStamp() - ZLChapterMoves::of(m_document.extras(), mark->uuid()); };
    const double time = mark->timeStamp();
    m_document.recording().recorderDifference().takeRecorders();
    EXPECT_NEAR(mark->timeStamp(), time + 4.0, 0.01);
    EXPECT_NEAR(heardAt(), time, 1e-9);
    history().undo();
    EXPECT_NEAR(heardAt(), time, 1e-9);
    history().redo();
    EXPECT_NEAR(heardAt(), time, 1e-9);
    history().undo();
    m_readings.takeForAll(ZLReadingOf::Recorder);
    EXPECT_NEAR(mark->timeStamp(), time + 4.0, 0.01);
    EXPECT_NEAR(heardAt(), time, 1e-9);
    m_readings.takeForAll(ZLReadingOf::Zelta);
    EXPECT_NEAR(heardAt(), time, 1e-9);
    history().undo();
    EXPECT_NEAR(mark->timeStamp(), time + 4.0, 0.01);
    EXPECT_NEAR(heardAt(), time, 1e-9);
}

TEST_F(ZLChapterReadingsTest, AChapterThatIsNoMarkOfNowHasNone)
{
    const ZLChapterPointer early = addChapterAt(2.0);
    EXPECT_FALSE(m_document.extras().ofChapter(early->uuid(), ZLReadingKey::Zelta).isValid());
    const ZLChapterPointer late = addChapterAt(500.0);
    EXPECT_FALSE(m_document.extras().ofChapter(late->uuid(), ZLReadingKey::Zelta).isValid());
    m_readings.takeForAll(ZLReadingOf::Recorder);
    EXPECT_EQ(early->timeStamp(), 2.0);
}

TEST_F(ZLChapterReadingsTest, MarksAreWrittenIntoTheRecordersFileWhereThatIsWanted)
{
    mark();
    EXPECT_TRUE(m_fake->marks.isEmpty());
    follow({ .marksChapters = true });
    report();
    run(1.0);
    mark();
    EXPECT_EQ(m_fake->marks.size(), 1);
}

}
