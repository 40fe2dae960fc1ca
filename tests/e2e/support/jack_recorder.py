#!/usr/bin/env python3
"""Records with the transport of JACK, as a program for recording does: each stretch of sound stands where the transport
is, and nothing is recorded while that stands. Ends with its input and then writes the sound.

    jack_recorder.py PORT FILE
"""

import sys
import wave

import jack
import numpy

LONGEST = 600


def main():
    source, path = sys.argv[1:]
    client = jack.Client("recorder", no_start_server=True)
    port = client.inports.register("in")
    samples = numpy.zeros(LONGEST * client.samplerate, numpy.float32)

    @client.set_process_callback
    def record(frames):
        state, place = client.transport_query_struct()
        if state == jack.ROLLING and place.frame + frames <= len(samples):
            samples[place.frame:place.frame + frames] = port.get_array()

    client.activate()
    client.connect(source, port)
    sys.stdin.read()
    client.deactivate()
    with wave.open(path, "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(client.samplerate)
        file.writeframes((samples * 32767).astype(numpy.int16).tobytes())
    client.close()


if __name__ == "__main__":
    main()
