#pragma once

#include "export/ZLExporter.h"
#include "export/formats/ZLChapterText.h"

#include <optional>

/// What a check found out about an export, as a part of a sentence such as "chapters 4 and 7"; absent when all is well.
using ZLExportFinding = std::optional<QString>;

/// The checks that several destinations share; each format has its own beside its bytes. They look at the enabled
/// chapters.
namespace ZLExportFindings {

/// A finding that needs no words.
inline const QString somethingFound = QStringLiteral("");

/// An enabled chapter with its number.
struct NumberedChapter {
    qsizetype number;
    const ZLChapter* chapter;
    [[nodiscard]] std::uint64_t seconds() const { return ZLChapterText::unsignedMilliseconds(*chapter) / 1000; }
};

[[nodiscard]] QList<NumberedChapter> enabledChapters(const ZLExportInput& input);
/// After a recording that goes on no more.
[[nodiscard]] bool isEndKnown(const ZLExportInput& input);
[[nodiscard]] bool holdsLineBreak(const QString& text);
[[nodiscard]] bool holdsAnyOf(const QString& text, QLatin1StringView characters);
/// A character that no XML document may contain.
[[nodiscard]] bool holdsForbiddenInXml(const QString& text);
/// A control character that an XML document may contain all the same.
[[nodiscard]] bool holdsControlCharacterThatXmlTakes(const QString& text);

[[nodiscard]] ZLExportFinding noEnabledChapter(const ZLExportInput& input);

[[nodiscard]] ZLExportFinding beforeTheStart(const ZLExportInput& input);
/// Only where the end is known: after a recording that goes on no more.
[[nodiscard]] ZLExportFinding afterTheEnd(const ZLExportInput& input);

[[nodiscard]] ZLExportFinding inTheSameSecond(const ZLExportInput& input);
[[nodiscard]] ZLExportFinding inTheSameMillisecond(const ZLExportInput& input);

[[nodiscard]] ZLExportFinding angleBracketsInTitles(const ZLExportInput& input);
[[nodiscard]] ZLExportFinding links(const ZLExportInput& input);
[[nodiscard]] ZLExportFinding lineBreaks(const ZLExportInput& input);
[[nodiscard]] ZLExportFinding emptyTitles(const ZLExportInput& input);
/// Characters that no XML document may contain.
[[nodiscard]] ZLExportFinding forbiddenInXml(const ZLExportInput& input);
/// Control characters other than tabs and line breaks.
/// @{
[[nodiscard]] ZLExportFinding controlCharacters(const ZLExportInput& input);
[[nodiscard]] ZLExportFinding controlCharactersInTitles(const ZLExportInput& input);
/// Those that an XML document may contain all the same.
[[nodiscard]] ZLExportFinding controlCharactersThatXmlTakes(const ZLExportInput& input);
/// @}
/// Halves of characters, which have no form in a file.
/// @{
[[nodiscard]] ZLExportFinding brokenCharacters(const ZLExportInput& input);
[[nodiscard]] ZLExportFinding brokenCharactersInTitles(const ZLExportInput& input);
/// @}

}
