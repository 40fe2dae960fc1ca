#include "remote/ZLOSCAnsweredSenders.h"

#include <algorithm>

void ZLOSCAnsweredSenders::noteCommand(const ZLOSCPeer& sender, double now)
{
    if (isReachedOtherwise(sender))
        return;
    const auto known = std::ranges::find_if(m_senders, [&](const Sender& candidate) {
        return candidate.port->address() == sender.address && candidate.port->port() == sender.port;
    });
    if (known != m_senders.end())
        known->lastCommand = now;
    else if (m_senders.size() < MostSenders)
        m_senders.append({ m_manager.createNewOutput(sender.text(), sender), now });
}

void ZLOSCAnsweredSenders::update(double now)
{
    for (qsizetype i = m_senders.size() - 1; i >= 0; --i) {
        const Sender& sender = m_senders.at(i);
        const ZLOSCPeer peer { sender.port->address(), sender.port->port() };
        if (now - sender.lastCommand >= LifetimeInSeconds || isReachedOtherwise(peer))
            m_manager.removeOutput(m_senders.takeAt(i).port);
    }
}

void ZLOSCAnsweredSenders::clear()
{
    while (!m_senders.isEmpty())
        m_manager.removeOutput(m_senders.takeLast().port);
}

bool ZLOSCAnsweredSenders::contains(const ZLOSCOutPort* port) const
{
    return std::ranges::find(m_senders, port, &Sender::port) != m_senders.end();
}

bool ZLOSCAnsweredSenders::isReachedOtherwise(const ZLOSCPeer& sender) const
{
    const ZLOSCOutPortArray& outputs = m_manager.outPortArray();
    outputs.rdlock();
    const bool isReached = std::ranges::any_of(outputs.ports(), [&](const ZLOSCOutPort* output) {
        return !contains(output) && output->address() == sender.address && output->port() == sender.port;
    });
    outputs.unlock();
    return isReached;
}
