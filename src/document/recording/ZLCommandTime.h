#pragma once

#include "document/shared/ZLDocumentEnvironment.h"

#include <QDateTime>

#include <optional>

class ZLRecordingClock;
class ZLSleptTime;

/// When the command was given that is being carried out: at its press, however much later it is carried out. What no
/// press gave is given when it is carried out.
class ZLCommandTime {
public:
    /// All three have to outlive it.
    ZLCommandTime(
        const ZLDocumentEnvironment& environment, const ZLRecordingClock& clock, const ZLSleptTime& sleptTime);

    /// Seconds of the host clock. A press from before the running span counts as given when the span began, and one
    /// from before the end of a sleep as given when the sleep was noticed.
    [[nodiscard]] double hostTime() const;
    /// The same moment on the recording clock.
    [[nodiscard]] double reading() const;
    /// The same moment on the wall clock.
    [[nodiscard]] QDateTime wallClock() const;

    /// While it lives, what is done was given at one moment: so the chapter that a start makes stands where the span
    /// begins.
    class Moment {
    public:
        Moment(ZLCommandTime& commandTime, double hostTime);
        ~Moment();
        Q_DISABLE_COPY_MOVE(Moment)

    private:
        ZLCommandTime& m_commandTime;
        const std::optional<double> m_former;
    };

private:
    const ZLDocumentEnvironment& m_environment;
    const ZLRecordingClock& m_clock;
    const ZLSleptTime& m_sleptTime;
    std::optional<double> m_moment;
};
