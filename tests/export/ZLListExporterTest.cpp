#include "export/lists/ZLListExporter.h"

#include "export/ZLExportCase.h"
#include "export/ZLExporterRegistry.h"
#include "export/formats/ZLRegisterExporters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

ZLExporterClass classNamed(const QString& name)
{
    for (const ZLExporterClass& exporterClass : ZLListExporter::allForms()) {
        if (exporterClass.format().name == name)
            return exporterClass;
    }
    ADD_FAILURE() << "no format " << qPrintable(name);
    return ZLExporterClass::of<ZLExporter>();
}

QString exported(const QString& name, const ZLExportInput& input)
{
    return QString::fromUtf8(classNamed(name).create()->exportedBytes(input).value());
}

ZLExportInput recordedShow()
{
    return { .chapters = { ZLExportCase::chapter(-2, u"Before"_s, {}, true),
                 ZLExportCase::chapter(0, u"Welcome"_s, {}, true), ZLExportCase::chapter(5, u"Hidden"_s, {}, false),
                 ZLExportCase::chapter(65.5, u"News"_s, u"https://a.example/"_s, true) },
        .duration = 90,
        .fileBaseName = u"Episode 1"_s };
}

}

TEST(ZLListExporter, TheFurtherFormatsStandBesideTheEight)
{
    ZLRegisterExporters();
    const qsizetype registered = ZLExporter::allExporters().size();
    EXPECT_EQ(registered, 8);
    QStringList names;
    for (const ZLExporterClass& exporterClass : ZLListExporter::allForms()) {
        names += exporterClass.format().name;
        EXPECT_EQ(exporterClass.format().dialogKind, ZLExportDialogKind::Save);
        EXPECT_FALSE(exporterClass.format().fileType.isEmpty());
        ZLExporter::registerExporter(exporterClass);
    }
    EXPECT_EQ(names.size(), 9);
    EXPECT_EQ(ZLExporter::allExporters().size(), registered);
}

TEST(ZLListExporter, EnabledChaptersFromTheStartOnAreWritten)
{
    EXPECT_EQ(
        exported(u"Audacity Labels"_s, recordedShow()), u"0.000000\t0.000000\tWelcome\n65.500000\t65.500000\tNews\n"_s);
}

TEST(ZLListExporter, TheLastChapterEndsWithARecordingThatIsOver)
{
    ZLExportInput input = recordedShow();
    EXPECT_TRUE(exported(u"ffmetadata"_s, input).contains(u"START=65500\nEND=90000\n"_s));
    input.isRecording = true;
    EXPECT_FALSE(exported(u"ffmetadata"_s, input).contains(u"90000"_s));
}

TEST(ZLListExporter, NotesFollowTheGivenPatternOrTheUsualOne)
{
    ZLExportInput input = recordedShow();
    EXPECT_EQ(exported(u"Show Notes"_s, input), u"(0:00) Welcome\n(1:05) News https://a.example/\n"_s);
    input.linePattern = u"{number}. {title}"_s;
    EXPECT_EQ(exported(u"Show Notes"_s, input), u"1. Welcome\n2. News\n"_s);
    EXPECT_TRUE(classNamed(u"Show Notes"_s).format().hasLinePattern());
    EXPECT_FALSE(classNamed(u"CUE Sheet"_s).format().hasLinePattern());
}

TEST(ZLListExporter, TheNameOfTheFileStandsWhereTheFormHasOne)
{
    EXPECT_TRUE(exported(u"CUE Sheet"_s, recordedShow()).startsWith(u"TITLE \"Episode 1\"\n"_s));
}
