#!/usr/bin/env python3
"""Makes shows that are spoken, heard, cut and delivered, and says where each moment of them went.

A show has several voices, also at once, music beds, and jingles, with speech over them or by themselves. It is heard
through a room: echo, noise, a dull microphone, a clock of another speed, which may change. Hearing begins before the show
and ends after it. The show is cut, shortened and lengthened by speech and music; what it begins with may come from its
middle. It is compressed, equalised, brought to a loudness and delivered in a lossy form. All of it comes from a seed, so
that the same show can be made again.

    show_simulator.py FOLDER --seed 1 --minutes 10 --noise 10 --cuts 12 --shorten-pauses --form mp3

writes heard.wav, finished.mp3, truth.txt and parts.json into FOLDER. Each line of truth.txt is a moment by the clock of
heard.wav, "kept" or "cut", and its moment in the finished file: for one that was cut, that of the seam. parts.json has what
was kept, what was moved, and where a jingle is, as [moment by the clock of heard.wav, moment in the finished file, seconds].
"""

import argparse
import array
import bisect
import functools
import json
import math
import random
import subprocess
import sys
import tempfile
from dataclasses import dataclass, field
from pathlib import Path

RATE = 16000
VOICES = ("en", "de", "fr", "es", "it", "pl", "sv", "pt", "en-us+f3", "de+f2", "nl+m3", "ru")
SYLLABLES = ("ka la mi to ren du shi po ne ver ta gon li sa bre mu kel fin dor za pe ni ro "
             "wal tem gu hal ser ko vi ban ri").split()


def run(*command, **options):
    return subprocess.run([str(part) for part in command], check=True, capture_output=True, **options).stdout


def sox(*words, **options):
    """The same each time: by itself SoX rounds by chance."""
    return run("sox", "-R", *words, **options)


def seconds(samples):
    return samples / RATE


@dataclass
class Track:
    """One channel, and where in it a voice speaks."""

    samples: array.array = field(default_factory=lambda: array.array("h"))
    spoken: list = field(default_factory=list)

    def silence(self, length):
        self.samples.extend(array.array("h", bytes(2 * max(int(length * RATE), 0))))

    def add(self, samples):
        self.spoken.append((len(self.samples), len(self.samples) + len(samples)))
        self.samples.extend(samples)


def read_samples(path, *effects):
    data = array.array("h")
    data.frombytes(sox(path, "-t", "raw", "-r", RATE, "-c", 1, "-e", "signed", "-b", 16, "-", *effects))
    return data


def write_samples(samples, path):
    sox("-t", "raw", "-r", RATE, "-c", 1, "-e", "signed", "-b", 16, "-", path, input=samples.tobytes())


class Speaker:
    def __init__(self, chance, folder):
        self.chance = chance
        self.folder = folder

    def say(self, voice):
        """A sentence that was not said before, without the silence around it."""
        words = " ".join("".join(self.chance.choices(SYLLABLES, k=self.chance.randint(1, 4)))
                         for _ in range(self.chance.randint(4, 14)))
        path = self.folder / "sentence.wav"
        run("espeak-ng", "-v", voice, "-s", self.chance.randint(130, 190), "-p", self.chance.randint(30, 70), "-w", path,
            words)
        edge = ["silence", "1", "0.01", "0.5%", "reverse"]
        return read_samples(path, *edge, *edge)


@functools.lru_cache(maxsize=None)
def plucked_strings(notes, length, gain):
    """Several at once; each note is its distance from a low A, in semitones."""
    words = [word for note in notes for word in ("pluck", f"{110.0 * 2.0 ** (note / 12.0):.2f}")]
    mixed = ["remix", "-"] if len(notes) > 1 else []
    samples = array.array("h")
    samples.frombytes(sox("-n", "-r", RATE, "-c", len(notes), "-b", 16, "-e", "signed", "-t", "raw", "-",
                          "synth", length, *words, *mixed, "gain", gain))
    return samples


