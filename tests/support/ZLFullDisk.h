#pragma once

#include <QtGlobal>

#include <csignal>
#include <sys/resource.h>

/// While it lives, no file of this process can grow past `bytes`, as on a disk that is full.
class ZLFullDisk {
public:
    explicit ZLFullDisk(rlim_t bytes)
        : m_formerHandler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_formerLimit);
        const rlimit limit { bytes, m_formerLimit.rlim_max };
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~ZLFullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_formerLimit);
        std::signal(SIGXFSZ, m_formerHandler);
    }
    Q_DISABLE_COPY_MOVE(ZLFullDisk)

private:
    rlimit m_formerLimit {};
    void (*m_formerHandler)(int);
};
