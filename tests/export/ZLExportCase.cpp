#include "export/ZLExportCase.h"

#include "export/formats/ZLRegisterExporters.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString textOrAbsent(const QJsonValue& value)
{
    return value.isNull() ? QString() : value.toString();
}

}

ZLExportInput ZLExportCase::inputFromJson(const QByteArray& json)
{
    const QJsonObject document = QJsonDocument::fromJson(json).object();
    EXPECT_TRUE(document.contains("chapters"_L1)) << json.constData();
    ZLExportInput input { .duration = document.value("duration"_L1).toDouble(),
        .option = document.value("option"_L1).toBool() ? ZLExportOption::On : ZLExportOption::Off,
        .fileBaseName = document.value("fileBaseName"_L1).toString() };
    const QJsonArray entries = document.value("chapters"_L1).toArray();
    for (const auto& entry : entries)
        input.chapters.append(chapter(entry[u"timeStamp"].toDouble(), textOrAbsent(entry[u"title"]),
            textOrAbsent(entry[u"link"]), entry[u"enabled"].toBool()));
    return input;
}

ZLExporterClass ZLExportCase::exporterClass(const QString& name)
{
    ZLRegisterExporters();
    const auto classes = ZLExporter::allExporters();
    for (const ZLExporterClass& candidate : classes) {
        if (candidate.format().name == name)
            return candidate;
    }
    ADD_FAILURE() << "no format " << qPrintable(name);
    return ZLExporterClass::of<ZLExporter>();
}

ZLChapterPointer ZLExportCase::chapter(double seconds, const QString& title, const QString& link, bool isEnabled)
{
    auto made = std::make_shared<ZLChapter>();
    made->setTimeStamp(seconds);
    made->setTitle(title);
    made->setLink(link);
    made->setEnabled(isEnabled);
    return made;
}

QByteArray ZLExportCase::exported(const QString& formatName, const ZLExportInput& input)
{
    const auto bytes = exporterClass(formatName).create()->exportedBytes(input);
    EXPECT_TRUE(bytes.isOk()) << qPrintable(bytes.error().message);
    return bytes ? bytes.value() : QByteArray();
}
