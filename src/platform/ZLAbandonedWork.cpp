#include "platform/ZLAbandonedWork.h"

#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

namespace {

struct AbandonedWork {
    std::mutex mutex;
    std::vector<std::shared_ptr<void>> owners;
};

/// Never destroyed, as its threads may outlive everything else.
AbandonedWork& abandonedWork()
{
    static auto* const work = new AbandonedWork;
    return *work;
}

}

void ZLAbandonedWork::keep(std::shared_ptr<void> owner)
{
    AbandonedWork& work = abandonedWork();
    const std::lock_guard lock(work.mutex);
    work.owners.push_back(std::move(owner));
}

void ZLAbandonedWork::drop(const std::shared_ptr<void>& owner)
{
    AbandonedWork& work = abandonedWork();
    const std::lock_guard lock(work.mutex);
    std::erase(work.owners, owner);
}

bool ZLAbandonedWork::isAny()
{
    AbandonedWork& work = abandonedWork();
    const std::lock_guard lock(work.mutex);
    return !work.owners.empty();
}

void ZLAbandonedWork::endProcessSoon()
{
    std::thread([] {
        std::this_thread::sleep_for(LongestEnd);
        _exit(EXIT_FAILURE);
    }).detach();
}

int ZLAbandonedWork::exitStatus(int status)
{
    if (isAny()) {
        std::fflush(nullptr);
        _exit(status);
    }
    return status;
}
