#pragma once

#include "model/ZLChapter.h"

#include <QString>

#include <optional>

/// Reads chapters out of an outline: plain text in which each chapter begins with a line that starts with "- " and
/// carries the title. The time it takes grows with the length of the text only, whatever stands in it.
namespace ZLOutlineImport {

/// The chapters of one text in its order. The title is the rest of the heading line, as it stands; the link is the
/// first one found in the heading line or in the lines below it. Lines before the first heading are no chapter's.
[[nodiscard]] ZLChapterSequence chaptersInText(QStringView plainText);

/// The chapters of a text without such headings, by the lines that look like topics: those that begin with another mark
/// ("*", "•", "1." and the like, also indented), or, where no line has one, each line that is more than a link. Marks
/// and blanks at both ends are no part of the title.
[[nodiscard]] ZLChapterSequence chaptersInTopicLines(QStringView plainText);

/// The first web link in `text`, or nothing: a host name with a top-level domain of two to four letters, with all that
/// precedes it without a gap (a scheme, a user; up to 256 characters) and the path that follows it. It is the first
/// match of the regular expression, regardless of case,
///
///     [-a-zA-Z0-9@:%_\+.~#?&//=]{2,256}\.[a-z]{2,4}\b(\/[-a-zA-Z0-9@:%_\+.~#?&//=]*)?
///
/// found without its backtracking.
[[nodiscard]] std::optional<QString> linkInString(QStringView text);

}
