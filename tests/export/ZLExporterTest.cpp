#include "export/ZLExporterRegistry.h"
#include "export/formats/ZLRegisterExporters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

template <int number>
class NumberedExporter final : public ZLExporter {
public:
    static ZLExportFormat format()
    {
        const QStringList names { u"Zebra"_s, u"alpha"_s, u"Beta 2"_s, u"Beta"_s };
        return {
            .name = names.at(number), .dialogKind = ZLExportDialogKind::Save, .fileType = u"txt"_s, .optionTitle = {}
        };
    }
};

QStringList namesOf(const QList<ZLExporterClass>& classes)
{
    QStringList names;
    for (const ZLExporterClass& exporterClass : classes)
        names.append(exporterClass.format().name);
    return names;
}

}

TEST(ZLExporterRegistry, IsEmptyBeforeAnythingIsRegistered)
{
    EXPECT_TRUE(ZLExporterRegistry().allExporters().isEmpty());
}

TEST(ZLExporterRegistry, ListsClassesByNameWithCapitalsFirst)
{
    ZLExporterRegistry registry;
    registry.registerExporter(ZLExporterClass::of<NumberedExporter<0>>());
    registry.registerExporter(ZLExporterClass::of<NumberedExporter<1>>());
    registry.registerExporter(ZLExporterClass::of<NumberedExporter<2>>());
    registry.registerExporter(ZLExporterClass::of<NumberedExporter<3>>());

    EXPECT_EQ(namesOf(registry.allExporters()), (QStringList { u"Beta"_s, u"Beta 2"_s, u"Zebra"_s, u"alpha"_s }));
}

TEST(ZLExporterRegistry, LeavesTheBaseClassOut)
{
    ZLExporterRegistry registry;
    registry.registerExporter(ZLExporterClass::of<ZLExporter>());
    EXPECT_TRUE(registry.allExporters().isEmpty());

    registry.registerExporter(ZLExporterClass::of<NumberedExporter<0>>());
    registry.registerExporter(ZLExporterClass::of<ZLExporter>());
    EXPECT_EQ(namesOf(registry.allExporters()), QStringList { u"Zebra"_s });
}

TEST(ZLExporterRegistry, ListsAClassTwiceThatIsRegisteredTwice)
{
    ZLExporterRegistry registry;
    registry.registerExporter(ZLExporterClass::of<NumberedExporter<0>>());
    registry.registerExporter(ZLExporterClass::of<NumberedExporter<0>>());

    EXPECT_EQ(namesOf(registry.allExporters()), (QStringList { u"Zebra"_s, u"Zebra"_s }));
}

TEST(ZLExporterRegistry, MakesAFreshExporterEachTime)
{
    const auto exporterClass = ZLExporterClass::of<NumberedExporter<0>>();
    const auto first = exporterClass.create();
    const auto second = exporterClass.create();

    EXPECT_NE(first, second);
    EXPECT_NE(dynamic_cast<NumberedExporter<0>*>(first.get()), nullptr);
}

TEST(ZLExporter, BaseClassHasNoNameAndWritesNothing)
{
    EXPECT_EQ(ZLExporter::format().name, QString());
    EXPECT_EQ(ZLExporter::format().dialogKind, ZLExportDialogKind::None);
    EXPECT_FALSE(ZLExporter().exportedBytes({}).isOk());
}

TEST(ZLExporter, ListsEveryFormatOfTheProgramOnce)
{
    ZLRegisterExporters();
    ZLRegisterExporters();

    EXPECT_EQ(namesOf(ZLExporter::allExporters()),
        (QStringList { u"Auphonic"_s, u"Final Cut Pro X"_s, u"Hindenburg"_s, u"JSON"_s, u"Markdown"_s,
            u"Podlove Simple Chapters"_s, u"Titles as Tags"_s, u"YouTube"_s }));
}

