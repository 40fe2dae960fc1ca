// A disk that hangs: every write of the program into which this is loaded, into a file whose path begins with
// ZELTA_TEST_HANG_PATH, lasts as long as the file ZELTA_TEST_HANG_SWITCH is there, but two minutes at most.
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <dlfcn.h>
#include <string>
#include <unistd.h>

namespace {

constexpr long longestHang = 120'000; // Milliseconds.
constexpr long lookInterval = 20;

bool isOnHangingDisk(int descriptor)
{
    const char* const folder = std::getenv("ZELTA_TEST_HANG_PATH");
    if (!folder)
        return false;
    char path[4096];
    const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
    const ssize_t length = readlink(link.c_str(), path, sizeof path);
    const size_t wanted = std::strlen(folder);
    return length >= ssize_t(wanted) && std::memcmp(path, folder, wanted) == 0;
}

bool isHanging()
{
    const char* const path = std::getenv("ZELTA_TEST_HANG_SWITCH");
    return path && access(path, F_OK) == 0;
}

}

extern "C" ssize_t write(int descriptor, const void* bytes, size_t count)
{
    using Function = ssize_t (*)(int, const void*, size_t);
    static const auto function = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "write"));
    if (isOnHangingDisk(descriptor)) {
        for (long waited = 0; isHanging() && waited < longestHang; waited += lookInterval) {
            const timespec rest { 0, lookInterval * 1'000'000 };
            nanosleep(&rest, nullptr);
        }
    }
    return function(descriptor, bytes, count);
}
