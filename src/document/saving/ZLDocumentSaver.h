#pragma once

#include "document/ZLChapterDocument.h"
#include "document/saving/ZLConflictDecisions.h"
#include "document/saving/ZLDiskWatch.h"
#include "document/saving/ZLDocumentPlace.h"
#include "document/saving/ZLFileUpdating.h"
#include "document/saving/ZLJournaling.h"
#include "document/saving/ZLKeepableContent.h"
#include "document/saving/ZLKnownFile.h"
#include "document/saving/ZLMoveToFile.h"
#include "document/saving/ZLReverting.h"
#include "document/saving/ZLSavingMachinery.h"
#include "document/saving/ZLSavingReport.h"
#include "document/saving/ZLSilentDisk.h"
#include "document/saving/ZLStateRhythm.h"
#include "document/saving/ZLWhenDone.h"
#include "document/saving/ZLWriteOrders.h"
#include "document/saving/ZLWriteSchedule.h"
#include "document/saving/opening/ZLReadDocument.h"
#include "document/saving/opening/ZLReadJournal.h"

#include <QDeadlineTimer>
#include <QObject>

#include <memory>
#include <optional>
#include <utility>

/// Keeps one document on the disk: in the user's file, or while it has none in a file of the recovery folder, which
/// stands exactly while there is something worth keeping. A worker makes the bytes from a snapshot and writes them, so
/// that neither a long document nor a slow disk delays anything. One write at a time; the newest state wins. What is
/// not in the file yet, or cannot be brought there, is in a journal in the recovery folder from the moment of its
/// change.
class ZLDocumentSaver : public QObject, private ZLChangeRecorder {
    Q_OBJECT

public:
    /// Looks after `document`, which is untitled and in no file. It has to outlive the saver, as has `recoveryFolder`.
    ZLDocumentSaver(ZLChapterDocument& document, const ZLRecoveryFolder& recoveryFolder, ZLSavingMachinery machinery);
    /// For a document that was just loaded from `read`, which stands at `path`.
    ZLDocumentSaver(ZLChapterDocument& document, const ZLRecoveryFolder& recoveryFolder, ZLSavingMachinery machinery,
        const QString& path, const ZLReadDocument& read);
    /// For an untitled document that was just loaded from `read`, which stands in `recoveryFile`.
    ZLDocumentSaver(ZLChapterDocument& document, const ZLRecoveryFolder& recoveryFolder, ZLSavingMachinery machinery,
        std::unique_ptr<ZLRecoveryFile> recoveryFile, const ZLReadDocument& read);
    /// For a document that was rebuilt from the journal of `recoveryFile`, and differs from its file.
    ZLDocumentSaver(ZLChapterDocument& document, const ZLRecoveryFolder& recoveryFolder, ZLSavingMachinery machinery,
        std::unique_ptr<ZLRecoveryFile> recoveryFile, const ZLReadJournal& read);
    /// Ends as end() does, with the patience of a command.
    ~ZLDocumentSaver() override;
    /// Waits until `deadline` for what is under way but starts nothing: saveNow() comes before. Only the destructor may
    /// follow.
    void end(QDeadlineTimer deadline);

    [[nodiscard]] bool isUntitled() const { return m_place.isUntitled(); }
    /// The user's file; empty for an untitled document.
    [[nodiscard]] const QString& path() const { return m_place.path(); }
    /// Who else has the user's file open; empty when it is not open elsewhere.
    [[nodiscard]] QString otherHolder() const { return m_place.otherHolder(); }
    /// Where an untitled document is kept; empty when it has nothing to keep or a file of the user's.
    [[nodiscard]] QString recoveryPath() const { return m_place.recoveryPath(); }
    /// Where what is heard of the show is kept while its clock runs; empty as long as the recovery folder has nothing
    /// of the document.
    [[nodiscard]] QString listeningPath() const { return m_place.listeningPath(); }
    /// Whether there is anything that would be missed.
    [[nodiscard]] bool hasContent() const { return ZLKeepableContent::isIn(m_document); }
    /// Whether the document may go without a word: it is untitled and empty, and nothing was ever done in it.
    [[nodiscard]] bool isTransient() const { return isUntitled() && !ZLKeepableContent::isOrMayBeIn(m_document); }

    [[nodiscard]] ZLSavingState state() const { return m_report.state(); }
    /// Which file could not be written and why, while the state is Failed or Conflict; else empty.
    [[nodiscard]] const QString& failureText() const { return m_report.failureText(); }
    /// Which recovery folder does not take the journal and why, so that a crash could take what is not in the file yet;
    /// empty while all is well. It is tried again and again.
    [[nodiscard]] const QString& recoveryFailureText() const { return m_journaling.failureText(); }
    /// Milliseconds by which the next write was put off; absent when none is planned.
    [[nodiscard]] std::optional<int> plannedDelay() const { return m_schedule.plannedDelay(); }

