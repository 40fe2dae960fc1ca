#pragma once

#include <QColor>

class QPalette;

/// The one colour of the program's own: the red that says "recording". It keeps a contrast of 3:1 to the window.
namespace ZLRecordingColors {

[[nodiscard]] QColor red(const QPalette& palette);

/// Ratio of two colours' luminances as the web accessibility guidelines define it, 1 to 21.
[[nodiscard]] double contrast(const QColor& first, const QColor& second);

}
