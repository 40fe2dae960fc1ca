#pragma once

#include <ctime>

namespace ZLProcessorTime {

/// Seconds for which this thread had the processor: a busy machine makes them no more.
inline double seconds()
{
    timespec time {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) + double(time.tv_nsec) / 1e9;
}

}
