#include "platform/sound/ZLPulseLock.h"

#include <pulse/thread-mainloop.h>

ZLPulseLock::ZLPulseLock(pa_threaded_mainloop* mainloop)
    : m_mainloop(mainloop)
{
    pa_threaded_mainloop_lock(m_mainloop);
}

ZLPulseLock::~ZLPulseLock()
{
    pa_threaded_mainloop_unlock(m_mainloop);
}
