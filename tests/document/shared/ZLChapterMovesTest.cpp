#include "document/shared/ZLChapterMoves.h"

#include "document/shared/ZLRecorderFiles.h"
#include "listening/ZLListeningData.h"
#include "support/ZLDocumentFixture.h"

#include <limits>

using namespace Qt::StringLiterals;

class ZLChapterMovesTest : public ZLDocumentFixture {
protected:
    void listen() { m_document.extras().keep(ZLListeningData::Key, QVariantMap { { u"Version"_s, 1 } }); }
    [[nodiscard]] double moved(const ZLChapterPointer& chapter)
    {
        return ZLChapterMoves::of(m_document.extras(), chapter->uuid());
    }
};

TEST_F(ZLChapterMovesTest, AMoveIsRememberedForTheChaptersThatWereThere)
{
    listen();
    const auto before = addChapterAt(10.0);
    m_document.moveChaptersByMilliseconds(1500.0F);
    const auto after = addChapterAt(20.0);
    m_document.moveChaptersByMilliseconds(-500.0F);
    EXPECT_EQ(moved(before), 1.0);
    EXPECT_EQ(moved(after), -0.5);
}

TEST_F(ZLChapterMovesTest, UndoAndRedoTakeItBackAndBringIt)
{
    listen();
    const auto chapter = addChapterAt(10.0);
    m_document.moveChaptersByMilliseconds(1500.0F);
    history().undo();
    EXPECT_EQ(chapter->timeStamp(), 10.0);
    EXPECT_EQ(moved(chapter), 0.0);
    history().redo();
    EXPECT_EQ(chapter->timeStamp(), 11.5);
    EXPECT_EQ(moved(chapter), 1.5);
}

TEST_F(ZLChapterMovesTest, ATypedTimeIsNoMove)
{
    listen();
    const auto chapter = addChapterAt(10.0);
    m_document.updateChapterToTime(chapter, 12.0);
    EXPECT_EQ(moved(chapter), 0.0);
}

TEST_F(ZLChapterMovesTest, FilesOfARecorderAreEnoughToRememberMoves)
{
    ZLRecorderFiles::add(m_document.extras(), { u"/shows/one.mkv"_s, 0.0 });
    const auto chapter = addChapterAt(10.0);
    m_document.moveChaptersByMilliseconds(1500.0F);
    EXPECT_EQ(moved(chapter), 1.5);
    // The recorder's files have the times of the recorder.
    ZLChapterMoves::addWithClock(m_document.extras(), chapter->uuid(), 4.0);
    EXPECT_EQ(moved(chapter), 1.5);
    listen();
    ZLChapterMoves::addWithClock(m_document.extras(), chapter->uuid(), 4.0);
    EXPECT_EQ(moved(chapter), 5.5);
}

TEST_F(ZLChapterMovesTest, ADocumentThatKnowsNothingOfItsShowRemembersNoMove)
{
    const auto chapter = addChapterAt(10.0);
    m_document.moveChaptersByMilliseconds(1500.0F);
    EXPECT_EQ(moved(chapter), 0.0);
    EXPECT_TRUE(m_document.extras().values().isEmpty());
    // Not even half of it: the undo of a move that is not remembered is none either.
    listen();
    history().undo();
    EXPECT_EQ(moved(chapter), 0.0);
}

TEST_F(ZLChapterMovesTest, ThereAndBackLeavesNothing)
{
    listen();
    const auto chapter = addChapterAt(10.0);
    m_document.moveChaptersByMilliseconds(1234.0F);
    m_document.moveChaptersByMilliseconds(-1234.0F);
    EXPECT_FALSE(m_document.extras().values().contains(ZLDocumentExtras::ChapterNotesKey));
}

TEST_F(ZLChapterMovesTest, AHostileNumberCountsAsNone)
{
    const auto chapter = addChapterAt(10.0);
    m_document.extras().keepOfChapter(chapter->uuid(), u"Moved"_s, std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(moved(chapter), 0.0);
    m_document.extras().keepOfChapter(chapter->uuid(), u"Moved"_s, u"x"_s);
    EXPECT_EQ(moved(chapter), 0.0);
}
