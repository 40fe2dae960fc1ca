#include "export/formats/ZLAuphonicExporter.h"

#include "export/formats/ZLChapterText.h"
#include "export/formats/ZLExportAdvice.h"

#include <array>

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

namespace {

constexpr std::array auphonicRules {
    ZLExportRule { ZLExportFindings::noEnabledChapter, ZLExportAdvice::emptyFile },
    ZLExportRule { ZLExportFindings::beforeTheStart, ZLExportAdvice::beforeStart },
    ZLExportRule { ZLExportFindings::afterTheEnd, ZLExportAdvice::pastEnd },
    ZLExportRule { ZLExportFindings::inTheSameMillisecond, ZLExportAdvice::sameTime },
    ZLExportRule { ZLExportFindings::angleBracketsInTitles,
        QT_TRANSLATE_NOOP(
            "ZLExportAdvice", "Chapter readers misread < and > as a link: there is one in the title of %1.") },
    ZLExportRule { ZLExportFindings::lineBreaks, ZLExportAdvice::oneLine },
    ZLExportRule { ZLExportFindings::emptyTitles, ZLExportAdvice::noTitle },
    ZLExportRule { ZLExportFindings::controlCharacters, ZLExportAdvice::hidden },
    ZLExportRule { ZLExportFindings::brokenCharacters, ZLExportAdvice::unwritable },
};

}

QStringList ZLAuphonicExporter::advice(const ZLExportInput& input) const
{
    return ZLExportAdvice::lines(auphonicRules, input);
}
