#include "platform/osc/ZLOSCManager.h"

using namespace Qt::StringLiterals;

ZLOSCManager::ZLOSCManager(QString inPortLabelBase, QObject* parent)
    : QObject(parent)
    , m_inPortLabelBase(std::move(inPortLabelBase))
{
}

ZLOSCManager::~ZLOSCManager() = default;

void ZLOSCManager::setAccessPolicy(const ZLOSCAccessPolicy& policy)
{
    m_policy = policy;
    for (ZLOSCInPort* input : std::as_const(m_inPorts))
        input->setAccessPolicy(policy);
}

void ZLOSCManager::setFilter(const ZLOSCInPort::Filter& filter)
{
    m_filter = filter;
    for (ZLOSCInPort* input : std::as_const(m_inPorts))
        input->setFilter(filter);
}

ZLOSCInPort* ZLOSCManager::createNewInput()
{
    const QString label =
        m_inPorts.isEmpty() ? m_inPortLabelBase : u"%1 %2"_s.arg(m_inPortLabelBase).arg(m_inPorts.size() + 1);
    auto* input = new ZLOSCInPort(label, this);
    m_inPorts.append(input);
    connect(input, &ZLOSCInPort::messageReceived, this, &ZLOSCManager::receivedOSCMessage);
    connect(input, &ZLOSCInPort::datagramDropped, this, &ZLOSCManager::droppedOSCDatagram);
    input->setFilter(m_filter);
    input->setAccessPolicy(m_policy);
    // The input remembers a failure, see ZLOSCInPort::failure().
    (void)input->bind(m_portRange);
    return input;
}

ZLOSCOutPort* ZLOSCManager::createNewOutput(const QString& label, const QString& host, quint16 port)
{
    auto* output = new ZLOSCOutPort(label, host, port, this);
    connect(output, &ZLOSCOutPort::stateDidChange, this, &ZLOSCManager::outputsDidChange);
    connect(output, &ZLOSCOutPort::didBecomeReady, this, [this, output] { Q_EMIT outputDidBecomeReady(output); });
    m_outPorts.wrlock();
    m_outPorts.changeablePorts().append(output);
    m_outPorts.unlock();
    Q_EMIT outputsDidChange();
    return output;
}

ZLOSCOutPort* ZLOSCManager::createNewOutput(const QString& label, const ZLOSCPeer& peer)
{
    return createNewOutput(label, peer.address.toString(), peer.port);
}

void ZLOSCManager::removeOutput(ZLOSCOutPort* port)
{
    m_outPorts.wrlock();
    const bool wasListed = m_outPorts.changeablePorts().removeOne(port);
    m_outPorts.unlock();
    if (!wasListed)
        return;
    // What the port still has to report is of no use any more.
    port->disconnect(this);
    port->deleteLater();
    Q_EMIT outputsDidChange();
}
