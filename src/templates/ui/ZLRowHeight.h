#pragma once

class QWidget;

/// How high the rows of the program's tables are.
namespace ZLRowHeight {

/// Pixels for one line in the font of `widget`: four points more than the font's size, and never less than the font
/// needs.
[[nodiscard]] int forFontOf(const QWidget& widget);

}
