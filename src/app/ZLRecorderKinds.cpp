#include "app/ZLRecorderKinds.h"

#include "following/ZLFollowingSettings.h"
#include "following/ZLOBSPassword.h"
#include "platform/ZLHostClock.h"
#include "recorder/jack/ZLJackRecorder.h"
#include "recorder/obs/ZLOBSRecorder.h"
#include "recorder/osctime/ZLOSCTimeRecorder.h"

using namespace Qt::StringLiterals;

namespace {

/// That of the documents: it has no state of its own.
const ZLSteadyHostClock hostClock;

std::unique_ptr<ZLRecorder> obsRecorder(ZLOBSPassword& password)
{
    password.load();
    return std::make_unique<ZLOBSRecorder>(
        ZLOBSAddress { ZLFollowingSettings::obsHost(), ZLFollowingSettings::obsPort(), password.text() }, hostClock);
}

std::unique_ptr<ZLRecorder> oscTimeRecorder(ZLOSCManager& manager)
{
    const ZLOSCTimeAddresses addresses { .time = ZLFollowingSettings::oscAddress(u"time"_s),
        .play = ZLFollowingSettings::oscAddress(u"play"_s),
        .record = ZLFollowingSettings::oscAddress(u"record"_s),
        .pause = ZLFollowingSettings::oscAddress(u"pause"_s) };
    return std::make_unique<ZLOSCTimeRecorder>(manager, addresses);
}

}

QList<ZLRecorderKind> ZLRecorderKinds::all(ZLOSCManager& manager, ZLOBSPassword& password)
{
    return {
        { u"obs"_s, u"OBS Studio"_s, [&password] { return obsRecorder(password); } },
        { u"jack"_s, u"JACK"_s, [] { return std::make_unique<ZLJackRecorder>(hostClock); } },
        { u"osc"_s, u"OSC"_s, [&manager] { return oscTimeRecorder(manager); } },
    };
}
