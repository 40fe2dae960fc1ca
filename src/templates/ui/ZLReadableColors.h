#pragma once

#include <QColor>
#include <QList>

class QPalette;

/// Colours that can be read on what they stand on.
namespace ZLReadableColors {

/// What texts and signs need, as ratios of contrast().
inline constexpr double LeastForText = 4.5;
inline constexpr double LeastForSigns = 3.0;

/// Ratio of two colours' luminances as the web accessibility guidelines define it, 1 to 21.
[[nodiscard]] double contrast(const QColor& first, const QColor& second);

/// `share` of the first colour, 0 to 1, and the rest of the second one.
[[nodiscard]] QColor mixed(const QColor& first, const QColor& second, float share);

/// The colour with a touch of another one.
[[nodiscard]] QColor tinted(const QColor& ground, const QColor& tint);

/// The colour, made darker or lighter until it has the contrast to all the grounds, or as far as it goes.
[[nodiscard]] QColor onGrounds(const QColor& color, const QList<QColor>& grounds, double least = LeastForText);

/// The selection of a list that has not the keyboard. Plain text can be read on it.
[[nodiscard]] QColor weakSelection(const QPalette& palette);

/// The palette of the desktop with what cannot be read in it made readable: selected text, hints in fields, links, and
/// the texts of what is disabled.
[[nodiscard]] QPalette improved(const QPalette& palette);

}
