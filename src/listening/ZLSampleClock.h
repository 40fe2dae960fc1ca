#pragma once

#include <cstdint>

/// When the samples of an input were heard, by another clock. What the input says of each block is uncertain by some
/// milliseconds, and its own clock goes a little fast or slow; a straight line through all of it is right by less than
/// a millisecond.
class ZLSampleClock {
public:
    /// A block whose time is farther off than this, in seconds, does not lie on the line.
    static constexpr double Tolerance = 0.05;

    explicit ZLSampleClock(double samplesPerSecond)
        : m_samplesPerSecond(samplesPerSecond)
    {
    }

    /// The input says that this sample was heard at `time`, in seconds of the other clock.
    void note(std::int64_t sample, double time);
    /// Whether the input says something quite different from what it said before, for some time now: samples are
    /// missing, or its clock jumped.
    [[nodiscard]] bool isLost() const { return m_strayCount >= MostStrays; }

    [[nodiscard]] bool isSet() const { return m_count > 0; }
    /// When the sample was heard, by the other clock.
    [[nodiscard]] double timeOf(std::int64_t sample) const;
    /// By how much the input's seconds are longer than those of the other clock, as a share.
    [[nodiscard]] double drift() const;

private:
    /// In a row: half a second of blocks or more.
    static constexpr int MostStrays = 10;

    [[nodiscard]] double secondsOf(std::int64_t sample) const { return double(sample) / m_samplesPerSecond; }

    double m_samplesPerSecond;
    int m_strayCount = 0;
    /// Of the blocks on the line: how many, and the sums of their least squares. The latter are of the seconds by the
    /// input, and of how much later the other clock says it was.
    int m_count = 0;
    double m_meanSeconds = 0.0;
    double m_meanLag = 0.0;
    double m_secondsSquares = 0.0;
    double m_products = 0.0;
};
