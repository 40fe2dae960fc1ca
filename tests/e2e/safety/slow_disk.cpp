// A disk that takes its time: every sync and every rename of the program into which this is loaded lasts longer by as
// many milliseconds as ZELTA_TEST_DISK_DELAY says. Beginning and end of each, in seconds of the monotonic clock, are
// appended to the file that ZELTA_TEST_DISK_LOG names.
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

namespace {

double secondsNow()
{
    timespec now {};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return double(now.tv_sec) + double(now.tv_nsec) / 1e9;
}

void waitForDisk()
{
    const char* milliseconds = std::getenv("ZELTA_TEST_DISK_DELAY");
    const long delay = milliseconds ? std::atol(milliseconds) : 0;
    timespec rest { delay / 1000, delay % 1000 * 1'000'000 };
    while (nanosleep(&rest, &rest) != 0) { }
}

void logCall(const char* name, double begin)
{
    const char* path = std::getenv("ZELTA_TEST_DISK_LOG");
    const int file = path ? open(path, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600) : -1;
    if (file < 0)
        return;
    char line[128];
    const int length = std::snprintf(line, sizeof line, "%s %.6f %.6f\n", name, begin, secondsNow());
    if (write(file, line, size_t(length)) != length)
        std::abort();
    close(file);
}

template <typename... Arguments>
int callSlowly(const char* name, Arguments... arguments)
{
    using Function = int (*)(Arguments...);
    const auto function = reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
    const double begin = secondsNow();
    waitForDisk();
    const int result = function(arguments...);
    const int error = errno;
    logCall(name, begin);
    errno = error;
    return result;
}

}

extern "C" {

int fsync(int descriptor)
{
    return callSlowly("fsync", descriptor);
}

int fdatasync(int descriptor)
{
    return callSlowly("fdatasync", descriptor);
}

int rename(const char* from, const char* to) noexcept
{
    return callSlowly("rename", from, to);
}
}
