// Plays clicks into a JACK server at uneven intervals, on its port clicks:out. Ends after so many seconds and prints,
// with the moments of the monotonic clock, each stretch of sound that the server worked on, and each click:
//
//   stretch FRAME SECONDS
//   click FRAME
//
//   zelta_jack_clicks SECONDS
#include <jack/jack.h>
#include <jack/transport.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>
#include <vector>

namespace {

constexpr float loudness = 0.8F;
constexpr jack_nframes_t clickFrames = 48;
constexpr std::size_t mostStretches = 1000000;
constexpr std::size_t mostClicks = 100000;
constexpr double secondsInMicrosecond = 1e-6;

struct Stretch {
    jack_nframes_t frame;
    jack_time_t begin;
};

struct Clicks {
    jack_client_t* client = nullptr;
    jack_port_t* port = nullptr;
    jack_nframes_t framesToNext = 0;
    jack_nframes_t framesSinceLast = clickFrames;
    std::vector<Stretch> stretches = std::vector<Stretch>(mostStretches);
    std::vector<jack_nframes_t> clicks = std::vector<jack_nframes_t>(mostClicks);
    std::atomic<std::size_t> begun = 0;
    std::atomic<std::size_t> played = 0;

    /// From 0.3 to 0.7 seconds, never the same twice in a row.
    [[nodiscard]] jack_nframes_t interval() const
    {
        const double uneven = double((played * 7919) % 1000) / 1000;
        return jack_nframes_t((0.3 + 0.4 * uneven) * jack_get_sample_rate(client));
    }

    void play(jack_nframes_t frames)
    {
        jack_position_t position {};
        jack_transport_query(client, &position);
        const jack_nframes_t first = jack_last_frame_time(client);
        if (begun < mostStretches)
            stretches[begun++] = { first, position.usecs };
        auto* samples = static_cast<float*>(jack_port_get_buffer(port, frames));
        for (jack_nframes_t frame = 0; frame < frames; ++frame) {
            if (framesToNext == 0 && played < mostClicks) {
                clicks[played++] = first + frame;
                framesToNext = interval();
                framesSinceLast = 0;
            }
            --framesToNext;
            samples[frame] = framesSinceLast++ < clickFrames ? loudness : 0.0F;
        }
    }
};

/// JACK has a clock of its own: how far the monotonic one is from it, in seconds.
double differenceOfClocks()
{
    const std::chrono::duration<double> now = std::chrono::steady_clock::now().time_since_epoch();
    return now.count() - double(jack_get_time()) * secondsInMicrosecond;
}

void print(const Clicks& played)
{
    const double difference = differenceOfClocks();
    for (std::size_t index = 0; index < played.begun; ++index) {
        const Stretch& stretch = played.stretches[index];
        std::printf("stretch %u %.6f\n", stretch.frame, double(stretch.begin) * secondsInMicrosecond + difference);
    }
    for (std::size_t index = 0; index < played.played; ++index)
        std::printf("click %u\n", played.clicks[index]);
}

}

int main(int argc, char** argv)
{
    static Clicks clicks;
    clicks.client = argc == 2 ? jack_client_open("clicks", JackNoStartServer, nullptr) : nullptr;
    if (!clicks.client)
        return EXIT_FAILURE;
    clicks.port = jack_port_register(clicks.client, "out", JACK_DEFAULT_AUDIO_TYPE, JackPortIsOutput, 0);
    clicks.framesToNext = clicks.interval();
    const auto play = [](jack_nframes_t frames, void* self) {
        static_cast<Clicks*>(self)->play(frames);
        return 0;
    };
    jack_set_process_callback(clicks.client, play, &clicks);
    jack_activate(clicks.client);
    std::this_thread::sleep_for(std::chrono::duration<double>(std::atof(argv[1])));
    jack_deactivate(clicks.client);
    print(clicks);
    jack_client_close(clicks.client);
    return EXIT_SUCCESS;
}
