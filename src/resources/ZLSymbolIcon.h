#pragma once

#include <QColor>
#include <QIcon>
#include <QString>

/// The program's own single-colour symbols, ":/images/NAME.svg". They take the palette's text colour at the moment
/// they are painted, so they follow a change between light and dark by themselves and are sharp at any scale.
namespace ZLSymbolIcon {

/// `name` is also what QIcon::name() returns. An unknown name gives an icon that paints nothing.
[[nodiscard]] QIcon named(const QString& name);

/// The same in a colour of its own; only a disabled icon still takes the palette's colour.
[[nodiscard]] QIcon named(const QString& name, const QColor& color);

}
