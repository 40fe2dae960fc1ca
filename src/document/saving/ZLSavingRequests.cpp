#include "document/saving/ZLSavingRequests.h"

#include "document/saving/ZLSilentDisk.h"

#include <utility>

ZLSavingRequests::ZLSavingRequests()
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(ZLSilentDisk::CommandPatience);
    connect(&m_patience, &QTimer::timeout, this, &ZLSavingRequests::patienceIsOver);
}

void ZLSavingRequests::add(WhenWritten whenWritten)
{
    m_waiting.push_back(std::move(whenWritten));
    if (!m_patience.isActive())
        m_patience.start();
}

void ZLSavingRequests::noteBeginning(const ZLDocumentSnapshot& state)
{
    if (m_waiting.empty() && m_served.empty())
        return;
    m_served.insert(m_served.end(), m_waiting.begin(), m_waiting.end());
    m_waiting.clear();
    m_state = state;
}

void ZLSavingRequests::noteEnd(const ZLStatus& status)
{
    const Requests served = std::exchange(m_served, {});
    const auto state = std::exchange(m_state, std::nullopt);
    if (m_waiting.empty())
        m_patience.stop();
    answer(served, status, status && state ? &*state : nullptr);
}

void ZLSavingRequests::answerAll(const ZLStatus& status)
{
    Requests all = std::exchange(m_served, {});
    all.insert(all.end(), m_waiting.begin(), m_waiting.end());
    m_waiting.clear();
    m_state.reset();
    m_patience.stop();
    answer(all, status, nullptr);
}

void ZLSavingRequests::answer(const Requests& requests, const ZLStatus& status, const ZLDocumentSnapshot* written)
{
    for (const WhenWritten& whenWritten : requests)
        whenWritten(status, written);
}
