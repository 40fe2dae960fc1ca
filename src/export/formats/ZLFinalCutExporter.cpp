#include "export/formats/ZLFinalCutExporter.h"

#include "export/formats/ZLSaturatedInteger.h"

#include <cmath>
#include <cstdint>

using namespace Qt::StringLiterals;

namespace {

QString finalCutTime(double milliseconds)
{
    return QString::number(ZLSaturatedInteger<std::int32_t>(milliseconds)) + "/1000s"_L1;
}

QString finalCutHeader(const ZLExportInput& input)
{
    const QString duration = finalCutTime(input.duration * 1000.0);
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<!DOCTYPE fcpxml>\n"
           "<fcpxml version=\"1.3\">\n"
           "<project name=\""_L1
        + input.fileBaseName
        + "\">\n"
          "<resources>\n"
          "<format id=\"f1\" name=\"FFVideoFormatRateUndefined\" width=\"1280\" height=\"1080\"/>\n"
          "</resources>\n"
          "<clip name=\""_L1
        + input.fileBaseName + "\" duration=\""_L1 + duration
        + "\" tcStart=\"0s\" format=\"f1\" tcFormat=\"NDF\">\n"
          "<gap duration=\""_L1
        + duration + "\"></gap>\n"_L1;
}

enum class FinalCutMarker { Plain, Chapter };

void appendFinalCutMarker(QString& text, const ZLChapter& chapter, FinalCutMarker kind)
{
    text += kind == FinalCutMarker::Chapter ? "<chapter-marker start=\""_L1 : "<marker start=\""_L1;
    text += finalCutTime(std::floor(chapter.timeStamp() * 1000.0));
    text += "\" duration=\"1s\" value=\""_L1;
    text += ZLExporter::xmlEncodeString(chapter.title());
    text += kind == FinalCutMarker::Chapter ? "\" posterOffset=\"12/25s\"/>\n"_L1 : "\"/>\n"_L1;
}

}

ZLExportFormat ZLFinalCutExporter::format()
{
    return { .name = u"Final Cut Pro X"_s,
        .dialogKind = ZLExportDialogKind::Save,
        .fileType = u"fcpxml"_s,
        .optionTitle =
            QStringLiteral(QT_TRANSLATE_NOOP("ZLExportFormat", "Export all chapters as <marker> elements")) };
}

ZLResult<QByteArray> ZLFinalCutExporter::exportedBytes(const ZLExportInput& input) const
{
    QString text = finalCutHeader(input);
    for (const ZLChapterPointer& chapter : input.chapters) {
        if (chapter->timeStamp() < 0.0)
            continue;
        const bool isChapterMarker = chapter->isEnabled() && input.option == ZLExportOption::Off;
        appendFinalCutMarker(text, *chapter, isChapterMarker ? FinalCutMarker::Chapter : FinalCutMarker::Plain);
    }
    text += "</clip>\n</project>\n</fcpxml>\n"_L1;
    return text.toUtf8();
}
