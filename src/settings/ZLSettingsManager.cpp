#include "settings/ZLSettingsManager.h"

#include <QHash>
#include <QSettings>
#include <QStandardPaths>
#include <QVariant>

#include <algorithm>
#include <array>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// The persistent values and, behind them, the registered fallbacks.
struct SettingsStore {
    std::unique_ptr<QSettings> persistent;
    QHash<QString, QVariant> registered;
};

constexpr quint16 defaultOSCInputPort = 9358;

/// How the choices are written, in the order of ZLOSCAccept.
constexpr std::array oscAcceptWords { "thisComputerOnly"_L1, "directlyConnectedNetworks"_L1, "onlyTheseAddresses"_L1 };

SettingsStore& settingsStore()
{
    static SettingsStore store;
    if (!store.persistent) {
        const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
        store.persistent = std::make_unique<QSettings>(folder + "/zelta/zelta.conf"_L1, QSettings::IniFormat);
    }
    return store;
}

/// The file has no place for the empty key, which is a key like any other here.
QString nameInFile(const QString& key)
{
    return key.isEmpty() ? u"ZLEmptyKey"_s : key;
}

QVariant settingFor(const QString& key)
{
    const SettingsStore& store = settingsStore();
    return store.persistent->value(nameInFile(key), store.registered.value(key));
}

void storeSetting(const QString& key, const QVariant& value)
{
    settingsStore().persistent->setValue(nameInFile(key), value);
    settingsStore().persistent->sync();
}

void removeSetting(const QString& key)
{
    settingsStore().persistent->remove(nameInFile(key));
    settingsStore().persistent->sync();
}

}

void ZLSettingsManager::useFile(const QString& path)
{
    settingsStore().persistent = std::make_unique<QSettings>(path, QSettings::IniFormat);
}

ZLSettingsNotifications& ZLSettingsManager::notifications()
{
    static ZLSettingsNotifications notifications;
    return notifications;
}

void ZLSettingsManager::registerDefaults(float systemFontSize)
{
    auto& registered = settingsStore().registered;
    registered.insert(ZLSettingKey::NewChapterOnStart, true);
    registered.insert(ZLSettingKey::NewChapterAfterPause, false);
    registered.insert(ZLSettingKey::PlaySoundBeforeRecording, false);
    registered.insert(ZLSettingKey::GlobalHotkeys, false);
    registered.insert(ZLSettingKey::ShowAbsoluteTime, false);
    registered.insert(ZLSettingKey::FontSize, systemFontSize);
}

bool ZLSettingsManager::createNewChapterOnStart()
{
    return settingFor(ZLSettingKey::NewChapterOnStart).toBool();
}

void ZLSettingsManager::setCreateNewChapterOnStart(bool enabled)
{
    storeSetting(ZLSettingKey::NewChapterOnStart, enabled);
}

bool ZLSettingsManager::createNewChapterAfterPause()
{
    return settingFor(ZLSettingKey::NewChapterAfterPause).toBool();
}

void ZLSettingsManager::setCreateNewChapterAfterPause(bool enabled)
{
    storeSetting(ZLSettingKey::NewChapterAfterPause, enabled);
}

bool ZLSettingsManager::playSoundBeforeRecording()
{
    return settingFor(ZLSettingKey::PlaySoundBeforeRecording).toBool();
}

void ZLSettingsManager::setPlaySoundBeforeRecording(bool enabled)
{
    storeSetting(ZLSettingKey::PlaySoundBeforeRecording, enabled);
}

float ZLSettingsManager::fontSize()
{
    return settingFor(ZLSettingKey::FontSize).toFloat();
}

void ZLSettingsManager::setFontSize(float points)
{
    // Stored as a double: a float would be written in a binary form that nobody can read or edit.
    storeSetting(ZLSettingKey::FontSize, double(points));
    Q_EMIT notifications().ZLFontSizeSettingDidChange();
}

bool ZLSettingsManager::globalHotkeys()
{
    return settingFor(ZLSettingKey::GlobalHotkeys).toBool();
}

void ZLSettingsManager::setGlobalHotkeys(bool enabled)
{
    storeSetting(ZLSettingKey::GlobalHotkeys, enabled);
    Q_EMIT notifications().ZLGlobalHotkeysDidChange();
}

QString ZLSettingsManager::audioOutputDevice()
{
    return settingFor(ZLSettingKey::AudioOutputDevice).toString();
}

void ZLSettingsManager::setAudioOutputDevice(const QString& identifier)
{
    if (identifier.isNull())
        removeSetting(ZLSettingKey::AudioOutputDevice);
    else
        storeSetting(ZLSettingKey::AudioOutputDevice, identifier);
}

