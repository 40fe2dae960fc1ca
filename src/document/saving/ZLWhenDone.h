#pragma once

#include "platform/ZLResult.h"

#include <functional>

/// What is to happen when something that was begun is over. Called once, on the thread of the event loop, and perhaps
/// before the call returns that began it.
using ZLWhenDone = std::function<void(const ZLStatus& status)>;
