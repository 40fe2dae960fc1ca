#pragma once

#include "platform/osc/ZLOSCInPort.h"
#include "platform/osc/ZLOSCOutPort.h"
#include "platform/osc/ZLOSCOutPortArray.h"

/// Owns the OSC inputs and outputs of a program and passes on what they report. Lives on the main thread.
class ZLOSCManager : public QObject {
    Q_OBJECT

public:
    /// The first input is labelled with the base alone, the others with the base and their number.
    explicit ZLOSCManager(QString inPortLabelBase, QObject* parent = nullptr);
    ~ZLOSCManager() override;

    /// Taken by inputs that are created later; see ZLOSCInPort::bind() for those that exist.
    void setPortRange(ZLOSCPortRange range) { m_portRange = range; }
    /// For all inputs, those that exist and those created later; see ZLOSCInPort.
    void setAccessPolicy(const ZLOSCAccessPolicy& policy);
    void setFilter(const ZLOSCInPort::Filter& filter);

    /// An input on the first free port of the range. When there is none, it exists all the same and says why.
    /// The manager owns it.
    ZLOSCInPort* createNewInput();

    /// Adds an output at the end of the list. It reports when it is ready, also when that is at once.
    /// The manager owns it.
    ZLOSCOutPort* createNewOutput(const QString& label, const QString& host, quint16 port);
    /// An output to the sender of a message. How long it stays is the caller's decision.
    ZLOSCOutPort* createNewOutput(const QString& label, const ZLOSCPeer& peer);
    /// Takes the output out of the list at once and deletes it soon; ignored when it is none of the manager's.
    void removeOutput(ZLOSCOutPort* port);

    [[nodiscard]] const ZLOSCOutPortArray& outPortArray() const { return m_outPorts; }

Q_SIGNALS:
    /// A message that passed the filter, from any input.
    void receivedOSCMessage(const ZLOSCReceivedMessage& received);
    void droppedOSCDatagram(const ZLOSCDroppedDatagram& dropped);
    /// An output was added or removed, or its state is another.
    void outputsDidChange();
    /// The output is new, or back, or points to another computer now: it needs to be told everything.
    void outputDidBecomeReady(ZLOSCOutPort* port);

private:
    QString m_inPortLabelBase;
    ZLOSCPortRange m_portRange;
    ZLOSCAccessPolicy m_policy;
    ZLOSCInPort::Filter m_filter;
    QList<ZLOSCInPort*> m_inPorts;
    ZLOSCOutPortArray m_outPorts;
};
