#include "remote/ui/ZLOSCServicesPanel.h"

#include "settings/ZLOSCDestination.h"

#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int destinationRole = Qt::UserRole;
constexpr int visibleServices = 3;

}

ZLOSCServicesPanel::ZLOSCServicesPanel(
    const ZLServiceBrowser& browser, const ZLServicePublisher* publisher, QWidget* parent)
    : QGroupBox(tr("Found on the Network"), parent)
    , m_browser(browser)
    , m_publisher(publisher)
    , m_services(new QListWidget(this))
    , m_note(new QLabel(this))
    , m_addButton(new QPushButton(tr("Add to &Outputs"), this))
{
    setObjectName(u"servicesPanel"_s);
    m_services->setObjectName(u"services"_s);
    m_services->setAccessibleName(tr("Services found on the network"));
    m_services->setFixedHeight((fontMetrics().height() + 4) * visibleServices + 2 * m_services->frameWidth());
    m_note->setObjectName(u"servicesNote"_s);
    m_note->setTextFormat(Qt::PlainText);
    m_note->setWordWrap(true);
    m_addButton->setObjectName(u"addService"_s);
    auto* const grid = new QGridLayout(this);
    grid->addWidget(m_services, 0, 0, 1, 2);
    grid->addWidget(m_note, 1, 0);
    grid->addWidget(m_addButton, 1, 1, Qt::AlignTop);
    grid->setColumnStretch(0, 1);
    connect(m_addButton, &QPushButton::clicked, this, &ZLOSCServicesPanel::requestSelected);
    connect(m_services, &QListWidget::itemActivated, this, &ZLOSCServicesPanel::requestSelected);
    connect(m_services, &QListWidget::currentRowChanged, this, [this](int row) { m_addButton->setEnabled(row >= 0); });
    connect(&browser, &ZLServiceBrowser::servicesDidChange, this, &ZLOSCServicesPanel::update);
    connect(&browser, &ZLServiceBrowser::stateDidChange, this, &ZLOSCServicesPanel::update);
    if (publisher)
        connect(publisher, &ZLServicePublisher::stateDidChange, this, &ZLOSCServicesPanel::update);
    update();
}

void ZLOSCServicesPanel::update()
{
    const QListWidgetItem* current = m_services->currentItem();
    const QString selected = current ? current->text() : QString();
    m_services->clear();
    const QList<ZLFoundService> services = m_browser.services();
    for (const ZLFoundService& service : services) {
        if (m_publisher && m_publisher->announces(service))
            continue;
        const QString destination = ZLOSCDestination { service.address.toString(), service.port }.text();
        auto* const item = new QListWidgetItem(u"%1 (%2)"_s.arg(service.name, destination), m_services);
        item->setData(destinationRole, destination);
        if (item->text() == selected)
            m_services->setCurrentItem(item);
    }
    m_addButton->setEnabled(m_services->currentRow() >= 0);
    m_note->setText(m_browser.stateText());
}

void ZLOSCServicesPanel::requestSelected()
{
    if (const QListWidgetItem* item = m_services->currentItem())
        Q_EMIT outputRequested(item->data(destinationRole).toString());
}
