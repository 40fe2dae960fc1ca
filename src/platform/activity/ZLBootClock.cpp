#include "platform/activity/ZLBootClock.h"

#include <ctime>

double ZLBootClock::now() const
{
    timespec sinceBoot {};
    clock_gettime(CLOCK_BOOTTIME, &sinceBoot);
    return double(sinceBoot.tv_sec) + double(sinceBoot.tv_nsec) / 1e9;
}
