#include "remote/ZLOSCUnsentMessages.h"

#include <algorithm>

ZLOSCUnsentMessages::ZLOSCUnsentMessages(QStringList statusAddresses, QObject* parent)
    : QObject(parent)
    , m_statusAddresses(std::move(statusAddresses))
{
    m_retryTimer.setInterval(RetryMilliseconds);
    connect(&m_retryTimer, &QTimer::timeout, this, &ZLOSCUnsentMessages::retryIsDue);
}

bool ZLOSCUnsentMessages::note(const ZLOSCOutPort& port, const QString& address, const QString& failure)
{
    if (failure.isEmpty() && !m_unsent.contains(&port))
        return true;
    if (!m_unsent.contains(&port))
        connect(&port, &QObject::destroyed, this, [this](const QObject* gone) {
            m_unsent.remove(gone);
            updateTimer();
        });
    Unsent& unsent = m_unsent[&port];
    bool isNews = true;
    if (failure.isEmpty()) {
        unsent.lacked.removeAll(address);
        unsent.failures.remove(address);
    } else {
        unsent.lacked += newlyLacked(port, address);
        unsent.lacked.removeDuplicates();
        isNews = std::exchange(unsent.failures[address], failure) != failure;
    }
    updateTimer();
    return isNews;
}

QStringList ZLOSCUnsentMessages::lackedBy(const ZLOSCOutPort* port) const
{
    return m_unsent.value(port).lacked;
}

QStringList ZLOSCUnsentMessages::newlyLacked(const ZLOSCOutPort& port, const QString& address) const
{
    // An output without an address is told everything as soon as it has one.
    if (port.address().isNull())
        return {};
    // While it could not be reached, the other side may have been switched off and on.
    if (port.state() == ZLOSCOutPort::State::Failed)
        return m_statusAddresses;
    return m_statusAddresses.contains(address) ? QStringList { address } : QStringList();
}

void ZLOSCUnsentMessages::updateTimer()
{
    const bool isAnythingLacked =
        std::ranges::any_of(m_unsent, [](const Unsent& unsent) { return !unsent.lacked.isEmpty(); });
    if (!isAnythingLacked)
        m_retryTimer.stop();
    else if (!m_retryTimer.isActive())
        m_retryTimer.start();
}
