#include "export/formats/ZLHindenburgExporter.h"

#include "export/formats/ZLExportAdvice.h"
#include "export/formats/ZLNumberedChapters.h"
#include "export/formats/ZLSessionMarkers.h"

#include <QByteArrayMatcher>
#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

using namespace Qt::StringLiterals;

// The session is handled as bytes: in UTF-8 a literal of ASCII characters is found nowhere but where it stands.

namespace {

ZLError sessionError(const char* text)
{
    return ZLError { QCoreApplication::translate("ZLHindenburgExporter", text) };
}

/// Blanks as a string scanner skips them: white space and line ends.
bool isSkipped(char byte)
{
    return byte == ' ' || (byte >= '\t' && byte <= '\r');
}

QByteArrayView withoutLeadingBlanks(QByteArrayView text)
{
    qsizetype blanks = 0;
    while (blanks < text.size() && isSkipped(text[blanks]))
        ++blanks;
    return text.sliced(blanks);
}

/// The number that `text` begins with, kept in the range of 32 bits; 0 when there is none.
std::int32_t leadingInteger(QByteArrayView text)
{
    constexpr std::int64_t most = std::numeric_limits<std::int32_t>::max();
    text = withoutLeadingBlanks(text);
    const bool isNegative = text.startsWith('-');
    if (isNegative || text.startsWith('+'))
        text = text.sliced(1);
    std::int64_t number = 0;
    for (qsizetype i = 0; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i)
        number = std::min(number * 10 + (text[i] - '0'), most + (isNegative ? 1 : 0));
    return std::int32_t(isNegative ? -number : number);
}

/// A value reaches to the next quote that a blank follows, wherever that is: a quote before anything else ends no
/// value, and what it swallows is not looked at.
std::int32_t highestMarkerId(QByteArrayView markers)
{
    static const QByteArrayMatcher opening(QByteArrayLiteral("Id=\""));
    static const QByteArrayMatcher closing(QByteArrayLiteral("\" "));
    std::int32_t highest = 0;
    while (true) {
        const qsizetype found = opening.indexIn(markers);
        if (found < 0)
            return highest;
        markers = withoutLeadingBlanks(markers.sliced(found + opening.pattern().size()));
        const qsizetype end = closing.indexIn(markers);
        const QByteArrayView value = end < 0 ? markers : markers.first(end);
        if (value.isEmpty())
            return highest;
        highest = std::max(highest, leadingInteger(value));
        markers = markers.sliced(value.size());
    }
}

/// What stands between the first start of markers and the first end of markers.
ZLResult<QByteArrayView> markersSection(const QByteArray& session)
{
    const qsizetype begin = session.indexOf("<Markers");
    const qsizetype end = session.indexOf("</Markers>");
    if (end < begin)
        return sessionError(QT_TRANSLATE_NOOP("ZLHindenburgExporter", "The markers of this session have no end."));
    return QByteArrayView(session).sliced(begin, end - begin);
}

void appendWithEncodedAmpersands(QByteArray& block, const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    qsizetype done = 0;
    for (qsizetype at = bytes.indexOf('&'); at >= 0; at = bytes.indexOf('&', done)) {
        block.append(bytes.constData() + done, at - done);
        block += "&amp;";
        done = at + 1;
    }
    block.append(bytes.constData() + done, bytes.size() - done);
}

void appendMarker(QByteArray& block, const ZLChapter& chapter, std::int32_t id)
{
    block += "<Marker Id=\"";
    block += QByteArray::number(id);
    block += "\" Name=\"";
    appendWithEncodedAmpersands(block, chapter.title());
    block += "\" Time=\"";
    block += ZLHindenburgExporter::markerTime(chapter);
    block += "\" Type=\"Chapter\" Title=\"\" URL=\"";
    appendWithEncodedAmpersands(block, chapter.link());
    block += "\"/>\n";
}

ZLResult<QByteArray> markerLines(const ZLExportInput& input, std::int32_t highest)
{
    QByteArray lines;
    for (const ZLChapterPointer& chapter : input.chapters) {
        if (!chapter->isEnabled())
            continue;
        if (highest == std::numeric_limits<std::int32_t>::max())
            return sessionError(
                QT_TRANSLATE_NOOP("ZLHindenburgExporter", "The session's highest marker number leaves no room."));
        appendMarker(lines, *chapter, ++highest);
    }
    return lines;
}

qsizetype occurrences(const QByteArray& text, const QByteArrayMatcher& matcher)
{
    qsizetype count = 0;
    for (qsizetype at = matcher.indexIn(text); at >= 0; at = matcher.indexIn(text, at + matcher.pattern().size()))
        ++count;
    return count;
}

/// Replaces every `literal` in one pass, without looking again at what it inserted.
ZLResult<QByteArray> replaced(QByteArray text, const QByteArray& literal, const QByteArray& replacement)
{
    const QByteArrayMatcher matcher(literal);
    const qsizetype count = occurrences(text, matcher);
    if (count == 0)
        return text;
    const qsizetype growth = replacement.size() - literal.size();
    if (growth > 0 && count > (ZLHindenburgExporter::MostSessionBytes - text.size()) / growth)
        return sessionError(QT_TRANSLATE_NOOP("ZLHindenburgExporter", "The rewritten session would become too large."));
    QByteArray result;
    result.reserve(text.size() + count * growth);
    qsizetype done = 0;
    for (qsizetype at = matcher.indexIn(text); at >= 0; at = matcher.indexIn(text, done)) {
        result.append(text.constData() + done, at - done);
        result += replacement;
        done = at + literal.size();
    }
    return result.append(text.constData() + done, text.size() - done);
}

bool hasMarkersSection(const QByteArray& session)
{
    return session.contains("<Markers") && !session.contains("<Markers/>");
}

/// In front of the end of the markers that are there.
ZLResult<QByteArray> withMarkersAdded(const QByteArray& session, const ZLExportInput& input)
{
    const auto section = markersSection(session);
    if (!section)
        return section.error();
    auto lines = markerLines(input, highestMarkerId(section.value()));
    if (!lines)
        return lines;
    auto spaced = replaced(session, "<Markers>", "<Markers>\n");
    if (!spaced)
        return spaced;
    return replaced(std::move(spaced).value(), "</Markers>", lines.value() + "</Markers>\n");
}

/// As a section of their own in front of the end of the session.
ZLResult<QByteArray> withMarkersSection(const QByteArray& session, const ZLExportInput& input)
{
    auto lines = markerLines(input, 0);
    if (!lines)
        return lines;
    auto spaced = replaced(session, "<Markers>", "<Markers>\n");
    if (!spaced)
        return spaced;
    auto cleared = replaced(std::move(spaced).value(), "<Markers/>", {});
    if (!cleared)
        return cleared;
    return replaced(std::move(cleared).value(), "</Session>", "<Markers>\n" + lines.value() + "</Markers>\n</Session>");
}

}

