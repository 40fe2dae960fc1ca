#include "platform/sound/ZLPulseStream.h"

#include "platform/sound/ZLPulseLock.h"

#include <pulse/operation.h>
#include <pulse/stream.h>

#include <utility>

namespace {

/// How much of the sound the output gets in advance: as little as plays without a gap, so that the beep starts soon
/// after the press. The whole sound waits in the server all the same.
constexpr pa_usec_t outputLatencyMicroseconds = 50'000;

ZLPulseStream* pulseStream(void* self)
{
    return static_cast<ZLPulseStream*>(self);
}

}

ZLPulseStream::ZLPulseStream(std::shared_ptr<ZLPulseConnection> connection, ZLSoundSamples samples)
    : m_connection(std::move(connection))
    , m_samples(std::move(samples))
{
}

ZLPulseStream::~ZLPulseStream()
{
    if (!m_stream)
        return;
    const ZLPulseLock lock(m_connection->mainloop());
    pa_stream_set_state_callback(m_stream, nullptr, nullptr);
    pa_stream_set_started_callback(m_stream, nullptr, nullptr);
    pa_stream_set_latency_update_callback(m_stream, nullptr, nullptr);
    // The server may still answer the drain when this stream is gone already.
    if (m_drain) {
        pa_operation_cancel(m_drain);
        pa_operation_unref(m_drain);
    }
    pa_stream_disconnect(m_stream);
    pa_stream_unref(m_stream);
}

bool ZLPulseStream::open(const QString& deviceIdentifier)
{
    const ZLPulseLock lock(m_connection->mainloop());
    const pa_sample_spec spec {
        .format = PA_SAMPLE_FLOAT32NE,
        .rate = uint32_t(m_samples.frameRate),
        .channels = uint8_t(m_samples.channelCount),
    };
    m_stream = pa_stream_new(m_connection->context(), "Recording starts", &spec, nullptr);
    if (!m_stream)
        return false;
    setCallbacks();
    constexpr auto serverDecides = uint32_t(-1);
    const pa_buffer_attr buffer {
        .maxlength = serverDecides,
        .tlength = uint32_t(pa_usec_to_bytes(outputLatencyMicroseconds, &spec)),
        .prebuf = serverDecides,
        .minreq = serverDecides,
        .fragsize = serverDecides,
    };
    // Never moved to another output: what was meant for the hosts' headphones must not be heard in the recording.
    const auto flags = pa_stream_flags_t(
        PA_STREAM_DONT_MOVE | PA_STREAM_ADJUST_LATENCY | PA_STREAM_INTERPOLATE_TIMING | PA_STREAM_AUTO_TIMING_UPDATE);
    const QByteArray device = deviceIdentifier.toUtf8();
    return pa_stream_connect_playback(
               m_stream, device.isEmpty() ? nullptr : device.constData(), &buffer, flags, nullptr, nullptr)
        == 0;
}

bool ZLPulseStream::isHeard() const
{
    const ZLPulseLock lock(m_connection->mainloop());
    return m_isHeard;
}

std::optional<std::chrono::microseconds> ZLPulseStream::remainingTime() const
{
    const ZLPulseLock lock(m_connection->mainloop());
    pa_usec_t remaining = 0;
    int isNegative = 0;
    if (pa_stream_get_latency(m_stream, &remaining, &isNegative) < 0)
        return std::nullopt;
    return std::chrono::microseconds(isNegative ? 0 : remaining);
}

void ZLPulseStream::setCallbacks()
{
    pa_stream_set_state_callback(m_stream, [](pa_stream*, void* self) { pulseStream(self)->stateDidChange(); }, this);
    const auto didStart = [](pa_stream*, void* self) {
        pulseStream(self)->m_isHeard = true;
        Q_EMIT pulseStream(self)->didProgress();
    };
    pa_stream_set_started_callback(m_stream, didStart, this);
    pa_stream_set_latency_update_callback(
        m_stream, [](pa_stream*, void* self) { Q_EMIT pulseStream(self)->didProgress(); }, this);
}

void ZLPulseStream::stateDidChange()
{
    const pa_stream_state_t state = pa_stream_get_state(m_stream);
    if (state == PA_STREAM_READY)
        writeEverything();
    else if (!PA_STREAM_IS_GOOD(state))
        Q_EMIT didFail();
}

void ZLPulseStream::writeEverything()
{
    const int written =
        pa_stream_write(m_stream, m_samples.samples.data(), m_samples.byteCount(), nullptr, 0, PA_SEEK_RELATIVE);
    const auto didDrain = [](pa_stream*, int isDrained, void* self) {
        if (isDrained)
            Q_EMIT pulseStream(self)->didDrain();
        else
            Q_EMIT pulseStream(self)->didFail();
    };
    if (written == 0)
        m_drain = pa_stream_drain(m_stream, didDrain, this);
    if (!m_drain)
        Q_EMIT didFail();
}
