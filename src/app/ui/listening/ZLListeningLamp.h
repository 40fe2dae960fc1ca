#pragma once

#include "listening/ZLListening.h"

#include <QIcon>
#include <QSize>

class QPalette;

/// The sign that says whether listening along hears anything, and how loud: a lamp and a row of bars.
namespace ZLListeningLamp {

inline constexpr QSize Size { 41, 14 };
inline constexpr int BarCount = 6;

/// How many of the bars are lit at this level, from 0 to 1. Any sound at all lights one.
[[nodiscard]] int litBars(double level);
/// The lamp is full while sound is heard, half after ten seconds without any, and a ring while the input is not there.
[[nodiscard]] QIcon icon(ZLListeningState state, int bars, const QPalette& palette);

}