ZLExportFormat ZLHindenburgExporter::format()
{
    return { .name = u"Hindenburg"_s, .dialogKind = ZLExportDialogKind::Open, .fileType = u"nhsx"_s };
}

std::optional<ZLExportAlert> ZLHindenburgExporter::alertFor(const ZLExportInput& input) const
{
    const QByteArray& session = input.existingBytes;
    // A session without any end passes: only its place is asked for, and there is something to be kept.
    if (!session.isEmpty() && session.isValidUtf8() && !session.startsWith("</Session>"))
        return std::nullopt;
    return ZLExportAlert { QCoreApplication::translate("ZLHindenburgExporter", "HALP!"),
        QCoreApplication::translate("ZLHindenburgExporter",
            "I couldn't find the Sessions tag. Please provide a well formatted Hindenburg File!") };
}

QString ZLHindenburgExporter::reasonNothingIsInserted(const ZLExportInput& input) const
{
    if (!takesMarkers(input.existingBytes))
        return QCoreApplication::translate("ZLHindenburgExporter", "The session has no </Session>.");
    const bool hasEnabled = std::ranges::any_of(input.chapters, &ZLChapter::isEnabled);
    return hasEnabled ? QString()
                      : QCoreApplication::translate("ZLHindenburgExporter", "There are no enabled chapters.");
}

