#pragma once

/// When the press that gives a command reached the computer, in seconds of ZLHostClock. It is carried with the command,
/// which may be carried out later.
class ZLPressStamp {
public:
    /// Seconds. An older press is none of a program that answers its user.
    static constexpr double LongestAge = 2.0;

    /// Where the source of the press tells no time, its arrival in this process counts.
    explicit ZLPressStamp(double arrival)
        : m_hostTime(arrival)
    {
    }

    /// A press at `press` that arrived at `arrival`. When it would lie after that, or more than LongestAge before, its
    /// time is not understood, and the arrival counts.
    ZLPressStamp(double press, double arrival)
        : m_hostTime(press <= arrival && arrival - press <= LongestAge ? press : arrival)
    {
    }

    [[nodiscard]] double hostTime() const { return m_hostTime; }

    bool operator==(const ZLPressStamp&) const = default;

private:
    double m_hostTime;
};
