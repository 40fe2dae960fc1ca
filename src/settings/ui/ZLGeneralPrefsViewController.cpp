#include "settings/ui/ZLGeneralPrefsViewController.h"

#include "resources/ZLSymbolIcon.h"
#include "settings/ZLSettingsManager.h"
#include "ui_ZLGeneralPrefsViewController.h"

#include <QSignalBlocker>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// What is shown is no change of the user's.
void showState(QCheckBox* box, bool isOn)
{
    const QSignalBlocker quiet(box);
    box->setChecked(isOn);
}

}

ZLGeneralPrefsViewController::ZLGeneralPrefsViewController(OutputDevices outputDevices, QWidget* parent)
    : MASPreferencesViewController(parent)
    , m_ui(std::make_unique<Ui::ZLGeneralPrefsViewController>())
    , m_outputDevices(std::move(outputDevices))
{
    m_ui->setupUi(this);
    // Not the clicks: a screen reader toggles a box without one.
    const auto connectBox = [this](
                                QCheckBox* box, auto operation) { connect(box, &QCheckBox::toggled, this, operation); };
    connectBox(m_ui->automaticChapterButton, &ZLGeneralPrefsViewController::toggleAutomaticChapter);
    connectBox(m_ui->automaticPauseButton, &ZLGeneralPrefsViewController::toggleChapterPause);
    connectBox(m_ui->playSoundButton, &ZLGeneralPrefsViewController::togglePlaySound);
    connectBox(m_ui->quickEditButton, &ZLGeneralPrefsViewController::toggleQuickEdit);
    connect(m_ui->fontsizeField, &QDoubleSpinBox::valueChanged, this, &ZLGeneralPrefsViewController::fontsizeChanged);
    connect(m_ui->outputSelector, &QComboBox::activated, this, &ZLGeneralPrefsViewController::outputDidChange);
}

ZLGeneralPrefsViewController::~ZLGeneralPrefsViewController() = default;

QString ZLGeneralPrefsViewController::identifier() const
{
    return u"GeneralPreferences"_s;
}

QString ZLGeneralPrefsViewController::toolbarItemLabel() const
{
    return tr("General");
}

QIcon ZLGeneralPrefsViewController::toolbarItemImage() const
{
    return ZLSymbolIcon::named(u"PreferencesGeneral"_s);
}

QWidget* ZLGeneralPrefsViewController::initialKeyView() const
{
    return m_ui->automaticChapterButton;
}

void ZLGeneralPrefsViewController::viewWillAppear()
{
    showState(m_ui->automaticChapterButton, ZLSettingsManager::createNewChapterOnStart());
    showState(m_ui->automaticPauseButton, ZLSettingsManager::createNewChapterAfterPause());
    showState(m_ui->playSoundButton, ZLSettingsManager::playSoundBeforeRecording());
    showState(m_ui->quickEditButton, ZLSettingsManager::showQuickEdit());
    {
        const QSignalBlocker quiet(m_ui->fontsizeField);
        m_ui->fontsizeField->setValue(double(ZLSettingsManager::fontSize()));
    }
    fillOutputSelector();
}

bool ZLGeneralPrefsViewController::commitEditing()
{
    m_ui->fontsizeField->interpretText();
    return true;
}

void ZLGeneralPrefsViewController::toggleAutomaticChapter()
{
    ZLSettingsManager::setCreateNewChapterOnStart(!ZLSettingsManager::createNewChapterOnStart());
}

void ZLGeneralPrefsViewController::toggleChapterPause()
{
    ZLSettingsManager::setCreateNewChapterAfterPause(!ZLSettingsManager::createNewChapterAfterPause());
}

void ZLGeneralPrefsViewController::togglePlaySound()
{
    ZLSettingsManager::setPlaySoundBeforeRecording(!ZLSettingsManager::playSoundBeforeRecording());
}

void ZLGeneralPrefsViewController::toggleQuickEdit()
{
    ZLSettingsManager::setShowQuickEdit(!ZLSettingsManager::showQuickEdit());
}

void ZLGeneralPrefsViewController::fontsizeChanged()
{
    ZLSettingsManager::setFontSize(float(m_ui->fontsizeField->value()));
}

void ZLGeneralPrefsViewController::outputDidChange()
{
    const QList<ZLOutputDevice> devices = m_outputDevices().value_or(QList<ZLOutputDevice>());
    const int index = m_ui->outputSelector->currentIndex();
    // Outputs may have gone since the list was shown.
    if (index >= 0 && index < devices.size())
        ZLSettingsManager::setAudioOutputDevice(devices.at(index).id);
    else
        fillOutputSelector();
}

void ZLGeneralPrefsViewController::fillOutputSelector()
{
    const auto listed = m_outputDevices();
    const QList<ZLOutputDevice> devices = listed.value_or(QList<ZLOutputDevice>());
    const QString stored = ZLSettingsManager::audioOutputDevice();
    int selected = 0;
    m_ui->outputSelector->clear();
    for (int i = 0; i < devices.size(); ++i) {
        m_ui->outputSelector->addItem(devices.at(i).name);
        if (devices.at(i).id == stored && !stored.isNull())
            selected = i;
    }
    if (devices.isEmpty())
        m_ui->outputSelector->addItem(listed ? tr("No sound output found") : tr("No sound server found"));
    m_ui->outputSelector->setCurrentIndex(selected);
    m_ui->outputSelector->setEnabled(!devices.isEmpty());
    m_ui->outputSelector->setToolTip(
        listed ? QString() : tr("The desktop's sound server does not answer, so no beep can be heard."));
}

void ZLGeneralPrefsViewController::setQuickEditNotice(const QString& text)
{
    m_ui->quickEditNotice->setText(text);
    m_ui->quickEditButton->setAccessibleDescription(text);
}
