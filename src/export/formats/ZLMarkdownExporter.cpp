#include "export/formats/ZLMarkdownExporter.h"

#include "export/formats/ZLChapterText.h"

using namespace Qt::StringLiterals;

namespace {

void appendMarkdownEntry(QString& text, const ZLChapter& chapter)
{
    if (chapter.link().isEmpty()) {
        text += chapter.title();
        return;
    }
    text += u'[';
    text += chapter.title();
    text += "]("_L1;
    text += chapter.link();
    text += u')';
}

}

ZLExportFormat ZLMarkdownExporter::format()
{
    return { .name = u"Markdown"_s,
        .dialogKind = ZLExportDialogKind::Save,
        .fileType = u"mdown"_s,
        .optionTitle = QStringLiteral(QT_TRANSLATE_NOOP("ZLExportFormat", "Include timestamps in markdown")) };
}

ZLResult<QByteArray> ZLMarkdownExporter::exportedBytes(const ZLExportInput& input) const
{
    const bool hasTimes = input.option == ZLExportOption::On;
    return textOfEnabledChapters(input, [hasTimes](QString& text, const ZLChapter& chapter) {
        text += "*   "_L1;
        if (hasTimes) {
            text += timeStringForChapter(chapter);
            text += u" – "_s;
        }
        appendMarkdownEntry(text, chapter);
        text += u'\n';
    }).toUtf8();
}

QString ZLMarkdownExporter::timeStringForChapter(const ZLChapter& chapter)
{
    return ZLChapterText::hoursMinutesSeconds(ZLChapterText::unsignedMilliseconds(chapter));
}
