#pragma once

#include "platform/ZLDiskWork.h"
#include "platform/ZLResult.h"
#include "platform/ZLWorkProgress.h"

#include <functional>
#include <memory>

/// Looks for the start of the recording clock in a recording, beside the main thread.
class ZLClockStartJob final : public QObject {
    Q_OBJECT

public:
    /// May be called on any thread.
    using Search = std::function<ZLResult<double>(ZLWorkProgress& progress)>;

    using QObject::QObject;
    /// Cancels what is not done.
    ~ZLClockStartJob() override { cancel(); }

    void start(const Search& search);
    void cancel() { m_progress->cancel(); }
    [[nodiscard]] bool isCancelled() const { return m_progress->isCancelled(); }
    /// From 0 to 1.
    [[nodiscard]] double fraction() const { return m_progress->fraction(); }

Q_SIGNALS:
    /// Once, also after cancel(). In seconds.
    void didEnd(const ZLResult<double>& start);

private:
    const std::shared_ptr<ZLWorkProgress> m_progress = std::make_shared<ZLWorkProgress>();
    ZLDiskWork m_work;
};
