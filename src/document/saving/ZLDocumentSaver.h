#pragma once

#include "document/ZLChapterDocument.h"
#include "document/saving/ZLDiskWatch.h"
#include "document/saving/ZLDocumentJournal.h"
#include "document/saving/ZLDocumentLock.h"
#include "document/saving/ZLDocumentWriter.h"
#include "document/saving/ZLRecoveryFolder.h"
#include "platform/ZLAtomicFile.h"
#include "platform/ZLHostClock.h"

#include <QDeadlineTimer>
#include <QObject>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>

enum class ZLSavingState {
    Saved, ///< Everything is on the disk, or there is nothing to keep.
    Waiting, ///< There are changes; they are written within a second.
    Saving, ///< A write is under way.
    Failed, ///< The last write failed and is tried again and again, or it hangs. See failureText().
    Conflict, ///< Another program changed the user's file: nothing is written until somebody decides.
};

/// What a saver works with; tests replace what they want to control.
struct ZLSavingMachinery {
    ZLFileWriter writeFile = ZLAtomicFile::write;
    ZLJournalDisk journalDisk {};
    /// Carries a write out beside the event loop, in the order of the calls; when empty, a thread of the saver's own.
    std::function<void(std::function<void()>)> executor;
    std::shared_ptr<const ZLHostClock> clock = std::make_shared<ZLSteadyHostClock>();
};

/// Keeps one document on the disk: in the user's file, or while it has none in a file of the recovery folder, which
/// stands exactly while there is something worth keeping. The bytes are made on the main thread, which is quick; a
/// worker writes them, so that a slow disk delays nothing. One write at a time; the newest state wins. What is not in
/// the file yet, or cannot be brought there, is in a journal in the recovery folder from the moment of its change.
class ZLDocumentSaver : public QObject {
    Q_OBJECT

public:
    /// @name Milliseconds
    /// @{
    static constexpr int QuietTime = 250; ///< From a change to its write.
    static constexpr int LongestWait = 750; ///< The same under a steady stream of changes.
    static constexpr int RetryInterval = 2000;
    static constexpr int ReadingInterval = 5000; ///< How often the reading of a running clock is stored.
    static constexpr int StateInterval = 60'000; ///< At least between two states that are kept.
    static constexpr int CommandPatience = 3000; ///< How long a command waits for a disk that does not answer.
    static constexpr int EndPatience = 5000; ///< The same at the end of the program.
    /// @}

    /// Looks after `document`, which holds what is on the disk at this moment and has to outlive the saver, as has
    /// `recoveryFolder`. Without `path` the document is untitled. `fileBytes` is what was read from there; when empty,
    /// the document's own bytes.
    ZLDocumentSaver(ZLChapterDocument& document, const ZLRecoveryFolder& recoveryFolder, ZLSavingMachinery machinery,
        const QString& path = {}, const QByteArray& fileBytes = {});
    /// For an untitled document that was just read from `recoveryFile`.
    ZLDocumentSaver(ZLChapterDocument& document, const ZLRecoveryFolder& recoveryFolder, ZLSavingMachinery machinery,
        std::unique_ptr<ZLRecoveryFile> recoveryFile);
    /// For a document that was rebuilt from the journal of `recoveryFile` and differs from its file at `path`, which
    /// holds `fileBytes`, if it can be read.
    ZLDocumentSaver(ZLChapterDocument& document, const ZLRecoveryFolder& recoveryFolder, ZLSavingMachinery machinery,
        std::unique_ptr<ZLRecoveryFile> recoveryFile, const QString& path, const QByteArray& fileBytes);
    /// Ends as end() does, with the patience of a command.
    ~ZLDocumentSaver() override;
    /// Waits until `deadline` for what is under way but starts nothing: whoever ends a document calls saveNow() before.
    /// Only the destructor may follow.
    void end(QDeadlineTimer deadline);

    [[nodiscard]] bool isUntitled() const { return m_path.isEmpty(); }
    /// The user's file; empty for an untitled document.
    [[nodiscard]] const QString& path() const { return m_path; }
    /// Who else has the user's file open; empty for nobody.
    [[nodiscard]] QString otherHolder() const { return m_lock ? m_lock->otherHolder() : QString(); }
    /// Where an untitled document is kept; empty when it has nothing to keep or a file of the user's.
    [[nodiscard]] QString recoveryPath() const;
    /// Whether there is anything that would be missed.
    [[nodiscard]] bool hasContent() const;
    /// Whether nobody would miss the document: untitled, empty, and nothing was ever done in it.
    [[nodiscard]] bool isTransient() const;

    [[nodiscard]] ZLSavingState state() const { return m_state; }
    /// Which file could not be written and why, while the state is Failed or Conflict; else empty.
    [[nodiscard]] const QString& failureText() const { return m_failureText; }
    /// Which recovery folder does not take the journal and why, so that a crash could take what is not in the file yet;
    /// empty while all is well. It is tried again and again.
    [[nodiscard]] const QString& recoveryFailureText() const { return m_recoveryFailureText; }
    /// Milliseconds by which the next write was put off; absent when none is planned.
    [[nodiscard]] std::optional<int> plannedDelay() const;

