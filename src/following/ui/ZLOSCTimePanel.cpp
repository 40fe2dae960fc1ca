#include "following/ui/ZLOSCTimePanel.h"

#include "following/ZLFollowingSettings.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

const QStringList purposes { u"time"_s, u"play"_s, u"record"_s, u"pause"_s };
/// In the order of the presets, by purpose; the last preset is none.
const QList<QStringList> presets { { u"/time"_s, u"/play"_s, u"/record"_s, u"/pause"_s }, { u"/time"_s, {}, {}, {} } };

QStringList presentAddresses()
{
    QStringList addresses;
    for (const QString& purpose : purposes)
        addresses.append(ZLFollowingSettings::oscAddress(purpose));
    return addresses;
}

}

ZLOSCTimePanel::ZLOSCTimePanel(QWidget* parent)
    : QGroupBox(tr("Time by OSC"), parent)
    , m_preset(new QComboBox(this))
{
    setObjectName(u"oscTimePanel"_s);
    auto* const form = new QFormLayout(this);
    m_preset->setObjectName(u"oscPreset"_s);
    m_preset->addItems({ u"REAPER"_s, tr("Time alone"), tr("Own addresses") });
    form->addRow(tr("P&reset:"), m_preset);
    addField(*form, u"time"_s, tr("&Time:"));
    addField(*form, u"play"_s, tr("&Play:"));
    addField(*form, u"record"_s, tr("R&ecord:"));
    addField(*form, u"pause"_s, tr("P&ause:"));
    auto* const note = new QLabel(tr("The recorder sends to Zelta's OSC port, which OSC Connections shows."), this);
    note->setWordWrap(true);
    form->addRow(note);
    connect(m_preset, &QComboBox::activated, this, &ZLOSCTimePanel::takePreset);
    update();
}

void ZLOSCTimePanel::addField(QFormLayout& form, const QString& purpose, const QString& title)
{
    auto* const field = new QLineEdit(this);
    field->setObjectName(u"oscAddress-"_s + purpose);
    field->setPlaceholderText(tr("not sent"));
    field->setToolTip(tr("An address such as /time; * stands for any signs, ? for one."));
    form.addRow(title, field);
    m_fields.insert(purpose, field);
    connect(field, &QLineEdit::editingFinished, this, [this, purpose] { takeAddress(purpose); });
}

void ZLOSCTimePanel::takePreset(int number)
{
    if (number >= presets.size())
        return;
    for (qsizetype index = 0; index < purposes.size(); ++index)
        ZLFollowingSettings::setOSCAddress(
            purposes[index], presets[number][index].isNull() ? u""_s : presets[number][index]);
    update();
    Q_EMIT settingsDidChange();
}

void ZLOSCTimePanel::takeAddress(const QString& purpose)
{
    const QString address = m_fields.value(purpose)->text().trimmed();
    if (address == ZLFollowingSettings::oscAddress(purpose))
        return;
    ZLFollowingSettings::setOSCAddress(purpose, address);
    update();
    Q_EMIT settingsDidChange();
}

void ZLOSCTimePanel::update()
{
    const QStringList addresses = presentAddresses();
    for (qsizetype index = 0; index < purposes.size(); ++index)
        m_fields.value(purposes[index])->setText(addresses[index]);
    int preset = 0;
    while (preset < presets.size() && presets[preset] != addresses)
        ++preset;
    m_preset->setCurrentIndex(preset);
}
