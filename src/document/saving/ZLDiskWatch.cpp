#include "document/saving/ZLDiskWatch.h"

#include <utility>

ZLDiskWatch::ZLDiskWatch(std::shared_ptr<const ZLHostClock> clock, Probe journal, Probe file)
    : m_clock(std::move(clock))
    , m_journal(std::move(journal))
    , m_file(std::move(file))
{
    m_timer.setInterval(LookInterval);
    connect(&m_timer, &QTimer::timeout, this, &ZLDiskWatch::look);
}

void ZLDiskWatch::begin()
{
    look();
    if (!m_timer.isActive())
        m_timer.start();
}

void ZLDiskWatch::look()
{
    const ZLProgress journal = m_journal();
    const ZLProgress file = m_file();
    if (!journal.isAwaited && !file.isAwaited)
        m_timer.stop();
    const bool wasJournalHanging = std::exchange(m_isJournalHanging, m_journalStandstill.look(journal, m_clock->now()));
    const bool wasFileHanging = std::exchange(m_isFileHanging, m_fileStandstill.look(file, m_clock->now()));
    if (m_isJournalHanging != wasJournalHanging || m_isFileHanging != wasFileHanging)
        Q_EMIT didChange();
}
