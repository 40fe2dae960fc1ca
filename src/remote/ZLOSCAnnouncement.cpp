#include "remote/ZLOSCAnnouncement.h"

#include <QSysInfo>

using namespace Qt::StringLiterals;

ZLOSCAnnouncement::ZLOSCAnnouncement(ZLOSCInPort& port, std::unique_ptr<ZLServicePublisher> publisher, QObject* parent)
    : QObject(parent)
    , m_port(port)
    , m_publisher(std::move(publisher))
{
    connect(&port, &ZLOSCInPort::portDidChange, this, &ZLOSCAnnouncement::announce);
    announce();
}

QString ZLOSCAnnouncement::serviceType()
{
    return u"_osc._udp"_s;
}

void ZLOSCAnnouncement::announce()
{
    if (m_port.port() == 0) {
        m_publisher->withdraw();
        return;
    }
    const QString computer = QSysInfo::machineHostName();
    const QString name = computer.isEmpty() ? u"Zelta"_s : u"Zelta on %1"_s.arg(computer);
    m_publisher->publish(name, serviceType(), m_port.port());
}