def plucked(chance, count):
    """So many notes, one after the other."""
    samples = array.array("h")
    for _ in range(count):
        samples.extend(plucked_strings((chance.randint(0, 36),), 0.4, "-6"))
    return samples


@functools.lru_cache(maxsize=None)
def band(seed, length):
    """Music that is the same whenever it is made from this seed: a bass, chords, a melody and a beat."""
    chance = random.Random(seed)
    beat = chance.uniform(0.28, 0.42)
    scale = (0, 2, 4, 5, 7, 9, 11)

    def play(step, notes_of):
        samples = array.array("h")
        while seconds(len(samples)) < length:
            samples.extend(plucked_strings(tuple(notes_of()), step, "-3"))
        return samples
    layers = [play(beat * 2, lambda: [chance.choice(scale) - 12]),
              play(beat * 4, lambda: [12 + chance.choice(scale) for _ in range(3)]),
              play(beat, lambda: [24 + chance.choice(scale) + 12 * chance.randint(0, 1)])]
    with tempfile.TemporaryDirectory() as name:
        paths = [Path(name) / f"layer{number}.wav" for number in range(4)]
        for layer, path in zip(layers, paths):
            write_samples(layer, path)
        sox("-n", "-r", RATE, "-b", 16, paths[3], "synth", beat, "whitenoise", "fade", "l", 0, 0.08, 0.07,
            "pad", 0, beat - 0.08, "repeat", int(length / beat) + 1, "trim", 0, length)
        mix = [word for path, level in zip(paths, (0.5, 0.5, 0.5, 0.15)) for word in ("-v", level, path)]
        mixed = Path(name) / "band.wav"
        sox("-m", *mix, mixed, "trim", 0, length, "gain", "-n", "-9", "fade", "l", 0, length, 1.0)
        return read_samples(mixed)


class Show:
    """What happened in the studio."""

    def __init__(self, chance, folder, options, voices):
        self.chance = chance
        self.folder = folder
        self.jingles = []  # (begin, end), in samples
        length = options.minutes * 60.0
        # Where nothing else is to be heard than a jingle, in seconds.
        self.alone = []
        jingles = self.jingles_alone(options, length) if options.jingle_alone else None
        speaker = Speaker(chance, folder)
        self.voices = [self.voice_track(speaker, voices[:2], length, (0.2, 1.4)),
                       self.voice_track(speaker, voices[2:], length, (0.3, 3.0) if options.at_once else (6.0, 25.0))]
        tracks = list(self.voices)
        levels = [1.0, 0.8 if options.at_once else 0.5]
        sides = [-0.5, 0.6]
        if not options.no_music:
            tracks.append(self.music(length))
            levels.append(0.25)
            sides.append(0.0)
        if options.jingle:
            tracks.append(jingles or self.jingle_under_speech(options.jingle, length))
            levels.append(1.0 if jingles else 0.8)
            sides.append(0.0)
        paths = [folder / f"track{number}.wav" for number in range(len(tracks))]
        for track, path in zip(tracks, paths):
            write_samples(track.samples, path)
        self.path = folder / "show.wav"
        self.samples = self.mixed(paths, levels, self.path, length)
        # What is delivered: one channel, or voices that sit at both sides.
        self.channels = [self.samples] if options.channels == 1 else [
            self.mixed(paths, [level * (1.0 + sign * side) for level, side in zip(levels, sides)],
                       folder / "side.wav", length) for sign in (-1.0, 1.0)]

    @staticmethod
    def mixed(paths, levels, target, length):
        mix = []
        for level, path in zip(levels, paths):
            mix += ["-v", f"{level:.3f}", path]
        sox("-m", *mix, target, "trim", 0, length)
        return read_samples(target)

    def voice_track(self, speaker, voices, length, pauses):
        track = Track()
        while seconds(len(track.samples)) < length:
            track.silence(speaker.chance.uniform(*pauses))
            self.add_beside_jingles(track, speaker.say(speaker.chance.choice(voices)))
        return track

    def add_beside_jingles(self, track, samples):
        """Behind a jingle that would be spoken or played into."""
        for begin, end in self.alone:
            if begin < seconds(len(track.samples) + len(samples)) and seconds(len(track.samples)) < end:
                track.silence(end - seconds(len(track.samples)))
        track.add(samples)

    def music(self, length):
        """A bed now and then: plucked strings whose notes come from the seed."""
        track = Track()
        while seconds(len(track.samples)) < length:
            track.silence(self.chance.uniform(20.0, 90.0))
            self.add_beside_jingles(track, plucked(self.chance, self.chance.randint(8, 30)))
        return track

    def jingles_alone(self, options, length):
        """The same music at the beginning and between the parts of the show. A voice comes in over its last seconds."""
        track = Track()
        sound = band(options.jingle, options.jingle_alone)
        for share in (0.0, 0.35, 0.7):
            begin = length * share + self.chance.uniform(2.0, 20.0)
            track.silence(begin - seconds(len(track.samples)))
            self.alone.append((begin, begin + options.jingle_alone - self.chance.uniform(1.0, 3.0)))
            track.add(sound)
        self.jingles = track.spoken
        return track

    def jingle_under_speech(self, seed, length):
        """The same twenty seconds in every show with this seed: early in it, and late."""
        track = Track()
        sound = plucked(random.Random(seed), 50)
        for share in (0.1, 0.7):
            track.silence(length * share - seconds(len(track.samples)))
            track.add(sound)
        self.jingles = track.spoken
        return track

    def pauses(self, least):
        """Where no voice speaks for so long, in samples."""
        spoken = sorted(stretch for voice in self.voices for stretch in voice.spoken)
        pauses, end = [], 0
        for begin, until in spoken:
            if begin - end >= least * RATE:
                pauses.append((end, min(begin, len(self.samples))))
            end = max(end, until)
        return [(begin, until) for begin, until in pauses if until > begin]


