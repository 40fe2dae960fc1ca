// Plays clicks into a JACK server at uneven intervals, on its port clicks:out. Ends after so many seconds and prints,
// with the moments of the monotonic clock, each stretch of sound that the server works on, each click that is due some
// time before it comes, and each click that was played:
//
//   stretch FRAME SECONDS
//   due FRAME
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
constexpr std::chrono::milliseconds pauseOfPrinter { 20 };

struct Stretch {
    jack_nframes_t frame;
    jack_time_t begin;
};

/// Frames that one thread adds and another one prints.
struct Frames {
    std::vector<jack_nframes_t> frames = std::vector<jack_nframes_t>(mostClicks);
    std::atomic<std::size_t> count = 0;

    void add(jack_nframes_t frame)
    {
        if (count < mostClicks)
            frames[count++] = frame;
    }
};

struct Clicks {
    jack_client_t* client = nullptr;
    jack_port_t* port = nullptr;
    jack_nframes_t next = 0;
    jack_nframes_t framesSinceLast = clickFrames;
    std::vector<Stretch> stretches = std::vector<Stretch>(mostStretches);
    std::atomic<std::size_t> begun = 0;
    Frames due;
    Frames played;

    /// From 0.3 to 0.7 seconds, never the same twice in a row.
    [[nodiscard]] jack_nframes_t interval() const
    {
        const double uneven = double((due.count * 7919) % 1000) / 1000;
        return jack_nframes_t((0.3 + 0.4 * uneven) * jack_get_sample_rate(client));
    }

    void planNextAfter(jack_nframes_t frame)
    {
        next = frame + interval();
        due.add(next);
    }

    void play(jack_nframes_t frames)
    {
        jack_position_t position {};
        jack_transport_query(client, &position);
        const jack_nframes_t first = jack_last_frame_time(client);
        if (begun < mostStretches)
            stretches[begun++] = { first, position.usecs };
        if (due.count == 0)
            planNextAfter(first);
        auto* samples = static_cast<float*>(jack_port_get_buffer(port, frames));
        for (jack_nframes_t frame = first; frame < first + frames; ++frame) {
            // A server that was held up may have leapt over it.
            if (frame >= next) {
                played.add(frame);
                planNextAfter(frame);
                framesSinceLast = 0;
            }
            samples[frame - first] = framesSinceLast++ < clickFrames ? loudness : 0.0F;
        }
    }
};

/// JACK has a clock of its own: how far the monotonic one is from it, in seconds.
double differenceOfClocks()
{
    const std::chrono::duration<double> now = std::chrono::steady_clock::now().time_since_epoch();
    return now.count() - double(jack_get_time()) * secondsInMicrosecond;
}

/// Prints what is new.
class Printer {
public:
    explicit Printer(const Clicks& clicks)
        : m_clicks(clicks)
    {
    }

    void print()
    {
        for (; m_stretches < m_clicks.begun; ++m_stretches) {
            const Stretch& stretch = m_clicks.stretches[m_stretches];
            std::printf(
                "stretch %u %.6f\n", stretch.frame, double(stretch.begin) * secondsInMicrosecond + m_difference);
        }
        for (; m_due < m_clicks.due.count; ++m_due)
            std::printf("due %u\n", m_clicks.due.frames[m_due]);
        for (; m_played < m_clicks.played.count; ++m_played)
            std::printf("click %u\n", m_clicks.played.frames[m_played]);
        std::fflush(stdout);
    }

private:
    const Clicks& m_clicks;
    const double m_difference = differenceOfClocks();
    std::size_t m_stretches = 0;
    std::size_t m_due = 0;
    std::size_t m_played = 0;
};

}

int main(int argc, char** argv)
{
    static Clicks clicks;
    clicks.client = argc == 2 ? jack_client_open("clicks", JackNoStartServer, nullptr) : nullptr;
    if (!clicks.client)
        return EXIT_FAILURE;
    clicks.port = jack_port_register(clicks.client, "out", JACK_DEFAULT_AUDIO_TYPE, JackPortIsOutput, 0);
    const auto play = [](jack_nframes_t frames, void* self) {
        static_cast<Clicks*>(self)->play(frames);
        return 0;
    };
    jack_set_process_callback(clicks.client, play, &clicks);
    jack_activate(clicks.client);
    const auto end = std::chrono::steady_clock::now() + std::chrono::duration<double>(std::atof(argv[1]));
    Printer printer(clicks);
    while (std::chrono::steady_clock::now() < end) {
        printer.print();
        std::this_thread::sleep_for(pauseOfPrinter);
    }
    jack_deactivate(clicks.client);
    printer.print();
    jack_client_close(clicks.client);
    return EXIT_SUCCESS;
}
