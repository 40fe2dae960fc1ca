#include "document/saving/ZLDocumentSaver.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(documentSaveLog, "zelta.document.save", QtInfoMsg)

}

ZLDocumentSaver::ZLDocumentSaver(ZLChapterDocument& document, const ZLRecoveryFolder& recoveryFolder,
    ZLSavingMachinery machinery, const QString& path, const QByteArray& fileBytes)
    : m_document(document)
    , m_recoveryFolder(recoveryFolder)
    , m_machinery(std::move(machinery))
    , m_path(path)
    , m_journal(document, m_machinery.journalDisk)
{
    if (!isUntitled()) {
        m_bytesOnDisk = currentBytes();
        m_revertBytes = m_bytesOnDisk;
        m_fileDigest = ZLJournalRecords::digestOf(fileBytes.isEmpty() ? m_bytesOnDisk : fileBytes);
    }
    watchDocument();
}

ZLDocumentSaver::ZLDocumentSaver(ZLChapterDocument& document, const ZLRecoveryFolder& recoveryFolder,
    ZLSavingMachinery machinery, std::unique_ptr<ZLRecoveryFile> recoveryFile)
    : m_document(document)
    , m_recoveryFolder(recoveryFolder)
    , m_machinery(std::move(machinery))
    , m_recoveryFile(std::move(recoveryFile))
    , m_journal(document, m_machinery.journalDisk)
{
    m_bytesOnDisk = currentBytes();
    m_fileDigest = ZLJournalRecords::digestOf(m_bytesOnDisk);
    watchDocument();
    m_document.setDocumentEdited(hasContent());
}

ZLDocumentSaver::ZLDocumentSaver(ZLChapterDocument& document, const ZLRecoveryFolder& recoveryFolder,
    ZLSavingMachinery machinery, std::unique_ptr<ZLRecoveryFile> recoveryFile, const QString& path,
    const QByteArray& fileBytes)
    : m_document(document)
    , m_recoveryFolder(recoveryFolder)
    , m_machinery(std::move(machinery))
    , m_path(path)
    , m_recoveryFile(std::move(recoveryFile))
    , m_journal(document, m_machinery.journalDisk)
    , m_revertBytes(fileBytes)
{
    if (!fileBytes.isEmpty())
        m_fileDigest = ZLJournalRecords::digestOf(fileBytes);
    watchDocument();
    beginJournal();
    m_document.setDocumentEdited(true);
    noteChange();
}

ZLDocumentSaver::~ZLDocumentSaver()
{
    if (m_backgroundWrite)
        m_backgroundWrite->cancelOrWait();
    m_journal.end();
    if (m_recoveryFile && !isJournalStillNeeded())
        m_recoveryFile->removeJournal();
}

