#pragma once

#include "platform/sound/ZLPulseStream.h"
#include "platform/sound/ZLSound.h"

#include <QTimer>

/// A sound that is played by the sound server. Its end is the moment at which the last sample leaves the output, as
/// far as the server knows the way there. The server's own word that everything was played is not that moment: it comes
/// a few milliseconds early or, from an output that renders far ahead, seconds late.
class ZLPulseSound final : public ZLSound {
    Q_OBJECT

public:
    ZLPulseSound(std::shared_ptr<ZLPulseConnection> connection, ZLSoundSamples samples);

    void play() override;

private:
    void proceed();
    void openStream(const QString& deviceIdentifier);
    void expectEnd();
    void endIsDue();
    void streamDidDrain();
    void finish(bool finished);

    std::shared_ptr<ZLPulseConnection> m_connection;
    ZLSoundSamples m_samples;
    std::unique_ptr<ZLPulseStream> m_stream;
    bool m_isPlaying = false;
    bool m_isDrained = false;
    QTimer m_endTimer;
    /// Ends the sound when the server does not.
    QTimer m_patience;
};
