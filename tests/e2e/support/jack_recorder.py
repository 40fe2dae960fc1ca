#!/usr/bin/env python3
"""Records with the transport of JACK, as a program for recording does: each stretch of sound stands where the transport
is, and nothing is recorded while that stands. Takes the words start, stop, "locate SECONDS" and end, one a line, and
answers each with "done". Writes samples of 16 bits in the end.

    jack_recorder.py PORT FILE
"""

import sys

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
    for line in sys.stdin:
        word, *seconds = line.split()
        if word == "end":
            break
        if word == "start":
            client.transport_start()
        elif word == "stop":
            client.transport_stop()
        elif word == "locate":
            client.transport_locate(int(float(seconds[0]) * client.samplerate))
        print("done", flush=True)
    client.deactivate()
    (samples * 32767).astype(numpy.int16).tofile(path)
    client.close()


if __name__ == "__main__":
    main()
