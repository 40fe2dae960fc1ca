#pragma once

#include "platform/ZLResult.h"

#include <QByteArray>
#include <QString>

#include <condition_variable>
#include <functional>
#include <mutex>

/// What is to be on the disk, and where.
struct ZLWriteOrder {
    QString path;
    QByteArray bytes;
    /// Takes the bytes when `path` cannot; empty for none.
    QString fallbackPath = {};
    /// For recovery files, which are nobody else's business.
    bool isForOwnerOnly = false;
    /// The state of the document that the bytes show.
    quint64 revision = 0;
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
    [[nodiscard]] const ZLStatus& outcome() const { return m_outcome; }

    /// Carries an order out at once. The outcome is that of `path`, whatever becomes of the fallback.
    [[nodiscard]] static ZLStatus carryOut(const ZLWriteOrder& order, const ZLFileWriter& writer);

private:
    enum class Progress { Waiting, Running, Done, CalledOff };

    const ZLWriteOrder m_order;
    const ZLFileWriter m_writer;
    ZLStatus m_outcome = ZLDone {};
    std::mutex m_mutex;
    std::condition_variable m_progressDidChange;
    Progress m_progress = Progress::Waiting;
};