@dataclass
class Cut:
    """What of the show is not in the finished file, from a sample to another one, and how much comes in instead."""

    begin: int
    end: int
    insertion: array.array = field(default_factory=lambda: array.array("h"))


class Edit:
    """What became of a show: cuts in order, and something in front of it."""

    def __init__(self, show, cuts, intro):
        self.channels = [array.array("h", intro) for _ in show.channels]
        self.kept = []  # (begin in the show, begin in the file, length), in samples
        position = 0
        for cut in sorted(cuts, key=lambda cut: cut.begin):
            if cut.begin < position:
                continue
            self.keep(show, position, cut.begin)
            for channel in self.channels:
                channel.extend(cut.insertion)
            position = cut.end
        self.keep(show, position, len(show.samples))

    def keep(self, show, begin, end):
        if end > begin:
            self.kept.append((begin, len(self.channels[0]), end - begin))
            for channel, samples in zip(self.channels, show.channels):
                channel.extend(samples[begin:end])

    def put_in_front(self, show, begin, end):
        self.channels = [samples[begin:end] + channel for channel, samples in zip(self.channels, show.channels)]
        self.kept = [(start, place + end - begin, length) for start, place, length in self.kept]

    def place_of(self, sample):
        """"kept" and the place, or "cut" and the seam."""
        index = bisect.bisect_right([begin for begin, _, _ in self.kept], sample) - 1
        if index >= 0:
            begin, place, length = self.kept[index]
            if sample < begin + length:
                return "kept", place + sample - begin
        if index + 1 < len(self.kept):
            return "cut", self.kept[index + 1][1]
        return "cut", len(self.channels[0])


