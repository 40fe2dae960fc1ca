#!/usr/bin/env python3
"""A show that was cut is fitted as a person does it: by keyboard, in a real window, with real files.

    fit_sheet_test.py PROGRAM [FOLDER_FOR_PICTURES]
"""

import array
import json
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent.parent / "alignment"))
import show_simulator  # noqa: E402
from desktop import wait_until  # noqa: E402
from sheet import SheetTest  # noqa: E402
from sound_server import SoundServer, is_silent  # noqa: E402
from surface import archive  # noqa: E402

PROGRAM = Path(sys.argv.pop(1))
PICTURES = Path(sys.argv.pop(1)) if len(sys.argv) > 1 else None


def seconds(text):
    hours, minutes, rest = text.split(":")
    return int(hours) * 3600 + int(minutes) * 60 + float(rest)


RATE = 44100
BLOCK = RATE // 50


def loudness(samples):
    """Of each 20 ms."""
    return [sum(abs(sample) for sample in samples[at:at + BLOCK]) for at in range(0, len(samples) - BLOCK, BLOCK)]


def likeness(left, right):
    """The correlation of two lists, from -1 to 1."""
    mean_left, mean_right = sum(left) / len(left), sum(right) / len(right)
    left, right = [value - mean_left for value in left], [value - mean_right for value in right]
    norm = (sum(value * value for value in left) * sum(value * value for value in right)) ** 0.5
    return sum(a * b for a, b in zip(left, right)) / norm if norm else 0.0


