#include "export/ZLSimpleChaptersExporter.h"

using namespace Qt::StringLiterals;

namespace {

const QString simpleChaptersNamespace = u"http://podlove.org/simple-chapters"_s;

// Pieces are joined rather than filled into a pattern: a title may hold anything, a pattern's place marks included.
QString simpleChapterLine(const ZLChapter& chapter)
{
    const QString start = ZLExporter::xmlEncodeString(chapter.timeString());
    const QString title = ZLExporter::xmlEncodeString(chapter.title());
    const QString opening = "<psc:chapter start=\""_L1 + start + "\" title=\""_L1 + title + u'"';
    if (chapter.link().isEmpty())
        return opening + " />\n"_L1;
    return opening + " href=\""_L1 + ZLExporter::xmlEncodeString(chapter.link()) + "\"/>\n"_L1;
}

}

ZLExportFormat ZLSimpleChaptersExporter::format()
{
    return { .name = u"Podlove Simple Chapters"_s, .dialogKind = ZLExportDialogKind::Save, .fileType = u"psc"_s };
}

ZLResult<QByteArray> ZLSimpleChaptersExporter::exportedBytes(const ZLExportInput& input) const
{
    QString text = "<psc:chapters version=\"1.2\" xmlns:psc=\""_L1 + simpleChaptersNamespace + "\">\n"_L1;
    for (const ZLChapterPointer& chapter : input.chapters) {
        if (chapter->isEnabled())
            text += simpleChapterLine(*chapter);
    }
    text += "</psc:chapters>\n"_L1;
    return text.toUtf8();
}
