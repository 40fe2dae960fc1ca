#!/usr/bin/env python3
"""A show that was cut is fitted as a person does it: by keyboard, in a real window, with real files.

    fit_sheet_test.py PROGRAM [FOLDER_FOR_PICTURES]
"""

import json
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent.parent / "alignment"))
import show_simulator  # noqa: E402
from desktop import Desktop, wait_until  # noqa: E402
from surface import archive  # noqa: E402
from window import Window  # noqa: E402

PROGRAM = Path(sys.argv.pop(1))
PICTURES = Path(sys.argv.pop(1)) if len(sys.argv) > 1 else None


def seconds(text):
    hours, minutes, rest = text.split(":")
    return int(hours) * 3600 + int(minutes) * 60 + float(rest)


class FitSheetTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        # The bindings of the accessibility tree stay with the first bus that they meet.
        cls.desktop = cls.enterClassContext(Desktop())
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

    def open(self):
        self.window = Window(self.desktop, [PROGRAM], self.show).wait_until_shown()
        self.addCleanup(self.end)
        self.window.wait_for_keyboard()
        self.main = self.focused_window()

    def end(self):
        """As a person ends it, so that the next test finds nothing that was open."""
        if self.window.process.poll() is None:
            self.window.process.terminate()
            self.window.process.wait(60)
        shutil.rmtree(self.desktop.home / "state", ignore_errors=True)

    @staticmethod
    def focused_window():
        return subprocess.run(["xdotool", "getwindowfocus"], capture_output=True, text=True, check=False).stdout.strip()

    def take(self, name):
        if PICTURES:
            self.desktop.screenshot(PICTURES / name)

    def node(self, role, name):
        return self.window.accessible.find(self.window.frame, role, name)

    def has_keyboard(self, node):
        import pyatspi

        return node.getState().contains(pyatspi.STATE_FOCUSED)

    def choose(self, button, path):
        """In the dialog of the button, which has the keyboard."""
        node = self.node("push button", button)
        wait_until(lambda: self.has_keyboard(node), f"the keyboard on {button}")
        self.desktop.press("Return")
        wait_until(lambda: self.focused_window() != self.main and self.window.has_keyboard(), "the file dialog")
        self.desktop.press("ctrl+a")
        self.desktop.type(str(path))
        self.desktop.press("Return")
        wait_until(lambda: self.focused_window() == self.main, "the file dialog to go")

    def start_fit(self, finished):
        self.desktop.press("ctrl+shift+f")
        self.choose("Choose File…", finished)
        self.choose("Choose Recording…", self.heard)
        start = self.node("push button", "Find Chapters")
        wait_until(lambda: self.has_keyboard(start), "the keyboard on the button that starts")
        self.desktop.press("Return")

    def rows(self):
        """Title, old time, new time, state and confidence of each mark in the sheet."""
        found = self.window.accessible.find_all(self.window.frame, None, "Chapters in the finished file")
        return self.window.accessible.table_texts(found[0]) if found else []

    def wait_for_rows(self):
        wait_until(lambda: len(self.rows()) == len(self.truth), "the marks in the sheet", 60)
        return self.rows()

    def wait_for_text(self, text):
        wait_until(lambda: self.window.accessible.find_all(self.window.frame, None, text), f"the text {text}", 60)

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
        self.open()
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
        self.open()
        self.start_fit(self.finished)
        rows = self.wait_for_rows()
        self.save()
        self.desktop.press("Escape", "ctrl+q")
        self.window.process.wait(60)
        self.assertNotIn(str(self.sounds).encode(), self.show.read_bytes())
        self.open()
        self.desktop.press("ctrl+shift+f")
        self.assertEqual(self.wait_for_rows(), rows)
        # The computer knows where the file lies, so it can be played and written.
        play = self.node("push button", "Play")
        import pyatspi

        self.assertTrue(play.getState().contains(pyatspi.STATE_SENSITIVE))

    def test_a_mark_comes_while_both_files_are_heard(self):
        self.open()
        self.desktop.press("ctrl+r")
        self.start_fit(self.finished)
        self.desktop.press("ctrl+Return")
        wait_until(lambda: len(self.rows()) == len(self.truth) + 1, "the mark of the running show in the sheet", 60)
        self.desktop.press("Return", "Escape", "ctrl+r")

    def test_another_show_is_refused_in_plain_words(self):
        self.open()
        before = self.show.read_bytes()
        self.start_fit(self.other)
        self.wait_for_text(f"{self.other.name} is not this show: too little of {self.heard.name} is in it.")
        self.assertEqual(self.rows(), [])
        self.take("fit-sheet-refused.png")
        self.desktop.press("Escape", "ctrl+q")
        self.window.process.wait(60)
        self.assertEqual(self.show.read_bytes(), before)

    def test_escape_cancels(self):
        self.open()
        self.start_fit(self.finished)
        self.desktop.press("Escape")
        wait_until(lambda: self.window.accessible.find_all(self.window.frame, None, "The fit was cancelled.")
                   or self.rows(), "the end of the fit")
        self.assertEqual(self.rows(), [], "the machine was faster than the key")


if __name__ == "__main__":
    unittest.main()
