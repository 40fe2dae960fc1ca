#pragma once

#include <QVariant>

/// Reads values from a file as they are found there, without insisting on their type: what cannot be read at all is
/// 0, false or absent.
namespace ZLStoredValue {

/// A number, or the number that a text begins with.
[[nodiscard]] double number(const QVariant& value);

/// A boolean, a number other than 0, or a text that begins with y, t or a number other than 0.
[[nodiscard]] bool boolean(const QVariant& value);

/// A text, or a scalar as text; null when absent.
[[nodiscard]] QString text(const QVariant& value);

}
