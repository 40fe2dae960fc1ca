#pragma once

#include <QString>

/// The folder that the session gives to its user's programs, `$XDG_RUNTIME_DIR`. It goes with the session.
namespace ZLRuntimeFolder {

/// Its path; empty where there is none that only the user can enter.
[[nodiscard]] QString path();
/// The same, but empty also where it does not lie in memory, so that a program could wait for a disk there.
[[nodiscard]] QString pathInMemory();
/// Whether only the user can enter `folder`, and it is no symbolic link.
[[nodiscard]] bool belongsToUserAlone(const QString& folder);

}
