#pragma once

#include "platform/ZLResult.h"

#include <QByteArray>
#include <QString>

#include <functional>

/// New contents of a file that are made while they are written, of any size.
struct ZLFileReplacement {
    /// Writes the contents to the open descriptor.
    std::function<ZLStatus(int descriptor)> fill;
    /// Asked when the new file is whole, right before it takes the place of the old one, which stays after an error.
    std::function<ZLStatus()> permit = [] { return ZLStatus(ZLDone {}); };
    /// Bytes that have to be free on the disk before anything is written.
    qint64 size = 0;
};

/// Writes whole files so that a reader sees either the old contents or the new ones, never a part.
namespace ZLAtomicFile {

/// Replaces the file at `path`, or creates it, through a synced temporary file in the same folder. Symbolic links are
/// followed; permissions, extended attributes and, where the user may, the owner of an existing file are kept. When it
/// fails, the file is as it was before.
[[nodiscard]] ZLStatus write(const QString& path, const QByteArray& bytes);

/// The same for contents of any size. Where the file system can, the temporary file has no name before it is whole, so
/// that a kill leaves nothing beside the file.
[[nodiscard]] ZLStatus replace(const QString& path, const ZLFileReplacement& replacement);

/// Whether there is a file at `path` that write() may not replace, by its rights, its folder's or the disk's.
[[nodiscard]] bool isReadOnly(const QString& path);

/// The same for a file of the program's own: from its first byte it is for its user alone, and it takes the place of
/// whatever stands there, also of a link.
[[nodiscard]] ZLStatus writeForOwner(const QString& path, const QByteArray& bytes);

}