QString ZLDocumentSaver::recoveryPath() const
{
    return isUntitled() && m_recoveryFile ? m_recoveryFile->path() : QString();
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

std::optional<int> ZLDocumentSaver::plannedDelay() const
{
    return m_writeTimer.isActive() ? std::optional(m_writeTimer.interval()) : std::nullopt;
}

ZLStatus ZLDocumentSaver::saveNow()
{
    if (m_isDiscarded)
        return ZLDone {};
    settleBackgroundWrite();
    dropPlannedWrite();
    if (m_state == ZLSavingState::Conflict)
        return ZLError { m_failureText };
    if (keepNothingOfEmptyDocument())
        return ZLDone {};
    m_journal.tidy(m_fileDigest);
    // Else the journal, which is believed more, would lag behind the file.
    m_journal.noteReading();
    auto order = makeOrder();
    if (!order) {
        noteFailure(order.error());
        return order.error();
    }
    ZLWriteOutcome outcome { .digest = m_fileDigest };
    if (!isOnDisk(order.value()))
        outcome = ZLBackgroundWrite::carryOut(order.value(), m_machinery.writeFile);
    noteOutcome(order.value(), outcome);
    return outcome.status;
}

ZLStatus ZLDocumentSaver::save()
{
    if (isUntitled())
        return ZLError { tr("“%1” has no file yet.").arg(m_document.displayName()) };
    // The user's word counts also when another program took the file away.
    if (!QFile::exists(m_path))
        m_bytesOnDisk.clear();
    const ZLStatus saved = saveNow();
    if (saved)
        m_revertBytes = m_bytesOnDisk;
    return saved;
}

ZLStatus ZLDocumentSaver::saveAs(const QString& path)
{
    settleBackgroundWrite();
    const ZLWriteOrder order { .path = pathWithExtension(path), .bytes = currentBytes(), .revision = m_revision };
    const ZLWriteOutcome written = ZLBackgroundWrite::carryOut(order, m_machinery.writeFile);
    if (!written) {
        if (m_revision != m_savedRevision && !plannedDelay())
            planWrite();
        return written.status;
    }
    qCDebug(documentSaveLog) << "document moves to" << order.path;
    dropPlannedWrite();
    m_path = order.path;
    m_lock.reset();
    m_lock = std::make_unique<ZLDocumentLock>(m_path);
    removeRecoveryFile();
    m_revertBytes = order.bytes;
    noteSuccess(order, written.digest);
    journalNow();
    m_document.setDisplayName(QFileInfo(m_path).fileName());
    Q_EMIT locationDidChange();
    return ZLDone {};
}

ZLStatus ZLDocumentSaver::revert()
{
    if (m_document.isRecording())
        return ZLError { tr("The clock is running. Pause the recording before you revert.") };
    if (m_revertBytes.isEmpty() ? !hasContent() : currentBytes() == m_revertBytes)
        return ZLDone {};
    if (m_revertBytes.isEmpty()) {
        m_document.revertToContents({});
        return ZLDone {};
    }
    const auto contents = ZLDocumentFile::decode(m_revertBytes);
    if (!contents)
        return contents.error();
    m_document.revertToContents(contents.value());
    return ZLDone {};
}

ZLStatus ZLDocumentSaver::keepMine()
{
    if (m_state != ZLSavingState::Conflict)
        return ZLDone {};
    // Once: what comes there after this moment is again nobody's to overwrite.
    const auto theirs = ZLAtomicFile::read(m_path);
    m_fileDigest = theirs ? ZLJournalRecords::digestOf(theirs.value()) : QByteArray();
    m_bytesOnDisk.clear();
    setState(ZLSavingState::Waiting);
    return saveNow();
}

ZLStatus ZLDocumentSaver::takeTheirs()
{
    if (m_state != ZLSavingState::Conflict)
        return ZLDone {};
    const auto theirs = ZLAtomicFile::read(m_path);
    if (!theirs)
        return theirs.error();
    const auto contents = ZLDocumentFile::decode(theirs.value());
    if (!contents)
        return ZLError { u"%1: %2"_s.arg(m_path, contents.error().message) };
    m_fileDigest = ZLJournalRecords::digestOf(theirs.value());
    m_revertBytes = theirs.value();
    m_bytesOnDisk.clear();
    setState(ZLSavingState::Waiting);
    m_document.adoptContents(contents.value());
    return ZLDone {};
}

ZLResult<QString> ZLDocumentSaver::keepBoth()
{
    const QFileInfo file(m_path);
    QString path;
    for (int number = 2; path.isEmpty() || QFile::exists(path); ++number)
        path = u"%1/%2 %3.%4"_s.arg(file.path(), file.completeBaseName(), QString::number(number), file.suffix());
    if (const ZLStatus saved = saveAs(path); !saved)
        return saved.error();
    return path;
}

void ZLDocumentSaver::discard()
{
    settleBackgroundWrite();
    dropPlannedWrite();
    m_readingTimer.stop();
    m_isDiscarded = true;
    removeRecoveryFile();
}

QString ZLDocumentSaver::pathWithExtension(const QString& path)
{
    const QFileInfo file(path);
    const QString absolutePath = QDir::cleanPath(file.absoluteFilePath());
    return file.suffix().isEmpty() ? absolutePath + u'.' + ZLDocumentFile::Extension : absolutePath;
}

void ZLDocumentSaver::writeNewestState()
{
    // The end of a write under way looks for newer changes itself.
    if (m_isDiscarded || m_backgroundWrite || m_state == ZLSavingState::Conflict)
        return;
    dropPlannedWrite();
    if (keepNothingOfEmptyDocument())
        return;
    m_journal.tidy(m_fileDigest);
    // Else the journal, which is believed more, would lag behind the file.
    m_journal.noteReading();
    auto order = makeOrder();
    if (!order)
        noteFailure(order.error());
    else if (isOnDisk(order.value()))
        noteSuccess(order.value(), m_fileDigest);
    else
        startBackgroundWrite(std::move(order).value());
}

void ZLDocumentSaver::watchDocument()
{
    if (!isUntitled())
        m_lock = std::make_unique<ZLDocumentLock>(m_path);
    m_worker.setMaxThreadCount(1);
    if (!m_machinery.executor)
        m_machinery.executor = [this](std::function<void()> task) { m_worker.start(std::move(task)); };
    m_writeTimer.setSingleShot(true);
    m_readingTimer.setInterval(ReadingInterval);
    connect(&m_writeTimer, &QTimer::timeout, this, &ZLDocumentSaver::writeNewestState);
    connect(&m_readingTimer, &QTimer::timeout, this, &ZLDocumentSaver::writeNewestState);
    connect(&m_document, &ZLChapterDocument::contentsDidChange, this, &ZLDocumentSaver::noteChange);
    connect(&m_document, &ZLChapterDocument::recordingStateDidChange, this, &ZLDocumentSaver::followClock);
    // This connection is the first one, so that nobody is told of what could still be lost.
    connect(&m_document, &ZLChapterDocument::controllersShouldBeInformed, this, &ZLDocumentSaver::journalNow);
    followClock();
}

void ZLDocumentSaver::journalNow()
{
    if (m_isDiscarded || (isUntitled() && !hasContent()))
        return;
    if (!m_journal.isBegun() || !m_recoveryFile || !m_recoveryFile->isStillHeld())
        beginJournal();
    else
        m_journal.note();
}

void ZLDocumentSaver::beginJournal()
{
    if (const ZLStatus ensured = ensureRecoveryFile(); !ensured) {
        qCWarning(documentSaveLog) << "no journal:" << ensured.error().message;
        return;
    }
    m_journal.begin(m_recoveryFile->journalPath(), m_path, m_fileDigest, currentBytes());
}

void ZLDocumentSaver::noteChange()
{
    ++m_revision;
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

void ZLDocumentSaver::followClock()
{
    // Else a crash during a long chapter would put the clock back to where that chapter began.
    if (!m_document.isRecording())
        m_readingTimer.stop();
    else if (!m_readingTimer.isActive())
        m_readingTimer.start();
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
    return order;
}

bool ZLDocumentSaver::isOnDisk(const ZLWriteOrder& order) const
{
    return m_bytesOnDisk == order.bytes && (!isUntitled() || QFile::exists(order.path));
}

ZLStatus ZLDocumentSaver::ensureRecoveryFile()
{
    // When the folder was taken away, the lock went with it: both are made anew.
    if (m_recoveryFile && m_recoveryFile->isStillHeld())
        return ZLDone {};
    m_journal.end();
    m_recoveryFile.reset();
    auto file = m_recoveryFolder.createFile();
    if (!file)
        return file.error();
    m_recoveryFile = std::move(file).value();
    if (isUntitled())
        Q_EMIT locationDidChange();
    return ZLDone {};
}

void ZLDocumentSaver::removeRecoveryFile()
{
    if (!m_recoveryFile)
        return;
    m_journal.end();
    m_recoveryFile->remove();
    m_recoveryFile.reset();
    if (isUntitled())
        Q_EMIT locationDidChange();
}

void ZLDocumentSaver::startBackgroundWrite(ZLWriteOrder order)
{
    qCDebug(documentSaveLog) << "writing" << order.bytes.size() << "bytes to" << order.path;
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
    qCWarning(documentSaveLog) << "cannot write" << error.message;
    m_document.setDocumentEdited(true);
    m_writeTimer.start(RetryInterval);
    setState(ZLSavingState::Failed, error.message);
}

void ZLDocumentSaver::noteConflict(const ZLError& error)
{
    qCWarning(documentSaveLog) << error.message;
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
