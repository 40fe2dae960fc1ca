#pragma once

#include "document/saving/ZLOpenFileNote.h"
#include "platform/ZLFileLock.h"

#include <QString>

#include <memory>

/// Tells others that a file is open here, and tells us where else it is, by a hidden lock file beside it that names the
/// machine and the process. It forbids nothing: what both write is told apart before it is overwritten.
class ZLDocumentLock {
public:
    /// Takes the lock unless another process has it. That of a process of this machine that died is taken over; whether
    /// one of another machine lives cannot be known. Where no lock file can be made, as in a folder without the right
    /// to write, there is none.
    explicit ZLDocumentLock(const QString& documentPath);

    /// "studio-2, process 1234"; empty when the file is not open elsewhere.
    [[nodiscard]] const QString& otherHolder() const { return m_otherHolder; }
    /// That it is open here, with or without a lock file.
    [[nodiscard]] const ZLOpenFileNote& note() const { return m_note; }
    [[nodiscard]] static QString lockPath(const QString& documentPath);

private:
    ZLOpenFileNote m_note;
    std::unique_ptr<ZLFileLock> m_lock;
    QString m_otherHolder;
};
