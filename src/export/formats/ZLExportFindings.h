#pragma once

#include "export/ZLExporter.h"

#include <optional>

/// What a check found out about an export, as a part of a sentence such as "chapters 4 and 7"; absent when all is well.
using ZLExportFinding = std::optional<QString>;

/// The checks behind the rules of ZLExportAdvice. Unless said otherwise they look at the enabled chapters.
namespace ZLExportFindings {

[[nodiscard]] ZLExportFinding noEnabledChapter(const ZLExportInput& input);
/// Neither enabled nor disabled.
[[nodiscard]] ZLExportFinding noChapterFromTheStartOn(const ZLExportInput& input);

[[nodiscard]] ZLExportFinding beforeTheStart(const ZLExportInput& input);
/// Disabled ones too.
[[nodiscard]] ZLExportFinding anyBeforeTheStart(const ZLExportInput& input);
/// Only where the end is known: after a recording that goes on no more.
[[nodiscard]] ZLExportFinding afterTheEnd(const ZLExportInput& input);
/// Disabled ones too; the end is that of the finished spans, be it 0.
[[nodiscard]] ZLExportFinding anyAfterTheFinishedSpans(const ZLExportInput& input);
/// Beyond 2147483647 ms, disabled ones too.
[[nodiscard]] ZLExportFinding beyond32Bits(const ZLExportInput& input);
[[nodiscard]] ZLExportFinding recordingGoesOn(const ZLExportInput& input);

[[nodiscard]] ZLExportFinding inTheSameSecond(const ZLExportInput& input);
[[nodiscard]] ZLExportFinding inTheSameMillisecond(const ZLExportInput& input);
/// As above where the option writes times.
[[nodiscard]] ZLExportFinding inTheSameSecondIfTimed(const ZLExportInput& input);
[[nodiscard]] ZLExportFinding beforeTheStartIfTimed(const ZLExportInput& input);
/// A first chapter at 00:00, three chapters, ten seconds each, all by the seconds that are written.
[[nodiscard]] ZLExportFinding unfitForYouTube(const ZLExportInput& input);
[[nodiscard]] ZLExportFinding tooLongForYouTube(const ZLExportInput& input);

[[nodiscard]] ZLExportFinding angleBracketsInTitles(const ZLExportInput& input);
[[nodiscard]] ZLExportFinding links(const ZLExportInput& input);
[[nodiscard]] ZLExportFinding lineBreaks(const ZLExportInput& input);
[[nodiscard]] ZLExportFinding lineBreaksInTitles(const ZLExportInput& input);
[[nodiscard]] ZLExportFinding commasInTitles(const ZLExportInput& input);
[[nodiscard]] ZLExportFinding emptyTitles(const ZLExportInput& input);
[[nodiscard]] ZLExportFinding markdownInTitles(const ZLExportInput& input);
[[nodiscard]] ZLExportFinding brokenMarkdownLinks(const ZLExportInput& input);
[[nodiscard]] ZLExportFinding unescapedMarkup(const ZLExportInput& input);
/// Characters that no XML document may contain.
[[nodiscard]] ZLExportFinding forbiddenInXml(const ZLExportInput& input);
/// In titles, of disabled chapters too.
[[nodiscard]] ZLExportFinding anyTitleForbiddenInXml(const ZLExportInput& input);
/// Control characters other than tabs and line breaks.
/// @{
[[nodiscard]] ZLExportFinding controlCharacters(const ZLExportInput& input);
[[nodiscard]] ZLExportFinding controlCharactersInTitles(const ZLExportInput& input);
/// Those that an XML document may contain all the same.
[[nodiscard]] ZLExportFinding controlCharactersThatXmlTakes(const ZLExportInput& input);
/// As the one before, in titles, of disabled chapters too.
[[nodiscard]] ZLExportFinding anyTitleWithControlCharactersThatXmlTakes(const ZLExportInput& input);
/// @}
/// Halves of characters, which have no form in a file.
/// @{
[[nodiscard]] ZLExportFinding brokenCharacters(const ZLExportInput& input);
[[nodiscard]] ZLExportFinding brokenCharactersInTitles(const ZLExportInput& input);
/// In titles, of disabled chapters too.
[[nodiscard]] ZLExportFinding anyTitleWithBrokenCharacters(const ZLExportInput& input);
/// @}
[[nodiscard]] ZLExportFinding markupInFileName(const ZLExportInput& input);
[[nodiscard]] ZLExportFinding sessionWithoutEnd(const ZLExportInput& input);
/// As a marker with the same name at the same time, to the millisecond.
[[nodiscard]] ZLExportFinding inTheSessionAlready(const ZLExportInput& input);

}
