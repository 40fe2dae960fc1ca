// Every format against files that are kept: one folder a case below tests/data/export/<format>/, with the document, the
// expected file and, for a format that rewrites a file, the file before.
#include "export/ZLExportCase.h"
#include "platform/ZLBoundedFile.h"

#include <QDir>
#include <QMap>

#include <gtest/gtest.h>

#include <ostream>

using namespace Qt::StringLiterals;

struct ZLGoldenCase {
    QString format;
    QString name;
    [[nodiscard]] QString path() const { return QStringLiteral(ZELTA_TEST_DATA "/export/") + format + u'/' + name; }
};

static void PrintTo(const ZLGoldenCase& goldenCase, std::ostream* stream)
{
    *stream << qPrintable(goldenCase.path());
}

namespace {

const QString goldenRoot = QStringLiteral(ZELTA_TEST_DATA "/export");

const QMap<QString, QString>& formatOfGoldenFolder()
{
    static const QMap<QString, QString> formats {
        { u"auphonic"_s, u"Auphonic"_s },
        { u"finalcut"_s, u"Final Cut Pro X"_s },
        { u"hindenburg"_s, u"Hindenburg"_s },
        { u"json"_s, u"JSON"_s },
        { u"markdown"_s, u"Markdown"_s },
        { u"podlove"_s, u"Podlove Simple Chapters"_s },
        { u"tags"_s, u"Titles as Tags"_s },
        { u"youtube"_s, u"YouTube"_s },
    };
    return formats;
}

QStringList foldersBelow(const QString& path)
{
    return QDir(path).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
}

std::vector<ZLGoldenCase> allGoldenCases()
{
    std::vector<ZLGoldenCase> cases;
    for (const QString& format : foldersBelow(goldenRoot)) {
        for (const QString& name : foldersBelow(goldenRoot + u'/' + format))
            cases.push_back({ format, name });
    }
    return cases;
}

QByteArray goldenFile(const QString& path)
{
    const auto bytes = ZLBoundedFile::read(path, ZLFileBound::Document);
    EXPECT_TRUE(bytes.isOk()) << qPrintable(bytes.error().message);
    return bytes ? bytes.value() : QByteArray();
}

}

class ZLExportGolden : public testing::TestWithParam<ZLGoldenCase> { };

TEST_P(ZLExportGolden, IsWrittenByteForByte)
{
    const ZLGoldenCase& goldenCase = GetParam();
    ASSERT_TRUE(formatOfGoldenFolder().contains(goldenCase.format)) << "a folder of no format";
    const auto exporterClass = ZLExportCase::exporterClass(formatOfGoldenFolder().value(goldenCase.format));
    const ZLExportFormat& format = exporterClass.format();
    ZLExportInput input = ZLExportCase::inputFromJson(goldenFile(goldenCase.path() + "/document.json"_L1));
    if (format.dialogKind == ZLExportDialogKind::Open)
        input.existingBytes = goldenFile(goldenCase.path() + "/session."_L1 + format.fileType);

    const auto bytes = exporterClass.create()->exportedBytes(input);

    ASSERT_TRUE(bytes.isOk()) << qPrintable(bytes.error().message);
    EXPECT_EQ(
        bytes.value().toStdString(), goldenFile(goldenCase.path() + "/expected."_L1 + format.fileType).toStdString());
}

INSTANTIATE_TEST_SUITE_P(All, ZLExportGolden, testing::ValuesIn(allGoldenCases()),
    [](const auto& description) { return (description.param.format + u'_' + description.param.name).toStdString(); });

TEST(ZLExportGoldenFolders, EveryFormatHasCases)
{
    EXPECT_EQ(foldersBelow(goldenRoot), formatOfGoldenFolder().keys());
    for (const QString& format : formatOfGoldenFolder().keys())
        EXPECT_GE(foldersBelow(goldenRoot + u'/' + format).size(), 3) << qPrintable(format);
}
