#pragma once

#include <QColor>

class QPalette;

/// The one colour of the program's own: the red that says "recording". It is good for texts on the window and for signs
/// on its buttons.
namespace ZLRecordingColors {

[[nodiscard]] QColor red(const QPalette& palette);

}
