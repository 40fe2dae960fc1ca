#pragma once

#include "platform/ZLHostClock.h"

/// A steady clock that goes on while the computer sleeps. Recorded time is not measured with it: beside the clock that
/// stands still meanwhile it tells how long a sleep was.
class ZLBootClock final : public ZLHostClock {
public:
    [[nodiscard]] double now() const override;
};
