#pragma once

#include "platform/dnssd/ZLServicePublisher.h"
#include "platform/osc/ZLOSCInPort.h"

#include <memory>

/// Tells the network on which port OSC messages are received, so that control surfaces find it by themselves.
class ZLOSCAnnouncement : public QObject {
    Q_OBJECT

public:
    /// The type of the service, also of those that others offer.
    [[nodiscard]] static QString serviceType();

    /// `port` has to outlive the object. Without a port in use nothing is announced.
    ZLOSCAnnouncement(ZLOSCInPort& port, std::unique_ptr<ZLServicePublisher> publisher, QObject* parent = nullptr);

    [[nodiscard]] ZLServicePublisher& publisher() const { return *m_publisher; }

private:
    void announce();

    ZLOSCInPort& m_port;
    std::unique_ptr<ZLServicePublisher> m_publisher;
};
