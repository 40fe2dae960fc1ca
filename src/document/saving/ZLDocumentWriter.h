#pragma once

#include "document/saving/ZLBackgroundWrite.h"
#include "platform/ZLStandstill.h"

#include <QDeadlineTimer>
#include <QObject>
#include <QThreadPool>

#include <functional>
#include <memory>
#include <optional>

/// Carries the writes of one document out on a thread of its own, one at a time, and waits for none longer than it is
/// told. A write that hangs can be left to itself: what becomes of it is then not told.
class ZLDocumentWriter : public QObject {
    Q_OBJECT

public:
    using Executor = std::function<void(std::function<void()>)>;

    /// Writes that are begun with start() go to `executor`; when empty, to the writer's own thread.
    explicit ZLDocumentWriter(ZLFileWriter writer, Executor executor = {});
    /// Leaves a write that is still under way to itself.
    ~ZLDocumentWriter() override;

    [[nodiscard]] bool isUnderWay() const { return m_write != nullptr; }
    [[nodiscard]] ZLProgress progress() const
    {
        return { .isAwaited = isUnderWay(), .reached = m_begunCount, .isAtDisk = isUnderWay() && m_write->isAtDisk() };
    }

    /// Begins a write; none may be under way.
    void start(ZLWriteOrder order);
    /// Calls the write under way off if it has not begun, else waits for its end. Returns false when it has no end
    /// before `deadline`, and then the write goes on. One that was waited for in vain is not waited for again.
    bool settle(QDeadlineTimer deadline);
    /// Carries an order out, whose outcome is absent when there is none before `deadline`; then the write goes on. None
    /// may be under way.
    std::optional<ZLWriteOutcome> write(ZLWriteOrder order, QDeadlineTimer deadline);
    /// Leaves the write under way to itself.
    void abandon();

Q_SIGNALS:
    /// A write has its outcome.
    void didWrite(const ZLWriteOrder& order, const ZLWriteOutcome& outcome);
    /// The same for a write without a waiting caller, after didWrite().
    void didFinishByItself();

private:
    void run(const Executor& executor);
    void finishByItself(const std::shared_ptr<ZLBackgroundWrite>& write);
    void takeOutcome();

    const ZLFileWriter m_writer;
    const Executor m_executor;
    std::shared_ptr<QThreadPool> m_thread = std::make_shared<QThreadPool>();
    std::shared_ptr<ZLBackgroundWrite> m_write;
    /// The write under way did not end in the time that a caller had for it.
    bool m_isGivenUp = false;
    quint64 m_begunCount = 0;
};
