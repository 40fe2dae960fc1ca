#include "document/saving/journal/ZLJournalFile.h"

#include "platform/ZLAbandonedWork.h"
#include "platform/ZLFileError.h"
#include "platform/ZLRemainingTime.h"

#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(journalLog, "zelta.document.journal", QtInfoMsg)

void syncFolderOfJournal(const QByteArray& nativePath)
{
    const QByteArray folder = QFile::encodeName(QFileInfo(QFile::decodeName(nativePath)).absolutePath());
    const int descriptor = open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    fsync(descriptor);
    close(descriptor);
}

int writeWholly(const ZLJournalDisk& disk, int descriptor, const QByteArray& bytes)
{
    for (qsizetype done = 0; done < bytes.size();) {
        const ssize_t count = disk.write(descriptor, bytes.constData() + done, size_t(bytes.size() - done));
        if (count < 0 && errno != EINTR)
            return errno;
        done += count > 0 ? count : 0;
    }
    return 0;
}

}

/// An open file with what lies in it whole.
struct ZLJournalFile::Descriptor {
    explicit Descriptor(int opened)
        : number(opened)
    {
    }
    ~Descriptor() { close(number); }
    Q_DISABLE_COPY_MOVE(Descriptor)

    const int number;
    off_t size = 0;
    quint32 nextSequence = 0;
    /// 0 or the system's error number. A record that went in only partly is cut off again.
    int append(const ZLJournalDisk& disk, const QByteArray& bytes)
    {
        const int error = writeWholly(disk, number, bytes);
        if (error == 0)
            size += bytes.size();
        else
            cutTo(size);
        return error;
    }

    int append(const ZLJournalDisk& disk, const ZLJournalRecord& record)
    {
        const int error = record.payload.size() <= LongestPayloadInOnePiece
            ? append(disk, ZLJournalRecords::encoded(nextSequence, record))
            : appendInPieces(disk, record);
        nextSequence += error == 0 ? 1 : 0;
        return error;
    }

private:
    /// Bytes. A longer one is not worth a copy.
    static constexpr qsizetype LongestPayloadInOnePiece = 64 * 1024;

    int appendInPieces(const ZLJournalDisk& disk, const ZLJournalRecord& record)
    {
        const off_t sizeBefore = size;
        int error = append(disk, ZLJournalRecords::head(nextSequence, record));
        error = error == 0 ? append(disk, record.payload) : error;
        error = error == 0 ? append(disk, ZLJournalRecords::recordDigest(nextSequence, record)) : error;
        if (error != 0)
            cutTo(sizeBefore);
        return error;
    }

    void cutTo(off_t wanted)
    {
        size = wanted;
        if (ftruncate(number, size) != 0 || lseek(number, size, SEEK_SET) != size)
            qCWarning(journalLog) << "half a record stays at the end";
    }
};

ZLJournalFile::ZLJournalFile(const QString& path, ZLJournalDisk disk)
    : m_nativePath(QFile::encodeName(path))
    , m_disk(std::move(disk))
{
    m_writer.setMaxThreadCount(1);
    m_syncer.setMaxThreadCount(1);
    m_maker.setMaxThreadCount(1);
}

ZLJournalFile::~ZLJournalFile()
{
    (void)finish(QDeadlineTimer(QDeadlineTimer::Forever));
}

bool ZLJournalFile::finish(QDeadlineTimer deadline)
{
    post([] { }, Sync::AtOnce);
    {
        std::unique_lock lock(m_mutex);
        const auto isSynced = [this, wanted = m_postedCount] { return m_syncedCount >= wanted; };
        if (!m_progress.wait_for(lock, ZLRemainingTime(deadline), isSynced))
            return false;
    }
    // They give one another work: a successor goes from the maker to the syncer, to the writer and to the syncer.
    for (int round = 0; round < 2; ++round) {
        for (QThreadPool* thread : { &m_writer, &m_maker, &m_syncer }) {
            if (!thread->waitForDone(deadline.isForever() ? -1 : int(deadline.remainingTime())))
                return false;
        }
    }
    return true;
}

