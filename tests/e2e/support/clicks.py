"""Clicks in recorded sound: where they are, and which of those that were played each of them is."""

import subprocess

import numpy

RATE = 48000
LOUD = 3000
# Between two clicks there is more silence than this, in seconds.
APART = 0.1
# In seconds: what a server that keeps up does not lose, and how long the clock may take to follow one that has lost more.
LOST = 0.001
AFTER_LOSS = 2.5
# Sound that is not moved keeps its distances by so many seconds.
STEADY = 0.005
# So many lines, or stretches of sound, tell of the same time.
NEAR = 8


def places_in(samples):
    """The seconds at which the clicks begin in an array of samples of 16 bits."""
    loud = numpy.flatnonzero(numpy.abs(samples.astype(float)) > LOUD)
    if not len(loud):
        return numpy.array([])
    first = numpy.concatenate([[True], numpy.diff(loud) > APART * RATE])
    return loud[first] / RATE


def places_in_file(path):
    """The same of the first sound in any media file."""
    decoded = subprocess.run(
        ["ffmpeg", "-v", "error", "-i", path, "-map", "0:a:0", "-ac", "1", "-ar", str(RATE), "-f", "s16le", "-"],
        check=True, capture_output=True,
    ).stdout
    return places_in(numpy.frombuffer(decoded, numpy.int16))


def moments_of(lines):
    """When the clicks were heard, by what zelta_sound_clicks printed. A server that was late has moved what came after."""
    words = [line.split() for line in lines]
    words = [(word[0], float(word[1])) for word in words if len(word) == 2]
    found = []
    for index, (kind, frame) in enumerate(words):
        near = [number for name, number in words[index:index + NEAR] if name == "zero"]
        if kind == "click" and near:
            found.append(frame / RATE + numpy.median(near))
    return numpy.array(found)


def stretches_in(words):
    return numpy.array([(float(word[1]), float(word[2])) for word in words if word[0] == "stretch"])


def are_calm(lines, moments):
    """For each of the moments: whether the JACK server has lost no time shortly before it or around it. A server that is
    held up does that."""
    stretches = stretches_in([line.split() for line in lines])
    zeros = stretches[:, 1] - stretches[:, 0] / RATE
    even = numpy.array([min(zeros[max(0, index - NEAR):index + NEAR]) for index in range(len(zeros))])
    calm = []
    for moment in moments:
        around = even[(stretches[:, 1] > moment - AFTER_LOSS) & (stretches[:, 1] < moment + APART)]
        calm.append(len(around) > 0 and numpy.ptp(around) < LOST)
    return numpy.array(calm)


def jack_moments_of(lines):
    """When the clicks were heard, by what zelta_jack_clicks printed. The server may begin with a stretch of sound late,
    but never early, so the earliest of those around it is right."""
    words = [line.split() for line in lines]
    stretches = stretches_in(words)
    zeros = stretches[:, 1] - stretches[:, 0] / RATE
    found = []
    for frame in (float(word[1]) for word in words if word[0] == "click"):
        own = numpy.searchsorted(stretches[:, 0], frame, side="right") - 1
        found.append(frame / RATE + min(zeros[max(0, own - NEAR):own + NEAR]))
    return numpy.array(found)


def has_moved(moments, places):
    """Whether a recording without a pause has put its sound elsewhere in the middle, or left some out: then no offset brings
    all clicks to their places."""
    offsets = [place - moments[0] for place in places]
    return not any(all(min(abs(places - moment - offset)) < STEADY for moment in moments) for offset in offsets)
