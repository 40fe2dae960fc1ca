#include "export/formats/ZLFinalCutExporter.h"

#include "export/formats/ZLExportAdvice.h"
#include "export/formats/ZLNumberedChapters.h"
#include "export/formats/ZLSaturatedInteger.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

QString finalCutTime(double milliseconds)
{
    return QString::number(ZLSaturatedInteger<std::int32_t>(milliseconds)) + "/1000s"_L1;
}

QString finalCutHeader(const ZLExportInput& input)
{
    const QString duration = finalCutTime(input.duration * 1000.0);
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<!DOCTYPE fcpxml>\n"
           "<fcpxml version=\"1.3\">\n"
           "<project name=\""_L1
        + input.fileBaseName
        + "\">\n"
          "<resources>\n"
          "<format id=\"f1\" name=\"FFVideoFormatRateUndefined\" width=\"1280\" height=\"1080\"/>\n"
          "</resources>\n"
          "<clip name=\""_L1
        + input.fileBaseName + "\" duration=\""_L1 + duration
        + "\" tcStart=\"0s\" format=\"f1\" tcFormat=\"NDF\">\n"
          "<gap duration=\""_L1
        + duration + "\"></gap>\n"_L1;
}

enum class FinalCutMarker { Plain, Chapter };

void appendFinalCutMarker(QString& text, const ZLChapter& chapter, FinalCutMarker kind)
{
    text += kind == FinalCutMarker::Chapter ? "<chapter-marker start=\""_L1 : "<marker start=\""_L1;
    text += finalCutTime(std::floor(chapter.timeStamp() * 1000.0));
    text += "\" duration=\"1s\" value=\""_L1;
    text += ZLExporter::xmlEncodeString(chapter.title());
    text += kind == FinalCutMarker::Chapter ? "\" posterOffset=\"12/25s\"/>\n"_L1 : "\"/>\n"_L1;
}

}

ZLExportFormat ZLFinalCutExporter::format()
{
    return { .name = u"Final Cut Pro X"_s,
        .dialogKind = ZLExportDialogKind::Save,
        .fileType = u"fcpxml"_s,
        .optionTitle =
            QStringLiteral(QT_TRANSLATE_NOOP("ZLExportFormat", "Export all chapters as <marker> elements")) };
}

ZLResult<QByteArray> ZLFinalCutExporter::exportedBytes(const ZLExportInput& input) const
{
    QString text = finalCutHeader(input);
    for (const ZLChapterPointer& chapter : input.chapters) {
        if (chapter->timeStamp() < 0.0)
            continue;
        const bool isChapterMarker = chapter->isEnabled() && input.option == ZLExportOption::Off;
        appendFinalCutMarker(text, *chapter, isChapterMarker ? FinalCutMarker::Chapter : FinalCutMarker::Plain);
    }
    text += "</clip>\n</project>\n</fcpxml>\n"_L1;
    return text.toUtf8();
}

namespace {

/// Neither enabled nor disabled.
ZLExportFinding noChapterFromTheStartOn(const ZLExportInput& input)
{
    const auto isWritten = [](const ZLChapterPointer& chapter) { return !(chapter->timeStamp() < 0.0); };
    return std::ranges::any_of(input.chapters, isWritten) ? std::nullopt
                                                          : ZLExportFinding(ZLExportFindings::somethingFound);
}

ZLExportFinding anyBeforeTheStart(const ZLExportInput& input)
{
    return ZLNumberedChapters::that(
        input, [](const ZLChapter& chapter) { return chapter.timeStamp() < 0.0; }, ZLNumberedChapters::Which::All);
}

ZLExportFinding recordingGoesOn(const ZLExportInput& input)
{
    return input.isRecording ? ZLExportFinding(ZLExportFindings::somethingFound) : std::nullopt;
}

/// The end is that of the finished spans, be it 0.
ZLExportFinding anyAfterTheFinishedSpans(const ZLExportInput& input)
{
    return ZLNumberedChapters::that(
        input, [&](const ZLChapter& chapter) { return chapter.timeStamp() > input.duration; },
        ZLNumberedChapters::Which::All);
}

ZLExportFinding beyond32Bits(const ZLExportInput& input)
{
    constexpr double lastMillisecond = std::numeric_limits<std::int32_t>::max();
    return ZLNumberedChapters::that(
        input, [](const ZLChapter& chapter) { return chapter.timeStamp() * 1000.0 > lastMillisecond; },
        ZLNumberedChapters::Which::All);
}

ZLExportFinding anyTitleForbiddenInXml(const ZLExportInput& input)
{
    return ZLNumberedChapters::that(
        input, [](const ZLChapter& chapter) { return ZLExportFindings::holdsForbiddenInXml(chapter.title()); },
        ZLNumberedChapters::Which::All);
}

ZLExportFinding anyTitleWithControlCharactersThatXmlTakes(const ZLExportInput& input)
{
    return ZLNumberedChapters::that(
        input,
        [](const ZLChapter& chapter) { return ZLExportFindings::holdsControlCharacterThatXmlTakes(chapter.title()); },
        ZLNumberedChapters::Which::All);
}

ZLExportFinding anyTitleWithBrokenCharacters(const ZLExportInput& input)
{
    return ZLNumberedChapters::that(
        input, [](const ZLChapter& chapter) { return !chapter.title().isValidUtf16(); },
        ZLNumberedChapters::Which::All);
}

ZLExportFinding markupInFileName(const ZLExportInput& input)
{
    const bool isUnfit = ZLExportFindings::holdsAnyOf(input.fileBaseName, "&<\""_L1)
        || ZLExportFindings::holdsForbiddenInXml(input.fileBaseName);
    return isUnfit ? ZLExportFinding(ZLExportFindings::somethingFound) : std::nullopt;
}

constexpr std::array finalCutRules {
    ZLExportRule { noChapterFromTheStartOn,
        QT_TRANSLATE_NOOP("ZLExportAdvice", "No chapters at 00:00 or later: the project will have no markers.") },
    ZLExportRule {
        anyBeforeTheStart, QT_TRANSLATE_NOOP("ZLExportAdvice", "Markers with a negative time are left out: see %1.") },
    ZLExportRule { recordingGoesOn,
        QT_TRANSLATE_NOOP(
            "ZLExportAdvice", "The recording is still running: the clip will end where it was last paused.") },
    ZLExportRule {
        anyAfterTheFinishedSpans, QT_TRANSLATE_NOOP("ZLExportAdvice", "The clip ends with the recording, before %1.") },
    ZLExportRule { beyond32Bits, QT_TRANSLATE_NOOP("ZLExportAdvice", "Marker times end after 596 hours, before %1.") },
    ZLExportRule { anyTitleForbiddenInXml, ZLExportAdvice::notXml },
    ZLExportRule { anyTitleWithControlCharactersThatXmlTakes, ZLExportAdvice::hidden },
    ZLExportRule { anyTitleWithBrokenCharacters, ZLExportAdvice::unwritable },
    ZLExportRule { markupInFileName,
        QT_TRANSLATE_NOOP("ZLExportAdvice",
            "The project gets the name of the file as it is: with &, < or \" in it, Final Cut Pro will "
            "not open the file.") },
};

}

QStringList ZLFinalCutExporter::advice(const ZLExportInput& input) const
{
    return ZLExportAdvice::lines(finalCutRules, input);
}