    /// Writes the newest state before it returns, a running clock with its reading. Success also when there was
    /// nothing to write. After a failure the saver goes on trying. A disk that does not answer before `deadline` is a
    /// failure; the write goes on, and as long as it does it is not waited for again.
    ZLStatus saveNow(QDeadlineTimer deadline);
    /// With the patience of a command.
    ZLStatus saveNow() { return saveNow(m_updating.commandDeadline()); }
    /// @name What a person asks for
    /// It is done beside the event loop, in the time that a command has, and told at its end.
    /// @{
    /// The user's own save of a titled document, which revert() goes back to. It also writes the UUIDs that chapters of
    /// the file lack, although nothing else is new.
    void save(ZLWhenDone whenDone);
    /// Makes `path` the document's file, see ZLDocumentPlace::pathWithExtension(), and writes it. The file of the
    /// recovery folder goes. A failure leaves everything as it was.
    void saveAs(const QString& path, ZLWhenDone whenDone);
    /// Writes the newest state, as saveNow() does.
    void trySaving(ZLWhenDone whenDone);
    /// Waits until `deadline` for all that was asked for. saveNow() does that first.
    void settle(QDeadlineTimer deadline);
    /// @}
    /// Whether the document is otherwise now than at the last save() or the opening. Never for an untitled one, nor
    /// while the clock runs.
    [[nodiscard]] bool canRevert() const { return m_reverting.canRevert(); }
    /// Goes back, undoably, to the last save() or the opening; does nothing where it is so already. Refused while the
    /// clock runs.
    ZLStatus revert() { return m_reverting.revert(); }
    /// Former states of the document; absent for an untitled one that was never kept. One is kept when changes take its
    /// place, a minute after the one before at the earliest.
    [[nodiscard]] const std::optional<ZLDocumentHistory>& history() const { return m_place.history(); }
    /// Goes back, undoably, to one of the history()'s states. Refused while the clock runs.
    void revertTo(const ZLDocumentState& state, ZLWhenDone whenDone)
    {
        m_reverting.revertTo(state, std::move(whenDone));
    }
    /// Makes the call when a kill cannot take back any more what the document is now: at once, or behind a long list.
    void whenHandedOver(std::function<void()> call) { m_journaling.whenHandedOver(std::move(call)); }
    /// @name What to do about a Conflict
    /// @{
    /// Writes over what the other program wrote.
    void keepMine(ZLWhenDone whenDone);
    /// Takes over what the other program wrote, as an undoable step; a running clock goes on.
    void takeTheirs(ZLWhenDone whenDone) { m_decisions.takeTheirs(std::move(whenDone)); }
    /// Leaves the file to the other program and goes on in a new one beside it.
    void keepBoth(ZLWhenDone whenDone) { saveAs(m_decisions.pathForBoth(), std::move(whenDone)); }
    /// @}
    /// Forgets what is kept of the document in the recovery folder and writes nothing any more.
    void discard();

public Q_SLOTS:
    /// What the timers do: starts writing the newest state unless it is on the disk already.
    void writeNewestState() { m_updating.begin(); }
    /// The same for a journal that cannot be written.
    void retryJournal();

Q_SIGNALS:
    /// The state or one of the failure texts is another.
    void stateDidChange();
    /// path() or recoveryPath() is another.
    void locationDidChange();

private:
    ZLDocumentSaver(ZLChapterDocument& document, const ZLRecoveryFolder& recoveryFolder, ZLSavingMachinery machinery,
        std::unique_ptr<ZLRecoveryFile> recoveryFile, const QString& path);
    void followParts();
    void followDocument();
    void followDiskWatch();
    [[nodiscard]] bool isJournalStillNeeded() const;
    void journalNow();
    void recordChange(const ZLDocumentChange& change) override;
    void noteChange();
    void planWrite();
    void moveTo(const ZLMoveToFile::Destination& destination);

    ZLChapterDocument& m_document;
    const ZLSavingMachinery m_machinery;
    ZLDocumentPlace m_place;
    ZLKnownFile m_knownFile;
    ZLStateRhythm m_states;
    ZLReverting m_reverting;
    ZLWriteSchedule m_schedule;
    ZLSavingReport m_report;
    ZLDiskWatch m_diskWatch;
    ZLJournaling m_journaling;
    ZLWriteOrders m_orders;
    ZLFileUpdating m_updating;
    ZLConflictDecisions m_decisions;
    ZLMoveToFile m_move;
    bool m_hasEnded = false;
};
