#include "platform/ZLDescriptors.h"

#include <algorithm>
#include <sys/eventfd.h>
#include <sys/resource.h>
#include <unistd.h>

void ZLDescriptors::raiseBound()
{
    constexpr rlim_t enough = 65'536;
    rlimit bound {};
    if (getrlimit(RLIMIT_NOFILE, &bound) != 0)
        return;
    bound.rlim_cur = std::max(bound.rlim_cur, std::min(bound.rlim_max, enough));
    setrlimit(RLIMIT_NOFILE, &bound);
}

bool ZLDescriptors::areScarce()
{
    rlimit bound {};
    // The system gives out the lowest number that is free.
    const int lowestFree = eventfd(0, EFD_CLOEXEC);
    if (lowestFree < 0)
        return true;
    close(lowestFree);
    return getrlimit(RLIMIT_NOFILE, &bound) == 0 && rlim_t(lowestFree) >= bound.rlim_cur / 2;
}
