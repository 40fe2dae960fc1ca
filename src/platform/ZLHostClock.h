#pragma once

/// The clock that recorded time is measured with: seconds as a double since an arbitrary origin, never going back.
/// A change of the wall clock does not move it. It is injected, so that tests can advance it by hand.
class ZLHostClock {
public:
    virtual ~ZLHostClock() = default;

    /// Seconds since the origin; greater than 0, which elsewhere means "not running".
    [[nodiscard]] virtual double now() const = 0;
};

/// The system's monotonic clock.
class ZLSteadyHostClock final : public ZLHostClock {
public:
    [[nodiscard]] double now() const override;
};
