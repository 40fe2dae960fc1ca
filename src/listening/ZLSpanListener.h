#pragma once

#include "alignment/ZLFingerprinter.h"
#include "listening/ZLListeningSpan.h"
#include "listening/ZLSampleClock.h"
#include "platform/sound/ZLSoundInput.h"

#include <memory>
#include <optional>
#include <vector>

/// Makes spans of what an input hears while a recording clock runs.
class ZLSpanListener {
public:
    /// The recording clock runs from `hostTime` on.
    void begin(double hostTime);
    /// The recording clock shows `reading` when the block begins. What was heard before the clock was started is left
    /// out.
    void hear(const ZLHeardBlock& block, double reading);
    /// The recording clock stands.
    void end();
    [[nodiscard]] bool isListening() const { return m_beginning.has_value(); }

    /// The spans since begin(), the last of which still grows. One is over where sound is missing, or the input's clock
    /// jumped.
    [[nodiscard]] const std::vector<ZLListeningSpan>& spans() const { return m_spans; }

private:
    struct Hearing {
        ZLFingerprinter fingerprinter {};
        ZLSampleClock clock { ZLSoundInput::SamplesPerSecond };
        std::int64_t sampleCount = 0;
    };

    void beginSpan();
    void takeFrames();

    /// Host time.
    std::optional<double> m_beginning;
    std::unique_ptr<Hearing> m_hearing;
    std::vector<ZLListeningSpan> m_spans;
};
