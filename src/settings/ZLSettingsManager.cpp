#include "settings/ZLSettingsManager.h"

#include "settings/ZLSettingsFile.h"

#include <QHash>
#include <QStandardPaths>
#include <QVariant>

#include <algorithm>
#include <array>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// The persistent values and, behind them, the registered fallbacks.
struct SettingsStore {
    std::unique_ptr<ZLSettingsFile> persistent;
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
        store.persistent = std::make_unique<ZLSettingsFile>(folder + "/zelta/zelta.conf"_L1);
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
    const QVariant stored = store.persistent->value(nameInFile(key));
    return stored.isValid() ? stored : store.registered.value(key);
}

/// Also what a person types. What is no truth value counts as not stored.
bool booleanFor(const QString& key)
{
    static const QStringList yes { u"true"_s, u"yes"_s, u"on"_s, u"1"_s };
    static const QStringList no { u"false"_s, u"no"_s, u"off"_s, u"0"_s };
    const QString stored = settingFor(key).toString().trimmed().toLower();
    if (yes.contains(stored) || no.contains(stored))
        return yes.contains(stored);
    return settingsStore().registered.value(key).toBool();
}

void storeSetting(const QString& key, const QVariant& value)
{
    settingsStore().persistent->setValue(nameInFile(key), value);
}

void removeSetting(const QString& key)
{
    settingsStore().persistent->remove(nameInFile(key));
}

}

void ZLSettingsManager::useFile(const QString& path)
{
    settingsStore().persistent = std::make_unique<ZLSettingsFile>(path);
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
    return booleanFor(ZLSettingKey::NewChapterOnStart);
}

void ZLSettingsManager::setCreateNewChapterOnStart(bool enabled)
{
    storeSetting(ZLSettingKey::NewChapterOnStart, enabled);
}

bool ZLSettingsManager::createNewChapterAfterPause()
{
    return booleanFor(ZLSettingKey::NewChapterAfterPause);
}

void ZLSettingsManager::setCreateNewChapterAfterPause(bool enabled)
{
    storeSetting(ZLSettingKey::NewChapterAfterPause, enabled);
}

bool ZLSettingsManager::playSoundBeforeRecording()
{
    return booleanFor(ZLSettingKey::PlaySoundBeforeRecording);
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
    // Stored as a double: a float would be written in a binary form that a person cannot read or edit.
    storeSetting(ZLSettingKey::FontSize, double(points));
    Q_EMIT notifications().ZLFontSizeSettingDidChange();
}

bool ZLSettingsManager::globalHotkeys()
{
    return booleanFor(ZLSettingKey::GlobalHotkeys);
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
    return booleanFor(ZLSettingKey::ShowAbsoluteTime);
}

void ZLSettingsManager::setShowAbsoluteTime(bool enabled)
{
    storeSetting(ZLSettingKey::ShowAbsoluteTime, enabled);
    Q_EMIT notifications().ZLShowAbsoluteTimeSettingDidChange();
}

bool ZLSettingsManager::showQuickEdit()
{
    return booleanFor(ZLSettingKey::ShowQuickEdit);
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
    return booleanFor(ZLSettingKey::OSCAnswerSenders);
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
