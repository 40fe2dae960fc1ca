#pragma once

#include <QPoint>
#include <QSize>
#include <QString>

#include <optional>

/// Points and sizes as the preferences window stores them: "{80, 640}" and "{{0, 0}, {480, 270}}". Reading accepts any
/// spacing and fractions, and nothing else.
namespace MASPreferencesGeometryText {

[[nodiscard]] QString fromPoint(QPoint point);
[[nodiscard]] std::optional<QPoint> toPoint(const QString& text);

/// The text of a rectangle of this size at the origin.
[[nodiscard]] QString fromSize(QSize size);
/// The size in the text of a rectangle; nothing for one that has no area.
[[nodiscard]] std::optional<QSize> toSize(const QString& text);

}
