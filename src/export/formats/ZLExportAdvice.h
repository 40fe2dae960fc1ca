#pragma once

#include "export/formats/ZLExportFindings.h"

#include <QCoreApplication>
#include <QStringList>

#include <span>

/// What a destination asks for: how it is checked, and what the user is told with the reason, untranslated; %1 is the
/// finding.
struct ZLExportRule {
    ZLExportFinding (*check)(const ZLExportInput&);
    const char* text;
};

/// What the destination of an export will not like. It changes nothing of what is written: the user is told before the
/// file is, and decides. Each format has its rules beside its bytes.
namespace ZLExportAdvice {

/// One sentence for each rule that the export breaks; empty when there is nothing to tell. Chapters are counted as in
/// the table, from 1 and with the disabled ones.
[[nodiscard]] QStringList lines(std::span<const ZLExportRule> rules, const ZLExportInput& input);

/// The same by the format's own rules.
[[nodiscard]] QStringList lines(const ZLExporterClass& exporterClass, const ZLExportInput& input);

/// @name Sentences that several destinations share
/// @{
inline constexpr auto emptyFile = QT_TRANSLATE_NOOP("ZLExportAdvice", "No enabled chapters: the file will be empty.");
inline constexpr auto noChapters = QT_TRANSLATE_NOOP("ZLExportAdvice", "No enabled chapters: the file will hold none.");
inline constexpr auto beforeStart =
    QT_TRANSLATE_NOOP("ZLExportAdvice", "Players do not support negative times: see %1.");
inline constexpr auto signDropped =
    QT_TRANSLATE_NOOP("ZLExportAdvice", "A negative time is written without its sign: see %1.");
inline constexpr auto pastEnd =
    QT_TRANSLATE_NOOP("ZLExportAdvice", "Players never reach chapters after the end of the recording: see %1.");
inline constexpr auto sameTime =
    QT_TRANSLATE_NOOP("ZLExportAdvice", "Players show one of two chapters with the same time: %1.");
inline constexpr auto oneLine =
    QT_TRANSLATE_NOOP("ZLExportAdvice", "A chapter is one line here: there is a line break in %1.");
inline constexpr auto notXml = QT_TRANSLATE_NOOP(
    "ZLExportAdvice", "XML allows no control characters, so the file will not open: there is one in %1.");
inline constexpr auto noTitle =
    QT_TRANSLATE_NOOP("ZLExportAdvice", "Players show chapters by their titles: there is none in %1.");
inline constexpr auto hidden =
    QT_TRANSLATE_NOOP("ZLExportAdvice", "Control characters are shown as boxes or break the text: there is one in %1.");
inline constexpr auto unwritable =
    QT_TRANSLATE_NOOP("ZLExportAdvice", "A broken character will not be written: there is one in %1.");
/// @}

}
