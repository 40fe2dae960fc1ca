#include "export/formats/ZLYouTubeExporter.h"

#include "export/formats/ZLChapterText.h"
#include "export/formats/ZLExportAdvice.h"
#include "export/formats/ZLNumberedChapters.h"
#include "model/ZLTimeText.h"

#include <array>

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

namespace {

struct YouTubeTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLExportFindings)
};

/// The enabled chapters that take from 1 to 9 seconds, as written; the last ends with the recording.
QStringList shortChapters(const ZLExportInput& input, const QList<ZLExportFindings::NumberedChapter>& enabled)
{
    constexpr std::uint64_t leastSeconds = 10;
    QList<qsizetype> numbers;
    std::uint64_t lastLength = 0;
    for (qsizetype i = 0; i < enabled.size(); ++i) {
        const bool isLast = i + 1 == enabled.size();
        if (isLast && !ZLExportFindings::isEndKnown(input))
            break;
        const std::uint64_t begin = enabled.at(i).seconds();
        const std::uint64_t end = isLast ? ZLTimeText::truncated(input.duration) : enabled.at(i + 1).seconds();
        if (end <= begin || end - begin >= leastSeconds)
            continue;
        numbers.append(enabled.at(i).number);
        lastLength = end - begin;
    }
    if (numbers.isEmpty())
        return {};
    if (numbers.size() == 1)
        return {
            YouTubeTexts::tr("chapter %1 is only %2 s long (10 s minimum)").arg(numbers.constFirst()).arg(lastLength)
        };
    return { YouTubeTexts::tr("%1 are shorter than 10 s").arg(ZLNumberedChapters::text(numbers)) };
}

/// A first chapter at 00:00, three chapters, ten seconds each, all by the seconds that are written.
ZLExportFinding unfitForYouTube(const ZLExportInput& input)
{
    constexpr qsizetype leastChapters = 3;
    const auto enabled = ZLExportFindings::enabledChapters(input);
    if (enabled.isEmpty())
        return std::nullopt;
    QStringList findings;
    if (enabled.constFirst().seconds() != 0)
        findings += YouTubeTexts::tr("the first is at %1 (00:00 needed)")
                        .arg(ZLYouTubeExporter::timeStringForChapter(*enabled.constFirst().chapter));
    if (enabled.size() < leastChapters)
        findings += enabled.size() == 1 ? YouTubeTexts::tr("there is only 1 (3 minimum)")
                                        : YouTubeTexts::tr("there are only %1 (3 minimum)").arg(enabled.size());
    findings += shortChapters(input, enabled);
    return findings.isEmpty() ? std::nullopt : ZLExportFinding(findings.join("; "_L1));
}

ZLExportFinding tooLongForYouTube(const ZLExportInput& input)
{
    constexpr qsizetype mostBytes = 5000;
    const auto bytes = ZLYouTubeExporter().exportedBytes(input);
    if (!bytes || bytes.value().size() <= mostBytes)
        return std::nullopt;
    return QString::number(bytes.value().size());
}

// https://support.google.com/youtube/answer/9884579 and the "description" of
// https://developers.google.com/youtube/v3/docs/videos
constexpr std::array youTubeRules {
    ZLExportRule { ZLExportFindings::noEnabledChapter, ZLExportAdvice::emptyFile },
    ZLExportRule { unfitForYouTube, QT_TRANSLATE_NOOP("ZLExportAdvice", "YouTube will ignore these chapters: %1.") },
    ZLExportRule { ZLExportFindings::inTheSameSecond,
        QT_TRANSLATE_NOOP(
            "ZLExportAdvice", "YouTube needs rising times in whole seconds: %1 fall into the same second.") },
    ZLExportRule { ZLExportFindings::beforeTheStart, ZLExportAdvice::signDropped },
    ZLExportRule { ZLExportFindings::afterTheEnd, ZLExportAdvice::pastEnd },
    ZLExportRule { ZLExportFindings::angleBracketsInTitles,
        QT_TRANSLATE_NOOP(
            "ZLExportAdvice", "YouTube takes no < or > in a description: there is one in the title of %1.") },
    ZLExportRule { ZLExportFindings::links,
        QT_TRANSLATE_NOOP(
            "ZLExportAdvice", "YouTube takes no < or > in a description: remove them around the link of %1.") },
    ZLExportRule { ZLExportFindings::emptyTitles, ZLExportAdvice::noTitle },
    ZLExportRule { ZLExportFindings::lineBreaks, ZLExportAdvice::oneLine },
    ZLExportRule { ZLExportFindings::controlCharacters, ZLExportAdvice::hidden },
    ZLExportRule { ZLExportFindings::brokenCharacters, ZLExportAdvice::unwritable },
    ZLExportRule { tooLongForYouTube,
        QT_TRANSLATE_NOOP("ZLExportAdvice", "A YouTube description holds 5000 bytes at most: this list has %1.") },
};

}

QStringList ZLYouTubeExporter::advice(const ZLExportInput& input) const
{
    return ZLExportAdvice::lines(youTubeRules, input);
}
