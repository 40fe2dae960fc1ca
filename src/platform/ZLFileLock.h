#pragma once

#include "platform/ZLResult.h"

#include <QString>

#include <memory>

/// A lock that one process at a time holds by means of a file. The kernel drops it when its process ends in whatever
/// way, so a lock of a dead process hinders no other one. Two locks on one file exclude each other in one process
/// too.
class ZLFileLock {
public:
    /// The lock on `path`, whose file is made when it is missing and removed when the lock is given up. A null pointer
    /// when another holder has it; an error when the file cannot be made, and when something else stands there: a
    /// link, a pipe, a device or a folder.
    [[nodiscard]] static ZLResult<std::unique_ptr<ZLFileLock>> tryLock(const QString& path);
    /// Whether the lock on `path` is held at this moment. Makes no file.
    [[nodiscard]] static bool isHeld(const QString& path);
    ~ZLFileLock();
    Q_DISABLE_COPY_MOVE(ZLFileLock)

    /// Puts `bytes` into the file, for others to read. That it fails is no matter for the lock.
    void write(const QByteArray& bytes) const;

private:
    ZLFileLock(const QByteArray& nativePath, int descriptor)
        : m_nativePath(nativePath)
        , m_descriptor(descriptor)
    {
    }

    QByteArray m_nativePath;
    int m_descriptor;
};
