#include "recorder/osctime/ZLOSCTimeAddresses.h"

using namespace Qt::StringLiterals;

ZLOSCTimeAddresses ZLOSCTimeAddresses::reaper()
{
    return { .time = u"/time"_s, .play = u"/play"_s, .record = u"/record"_s, .pause = u"/pause"_s };
}

ZLOSCTimeAddresses ZLOSCTimeAddresses::timeAlone()
{
    return { .time = u"/time"_s };
}

bool ZLOSCTimeAddresses::contain(QStringView address) const
{
    return isMatch(time, address) || isMatch(play, address) || isMatch(record, address) || isMatch(pause, address);
}

/// Never looks further back than to the last star, so that no pattern takes long.
bool ZLOSCTimeAddresses::isMatch(QStringView pattern, QStringView address)
{
    qsizetype inPattern = 0;
    qsizetype inAddress = 0;
    qsizetype lastStar = -1;
    qsizetype afterStar = 0;
    while (inAddress < address.size()) {
        const QChar wanted = inPattern < pattern.size() ? pattern[inPattern] : QChar();
        if (wanted == u'*') {
            lastStar = inPattern++;
            afterStar = inAddress;
        } else if (inPattern < pattern.size() && (wanted == u'?' || wanted == address[inAddress])) {
            ++inPattern;
            ++inAddress;
        } else if (lastStar >= 0) {
            inPattern = lastStar + 1;
            inAddress = ++afterStar;
        } else {
            return false;
        }
    }
    while (inPattern < pattern.size() && pattern[inPattern] == u'*')
        ++inPattern;
    return !pattern.isEmpty() && inPattern == pattern.size();
}
