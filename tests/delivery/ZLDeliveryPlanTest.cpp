#include "ZLWaveFile.h"

#include "delivery/ZLDelivery.h"
#include "delivery/ZLDeliveryFindings.h"
#include "delivery/ZLMediaImport.h"
#include "support/ZLChapterBuilders.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;
using ZLTestChapters::chapterAt;

class ZLDeliveryPlanTest : public testing::Test {
protected:
    ZLDeliveryPlanTest() { EXPECT_TRUE(writeWaveFile(m_path, 60)); }

    ZLDeliveryPlan plan(const ZLChapterSequence& chapters, double shift = 0.0) const
    {
        return ZLDeliveryPlan::make(chapters, m_path, shift).value();
    }

    QTemporaryDir m_folder;
    const QString m_path = m_folder.filePath(u"episode.wav"_s);
};

TEST_F(ZLDeliveryPlanTest, TimesAreWholeMillisecondsAndNeverLater)
{
    const auto toCome = plan({ chapterAt(0.0009), chapterAt(1.001), chapterAt(1.9999), chapterAt(10.1) }, 0.2).toCome;
    ASSERT_EQ(toCome.size(), 4);
    EXPECT_EQ(toCome.at(0).start, 200);
    EXPECT_EQ(toCome.at(1).start, 1201);
    EXPECT_EQ(toCome.at(2).start, 2199);
    EXPECT_EQ(toCome.at(3).start, 10300);
}

TEST_F(ZLDeliveryPlanTest, AChapterEndsWithTheNextAndTheLastWithTheFile)
{
    const auto toCome = plan({ chapterAt(1), chapterAt(5) }).toCome;
    EXPECT_EQ(toCome.at(0).end, 5000);
    EXPECT_EQ(toCome.at(1).end, 60'000);
}

TEST_F(ZLDeliveryPlanTest, OnlyEnabledChaptersComeInTheOrderOfTheirTimes)
{
    const auto off = chapterAt(2, u"off"_s);
    off->setEnabled(false);
    const auto toCome = plan({ chapterAt(9, u"b"_s), off, chapterAt(3, u"a"_s) }).toCome;
    ASSERT_EQ(toCome.size(), 2);
    EXPECT_EQ(toCome.at(0).title, u"a"_s);
    EXPECT_EQ(toCome.at(1).title, u"b"_s);
}

TEST_F(ZLDeliveryPlanTest, TimesBeyondAllFilesAreLeftOut)
{
    const double infinity = std::numeric_limits<double>::infinity();
    const auto made = plan({ chapterAt(infinity, u"x"_s), chapterAt(-infinity, u"x"_s), chapterAt(1e300, u"x"_s),
        chapterAt(std::numeric_limits<double>::quiet_NaN(), u"x"_s), chapterAt(-0.001, u"x"_s),
        chapterAt(60, u"x"_s) });
    EXPECT_TRUE(made.toCome.isEmpty());
    ASSERT_EQ(made.findings.size(), 2);
    EXPECT_TRUE(made.findings.at(0).contains(u": 2."_s)) << qPrintable(made.findings.at(0));
    EXPECT_TRUE(made.findings.at(1).contains(u": 4."_s)) << qPrintable(made.findings.at(1));
}

TEST_F(ZLDeliveryPlanTest, TooManyChaptersAreCutAtTheEnd)
{
    const ZLMediaContents file { .formName = u"MP3"_s, .length = 10'000, .mostChapters = 3 };
    ZLMediaChapters chapters { { 0, 0, u"a"_s }, { 1, 0, u"b"_s }, { 2, 0, u"c"_s }, { 3, 0, u"d"_s } };
    const QStringList findings = ZLDeliveryFindings::applied(file, chapters);
    EXPECT_EQ(chapters.size(), 3);
    EXPECT_EQ(findings, QStringList { u"MP3 holds 3 chapters at most. Left out at the end: 1."_s });
}

TEST_F(ZLDeliveryPlanTest, PicturesThatAreLostAreTold)
{
    ZLMediaContents file { .chapters = { { 0 }, { 5 } }, .pictures = { 0, 5 }, .mostChapters = 9 };
    ZLMediaChapters same { { 0, 0, u"a"_s }, { 5, 0, u"b"_s } };
    ZLMediaChapters other { { 0, 0, u"a"_s }, { 6, 0, u"b"_s } };
    EXPECT_TRUE(ZLDeliveryFindings::applied(file, same).isEmpty());
    EXPECT_TRUE(ZLDeliveryFindings::applied(file, other).value(0).endsWith(u": 1."_s));
    file.keepsPicturesTogether = true;
    EXPECT_TRUE(ZLDeliveryFindings::applied(file, same).isEmpty());
    EXPECT_TRUE(ZLDeliveryFindings::applied(file, other).value(0).endsWith(u": 2."_s));
}

TEST_F(ZLDeliveryPlanTest, TextsThatNoFileCanHoldAreMadeHarmless)
{
    const auto chapter = chapterAt(1, u"a"_s + QChar(0) + u"b"_s + QChar(0xD800));
    const auto made = plan({ chapter });
    ZLWorkProgress progress;
    const auto outcome = ZLDelivery::write(made, m_path, progress);
    ASSERT_TRUE(outcome) << qPrintable(outcome.error().message);
    EXPECT_EQ(outcome.value(), u"1 of 1 chapters are in episode.wav"_s);
}

TEST_F(ZLDeliveryPlanTest, WhatIsMissingAfterwardsIsCounted)
{
    const ZLMediaChapters wanted { { 1000, 0, u"a"_s }, { 2000, 0, u"b"_s }, { 3000, 0, u"c"_s } };
    ZLMediaContents found { .chapters = { { 1001, 0, u"a"_s }, { 2000, 0, u"other"_s }, { 3002, 0, u"c"_s } } };
    EXPECT_EQ(ZLDelivery::countWritten(wanted, found), 1);
    found.chapters = wanted;
    EXPECT_EQ(ZLDelivery::countWritten(wanted, found), 3);
    found.chapters.first().link = u"https://example.org"_s;
    EXPECT_EQ(ZLDelivery::countWritten(wanted, found), 2);
}

TEST_F(ZLDeliveryPlanTest, AnAudioFileReadsAsADocument)
{
    ZLWorkProgress progress;
    ASSERT_TRUE(ZLDelivery::write(plan({ chapterAt(1.5, u"Eins"_s) }), m_path, progress));
    const auto contents = ZLMediaImport::read(m_path);
    ASSERT_TRUE(contents);
    EXPECT_EQ(contents.value().duration, 60.0);
    const auto chapters = ZLChapterManager(contents.value().chapters).allChapters();
    EXPECT_EQ(ZLTestChapters::titles(chapters), QStringList { u"Eins"_s });
    EXPECT_EQ(ZLTestChapters::times(chapters), QList<double> { 1.5 });
    EXPECT_TRUE(chapters.first()->isEnabled());
}
