#pragma once

#include "recorder/ZLRecorderReport.h"
#include "recorder/osctime/ZLOSCTimeAddresses.h"

#include <QString>

#include <optional>

/// Makes of the messages of a recorder what it does and where its recording is. The time that comes is that of the
/// recorder's time line; its recording begins where the time line stood when it began. A recording that was under way
/// before the first message counts from the zero of the time line.
class ZLOSCTimeReading {
public:
    explicit ZLOSCTimeReading(ZLOSCTimeAddresses addresses);

    /// Takes a message; gives what it tells of the recorder, nothing where that is not known yet.
    std::optional<ZLRecorderReport> note(const QString& address, double value, double hostTime);

private:
    /// A time that came.
    struct Moment {
        double time = 0.0;
        double hostTime = 0.0;
    };

    void noteTime(double time, double hostTime);
    void noteRecord(bool isRecording, double hostTime);
    void noteRecordingByTime();
    void findOrigin(const Moment& first);
    [[nodiscard]] bool isRecording() const;
    [[nodiscard]] std::optional<ZLRecorderReport> report(double hostTime) const;

    ZLOSCTimeAddresses m_addresses;
    std::optional<bool> m_record;
    std::optional<bool> m_play;
    bool m_isPaused = false;
    std::optional<Moment> m_last;
    /// Whether the time went on as a clock does, when the last one came.
    bool m_isMoving = false;
    /// When the time was another one than before.
    double m_movedAt = 0.0;
    /// When the message came that the recording begins.
    std::optional<double> m_recordedAt;
    /// The time at which the recording began; none while that is not known.
    std::optional<double> m_origin;
};
