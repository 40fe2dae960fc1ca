// Records from a port with the transport of JACK, as a program for recording does: each stretch of sound stands where
// the transport is, and nothing is recorded while that stands. Ends with its input and then writes the sound, as
// samples of 16 bits.
//
//   zelta_jack_recorder PORT FILE
#include <jack/jack.h>
#include <jack/transport.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <vector>

namespace {

constexpr std::size_t mostSeconds = 600;
constexpr float largestSample = 32767.0F;

struct Recording {
    jack_client_t* client = nullptr;
    jack_port_t* port = nullptr;
    std::vector<std::int16_t> samples;

    void take(jack_nframes_t frames)
    {
        jack_position_t position {};
        const bool isRolling = jack_transport_query(client, &position) == JackTransportRolling;
        if (!isRolling || std::size_t(position.frame) + frames > samples.size())
            return;
        const auto* heard = static_cast<const float*>(jack_port_get_buffer(port, frames));
        std::transform(heard, heard + frames, samples.begin() + position.frame,
            [](float sample) { return std::int16_t(std::clamp(sample, -1.0F, 1.0F) * largestSample); });
    }
};

}

int main(int argc, char** argv)
{
    static Recording recording;
    recording.client = argc == 3 ? jack_client_open("recorder", JackNoStartServer, nullptr) : nullptr;
    if (!recording.client)
        return EXIT_FAILURE;
    recording.port = jack_port_register(recording.client, "in", JACK_DEFAULT_AUDIO_TYPE, JackPortIsInput, 0);
    recording.samples.resize(mostSeconds * jack_get_sample_rate(recording.client));
    const auto take = [](jack_nframes_t frames, void* self) {
        static_cast<Recording*>(self)->take(frames);
        return 0;
    };
    jack_set_process_callback(recording.client, take, &recording);
    jack_activate(recording.client);
    jack_connect(recording.client, argv[1], jack_port_name(recording.port));
    while (std::getchar() != EOF) { }
    jack_deactivate(recording.client);
    jack_client_close(recording.client);
    std::ofstream file(argv[2], std::ios::binary);
    file.write(reinterpret_cast<const char*>(recording.samples.data()),
        std::streamsize(recording.samples.size() * sizeof(std::int16_t)));
    return file ? EXIT_SUCCESS : EXIT_FAILURE;
}
