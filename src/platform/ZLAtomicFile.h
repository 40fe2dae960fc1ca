#pragma once

#include "platform/ZLResult.h"

#include <QByteArray>
#include <QString>

/// Writes whole files so that a reader sees either the old contents or the new ones, never a part.
namespace ZLAtomicFile {

/// Replaces the file at `path`, or creates it, through a synced temporary file in the same folder. Symbolic links are
/// followed; permissions, extended attributes and, where the user may, the owner of an existing file are kept. When it
/// fails, the file is as it was before.
[[nodiscard]] ZLStatus write(const QString& path, const QByteArray& bytes);

/// Whether there is a file at `path` that write() may not replace, by its rights, its folder's or the disk's.
[[nodiscard]] bool isReadOnly(const QString& path);

/// The whole contents of the file at `path`.
[[nodiscard]] ZLResult<QByteArray> read(const QString& path);

}