class FitSheetTest(SheetTest):
    program = PROGRAM
    pictures = PICTURES

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.server = SoundServer(cls.desktop)
        cls.sounds = Path(tempfile.mkdtemp(dir=cls.desktop.home))
        cls.finished = cls.simulate("cuts", "--seed", 1, "--cuts", 5, "--noise", 10, "--marks", 20)
        cls.heard = cls.sounds / "cuts" / "heard.wav"
        cls.truth = [line.split() for line in (cls.sounds / "cuts" / "truth.txt").read_text().splitlines()]
        cls.other = cls.simulate("other", "--seed", 2, "--minutes", 1, "--cuts", 0)

    @classmethod
    def simulate(cls, name, *options):
        words = [cls.sounds / name, "--minutes", 4, *options]
        return show_simulator.simulate(cls.sounds / name, show_simulator.arguments([str(word) for word in words]))

    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(dir=self.desktop.home))
        self.show = self.folder / "show.zelta"
        self.show.write_bytes(archive({"Chapters": [
            {"TimeStamp": float(moment), "Enabled": True, "Title": f"mark {number}", "Link": "", "Tags": ""}
            for number, (moment, _, _) in enumerate(self.truth)], "Duration": 240.0, "Templates": []}))

    def start_fit(self, finished):
        self.desktop.press("ctrl+shift+f")
        self.choose("Choose File…", finished)
        self.choose("Choose Recording…", self.heard)
        self.wait_for_focus("Find Chapters")
        self.desktop.press("Return")

    def rows(self):
        """Title, old time, new time, state and confidence of each mark in the sheet."""
        return self.rows_of("Chapters in the finished file")

    def wait_for_rows(self):
        wait_until(lambda: len(self.rows()) == len(self.truth), "the marks in the sheet", 60)
        return self.rows()

    def chapters_in_file(self):
        out = subprocess.run([PROGRAM, "show", "--json", self.show], check=True, capture_output=True, text=True).stdout
        return [(chapter["timeStamp"], chapter["enabled"]) for chapter in json.loads(out)["chapters"]]

    def save(self):
        """Until nothing is left to write."""
        self.desktop.press("ctrl+s")
        wait_until(lambda: self.window.accessible.find_all(self.window.frame, None, "Saved"), "the document to be saved")

    def assert_right(self, rows):
        right = 0
        for (_, old, new, state, _), (moment, was, place) in zip(rows, self.truth):
            self.assertAlmostEqual(seconds(old), float(moment), delta=0.002)
            right += (state == "kept") == (was == "kept")
            if was == "kept" and state == "kept":
                self.assertLess(abs(seconds(new) - float(place)), 0.1)
        self.assertGreaterEqual(right, 0.9 * len(rows))

    def test_a_show_is_fitted_applied_and_taken_back_by_keyboard(self):
        self.open_window(self.show)
        self.start_fit(self.finished)
        rows = self.wait_for_rows()
        self.assert_right(rows)
        self.take("fit-sheet.png")
        before = self.chapters_in_file()
        self.desktop.press("Return")
        self.wait_for_text("The chapters are where the finished file has them.")
        self.save()
        wanted = sorted((seconds(new), state in ("kept", "moved to the seam")) for _, _, new, state, _ in rows)
        wait_until(lambda: self.chapters_in_file() != before, "the new times in the file")
        found = sorted(self.chapters_in_file())
        for (time, enabled), (new, there) in zip(found, wanted):
            self.assertAlmostEqual(time, new, delta=0.002)
            self.assertEqual(enabled, there)
        self.desktop.press("Escape", "ctrl+z")
        wait_until(lambda: [row[1] for row in self.sheet_after_reopening()] == [row[1] for row in rows], "the old times")
        self.save()
        wait_until(lambda: self.chapters_in_file() == before, "the old times in the file")

    def sheet_after_reopening(self):
        if not self.rows():
            self.desktop.press("ctrl+shift+f")
        return self.rows()

    def test_what_was_found_is_there_after_a_new_start(self):
        self.open_window(self.show)
        self.start_fit(self.finished)
        rows = self.wait_for_rows()
        self.save()
        self.desktop.press("Escape", "ctrl+q")
        self.window.process.wait(60)
        self.assertNotIn(str(self.sounds).encode(), self.show.read_bytes())
        self.open_window(self.show)
        self.desktop.press("ctrl+shift+f")
        self.assertEqual(self.wait_for_rows(), rows)
        # The computer knows where the file lies, so it can be played and written.
        play = self.node("push button", "Play")
        import pyatspi

        self.assertTrue(play.getState().contains(pyatspi.STATE_SENSITIVE))

    def samples_of(self, start):
        """The four seconds of the finished file from there on."""
        samples = array.array("h")
        samples.frombytes(subprocess.run(
            ["ffmpeg", "-v", "error", "-i", self.finished, "-ss", str(start), "-t", "4", "-ac", "1", "-ar", str(RATE),
             "-f", "s16le", "-"], check=True, capture_output=True).stdout)
        return samples

    def test_space_plays_the_finished_file_at_the_new_place(self):
        self.open_window(self.show)
        self.start_fit(self.finished)
        place = seconds(self.wait_for_rows()[2][2])
        heard = self.server.listen("left_card")
        self.desktop.press("Down", "Down", "space")
        wait_until(lambda: not is_silent(heard), "the sound")
        wait_until(lambda: not any(heard.read_bytes()[-RATE:]) and heard.stat().st_size > 16 * RATE, "its end")
        # Two channels, of which one is enough.
        samples = array.array("h")
        content = heard.read_bytes()
        samples.frombytes(content[:len(content) // 4 * 4])
        samples = samples[::2]
        first = next(at for at, sample in enumerate(samples) if sample)
        wanted = loudness(self.samples_of(place))
        # The output may begin within a block.
        best = max(likeness(wanted, loudness(samples[begin:begin + 4 * RATE])[:len(wanted)])
                   for begin in range(max(first - BLOCK, 0), first + 5 * BLOCK, BLOCK // 4)
                   if begin + 4 * RATE <= len(samples))
        self.assertGreater(best, 0.9)
        self.assertLess(sum(1 for value in loudness(samples) if value > 0), 4.3 * 50)

    def test_a_mark_comes_while_both_files_are_heard(self):
        self.open_window(self.show)
        self.desktop.press("ctrl+r")
        self.start_fit(self.finished)
        self.desktop.press("ctrl+Return")
        wait_until(lambda: len(self.rows()) == len(self.truth) + 1, "the mark of the running show in the sheet", 60)
        self.desktop.press("Return", "Escape", "ctrl+r")

    def test_another_show_is_refused_in_plain_words(self):
        self.open_window(self.show)
        before = self.show.read_bytes()
        self.start_fit(self.other)
        self.wait_for_text(f"{self.other.name} is not this show: too little of {self.heard.name} is in it.")
        self.assertEqual(self.rows(), [])
        self.take("fit-sheet-refused.png")
        self.desktop.press("Escape", "ctrl+q")
        self.window.process.wait(60)
        self.assertEqual(self.show.read_bytes(), before)

    def test_escape_cancels(self):
        self.open_window(self.show)
        self.start_fit(self.finished)
        self.desktop.press("Escape")
        wait_until(lambda: self.window.accessible.find_all(self.window.frame, None, "The fit was cancelled.")
                   or self.rows(), "the end of the fit")
        self.assertEqual(self.rows(), [], "the machine was faster than the key")


if __name__ == "__main__":
    unittest.main()
