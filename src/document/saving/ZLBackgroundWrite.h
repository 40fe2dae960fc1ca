#pragma once

#include "document/saving/ZLDocumentHistory.h"
#include "document/saving/ZLJournalFile.h"
#include "platform/ZLResult.h"

#include <QByteArray>
#include <QString>

#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>

/// What a write takes the place of, to be kept among the former states of the document.
struct ZLFormerState {
    ZLDocumentHistory history;
    QByteArray bytes;
    /// Since when the document was like that.
    QDateTime time;
};

/// What is to be on the disk, and where.
struct ZLWriteOrder {
    QString path;
    QByteArray bytes;
    /// Digest of what the file has to hold, if it is there, or another program changed it; empty when that is all one.
    QByteArray expectedDigest = {};
    /// Told of the bytes, and synced, before the file is touched; may be null.
    std::shared_ptr<ZLJournalFile> journal = {};
    /// For recovery files, which are nobody else's business.
    bool isForOwnerOnly = false;
    /// Kept once the file is written.
    std::optional<ZLFormerState> formerState = {};
    /// The state of the document that the bytes show.
    quint64 revision = 0;
};

/// What became of an order.
struct ZLWriteOutcome {
    ZLStatus status = ZLDone {};
    /// Whether the file holds what another program wrote, which is why it was left alone.
    bool isConflict = false;
    /// Of the bytes of the order.
    QByteArray digest = {};
    /// What became of the order's former state.
    ZLStateKeeping keeping = ZLStateKeeping::NothingNew;

    explicit operator bool() const { return status.isOk(); }
};

/// How bytes come into a file.
using ZLFileWriter = std::function<ZLStatus(const QString& path, const QByteArray& bytes)>;

/// One write that a worker thread carries out, unless the main thread calls it off before it has begun.
class ZLBackgroundWrite {
public:
    ZLBackgroundWrite(ZLWriteOrder order, ZLFileWriter writer)
        : m_order(std::move(order))
        , m_writer(std::move(writer))
    {
    }

    [[nodiscard]] const ZLWriteOrder& order() const { return m_order; }

    /// Writes, then calls `didWrite`, both on the calling thread. Whoever waits goes on only after that. Does nothing
    /// when the write was called off.
    void run(const std::function<void()>& didWrite);
    /// Calls the write off, or waits for its end if it has begun. Returns whether it was carried out.
    bool cancelOrWait();
    /// The outcome; only to be asked for after the write was carried out.
    [[nodiscard]] const ZLWriteOutcome& outcome() const { return m_outcome; }

    /// Carries an order out at once.
    [[nodiscard]] static ZLWriteOutcome carryOut(const ZLWriteOrder& order, const ZLFileWriter& writer);

private:
    enum class Progress { Waiting, Running, Done, CalledOff };

    const ZLWriteOrder m_order;
    const ZLFileWriter m_writer;
    ZLWriteOutcome m_outcome;
    std::mutex m_mutex;
    std::condition_variable m_progressDidChange;
    Progress m_progress = Progress::Waiting;
};
