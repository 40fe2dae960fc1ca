#pragma once

#include "platform/dnssd/ZLServicePublisher.h"
#include "platform/osc/ZLOSCConnectedNetworks.h"
#include "platform/osc/ZLOSCInPort.h"

#include <QGroupBox>
#include <QTimer>

class QFormLayout;
class QLabel;
class QSpinBox;

/// Where messages are to be sent, ready to be typed into a tablet: this computer's addresses and the port in use.
class ZLOSCInputPanel : public QGroupBox {
    Q_OBJECT

public:
    /// All have to outlive the panel; without a publisher nothing is announced.
    ZLOSCInputPanel(ZLOSCInPort& port, const ZLServicePublisher* publisher,
        ZLOSCConnectedNetworks::Source networks = &ZLOSCConnectedNetworks::ofThisComputer, QWidget* parent = nullptr);

protected:
    /// Addresses are asked for only while they can be seen.
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    /// The size of the texts to be read off follows the font.
    void changeEvent(QEvent* event) override;

private:
    void enlargeTexts();
    void updateAddresses();
    void updatePort();
    void updateAnnouncement();

    ZLOSCInPort& m_port;
    const ZLServicePublisher* m_publisher;
    ZLOSCConnectedNetworks::Source m_networks;
    QLabel* m_addresses;
    QLabel* m_portInUse;
    QLabel* m_portNote;
    QLabel* m_announcement;
    QSpinBox* m_wantedPort;
    QTimer m_addressTimer;
};
