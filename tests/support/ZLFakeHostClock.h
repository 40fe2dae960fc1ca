#pragma once

#include "platform/ZLHostClock.h"

/// A host clock that stands where the test put it.
class ZLFakeHostClock final : public ZLHostClock {
public:
    [[nodiscard]] double now() const override { return m_seconds; }
    void setNow(double seconds) { m_seconds = seconds; }
    void advance(double seconds) { m_seconds += seconds; }

private:
    double m_seconds = 100.0;
};