    /// Writes the newest state before it returns, a running clock with its reading. Success also when there was
    /// nothing to write. After a failure the saver goes on trying. A disk that does not answer before `deadline` is a
    /// failure; the write goes on, and as long as it does nobody waits for it again.
    ZLStatus saveNow(QDeadlineTimer deadline);
    /// With the patience of a command.
    ZLStatus saveNow() { return saveNow(commandDeadline()); }
    /// The user's own save of a titled document, which revert() goes back to. It also writes the UUIDs that chapters of
    /// the file lack, although nothing else is new.
    ZLStatus save();
    /// Makes `path` the document's file, see pathWithExtension(), and writes it. The file of the recovery folder goes.
    /// A failure leaves everything as it was.
    ZLStatus saveAs(const QString& path);
    /// Whether the document is otherwise now than at the last save() or the opening. Never for an untitled one, nor
    /// while the clock runs.
    [[nodiscard]] bool canRevert();
    /// Goes back, undoably, to the last save() or the opening; does nothing where it is so already. Refused while the
    /// clock runs.
    ZLStatus revert();
    /// Former states of the document, newest first. One is kept when changes take its place, a minute after the one
    /// before at the earliest.
    [[nodiscard]] QList<ZLDocumentState> formerStates() const;
    /// Goes back, undoably, to one of formerStates(). Refused while the clock runs.
    ZLStatus revertTo(const ZLDocumentState& state);
    /// @name What to do about a Conflict
    /// @{
    /// Writes over what the other program wrote.
    ZLStatus keepMine();
    /// Takes over what the other program wrote, as an undoable step; a running clock goes on.
    ZLStatus takeTheirs();
    /// Leaves the file to the other program and goes on in a new one beside it, whose path is returned.
    ZLResult<QString> keepBoth();
    /// @}
    /// Forgets what is kept of the document in the recovery folder and writes nothing any more.
    void discard();

    /// The absolute form of `path`, with ".zelta" at the end unless it ends so, in capitals or not.
    [[nodiscard]] static QString pathWithExtension(const QString& path);

public Q_SLOTS:
    /// What the timers do: starts writing the newest state unless it is on the disk already.
    void writeNewestState();
    /// The same for a journal that cannot be written.
    void retryJournal();

Q_SIGNALS:
    /// The state or one of the failure texts is another.
    void stateDidChange();
    /// path() or recoveryPath() is another.
    void locationDidChange();

private:
    void watchDocument();
    void journalNow();
    [[nodiscard]] bool isJournalDue();
    void beginJournal();
    [[nodiscard]] QString journalFailure() const;
    void noteRecoveryFailure(const QString& text);
    void noteChange();
    void planWrite();
    void dropPlannedWrite();
    void followClock();
    [[nodiscard]] QByteArray currentBytes() { return m_document.dataOfType(); }
    [[nodiscard]] ZLResult<ZLWriteOrder> makeOrder();
    [[nodiscard]] std::optional<ZLFormerState> stateToKeep() const;
    [[nodiscard]] bool isOnDisk(const ZLWriteOrder& order) const;
    [[nodiscard]] ZLStatus ensureRecoveryFile();
    void removeRecoveryFile();
    void followLocation();
    [[nodiscard]] QDateTime timeOfFile(const QString& path) const;
    void startBackgroundWrite(ZLWriteOrder order);
    [[nodiscard]] bool settleWrite(QDeadlineTimer deadline);
    [[nodiscard]] QDeadlineTimer commandDeadline() const;
    [[nodiscard]] QDeadlineTimer journalDeadline() const;
    [[nodiscard]] static ZLError silentDisk(const QString& path);
    ZLStatus noteHangingFile();
    ZLError tellHangingFile();
    void noteHangingDisks();
    void followWriter();
    void noteOutcome(const ZLWriteOrder& order, const ZLWriteOutcome& outcome);
    [[nodiscard]] bool keepNothingOfEmptyDocument();
    void noteSuccess(const ZLWriteOrder& order, const QByteArray& digest);
    void noteEverythingIsSaved();
    void noteFailure(const ZLError& error);
    void noteConflict(const ZLError& error);
    [[nodiscard]] bool isJournalStillNeeded() const;
    void setState(ZLSavingState state, const QString& failureText = {});

    ZLChapterDocument& m_document;
    const ZLRecoveryFolder& m_recoveryFolder;
    ZLSavingMachinery m_machinery;
    QTimer m_writeTimer;
    QTimer m_readingTimer { this };
    QTimer m_journalTimer { this };

    QString m_path;
    /// Where the journal is, and beside it the file of an untitled document.
    std::unique_ptr<ZLRecoveryFile> m_recoveryFile;
    ZLDocumentJournal m_journal;
    /// On the user's file; null for an untitled document.
    std::unique_ptr<ZLDocumentLock> m_lock;
    /// Of what the document's file holds, as far as this program knows; empty when it holds nothing.
    QByteArray m_fileDigest;
    ZLDocumentWriter m_writer;
    ZLDiskWatch m_diskWatch;
    const std::shared_ptr<ZLStateKeeper> m_stateKeeper = std::make_shared<ZLStateKeeper>();
    QByteArray m_bytesOnDisk;
    /// What was read when the document was opened, until it is written for the first time.
    QByteArray m_openedBytes;
    /// Since when they are there.
    QDateTime m_timeOfBytes;
    /// Absent as long as there is nothing to have been otherwise before.
    std::optional<ZLDocumentHistory> m_history;
    /// Seconds of the clock; absent when the next change is worth a state however soon it comes.
    std::optional<double> m_lastStateKept;
    QByteArray m_revertBytes;
    std::optional<double> m_firstUnsavedChange;
    quint64 m_revision = 0;
    quint64 m_savedRevision = 0;
    ZLSavingState m_state = ZLSavingState::Saved;
    QString m_failureText;
    QString m_recoveryFailureText;
    /// Somebody waited in vain for the write that is under way.
    bool m_isWriteGivenUp = false;
    /// Something changed that only a journal would hold.
    bool m_isJournalDue = false;
    bool m_isDiscarded = false;
    bool m_hasEnded = false;
};
