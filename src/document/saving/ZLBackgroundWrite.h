#pragma once

#include "document/ZLDocumentSnapshot.h"
#include "document/saving/ZLKnownFile.h"
#include "document/saving/ZLStateKeeper.h"
#include "document/saving/journal/ZLJournalFile.h"
#include "platform/ZLResult.h"

#include <QByteArray>
#include <QDeadlineTimer>
#include <QString>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>

/// What is to be on the disk, and where.
struct ZLWriteOrder {
    QString path;
    QByteArray bytes {};
    /// What the bytes are made of by the thread that writes; absent when they are there already.
    std::optional<ZLDocumentSnapshot> snapshot = {};
    /// What the file is known to hold: with the same bytes it is not written. Empty when it is written in any case.
    QByteArray present = {};
    /// A file that holds anything else was changed by another program and is left alone.
    ZLKnownVersions replaceable = {};
    /// Told of the bytes, and synced, before the file is touched; may be null.
    std::shared_ptr<ZLJournalFile> journal = {};
    /// A person wants it on the disk: it is also written when another program took the file away, or when chapters
    /// lack a UUID in what was read there, `asRead`.
    bool isAskedFor = false;
    QByteArray asRead = {};
    /// Whatever stands there is replaced, and kept as the former state.
    bool replacesAnything = false;
    /// For recovery files, which no other user may read.
    bool isForOwnerOnly = false;
    /// Kept once the file is written, by the keeper, which may be null where there is no state.
    std::optional<ZLFormerState> formerState = {};
    std::shared_ptr<ZLStateKeeper> stateKeeper = {};
    /// The state of the document that the bytes show.
    quint64 revision = 0;
};

/// What became of an order.
struct ZLWriteOutcome {
    ZLStatus status = ZLDone {};
    /// Those of the order, or those that were made of its snapshot.
    QByteArray bytes = {};
    /// Whether the file holds them already, which is why it was left alone. Then there is no digest.
    bool isUnchanged = false;
    /// Whether the file holds what another program wrote, which is why it was left alone.
    bool isConflict = false;
    /// Of the bytes.
    QByteArray digest = {};
    /// What an order found that replaces anything; only that may be replaced if it failed.
    std::optional<ZLKnownFile> replaced = {};
    /// What became of the order's former state.
    ZLStateKeeping keeping = ZLStateKeeping::NothingNew;

    explicit operator bool() const { return status.isOk(); }
};

/// How bytes come into a file.
using ZLFileWriter = std::function<ZLStatus(const QString& path, const QByteArray& bytes)>;

/// One write that a worker thread carries out, unless the main thread calls it off before it has begun. While it hangs,
/// the main thread may abandon it.
class ZLBackgroundWrite {
public:
    ZLBackgroundWrite(ZLWriteOrder order, ZLFileWriter writer)
        : m_order(std::move(order))
        , m_writer(std::move(writer))
    {
    }

    /// Without its snapshot, once the write is over.
    [[nodiscard]] const ZLWriteOrder& order() const { return m_order; }

    /// Writes, then calls `didWrite`, both on the calling thread. Does nothing when the write was called off, and does
    /// not call when it was abandoned.
    void run(const std::function<void()>& didWrite);
    /// Keeps a write that has not begun from beginning.
    void callOff();
    /// Returns false when the write is not over before `deadline`.
    bool waitForEnd(QDeadlineTimer deadline);
    /// Whether it was, once it is over; only then there is an outcome.
    [[nodiscard]] bool wasCarriedOut() const;
    [[nodiscard]] const ZLWriteOutcome& outcome() const { return m_outcome; }
    /// Whether the bytes are made, so that the disk alone is waited for.
    [[nodiscard]] bool isAtDisk() const { return m_isAtDisk; }
    /// Makes a write that is under way keep silent about its end. Returns whether it is under way.
    bool abandon();

    /// How long a write waits for the journal to have its digest: the two roads to the disk do not wait for each other
    /// without a bound.
    static constexpr std::chrono::milliseconds LongestWaitForJournal { 1000 };

private:
    enum class Progress { Waiting, Running, Abandoned, Done, CalledOff };

    [[nodiscard]] QByteArray makeBytes();
    [[nodiscard]] static ZLWriteOutcome carryOut(
        const ZLWriteOrder& order, const QByteArray& bytes, const ZLFileWriter& writer);
    [[nodiscard]] bool isOver() const { return m_progress == Progress::Done || m_progress == Progress::CalledOff; }

    ZLWriteOrder m_order;
    const ZLFileWriter m_writer;
    ZLWriteOutcome m_outcome;
    std::atomic<bool> m_isAtDisk = false;
    mutable std::mutex m_mutex;
    std::condition_variable m_progressDidChange;
    Progress m_progress = Progress::Waiting;
};
