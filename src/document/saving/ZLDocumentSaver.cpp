#include "document/saving/ZLDocumentSaver.h"

#include "document/saving/ZLTheirVersion.h"
#include "document/saving/ZLWriteProtection.h"

#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>

#include <utility>

namespace {

Q_LOGGING_CATEGORY(documentSaveLog, "zelta.document.save", QtInfoMsg)

}

ZLDocumentSaver::ZLDocumentSaver(ZLChapterDocument& document, const ZLRecoveryFolder& recoveryFolder,
    ZLSavingMachinery machinery, std::unique_ptr<ZLRecoveryFile> recoveryFile, const QString& path)
    : m_document(document)
    , m_machinery(std::move(machinery))
    , m_place(recoveryFolder, path, std::move(recoveryFile))
    , m_states(m_machinery.clock)
    , m_reverting(document, m_states)
    , m_writer(m_machinery.writeFile, m_machinery.executor)
    , m_diskWatch(
          m_machinery.clock, [this] { return m_journaling.progress(); }, [this] { return m_writer.progress(); })
    , m_journaling(document, m_place, m_knownFile, m_diskWatch, m_machinery.journalDisk)
{
    followParts();
    followDocument();
}

ZLDocumentSaver::ZLDocumentSaver(ZLChapterDocument& document, const ZLRecoveryFolder& recoveryFolder,
    ZLSavingMachinery machinery, const QString& path, const QByteArray& fileBytes)
    : ZLDocumentSaver(document, recoveryFolder, std::move(machinery), nullptr, path)
{
    if (isUntitled())
        return;
    const QByteArray bytes = m_document.dataOfType();
    m_knownFile =
        ZLKnownFile(bytes, fileBytes.isEmpty() ? bytes : fileBytes, m_place.timeOfFile(m_document.wallClockTime()));
    m_reverting.setPoint(bytes);
    m_journaling.setBase(bytes);
}

ZLDocumentSaver::ZLDocumentSaver(ZLChapterDocument& document, const ZLRecoveryFolder& recoveryFolder,
    ZLSavingMachinery machinery, std::unique_ptr<ZLRecoveryFile> recoveryFile)
    : ZLDocumentSaver(document, recoveryFolder, std::move(machinery), std::move(recoveryFile), QString())
{
    const QByteArray bytes = m_document.dataOfType();
    m_knownFile = ZLKnownFile(bytes, bytes, m_place.timeOfFile(m_document.wallClockTime()));
    m_journaling.setBase(bytes);
    m_document.setDocumentEdited(hasContent());
}

ZLDocumentSaver::ZLDocumentSaver(ZLChapterDocument& document, const ZLRecoveryFolder& recoveryFolder,
    ZLSavingMachinery machinery, std::unique_ptr<ZLRecoveryFile> recoveryFile, const ZLJournaledDocument& journal,
    const ZLFoundFile& file)
    : ZLDocumentSaver(document, recoveryFolder, std::move(machinery), std::move(recoveryFile), journal.filePath)
{
    if (file.finding == ZLFileFinding::Read)
        m_knownFile = ZLKnownFile(file.bytes, file.bytes, m_place.timeOfFile(m_document.wallClockTime()));
    else
        m_knownFile = ZLKnownFile(journal.fileDigests);
    m_reverting.setPoint(file.bytes);
    m_journaling.begin();
    m_document.setDocumentEdited(true);
    noteChange();
}

ZLDocumentSaver::~ZLDocumentSaver()
{
    end(QDeadlineTimer(ZLSilentDisk::CommandPatience));
}

void ZLDocumentSaver::end(QDeadlineTimer deadline)
{
    if (std::exchange(m_hasEnded, true))
        return;
    m_document.removeChangeRecorder(*this);
    m_writer.disconnect(this);
    (void)m_writer.settle(deadline);
    m_writer.abandon();
    if (m_journaling.end(deadline) && !isJournalStillNeeded())
        m_place.removeJournal();
    // An untitled document of which nothing is kept does not come back.
    if (!m_place.recoveryFile())
        m_place.forgetUntitledHistory();
}

