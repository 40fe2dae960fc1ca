#pragma once

#include <QString>

class ZLChapterDocument;

/// Takes out of titles and links what a person cannot see.
namespace ZLTitleTidying {

/// The text without control characters and without blanks at both ends. An absent text stays absent.
[[nodiscard]] QString tidied(const QString& text);

/// Tidies all chapters and templates in one undoable step, without one when there is nothing to tidy. Returns how many
/// of them changed.
qsizetype tidy(ZLChapterDocument& document);

}
