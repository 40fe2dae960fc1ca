#include "ZLFitFixture.h"

#include "delivery/fit/ZLFitApplication.h"
#include "delivery/fit/ZLFittedChapters.h"
#include "delivery/fit/ZLKeptFits.h"
#include "document/ZLDocumentFile.h"
#include "document/shared/ZLChapterMoves.h"

using namespace Qt::StringLiterals;

class ZLFitApplicationTest : public ZLFitFixture {
protected:
    ZLKeptFit keep(const ZLSoundAlignment& alignment, const QString& name)
    {
        return ZLKeptFits::keep(
            m_document.extras(), { .identifier = ZLChapter::generateUUID(), .fileName = name, .alignment = alignment });
    }
    void apply(const ZLKeptFit& kept)
    {
        ZLFitApplication::apply(m_document, fitOf(kept.alignment, kept.zero), kept.identifier);
    }
    /// Everything of the show, 2 s later.
    [[nodiscard]] static ZLSoundAlignment wholeShow()
    {
        return { { { 0.0, 2.0, 100.0, 1.0, 0.1 } }, {}, 100.0, 102.0 };
    }
};

TEST_F(ZLFitApplicationTest, ApplyingIsOneStepThatUndoTakesBack)
{
    addMarks();
    const QDateTime date(QDate(2024, 5, 1), QTime(14, 0), QTimeZone::utc());
    chapters().chapterAtIndex(0)->setRealDate(date);
    record(3.0);
    const ZLKeptFit kept = keep(cutShow(), u"a.mp3"_s);
    const QByteArray before = m_document.dataOfType();
    apply(kept);
    EXPECT_EQ(history().undoActionName(), u"Fit to Finished File"_s);
    EXPECT_EQ(times(), (QList<double> { 15.0, 45.0, 45.0, 55.0, 200.0 }));
    EXPECT_EQ(ticks(), (QList<bool> { true, false, true, true, false }));
    EXPECT_EQ(chapters().chapterAtIndex(0)->realDate(), date) << "as in a move";
    EXPECT_EQ(m_document.currentDuration(), 3.0) << "the show may go on";
    EXPECT_EQ(ZLKeptFits::followed(m_document.extras()), kept.identifier);
    history().undo();
    EXPECT_EQ(m_document.dataOfType(), before);
    history().redo();
    EXPECT_EQ(times(), (QList<double> { 15.0, 45.0, 45.0, 55.0, 200.0 }));
    EXPECT_EQ(ticks(), (QList<bool> { true, false, true, true, false }));
}

TEST_F(ZLFitApplicationTest, AnotherFinishedFileIsFittedFromTheShowAgain)
{
    addMarks();
    apply(keep(cutShow(), u"a.mp3"_s));
    apply(keep(wholeShow(), u"b.mp4"_s));
    EXPECT_EQ(times(), (QList<double> { 12.0, 44.0, 52.0, 72.0, 200.0 }));
    EXPECT_EQ(ticks(), (QList<bool> { true, true, true, true, false })) << "this file has what the other one has not";
}

TEST_F(ZLFitApplicationTest, WhatAPersonUntickedStaysUnticked)
{
    addMarks();
    m_document.updateChapterToEnabledState(chapters().chapterAtIndex(0), false);
    apply(keep(cutShow(), u"a.mp3"_s));
    apply(keep(wholeShow(), u"b.mp4"_s));
    EXPECT_FALSE(chapters().chapterAtIndex(0)->isEnabled());
}

TEST_F(ZLFitApplicationTest, AMarkThatComesLaterIsCarriedOver)
{
    addMarks();
    const ZLKeptFit kept = keep(cutShow(), u"a.mp3"_s);
    apply(kept);
    const auto later = addChapterAt(80.0, u"Later still"_s);
    apply(kept);
    EXPECT_NEAR(later->timeStamp(), 65.0, 1e-9);
    EXPECT_EQ(chapters().chapterAtIndex(0)->timeStamp(), 15.0) << "those before stay";
}

TEST_F(ZLFitApplicationTest, ATimeThatWasTypedAfterAFitIsACorrection)
{
    addMarks();
    const ZLKeptFit kept = keep(cutShow(), u"a.mp3"_s);
    apply(kept);
    m_document.updateChapterToTime(chapters().chapterAtIndex(0), 15.25);
    apply(kept);
    EXPECT_NEAR(chapters().chapterAtIndex(0)->timeStamp(), 15.25, 1e-9);
}

TEST_F(ZLFitApplicationTest, AFileGetsTheChaptersAtTheirPlacesWithoutAChangeOfTheDocument)
{
    addMarks();
    keep(cutShow(), u"a.mp3"_s);
    ZLMediaContents file;
    file.length = 85'100;
    const auto carried = ZLFittedChapters::forFile(m_document, u"/somewhere/a.mp3"_s, file);
    ASSERT_TRUE(carried);
    EXPECT_EQ(ZLTestChapters::times(*carried), (QList<double> { 15.0, 45.0, 45.0, 55.0, 200.0 }));
    EXPECT_FALSE(ZLFittedChapters::forFile(m_document, u"/somewhere/b.mp3"_s, file));
    file.length = 90'000;
    EXPECT_FALSE(ZLFittedChapters::forFile(m_document, u"/somewhere/a.mp3"_s, file)) << "it was cut again since";
}

TEST_F(ZLFitApplicationTest, TheFileThatTheChaptersFollowGetsThemAsTheyStand)
{
    addMarks();
    apply(keep(cutShow(), u"a.mp3"_s));
    ZLMediaContents file;
    file.length = 85'000;
    EXPECT_FALSE(ZLFittedChapters::forFile(m_document, u"/somewhere/a.mp3"_s, file));
}

TEST_F(ZLFitApplicationTest, TheDocumentsFileHasAllOfItAndADocumentWithoutHasNothing)
{
    addMarks();
    m_document.moveChaptersByMilliseconds(1000.0F);
    EXPECT_TRUE(ZLDocumentFile::decode(m_document.dataOfType()).value().extras.isEmpty());
    const ZLKeptFit kept = keep(cutShow(), u"a.mp3"_s);
    apply(kept);
    ZLChapterDocument again(environment());
    ASSERT_TRUE(again.readFromData(m_document.dataOfType()));
    EXPECT_EQ(ZLKeptFits::followed(again.extras()), kept.identifier);
    ASSERT_EQ(ZLKeptFits::in(again.extras()).size(), 1);
    const ZLShowMarks marks = ZLFitNotes::marksOf(again.chapterManager().allChapters(), again.extras());
    EXPECT_NEAR(marks.constFirst().showTime, 11.0, 1e-9)
        << "what was moved before anything was kept is the show's time";
    const auto contents = ZLDocumentFile::decode(m_document.dataOfType()).value();
    const ZLShowMarks inFile = ZLFitNotes::marksOf(ZLChapterManager(contents.chapters).allChapters(), contents.extras);
    ASSERT_EQ(inFile.size(), marks.size());
    for (qsizetype index = 0; index < marks.size(); ++index) {
        EXPECT_EQ(inFile[index].showTime, marks[index].showTime);
        EXPECT_EQ(inFile[index].isWanted, marks[index].isWanted);
    }
}
