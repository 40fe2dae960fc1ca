#include "platform/dnssd/ZLServiceBrowser.h"

#include <algorithm>

ZLServiceBrowser::ZLServiceBrowser(QObject* parent)
    : QObject(parent)
{
}

QList<ZLFoundService> ZLServiceBrowser::services() const
{
    QList<ZLFoundService> sorted = m_services.values();
    std::ranges::stable_sort(sorted, [](const ZLFoundService& left, const ZLFoundService& right) {
        return QString::localeAwareCompare(left.name, right.name) < 0;
    });
    return sorted;
}

void ZLServiceBrowser::setState(State state, const QString& text)
{
    if (m_state == state && m_stateText == text)
        return;
    m_state = state;
    m_stateText = text;
    Q_EMIT stateDidChange();
}

void ZLServiceBrowser::setServices(const Services& services)
{
    if (m_services == services)
        return;
    const Services before = std::exchange(m_services, services);
    // Copies, since a listener may cause the next change.
    const Services after = m_services;
    for (auto service = before.cbegin(); service != before.cend(); ++service) {
        const auto now = after.constFind(service.key());
        if (now == after.cend() || *now != *service)
            Q_EMIT serviceWasRemoved(*service);
    }
    for (auto service = after.cbegin(); service != after.cend(); ++service) {
        const auto then = before.constFind(service.key());
        if (then == before.cend() || *then != *service)
            Q_EMIT serviceWasAdded(*service);
    }
    Q_EMIT servicesDidChange();
}
