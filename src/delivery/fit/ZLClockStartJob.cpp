#include "delivery/fit/ZLClockStartJob.h"

void ZLClockStartJob::start(const Search& search)
{
    m_work.start([this, search, progress = m_progress](const ZLDiskWork::Teller& tell) {
        const auto start = search(*progress);
        tell([this, start] { Q_EMIT didEnd(start); });
    });
}
