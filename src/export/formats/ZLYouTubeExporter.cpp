#include "export/formats/ZLYouTubeExporter.h"

#include "export/formats/ZLChapterText.h"
#include "model/ZLTimeText.h"

using namespace Qt::StringLiterals;

ZLExportFormat ZLYouTubeExporter::format()
{
    return { .name = u"YouTube"_s,
        .dialogKind = ZLExportDialogKind::Save,
        .fileType = u"txt"_s,
        .afterwards = ZLExportAfterwards::OpenInTextEditor };
}

ZLResult<QByteArray> ZLYouTubeExporter::exportedBytes(const ZLExportInput& input) const
{
    return textOfEnabledChapters(input, [](QString& text, const ZLChapter& chapter) {
        ZLChapterText::appendListLine(text, timeStringForChapter(chapter), chapter);
    }).toUtf8();
}

QString ZLYouTubeExporter::timeStringForChapter(const ZLChapter& chapter)
{
    constexpr std::uint64_t lastMillisecondOfFirstHour = 3599999;
    const std::uint64_t milliseconds = ZLChapterText::unsignedMilliseconds(chapter);
    if (milliseconds > lastMillisecondOfFirstHour)
        return ZLChapterText::hoursMinutesSeconds(milliseconds);
    const auto parts = ZLTimeParts::ofMilliseconds(milliseconds);
    return ZLTimeText::padded(parts.minutes, 2) + u':' + ZLTimeText::padded(parts.seconds, 2);
}
