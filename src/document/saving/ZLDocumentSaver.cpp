#include "document/saving/ZLDocumentSaver.h"

#include "document/saving/ZLWriteProtection.h"

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
    , m_schedule(m_machinery.clock, this)
    , m_report(document, m_place, m_schedule)
    , m_diskWatch(
          m_machinery.clock, [this] { return m_journaling.progress(); }, [this] { return m_updating.progress(); })
    , m_journaling(document, m_place, m_knownFile, m_diskWatch, m_machinery.journalDisk)
    , m_orders(document, m_place, m_knownFile, m_states, m_journaling, m_schedule)
    , m_updating(m_orders, m_schedule, m_report, m_diskWatch, m_machinery.writeFile, m_machinery.executor)
    , m_decisions(document, m_place, m_knownFile, m_orders, m_reverting, m_report)
    , m_move(document, m_place, m_schedule, m_updating, m_machinery.writeFile,
          [this](const ZLMoveToFile::Destination& destination) { moveTo(destination); })
{
    followParts();
    followDocument();
}

ZLDocumentSaver::ZLDocumentSaver(
    ZLChapterDocument& document, const ZLRecoveryFolder& recoveryFolder, ZLSavingMachinery machinery)
    : ZLDocumentSaver(document, recoveryFolder, std::move(machinery), nullptr, QString())
{
}

ZLDocumentSaver::ZLDocumentSaver(ZLChapterDocument& document, const ZLRecoveryFolder& recoveryFolder,
    ZLSavingMachinery machinery, const QString& path, const ZLReadDocument& read)
    : ZLDocumentSaver(document, recoveryFolder, std::move(machinery), nullptr, path)
{
    m_knownFile = ZLKnownFile(read, m_place.timeOfFile(m_document.wallClockTime()));
    m_reverting.setPoint(read.state);
    m_journaling.setBase(read.bytes);
}

ZLDocumentSaver::ZLDocumentSaver(ZLChapterDocument& document, const ZLRecoveryFolder& recoveryFolder,
    ZLSavingMachinery machinery, std::unique_ptr<ZLRecoveryFile> recoveryFile, const ZLReadDocument& read)
    : ZLDocumentSaver(document, recoveryFolder, std::move(machinery), std::move(recoveryFile), QString())
{
    m_knownFile = ZLKnownFile(read, m_place.timeOfFile(m_document.wallClockTime()));
    m_journaling.setBase(read.bytes);
    m_document.setDocumentEdited(hasContent());
}

ZLDocumentSaver::ZLDocumentSaver(ZLChapterDocument& document, const ZLRecoveryFolder& recoveryFolder,
    ZLSavingMachinery machinery, std::unique_ptr<ZLRecoveryFile> recoveryFile, const ZLReadJournal& read)
    : ZLDocumentSaver(document, recoveryFolder, std::move(machinery), std::move(recoveryFile), read.journal.filePath)
{
    const QDateTime time = m_place.timeOfFile(m_document.wallClockTime());
    m_knownFile = read.file.finding == ZLFileFinding::Read ? ZLKnownFile(read.file.bytes, read.version, time)
                                                           : ZLKnownFile(read.journal.fileDigests);
    m_reverting.setPointIn(read.file.bytes);
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
    m_updating.end(deadline);
    if (m_journaling.end(deadline) && !isJournalStillNeeded())
        m_place.removeJournal();
    // An untitled document of which nothing is kept does not come back.
    if (!m_place.recoveryFile())
        m_place.forgetUntitledHistory();
}

