#include "settings/ui/ZLShortcutPrefsViewController.h"

#include "commands/ZLRemoteActions.h"
#include "resources/ZLSymbolIcon.h"
#include "settings/ZLSettingsManager.h"
#include "settings/ui/ZLShortcutRecorder.h"
#include "ui_ZLShortcutPrefsViewController.h"

#include <QLabel>
#include <QSignalBlocker>

#include <algorithm>

using namespace Qt::StringLiterals;

ZLShortcutPrefsViewController::ZLShortcutPrefsViewController(QWidget* parent)
    : MASPreferencesViewController(parent)
    , m_ui(std::make_unique<Ui::ZLShortcutPrefsViewController>())
{
    // The fields are made first, so the Tab key comes to them first.
    for (const ZLRemoteAction& action : ZLRemoteActions::all())
        m_rows.append({ new ZLShortcutRecorder(this), action.settingsKey });
    m_ui->setupUi(this);
    for (qsizetype i = 0; i < m_rows.size(); ++i)
        addRow(int(i), ZLRemoteActions::all()[i]);
    // Not the clicks: a screen reader toggles the box without one.
    connect(m_ui->globalButton, &QCheckBox::toggled, this, &ZLShortcutPrefsViewController::globalSettingDidChange);
    m_ui->globalNotice->setMinimumHeight(3 * fontMetrics().lineSpacing());
}

ZLShortcutPrefsViewController::~ZLShortcutPrefsViewController() = default;

QString ZLShortcutPrefsViewController::identifier() const
{
    return u"ShortcutPreferences"_s;
}

QString ZLShortcutPrefsViewController::toolbarItemLabel() const
{
    return tr("Shortcuts");
}

QIcon ZLShortcutPrefsViewController::toolbarItemImage() const
{
    return ZLSymbolIcon::named(u"Advanced"_s);
}

QWidget* ZLShortcutPrefsViewController::initialKeyView() const
{
    return m_rows.constFirst().recorder;
}

void ZLShortcutPrefsViewController::viewWillAppear()
{
    for (const Row& row : std::as_const(m_rows))
        row.recorder->setObjectValue(ZLSettingsManager::keyComboForKey(row.settingsKey));
    {
        const QSignalBlocker quiet(m_ui->globalButton);
        m_ui->globalButton->setChecked(ZLSettingsManager::globalHotkeys());
    }
    updateNotices();
}

void ZLShortcutPrefsViewController::shortcutRecorderDidEndRecording(ZLShortcutRecorder& recorder)
{
    const QString key = settingsKeyOf(recorder);
    if (const auto shortcut = recorder.objectValue())
        ZLSettingsManager::setKeyCombo(*shortcut, key);
    else
        ZLSettingsManager::removeKeyComboForKey(key);
    updateNotices();
}

void ZLShortcutPrefsViewController::globalSettingDidChange()
{
    ZLSettingsManager::setGlobalHotkeys(m_ui->globalButton->isChecked());
}

void ZLShortcutPrefsViewController::setKeyboardLayout(const ZLKeyboardLayout& layout)
{
    for (const Row& row : std::as_const(m_rows))
        row.recorder->setKeyboardLayout(layout);
}

void ZLShortcutPrefsViewController::setSystemNotices(const QHash<QString, QString>& byKey, const QString& aboutAll)
{
    m_systemNotices = byKey;
    m_ui->globalNotice->setText(aboutAll);
    m_ui->globalButton->setAccessibleDescription(aboutAll);
    updateNotices();
}

bool ZLShortcutPrefsViewController::isRecording() const
{
    return std::any_of(m_rows.cbegin(), m_rows.cend(), [](const Row& row) { return row.recorder->isRecording(); });
}

void ZLShortcutPrefsViewController::addRow(int index, const ZLRemoteAction& action)
{
    ZLShortcutRecorder* recorder = m_rows.at(index).recorder;
    recorder->setObjectName(action.fieldName + "Control"_L1);
    auto* label = new QLabel(action.fieldTitle(), this);
    label->setObjectName(action.fieldName + "Label"_L1);
    label->setBuddy(recorder);
    m_ui->formLayout->insertRow(index, label, recorder);
    recorder->setTitle(label->text().remove(u'&').remove(u':'));
    // Two lines of a notice make the row higher than a label would grow by itself, and the field is in the middle.
    label->setMinimumHeight(recorder->sizeHint().height());
    connect(recorder, &ZLShortcutRecorder::didEndRecording, this,
        [this, recorder] { shortcutRecorderDidEndRecording(*recorder); });
    connect(recorder, &ZLShortcutRecorder::recordingDidStart, this, &ZLShortcutPrefsViewController::recordingDidStart);
    connect(recorder, &ZLShortcutRecorder::recordingDidStop, this, &ZLShortcutPrefsViewController::recordingDidStop);
}

QString ZLShortcutPrefsViewController::settingsKeyOf(const ZLShortcutRecorder& recorder) const
{
    const auto found =
        std::find_if(m_rows.cbegin(), m_rows.cend(), [&recorder](const Row& row) { return row.recorder == &recorder; });
    return found == m_rows.cend() ? u""_s : found->settingsKey;
}

void ZLShortcutPrefsViewController::updateNotices()
{
    for (const Row& row : std::as_const(m_rows)) {
        if (const QString notice = noticeFor(row); !notice.isEmpty())
            row.recorder->setNotice(notice);
        else
            row.recorder->setNotice(remarkFor(row), ZLShortcutRecorder::Notice::Remark);
    }
}

QString ZLShortcutPrefsViewController::remarkFor(const Row& row)
{
    const auto combo = row.recorder->keyCombo();
    const bool makesChapters =
        row.settingsKey == ZLKeyComboKey::ToggleRecording || row.settingsKey == ZLKeyComboKey::NewChapter;
    const bool hasOptionKey = combo && combo->modifiers & ZLHotKeyModifier::option;
    return makesChapters && hasOptionKey ? tr("With Alt: adds a blank chapter") : QString();
}

QString ZLShortcutPrefsViewController::noticeFor(const Row& row) const
{
    const auto combo = row.recorder->keyCombo();
    if (!combo)
        return {};
    const auto other = std::find_if(m_rows.cbegin(), m_rows.cend(), [&](const Row& candidate) {
        return candidate.recorder != row.recorder && candidate.recorder->keyCombo() == combo;
    });
    if (other != m_rows.cend())
        return tr("“%1” has the same keys.").arg(other->recorder->title());
    return m_systemNotices.value(row.settingsKey);
}
