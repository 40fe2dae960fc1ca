#include "document/saving/journal/ZLLongHandOver.h"

#include <utility>

ZLLongHandOver::ZLLongHandOver(QObject* parent)
    : QObject(parent)
{
    m_lookTimer.setInterval(LookInterval);
    connect(&m_lookTimer, &QTimer::timeout, this, &ZLLongHandOver::look);
}

void ZLLongHandOver::follow(std::shared_ptr<const ZLJournalFile> file)
{
    if (!isUnderWay()) {
        m_deadline = QDeadlineTimer(LongestWait);
        m_lookTimer.start();
    }
    m_file = std::move(file);
    m_wanted = m_file->postedCount();
}

void ZLLongHandOver::whenOver(std::function<void()> call)
{
    if (isUnderWay())
        m_calls.append(std::move(call));
    else
        call();
}

void ZLLongHandOver::end()
{
    m_lookTimer.stop();
    m_file.reset();
    // A call may begin another wait, or end the document.
    const auto calls = std::exchange(m_calls, {});
    for (const auto& call : calls)
        call();
}

void ZLLongHandOver::look()
{
    if (m_file->hasHandedOver(m_wanted) || m_deadline.hasExpired())
        end();
}