void ZLDocumentSaver::followParts()
{
    connect(&m_place, &ZLDocumentPlace::recoveryPathDidChange, this, &ZLDocumentSaver::locationDidChange);
    connect(&m_report, &ZLSavingReport::didChange, this, &ZLDocumentSaver::stateDidChange);
    connect(&m_journaling, &ZLJournaling::retryIsDue, this, &ZLDocumentSaver::retryJournal);
    connect(&m_journaling, &ZLJournaling::failureTextDidChange, this, &ZLDocumentSaver::stateDidChange);
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

void ZLDocumentSaver::followDiskWatch()
{
    if (m_diskWatch.isFileHanging())
        m_report.noteHangingFile();
    m_journaling.followDiskWatch();
}

bool ZLDocumentSaver::isJournalStillNeeded() const
{
    const bool isSaved = state() == ZLSavingState::Saved && m_schedule.isEverythingWritten();
    return !m_updating.isStopped() && (!isSaved || m_document.isRecording() || m_document.interruptedRecording());
}

void ZLDocumentSaver::journalNow()
{
    if (!m_updating.isStopped())
        m_journaling.note();
}

void ZLDocumentSaver::retryJournal()
{
    if (!m_updating.isStopped())
        m_journaling.retry();
}

void ZLDocumentSaver::noteChange()
{
    m_schedule.noteChange();
    if (m_updating.isStopped())
        return;
    journalNow();
    if (!m_report.isConflict())
        planWrite();
    m_report.noteChange();
}

void ZLDocumentSaver::planWrite()
{
    using Haste = ZLWriteSchedule::Haste;
    m_schedule.plan(m_journaling.isBehind() ? Haste::AtOnce : Haste::None);
}

ZLStatus ZLDocumentSaver::saveNow(QDeadlineTimer deadline)
{
    settle(deadline);
    return m_updating.update(deadline);
}

void ZLDocumentSaver::settle(QDeadlineTimer deadline)
{
    m_decisions.settle(deadline);
    m_reverting.settle(deadline);
    m_move.settle(deadline);
    m_updating.settleRequests(deadline);
    m_place.settle(deadline);
}

void ZLDocumentSaver::save(ZLWhenDone whenDone)
{
    if (isUntitled()) {
        whenDone(ZLError { tr("“%1” is not in a file yet.").arg(m_document.displayName()) });
        return;
    }
    m_updating.request(
        [this, whenDone = std::move(whenDone)](const ZLStatus& saved, const ZLDocumentSnapshot* written) {
            if (written)
                m_reverting.setPoint(*written);
            whenDone(saved);
        });
}

void ZLDocumentSaver::trySaving(ZLWhenDone whenDone)
{
    m_updating.request([whenDone = std::move(whenDone)](
                           const ZLStatus& saved, const ZLDocumentSnapshot* /*written*/) { whenDone(saved); });
}

void ZLDocumentSaver::saveAs(const QString& path, ZLWhenDone whenDone)
{
    // One place after the other.
    m_move.settle(m_updating.commandDeadline());
    const QString target = ZLDocumentPlace::pathWithExtension(path);
    if (const ZLStatus allowed = ZLWriteProtection::check(target, m_place.openFileNote()); !allowed)
        whenDone(allowed);
    else
        m_move.start(target, std::move(whenDone));
}

void ZLDocumentSaver::moveTo(const ZLMoveToFile::Destination& destination)
{
    qCDebug(documentSaveLog) << "document moves to" << destination.path;
    // What hangs where the document was has nothing to do with it any more.
    m_updating.abandon();
    m_schedule.dropPlannedWrite();
    m_place.moveTo(destination.path);
    m_journaling.removeRecoveryFile();
    m_reverting.setPoint(destination.state);
    m_journaling.setBase(destination.bytes);
    m_knownFile.noteWritten(destination.bytes, destination.digest, m_document.wallClockTime());
    m_report.noteWritten(destination.revision);
    journalNow();
    m_document.setDisplayName(QFileInfo(destination.path).fileName());
    Q_EMIT locationDidChange();
}

void ZLDocumentSaver::keepMine(ZLWhenDone whenDone)
{
    if (!m_report.isConflict()) {
        whenDone(ZLDone {});
        return;
    }
    m_decisions.allowMine();
    trySaving(std::move(whenDone));
}

void ZLDocumentSaver::discard()
{
    m_updating.stop();
    m_journaling.removeRecoveryFile();
    m_place.forgetUntitledHistory();
}
