#include "export/formats/ZLTagsExporter.h"

#include "export/formats/ZLExportAdvice.h"
#include "export/formats/ZLNumberedChapters.h"

#include <array>

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

namespace {

ZLExportFinding commasInTitles(const ZLExportInput& input)
{
    return ZLNumberedChapters::that(input, [](const ZLChapter& chapter) { return chapter.title().contains(u','); });
}

ZLExportFinding lineBreaksInTitles(const ZLExportInput& input)
{
    return ZLNumberedChapters::that(
        input, [](const ZLChapter& chapter) { return ZLExportFindings::holdsLineBreak(chapter.title()); });
}

constexpr std::array tagsRules {
    ZLExportRule { ZLExportFindings::noEnabledChapter, ZLExportAdvice::emptyFile },
    ZLExportRule { ZLExportFindings::emptyTitles,
        QT_TRANSLATE_NOOP("ZLExportAdvice", "A tag needs a text: there is no title in %1.") },
    ZLExportRule { commasInTitles,
        QT_TRANSLATE_NOOP("ZLExportAdvice", "A comma makes two tags of one title: there is one in %1.") },
    ZLExportRule { lineBreaksInTitles,
        QT_TRANSLATE_NOOP("ZLExportAdvice", "All tags stand on one line: there is a line break in %1.") },
    ZLExportRule { ZLExportFindings::controlCharactersInTitles, ZLExportAdvice::hidden },
    ZLExportRule { ZLExportFindings::brokenCharactersInTitles, ZLExportAdvice::unwritable },
};

}

QStringList ZLTagsExporter::advice(const ZLExportInput& input) const
{
    return ZLExportAdvice::lines(tagsRules, input);
}