TEST(ZLExporter, EncodesTheFivePredefinedEntitiesOnly)
{
    EXPECT_EQ(ZLExporter::xmlEncodeString(u"a&b<c>d\"e'f"_s), u"a&amp;b&lt;c&gt;d&quot;e&apos;f"_s);
    EXPECT_EQ(ZLExporter::xmlEncodeString(u"&amp;"_s), u"&amp;amp;"_s);
    EXPECT_EQ(ZLExporter::xmlEncodeString({}), QString());
    const QString others = u"ä世🎙\n\t\u00a0\u000b"_s + QChar(0) + QChar(0xD800);
    EXPECT_EQ(ZLExporter::xmlEncodeString(others), others);
}

TEST(ZLExporter, ProposesTheDocumentsNameWithTheFormatsExtension)
{
    EXPECT_EQ(ZLExporter::proposedFileName(u"Episode 12"_s, u"psc"_s), u"Episode 12.psc"_s);
    EXPECT_EQ(ZLExporter::proposedFileName(u"Episode 12.zelta"_s, u"psc"_s), u"Episode 12.psc"_s);
    EXPECT_EQ(ZLExporter::proposedFileName(u"a.b.c"_s, u"psc"_s), u"a.b.psc"_s);
}

TEST(ZLExporter, ProposesAUsableNameForEveryDocument)
{
    EXPECT_EQ(ZLExporter::proposedFileName({}, u"psc"_s), u"Untitled.psc"_s);
    EXPECT_EQ(ZLExporter::proposedFileName(u".hidden"_s, u"psc"_s), u".hidden.psc"_s);
    EXPECT_EQ(ZLExporter::proposedFileName(u"Talks 11/12.zelta"_s, u"psc"_s), u"Talks 11-12.psc"_s);
}

TEST(ZLExporter, TakesTheBaseNameOfAFile)
{
    EXPECT_EQ(ZLExporter::fileBaseName(u"/home/me.dir/Show 12.fcpxml"_s), u"Show 12"_s);
    EXPECT_EQ(ZLExporter::fileBaseName(u"a.b.fcpxml"_s), u"a.b"_s);
    EXPECT_EQ(ZLExporter::fileBaseName(u"/home/me/plain"_s), u"plain"_s);
    EXPECT_EQ(ZLExporter::fileBaseName(u"/home/me/.fcpxml"_s), u".fcpxml"_s);
    EXPECT_EQ(ZLExporter::fileBaseName({}), QString());
}

TEST(ZLExporter, EachFormatSaysWhatItsDialogNeeds)
{
    struct Row {
        ZLExportDialogKind dialogKind;
        QString fileType;
        QString optionTitle;
        ZLExportAfterwards afterwards;
    };
    using enum ZLExportDialogKind;
    using enum ZLExportAfterwards;
    const QList<Row> table {
        { Save, u"txt"_s, {}, Nothing },
        { Save, u"fcpxml"_s, u"Export all chapters as <marker> elements"_s, Nothing },
        { Open, u"nhsx"_s, {}, Nothing },
        { Save, u"json"_s, {}, Nothing },
        { Save, u"mdown"_s, u"Include timestamps in markdown"_s, Nothing },
        { Save, u"psc"_s, {}, Nothing },
        { Save, u"txt"_s, {}, Nothing },
        { Save, u"txt"_s, {}, OpenInTextEditor },
    };
    ZLRegisterExporters();
    const auto classes = ZLExporter::allExporters();
    ASSERT_EQ(classes.size(), table.size());
    for (qsizetype i = 0; i < table.size(); ++i) {
        const ZLExportFormat& format = classes.at(i).format();
        EXPECT_EQ(format.dialogKind, table.at(i).dialogKind) << qPrintable(format.name);
        EXPECT_EQ(format.fileType, table.at(i).fileType) << qPrintable(format.name);
        EXPECT_EQ(format.optionTitle, table.at(i).optionTitle) << qPrintable(format.name);
        EXPECT_EQ(format.afterwards, table.at(i).afterwards) << qPrintable(format.name);
    }
}
