#pragma once

#include "platform/ZLResult.h"

#include <QString>

class ZLOpenFileNote;

/// The one rule about what must not be written over: a document that is open in any window or recorder of this user,
/// the lock file beside it, and whatever the program keeps in its state folder (journals, kept documents, former
/// states). Everything that writes to a name that a person chose asks here first.
namespace ZLWriteProtection {

/// An error that names the file when `path` leads to such a file in whatever way, also by a hard link. A document may
/// always be written to its own file: `own` is its note.
[[nodiscard]] ZLStatus check(const QString& path, const ZLOpenFileNote* own = nullptr);

}
