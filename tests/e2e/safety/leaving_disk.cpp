// A disk that is taken away: from the moment at which the file ZELTA_TEST_LEAVE_SWITCH is there, every file whose path
// begins with ZELTA_TEST_LEAVE_PATH answers the program into which this is loaded with an error, until the switch is
// gone.
#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace {

bool isGone(const char* path, size_t length)
{
    const char* const folder = std::getenv("ZELTA_TEST_LEAVE_PATH");
    const char* const lever = std::getenv("ZELTA_TEST_LEAVE_SWITCH");
    const size_t wanted = folder ? std::strlen(folder) : 0;
    if (wanted == 0 || !lever || length < wanted || std::memcmp(path, folder, wanted) != 0)
        return false;
    const int formerError = errno;
    const bool isPulled = access(lever, F_OK) == 0;
    errno = formerError;
    return isPulled;
}

bool isGone(int descriptor)
{
    char path[4096];
    const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
    const ssize_t length = readlink(link.c_str(), path, sizeof path);
    return length > 0 && isGone(path, size_t(length));
}

template <typename Result, typename... Arguments>
Result callUnlessGone(const char* name, int descriptor, Arguments... arguments)
{
    using Function = Result (*)(int, Arguments...);
    const auto function = reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
    if (!isGone(descriptor))
        return function(descriptor, arguments...);
    errno = EIO;
    return -1;
}

int openUnlessGone(const char* name, const char* path, int flags, mode_t mode)
{
    using Function = int (*)(const char*, int, ...);
    const auto function = reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
    if (!isGone(path, std::strlen(path)))
        return function(path, flags, mode);
    errno = EIO;
    return -1;
}

mode_t modeIn(int flags, va_list arguments)
{
    return flags & (O_CREAT | (O_TMPFILE & ~O_DIRECTORY)) ? mode_t(va_arg(arguments, int)) : 0;
}

}

extern "C" {

int open(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeIn(flags, arguments);
    va_end(arguments);
    return openUnlessGone("open", path, flags, mode);
}

int open64(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeIn(flags, arguments);
    va_end(arguments);
    return openUnlessGone("open64", path, flags, mode);
}

ssize_t write(int descriptor, const void* bytes, size_t count)
{
    return callUnlessGone<ssize_t>("write", descriptor, bytes, count);
}

ssize_t pread(int descriptor, void* bytes, size_t count, off_t offset)
{
    return callUnlessGone<ssize_t>("pread", descriptor, bytes, count, offset);
}

ssize_t pread64(int descriptor, void* bytes, size_t count, off64_t offset)
{
    return callUnlessGone<ssize_t>("pread64", descriptor, bytes, count, offset);
}

ssize_t copy_file_range(int from, off64_t* placeInFrom, int to, off64_t* placeInTo, size_t count, unsigned int flags)
{
    return callUnlessGone<ssize_t>("copy_file_range", from, placeInFrom, to, placeInTo, count, flags);
}

int fsync(int descriptor)
{
    return callUnlessGone<int>("fsync", descriptor);
}
}
