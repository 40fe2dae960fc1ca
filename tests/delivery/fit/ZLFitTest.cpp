#include "ZLFitFixture.h"

#include "delivery/fit/ZLFitApplication.h"
#include "document/shared/ZLChapterMoves.h"
#include "listening/ZLListeningData.h"

using namespace Qt::StringLiterals;

using ZLFitTest = ZLFitFixture;

TEST_F(ZLFitTest, EachMarkIsKeptOrAtTheSeamOrCutOrNotFound)
{
    addMarks();
    const ZLFit fit = fitOf(cutShow());
    ASSERT_EQ(fit.chapters.size(), 5);
    EXPECT_EQ(fit.chapters[0].place.state, ZLMomentState::Kept);
    EXPECT_NEAR(fit.chapters[0].newTime(), 15.0, 1e-9);
    EXPECT_EQ(fit.chapters[1].place.state, ZLMomentState::Cut);
    EXPECT_NEAR(fit.chapters[1].newTime(), 45.0, 1e-9);
    EXPECT_EQ(fit.chapters[2].place.state, ZLMomentState::Seam);
    EXPECT_NEAR(fit.chapters[2].newTime(), 45.0, 1e-9);
    EXPECT_NEAR(fit.chapters[3].newTime(), 55.0, 1e-9);
    EXPECT_EQ(fit.chapters[4].place.state, ZLMomentState::NotFound);
    EXPECT_EQ(fit.chapters[4].newTime(), 200.0);
    EXPECT_EQ(fit.count(ZLMomentState::Kept), 2);
}

TEST_F(ZLFitTest, TheClockMayStartWithinTheRecording)
{
    addChapterAt(7.0);
    EXPECT_NEAR(fitOf(cutShow(), 3.0).chapters[0].newTime(), 15.0, 1e-9);
}

TEST_F(ZLFitTest, ANewDocumentHasCopiesInTheOrderOfTheFile)
{
    addMarks();
    const ZLDocumentContents contents = ZLFitApplication::contentsOf(fitOf(cutShow()));
    EXPECT_EQ(contents.duration, 85.0);
    EXPECT_TRUE(contents.extras.isEmpty());
    const ZLChapterSequence fitted = ZLChapterManager(contents.chapters).allChapters();
    EXPECT_EQ(
        ZLTestChapters::titles(fitted), (QStringList { u"Kept"_s, u"Cut"_s, u"Seam"_s, u"Later"_s, u"Unheard"_s }));
    EXPECT_TRUE(fitted[0]->isEnabled());
    EXPECT_FALSE(fitted[1]->isEnabled());
    EXPECT_TRUE(fitted[2]->isEnabled());
    EXPECT_FALSE(fitted[4]->isEnabled());
    EXPECT_EQ(times(), (QList<double> { 10.0, 42.0, 50.0, 70.0, 200.0 })) << "this document stays as it is";
}

TEST_F(ZLFitTest, AMarkIsLookedForWhereItWasSetBeforeItWasMoved)
{
    addChapterAt(10.0);
    m_document.extras().keep(ZLListeningData::Key, QVariantMap { { u"Version"_s, 1 } });
    m_document.moveChaptersByMilliseconds(2500.0F);
    addChapterAt(20.0);
    const ZLFit fit = fitOf(cutShow());
    EXPECT_EQ(fit.chapters[0].oldTime(), 12.5);
    EXPECT_NEAR(fit.chapters[0].newTime(), 15.0, 1e-9);
    EXPECT_NEAR(fit.chapters[1].newTime(), 25.0, 1e-9) << "set after the move";
}

TEST_F(ZLFitTest, MovesThatCrossLeaveTheMarksInTheOrderOfTheShow)
{
    const auto first = addChapterAt(10.0, u"First"_s);
    addChapterAt(41.0, u"Second"_s);
    m_document.extras().keep(ZLChapterMoves::FitsKey, QVariantList { 1 });
    ZLChapterMoves::add(m_document.extras(), first->uuid(), 60.0);
    first->setTimeStamp(70.0);
    const ZLFit fit = fitOf(cutShow());
    EXPECT_EQ(fit.chapters[0].mark.chapter->title(), u"First"_s);
    EXPECT_EQ(fit.chapters[1].place.state, ZLMomentState::Seam) << "it reaches to the end, not to the moved one";
}
