#pragma once

#include "document/saving/journal/ZLJournalRecord.h"
#include "platform/ZLStandstill.h"

#include <QDeadlineTimer>
#include <QString>
#include <QThreadPool>

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <sys/types.h>
#include <unistd.h>

/// What a journal asks of the operating system, and how long; tests make it slow or let it fail.
struct ZLJournalDisk {
    std::function<ssize_t(int descriptor, const void* bytes, size_t count)> write = ::write;
    std::function<int(int descriptor)> sync = ::fdatasync;
    /// How long a change waits for the kernel to take it; a healthy one needs some tens of microseconds.
    std::chrono::milliseconds longestHandOver { 100 };
};

/// Appends records to a file without ever keeping the caller waiting for the disk: one thread writes, another one
/// syncs. Only its user can read the file. Each operation may be called from any thread; they take effect in the order
/// of the calls.
class ZLJournalFile {
public:
    /// When a record has to be safe from a power cut.
    enum class Sync { AtOnce, WithTheNext };
    /// Makes the records that a file begins with, on a thread of the file's.
    using MakeRecords = std::function<QList<ZLJournalRecord>()>;

    explicit ZLJournalFile(const QString& path, ZLJournalDisk disk = {});
    /// Waits until everything is written and synced, however long that lasts; see leave().
    ~ZLJournalFile();
    Q_DISABLE_COPY_MOVE(ZLJournalFile)

    /// Gives the file up. What it holds is on the disk then, or when `deadline` comes before that, it is left to itself
    /// with what it has not written yet; false is returned in this case.
    static bool leave(std::shared_ptr<ZLJournalFile> file, QDeadlineTimer deadline);

    /// Begins the file anew. What stands under its name is replaced when the new one is synced, so that at each moment
    /// one of both is whole; where nothing stands, the sync comes after the hand-over as for every other record. Does
    /// nothing while the file is being begun anew already.
    void begin(MakeRecords makeRecords);
    void append(ZLJournalRecord record, Sync sync);
    /// The same for a record that takes its time to be made, on a thread of the file's.
    void append(std::function<ZLJournalRecord()> makeRecord, Sync sync);

    /// Waits until the kernel has everything that was appended, so that a kill of the process cannot lose it. Returns
    /// false when that lasts longer than `limit`; then there is no further wait until that has come.
    bool waitUntilHandedOver(std::chrono::milliseconds limit);
    /// The same until everything is on the disk.
    bool waitUntilSynced(std::chrono::milliseconds limit);
    /// Whether something is not handed over although a wait for it ran out.
    [[nodiscard]] bool isLagging() const;
    /// Whether the kernel has taken everything that was appended.
    [[nodiscard]] bool hasEverything() const;
    /// How much was appended until now, for hasHandedOver().
    [[nodiscard]] quint64 postedCount() const;
    [[nodiscard]] bool hasHandedOver(quint64 count) const;
    /// How far the syncing has come that was asked for.
    [[nodiscard]] ZLProgress progress() const;

    /// Whether records are being lost because the file cannot be written. begin() tries anew.
    [[nodiscard]] bool isBroken() const;
    /// Which folder does not take it and why, while isBroken(); else empty.
    [[nodiscard]] QString failureText() const;
    [[nodiscard]] qint64 size() const;
    /// The size with which it was begun last.
    [[nodiscard]] qint64 sizeAtBeginning() const;

private:
    struct Descriptor;
    using DescriptorPointer = std::shared_ptr<Descriptor>;

    /// What a wait did not see come in time.
    using Missed = std::optional<quint64>;

    void post(std::function<void()> task, Sync sync);
    bool waitFor(const quint64& count, Missed& missed, std::chrono::milliseconds limit);
    [[nodiscard]] bool finish(QDeadlineTimer deadline);
    void noteWritten();
    void startSync();
    void syncNow();
    void performBegin(const MakeRecords& makeRecords);
    void performFirstBegin(const MakeRecords& makeRecords);
    void performAppend(const ZLJournalRecord& record);
    [[nodiscard]] DescriptorPointer makeSuccessor(const QList<ZLJournalRecord>& records, Sync sync);
    void install(const DescriptorPointer& successor);
    [[nodiscard]] bool isLeft() const;
    void noteSize();
    void noteFailure(int error);
    [[nodiscard]] QByteArray successorPath() const { return m_nativePath + ".new"; }

    const QByteArray m_nativePath;
    const ZLJournalDisk m_disk;

    mutable std::mutex m_mutex;
    std::condition_variable m_progress;
    quint64 m_postedCount = 0;
    quint64 m_writtenCount = 0;
    quint64 m_syncedCount = 0;
    /// How much of what was posted is to be synced at once.
    quint64 m_awaitedCount = 0;
    Missed m_missedHandOver;
    Missed m_missedSync;
    bool m_isSyncDue = false;
    /// Nothing is begun any more.
    bool m_isLeft = false;
    int m_error = 0;
    qint64 m_size = 0;
    qint64 m_sizeAtBeginning = 0;
    /// Replaced by the writing thread alone.
    DescriptorPointer m_descriptor;

    /// What comes while a successor is being made; of the writing thread alone.
    QList<ZLJournalRecord> m_recordsForSuccessor;
    bool m_hasSuccessor = false;

    /// Last, so that their tasks end before anything else goes.
    QThreadPool m_syncer;
    QThreadPool m_writer;
    /// Makes records where both others have their own work meanwhile.
    QThreadPool m_maker;
};
