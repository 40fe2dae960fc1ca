#pragma once

#include <QDeadlineTimer>
#include <QObject>

#include <chrono>
#include <functional>
#include <memory>

/// Work with files on a thread of its own, which a disk that does not answer may hold up for ever. The main thread does
/// not wait for it; only when this object goes before the work is over, it waits for the end as long as it was told to.
class ZLDiskWork : public QObject {
    Q_OBJECT

public:
    /// Carries a call over to the thread of the ZLDiskWork; it is dropped when that is gone. May be called on any
    /// thread.
    using Teller = std::function<void(std::function<void()> call)>;
    using Work = std::function<void(const Teller& tell)>;

    /// `patience` is for work that changes files, so that it can tidy up.
    explicit ZLDiskWork(std::chrono::milliseconds patience = {}, QObject* parent = nullptr);
    ~ZLDiskWork() override;

    /// Begins at once. `work` may use what it holds itself, and nothing that belongs to others.
    void start(Work work);
    [[nodiscard]] bool isUnderWay() const { return m_line != nullptr; }
    /// Waits for the end, and carries out what the work told and has not been carried out yet. Returns false when it
    /// has no end before `deadline`; then it goes on.
    bool settle(QDeadlineTimer deadline);

Q_SIGNALS:
    /// Comes after all that the work told.
    void didEnd();

private:
    struct Line;

    const std::chrono::milliseconds m_patience;
    std::shared_ptr<Line> m_line;
};
