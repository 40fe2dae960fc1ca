#pragma once

#include <QThreadPool>

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

/// While it lives, this process can open no file and no socket, as if the network were gone for new sockets.
class ZLNoMoreDescriptors {
public:
    ZLNoMoreDescriptors()
    {
        // A thread that is about to start needs one, and the toolkit ends the process where it finds none.
        QThreadPool::globalInstance()->waitForDone();
        getrlimit(RLIMIT_NOFILE, &m_formerLimit);
        const int firstFree = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 0);
        close(firstFree);
        const rlimit limit { rlim_t(firstFree), m_formerLimit.rlim_max };
        setrlimit(RLIMIT_NOFILE, &limit);
    }
    ~ZLNoMoreDescriptors() { setrlimit(RLIMIT_NOFILE, &m_formerLimit); }
    Q_DISABLE_COPY_MOVE(ZLNoMoreDescriptors)

private:
    rlimit m_formerLimit {};
};
