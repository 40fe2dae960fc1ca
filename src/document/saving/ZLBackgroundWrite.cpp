#include "document/saving/ZLBackgroundWrite.h"

#include <QFile>

void ZLBackgroundWrite::run(const std::function<void()>& didWrite)
{
    {
        const std::lock_guard lock(m_mutex);
        if (m_progress != Progress::Waiting)
            return;
        m_progress = Progress::Running;
    }
    m_outcome = carryOut(m_order, m_writer);
    // Whoever waits may destroy what the call reaches as soon as the write is done.
    didWrite();
    const std::lock_guard lock(m_mutex);
    m_progress = Progress::Done;
    m_progressDidChange.notify_all();
}

bool ZLBackgroundWrite::cancelOrWait()
{
    std::unique_lock lock(m_mutex);
    if (m_progress == Progress::Waiting)
        m_progress = Progress::CalledOff;
    m_progressDidChange.wait(lock, [this] { return m_progress != Progress::Running; });
    return m_progress == Progress::Done;
}

ZLStatus ZLBackgroundWrite::carryOut(const ZLWriteOrder& order, const ZLFileWriter& writer)
{
    constexpr auto ownerOnly = QFile::ReadOwner | QFile::WriteOwner;
    ZLStatus status = writer(order.path, order.bytes);
    if (status && order.isForOwnerOnly)
        QFile::setPermissions(order.path, ownerOnly);
    if (!status && !order.fallbackPath.isEmpty() && writer(order.fallbackPath, order.bytes))
        QFile::setPermissions(order.fallbackPath, ownerOnly);
    return status;
}
