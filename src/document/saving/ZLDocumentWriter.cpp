#include "document/saving/ZLDocumentWriter.h"

#include "platform/ZLAbandonedWork.h"

#include <utility>

ZLDocumentWriter::ZLDocumentWriter(ZLFileWriter writer, Executor executor)
    : m_writer(std::move(writer))
    , m_executor(std::move(executor))
{
    m_thread->setMaxThreadCount(1);
}

ZLDocumentWriter::~ZLDocumentWriter()
{
    abandon();
}

void ZLDocumentWriter::start(ZLWriteOrder order)
{
    m_write = std::make_shared<ZLBackgroundWrite>(std::move(order), m_writer);
    run(m_executor);
}

bool ZLDocumentWriter::settle(QDeadlineTimer deadline)
{
    if (!m_write)
        return true;
    m_write->callOff();
    m_isGivenUp = !m_write->waitForEnd(m_isGivenUp ? QDeadlineTimer() : deadline);
    if (m_isGivenUp)
        return false;
    takeOutcome();
    return true;
}

std::optional<ZLWriteOutcome> ZLDocumentWriter::write(ZLWriteOrder order, QDeadlineTimer deadline)
{
    const auto write = std::make_shared<ZLBackgroundWrite>(std::move(order), m_writer);
    m_write = write;
    run({});
    m_isGivenUp = !write->waitForEnd(deadline);
    if (m_isGivenUp)
        return std::nullopt;
    takeOutcome();
    return write->outcome();
}

void ZLDocumentWriter::abandon()
{
    const auto write = std::exchange(m_write, nullptr);
    if (!write || !write->abandon())
        return;
    ZLAbandonedWork::keep(std::exchange(m_thread, std::make_shared<QThreadPool>()));
    m_thread->setMaxThreadCount(1);
}

void ZLDocumentWriter::run(const Executor& executor)
{
    ++m_begunCount;
    m_isGivenUp = false;
    // The object is reached only for a write that was not left to itself, which the object does at its end.
    auto task = [this, write = m_write] {
        write->run([this, write] {
            QMetaObject::invokeMethod(this, [this, write] { finishByItself(write); }, Qt::QueuedConnection);
        });
    };
    if (executor)
        executor(std::move(task));
    else
        m_thread->start(std::move(task));
}

void ZLDocumentWriter::finishByItself(const std::shared_ptr<ZLBackgroundWrite>& write)
{
    // A caller that could not wait may have settled it before.
    if (write != m_write)
        return;
    (void)settle(QDeadlineTimer(QDeadlineTimer::Forever));
    Q_EMIT didFinishByItself();
}

void ZLDocumentWriter::takeOutcome()
{
    const auto write = std::exchange(m_write, nullptr);
    if (write->wasCarriedOut())
        Q_EMIT didWrite(write->order(), write->outcome());
}
