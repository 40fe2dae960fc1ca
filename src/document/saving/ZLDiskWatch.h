#pragma once

#include "platform/ZLHostClock.h"
#include "platform/ZLStandstill.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <memory>

/// Looks at both roads to the disk, as long as one of them is under way, and tells when one hangs and when that is
/// over.
class ZLDiskWatch : public QObject {
    Q_OBJECT

public:
    static constexpr int LookInterval = 500; ///< Milliseconds.

    using Probe = std::function<ZLProgress()>;

    ZLDiskWatch(std::shared_ptr<const ZLHostClock> clock, Probe journal, Probe file);

    [[nodiscard]] bool isJournalHanging() const { return m_isJournalHanging; }
    [[nodiscard]] bool isFileHanging() const { return m_isFileHanging; }

    /// To be called when something has begun.
    void begin();

public Q_SLOTS:
    /// What the timer does.
    void look();

Q_SIGNALS:
    void didChange();

private:
    const std::shared_ptr<const ZLHostClock> m_clock;
    const Probe m_journal;
    const Probe m_file;
    ZLStandstill m_journalStandstill;
    ZLStandstill m_fileStandstill;
    bool m_isJournalHanging = false;
    bool m_isFileHanging = false;
    QTimer m_timer;
};