bool ZLDocumentSaver::hasContent() const
{
    return m_document.isRecording() || m_document.currentDuration() != 0.0 || m_document.chapterManager().count() > 0
        || m_document.templateViewController().chapterManager().count() > 0;
}

bool ZLDocumentSaver::isTransient() const
{
    const ZLUndoManager& undoManager = m_document.undoManager();
    return isUntitled() && !hasContent() && !m_document.isWaitingForBeep() && !undoManager.canUndo()
        && !undoManager.canRedo();
}

void ZLDocumentSaver::followParts()
{
    connect(&m_place, &ZLDocumentPlace::recoveryPathDidChange, this, &ZLDocumentSaver::locationDidChange);
    connect(&m_schedule, &ZLWriteSchedule::writeIsDue, this, &ZLDocumentSaver::writeNewestState);
    connect(&m_journaling, &ZLJournaling::retryIsDue, this, &ZLDocumentSaver::retryJournal);
    connect(&m_journaling, &ZLJournaling::failureTextDidChange, this, &ZLDocumentSaver::stateDidChange);
    connect(&m_writer, &ZLDocumentWriter::didWrite, this, &ZLDocumentSaver::noteOutcome);
    connect(&m_writer, &ZLDocumentWriter::didFinishByItself, this, [this] {
        if (!m_schedule.isEverythingWritten() && !plannedDelay())
            writeNewestState();
    });
    connect(&m_diskWatch, &ZLDiskWatch::didChange, this, &ZLDocumentSaver::followDiskWatch);
}

void ZLDocumentSaver::followDocument()
{
    m_document.addChangeRecorder(*this);
    m_schedule.followClock(m_document.isRecording());
}

void ZLDocumentSaver::recordChange(const ZLDocumentChange& change)
{
    if (change.concerns(ZLDocumentChange::Recording))
        m_schedule.followClock(m_document.isRecording());
    if (change.concerns(ZLDocumentChange::Contents))
        noteChange();
    else if (change.concerns(ZLDocumentChange::concerningControllers))
        journalNow();
}

bool ZLDocumentSaver::isJournalWanted() const
{
    return !m_isDiscarded && (!isUntitled() || hasContent());
}

bool ZLDocumentSaver::isJournalStillNeeded() const
{
    const bool isSaved = m_state == ZLSavingState::Saved && m_schedule.isEverythingWritten();
    return !m_isDiscarded && (!isSaved || m_document.isRecording() || m_document.interruptedRecording());
}

void ZLDocumentSaver::journalNow()
{
    if (isJournalWanted())
        m_journaling.note();
}

void ZLDocumentSaver::retryJournal()
{
    if (isJournalWanted())
        m_journaling.retry();
}

void ZLDocumentSaver::noteChange()
{
    m_schedule.noteChange();
    if (m_isDiscarded)
        return;
    journalNow();
    if (m_state != ZLSavingState::Conflict)
        planWrite();
    if (m_state == ZLSavingState::Saved)
        setState(ZLSavingState::Waiting);
}

void ZLDocumentSaver::planWrite()
{
    using Haste = ZLWriteSchedule::Haste;
    m_schedule.plan(m_journaling.isBehind() ? Haste::AtOnce : Haste::None);
}

ZLStatus ZLDocumentSaver::saveNow(QDeadlineTimer deadline)
{
    if (m_isDiscarded)
        return ZLDone {};
    if (!m_writer.settle(deadline))
        return noteHangingFile();
    m_schedule.dropPlannedWrite();
    if (m_state == ZLSavingState::Conflict)
        return ZLError { m_failureText };
    if (keepNothingOfEmptyDocument())
        return ZLDone {};
    auto made = makeOrder();
    if (!made)
        return noteFailure(made.error());
    ZLWriteOrder order = std::move(made).value();
    // Made here, since the deadline is for the disk alone.
    order.bytes = order.snapshot->encoded();
    order.snapshot.reset();
    const auto outcome = m_writer.write(std::move(order), deadline);
    return outcome ? outcome->status : noteHangingFile();
}

