#include "following/ZLFollowingSettings.h"

#include "settings/ZLSettingsManager.h"

using namespace Qt::StringLiterals;

namespace {

constexpr quint16 usualOBSPort = 4455;

const QString kindKey = QStringLiteral("ZLRecorderKindSetting");
const QString startsRecorderKey = QStringLiteral("ZLRecorderStartsWithZeltaSetting");
const QString marksChaptersKey = QStringLiteral("ZLRecorderMarksChaptersSetting");
const QString obsHostKey = QStringLiteral("ZLOBSHostSetting");
const QString obsPortKey = QStringLiteral("ZLOBSPortSetting");

/// "ZLOSCTimeAddressSetting", "ZLOSCPlayAddressSetting" and so on.
QString oscAddressKey(const QString& purpose)
{
    return u"ZLOSC%1%2AddressSetting"_s.arg(purpose.at(0).toUpper()).arg(purpose.sliced(1));
}

QString truthText(bool value)
{
    return value ? u"true"_s : u"false"_s;
}

bool isTrue(const QString& key)
{
    return ZLSettingsManager::textForKey(key) == "true"_L1;
}

}

QString ZLFollowingSettings::kind()
{
    return ZLSettingsManager::textForKey(kindKey);
}

void ZLFollowingSettings::setKind(const QString& word)
{
    ZLSettingsManager::setText(word, kindKey);
}

bool ZLFollowingSettings::startsRecorder()
{
    return isTrue(startsRecorderKey);
}

void ZLFollowingSettings::setStartsRecorder(bool enabled)
{
    ZLSettingsManager::setText(truthText(enabled), startsRecorderKey);
}

bool ZLFollowingSettings::marksChapters()
{
    return isTrue(marksChaptersKey);
}

void ZLFollowingSettings::setMarksChapters(bool enabled)
{
    ZLSettingsManager::setText(truthText(enabled), marksChaptersKey);
}

QString ZLFollowingSettings::obsHost()
{
    const QString host = ZLSettingsManager::textForKey(obsHostKey);
    return host.isEmpty() ? u"localhost"_s : host;
}

void ZLFollowingSettings::setOBSHost(const QString& host)
{
    ZLSettingsManager::setText(host, obsHostKey);
}

quint16 ZLFollowingSettings::obsPort()
{
    const uint port = ZLSettingsManager::textForKey(obsPortKey).toUInt();
    return port > 0 && port <= 0xffff ? quint16(port) : usualOBSPort;
}

void ZLFollowingSettings::setOBSPort(quint16 port)
{
    ZLSettingsManager::setText(QString::number(port), obsPortKey);
}

QString ZLFollowingSettings::oscAddress(const QString& purpose)
{
    const QString stored = ZLSettingsManager::textForKey(oscAddressKey(purpose));
    return stored.isNull() ? u'/' + purpose : stored;
}

void ZLFollowingSettings::setOSCAddress(const QString& purpose, const QString& address)
{
    ZLSettingsManager::setText(address, oscAddressKey(purpose));
}
