#pragma once

#include "document/saving/ZLDocumentHistory.h"
#include "document/saving/ZLDocumentLock.h"
#include "document/saving/ZLRecoveryFolder.h"
#include "document/saving/ZLSilentDisk.h"
#include "platform/ZLDiskWork.h"

#include <QDateTime>
#include <QObject>

#include <memory>
#include <optional>

/// Where one document is kept: in the user's file, with a lock on it, or while it has none in a file of the recovery
/// folder. Its journal and its former states lie in that folder too.
class ZLDocumentPlace : public QObject {
    Q_OBJECT

public:
    /// Without `path` the document is untitled. `recoveryFile` is what the document holds in `folder` already; it may
    /// be null. `folder` has to outlive the place.
    ZLDocumentPlace(const ZLRecoveryFolder& folder, const QString& path, std::unique_ptr<ZLRecoveryFile> recoveryFile);

    [[nodiscard]] bool isUntitled() const { return m_path.isEmpty(); }
    /// The user's file; empty for an untitled document.
    [[nodiscard]] const QString& path() const { return m_path; }
    /// The file of an untitled document; empty for any other, and while there is nothing to keep.
    [[nodiscard]] QString recoveryPath() const;
    /// Where a show that is being recorded keeps what is heard of it; empty while the document holds nothing in the
    /// recovery folder.
    [[nodiscard]] QString listeningPath() const;
    /// What a message about the disk names: the user's file, for an untitled document the recovery folder.
    [[nodiscard]] const QString& nameForMessages() const { return isUntitled() ? m_folder.path() : m_path; }
    [[nodiscard]] const QString& recoveryFolderPath() const { return m_folder.path(); }
    /// Since when the document's file is as it is; never later than `now`, and `now` where there is no file.
    [[nodiscard]] QDateTime timeOfFile(const QDateTime& now) const;

    /// Who else has the user's file open; empty when it is not open elsewhere.
    [[nodiscard]] QString otherHolder() const { return m_lock ? m_lock->otherHolder() : QString(); }
    /// That the user's file is open here; null for an untitled document.
    [[nodiscard]] const ZLOpenFileNote* openFileNote() const { return m_lock ? &m_lock->note() : nullptr; }

    /// Null while the document holds nothing in the recovery folder.
    [[nodiscard]] const ZLRecoveryFile* recoveryFile() const { return m_recoveryFile.get(); }
    /// Gives the document a new name in the recovery folder, in place of the one that it has.
    ZLStatus takeRecoveryFile();
    /// Deletes what the document holds in the recovery folder, except its former states.
    void removeRecoveryFile();
    void removeJournal();

    /// The former states; absent for an untitled document that was never kept.
    [[nodiscard]] const std::optional<ZLDocumentHistory>& history() const { return m_history; }
    /// Forgets the former states of an untitled document; those of a file stay.
    void forgetUntitledHistory();

    /// Makes `path` the user's file. The former states go along, beside the main thread.
    void moveTo(const QString& path);
    /// Waits until `deadline` for the former states to be there.
    void settle(QDeadlineTimer deadline) { m_historyMove.settle(deadline); }

    /// The absolute form of `path`, with ".zelta" at the end unless it ends so, in capitals or not.
    [[nodiscard]] static QString pathWithExtension(const QString& path);

Q_SIGNALS:
    /// recoveryPath() is another.
    void recoveryPathDidChange();

private:
    void followLocation();
    void moveHistory(const ZLDocumentHistory& from, const ZLDocumentHistory& to);

    const ZLRecoveryFolder& m_folder;
    QString m_path;
    std::unique_ptr<ZLRecoveryFile> m_recoveryFile;
    std::unique_ptr<ZLDocumentLock> m_lock;
    std::optional<ZLDocumentHistory> m_history;
    ZLDiskWork m_historyMove { std::chrono::milliseconds(ZLSilentDisk::CommandPatience) };
};
