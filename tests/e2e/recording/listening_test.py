#!/usr/bin/env python3
"""The real program listens along to a show that an output plays, is marked from outside, is killed once and started again.
The show is cut and delivered as an MP3, and the marks are found in it by what was heard alone. Meanwhile nothing is stored
but what is documented.

    listening_test.py PROGRAM
"""

import array
import json
import os
import plistlib
import random
import struct
import subprocess
import sys
import tempfile
import threading
import time
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent.parent / "alignment"))
import show_simulator  # noqa: E402
from desktop import wait_until  # noqa: E402
from osc_recorder import PROGRAM, Recorder  # noqa: E402
from sound_server import SoundServer  # noqa: E402

OUTPUTS = """load-module module-null-sink sink_name=studio rate=48000 channels=2 norewinds=1
load-module module-null-sink sink_name=other rate=48000 channels=2 norewinds=1
set-default-sink other
"""
RATE = show_simulator.RATE
LENGTH = 84.0
# What of the show is in the finished file, in seconds of the show, after an intro that is no part of it.
INTRO = 6.0
PIECES = ((4.0, 32.0), (44.0, 80.0))
# When a mark is set, in seconds of the show; the third one lies in the cut.
MARKS = (8.0, 17.0, 27.0, 38.0, 52.0, 60.0, 71.0)
KILL = 30.0
AFTER_KILL = 38.0
# Half of it is what an ear of this test may be wrong by.
TOLERANCE = 0.1
RECORD_HEAD = 4 + 4 + 1
RECORD_DIGEST = 8
SIGNATURE = b"zelta journal 1\n"


def place_in_file(moment):
    """Where a moment of the show is in the finished file; None in a cut."""
    place = INTRO
    for begin, end in PIECES:
        if begin <= moment < end:
            return place + moment - begin
        place += end - begin
    return None


def spoken(folder, seed, seconds, voices):
    options = show_simulator.arguments([str(folder), "--minutes", str(seconds / 60.0), "--no-music"])
    return show_simulator.Show(random.Random(seed), folder, options, voices)


class Ear:
    """Hears when the show begins: at the first loud sample on an output."""

    CHUNK = 80

    def __init__(self, output):
        self.process = subprocess.Popen(["parec", "-d", f"{output}.monitor", "--format=s16le", "--rate=8000", "--channels=1",
                                         "--latency-msec=10", "--raw"], stdout=subprocess.PIPE)
        self.heard = 0
        self.beginning = None
        threading.Thread(target=self.listen, daemon=True).start()

    def listen(self):
        while chunk := self.process.stdout.read(2 * self.CHUNK):
            now = time.monotonic()
            samples = array.array("h", chunk)
            self.heard += len(samples)
            if self.beginning is None and (loud := [n for n, sample in enumerate(samples) if abs(sample) > 3000]):
                self.beginning = now - (len(samples) - loud[0]) / 8000

    def stop(self):
        self.process.kill()
        self.process.wait()


def journal_records(data):
    """The payloads of a journal, taken apart by what is documented."""
    assert data.startswith(SIGNATURE)
    at, payloads = len(SIGNATURE), []
    while at + RECORD_HEAD <= len(data):
        length, sequence, kind = struct.unpack_from(">IIB", data, at)
        assert sequence == len(payloads), (sequence, len(payloads))
        assert kind == ord("H"), kind
        payloads.append(data[at + RECORD_HEAD:at + RECORD_HEAD + length])
        at += RECORD_HEAD + length + RECORD_DIGEST
    return payloads


class ListeningTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="zelta-listening-")
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.home = self.folder / "home"
        self.home.mkdir()
        self.document = self.home / "show.zelta"
        self.processes = []
        self.addCleanup(self.end_processes)
        SoundServer(self, OUTPUTS, self.folder / "sound")

    def start(self, *command, **options):
        process = subprocess.Popen([str(part) for part in command], **options)
        self.processes.append(process)
        return process

    def end_processes(self):
        for process in reversed(self.processes):
            process.kill()
            process.wait()

    def make_show(self):
        """A show that is spoken, with a click one second before it begins; returns what is played."""
        folder = self.folder / "show"
        folder.mkdir()
        show = spoken(folder, 16, LENGTH, ["en", "de+f2", "fr", "pl"])
        played = array.array("h", bytes(2 * RATE))
        played.extend([20000] * (RATE // 50))
        played.extend(array.array("h", bytes(2 * (RATE - RATE // 50))))
        played.extend(show.samples)
        show_simulator.write_samples(played, folder / "played.wav")
        return show.path, folder / "played.wav"

    def edit(self, show):
        """The finished file: another speaker first, then the pieces."""
        folder = self.folder / "intro"
        folder.mkdir()
        intro = spoken(folder, 99, INTRO, ["it", "sv", "pt", "ru"])
        parts = [f"[1]atrim=0:{INTRO},asetpts=PTS-STARTPTS[p0]"]
        for number, (begin, end) in enumerate(PIECES, 1):
            parts.append(f"[0]atrim={begin}:{end},asetpts=PTS-STARTPTS[p{number}]")
        joined = "".join(f"[p{number}]" for number in range(len(parts)))
        finished = self.folder / "finished.mp3"
        subprocess.run(["ffmpeg", "-v", "error", "-i", show, "-i", intro.path, "-filter_complex",
                        ";".join(parts) + f";{joined}concat=n={len(parts)}:v=0:a=1", "-b:a", "64k", finished], check=True)
        return finished

    def recorder(self, *arguments):
        recorder = Recorder(self.home, "--osc-port", 0, *arguments)
        self.addCleanup(lambda: (recorder.reader.process.kill(), recorder.reader.process.wait()))
        return recorder

    def zelta(self, *words):
        done = subprocess.run([PROGRAM, *map(str, words)], capture_output=True, text=True, check=False,
                              env={**os.environ, "HOME": str(self.home), "XDG_STATE_HOME": str(self.home)})
        self.assertEqual(done.returncode, 0, done.stderr)
        return done.stdout

    def chapters(self):
        return json.loads(self.zelta("show", "--json", self.document))["chapters"]

    def listening_files(self):
        return list(self.home.rglob("*.listening"))

    def test_marks_are_found_by_what_was_heard_also_after_a_kill(self):
        show, played = self.make_show()
        ear = Ear("studio")
        self.addCleanup(ear.stop)
        wait_until(lambda: ear.heard, "the ear of the test")
        arguments = ("--record", "--listen", "studio.monitor", self.document)
        recorder = self.recorder(*arguments)
        wait_until(lambda: recorder.has_said("listening along: Monitor of"), "the program to listen")
        wait_until(lambda: recorder.count("chapter ") >= 1, "the first chapter")
        self.start("paplay", "-d", "studio", played)
        wait_until(lambda: ear.beginning, "the show to begin")
        beginning = ear.beginning + 1.0
        presses = []
        for moment in MARKS:
            if moment == AFTER_KILL:
                self.kill_at(recorder, beginning + KILL)
                recorder = self.recorder(*arguments)
                wait_until(lambda: recorder.has_said("listening along"), "the program to listen again")
            time.sleep(max(0.0, beginning + moment - time.monotonic()))
            before = recorder.count("chapter ")
            presses.append(time.monotonic() - beginning)
            recorder.press("newChapter")
            wait_until(lambda: recorder.count("chapter ") > before, "the mark")
        time.sleep(max(0.0, beginning + LENGTH - 2.0 - time.monotonic()))
        recorder.press("toggleRecording")
        wait_until(lambda: recorder.has_said("paused at"), "the clock to stand")
        recorder.write("quit")
        recorder.reader.process.wait(30)
        self.check_storage()
        self.check_fit(self.edit(show), presses)

    def kill_at(self, recorder, moment):
        time.sleep(max(0.0, moment - time.monotonic()))
        self.check_journal()
        recorder.reader.process.kill()
        recorder.reader.process.wait()

    def check_journal(self):
        """While the clock runs, the fingerprint lies beside the journal: 24 bytes and four a frame, each second."""
        files = self.listening_files()
        self.assertEqual(len(files), 1, files)
        self.assertEqual(files[0].stat().st_mode & 0o777, 0o600)
        payloads = journal_records(files[0].read_bytes())
        self.assertGreater(len(payloads), 20)
        frames = all_frames = stretch = 0
        for payload in payloads:
            number, start, interval, first = struct.unpack_from(">IddI", payload)
            self.assertEqual((len(payload) - 24) % 4, 0)
            # A sound server that wakes up for the first sound may break off, and a busy one too.
            if number == stretch + 1:
                stretch, frames = number, 0
            self.assertEqual((number, first), (stretch, frames))
            self.assertGreaterEqual(start, 0.0)
            self.assertAlmostEqual(interval, 0.02, delta=0.02 * 0.002)
            frames += (len(payload) - 24) // 4
            all_frames += (len(payload) - 24) // 4
        self.assertLess(stretch, 5)
        self.assertAlmostEqual(all_frames / 50.0, KILL, delta=15.0)

    def check_storage(self):
        """What is stored of the show in the end is its fingerprint, four bytes a frame, and nothing anywhere else."""
        archive = plistlib.loads(self.document.read_bytes())
        blobs = [value for value in archive["$objects"] if isinstance(value, bytes)]
        self.assertGreaterEqual(len(blobs), 2)
        frames = sum(len(blob) for blob in blobs) // 4
        self.assertAlmostEqual(frames / 50.0, LENGTH, delta=15.0)
        self.assertEqual([len(blob) % 4 for blob in blobs], [0] * len(blobs))
        # All else in the file is texts and numbers of the chapters.
        self.assertLess(self.document.stat().st_size - 4 * frames, 8000)
        self.assertEqual(self.listening_files(), [])
        allowed = 8000 + 4 * frames
        for file in self.home.rglob("*"):
            if file.is_file() and file != self.document:
                self.assertLess(file.stat().st_size, 8000, file)
        self.assertLess(sum(file.stat().st_size for file in self.home.rglob("*") if file.is_file()), allowed + 40000)

    def check_fit(self, finished, presses):
        answer = json.loads(self.zelta("fit", "--finished", finished, "--json", self.document))
        # The first chapter is the start of the clock, before the show began.
        found = answer["chapters"][1:]
        self.assertEqual(len(found), len(presses), answer["chapters"])
        for chapter, moment in zip(found, presses):
            wanted = place_in_file(moment)
            if wanted is None:
                self.assertIn(chapter["state"], ("seam", "cut"), chapter)
                continue
            self.assertEqual(chapter["state"], "kept", (moment, chapter))
            self.assertAlmostEqual(chapter["newTime"], wanted, delta=TOLERANCE)
            print(f"{moment:7.3f} s: off by {chapter['newTime'] - wanted:+.3f} s", file=sys.stderr)

    def test_silence_a_missing_input_and_one_that_comes_back_are_told(self):
        recorder = self.recorder("--record", "--listen", "microphone", self.document)
        wait_until(lambda: recorder.has_said("The input “microphone” is missing."), "the missing input to be told")
        number = subprocess.run(["pactl", "load-module", "module-null-sink", "sink_name=late", "norewinds=1"],
                                capture_output=True, text=True, check=True).stdout.strip()
        recorder.write("quit")
        self.assertNotEqual(number, "")
        other = Recorder(self.home, "--osc-port", 0, "--record", "--listen", "late.monitor", self.home / "other.zelta")
        self.addCleanup(lambda: (other.reader.process.kill(), other.reader.process.wait()))
        wait_until(lambda: other.has_said("listening along: Monitor of"), "the program to listen")
        wait_until(lambda: other.has_said("Nothing has been heard"), "ten seconds of silence to be told")
        subprocess.run(["pactl", "unload-module", number], check=True)
        wait_until(lambda: other.has_said("is missing."), "the unplugged input to be told")
        before = other.count("listening along")
        subprocess.run(["pactl", "load-module", "module-null-sink", "sink_name=late", "norewinds=1"], check=True,
                       capture_output=True)
        wait_until(lambda: other.count("listening along") > before, "the input to be heard again")

    def test_who_does_not_listen_stores_nothing_of_it(self):
        recorder = self.recorder("--record", self.document)
        wait_until(lambda: recorder.count("chapter ") >= 1, "the first chapter")
        self.assertEqual(self.listening_files(), [])
        recorder.press("toggleRecording")
        wait_until(lambda: recorder.has_said("paused at"), "the clock to stand")
        recorder.write("quit")
        recorder.reader.process.wait(30)
        self.assertNotIn(b"Listening", self.document.read_bytes())


if __name__ == "__main__":
    unittest.main()
