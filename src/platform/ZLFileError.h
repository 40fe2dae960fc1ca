#pragma once

#include "platform/ZLResult.h"

#include <QString>

/// How every failure of a file is told: the path first, then the reason.
namespace ZLFileError {

[[nodiscard]] inline ZLError because(const QString& path, const QString& reason)
{
    return ZLError { QStringLiteral("%1: %2").arg(path, reason) };
}

/// With what the system says of `errorNumber`, a value of errno.
[[nodiscard]] inline ZLError ofSystem(const QString& path, int errorNumber)
{
    return because(path, qt_error_string(errorNumber));
}

}
