// Thousands of documents made by chance, through all formats, and read by parsers that others wrote; see
// read_exports.py. The documents are the same in every run.
#include "export/ZLExportCase.h"
#include "export/formats/ZLRegisterExporters.h"
#include "platform/ZLAtomicFile.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <random>

using namespace Qt::StringLiterals;

namespace {

constexpr int propertyDocuments = 2500;
constexpr std::uint32_t propertySeed = 20261121;

class RandomDocuments {
public:
    [[nodiscard]] ZLExportInput next()
    {
        ZLExportInput input { .duration = below(3) == 0 ? 0.0 : below(4'000'000) / 7.0,
            .option = below(2) == 0 ? ZLExportOption::Off : ZLExportOption::On,
            .fileBaseName = u"Show 12"_s,
            .existingBytes = "<Session><Markers><Marker Id=\"41\" Name=\"old\"/></Markers></Session>" };
        // Half of the documents are tame, so that the parsers get to see their inside.
        const bool isTame = below(2) == 0;
        for (int left = below(8); left > 0; --left)
            input.chapters.append(
                ZLExportCase::chapter(time(), text(isTame), below(2) == 0 ? text(isTame) : QString(), below(4) != 0));
        return input;
    }

private:
    int below(int limit) { return int(m_random() % std::uint32_t(limit)); }

    double time()
    {
        switch (below(6)) {
        case 0:
            return below(5);
        case 1:
            return -(below(10'000'000) / 999.0);
        case 2:
            return m_lastTime;
        case 3:
            return below(2'000'000'000) / 1000.0;
        default:
            return m_lastTime = below(10'000'000) / 1013.0;
        }
    }

    QString text(bool isTame)
    {
        static const QStringList tamePieces { u"News"_s, u"Grüße"_s, u"世界"_s, u"2026"_s, u"Интервью"_s };
        static const QStringList oddPieces { u"&"_s, u"<"_s, u">"_s, u"\""_s, u"'"_s, u"&amp;"_s, u"]]>"_s, u"-->"_s,
            u"%1"_s, u"%@"_s, u"\n"_s, u"\r\n"_s, u"\t"_s, u" "_s, u"\\"_s, u","_s, u"["_s, u"]("_s, u"*"_s, u"_"_s,
            u"`"_s, u"🎙"_s, u"👩‍👩‍👧"_s, u"مرحبا"_s, u"e\u0301"_s, u"\u2028"_s, u"\u00a0"_s, u"\ufeff"_s,
            u"</Markers>"_s, u"</Session>"_s, u"<Markers/>"_s, u"Id=\"99\" "_s, QString(QChar(0)), QString(QChar(0x0b)),
            QString(QChar(0xFFFE)), u"abc"_s, u"Title"_s };
        if (below(12) == 0)
            return below(2) == 0 ? QString() : u""_s;
        QStringList pieces;
        for (int left = 1 + below(5); left > 0; --left)
            pieces +=
                isTame ? tamePieces.at(below(int(tamePieces.size()))) : oddPieces.at(below(int(oddPieces.size())));
        return pieces.join(isTame && below(2) == 0 ? u" "_s : u""_s);
    }

    std::mt19937 m_random { propertySeed };
    double m_lastTime = 0.0;
};

QJsonObject describedDocument(const ZLExportInput& input)
{
    QJsonArray chapters;
    for (const ZLChapterPointer& chapter : input.chapters)
        chapters.append(QJsonObject { { u"time"_s, chapter->timeStamp() }, { u"enabled"_s, chapter->isEnabled() },
            { u"title"_s, chapter->title() + u""_s }, { u"link"_s, chapter->link() + u""_s } });
    QJsonObject outputs;
    for (const ZLExporterClass& exporterClass : ZLExporter::allExporters()) {
        const auto bytes = exporterClass.create()->exportedBytes(input);
        EXPECT_TRUE(bytes.isOk()) << qPrintable(bytes.error().message);
        if (bytes)
            outputs.insert(exporterClass.format().name, QString::fromLatin1(bytes.value().toBase64()));
    }
    return { { u"chapters"_s, chapters }, { u"duration"_s, input.duration }, { u"name"_s, input.fileBaseName },
        { u"option"_s, input.option == ZLExportOption::On }, { u"outputs"_s, outputs } };
}

}

TEST(ZLExportProperties, ReadersOfOthersFindWhatWentIn)
{
    ZLRegisterExporters();
    RandomDocuments documents;
    QByteArray batch;
    for (int i = 0; i < propertyDocuments; ++i)
        batch += QJsonDocument(describedDocument(documents.next())).toJson(QJsonDocument::Compact) + '\n';
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"batch"_s);
    ASSERT_TRUE(ZLAtomicFile::write(path, batch).isOk());

    QProcess reader;
    reader.start(QStringLiteral(ZELTA_PYTHON), { QStringLiteral(ZELTA_EXPORT_READER), path });
    ASSERT_TRUE(reader.waitForFinished(120'000));

    ASSERT_EQ(reader.exitCode(), 0) << reader.readAllStandardError().constData();
    const QJsonObject counts = QJsonDocument::fromJson(reader.readAllStandardOutput()).object();
    EXPECT_EQ(counts.value("documents"_L1).toInt(), propertyDocuments);
    EXPECT_EQ(counts.value("json read"_L1).toInt(), propertyDocuments);
    EXPECT_EQ(counts.value("lists read"_L1).toInt(), 2 * propertyDocuments);
    for (const QString& what : { u"xml read"_s, u"xml refused"_s, u"tags read"_s, u"markdown read"_s })
        EXPECT_GT(counts.value(what).toInt(), propertyDocuments / 10) << qPrintable(what);
}
