#pragma once

#include "lists/ZLChapterList.h"
#include "lists/ZLListSource.h"

#include <QStringView>

#include <functional>
#include <optional>

/// Small things that several forms do with texts.
namespace ZLListText {

/// `text` with everything replaced that a form with these limits cannot hold, and half characters, which none can;
/// links are not looked at.
[[nodiscard]] QString fitting(const QString& text, ZLListLimits limits);

/// Whether `text` holds a line break, a control character, an angle bracket or a double quote, as the limit asks.
[[nodiscard]] bool isBeyond(const QString& text, ZLListLimit limit);

/// Takes a link off the end of `title`, which stands in angle brackets with a blank before them: "Title <link>".
/// Returns it, or nothing.
[[nodiscard]] QString takeBracketedLink(QStringView& title);

/// A remark on the line with this index, counted from 0.
[[nodiscard]] ZLListRemark remark(qsizetype lineIndex, const QString& text);

/// Remarks beyond these are only counted, so that a long text does not fill the memory with them.
inline constexpr qsizetype MostRemarks = 1000;

/// Adds the remark that the line was not understood. It quotes the beginning of `line` where that is given.
void noteUnknownLine(ZLChapterList& list, qsizetype lineIndex, QStringView line = {});

/// The chapters of a form that has one in each line. A line that is not blank and in which `chapterIn` finds none is
/// remarked.
[[nodiscard]] ZLChapterList chaptersInLines(
    const ZLListSource& source, const std::function<std::optional<ZLListedChapter>(QStringView line)>& chapterIn);

}