bool ZLJournalFile::leave(std::shared_ptr<ZLJournalFile> file, QDeadlineTimer deadline)
{
    if (file->finish(deadline))
        return true;
    qCWarning(journalLog) << "the disk of" << file->m_nativePath << "does not answer, so its journal is left to itself";
    {
        const std::lock_guard lock(file->m_mutex);
        file->m_isLeft = true;
    }
    ZLAbandonedWork::keep(std::move(file));
    return false;
}

void ZLJournalFile::begin(MakeRecords makeRecords)
{
    post([this, makeRecords = std::move(makeRecords)] { performBegin(makeRecords); }, Sync::AtOnce);
}

void ZLJournalFile::append(ZLJournalRecord record, Sync sync)
{
    post([this, record = std::move(record)] { performAppend(record); }, sync);
}

void ZLJournalFile::append(std::function<ZLJournalRecord()> makeRecord, Sync sync)
{
    post([this, makeRecord = std::move(makeRecord)] { performAppend(makeRecord()); }, sync);
}

bool ZLJournalFile::waitUntilHandedOver(std::chrono::milliseconds limit)
{
    return waitFor(m_writtenCount, m_missedHandOver, limit);
}

bool ZLJournalFile::waitUntilSynced(std::chrono::milliseconds limit)
{
    post([] { }, Sync::AtOnce);
    return waitFor(m_syncedCount, m_missedSync, limit);
}

bool ZLJournalFile::waitFor(const quint64& count, Missed& missed, std::chrono::milliseconds limit)
{
    std::unique_lock lock(m_mutex);
    if (missed && count < *missed)
        return false;
    const quint64 wanted = m_postedCount;
    const bool hasCome = m_progress.wait_for(lock, limit, [&] { return count >= wanted; });
    missed = hasCome ? Missed() : wanted;
    if (!hasCome)
        qCWarning(journalLog) << "the disk of" << m_nativePath << "is slow";
    return hasCome;
}

bool ZLJournalFile::isLagging() const
{
    const std::lock_guard lock(m_mutex);
    return m_missedHandOver && m_writtenCount < *m_missedHandOver;
}

bool ZLJournalFile::hasEverything() const
{
    const std::lock_guard lock(m_mutex);
    return m_error == 0 && m_writtenCount == m_postedCount;
}

quint64 ZLJournalFile::postedCount() const
{
    const std::lock_guard lock(m_mutex);
    return m_postedCount;
}

bool ZLJournalFile::hasHandedOver(quint64 count) const
{
    const std::lock_guard lock(m_mutex);
    return m_writtenCount >= count;
}

ZLProgress ZLJournalFile::progress() const
{
    const std::lock_guard lock(m_mutex);
    return { .isAwaited = m_syncedCount < m_awaitedCount, .reached = m_syncedCount };
}

bool ZLJournalFile::isBroken() const
{
    const std::lock_guard lock(m_mutex);
    return m_error != 0;
}

QString ZLJournalFile::failureText() const
{
    const std::lock_guard lock(m_mutex);
    if (m_error == 0)
        return {};
    return ZLFileError::ofSystem(QFileInfo(QFile::decodeName(m_nativePath)).path(), m_error).message;
}

qint64 ZLJournalFile::size() const
{
    const std::lock_guard lock(m_mutex);
    return m_size;
}

qint64 ZLJournalFile::sizeAtBeginning() const
{
    const std::lock_guard lock(m_mutex);
    return m_sizeAtBeginning;
}

// No lock is held while another thread is woken, which would run into it at once.
void ZLJournalFile::post(std::function<void()> task, Sync sync)
{
    {
        const std::lock_guard lock(m_mutex);
        ++m_postedCount;
        if (sync == Sync::AtOnce)
            m_awaitedCount = m_postedCount;
    }
    m_writer.start([this, task = std::move(task), sync] {
        if (!isLeft())
            task();
        noteWritten();
        if (sync == Sync::AtOnce)
            startSync();
    });
}

void ZLJournalFile::noteWritten()
{
    {
        const std::lock_guard lock(m_mutex);
        ++m_writtenCount;
    }
    m_progress.notify_all();
}

void ZLJournalFile::startSync()
{
    {
        const std::lock_guard lock(m_mutex);
        if (std::exchange(m_isSyncDue, true))
            return;
    }
    m_syncer.start([this] { syncNow(); });
}

