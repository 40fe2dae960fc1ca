#include "import/ZLDocumentImport.h"

#include "document/ZLChapterDocument.h"
#include "support/ZLChapterBuilders.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

ZLImportSource notes()
{
    return ZLImportSource::fromText(u"0:10 Welcome\nMail bag\n1:00 News\n"_s).value();
}

ZLDocumentImport::Outcome importNotes(
    ZLChapterDocument& document, const ZLImportChoices& choices, ZLChapterImport::Way way = ZLChapterImport::Way::Add)
{
    return ZLDocumentImport::carryOut(document, ZLImportPlan::make(notes(), choices), way);
}

QStringList chapterTitles(ZLChapterDocument& document)
{
    return ZLTestChapters::titles(document.chapterManager().allChapters());
}

QStringList templateTitles(ZLChapterDocument& document)
{
    return ZLTestChapters::titles(document.templateViewController().chapterManager().allChapters());
}

}

TEST(ZLDocumentImport, ChaptersAndTemplatesComeAndGoInOneStep)
{
    ZLChapterDocument document { {} };
    document.addChapter(ZLTestChapters::chapterAt(30, u"Mine"_s));
    const auto outcome = importNotes(document, { .makesTemplates = true });
    EXPECT_EQ(outcome.chapters, 2);
    EXPECT_EQ(outcome.templates, 1);
    EXPECT_EQ(chapterTitles(document), (QStringList { u"Welcome"_s, u"Mine"_s, u"News"_s }));
    EXPECT_EQ(templateTitles(document), QStringList { u"Mail bag"_s });
    EXPECT_EQ(document.undoManager().undoActionName(), u"Import Chapters"_s);

    document.undoManager().undo();
    EXPECT_EQ(chapterTitles(document), QStringList { u"Mine"_s });
    EXPECT_EQ(templateTitles(document), QStringList());
    document.undoManager().redo();
    EXPECT_EQ(chapterTitles(document).size(), 3);
    EXPECT_EQ(templateTitles(document).size(), 1);
}

TEST(ZLDocumentImport, LinesWithoutATimeAreLeftWhereTheyAreNotWanted)
{
    ZLChapterDocument document { {} };
    document.addChapter(ZLTestChapters::chapterAt(30, u"Mine"_s));
    importNotes(document, { .shift = 5.0 }, ZLChapterImport::Way::Replace);
    EXPECT_EQ(ZLTestChapters::times(document.chapterManager().allChapters()), (QList<double> { 15.0, 65.0 }));
    EXPECT_EQ(templateTitles(document), QStringList());
}

TEST(ZLDocumentImport, ARunningClockGoesOn)
{
    ZLChapterDocument document { {} };
    document.startRecordingWithTime(0.0);
    const double start = document.startTime();
    importNotes(document, {});
    EXPECT_TRUE(document.isRecording());
    EXPECT_EQ(document.startTime(), start);
    document.undoManager().undo();
    EXPECT_TRUE(document.isRecording());
}
