#pragma once

#include "platform/ZLResult.h"

#include <QString>

/// Folders of the program's own, open to their user alone.
namespace ZLPrivateFolder {

/// Makes the folder at `path`, and those above it that are missing. One that stands already, with wider permissions
/// perhaps, as in a copied home, is closed to others.
[[nodiscard]] ZLStatus prepare(const QString& path);

}
