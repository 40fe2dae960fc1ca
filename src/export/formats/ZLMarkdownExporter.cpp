#include "export/formats/ZLMarkdownExporter.h"

#include "export/formats/ZLChapterText.h"
#include "export/formats/ZLExportAdvice.h"
#include "export/formats/ZLNumberedChapters.h"

#include <array>

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

namespace {

ZLExportFinding beforeTheStartIfTimed(const ZLExportInput& input)
{
    return input.option == ZLExportOption::On ? ZLExportFindings::beforeTheStart(input) : std::nullopt;
}

ZLExportFinding inTheSameSecondIfTimed(const ZLExportInput& input)
{
    return input.option == ZLExportOption::On ? ZLExportFindings::inTheSameSecond(input) : std::nullopt;
}

ZLExportFinding markdownInTitles(const ZLExportInput& input)
{
    return ZLNumberedChapters::that(
        input, [](const ZLChapter& chapter) { return ZLExportFindings::holdsAnyOf(chapter.title(), "*_`[]<\\"_L1); });
}

ZLExportFinding brokenMarkdownLinks(const ZLExportInput& input)
{
    return ZLNumberedChapters::that(input, [](const ZLChapter& chapter) {
        return ZLExportFindings::holdsAnyOf(chapter.link(), " \t<>"_L1)
            || chapter.link().count(u'(') != chapter.link().count(u')');
    });
}

constexpr std::array markdownRules {
    ZLExportRule { ZLExportFindings::noEnabledChapter, ZLExportAdvice::emptyFile },
    ZLExportRule { beforeTheStartIfTimed, ZLExportAdvice::signDropped },
    ZLExportRule { inTheSameSecondIfTimed,
        QT_TRANSLATE_NOOP("ZLExportAdvice", "Times are whole seconds: %1 fall into the same second.") },
    ZLExportRule { markdownInTitles,
        QT_TRANSLATE_NOOP(
            "ZLExportAdvice", "Markdown reads * _ ` [ ] < and \\ as formatting: there is one in the title of %1.") },
    ZLExportRule { brokenMarkdownLinks,
        QT_TRANSLATE_NOOP(
            "ZLExportAdvice", "Markdown links break at blanks, < or > and unpaired parentheses: see the link of %1.") },
    ZLExportRule { ZLExportFindings::lineBreaks, ZLExportAdvice::oneLine },
    ZLExportRule { ZLExportFindings::controlCharacters, ZLExportAdvice::hidden },
    ZLExportRule { ZLExportFindings::brokenCharacters, ZLExportAdvice::unwritable },
};

}

QStringList ZLMarkdownExporter::advice(const ZLExportInput& input) const
{
    return ZLExportAdvice::lines(markdownRules, input);
}
