#pragma once

#include "platform/ZLResult.h"

#include <QByteArray>
#include <QString>

/// Keeps what a file was before an export rewrote it in place, as a copy beside it: "Show.nhsx.bak" for "Show.nhsx".
/// The next export into the same file replaces the copy.
namespace ZLSessionCopy {

[[nodiscard]] QString pathFor(const QString& path);
/// To be called with the bytes of the file at `path` before that is rewritten.
[[nodiscard]] ZLStatus keep(const QString& path, const QByteArray& bytes);

}