bool ZLSettingsManager::showAbsoluteTime()
{
    return settingFor(ZLSettingKey::ShowAbsoluteTime).toBool();
}

void ZLSettingsManager::setShowAbsoluteTime(bool enabled)
{
    storeSetting(ZLSettingKey::ShowAbsoluteTime, enabled);
    Q_EMIT notifications().ZLShowAbsoluteTimeSettingDidChange();
}

bool ZLSettingsManager::showQuickEdit()
{
    return settingFor(ZLSettingKey::ShowQuickEdit).toBool();
}

void ZLSettingsManager::setShowQuickEdit(bool enabled)
{
    storeSetting(ZLSettingKey::ShowQuickEdit, enabled);
}

quint16 ZLSettingsManager::oscInputPort()
{
    const int port = settingFor(ZLSettingKey::OSCInputPort).toInt();
    return port > 0 && port <= 0xffff ? static_cast<quint16>(port) : defaultOSCInputPort;
}

void ZLSettingsManager::setOSCInputPort(quint16 port)
{
    storeSetting(ZLSettingKey::OSCInputPort, int(port));
    Q_EMIT notifications().ZLOSCInputPortSettingDidChange();
}

ZLOSCAccept ZLSettingsManager::oscAccept()
{
    const QString word = settingFor(ZLSettingKey::OSCAccept).toString();
    const auto found = std::find(oscAcceptWords.begin(), oscAcceptWords.end(), word);
    return found == oscAcceptWords.end() ? ZLOSCAccept::DirectlyConnectedNetworks
                                         : ZLOSCAccept(found - oscAcceptWords.begin());
}

void ZLSettingsManager::setOSCAccept(ZLOSCAccept accept)
{
    storeSetting(ZLSettingKey::OSCAccept, QString(oscAcceptWords.at(size_t(accept))));
    Q_EMIT notifications().ZLOSCAcceptSettingDidChange();
}

QStringList ZLSettingsManager::oscAcceptedAddresses()
{
    return settingFor(ZLSettingKey::OSCAcceptedAddresses).toStringList();
}

void ZLSettingsManager::setOSCAcceptedAddresses(const QStringList& addresses)
{
    storeSetting(ZLSettingKey::OSCAcceptedAddresses, addresses);
    Q_EMIT notifications().ZLOSCAcceptSettingDidChange();
}

QList<ZLOSCDestination> ZLSettingsManager::oscOutputs()
{
    QList<ZLOSCDestination> outputs;
    const QStringList texts = settingFor(ZLSettingKey::OSCOutputs).toStringList();
    for (const QString& text : texts) {
        if (const auto output = ZLOSCDestination::fromText(text))
            outputs.append(*output);
    }
    return outputs;
}

void ZLSettingsManager::setOSCOutputs(const QList<ZLOSCDestination>& outputs)
{
    QStringList texts;
    for (const ZLOSCDestination& output : outputs)
        texts.append(output.text());
    storeSetting(ZLSettingKey::OSCOutputs, texts);
    Q_EMIT notifications().ZLOSCOutputsSettingDidChange();
}

bool ZLSettingsManager::oscAnswersSenders()
{
    return settingFor(ZLSettingKey::OSCAnswerSenders).toBool();
}

void ZLSettingsManager::setOSCAnswersSenders(bool enabled)
{
    storeSetting(ZLSettingKey::OSCAnswerSenders, enabled);
    Q_EMIT notifications().ZLOSCAnswerSendersSettingDidChange();
}

std::optional<QVariantMap> ZLSettingsManager::keyComboForKey(const QString& key)
{
    const QVariant shortcut = settingFor(key);
    // A damaged entry must not read as an empty shortcut, which stands for the bare key of code 0.
    if (shortcut.typeId() != QMetaType::QVariantMap)
        return std::nullopt;
    return shortcut.toMap();
}

void ZLSettingsManager::setKeyCombo(const QVariantMap& shortcut, const QString& key)
{
    storeSetting(key, shortcut);
    Q_EMIT notifications().ZLShortcutsDidChange();
}

void ZLSettingsManager::removeKeyComboForKey(const QString& key)
{
    removeSetting(key);
    Q_EMIT notifications().ZLShortcutsDidChange();
}

QStringList ZLSettingsManager::allKeyComboKeys()
{
    return { ZLKeyComboKey::ToggleRecording, ZLKeyComboKey::NewChapter, ZLKeyComboKey::RemoveSelectedChapter,
        ZLKeyComboKey::RemoveLastChapter, ZLKeyComboKey::SelectLastChapter, ZLKeyComboKey::SelectNextChapter };
}

QString ZLSettingsManager::textForKey(const QString& key)
{
    return settingFor(key).toString();
}

void ZLSettingsManager::setText(const QString& text, const QString& key)
{
    storeSetting(key, text);
}
