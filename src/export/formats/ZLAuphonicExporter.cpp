#include "export/formats/ZLAuphonicExporter.h"

#include "export/formats/ZLChapterText.h"

using namespace Qt::StringLiterals;

ZLExportFormat ZLAuphonicExporter::format()
{
    return { .name = u"Auphonic"_s, .dialogKind = ZLExportDialogKind::Save, .fileType = u"txt"_s };
}

ZLResult<QByteArray> ZLAuphonicExporter::exportedBytes(const ZLExportInput& input) const
{
    return textOfEnabledChapters(input, [](QString& text, const ZLChapter& chapter) {
        ZLChapterText::appendListLine(text, chapter.timeString(), chapter);
    }).toUtf8();
}
