#pragma once

#include <QString>

/// A socket's address holds a path of 107 bytes at most, and folders of a user may lie deeper than that.
namespace ZLSocketPath {

/// Bytes up to which a path is left as it is. The rest is for the name under which a socket is made before it moves to
/// its place.
inline constexpr qsizetype LongestPath = 90;

/// Where the socket that belongs at `path` is: there, or for a long path under a name made of it in
/// `$XDG_RUNTIME_DIR`, or in a folder of the user's own under /tmp, which is made when it is missing. The same for all
/// programs with these settings. `path` itself when there is no such folder that only the user can enter.
[[nodiscard]] QString reachable(const QString& path);

}
