#pragma once

#include <QString>

/// Names of files are bytes, and texts here; bytes that are no UTF-8 cannot be told in one.
namespace ZLFileName {

/// Why the file that was meant cannot be reached: its name was not UTF-8, and nothing is there under what was made of
/// it. Empty for any other path.
[[nodiscard]] QString refusal(const QString& path);

}
