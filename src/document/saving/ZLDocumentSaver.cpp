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
    ZLSavingMachinery machinery, const QString& path)
    : m_document(document)
    , m_recoveryFolder(recoveryFolder)
    , m_machinery(std::move(machinery))
    , m_path(path)
{
    if (!isUntitled()) {
        m_bytesOnDisk = currentBytes();
        m_revertBytes = m_bytesOnDisk;
    }
    watchDocument();
}

ZLDocumentSaver::ZLDocumentSaver(ZLChapterDocument& document, const ZLRecoveryFolder& recoveryFolder,
    ZLSavingMachinery machinery, std::unique_ptr<ZLRecoveryFile> recoveryFile)
    : m_document(document)
    , m_recoveryFolder(recoveryFolder)
    , m_machinery(std::move(machinery))
    , m_recoveryFile(std::move(recoveryFile))
{
    m_bytesOnDisk = currentBytes();
    watchDocument();
    m_document.setDocumentEdited(hasContent());
}

ZLDocumentSaver::~ZLDocumentSaver()
{
    if (m_backgroundWrite)
        m_backgroundWrite->cancelOrWait();
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
    if (keepNothingOfEmptyDocument())
        return ZLDone {};
    auto order = makeOrder();
    if (!order) {
        noteFailure(order.error());
        return order.error();
    }
    ZLStatus outcome = ZLDone {};
    if (!isOnDisk(order.value()))
        outcome = ZLBackgroundWrite::carryOut(order.value(), m_machinery.writeFile);
    noteOutcome(order.value(), outcome);
    // A refuge that was only found now gets the document at once: the process may be about to end.
    if (!outcome && plannedDelay() == 0)
        writeFallbackNow();
    return outcome;
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
    if (const ZLStatus written = ZLBackgroundWrite::carryOut(order, m_machinery.writeFile); !written) {
        if (m_revision != m_savedRevision && !plannedDelay())
            planWrite();
        return written;
    }
    qCDebug(documentSaveLog) << "document moves to" << order.path;
    dropPlannedWrite();
    m_path = order.path;
    removeRecoveryFile();
    m_revertBytes = order.bytes;
    noteSuccess(order);
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
    if (m_isDiscarded || m_backgroundWrite)
        return;
    dropPlannedWrite();
    if (keepNothingOfEmptyDocument())
        return;
    auto order = makeOrder();
    if (!order)
        noteFailure(order.error());
    else if (isOnDisk(order.value()))
        noteSuccess(order.value());
    else
        startBackgroundWrite(std::move(order).value());
}

void ZLDocumentSaver::watchDocument()
{
    m_worker.setMaxThreadCount(1);
    if (!m_machinery.executor)
        m_machinery.executor = [this](std::function<void()> task) { m_worker.start(std::move(task)); };
    m_writeTimer.setSingleShot(true);
    m_readingTimer.setInterval(ReadingInterval);
    connect(&m_writeTimer, &QTimer::timeout, this, &ZLDocumentSaver::writeNewestState);
    connect(&m_readingTimer, &QTimer::timeout, this, &ZLDocumentSaver::writeNewestState);
    connect(&m_document, &ZLChapterDocument::contentsDidChange, this, &ZLDocumentSaver::noteChange);
    connect(&m_document, &ZLChapterDocument::recordingStateDidChange, this, &ZLDocumentSaver::followClock);
    followClock();
}

void ZLDocumentSaver::noteChange()
{
    ++m_revision;
    if (m_isDiscarded)
        return;
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
    ZLWriteOrder order { .path = m_path, .bytes = currentBytes(), .revision = m_revision };
    if (isUntitled()) {
        if (const ZLStatus ensured = ensureRecoveryFile(); !ensured)
            return ensured.error();
        order.path = m_recoveryFile->path();
        order.isForOwnerOnly = true;
    } else if (m_recoveryFile) {
        order.fallbackPath = m_recoveryFile->path();
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
    if (m_recoveryFile && QFile::exists(m_recoveryFile->path()))
        return ZLDone {};
    m_recoveryFile.reset();
    auto file = m_recoveryFolder.createFile();
    if (!file)
        return file.error();
    m_recoveryFile = std::move(file).value();
    Q_EMIT locationDidChange();
    return ZLDone {};
}

void ZLDocumentSaver::removeRecoveryFile()
{
    if (!m_recoveryFile)
        return;
    m_recoveryFile->remove();
    m_recoveryFile.reset();
    if (isUntitled())
        Q_EMIT locationDidChange();
}

bool ZLDocumentSaver::reserveFallback()
{
    if (isUntitled() || m_recoveryFile)
        return false;
    if (auto file = m_recoveryFolder.createFile())
        m_recoveryFile = std::move(file).value();
    return m_recoveryFile != nullptr;
}

void ZLDocumentSaver::writeFallbackNow()
{
    const ZLWriteOrder order { .path = m_recoveryFile->path(), .bytes = currentBytes(), .isForOwnerOnly = true };
    if (const ZLStatus written = ZLBackgroundWrite::carryOut(order, m_machinery.writeFile); !written)
        qCWarning(documentSaveLog) << "no refuge either:" << written.error().message;
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

void ZLDocumentSaver::noteOutcome(const ZLWriteOrder& order, const ZLStatus& outcome)
{
    if (outcome)
        noteSuccess(order);
    else
        noteFailure(outcome.error());
}

bool ZLDocumentSaver::keepNothingOfEmptyDocument()
{
    if (!isUntitled() || hasContent())
        return false;
    removeRecoveryFile();
    m_bytesOnDisk.clear();
    noteEverythingIsSaved();
    return true;
}

void ZLDocumentSaver::noteSuccess(const ZLWriteOrder& order)
{
    m_bytesOnDisk = order.bytes;
    if (!isUntitled())
        removeRecoveryFile();
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
    // With a refuge found just now there is no reason to wait.
    m_writeTimer.start(reserveFallback() ? 0 : RetryInterval);
    setState(ZLSavingState::Failed, error.message);
}

void ZLDocumentSaver::setState(ZLSavingState state, const QString& failureText)
{
    if (m_state == state && m_failureText == failureText)
        return;
    m_state = state;
    m_failureText = failureText;
    Q_EMIT stateDidChange();
}
