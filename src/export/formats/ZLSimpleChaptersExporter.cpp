#include "export/formats/ZLSimpleChaptersExporter.h"

#include "export/formats/ZLExportAdvice.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

const QString simpleChaptersNamespace = u"http://podlove.org/simple-chapters"_s;

// Pieces are joined rather than filled into a pattern: a title may hold anything, a pattern's place marks included.
void appendSimpleChapter(QString& text, const ZLChapter& chapter)
{
    text += "<psc:chapter start=\""_L1;
    text += ZLExporter::xmlEncodeString(chapter.timeString());
    text += "\" title=\""_L1;
    text += ZLExporter::xmlEncodeString(chapter.title());
    if (chapter.link().isEmpty()) {
        text += "\" />\n"_L1;
        return;
    }
    text += "\" href=\""_L1;
    text += ZLExporter::xmlEncodeString(chapter.link());
    text += "\"/>\n"_L1;
}

}

ZLExportFormat ZLSimpleChaptersExporter::format()
{
    return { .name = u"Podlove Simple Chapters"_s, .dialogKind = ZLExportDialogKind::Save, .fileType = u"psc"_s };
}

ZLResult<QByteArray> ZLSimpleChaptersExporter::exportedBytes(const ZLExportInput& input) const
{
    QString text = "<psc:chapters version=\"1.2\" xmlns:psc=\""_L1 + simpleChaptersNamespace + "\">\n"_L1;
    text += textOfEnabledChapters(input, appendSimpleChapter);
    text += "</psc:chapters>\n"_L1;
    return text.toUtf8();
}

namespace {

constexpr std::array simpleChaptersRules {
    ZLExportRule { ZLExportFindings::noEnabledChapter, ZLExportAdvice::noChapters },
    ZLExportRule { ZLExportFindings::beforeTheStart, ZLExportAdvice::beforeStart },
    ZLExportRule { ZLExportFindings::afterTheEnd, ZLExportAdvice::pastEnd },
    ZLExportRule { ZLExportFindings::inTheSameMillisecond, ZLExportAdvice::sameTime },
    ZLExportRule { ZLExportFindings::forbiddenInXml, ZLExportAdvice::notXml },
    ZLExportRule { ZLExportFindings::emptyTitles, ZLExportAdvice::noTitle },
    ZLExportRule { ZLExportFindings::controlCharactersThatXmlTakes, ZLExportAdvice::hidden },
    ZLExportRule { ZLExportFindings::brokenCharacters, ZLExportAdvice::unwritable },
};

}

QStringList ZLSimpleChaptersExporter::advice(const ZLExportInput& input) const
{
    return ZLExportAdvice::lines(simpleChaptersRules, input);
}
