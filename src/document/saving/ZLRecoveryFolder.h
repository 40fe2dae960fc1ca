#pragma once

#include "platform/ZLFileLock.h"
#include "platform/ZLResult.h"

#include <QString>
#include <QStringList>

#include <memory>

/// A file in the recovery folder, held by this process alone for as long as the object lives.
class ZLRecoveryFile {
public:
    ZLRecoveryFile(const QString& path, std::unique_ptr<ZLFileLock> lock)
        : m_path(path)
        , m_lock(std::move(lock))
    {
    }

    [[nodiscard]] const QString& path() const { return m_path; }
    [[nodiscard]] QString journalPath() const { return m_path + JournalSuffix; }
    /// Where a show that is being recorded keeps what was heard of it.
    [[nodiscard]] QString listeningPath() const { return m_path + ListeningSuffix; }
    /// Whether the file's lock is still there. It is not when the whole folder was deleted.
    [[nodiscard]] bool isStillHeld() const;
    /// Deletes the file and what lies beside it; nothing happens when there is none.
    void remove();
    /// Deletes what lies beside the file.
    void removeJournal();

    static inline const QString JournalSuffix = QStringLiteral(".journal");
    static inline const QString ListeningSuffix = QStringLiteral(".listening");

private:
    QString m_path;
    std::unique_ptr<ZLFileLock> m_lock;
};

/// Keeps the documents that have no file of the user's, so that they are back at the next start. Several processes may
/// use one folder: what one of them holds is closed to the others, and free again when it ends in whatever way.
class ZLRecoveryFolder {
public:
    explicit ZLRecoveryFolder(const QString& path)
        : m_path(path)
    {
    }

    [[nodiscard]] const QString& path() const { return m_path; }

    /// Makes the folder, open to its user alone, unless it stands already.
    [[nodiscard]] ZLStatus prepare() const;
    /// Reserves a new name. The file itself comes with the first write.
    [[nodiscard]] ZLResult<std::unique_ptr<ZLRecoveryFile>> createFile() const;
    /// Paths of all documents in the folder, held or not, oldest first.
    [[nodiscard]] QStringList files() const;
    /// Paths that have a journal, whether or not there is a file, held or not, oldest first.
    [[nodiscard]] QStringList journaledFiles() const;
    /// Takes a file or its journal over; a null pointer when another holder has it, or when both are gone.
    [[nodiscard]] ZLResult<std::unique_ptr<ZLRecoveryFile>> claim(const QString& path) const;
    /// Deletes what was heard of shows that have neither a file nor a journal any more, so that nothing says whose it
    /// was. What a holder still has stays.
    void removeLeftListening() const;

private:
    QString m_path;
};
