#include "remote/ui/ZLOSCAcceptPanel.h"

#include "platform/osc/ZLOSCNetwork.h"
#include "remote/ui/ZLOSCEntryEditor.h"

#include <QButtonGroup>
#include <QListWidget>
#include <QRadioButton>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int visibleAddresses = 3;

}

ZLOSCAcceptPanel::ZLOSCAcceptPanel(QWidget* parent)
    : QGroupBox(tr("Accept Messages From"), parent)
    , m_choices(new QButtonGroup(this))
{
    setObjectName(u"acceptPanel"_s);
    new QVBoxLayout(this);
    addChoice(ZLOSCAccept::ThisComputerOnly, u"acceptThisComputer"_s, tr("&This computer only"));
    addChoice(ZLOSCAccept::DirectlyConnectedNetworks, u"acceptConnected"_s, tr("&Directly connected networks"));
    addChoice(ZLOSCAccept::OnlyTheseAddresses, u"acceptAddresses"_s, tr("Only these &addresses"));
    buildAddresses();
    connect(m_choices, &QButtonGroup::idClicked, this,
        [](int id) { ZLSettingsManager::setOSCAccept(static_cast<ZLOSCAccept>(id)); });
    connect(&ZLSettingsManager::notifications(), &ZLSettingsNotifications::ZLOSCAcceptSettingDidChange, this,
        &ZLOSCAcceptPanel::update);
    update();
}

void ZLOSCAcceptPanel::addChoice(ZLOSCAccept accept, const QString& objectName, const QString& text)
{
    auto* const button = new QRadioButton(text, this);
    button->setObjectName(objectName);
    m_choices->addButton(button, int(accept));
    layout()->addWidget(button);
}

void ZLOSCAcceptPanel::buildAddresses()
{
    m_addressArea = new QWidget(this);
    m_addresses = new QListWidget(m_addressArea);
    m_addresses->setObjectName(u"acceptedAddresses"_s);
    m_addresses->setAccessibleName(tr("Accepted addresses"));
    m_addresses->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_addresses->setSizeAdjustPolicy(QAbstractScrollArea::AdjustIgnored);
    m_addresses->setFixedHeight((fontMetrics().height() + 4) * visibleAddresses + 2 * m_addresses->frameWidth());
    m_emptyNote = new QLabel(tr("The list is empty: no message is accepted."), m_addressArea);
    m_emptyNote->setObjectName(u"nobodyNote"_s);
    m_emptyNote->setWordWrap(true);
    m_editor = new ZLOSCEntryEditor(
        u"acceptedAddress"_s, tr("Address or network to accept"), tr("192.168.1.20 or 192.168.1.0/24"), m_addressArea);
    auto* const area = new QVBoxLayout(m_addressArea);
    area->setContentsMargins({});
    area->addWidget(m_addresses);
    area->addWidget(m_emptyNote);
    area->addWidget(m_editor);
    layout()->addWidget(m_addressArea);
    connect(m_editor, &ZLOSCEntryEditor::addRequested, this, &ZLOSCAcceptPanel::addAddress);
    connect(m_editor, &ZLOSCEntryEditor::removeRequested, this, &ZLOSCAcceptPanel::removeSelectedAddresses);
    connect(m_addresses, &QListWidget::itemSelectionChanged, this,
        [this] { m_editor->setRemovable(!m_addresses->selectedItems().isEmpty()); });
}

void ZLOSCAcceptPanel::update()
{
    const ZLOSCAccept accept = ZLSettingsManager::oscAccept();
    m_choices->button(int(accept))->setChecked(true);
    m_addressArea->setVisible(accept == ZLOSCAccept::OnlyTheseAddresses);
    updateAddresses();
}

void ZLOSCAcceptPanel::updateAddresses()
{
    const QStringList stored = ZLSettingsManager::oscAcceptedAddresses();
    m_addresses->clear();
    m_addresses->addItems(stored);
    m_emptyNote->setVisible(stored.isEmpty());
    m_editor->setRemovable(false);
}

void ZLOSCAcceptPanel::addAddress(const QString& text)
{
    const std::optional<ZLOSCNetwork> network = ZLOSCNetwork::fromText(text);
    if (!network) {
        m_editor->setProblem(tr("“%1” is not an address. Enter an address such as 192.168.1.20, or a network such as "
                                "192.168.1.0/24.")
                .arg(text));
        return;
    }
    QStringList addresses = ZLSettingsManager::oscAcceptedAddresses();
    const auto isThis = [&](const QString& stored) { return ZLOSCNetwork::fromText(stored) == network; };
    if (std::ranges::any_of(addresses, isThis)) {
        m_editor->setProblem(tr("“%1” is in the list already.").arg(text));
        return;
    }
    addresses.append(text);
    m_editor->clear();
    ZLSettingsManager::setOSCAcceptedAddresses(addresses);
}

void ZLOSCAcceptPanel::removeSelectedAddresses()
{
    QStringList addresses = ZLSettingsManager::oscAcceptedAddresses();
    const QList<QListWidgetItem*> selected = m_addresses->selectedItems();
    for (const QListWidgetItem* item : selected)
        addresses.removeAll(item->text());
    ZLSettingsManager::setOSCAcceptedAddresses(addresses);
}
