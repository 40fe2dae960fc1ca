#pragma once

#include <QtGlobal>

#include <deque>

/// By how many frames OBS Studio's counter of what has left the encoder is behind the one of what went in, from looks
/// at both. An encoder takes one frame for each that it gives, so the difference stays the same but for the looks that
/// fall between two steps, and moments play no part in it. Pure.
class ZLOBSFrameLag {
public:
    /// `hostTime`: when both were seen, in seconds. Looks of the last seconds count.
    void take(double hostTime, qint64 lag);
    void clear() { m_looks.clear(); }

    /// Seconds from the first look that counts to the last.
    [[nodiscard]] double lookedFor() const;
    /// The most usual one; 0 without a look.
    [[nodiscard]] qint64 usual() const;
    /// Whether it is much more usual than all others together.
    [[nodiscard]] bool isDecided() const;

private:
    struct Look {
        double hostTime;
        qint64 lag;
    };

    [[nodiscard]] std::size_t countOf(qint64 lag) const;

    std::deque<Look> m_looks;
};
