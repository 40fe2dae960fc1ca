#pragma once

#include "platform/ZLRuntimeFolder.h"

#include <QFile>
#include <QTemporaryDir>

/// A session's runtime folder in memory, for as long as the object lives.
class ZLRuntimeFolderInMemory {
public:
    ZLRuntimeFolderInMemory() { qputenv("XDG_RUNTIME_DIR", QFile::encodeName(m_folder.path())); }
    ~ZLRuntimeFolderInMemory() { qputenv("XDG_RUNTIME_DIR", m_former); }
    Q_DISABLE_COPY_MOVE(ZLRuntimeFolderInMemory)

    [[nodiscard]] QString path() const { return m_folder.path(); }
    /// False on a system without a file system in memory.
    [[nodiscard]] static bool isInMemory() { return !ZLRuntimeFolder::pathInMemory().isEmpty(); }

private:
    const QByteArray m_former = qgetenv("XDG_RUNTIME_DIR");
    const QTemporaryDir m_folder { QStringLiteral("/dev/shm/zelta-test-XXXXXX") };
};
