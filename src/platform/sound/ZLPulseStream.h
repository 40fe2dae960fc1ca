#pragma once

#include "platform/sound/ZLPulseConnection.h"
#include "platform/sound/ZLSoundSamples.h"

#include <chrono>
#include <memory>
#include <optional>

struct pa_operation;
struct pa_stream;

/// One sound on its way to one output. The signals come from the connection's thread.
class ZLPulseStream : public QObject {
    Q_OBJECT

public:
    ZLPulseStream(std::shared_ptr<ZLPulseConnection> connection, ZLSoundSamples samples);
    /// What is not yet heard is dropped.
    ~ZLPulseStream() override;

    /// Asks for the output with this identifier, or the default one for an empty identifier; false when that cannot
    /// even be asked.
    [[nodiscard]] bool open(const QString& deviceIdentifier);
    /// Whether the output has begun to play the sound.
    [[nodiscard]] bool isHeard() const;
    /// How long the sound goes on to be heard, counting what waits in the output; nothing while that is unknown.
    [[nodiscard]] std::optional<std::chrono::microseconds> remainingTime() const;

Q_SIGNALS:
    /// The output accepted the sound or moved on in it: the remaining time is known better now.
    void didProgress();
    /// The server says that the output has played everything.
    void didDrain();
    /// The output does not exist or is gone, or the server is.
    void didFail();

private:
    void setCallbacks();
    void stateDidChange();
    void writeEverything();

    std::shared_ptr<ZLPulseConnection> m_connection;
    ZLSoundSamples m_samples;
    pa_stream* m_stream = nullptr;
    /// These two are guarded by the main loop's lock.
    pa_operation* m_drain = nullptr;
    bool m_isHeard = false;
};
