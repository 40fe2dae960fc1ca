#include "document/saving/ZLStateKeeper.h"

#include "platform/ZLAbandonedWork.h"

#include <QLoggingCategory>

#include <condition_variable>
#include <optional>
#include <thread>
#include <utility>

namespace {

Q_LOGGING_CATEGORY(stateKeeperLog, "zelta.document.history", QtInfoMsg)

}

/// Shared by the thread that keeps and the one that waits.
struct ZLStateKeeper::Job {
    std::mutex mutex;
    std::condition_variable didFinish;
    std::optional<ZLStateKeeping> outcome;

    void finish(ZLStateKeeping keeping)
    {
        const std::lock_guard lock(mutex);
        outcome = keeping;
        didFinish.notify_all();
    }

    [[nodiscard]] std::optional<ZLStateKeeping> waitFor(std::chrono::milliseconds limit)
    {
        std::unique_lock lock(mutex);
        didFinish.wait_for(lock, limit, [this] { return outcome.has_value(); });
        return outcome;
    }
};

ZLStateKeeper::ZLStateKeeper(Keep keep, std::chrono::milliseconds limit)
    : m_keep(keep ? std::move(keep) : Keep(keepInHistory))
    , m_limit(limit)
{
}

ZLStateKeeping ZLStateKeeper::keepInHistory(const ZLFormerState& state, const QByteArray& successor)
{
    return state.history.keep(state.bytes, state.time, successor);
}

ZLStateKeeping ZLStateKeeper::keep(const ZLFormerState& state, const QByteArray& successor)
{
    const std::lock_guard lock(m_mutex);
    if (m_job && !m_job->waitFor(std::chrono::milliseconds(0)))
        return ZLStateKeeping::Failed;
    m_job = std::make_shared<Job>();
    std::thread([job = m_job, perform = m_keep, state, successor] { job->finish(perform(state, successor)); }).detach();
    if (const auto outcome = m_job->waitFor(m_limit))
        return *outcome;
    qCWarning(stateKeeperLog) << "the disk of the former states does not answer";
    ZLAbandonedWork::keep(m_job);
    return ZLStateKeeping::Failed;
}
