#include "remote/ui/ZLOSCInputPanel.h"

#include "document/ui/ZLFormText.h"
#include "settings/ZLSettingsManager.h"

#include <QEvent>
#include <QFormLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSpinBox>

using namespace Qt::StringLiterals;

namespace {

constexpr int addressMilliseconds = 5000;
constexpr double textToReadOffScale = 1.3;

/// Those that another device can use, IPv4 first; loopback when there is no network.
QString addressesToTypeIn(const QList<ZLOSCNetwork>& networks)
{
    QStringList old;
    QStringList recent;
    for (const ZLOSCNetwork& network : networks) {
        const QHostAddress& address = network.address;
        if (address.isLoopback() || address.isLinkLocal())
            continue;
        (address.protocol() == QAbstractSocket::IPv4Protocol ? old : recent).append(address.toString());
    }
    const QStringList addresses = old + recent;
    return addresses.isEmpty() ? QHostAddress(QHostAddress::LocalHost).toString() : addresses.join(u'\n');
}

}

ZLOSCInputPanel::ZLOSCInputPanel(
    ZLOSCInPort& port, const ZLServicePublisher* publisher, ZLOSCConnectedNetworks::Source networks, QWidget* parent)
    : QGroupBox(tr("Send to This Computer"), parent)
    , m_port(port)
    , m_publisher(publisher)
    , m_networks(std::move(networks))
{
    setObjectName(u"inputPanel"_s);
    auto* const form = new QFormLayout(this);
    m_addresses = ZLFormText::addRow(*form, u"inputAddresses"_s, tr("Address:"));
    m_portInUse = ZLFormText::addRow(*form, u"inputPort"_s, tr("Port:"));
    m_wantedPort = new QSpinBox(this);
    m_wantedPort->setObjectName(u"wantedPort"_s);
    m_wantedPort->setAccessibleName(tr("Preferred port"));
    m_wantedPort->setRange(1, 65535);
    m_wantedPort->setKeyboardTracking(false);
    m_wantedPort->setGroupSeparatorShown(false);
    m_wantedPort->setToolTip(tr("If this port is taken, one of the next nine is used."));
    form->addRow(tr("Preferred port:"), m_wantedPort);
    m_portNote = new QLabel(this);
    m_announcement = new QLabel(this);
    m_portNote->setObjectName(u"portNote"_s);
    m_announcement->setObjectName(u"announcement"_s);
    for (QLabel* label : { m_portNote, m_announcement }) {
        label->setWordWrap(true);
        label->setTextFormat(Qt::PlainText);
        form->addRow(label);
    }
    enlargeTexts();
    m_addressTimer.setInterval(addressMilliseconds);
    connect(&m_addressTimer, &QTimer::timeout, this, &ZLOSCInputPanel::updateAddresses);
    connect(&port, &ZLOSCInPort::portDidChange, this, &ZLOSCInputPanel::updatePort);
    connect(&ZLSettingsManager::notifications(), &ZLSettingsNotifications::ZLOSCInputPortSettingDidChange, this,
        &ZLOSCInputPanel::updatePort);
    connect(m_wantedPort, &QSpinBox::valueChanged, this,
        [](int value) { ZLSettingsManager::setOSCInputPort(quint16(value)); });
    if (publisher)
        connect(publisher, &ZLServicePublisher::stateDidChange, this, &ZLOSCInputPanel::updateAnnouncement);
    updatePort();
    updateAnnouncement();
}

void ZLOSCInputPanel::enlargeTexts()
{
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * textToReadOffScale);
    large.setBold(true);
    m_addresses->setFont(large);
    m_portInUse->setFont(large);
}

void ZLOSCInputPanel::showEvent(QShowEvent* event)
{
    updateAddresses();
    m_addressTimer.start();
    QGroupBox::showEvent(event);
}

void ZLOSCInputPanel::hideEvent(QHideEvent* event)
{
    m_addressTimer.stop();
    QGroupBox::hideEvent(event);
}

void ZLOSCInputPanel::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::FontChange)
        enlargeTexts();
    QGroupBox::changeEvent(event);
}

void ZLOSCInputPanel::updateAddresses()
{
    const QString text = addressesToTypeIn(m_networks());
    // Setting the same text anew would take away what is selected.
    if (text == m_addresses->text())
        return;
    m_addresses->setText(text);
    m_addresses->setAccessibleName(tr("Address: %1").arg(text));
}

void ZLOSCInputPanel::updatePort()
{
    const QSignalBlocker blocker(m_wantedPort);
    const quint16 wanted = ZLSettingsManager::oscInputPort();
    m_wantedPort->setValue(wanted);
    const bool isOpen = m_port.port() != 0;
    m_portInUse->setText(isOpen ? QString::number(m_port.port()) : tr("none"));
    m_portInUse->setAccessibleName(tr("Port: %1").arg(m_portInUse->text()));
    if (!isOpen)
        m_portNote->setText(m_port.failure());
    else if (m_port.port() != wanted)
        m_portNote->setText(tr("Port %1 is used instead of the preferred one.").arg(m_port.port()));
    m_portNote->setVisible(!isOpen || m_port.port() != wanted);
}

void ZLOSCInputPanel::updateAnnouncement()
{
    m_announcement->setText(m_publisher ? m_publisher->stateText() : QString());
    m_announcement->setVisible(!m_announcement->text().isEmpty());
}