void ZLDocumentSaver::writeNewestState()
{
    // The end of a write under way looks for newer changes itself.
    if (m_isDiscarded || m_writer.isUnderWay() || m_state == ZLSavingState::Conflict)
        return;
    m_schedule.dropPlannedWrite();
    if (keepNothingOfEmptyDocument())
        return;
    auto order = makeOrder();
    if (!order) {
        noteFailure(order.error());
    } else {
        if (m_state != ZLSavingState::Failed)
            setState(ZLSavingState::Saving);
        m_writer.start(std::move(order).value());
        m_diskWatch.begin();
    }
}

ZLResult<ZLWriteOrder> ZLDocumentSaver::makeOrder()
{
    retryJournal();
    // Else the journal, which is believed more, would lag behind the file.
    m_journaling.noteReading();
    ZLWriteOrder order { .path = path(),
        .snapshot = m_document.snapshot(),
        .present = m_knownFile.bytes(),
        .replaceable = m_knownFile.versions(),
        .journal = m_journaling.file(),
        .stateKeeper = m_stateKeeper,
        .revision = m_schedule.revision() };
    if (isUntitled()) {
        if (const ZLStatus ensured = m_journaling.ensureRecoveryFile(); !ensured)
            return ensured.error();
        order.path = recoveryPath();
        order.isForOwnerOnly = true;
        // Another program has no business there.
        order.replaceable.reset();
    }
    // The reading of a clock that runs on is no change worth going back before.
    if (!m_schedule.isEverythingWritten())
        order.formerState = m_states.stateToKeep(m_place.history(), m_knownFile);
    return order;
}

bool ZLDocumentSaver::keepNothingOfEmptyDocument()
{
    if (!isUntitled() || hasContent())
        return false;
    m_journaling.removeRecoveryFile();
    m_knownFile = {};
    noteEverythingIsSaved();
    return true;
}

QDeadlineTimer ZLDocumentSaver::commandDeadline() const
{
    return m_diskWatch.isFileHanging() ? QDeadlineTimer() : QDeadlineTimer(ZLSilentDisk::CommandPatience);
}

ZLStatus ZLDocumentSaver::save()
{
    if (isUntitled())
        return ZLError { tr("“%1” is not in a file yet.").arg(m_document.displayName()) };
    // The user's word counts also when another program took the file away.
    if (!QFile::exists(path()) || m_knownFile.lacksIdentifiers())
        m_knownFile.forgetBytes();
    const ZLStatus saved = saveNow();
    if (saved)
        m_reverting.setPoint(m_knownFile.bytes());
    return saved;
}

ZLStatus ZLDocumentSaver::saveAs(const QString& path)
{
    const ZLWriteOrder order { .path = ZLDocumentPlace::pathWithExtension(path),
        .bytes = m_document.dataOfType(),
        .revision = m_schedule.revision() };
    if (!m_writer.settle(commandDeadline()) && order.path == m_place.path())
        return noteHangingFile();
    if (const ZLStatus allowed = ZLWriteProtection::check(order.path, m_place.openFileNote()); !allowed)
        return allowed;
    ZLDocumentWriter targetWriter(m_machinery.writeFile);
    const auto written = targetWriter.write(order, QDeadlineTimer(ZLSilentDisk::CommandPatience));
    if (written && *written) {
        moveTo(order, *written);
        return ZLDone {};
    }
    if (!m_schedule.isEverythingWritten() && !plannedDelay() && !m_writer.isUnderWay())
        planWrite();
    return written ? written->status : ZLStatus(ZLSilentDisk::error(order.path));
}

void ZLDocumentSaver::moveTo(const ZLWriteOrder& order, const ZLWriteOutcome& outcome)
{
    qCDebug(documentSaveLog) << "document moves to" << order.path;
    // What hangs where the document was has nothing to do with it any more.
    m_writer.abandon();
    m_schedule.dropPlannedWrite();
    m_place.moveTo(order.path);
    m_journaling.removeRecoveryFile();
    m_reverting.setPoint(order.bytes);
    m_journaling.setBase(order.bytes);
    m_knownFile.noteWritten(order.bytes, outcome.digest, m_document.wallClockTime());
    noteWritten(order.revision);
    journalNow();
    m_document.setDisplayName(QFileInfo(order.path).fileName());
    Q_EMIT locationDidChange();
}

QList<ZLDocumentState> ZLDocumentSaver::formerStates() const
{
    return m_place.history() ? m_place.history()->states() : QList<ZLDocumentState>();
}

