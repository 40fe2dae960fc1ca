#pragma once

#include <QtGlobal>

#include <vector>

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

/// While it lives, half of what this process may have open is taken.
class ZLScarceDescriptors {
public:
    static constexpr int Half = 100;

    ZLScarceDescriptors()
    {
        getrlimit(RLIMIT_NOFILE, &m_formerLimit);
        const rlimit limit { 2 * Half, m_formerLimit.rlim_max };
        setrlimit(RLIMIT_NOFILE, &limit);
        while (m_taken.empty() || m_taken.back() < Half - 1)
            m_taken.push_back(fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 0));
    }
    ~ZLScarceDescriptors()
    {
        while (!m_taken.empty())
            giveBackOne();
        setrlimit(RLIMIT_NOFILE, &m_formerLimit);
    }
    Q_DISABLE_COPY_MOVE(ZLScarceDescriptors)

    void giveBackOne()
    {
        close(m_taken.back());
        m_taken.pop_back();
    }

private:
    rlimit m_formerLimit {};
    std::vector<int> m_taken;
};
