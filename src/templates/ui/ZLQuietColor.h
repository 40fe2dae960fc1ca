#pragma once

#include <QColor>

class QPalette;

/// The colour of what stands back in a table: a hint in an empty one, a row that does not count.
namespace ZLQuietColor {

/// Between the text and what it stands on, with at least 4.5:1 to it. A palette's colours for placeholders and disabled
/// text are no help: many dark desktops leave them black.
[[nodiscard]] QColor onBase(const QPalette& palette);
[[nodiscard]] QColor onHighlight(const QPalette& palette);

}
