#include "platform/sound/ZLPulseInputStream.h"

#include "platform/ZLHostClock.h"
#include "platform/sound/ZLPulseLock.h"

#include <pulse/stream.h>

#include <optional>
#include <utility>

namespace {

/// How much sound arrives at once. More costs less and shows the level later.
constexpr pa_usec_t blockMicroseconds = 100'000;
/// A minute of sound.
constexpr std::size_t mostBlocks = 600;
constexpr double microsecondsPerSecond = 1e6;

ZLPulseInputStream* pulseInputStream(void* self)
{
    return static_cast<ZLPulseInputStream*>(self);
}

/// When the next sample that will be read has sounded; nothing as long as the server has not said how late it is.
std::optional<double> hostTimeOfNextSample(pa_stream* stream)
{
    pa_usec_t delay = 0;
    int isAhead = 0;
    if (pa_stream_get_latency(stream, &delay, &isAhead) < 0)
        return std::nullopt;
    const double seconds = double(delay) / microsecondsPerSecond;
    // The monitor of an output hears what that will play in a moment.
    return ZLSteadyHostClock().now() + (isAhead ? seconds : -seconds);
}

}

ZLPulseInputStream::ZLPulseInputStream(std::shared_ptr<ZLPulseConnection> connection)
    : m_connection(std::move(connection))
{
}

ZLPulseInputStream::~ZLPulseInputStream()
{
    if (!m_stream)
        return;
    const ZLPulseLock lock(m_connection->mainloop());
    pa_stream_set_state_callback(m_stream, nullptr, nullptr);
    pa_stream_set_read_callback(m_stream, nullptr, nullptr);
    pa_stream_disconnect(m_stream);
    pa_stream_unref(m_stream);
}

bool ZLPulseInputStream::open(const QString& id)
{
    const ZLPulseLock lock(m_connection->mainloop());
    // The server brings the sound to this form, so that no more than 32 KB a second come over.
    const pa_sample_spec spec { .format = PA_SAMPLE_FLOAT32NE, .rate = ZLSoundInput::SamplesPerSecond, .channels = 1 };
    m_stream = pa_stream_new(m_connection->context(), "Listening along", &spec, nullptr);
    if (!m_stream)
        return false;
    const auto stateDidChange = [](pa_stream*, void* self) { pulseInputStream(self)->stateDidChange(); };
    pa_stream_set_state_callback(m_stream, stateDidChange, this);
    const auto canBeRead = [](pa_stream*, size_t, void* self) { pulseInputStream(self)->readEverything(); };
    pa_stream_set_read_callback(m_stream, canBeRead, this);
    constexpr auto serverDecides = uint32_t(-1);
    const pa_buffer_attr buffer {
        .maxlength = serverDecides,
        .tlength = serverDecides,
        .prebuf = serverDecides,
        .minreq = serverDecides,
        .fragsize = uint32_t(pa_usec_to_bytes(blockMicroseconds, &spec)),
    };
    // Never moved to another source: only the one that was chosen may be heard.
    const auto flags = pa_stream_flags_t(
        PA_STREAM_DONT_MOVE | PA_STREAM_ADJUST_LATENCY | PA_STREAM_INTERPOLATE_TIMING | PA_STREAM_AUTO_TIMING_UPDATE);
    return pa_stream_connect_record(m_stream, id.toUtf8().constData(), &buffer, flags) == 0;
}

std::vector<ZLHeardBlock> ZLPulseInputStream::takeBlocks()
{
    const std::scoped_lock guard(m_mutex);
    return std::exchange(m_blocks, {});
}

void ZLPulseInputStream::stateDidChange()
{
    if (!PA_STREAM_IS_GOOD(pa_stream_get_state(m_stream)))
        Q_EMIT didFail();
}

void ZLPulseInputStream::readEverything()
{
    while (pa_stream_readable_size(m_stream) > 0) {
        const void* samples = nullptr;
        size_t byteCount = 0;
        if (pa_stream_peek(m_stream, &samples, &byteCount) < 0 || byteCount == 0)
            return;
        // A hole has bytes and no samples: the block after it tells by its time that there was one.
        const auto hostTime = hostTimeOfNextSample(m_stream);
        if (samples && hostTime)
            read(static_cast<const float*>(samples), byteCount / sizeof(float), *hostTime);
        pa_stream_drop(m_stream);
    }
}

void ZLPulseInputStream::read(const float* samples, std::size_t count, double hostTime)
{
    bool isFirst = false;
    {
        const std::scoped_lock guard(m_mutex);
        isFirst = m_blocks.empty();
        if (m_blocks.size() == mostBlocks)
            m_blocks.erase(m_blocks.begin());
        m_blocks.push_back({ hostTime, { samples, samples + count } });
    }
    if (isFirst)
        Q_EMIT didHear();
}
