#include "document/saving/ZLDocumentSaver.h"

#include <QFile>
#include <QLoggingCategory>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(documentWriteLog, "zelta.document.write", QtInfoMsg)

}

void ZLDocumentSaver::planWrite()
{
    const double now = m_machinery.clock->now();
    if (!m_firstUnsavedChange)
        m_firstUnsavedChange = now;
    const double waited = (now - *m_firstUnsavedChange) * 1000.0;
    const int quietTime = std::clamp(LongestWait - int(std::min(waited, double(LongestWait))), 0, QuietTime);
    // What no journal holds goes to the file at once.
    m_writeTimer.start(m_journal.isLagging() || !m_recoveryFailureText.isEmpty() ? 0 : quietTime);
}

void ZLDocumentSaver::dropPlannedWrite()
{
    m_writeTimer.stop();
    m_firstUnsavedChange.reset();
}

ZLResult<ZLWriteOrder> ZLDocumentSaver::makeOrder()
{
    ZLWriteOrder order { .path = m_path,
        .bytes = currentBytes(),
        .expectedDigest = m_fileDigest,
        .journal = m_journal.file(),
        .revision = m_revision };
    if (isUntitled()) {
        if (const ZLStatus ensured = ensureRecoveryFile(); !ensured)
            return ensured.error();
        order.path = m_recoveryFile->path();
        order.isForOwnerOnly = true;
        // Nobody else has any business there.
        order.expectedDigest.clear();
    }
    order.formerState = stateToKeep();
    order.stateKeeper = m_stateKeeper;
    return order;
}

std::optional<ZLFormerState> ZLDocumentSaver::stateToKeep() const
{
    const bool isDue = !m_lastStateKept || (m_machinery.clock->now() - *m_lastStateKept) * 1000.0 >= StateInterval;
    // The reading of a clock that runs on is no change worth going back before.
    if (!isDue || !m_history || m_bytesOnDisk.isEmpty() || m_revision == m_savedRevision)
        return std::nullopt;
    return ZLFormerState { .history = *m_history, .bytes = m_bytesOnDisk, .time = m_timeOfBytes };
}

bool ZLDocumentSaver::isOnDisk(const ZLWriteOrder& order) const
{
    return m_bytesOnDisk == order.bytes && (!isUntitled() || QFile::exists(order.path));
}

void ZLDocumentSaver::startBackgroundWrite(ZLWriteOrder order)
{
    qCDebug(documentWriteLog) << "writing" << order.bytes.size() << "bytes to" << order.path;
    if (m_state != ZLSavingState::Failed)
        setState(ZLSavingState::Saving);
    m_writer.start(std::move(order));
    m_diskWatch.begin();
}

void ZLDocumentSaver::followWriter()
{
    connect(&m_writer, &ZLDocumentWriter::didWrite, this, &ZLDocumentSaver::noteOutcome);
    connect(&m_writer, &ZLDocumentWriter::didFinishByItself, this, [this] {
        if (m_revision != m_savedRevision && !plannedDelay())
            writeNewestState();
    });
    connect(&m_diskWatch, &ZLDiskWatch::didChange, this, &ZLDocumentSaver::noteHangingDisks);
}

bool ZLDocumentSaver::settleWrite(QDeadlineTimer deadline)
{
    return m_writer.settle(m_isWriteGivenUp ? QDeadlineTimer() : deadline);
}

QDeadlineTimer ZLDocumentSaver::commandDeadline() const
{
    return m_diskWatch.isFileHanging() ? QDeadlineTimer() : QDeadlineTimer(CommandPatience);
}

QDeadlineTimer ZLDocumentSaver::journalDeadline() const
{
    return m_journal.isLagging() ? QDeadlineTimer() : QDeadlineTimer(CommandPatience);
}

ZLError ZLDocumentSaver::silentDisk(const QString& path)
{
    return ZLError { u"%1: %2"_s.arg(path, tr("The disk does not answer")) };
}

ZLStatus ZLDocumentSaver::noteHangingFile()
{
    m_isWriteGivenUp = true;
    m_diskWatch.begin();
    return tellHangingFile();
}

ZLError ZLDocumentSaver::tellHangingFile()
{
    const ZLError error = silentDisk(isUntitled() ? m_recoveryFolder.path() : m_path);
    m_document.setDocumentEdited(true);
    setState(ZLSavingState::Failed, error.message);
    return error;
}

void ZLDocumentSaver::noteHangingDisks()
{
    if (m_diskWatch.isFileHanging())
        tellHangingFile();
    if (m_journal.isBegun())
        noteRecoveryFailure(journalFailure());
}

void ZLDocumentSaver::noteOutcome(const ZLWriteOrder& order, const ZLWriteOutcome& outcome)
{
    m_isWriteGivenUp = false;
    // A full disk is not asked more often than one that takes the state.
    if (outcome.keeping != ZLStateKeeping::NothingNew)
        m_lastStateKept = m_machinery.clock->now();
    if (outcome)
        noteSuccess(order, outcome.digest);
    else if (outcome.isConflict)
        noteConflict(outcome.status.error());
    else
        noteFailure(outcome.status.error());
}

bool ZLDocumentSaver::keepNothingOfEmptyDocument()
{
    if (!isUntitled() || hasContent())
        return false;
    removeRecoveryFile();
    m_bytesOnDisk.clear();
    m_fileDigest.clear();
    noteEverythingIsSaved();
    return true;
}

void ZLDocumentSaver::noteSuccess(const ZLWriteOrder& order, const QByteArray& digest)
{
    if (m_bytesOnDisk != order.bytes) {
        m_timeOfBytes = m_document.wallClockTime();
        m_openedBytes.clear();
    }
    m_bytesOnDisk = order.bytes;
    m_fileDigest = digest;
    if (order.revision == m_revision) {
        noteEverythingIsSaved();
    } else {
        m_savedRevision = order.revision;
        setState(ZLSavingState::Waiting);
    }
}

void ZLDocumentSaver::noteEverythingIsSaved()
{
    m_savedRevision = m_revision;
    // What has no file of the user's is never done for him, however well it is kept.
    m_document.setDocumentEdited(isUntitled() && hasContent());
    setState(ZLSavingState::Saved);
}

void ZLDocumentSaver::noteFailure(const ZLError& error)
{
    qCWarning(documentWriteLog) << "cannot write" << error.message;
    m_document.setDocumentEdited(true);
    m_writeTimer.start(RetryInterval);
    setState(ZLSavingState::Failed, error.message);
}

void ZLDocumentSaver::noteConflict(const ZLError& error)
{
    qCWarning(documentWriteLog) << error.message;
    m_document.setDocumentEdited(true);
    dropPlannedWrite();
    setState(ZLSavingState::Conflict, error.message);
}

bool ZLDocumentSaver::isJournalStillNeeded() const
{
    const bool isSaved = m_state == ZLSavingState::Saved && m_revision == m_savedRevision;
    return !m_isDiscarded && (!isSaved || m_document.isRecording() || m_document.interruptedRecording());
}

void ZLDocumentSaver::setState(ZLSavingState state, const QString& failureText)
{
    if (m_state == state && m_failureText == failureText)
        return;
    m_state = state;
    m_failureText = failureText;
    Q_EMIT stateDidChange();
}