def choose_cuts(chance, show, options, speaker):
    """Cuts of half a second and more, what comes in instead of some of them, and shortened pauses between them."""
    length = len(show.samples)
    longest = options.longest_cut or max(min(seconds(length) / 20, 300.0), 1.0)
    cuts = []
    for _ in range(options.cuts):
        size = int(RATE * math.exp(chance.uniform(math.log(0.5), math.log(longest))))
        begin = chance.randint(0, max(length - size, 1))
        if all(begin + size + 3 * RATE < cut.begin or cut.end + 3 * RATE < begin for cut in cuts):
            cuts.append(Cut(begin, begin + size))
    for number, cut in enumerate(chance.sample(cuts, min(options.insertions, len(cuts)))):
        if number % 3 == 2:
            cut.insertion.extend(plucked(chance, chance.randint(10, 30)))
        else:
            for _ in range(chance.randint(2, 8)):
                cut.insertion.extend(speaker.say("en-gb"))
    if options.shorten_pauses:
        for begin, end in show.pauses(0.45):
            middle, keep = (begin + end) // 2, int(0.15 * RATE)
            new = Cut(middle - (middle - begin) + keep, end - keep)
            if all(new.end < cut.begin or cut.end < new.begin for cut in cuts):
                cuts.append(new)
    return cuts


def level_of(path):
    text = subprocess.run(["sox", str(path), "-n", "stat"], capture_output=True, text=True, check=True).stderr
    return next(float(line.split()[-1]) for line in text.splitlines() if line.startswith("RMS     amplitude"))


def hear(show, options, folder):
    """The show as a microphone in the room hears it, by a clock of its own. Returns the place of a sample there."""
    room = folder / "room.wav"
    effects = ["pad", options.lead, options.lag]
    if options.echo:
        effects += ["reverb", options.echo]
    sox(show.path, "-r", 44100, room, *effects, "lowpass", options.lowpass)
    # The clock changes its speed in the middle.
    middle = float(run("soxi", "-D", room)) / 2.0
    speeds = [1.0 + options.drift * 1e-6, 1.0 + (options.drift + options.drift_jump) * 1e-6]
    halves = [folder / "before.wav", folder / "after.wav"]
    for speed, half, part in zip(speeds, halves, (["0", f"{middle:.6f}"], [f"{middle:.6f}"])):
        sox(room, half, "trim", *part, "speed", f"{speed:.9f}", "rate")
    clock = folder / "clock.wav"
    sox(*halves, clock)
    noise = folder / "noise.wav"
    sox("-n", "-r", 44100, "-c", 1, noise, "synth", float(run("soxi", "-D", clock)), "pinknoise", "vol", 0.5)
    wanted = level_of(clock) / 10.0 ** (options.noise / 20.0)
    sox("-m", "-v", 1, clock, "-v", f"{wanted / level_of(noise):.6f}", noise, folder / "heard.wav")

    def place_of(sample):
        place = seconds(sample) + options.lead
        return min(place, middle) / speeds[0] + max(place - middle, 0.0) / speeds[1]
    return place_of


def deliver(edit, options, folder):
    """Compressed, equalised, and brought to the loudness of podcasts."""
    sides = [folder / f"edited{number}.wav" for number in range(len(edit.channels))]
    for channel, path in zip(edit.channels, sides):
        write_samples(channel, path)
    mixed = folder / "mixed.wav"
    sox(*(["-M"] if len(sides) > 1 else []), *sides, "-r", 44100, mixed, "compand", "0.05,0.3", "6:-70,-60,-20",
        "-4", "-90", "0.1", "equalizer", 150, "1q", -5, "equalizer", 2500, "0.8q", 5, "treble", "+3", "gain", "-n", "-1")
    finished = folder / f"finished.{options.form}"
    bits = f"{options.kilobits}k"
    codec = {"mp3": ["-c:a", "libmp3lame", "-b:a", bits], "opus": ["-c:a", "libopus", "-b:a", bits],
             "flac": [], "m4a": ["-c:a", "aac", "-b:a", bits]}[options.form]
    loudness = f"loudnorm=I=-16:TP=-1.5,aformat=sample_rates={48000 if options.form == 'opus' else 44100}"
    run("ffmpeg", "-v", "error", "-y", "-i", mixed, "-af", loudness, "-ac", options.channels, *codec, finished)
    return finished


