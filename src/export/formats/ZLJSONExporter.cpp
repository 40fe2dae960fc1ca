#include "export/formats/ZLJSONExporter.h"

#include "export/formats/ZLExportAdvice.h"
#include "export/formats/ZLSaturatedInteger.h"

#include <array>
#include <charconv>
#include <cstdint>

using namespace Qt::StringLiterals;

namespace {

/// The shortest text that reads back as the same single-precision value.
QLatin1StringView shortestJsonNumber(float value, std::array<char, 32>& buffer)
{
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
    return QLatin1StringView(buffer.data(), end);
}

float jsonStartTime(const ZLChapter& chapter)
{
    const auto milliseconds = ZLSaturatedInteger<std::int64_t>(chapter.timeStamp() * 1000.0);
    return float(milliseconds) / 1000.0F;
}

void appendJsonCharacter(QString& text, QChar character)
{
    constexpr char16_t firstPrintable = 0x20;
    if (character == u'"' || character == u'\\') {
        text += u'\\';
        text += character;
    } else if (character == u'\n') {
        text += "\\n"_L1;
    } else if (character == u'\r') {
        text += "\\r"_L1;
    } else if (character == u'\t') {
        text += "\\t"_L1;
    } else if (character.unicode() < firstPrintable) {
        text += "\\u"_L1;
        text += QString::number(character.unicode(), 16).rightJustified(4, u'0');
    } else {
        text += character;
    }
}

void appendJsonString(QString& text, const QString& string)
{
    text += u'"';
    for (const QChar character : string)
        appendJsonCharacter(text, character);
    text += u'"';
}

void appendJsonChapter(QString& text, const ZLChapter& chapter, qsizetype number)
{
    std::array<char, 32> buffer {};
    text += number == 1 ? "{\"chapter\":"_L1 : ",{\"chapter\":"_L1;
    text += QString::number(number);
    text += ",\"start-time\":"_L1;
    text += shortestJsonNumber(jsonStartTime(chapter), buffer);
    text += ",\"titles\":[{\"language\":\"und\",\"title\":"_L1;
    appendJsonString(text, chapter.title());
    text += "}]}"_L1;
}

}

ZLExportFormat ZLJSONExporter::format()
{
    return { .name = u"JSON"_s, .dialogKind = ZLExportDialogKind::Save, .fileType = u"json"_s };
}

ZLResult<QByteArray> ZLJSONExporter::exportedBytes(const ZLExportInput& input) const
{
    qsizetype number = 0;
    const QString elements = textOfEnabledChapters(
        input, [&number](QString& text, const ZLChapter& chapter) { appendJsonChapter(text, chapter, ++number); });
    return QString(u'[' + elements + u']').toUtf8();
}

namespace {

constexpr std::array jsonRules {
    ZLExportRule { ZLExportFindings::noEnabledChapter, ZLExportAdvice::noChapters },
    ZLExportRule { ZLExportFindings::beforeTheStart, ZLExportAdvice::beforeStart },
    ZLExportRule { ZLExportFindings::afterTheEnd, ZLExportAdvice::pastEnd },
    ZLExportRule { ZLExportFindings::inTheSameMillisecond, ZLExportAdvice::sameTime },
    ZLExportRule { ZLExportFindings::emptyTitles, ZLExportAdvice::noTitle },
    ZLExportRule { ZLExportFindings::controlCharactersInTitles, ZLExportAdvice::hidden },
    ZLExportRule { ZLExportFindings::brokenCharactersInTitles, ZLExportAdvice::unwritable },
};

}

QStringList ZLJSONExporter::advice(const ZLExportInput& input) const
{
    return ZLExportAdvice::lines(jsonRules, input);
}
