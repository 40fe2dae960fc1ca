#pragma once

#include "document/saving/ZLDocumentHistory.h"

#include <QByteArray>
#include <QDateTime>

#include <chrono>
#include <functional>
#include <memory>
#include <mutex>

/// What a write takes the place of, to be kept among the former states of the document.
struct ZLFormerState {
    ZLDocumentHistory history;
    QByteArray bytes;
    /// Since when the document was like that.
    QDateTime time;
};

/// Keeps former states beside the writing of the file, which must not wait for the recovery folder for long.
class ZLStateKeeper {
public:
    static constexpr std::chrono::milliseconds LongestWait { 500 };

    using Keep = std::function<ZLStateKeeping(const ZLFormerState& state, const QByteArray& successor)>;

    /// Without `keep`, in the state's history.
    explicit ZLStateKeeper(Keep keep = {}, std::chrono::milliseconds limit = LongestWait);

    /// Keeps `state` before `successor`. Failed when that lasts too long, and then as long as it lasts. May be called
    /// from any thread.
    ZLStateKeeping keep(const ZLFormerState& state, const QByteArray& successor);

private:
    struct Job;

    [[nodiscard]] static ZLStateKeeping keepInHistory(const ZLFormerState& state, const QByteArray& successor);

    const Keep m_keep;
    const std::chrono::milliseconds m_limit;
    std::mutex m_mutex;
    /// The last one that was begun.
    std::shared_ptr<Job> m_job;
};
