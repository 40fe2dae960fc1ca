#pragma once

#include "recorder/ZLRecorderReport.h"

#include <QList>

/// Finds out from the reports of a recorder where its recording is at any moment and how fast its clock goes. A report
/// that comes late tells a position that is too small for its moment, so those that came with the least delay count.
/// Where the recorder says when its position was right, the newest report counts. The drift is that of a straight line
/// through the best reports of each ten seconds.
///
/// A position that suddenly lies elsewhere and stays there is believed: at once when it lies ahead, since no message
/// comes too early, and after three seconds when it lies behind and may only have come late.
class ZLRecorderLock {
public:
    /// A new stretch of recording begins. What is known of the drift stays.
    void begin();
    /// Takes the position of a report of a recorder that records; its host time is not before that of the last one.
    void note(const ZLRecorderReport& report);

    /// Whether a report of this stretch came.
    [[nodiscard]] bool hasPosition() const { return m_hasPosition; }
    /// Seconds of the recording at this moment of the host clock. Only with a position.
    [[nodiscard]] double positionAt(double hostTime) const;
    /// By which part of a second per second the recorder's clock goes faster than the host clock: 0.0002 for 200 ppm.
    [[nodiscard]] double drift() const { return m_drift; }
    /// Whether enough was seen for saying something of the drift.
    [[nodiscard]] bool isDriftKnown() const { return m_isDriftKnown; }
    /// Whether the position has stayed for so long where it is that a person can be told of it.
    [[nodiscard]] bool isSettledAt(double hostTime) const;
    /// Host time from which on it lies there.
    [[nodiscard]] double settledFrom() const { return m_settledFrom; }
    /// Host time of the last report.
    [[nodiscard]] double lastHostTime() const { return m_lastHostTime; }

private:
    /// A position less the host time, which stays the same while both clocks go equally fast.
    struct Offset {
        double hostTime = 0.0;
        double seconds = 0.0;
        double uncertainty = 0.0;
        bool isTimed = false;
    };

    void beginAnewWith(const QList<Offset>& offsets);
    [[nodiscard]] bool liesElsewhere(const Offset& offset);
    void estimate();
    void gatherForDrift(const Offset& offset);
    void fitDrift();
    /// Where the offsets lie when the late ones are left out, at the host time `reference`.
    [[nodiscard]] static double middleOfBest(const QList<Offset>& offsets, double drift, double reference);

    bool m_hasPosition = false;
    double m_lastHostTime = 0.0;
    double m_settledFrom = 0.0;
    /// The offset at the reference, which is the host time of the last report.
    double m_offset = 0.0;
    double m_reference = 0.0;
    double m_drift = 0.0;
    /// What was known of the drift before this stretch.
    double m_driftBefore = 0.0;
    bool m_isDriftKnown = false;
    /// Of the last seconds.
    QList<Offset> m_recent;
    /// Those that lie elsewhere than expected, while it is open whether they do so for long: those that cannot have
    /// come there by being late, and those that can.
    QList<Offset> m_elsewhere;
    QList<Offset> m_behind;
    /// Those of the ten seconds that go on, and the best ones of each ten seconds before.
    QList<Offset> m_gathered;
    QList<Offset> m_best;
};
