#pragma once

#include "document/recording/ZLInterruptedRecording.h"
#include "document/shared/ZLDocumentBasis.h"

#include <optional>

class ZLRecordingClock;
class ZLSleepWatcher;

/// A recording that was cut off when the program ended. Until one of the two commands decides it, the clock stands at
/// the last reading. A start of the clock decides it too.
class ZLRecordingInterruption {
public:
    /// All three have to outlive it.
    ZLRecordingInterruption(ZLDocumentBasis& basis, ZLRecordingClock& clock, ZLSleepWatcher& sleepWatcher);

    /// The one that waits for a decision.
    [[nodiscard]] const std::optional<ZLInterruptedRecording>& pending() const { return m_pending; }
    void setPending(const std::optional<ZLInterruptedRecording>& interruption);
    /// Lets the clock run as if it had never stopped.
    void continueRecording();
    void keepPaused();

private:
    void resume(const ZLInterruptedRecording& interruption, double hostTime);
    void offerAgain(const ZLInterruptedRecording& interruption, double hostTime);

    ZLDocumentBasis& m_basis;
    ZLRecordingClock& m_clock;
    ZLSleepWatcher& m_sleepWatcher;
    std::optional<ZLInterruptedRecording> m_pending;
};