def simulate(folder, options):
    chance = random.Random(options.seed)
    folder.mkdir(parents=True, exist_ok=True)
    voices = random.Random(options.people or options.seed).sample(VOICES, 4)
    show = Show(chance, folder, options, voices)
    speaker = Speaker(chance, folder)
    intro = array.array("h")
    while seconds(len(intro)) < options.intro:
        intro.extend(speaker.say("en-gb"))
    edit = Edit(show, choose_cuts(chance, show, options, speaker), intro)
    moved = []
    if options.teaser:
        length = int(options.teaser * RATE)
        begin = chance.randint(length, len(show.samples) - length)
        edit.put_in_front(show, begin, begin + length)
        moved.append((begin, 0, length))
    heard_place = hear(show, options, folder)
    finished = deliver(edit, options, folder)
    lines = []
    for _ in range(options.marks):
        sample = chance.randint(0, len(show.samples) - 1)
        state, place = edit.place_of(sample)
        lines.append((heard_place(sample), state, seconds(place)))
    with (folder / "truth.txt").open("w") as truth:
        for moment, state, place in sorted(lines):
            truth.write(f"{moment:.4f} {state} {place:.4f}\n")
    times = {name: [(heard_place(begin), seconds(place), seconds(length)) for begin, place, length in parts]
             for name, parts in (("kept", edit.kept), ("moved", moved))}
    times["jingles"] = [(heard_place(begin), seconds(edit.place_of(begin)[1]), seconds(end - begin))
                        for begin, end in show.jingles]
    (folder / "parts.json").write_text(json.dumps(times))
    (folder / "options.json").write_text(json.dumps(vars(options), default=str))
    return finished


def arguments(words):
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("folder", type=Path)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--minutes", type=float, default=10.0)
    parser.add_argument("--marks", type=int, default=60)
    parser.add_argument("--noise", type=float, default=10.0, help="of the show above the noise of the room, in dB")
    parser.add_argument("--echo", type=float, default=40.0)
    parser.add_argument("--lowpass", type=float, default=5000.0)
    parser.add_argument("--drift", type=float, default=80.0, help="of the clock that hears, in ppm")
    parser.add_argument("--drift-jump", type=float, default=0.0, help="by how much it changes in the middle, in ppm")
    parser.add_argument("--lead", type=float, default=7.0, help="seconds that are heard before the show")
    parser.add_argument("--lag", type=float, default=1.0, help="seconds that are heard after it")
    parser.add_argument("--at-once", action="store_true", help="two voices speak most of the time")
    parser.add_argument("--people", type=int, default=0, help="a seed: shows that share it have the same voices")
    parser.add_argument("--jingle", type=int, default=0, help="a seed: shows that share it have the same jingle, twice")
    parser.add_argument("--jingle-alone", type=float, default=0.0,
                        help="the jingle is the music of a band that lasts so many seconds and has no speech over it but "
                             "at its end; it comes three times")
    parser.add_argument("--cuts", type=int, default=8)
    parser.add_argument("--longest-cut", type=float, default=0.0, help="in seconds; 0: a twentieth of the show")
    parser.add_argument("--insertions", type=int, default=1)
    parser.add_argument("--intro", type=float, default=8.0)
    parser.add_argument("--teaser", type=float, default=0.0)
    parser.add_argument("--shorten-pauses", action="store_true")
    parser.add_argument("--no-music", action="store_true")
    parser.add_argument("--form", choices=("mp3", "opus", "flac", "m4a"), default="mp3")
    parser.add_argument("--kilobits", type=int, default=64)
    parser.add_argument("--channels", type=int, default=1)
    return parser.parse_args(words)


if __name__ == "__main__":
    options = arguments(sys.argv[1:])
    print(simulate(options.folder, options))
