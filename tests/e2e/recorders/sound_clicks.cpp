// Plays clicks to an output of the PulseAudio server at uneven intervals, until it is ended, and prints with the
// moments of the monotonic clock:
//
//   zero SECONDS    when the first frame of all was, or will be, heard; comes often
//   click FRAME
//
//   zelta_sound_clicks OUTPUT
#include <pulse/context.h>
#include <pulse/error.h>
#include <pulse/mainloop.h>
#include <pulse/stream.h>

#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

constexpr std::uint32_t framesPerSecond = 48000;
constexpr int loudness = 20000;
constexpr double pitch = 2000.0;
constexpr double fullTurn = 6.283185307179586;
constexpr long clickFrames = 240;
constexpr std::uint32_t framesAhead = framesPerSecond / 5;
constexpr double secondsInMicrosecond = 1e-6;

const char* output = nullptr;
pa_mainloop* mainloop = nullptr;
long frame = 0;
long nextClick = framesPerSecond / 2;
long played = 0;

double now()
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

std::int16_t nextSample()
{
    if (frame == nextClick)
        std::printf("click %ld\n", frame);
    const long ofClick = frame - nextClick;
    if (ofClick >= clickFrames) {
        // From 0.5 to 0.75 seconds, never the same twice in a row.
        nextClick += framesPerSecond / 2 + (++played * 7919) % (framesPerSecond / 4);
    }
    ++frame;
    if (ofClick < 0 || ofClick >= clickFrames)
        return 0;
    return std::int16_t(loudness * std::sin(double(ofClick + 1) * fullTurn * pitch / framesPerSecond));
}

void write(pa_stream* stream, std::size_t bytes, void*)
{
    pa_usec_t latency = 0;
    int isNegative = 0;
    if (pa_stream_get_latency(stream, &latency, &isNegative) == 0 && !isNegative)
        std::printf("zero %.6f\n", now() + double(latency) * secondsInMicrosecond - double(frame) / framesPerSecond);
    std::vector<std::int16_t> samples(bytes / sizeof(std::int16_t));
    for (std::int16_t& sample : samples)
        sample = nextSample();
    pa_stream_write(stream, samples.data(), samples.size() * sizeof(std::int16_t), nullptr, 0, PA_SEEK_RELATIVE);
}

void contextDidChange(pa_context* context, void*)
{
    const pa_context_state_t state = pa_context_get_state(context);
    if (!PA_CONTEXT_IS_GOOD(state))
        pa_mainloop_quit(mainloop, EXIT_FAILURE);
    if (state != PA_CONTEXT_READY)
        return;
    const pa_sample_spec form { PA_SAMPLE_S16LE, framesPerSecond, 1 };
    const auto unset = std::uint32_t(-1);
    const pa_buffer_attr buffer { unset, std::uint32_t(framesAhead * sizeof(std::int16_t)), unset, unset, unset };
    pa_stream* stream = pa_stream_new(context, "clicks", &form, nullptr);
    pa_stream_set_write_callback(stream, write, nullptr);
    const auto flags =
        pa_stream_flags_t(PA_STREAM_INTERPOLATE_TIMING | PA_STREAM_AUTO_TIMING_UPDATE | PA_STREAM_ADJUST_LATENCY);
    pa_stream_connect_playback(stream, output, &buffer, flags, nullptr, nullptr);
}

}

int main(int argc, char** argv)
{
    if (argc != 2)
        return EXIT_FAILURE;
    output = argv[1];
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    mainloop = pa_mainloop_new();
    pa_context* context = pa_context_new(pa_mainloop_get_api(mainloop), "clicks");
    pa_context_set_state_callback(context, contextDidChange, nullptr);
    pa_context_connect(context, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr);
    int status = EXIT_FAILURE;
    pa_mainloop_run(mainloop, &status);
    return status;
}
