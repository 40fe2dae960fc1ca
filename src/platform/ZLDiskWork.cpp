#include "platform/ZLDiskWork.h"

#include "platform/ZLAbandonedWork.h"
#include "platform/ZLRemainingTime.h"

#include <QCoreApplication>

#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

/// What both threads share. It lives as long as either needs it.
struct ZLDiskWork::Line {
    std::mutex mutex;
    std::condition_variable didEnd;
    ZLDiskWork* receiver = nullptr;
    bool isOver = false;
    bool isAbandoned = false;

    void tell(std::function<void()> call)
    {
        // The receiver waits for the lock before it goes.
        const std::lock_guard lock(mutex);
        if (receiver)
            QMetaObject::invokeMethod(receiver, std::move(call), Qt::QueuedConnection);
    }
};

ZLDiskWork::ZLDiskWork(std::chrono::milliseconds patience, QObject* parent)
    : QObject(parent)
    , m_patience(patience)
{
}

ZLDiskWork::~ZLDiskWork()
{
    if (!m_line)
        return;
    std::unique_lock lock(m_line->mutex);
    m_line->receiver = nullptr;
    m_line->isAbandoned = !m_line->didEnd.wait_for(lock, m_patience, [this] { return m_line->isOver; });
    if (m_line->isAbandoned)
        ZLAbandonedWork::keep(m_line);
}

bool ZLDiskWork::settle(QDeadlineTimer deadline)
{
    // What it tells at its end may begin another work.
    const auto line = m_line;
    if (!line)
        return true;
    {
        std::unique_lock lock(line->mutex);
        if (!line->didEnd.wait_for(lock, ZLRemainingTime(deadline), [&line] { return line->isOver; }))
            return false;
    }
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
    return true;
}

void ZLDiskWork::start(Work work)
{
    m_line = std::make_shared<Line>();
    m_line->receiver = this;
    std::thread([this, line = m_line, carryOut = std::move(work)]() mutable {
        carryOut([line](std::function<void()> call) { line->tell(std::move(call)); });
        // What it held goes on this thread, before the end is told.
        carryOut = nullptr;
        line->tell([this] {
            m_line = nullptr;
            Q_EMIT didEnd();
        });
        const std::lock_guard lock(line->mutex);
        line->isOver = true;
        line->didEnd.notify_all();
        if (line->isAbandoned)
            ZLAbandonedWork::drop(line);
    }).detach();
}
