#!/usr/bin/env python3
"""Writes the cue that is heard before a recording starts: make_beep.py OUTPUT.aiff.

Two notes that rise by a fifth, each struck softly and fading like a small bell, 0.45 s together, mono, 44100 Hz, 16 bit.
It ends in silence, so that nothing clicks when the output is closed.
"""

import math
import struct
import sys
from pathlib import Path

RATE = 44100
SECONDS = 0.45
PEAK = 0.5
# (start in seconds, frequency in hertz): A5 and the E above it.
NOTES = ((0.0, 880.0), (0.14, 1318.5))
# (multiple of the frequency, share of the loudness, seconds in which it fades to 1/e): the overtones die first.
PARTIALS = ((1, 1.0, 0.11), (2, 0.3, 0.06), (3, 0.12, 0.03))
ATTACK_SECONDS = 0.004
RELEASE_SECONDS = 0.03


def note(frequency, time):
    """The note's level `time` seconds after it was struck."""
    if time < 0:
        return 0.0
    attack = min(1.0, time / ATTACK_SECONDS)
    return attack * sum(
        share * math.exp(-time / fade) * math.sin(2 * math.pi * frequency * multiple * time)
        for multiple, share, fade in PARTIALS
    )


def levels():
    count = round(RATE * SECONDS)
    raw = [sum(note(frequency, i / RATE - start) for start, frequency in NOTES) for i in range(count)]
    loudest = max(abs(level) for level in raw)
    releases = (min(1.0, (count - 1 - i) / (RATE * RELEASE_SECONDS)) for i in range(count))
    return [PEAK * level / loudest * release for level, release in zip(raw, releases)]


def extended(value):
    """The 80-bit floating point number in which AIFF keeps its sample rate."""
    fraction, exponent = math.frexp(value)
    return struct.pack(">HQ", exponent - 1 + 16383, int(fraction * 2**64))


def chunk(name, content):
    return name + struct.pack(">I", len(content)) + content + b"\0" * (len(content) % 2)


def aiff(samples):
    common = struct.pack(">hIh", 1, len(samples), 16) + extended(RATE)
    data = struct.pack(">II", 0, 0) + b"".join(struct.pack(">h", round(32767 * level)) for level in samples)
    return chunk(b"FORM", b"AIFF" + chunk(b"COMM", common) + chunk(b"SSND", data))


if __name__ == "__main__":
    Path(sys.argv[1]).write_bytes(aiff(levels()))
