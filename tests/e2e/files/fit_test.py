#!/usr/bin/env python3
"""Finds the marks of simulated shows in their finished files: cut, with other sound in between, delivered in a lossy form.

    fit_test.py PROGRAM
"""

import json
import math
import os
import resource
import struct
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent.parent / "alignment"))
import show_simulator  # noqa: E402
from surface import archive  # noqa: E402

PROGRAM = Path(sys.argv.pop(1))


def document_with_marks(times, moved=0.0):
    """A chapter at each time, which was moved there by so many seconds; its UUID is its number."""
    notes = {"ChapterNotes": {str(number): {"Moved": moved} for number in range(len(times))}} if moved else {}
    return archive({**notes, "Chapters": [{"TimeStamp": time, "Enabled": True, "Title": f"mark {number}", "Link": "", "Tags": "",
                                  "UUID": str(number)} for number, time in enumerate(times)],
                    "Duration": 600.0, "Templates": []})


class FitTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = Path(folder.name)
        cls.shows = {
            "cuts": cls.simulate("cuts", "--seed", 1, "--cuts", 5, "--noise", 10),
            "pauses": cls.simulate("pauses", "--seed", 2, "--cuts", 4, "--noise", 5, "--shorten-pauses", "--form", "opus"),
        }

    @classmethod
    def simulate(cls, name, *options):
        folder = cls.folder / name
        words = [folder, "--minutes", 4, "--marks", 40, *options]
        finished = show_simulator.simulate(folder, show_simulator.arguments([str(word) for word in words]))
        truth = [line.split() for line in (folder / "truth.txt").read_text().splitlines()]
        marks = folder / "show.zelta"
        marks.write_bytes(document_with_marks([float(moment) for moment, _, _ in truth]))
        return marks, folder / "heard.wav", finished, truth

    def zelta(self, *words, status=0):
        # Neither a display nor a sound server is needed.
        environment = {name: value for name, value in os.environ.items()
                       if name not in ("DISPLAY", "WAYLAND_DISPLAY", "PULSE_SERVER")}
        environment.update(HOME=str(self.folder), XDG_RUNTIME_DIR=str(self.folder), PULSE_SERVER="/nonexistent")
        done = subprocess.run([PROGRAM, *map(str, words)], capture_output=True, text=True, env=environment, check=False)
        self.assertEqual(done.returncode, status, done.stderr)
        return done.stdout, done.stderr

    def fit(self, name, *options):
        marks, heard, finished, truth = self.shows[name]
        out, _ = self.zelta("fit", "--finished", finished, "--heard", heard, "--json", *options, marks)
        answer = json.loads(out)
        self.assertEqual([int(chapter["uuid"]) for chapter in answer["chapters"]], list(range(len(truth))))
        return answer, truth

    def errors(self, answer, truth, state):
        return [abs(chapter["newTime"] - float(place)) for chapter, (_, was, place) in zip(answer["chapters"], truth)
                if was == state]

    def test_marks_are_found_where_there_were_cuts_and_insertions(self):
        answer, truth = self.fit("cuts")
        kept = self.errors(answer, truth, "kept")
        self.assertGreaterEqual(len(kept), 30)
        self.assertGreaterEqual(sum(error < 0.1 for error in kept), 0.97 * len(kept), kept)
        self.assertLess(sorted(kept)[len(kept) // 2], 0.02)

    def test_marks_are_found_where_every_pause_was_shortened_too(self):
        answer, truth = self.fit("pauses")
        kept = self.errors(answer, truth, "kept")
        self.assertGreaterEqual(len(kept), 20)
        self.assertGreaterEqual(sum(error < 0.1 for error in kept), 0.9 * len(kept), kept)
        self.assertGreaterEqual(sum(error < 0.5 for error in kept), 0.95 * len(kept), kept)

    def test_what_was_cut_is_told_and_lies_at_its_seam(self):
        right = all_marks = 0
        # In the noise of the second one, a piece begins later than it does.
        for name, farthest in (("cuts", 0.4), ("pauses", 1.0)):
            answer, truth = self.fit(name)
            for chapter, (_, was, place) in zip(answer["chapters"], truth):
                all_marks += 1
                right += (chapter["state"] == "kept") == (was == "kept")
                if was == "cut" and chapter["state"] != "kept":
                    self.assertLess(abs(chapter["newTime"] - float(place)), farthest, chapter)
        self.assertGreaterEqual(right, 0.93 * all_marks)

    def test_another_show_is_refused_and_nothing_is_written(self):
        marks, heard, _, _ = self.shows["cuts"]
        output = self.folder / "other.zelta"
        out, err = self.zelta("fit", "--finished", self.shows["pauses"][2], "--heard", heard, "--output", output, "--json",
                              marks, status=1)
        self.assertEqual(out, "")
        self.assertIn("is not the show", err)
        self.assertFalse(output.exists())

    def test_the_fitted_document_has_the_new_times_and_the_given_one_stays(self):
        marks, heard, finished, truth = self.shows["cuts"]
        before = marks.read_bytes()
        output = self.folder / "fitted.zelta"
        out, _ = self.zelta("fit", "--finished", finished, "--heard", heard, "--output", output, marks)
        self.assertEqual(len(out.splitlines()), len(truth))
        self.assertEqual(marks.read_bytes(), before)
        answer, _ = self.fit("cuts")
        shown = json.loads(self.zelta("show", "--json", output)[0])
        wanted = sorted((chapter["newTime"], chapter["state"] in ("kept", "seam")) for chapter in answer["chapters"])
        self.assertEqual([chapter["enabled"] for chapter in shown["chapters"]], [enabled for _, enabled in wanted])
        for chapter, (time, _) in zip(shown["chapters"], wanted):
            self.assertAlmostEqual(chapter["timeStamp"], time, delta=0.001)
        # A document that is there is not replaced.
        written = output.read_bytes()
        _, err = self.zelta("fit", "--finished", finished, "--heard", heard, "--output", output, marks, status=1)
        self.assertIn("is there already", err)
        self.assertEqual(output.read_bytes(), written)

    def test_a_mark_is_looked_for_where_it_was_set_before_it_was_moved(self):
        marks, heard, finished, truth = self.shows["cuts"]
        moved = self.folder / "moved.zelta"
        moved.write_bytes(document_with_marks([float(moment) + 4.5 for moment, _, _ in truth], 4.5))
        out, _ = self.zelta("fit", "--finished", finished, "--heard", heard, "--json", moved)
        plain, _ = self.fit("cuts")
        answer = json.loads(out)["chapters"]
        for chapter, unmoved in zip(answer, plain["chapters"]):
            self.assertAlmostEqual(chapter["oldTime"], unmoved["oldTime"] + 4.5, delta=0.002)
            self.assertEqual(chapter["state"], unmoved["state"])
            self.assertAlmostEqual(chapter["newTime"], unmoved["newTime"], delta=0.002)

    def test_a_seed_makes_the_same_show_each_time(self):
        made = []
        for name in ("once", "again"):
            _, heard, finished, truth = self.simulate(
                name, "--minutes", 0.3, "--seed", 3, "--cuts", 2, "--intro", 0, "--echo", 80, "--jingle", 4,
                "--jingle-alone", 2, "--channels", 2)
            made.append((heard.read_bytes(), finished.read_bytes(), truth))
        self.assertTrue(made[0] == made[1])

    def test_the_zero_of_the_clock_may_lie_within_the_recording(self):
        marks, heard, finished, truth = self.shows["cuts"]
        later = self.folder / "later.zelta"
        later.write_bytes(document_with_marks([float(moment) - 3.0 for moment, _, _ in truth]))
        out, _ = self.zelta("fit", "--finished", finished, "--heard", heard, "--zero", 3, "--json", later)
        plain, _ = self.fit("cuts")
        self.assertEqual([chapter["newTime"] for chapter in json.loads(out)["chapters"]],
                         [chapter["newTime"] for chapter in plain["chapters"]])

    def test_long_silence_a_tone_and_hostile_files_are_refused_in_little_memory(self):
        marks, heard, _, _ = self.shows["cuts"]
        hours = self.wave("ten_hours.wav", 10 * 3600 * 8000)
        tone = self.folder / "tone.wav"
        show_simulator.sox("-n", "-r", 8000, tone, "synth", 600, "sine", 1000)
        claims = self.wave("claims.wav", 0xFFFFFFF0 // 2, b"\1\2" * 8000, cut=True)
        torn = self.folder / "torn.flac"
        show_simulator.sox(heard, torn)
        torn.write_bytes(torn.read_bytes()[:3000])
        numbers = self.folder / "numbers.wav"
        numbers.write_bytes(b"RIFF" + struct.pack("<I", 0xFFFFFFFF) + b"WAVEfmt " + struct.pack(
            "<IHHIIHH4sI", 16, 3, 1, 8000, 32000, 4, 32, b"data", 400000) + struct.pack("<f", math.nan) * 100000)
        # At one sample a second, these last for more than a day; the second one is for ffmpeg alone.
        slow = self.folder / "slow.wav"
        slow.write_bytes(b"RIFF" + struct.pack("<I", 200036) + b"WAVEfmt " + struct.pack(
            "<IHHIIHH4sI", 16, 1, 1, 1, 2, 2, 16, b"data", 200000) + b"\1\2" * 100000)
        slow_too = self.folder / "slow.mka"
        show_simulator.run("ffmpeg", "-v", "error", "-i", slow, "-c", "copy", slow_too)
        empty = self.folder / "empty.wav"
        empty.touch()
        for sound in (hours, tone, claims, torn, numbers, slow, slow_too, empty):
            for words in ((sound, heard), (heard, sound)):
                with self.subTest(words=words):
                    _, err = self.zelta("fit", "--finished", words[0], "--heard", words[1], marks, status=1)
                    self.assertEqual(err.count("\n"), 1, err)
        # Of all programs that ran so far, the largest one; ffmpeg is among them.
        self.assertLess(resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss, 300 * 1024)

    def wave(self, name, samples, content=b"", cut=False):
        """A file of silence that takes no room on the disk; cut off behind the content, it only claims to be so long."""
        path = self.folder / name
        header = b"RIFF" + struct.pack("<I", 36 + 2 * samples & 0xFFFFFFFF) + b"WAVEfmt " + struct.pack(
            "<IHHIIHH4sI", 16, 1, 1, 8000, 16000, 2, 16, b"data", 2 * samples)
        path.write_bytes(header + content)
        if not cut:
            os.truncate(path, len(header) + 2 * samples)
        return path

    def test_bad_files_and_bad_words_are_told(self):
        marks, heard, finished, _ = self.shows["cuts"]
        text = self.folder / "text.wav"
        text.write_text("no sound")
        silence = self.folder / "silence.wav"
        show_simulator.write_samples(show_simulator.array.array("h", bytes(20 * 32000)), silence)
        for sound, reason in ((text, "text.wav"), (silence, "nothing to be heard"), (self.folder / "gone.wav", "gone.wav")):
            _, err = self.zelta("fit", "--finished", sound, "--heard", heard, marks, status=1)
            self.assertIn(reason, err)
            self.assertEqual(err.count("\n"), 1)
        _, err = self.zelta("fit", "--finished", finished, marks, status=1)
        self.assertIn("has nothing of listening along", err)
        self.zelta("fit", "--finished", finished, "--zero", 3, marks, status=2)
        self.zelta("fit", "--heard", heard, marks, status=2)
        self.zelta("fit", "--finished", finished, "--heard", heard, "--zero", "x", marks, status=2)
        self.zelta("fit", "--finished", finished, "--heard", heard, status=2)


if __name__ == "__main__":
    unittest.main()
