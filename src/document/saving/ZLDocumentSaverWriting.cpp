#include "document/saving/ZLDocumentSaver.h"

#include <QFile>
#include <QLoggingCategory>

#include <algorithm>
#include <utility>

namespace {

Q_LOGGING_CATEGORY(documentWriteLog, "zelta.document.write", QtInfoMsg)

}

void ZLDocumentSaver::planWrite()
{
    const double now = m_machinery.clock->now();
    if (!m_firstUnsavedChange)
        m_firstUnsavedChange = now;
    const double waited = (now - *m_firstUnsavedChange) * 1000.0;
    m_writeTimer.start(std::clamp(LongestWait - int(std::min(waited, double(LongestWait))), 0, QuietTime));
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
    const auto write = std::make_shared<ZLBackgroundWrite>(std::move(order), m_machinery.writeFile);
    m_backgroundWrite = write;
    if (m_state != ZLSavingState::Failed)
        setState(ZLSavingState::Saving);
    m_machinery.executor([this, write] {
        // The object is reached only for a write that was not called off, and its end waits for this.
        write->run([this, write] {
            QMetaObject::invokeMethod(
                this, [this, write] { finishBackgroundWrite(write); }, Qt::QueuedConnection);
        });
    });
}

void ZLDocumentSaver::finishBackgroundWrite(const std::shared_ptr<ZLBackgroundWrite>& write)
{
    // Somebody who could not wait may have settled it before.
    if (write != m_backgroundWrite)
        return;
    settleBackgroundWrite();
    if (m_revision != m_savedRevision && !plannedDelay())
        writeNewestState();
}

void ZLDocumentSaver::settleBackgroundWrite()
{
    const auto write = std::exchange(m_backgroundWrite, nullptr);
    if (write && write->cancelOrWait())
        noteOutcome(write->order(), write->outcome());
}

void ZLDocumentSaver::noteOutcome(const ZLWriteOrder& order, const ZLWriteOutcome& outcome)
{
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
