#include "document/saving/ZLDocumentSaver.h"

#include "document/saving/ZLNewIdentifiers.h"
#include "document/saving/ZLWriteProtection.h"
#include "platform/ZLFileExtension.h"

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
    , m_writer(m_machinery.writeFile, m_machinery.executor)
    , m_diskWatch(m_machinery.clock, [this] { return m_journal.progress(); }, [this] { return m_writer.progress(); })
{
    if (!isUntitled()) {
        m_bytesOnDisk = currentBytes();
        m_revertBytes = m_bytesOnDisk;
        m_openedBytes = fileBytes;
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
    , m_writer(m_machinery.writeFile, m_machinery.executor)
    , m_diskWatch(m_machinery.clock, [this] { return m_journal.progress(); }, [this] { return m_writer.progress(); })
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
    , m_writer(m_machinery.writeFile, m_machinery.executor)
    , m_diskWatch(
          m_machinery.clock, [this] { return m_journal.progress(); }, [this] { return m_writer.progress(); })
    , m_bytesOnDisk(fileBytes)
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
    end(QDeadlineTimer(CommandPatience));
}

void ZLDocumentSaver::end(QDeadlineTimer deadline)
{
    if (std::exchange(m_hasEnded, true))
        return;
    m_writer.disconnect(this);
    if (!m_isWriteGivenUp)
        (void)m_writer.settle(deadline);
    m_writer.abandon();
    const bool isJournalWhole = m_journal.end(m_diskWatch.isJournalHanging() ? QDeadlineTimer() : deadline);
    if (m_recoveryFile && isJournalWhole && !isJournalStillNeeded())
        m_recoveryFile->removeJournal();
    // Nobody could ever come back to an untitled document of which nothing is kept.
    if (isUntitled() && !m_recoveryFile && m_history)
        m_history->remove();
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

ZLStatus ZLDocumentSaver::saveNow(QDeadlineTimer deadline)
{
    if (m_isDiscarded)
        return ZLDone {};
    if (!settleWrite(deadline))
        return noteHangingFile();
    dropPlannedWrite();
    if (m_state == ZLSavingState::Conflict)
        return ZLError { m_failureText };
    if (keepNothingOfEmptyDocument())
        return ZLDone {};
    retryJournal();
    // Else the journal, which is believed more, would lag behind the file.
    m_journal.noteReading();
    auto order = makeOrder();
    if (!order) {
        noteFailure(order.error());
        return order.error();
    }
    if (isOnDisk(order.value())) {
        noteSuccess(order.value(), m_fileDigest);
        return ZLDone {};
    }
    const auto outcome = m_writer.write(std::move(order).value(), deadline);
    return outcome ? outcome->status : noteHangingFile();
}

ZLStatus ZLDocumentSaver::save()
{
    if (isUntitled())
        return ZLError { tr("“%1” is not in a file yet.").arg(m_document.displayName()) };
    // The user's word counts also when another program took the file away.
    if (!QFile::exists(m_path) || ZLNewIdentifiers::areMissingIn(m_openedBytes))
        m_bytesOnDisk.clear();
    const ZLStatus saved = saveNow();
    if (saved)
        m_revertBytes = m_bytesOnDisk;
    return saved;
}

ZLStatus ZLDocumentSaver::saveAs(const QString& path)
{
    const QString target = pathWithExtension(path);
    if (!settleWrite(commandDeadline()) && target == m_path)
        return noteHangingFile();
    const ZLWriteOrder order { .path = target, .bytes = currentBytes(), .revision = m_revision };
    if (const ZLStatus allowed = ZLWriteProtection::check(order.path, m_lock ? &m_lock->note() : nullptr); !allowed)
        return allowed;
    ZLDocumentWriter targetWriter(m_machinery.writeFile);
    const auto written = targetWriter.write(order, QDeadlineTimer(CommandPatience));
    if (!written || !*written) {
        if (m_revision != m_savedRevision && !plannedDelay() && !m_writer.isUnderWay())
            planWrite();
        return written ? written->status : ZLStatus(silentDisk(target));
    }
    // What hangs where the document was has nothing to do with it any more.
    m_writer.abandon();
    m_isWriteGivenUp = false;
    qCDebug(documentSaveLog) << "document moves to" << order.path;
    dropPlannedWrite();
    m_path = order.path;
    m_lock.reset();
    m_lock = std::make_unique<ZLDocumentLock>(m_path);
    removeRecoveryFile();
    followLocation();
    m_revertBytes = order.bytes;
    noteSuccess(order, written->digest);
    journalNow();
    m_document.setDisplayName(QFileInfo(m_path).fileName());
    Q_EMIT locationDidChange();
    return ZLDone {};
}

void ZLDocumentSaver::discard()
{
    if (!settleWrite(commandDeadline()))
        m_writer.abandon();
    dropPlannedWrite();
    m_readingTimer.stop();
    m_isDiscarded = true;
    removeRecoveryFile();
    if (isUntitled() && m_history)
        m_history->remove();
}

QString ZLDocumentSaver::pathWithExtension(const QString& path)
{
    return ZLFileExtension::completed(QDir::cleanPath(QFileInfo(path).absoluteFilePath()), ZLDocumentFile::Extension);
}

void ZLDocumentSaver::writeNewestState()
{
    // The end of a write under way looks for newer changes itself.
    if (m_isDiscarded || m_writer.isUnderWay() || m_state == ZLSavingState::Conflict)
        return;
    dropPlannedWrite();
    if (keepNothingOfEmptyDocument())
        return;
    retryJournal();
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
    followLocation();
    m_timeOfBytes = timeOfFile(isUntitled() ? recoveryPath() : m_path);
    m_writeTimer.setSingleShot(true);
    m_readingTimer.setInterval(ReadingInterval);
    m_journalTimer.setInterval(RetryInterval);
    connect(&m_writeTimer, &QTimer::timeout, this, &ZLDocumentSaver::writeNewestState);
    connect(&m_readingTimer, &QTimer::timeout, this, &ZLDocumentSaver::writeNewestState);
    connect(&m_journalTimer, &QTimer::timeout, this, &ZLDocumentSaver::retryJournal);
    followWriter();
    connect(&m_document, &ZLChapterDocument::contentsDidChange, this, &ZLDocumentSaver::noteChange);
    connect(&m_document, &ZLChapterDocument::recordingStateDidChange, this, &ZLDocumentSaver::followClock);
    // This connection is the first one, so that nobody is told of what could still be lost.
    connect(&m_document, &ZLChapterDocument::controllersShouldBeInformed, this, &ZLDocumentSaver::journalNow);
    followClock();
}

void ZLDocumentSaver::journalNow()
{
    if (m_isDiscarded || (isUntitled() && !hasContent()) || !isJournalDue())
        return;
    // A disk that does not answer is not asked anything else either.
    const bool isHeld = m_recoveryFile && (m_journal.isLagging() || m_recoveryFile->isStillHeld());
    if (!m_journal.isBegun() || !isHeld)
        beginJournal();
    else
        m_journal.note();
    if (m_journal.isBegun())
        noteRecoveryFailure(journalFailure());
    m_diskWatch.begin();
}

bool ZLDocumentSaver::isJournalDue()
{
    // Looked at each time, since looking remembers. A document that was only opened takes no journal.
    const bool hasChanged = !m_journal.isBegun() && m_journal.noticeChange();
    m_isJournalDue = m_isJournalDue || hasChanged || m_document.isRecording() || m_document.interruptedRecording();
    return m_isJournalDue;
}

QString ZLDocumentSaver::journalFailure() const
{
    return m_diskWatch.isJournalHanging() ? silentDisk(m_recoveryFolder.path()).message : m_journal.failureText();
}

void ZLDocumentSaver::retryJournal()
{
    // Nobody needs one as long as nothing changed.
    if (!m_journal.isBegun() && m_recoveryFailureText.isEmpty())
        return;
    journalNow();
    // What this brings is known when the next change or attempt comes, for nobody waits for a disk.
    m_journal.tidy(m_fileDigest);
}

void ZLDocumentSaver::beginJournal()
{
    m_isJournalDue = true;
    if (const ZLStatus ensured = ensureRecoveryFile(); !ensured) {
        noteRecoveryFailure(ensured.error().message);
        return;
    }
    m_journal.begin(m_recoveryFile->journalPath(), m_path, m_fileDigest, currentBytes());
}

void ZLDocumentSaver::noteRecoveryFailure(const QString& text)
{
    if (text.isEmpty())
        m_journalTimer.stop();
    else if (!m_journalTimer.isActive())
        m_journalTimer.start();
    if (std::exchange(m_recoveryFailureText, text) == text)
        return;
    if (!text.isEmpty())
        qCWarning(documentSaveLog) << "no journal:" << text;
    Q_EMIT stateDidChange();
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

void ZLDocumentSaver::followClock()
{
    // Else a crash during a long chapter would put the clock back to where that chapter began.
    if (!m_document.isRecording())
        m_readingTimer.stop();
    else if (!m_readingTimer.isActive())
        m_readingTimer.start();
}

ZLStatus ZLDocumentSaver::ensureRecoveryFile()
{
    // When the folder was taken away, the lock went with it: both are made anew.
    if (m_recoveryFile && m_recoveryFile->isStillHeld())
        return ZLDone {};
    m_journal.end(journalDeadline());
    m_recoveryFile.reset();
    auto file = m_recoveryFolder.createFile();
    if (!file)
        return file.error();
    m_recoveryFile = std::move(file).value();
    followLocation();
    if (isUntitled())
        Q_EMIT locationDidChange();
    return ZLDone {};
}

void ZLDocumentSaver::removeRecoveryFile()
{
    noteRecoveryFailure({});
    if (!m_recoveryFile)
        return;
    m_journal.end(journalDeadline());
    // What the document is now needs none; what it becomes does.
    (void)m_journal.noticeChange();
    m_isJournalDue = false;
    m_recoveryFile->remove();
    m_recoveryFile.reset();
    if (isUntitled())
        Q_EMIT locationDidChange();
}

void ZLDocumentSaver::followLocation()
{
    if (isUntitled() && !m_recoveryFile)
        return;
    const ZLDocumentHistory history = isUntitled()
        ? ZLDocumentHistory::ofRecoveryFile(m_recoveryFolder, m_recoveryFile->path())
        : ZLDocumentHistory::ofFile(m_recoveryFolder, m_path);
    if (m_history && *m_history != history) {
        m_history->shareWith(history);
        // A file of the user's that is left stays, and so do its states.
        if (m_history->isOfRecoveryFile())
            m_history->remove();
    }
    m_history = history;
}

QDateTime ZLDocumentSaver::timeOfFile(const QString& path) const
{
    const QDateTime now = m_document.wallClockTime();
    const QDateTime written = QFileInfo(path).lastModified();
    return written.isValid() ? std::min(written, now) : now;
}
