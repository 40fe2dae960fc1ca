#include "export/ZLSimpleChaptersExporter.h"

#include "platform/ZLAtomicFile.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QString goldenFolder = QStringLiteral(ZELTA_TEST_DATA "/export/podlove");

ZLChapterPointer simpleChapter(double seconds, const QString& title, const QString& link = {})
{
    auto chapter = std::make_shared<ZLChapter>();
    chapter->setTimeStamp(seconds);
    chapter->setTitle(title);
    chapter->setLink(link);
    return chapter;
}

QString textOf(const QJsonValue& value)
{
    return value.isNull() ? QString() : value.toString();
}

ZLExportInput inputFromJson(const QByteArray& json)
{
    const QJsonObject document = QJsonDocument::fromJson(json).object();
    ZLExportInput input { .duration = document.value("duration"_L1).toDouble() };
    for (const QJsonValue& entry : document.value("chapters"_L1).toArray()) {
        const auto chapter =
            simpleChapter(entry["timeStamp"_L1].toDouble(), textOf(entry["title"_L1]), textOf(entry["link"_L1]));
        chapter->setEnabled(entry["enabled"_L1].toBool());
        input.chapters.append(chapter);
    }
    return input;
}

QByteArray exportedChapters(const ZLChapterSequence& chapters)
{
    const auto bytes = ZLSimpleChaptersExporter().exportedBytes({ .chapters = chapters });
    EXPECT_TRUE(bytes.isOk());
    return bytes.value();
}

/// The attributes of all chapters, as an XML parser that knows nothing of this program sees them.
QJsonArray readByOthers(const QByteArray& bytes)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"chapters.psc"_s);
    EXPECT_TRUE(ZLAtomicFile::write(path, bytes).isOk());
    QProcess reader;
    reader.start(QStringLiteral(ZELTA_PYTHON), { QStringLiteral(ZELTA_XML_READER), path });
    EXPECT_TRUE(reader.waitForFinished());
    EXPECT_EQ(reader.exitCode(), 0) << reader.readAllStandardError().constData();
    return QJsonDocument::fromJson(reader.readAllStandardOutput()).array();
}

}

class PodloveGolden : public testing::TestWithParam<const char*> { };

TEST_P(PodloveGolden, IsWrittenByteForByte)
{
    const QString folder = goldenFolder + u'/' + QString::fromLatin1(GetParam());
    const auto document = ZLAtomicFile::read(folder + "/document.json"_L1);
    const auto expected = ZLAtomicFile::read(folder + "/expected.psc"_L1);
    ASSERT_TRUE(document.isOk() && expected.isOk()) << qPrintable(folder);
    const ZLExportInput input = inputFromJson(document.value());
    ASSERT_EQ(input.chapters.isEmpty(), QLatin1StringView(GetParam()) == "no_chapters"_L1);

    const auto bytes = ZLSimpleChaptersExporter().exportedBytes(input);

    ASSERT_TRUE(bytes.isOk());
    EXPECT_EQ(bytes.value().toStdString(), expected.value().toStdString());
}

INSTANTIATE_TEST_SUITE_P(ZLSimpleChaptersExporter, PodloveGolden,
    testing::Values("absent_texts", "ampersand_without_link", "control_characters_pass", "disabled_between_enabled",
        "link_of_escaped_characters", "negative_time", "no_chapters", "none_enabled", "other_scripts",
        "place_marks_and_entities", "times_are_truncated"),
    [](const auto& description) { return std::string(description.param); });

TEST(ZLSimpleChaptersExporter, HasATestForEveryGoldenFolder)
{
    EXPECT_EQ(QDir(goldenFolder).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), 11);
}

TEST(ZLSimpleChaptersExporter, DescribesItself)
{
    const ZLExportFormat format = ZLSimpleChaptersExporter::format();
    EXPECT_EQ(format.name, u"Podlove Simple Chapters"_s);
    EXPECT_EQ(format.dialogKind, ZLExportDialogKind::Save);
    EXPECT_EQ(format.fileType, u"psc"_s);
    EXPECT_FALSE(format.hasOption());
}

TEST(ZLSimpleChaptersExporter, IsReadBackByAnotherXmlParser)
{
    const QString hostileTitle = u"<b>\"It's\" & ]]> --> <!-- %1 Grüße 世界 🎙"_s;
    const QString hostileLink = u"https://example.org/?a='1'&b=\"2\"<>"_s;

    const QJsonArray entries = readByOthers(exportedChapters({ simpleChapter(-0.25, u"Before"_s),
        simpleChapter(3725.5, hostileTitle, hostileLink), simpleChapter(4000, {}) }));

    const QJsonArray expected {
        QJsonObject { { u"start"_s, u"-00:00:00.250"_s }, { u"title"_s, u"Before"_s } },
        QJsonObject { { u"start"_s, u"01:02:05.500"_s }, { u"title"_s, hostileTitle }, { u"href"_s, hostileLink } },
        QJsonObject { { u"start"_s, u"01:06:40.000"_s }, { u"title"_s, QString(u""_s) } },
    };
    EXPECT_EQ(entries, expected);
}

TEST(ZLSimpleChaptersExporter, IsWellFormedWithoutChapters)
{
    EXPECT_EQ(readByOthers(exportedChapters({})), QJsonArray());
}

TEST(ZLSimpleChaptersExporter, SurvivesTextsThatHaveNoUtf8Form)
{
    const QString loneSurrogates = QString(QChar(0xD800)) + u'x' + QChar(0xDFFF);

    const QByteArray bytes = exportedChapters({ simpleChapter(1, loneSurrogates, loneSurrogates) });

    EXPECT_TRUE(QString::fromUtf8(bytes).endsWith(u"/>\n</psc:chapters>\n"_s));
    EXPECT_EQ(bytes.count('\n'), 3);
}

TEST(ZLSimpleChaptersExporter, HasNoLimitOnChaptersAndTitles)
{
    ZLChapterSequence chapters;
    for (int index = 0; index < 2000; ++index)
        chapters.append(simpleChapter(index, QString(1000, u'&')));

    const QByteArray bytes = exportedChapters(chapters);

    EXPECT_EQ(bytes.count("<psc:chapter start="), 2000);
    EXPECT_EQ(bytes.count("&amp;"), 2000 * 1000);
}
