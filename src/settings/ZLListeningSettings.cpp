#include "settings/ZLListeningSettings.h"

#include "settings/ZLSettingsManager.h"

using namespace Qt::StringLiterals;

namespace {

const QString listenAlongKey = QStringLiteral("ZLListenAlongSetting");
const QString listeningSourceKey = QStringLiteral("ZLListeningSourceSetting");
const QString listeningAgreedKey = QStringLiteral("ZLListeningAgreedSetting");
const QString listeningYes = QStringLiteral("yes");

bool isYes(const QString& key)
{
    return ZLSettingsManager::textForKey(key) == listeningYes;
}

}

bool ZLListeningSettings::isOn()
{
    return isAgreed() && isYes(listenAlongKey);
}

void ZLListeningSettings::setOn(bool on)
{
    ZLSettingsManager::setText(on ? listeningYes : u"no"_s, listenAlongKey);
}

QString ZLListeningSettings::source()
{
    return ZLSettingsManager::textForKey(listeningSourceKey);
}

void ZLListeningSettings::setSource(const QString& id)
{
    ZLSettingsManager::setText(id, listeningSourceKey);
}

bool ZLListeningSettings::isAgreed()
{
    return isYes(listeningAgreedKey);
}

void ZLListeningSettings::setAgreed()
{
    ZLSettingsManager::setText(listeningYes, listeningAgreedKey);
}
