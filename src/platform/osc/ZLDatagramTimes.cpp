#include "platform/osc/ZLDatagramTimes.h"

#include <array>
#include <cstring>
#include <ctime>
#include <sys/socket.h>

namespace {

/// The kernel stamps by the wall clock.
double secondsOnWallClockSince(const timespec& moment)
{
    timespec now {};
    clock_gettime(CLOCK_REALTIME, &now);
    return double(now.tv_sec - moment.tv_sec) + double(now.tv_nsec - moment.tv_nsec) / 1e9;
}

}

void ZLDatagramTimes::switchOn(int descriptor)
{
    const int on = 1;
    setsockopt(descriptor, SOL_SOCKET, SO_TIMESTAMPNS, &on, sizeof on);
}

std::optional<double> ZLDatagramTimes::ageOfNext(int descriptor)
{
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(timespec))> control {};
    msghdr header {};
    header.msg_control = control.data();
    header.msg_controllen = control.size();
    if (recvmsg(descriptor, &header, MSG_PEEK | MSG_DONTWAIT) < 0)
        return std::nullopt;
    for (const cmsghdr* part = CMSG_FIRSTHDR(&header); part; part = CMSG_NXTHDR(&header, const_cast<cmsghdr*>(part))) {
        if (part->cmsg_level != SOL_SOCKET || part->cmsg_type != SCM_TIMESTAMPNS)
            continue;
        timespec received {};
        std::memcpy(&received, CMSG_DATA(part), sizeof received);
        return secondsOnWallClockSince(received);
    }
    return std::nullopt;
}
