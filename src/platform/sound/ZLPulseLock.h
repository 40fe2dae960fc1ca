#pragma once

struct pa_threaded_mainloop;

/// Holds the main loop of a connection still while it lives. The loop's own thread holds it for moments only, and never
/// while it waits for the server.
class ZLPulseLock {
public:
    explicit ZLPulseLock(pa_threaded_mainloop* mainloop);
    ~ZLPulseLock();
    ZLPulseLock(const ZLPulseLock&) = delete;
    ZLPulseLock& operator=(const ZLPulseLock&) = delete;

private:
    pa_threaded_mainloop* m_mainloop;
};