void ZLJournalFile::syncNow()
{
    std::unique_lock lock(m_mutex);
    m_isSyncDue = false;
    const quint64 covered = m_writtenCount;
    const DescriptorPointer descriptor = m_descriptor;
    lock.unlock();
    if (descriptor && m_disk.sync(descriptor->number) != 0 && errno != EINVAL)
        noteFailure(errno);
    lock.lock();
    m_syncedCount = std::max(m_syncedCount, covered);
    m_progress.notify_all();
}

void ZLJournalFile::performBegin(const MakeRecords& makeRecords)
{
    if (!m_descriptor) {
        performFirstBegin(makeRecords);
        return;
    }
    // The records of a long document take their time, and so does the sync of their own. Until then records go into the
    // old file, and into the new one after.
    if (std::exchange(m_hasSuccessor, true))
        return;
    m_recordsForSuccessor.clear();
    m_maker.start([this, makeRecords] {
        const auto records = isLeft() ? QList<ZLJournalRecord>() : makeRecords();
        m_syncer.start([this, records] {
            const DescriptorPointer successor = isLeft() ? nullptr : makeSuccessor(records, Sync::AtOnce);
            const auto takeOver = [this, successor] {
                if (successor)
                    install(successor);
                m_hasSuccessor = false;
            };
            post(takeOver, Sync::AtOnce);
        });
    });
}

void ZLJournalFile::performFirstBegin(const MakeRecords& makeRecords)
{
    const bool isAnythingThere = access(m_nativePath.constData(), F_OK) == 0;
    if (const auto successor = makeSuccessor(makeRecords(), isAnythingThere ? Sync::AtOnce : Sync::WithTheNext))
        install(successor);
}

void ZLJournalFile::performAppend(const ZLJournalRecord& record)
{
    if (m_hasSuccessor)
        m_recordsForSuccessor.append(record);
    // After a failure the records would no longer follow one another.
    if (!m_descriptor || isBroken())
        return;
    if (const int error = m_descriptor->append(m_disk, record); error != 0)
        noteFailure(error);
    noteSize();
}

ZLJournalFile::DescriptorPointer ZLJournalFile::makeSuccessor(const QList<ZLJournalRecord>& records, Sync sync)
{
    const int number =
        open(successorPath().constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600);
    if (number < 0) {
        noteFailure(errno);
        return nullptr;
    }
    auto successor = std::make_shared<Descriptor>(number);
    int error = fchmod(number, 0600) == 0 ? successor->append(m_disk, ZLJournalRecords::Signature) : errno;
    for (const ZLJournalRecord& record : records)
        error = error == 0 ? successor->append(m_disk, record) : error;
    if (error == 0 && sync == Sync::AtOnce && m_disk.sync(number) != 0 && errno != EINVAL)
        error = errno;
    if (error == 0)
        return successor;
    unlink(successorPath().constData());
    noteFailure(error);
    return nullptr;
}

void ZLJournalFile::install(const DescriptorPointer& successor)
{
    int error = 0;
    const qint64 sizeAtBeginning = successor->size;
    for (const ZLJournalRecord& record : std::as_const(m_recordsForSuccessor))
        error = error == 0 ? successor->append(m_disk, record) : error;
    if (error == 0 && !m_recordsForSuccessor.isEmpty() && m_disk.sync(successor->number) != 0)
        error = errno;
    m_recordsForSuccessor.clear();
    if (error == 0 && std::rename(successorPath().constData(), m_nativePath.constData()) != 0)
        error = errno;
    if (error != 0) {
        unlink(successorPath().constData());
        noteFailure(error);
        return;
    }
    {
        const std::lock_guard lock(m_mutex);
        m_descriptor = successor;
        m_sizeAtBeginning = sizeAtBeginning;
        m_error = 0;
    }
    noteSize();
    m_syncer.start([path = m_nativePath] { syncFolderOfJournal(path); });
}

bool ZLJournalFile::isLeft() const
{
    const std::lock_guard lock(m_mutex);
    return m_isLeft;
}

void ZLJournalFile::noteSize()
{
    const std::lock_guard lock(m_mutex);
    m_size = m_descriptor->size;
}

void ZLJournalFile::noteFailure(int error)
{
    const std::lock_guard lock(m_mutex);
    if (std::exchange(m_error, error) != error)
        qCWarning(journalLog) << "cannot write" << m_nativePath << qt_error_string(error);
}
