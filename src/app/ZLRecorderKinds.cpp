#include "app/ZLRecorderKinds.h"

#include "following/ZLFollowingSettings.h"
#include "recorder/osctime/ZLOSCTimeRecorder.h"

using namespace Qt::StringLiterals;

namespace {

std::unique_ptr<ZLRecorder> oscTimeRecorder(ZLOSCManager& manager)
{
    const ZLOSCTimeAddresses addresses { .time = ZLFollowingSettings::oscAddress(u"time"_s),
        .play = ZLFollowingSettings::oscAddress(u"play"_s),
        .record = ZLFollowingSettings::oscAddress(u"record"_s),
        .pause = ZLFollowingSettings::oscAddress(u"pause"_s) };
    return std::make_unique<ZLOSCTimeRecorder>(manager, addresses);
}

}

QList<ZLRecorderKind> ZLRecorderKinds::all(ZLOSCManager& manager)
{
    return {
        { u"osc"_s, u"OSC"_s, [&manager] { return oscTimeRecorder(manager); } },
    };
}
