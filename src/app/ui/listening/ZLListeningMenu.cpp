#include "app/ui/listening/ZLListeningMenu.h"

#include "listening/ZLListening.h"
#include "settings/ZLListeningSettings.h"

#include <QActionGroup>

#include <algorithm>

using namespace Qt::StringLiterals;

ZLListeningMenu::ZLListeningMenu(ZLListening& listening, QWidget* parent)
    : QMenu(tr("Listen &Along"), parent)
    , m_listening(listening)
    , m_switch(addAction(tr("&Listen Along to the Show")))
    , m_inputs(new QActionGroup(this))
{
    setObjectName(u"listeningMenu"_s);
    setToolTipsVisible(true);
    m_switch->setObjectName(u"listenAlong"_s);
    m_switch->setCheckable(true);
    m_switch->setToolTip(tr("Keep how the show sounds, so that its marks can be found in the finished file."));
    connect(m_switch, &QAction::triggered, this, [this] {
        Q_EMIT switchRequested(!m_listening.isOn());
        // It may be asked first.
        m_switch->setChecked(m_listening.isOn());
    });
    addSection(tr("Input"));
    connect(m_inputs, &QActionGroup::triggered, this,
        [this](const QAction* input) { Q_EMIT sourceRequested(input->data().toString()); });
    connect(this, &QMenu::aboutToShow, this, &ZLListeningMenu::fill);
    // The list may come while the menu is open.
    connect(&listening, &ZLListening::devicesDidChange, this, &ZLListeningMenu::fillInputs);
    fill();
}

void ZLListeningMenu::fill()
{
    m_switch->setChecked(m_listening.isOn());
    m_listening.askForDevices();
    fillInputs();
}

void ZLListeningMenu::fillInputs()
{
    qDeleteAll(m_inputs->actions());
    addInput({}, tr("Default Input of the System"));
    const auto devices = m_listening.devices();
    for (const ZLInputDevice& device : devices)
        addInput(device.id, device.name);
    const QString chosen = ZLListeningSettings::source();
    if (!chosen.isEmpty() && std::ranges::find(devices, chosen, &ZLInputDevice::id) == devices.cend())
        addInput(chosen, tr("%1 (missing)").arg(chosen));
}

void ZLListeningMenu::addInput(const QString& id, const QString& name)
{
    QAction* input = addAction(QString(name).replace(u'&', u"&&"_s));
    input->setObjectName(u"listenTo:"_s + id);
    input->setData(id);
    input->setCheckable(true);
    input->setChecked(id == ZLListeningSettings::source());
    m_inputs->addAction(input);
}
