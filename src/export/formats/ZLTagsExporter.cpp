#include "export/formats/ZLTagsExporter.h"

using namespace Qt::StringLiterals;

ZLExportFormat ZLTagsExporter::format()
{
    return { .name = QStringLiteral(QT_TRANSLATE_NOOP("ZLExportFormat", "Titles as Tags")),
        .dialogKind = ZLExportDialogKind::Save,
        .fileType = u"txt"_s };
}

ZLResult<QByteArray> ZLTagsExporter::exportedBytes(const ZLExportInput& input) const
{
    return textOfEnabledChapters(input, [](QString& text, const ZLChapter& chapter) {
        text += chapter.title();
        text += ", "_L1;
    }).toUtf8();
}
