#pragma once

#include "platform/dnssd/ZLServiceBrowser.h"
#include "platform/dnssd/ZLServicePublisher.h"

#include <QGroupBox>

class QLabel;
class QListWidget;
class QPushButton;

/// The control surfaces that offer themselves on the network, each ready to become an output.
class ZLOSCServicesPanel : public QGroupBox {
    Q_OBJECT

public:
    /// Both have to outlive the panel. What the publisher announces is left out.
    ZLOSCServicesPanel(const ZLServiceBrowser& browser, const ZLServicePublisher* publisher, QWidget* parent = nullptr);

Q_SIGNALS:
    /// The text names a host and a port.
    void outputRequested(const QString& destination);

private:
    void update();
    void requestSelected();

    const ZLServiceBrowser& m_browser;
    const ZLServicePublisher* m_publisher;
    QListWidget* m_services;
    QLabel* m_note;
    QPushButton* m_addButton;
};
