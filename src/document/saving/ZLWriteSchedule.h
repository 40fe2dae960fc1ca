#pragma once

#include "platform/ZLHostClock.h"

#include <QObject>
#include <QTimer>

#include <memory>
#include <optional>

/// When a document is written next: a moment after a change, at the latest a while after the first one, every few
/// seconds while its clock runs, and again after a failure. It counts the changes, so that what was written can be
/// compared with what is.
class ZLWriteSchedule : public QObject {
    Q_OBJECT

public:
    /// @name Milliseconds
    /// @{
    static constexpr int QuietTime = 250; ///< From a change to its write.
    static constexpr int LongestWait = 750; ///< The same under a steady stream of changes.
    static constexpr int RetryInterval = 2000;
    static constexpr int ReadingInterval = 5000; ///< How often the reading of a running clock is stored.
    /// @}

    enum class Haste {
        None,
        AtOnce, ///< No journal holds the change.
    };

    explicit ZLWriteSchedule(std::shared_ptr<const ZLHostClock> clock, QObject* parent = nullptr);

    /// The number of the document's newest state.
    [[nodiscard]] quint64 revision() const { return m_revision; }
    [[nodiscard]] bool isEverythingWritten() const { return m_revision == m_writtenRevision; }
    void noteChange() { ++m_revision; }
    void noteWritten(quint64 revision) { m_writtenRevision = revision; }

    void plan(Haste haste);
    void planRetry();
    void dropPlannedWrite();
    /// Milliseconds by which the next write was put off; absent when none is planned.
    [[nodiscard]] std::optional<int> plannedDelay() const;

    /// While the clock runs its reading is stored: else a crash during a long chapter would put the clock back to where
    /// that chapter began.
    void followClock(bool isRunning);
    /// Plans nothing any more.
    void stop();

Q_SIGNALS:
    void writeIsDue();

private:
    const std::shared_ptr<const ZLHostClock> m_clock;
    QTimer m_readingTimer { this };
    QTimer m_writeTimer;
    /// Seconds of the clock; absent while no change waits.
    std::optional<double> m_firstUnsavedChange;
    quint64 m_revision = 0;
    quint64 m_writtenRevision = 0;
};
