#include "export/formats/ZLSimpleChaptersExporter.h"

#include "platform/ZLAtomicFile.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

ZLChapterPointer simpleChapter(double seconds, const QString& title, const QString& link = {})
{
    auto chapter = std::make_shared<ZLChapter>();
    chapter->setTimeStamp(seconds);
    chapter->setTitle(title);
    chapter->setLink(link);
    return chapter;
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