ZLStatus ZLDocumentSaver::keepMine()
{
    if (m_state != ZLSavingState::Conflict)
        return ZLDone {};
    m_knownFile = ZLTheirVersion::toBeReplaced(path(), m_place.timeOfFile(m_document.wallClockTime()));
    // What is overwritten on purpose is a state to go back to all the same.
    m_states.makeDue();
    setState(ZLSavingState::Waiting);
    return saveNow();
}

ZLStatus ZLDocumentSaver::takeTheirs()
{
    if (m_state != ZLSavingState::Conflict)
        return ZLDone {};
    const auto theirs = ZLTheirVersion::read(path());
    if (!theirs)
        return theirs.error();
    (void)m_place.history()->keep(m_document.dataOfType(), m_document.wallClockTime(), theirs.value().bytes());
    m_knownFile = theirs.value().asKnownFile();
    setState(ZLSavingState::Waiting);
    m_document.adoptContents(theirs.value().contents());
    // Theirs as this program writes it, so that it is seen whether there is anything to go back to. The time of a clock
    // that runs is none of theirs.
    m_reverting.setPoint(m_document.isRecording() ? theirs.value().bytes() : m_document.dataOfType());
    return ZLDone {};
}

ZLStatus ZLDocumentSaver::keepBoth()
{
    return saveAs(ZLTheirVersion::freePathBeside(path()));
}

void ZLDocumentSaver::discard()
{
    if (!m_writer.settle(commandDeadline()))
        m_writer.abandon();
    m_schedule.stop();
    m_isDiscarded = true;
    m_journaling.removeRecoveryFile();
    m_place.forgetUntitledHistory();
}

ZLError ZLDocumentSaver::noteHangingFile()
{
    m_diskWatch.begin();
    return tellHangingFile();
}

ZLError ZLDocumentSaver::tellHangingFile()
{
    const ZLError error = ZLSilentDisk::error(m_place.nameForMessages());
    m_document.setDocumentEdited(true);
    setState(ZLSavingState::Failed, error.message);
    return error;
}

void ZLDocumentSaver::followDiskWatch()
{
    if (m_diskWatch.isFileHanging())
        tellHangingFile();
    m_journaling.followDiskWatch();
}

void ZLDocumentSaver::noteOutcome(const ZLWriteOrder& order, const ZLWriteOutcome& outcome)
{
    m_states.noteOutcome(outcome.keeping);
    if (outcome.isUnchanged) {
        noteWritten(order.revision);
    } else if (outcome) {
        m_knownFile.noteWritten(outcome.bytes, outcome.digest, m_document.wallClockTime());
        noteWritten(order.revision);
    } else if (outcome.isConflict) {
        noteConflict(outcome.status.error());
    } else {
        noteFailure(outcome.status.error());
    }
}

void ZLDocumentSaver::noteWritten(quint64 revision)
{
    m_schedule.noteWritten(revision);
    if (m_schedule.isEverythingWritten())
        noteEverythingIsSaved();
    else
        setState(ZLSavingState::Waiting);
}

void ZLDocumentSaver::noteEverythingIsSaved()
{
    m_schedule.noteWritten(m_schedule.revision());
    // A document without a file of the user's counts as edited, however well it is kept.
    m_document.setDocumentEdited(isUntitled() && hasContent());
    setState(ZLSavingState::Saved);
}

ZLError ZLDocumentSaver::noteFailure(const ZLError& error)
{
    qCWarning(documentSaveLog) << "cannot write" << error.message;
    m_document.setDocumentEdited(true);
    m_schedule.planRetry();
    setState(ZLSavingState::Failed, error.message);
    return error;
}

void ZLDocumentSaver::noteConflict(const ZLError& error)
{
    qCWarning(documentSaveLog) << error.message;
    m_document.setDocumentEdited(true);
    m_schedule.dropPlannedWrite();
    setState(ZLSavingState::Conflict, error.message);
}

void ZLDocumentSaver::setState(ZLSavingState state, const QString& failureText)
{
    if (m_state == state && m_failureText == failureText)
        return;
    m_state = state;
    m_failureText = failureText;
    Q_EMIT stateDidChange();
}
