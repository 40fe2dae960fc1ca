#pragma once

#include <chrono>
#include <memory>

/// Work that hangs on a disk that does not answer. The kernel gives no thread back that waits in a write, so the
/// program goes on without it, and what the thread uses has to live as long as the process.
namespace ZLAbandonedWork {

/// Keeps `owner`, until it is dropped or for ever. Both may be called from any thread.
void keep(std::shared_ptr<void> owner);
/// The disk has answered after all, and nothing uses the owner any more.
void drop(const std::shared_ptr<void>& owner);
[[nodiscard]] bool isAny();

/// How long the end of the program may take once everything is saved or given up, wherever it hangs.
constexpr std::chrono::seconds LongestEnd { 10 };
/// From here on the process ends by itself after that time, with EXIT_FAILURE.
void endProcessSoon();
/// To be returned from main: where something was abandoned, the process ends at once, for a thread that wakes up now
/// would find only half of the program.
[[nodiscard]] int exitStatus(int status);

}
