#pragma once

#include "document/saving/ZLDiskWatch.h"
#include "document/saving/ZLDocumentWriter.h"
#include "document/saving/ZLSavingReport.h"
#include "document/saving/ZLSavingRequests.h"
#include "document/saving/ZLWriteOrders.h"
#include "document/saving/ZLWriteSchedule.h"

#include <QDeadlineTimer>
#include <QObject>

/// Brings the newest state of a document into its file, at once or beside the event loop. One write at a time; while
/// there is a conflict, none.
class ZLFileUpdating : public QObject {
    Q_OBJECT

public:
    /// All of them have to outlive the object.
    ZLFileUpdating(ZLWriteOrders& orders, ZLWriteSchedule& schedule, ZLSavingReport& report, ZLDiskWatch& diskWatch,
        ZLFileWriter writer, ZLDocumentWriter::Executor executor);

    [[nodiscard]] ZLProgress progress() const { return m_writer.progress(); }
    [[nodiscard]] bool isUnderWay() const { return m_writer.isUnderWay(); }
    [[nodiscard]] bool isStopped() const { return m_isStopped; }
    /// How long a command waits for the disk: not at all for one that hangs.
    [[nodiscard]] QDeadlineTimer commandDeadline() const;

    /// Writes before it returns, see ZLDocumentSaver::saveNow().
    ZLStatus update(QDeadlineTimer deadline);
    /// Begins a write, unless one is under way, whose end looks for newer changes itself.
    void begin();
    /// As update(), beside the event loop. The user's word counts also for a file that another program took away, and
    /// it gives chapters the UUIDs that they lack there.
    void request(ZLSavingRequests::WhenWritten whenWritten);
    /// Carries out what is requested before it returns.
    void settleRequests(QDeadlineTimer deadline);
    /// No write begins any more by itself until resume(). didPause() comes when none is under way.
    void pause();
    void resume();
    /// ZLDocumentWriter::settle()
    bool settle(QDeadlineTimer deadline) { return m_writer.settle(deadline); }
    /// The disk of the document's file did not answer a caller in time.
    ZLError noteHangingFile();
    /// Leaves what is under way to itself.
    void abandon();
    /// Waits until `deadline` for the write under way, whose outcome is not told any more.
    void end(QDeadlineTimer deadline);
    /// Writes nothing any more.
    void stop();

Q_SIGNALS:
    void didPause();

private:
    [[nodiscard]] ZLResult<ZLWriteOrder> nextOrder();
    void noteSilence();
    void noteOutcome(const ZLWriteOrder& order, const ZLWriteOutcome& outcome);
    void lookForNewerChanges();
    [[nodiscard]] bool isNothingNew() const;
    [[nodiscard]] bool isNothingToKeep();

    ZLWriteOrders& m_orders;
    ZLWriteSchedule& m_schedule;
    ZLSavingReport& m_report;
    ZLDiskWatch& m_diskWatch;
    ZLDocumentWriter m_writer;
    ZLSavingRequests m_requests;
    bool m_isStopped = false;
    bool m_isPaused = false;
};