QByteArray ZLHindenburgExporter::markerTime(const ZLChapter& chapter)
{
    constexpr int decimals = 3;
    std::array<char, 64> buffer {};
    const double seconds = double(float(chapter.timeStamp()));
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), seconds, std::chars_format::fixed, decimals).ptr;
    return { buffer.data(), end - buffer.data() };
}

bool ZLHindenburgExporter::takesMarkers(const QByteArray& session)
{
    return hasMarkersSection(session) || session.contains("</Session>");
}

ZLResult<QByteArray> ZLHindenburgExporter::exportedBytes(const ZLExportInput& input) const
{
    if (const auto alert = alertFor(input))
        return ZLError { alert->informativeText };
    const QByteArray& session = input.existingBytes;
    if (hasMarkersSection(session))
        return withMarkersAdded(session, input);
    return withMarkersSection(session, input);
}

namespace {

ZLExportFinding sessionWithoutEnd(const ZLExportInput& input)
{
    const QByteArray& session = input.existingBytes;
    const bool isUnfit = !session.isEmpty() && !ZLHindenburgExporter::takesMarkers(session);
    return isUnfit ? ZLExportFinding(ZLExportFindings::somethingFound) : std::nullopt;
}

ZLExportFinding unescapedMarkup(const ZLExportInput& input)
{
    return ZLNumberedChapters::that(input, [](const ZLChapter& chapter) {
        return ZLExportFindings::holdsAnyOf(chapter.title(), "<\""_L1)
            || ZLExportFindings::holdsAnyOf(chapter.link(), "<\""_L1);
    });
}

/// As a marker with the same name at the same time, to the millisecond.
ZLExportFinding inTheSessionAlready(const ZLExportInput& input)
{
    const auto markers = ZLSessionMarkers::in(input.existingBytes);
    if (markers.isEmpty())
        return std::nullopt;
    return ZLNumberedChapters::that(input, [&markers](const ZLChapter& chapter) {
        const double milliseconds = ZLHindenburgExporter::markerTime(chapter).toDouble() * 1000.0;
        constexpr double longest = 1e15;
        return std::fabs(milliseconds) < longest && markers.contains({ std::llround(milliseconds), chapter.title() });
    });
}

constexpr std::array hindenburgRules {
    ZLExportRule { ZLExportFindings::noEnabledChapter,
        QT_TRANSLATE_NOOP("ZLExportAdvice", "No enabled chapters: the session will get no markers.") },
    ZLExportRule { sessionWithoutEnd,
        QT_TRANSLATE_NOOP("ZLExportAdvice", "The session has no </Session>: there is no place for the markers.") },
    ZLExportRule { ZLExportFindings::beforeTheStart,
        QT_TRANSLATE_NOOP("ZLExportAdvice", "Hindenburg does not support negative times: see %1.") },
    ZLExportRule { unescapedMarkup,
        QT_TRANSLATE_NOOP(
            "ZLExportAdvice", "A session with < or \" in a text may not open again: there is one in %1.") },
    ZLExportRule { ZLExportFindings::forbiddenInXml, ZLExportAdvice::notXml },
    ZLExportRule { ZLExportFindings::controlCharactersThatXmlTakes, ZLExportAdvice::hidden },
    ZLExportRule { ZLExportFindings::brokenCharacters, ZLExportAdvice::unwritable },
    ZLExportRule { inTheSessionAlready,
        QT_TRANSLATE_NOOP("ZLExportAdvice",
            "The session already has markers with the same time and name, which will come twice: %1.") },
};

}

QStringList ZLHindenburgExporter::advice(const ZLExportInput& input) const
{
    return ZLExportAdvice::lines(hindenburgRules, input);
}
