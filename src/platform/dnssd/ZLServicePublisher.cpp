#include "platform/dnssd/ZLServicePublisher.h"

#include "platform/dnssd/ZLServiceName.h"

ZLServicePublisher::ZLServicePublisher(QObject* parent)
    : QObject(parent)
{
}

bool ZLServicePublisher::announces(const ZLFoundService& service) const
{
    return service.isLocal && !m_announcedName.isEmpty() && service.name == ZLServiceName::cleaned(m_announcedName);
}

void ZLServicePublisher::setState(State state, const QString& text, const QString& announcedName)
{
    if (m_state == state && m_stateText == text && m_announcedName == announcedName)
        return;
    m_state = state;
    m_stateText = text;
    m_announcedName = announcedName;
    Q_EMIT stateDidChange();
}
