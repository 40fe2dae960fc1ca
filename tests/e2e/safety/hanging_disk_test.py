#!/usr/bin/env python3
"""One of the two roads to the disk hangs in a write: the other one takes every mark, the hang is told, and the program
ends all the same."""

import json
import signal
import subprocess
import sys
import time
import unittest
from pathlib import Path

LIBRARY = sys.argv.pop(2)

import session_memory
from desktop import wait_until
from osc_recorder import PROGRAM, OSCTestCase, Recorder
from surface import Surface, document_with_templates

MARKS = 16
LONGEST_END = 5.0  # Seconds that the end of the program waits for a disk.
SLACK = 4.0  # Seconds that a busy machine may take for the rest.


class HangingDiskTest(OSCTestCase):
    def setUp(self):
        super().setUp()
        self.surface = Surface()
        self.addCleanup(self.surface.close)
        self.titles = [f"mark {number}" for number in range(MARKS)]
        self.show = self.home / "show"
        self.show.mkdir()
        self.file = self.show / "show.zelta"
        self.file.write_bytes(document_with_templates(self.titles))
        self.recovery = self.home / "zelta" / "recovery"
        self.switch = self.home / "hang"

    def start(self, hanging_folder, **environment):
        recorder = Recorder(self.home, "--osc-port", "0", "--osc-send", f"127.0.0.1:{self.surface.port}", self.file,
                            LD_PRELOAD=LIBRARY, ZELTA_TEST_HANG_PATH=str(hanging_folder),
                            ZELTA_TEST_HANG_SWITCH=str(self.switch), **environment)
        self.addCleanup(recorder.reader.stop)
        return recorder

    def mark_during_a_hang(self, hanging_folder, **environment):
        """Half of the marks before it and half of them while it hangs, each acknowledged."""
        recorder = self.start(hanging_folder, **environment)
        self.surface.send(recorder.port, "toggleRecording")
        self.surface.wait_for(lambda told: told.is_recording, "the clock to run")
        for number, title in enumerate(self.titles):
            if number == MARKS // 2:
                wait_until(lambda: self.titles[0] in self.titles_in_file(), "the file")
                self.switch.touch()
            self.surface.send(recorder.port, "newChapter")
            self.surface.wait_for(lambda told: told.last_title == title, f"{title} to be acknowledged", 10)
        return recorder

    def titles_in_file(self):
        shown = subprocess.run([PROGRAM, "show", "--json", self.file], capture_output=True, text=True, timeout=60,
                               check=True)
        return [chapter["title"] for chapter in json.loads(shown.stdout)["chapters"]]

    def assert_marks(self, titles):
        self.assertEqual([title for title in self.titles if title not in titles], [])

    def kill(self, recorder):
        recorder.reader.process.send_signal(signal.SIGKILL)
        recorder.reader.process.wait()
        self.switch.unlink()

    def end(self, recorder):
        """The exit status; the time that it takes has a bound."""
        begin = time.monotonic()
        recorder.reader.process.send_signal(signal.SIGTERM)
        status = recorder.reader.process.wait(timeout=60)
        self.assertLess(time.monotonic() - begin, LONGEST_END + SLACK)
        return status

    def wait_until_told(self, recorder, text):
        wait_until(lambda: recorder.has_said(text), lambda: f"“{text}”, not {recorder.reader.lines}")

    def test_a_recovery_folder_that_hangs(self):
        recorder = self.mark_during_a_hang(self.recovery)
        wait_until(lambda: self.titles[-1] in self.titles_in_file(), "the last mark in the file")
        self.wait_until_told(recorder, f"The recovery folder cannot be written: {self.recovery}: The disk does not answer")
        self.kill(recorder)
        self.assert_marks(self.titles_in_file())

    def test_the_file_goes_on_for_as_long_as_the_folder_hangs(self):
        recorder = self.mark_during_a_hang(self.recovery)
        self.wait_until_told(recorder, "The recovery folder cannot be written")
        recorder.write("title a last word")
        wait_until(lambda: "a last word" in self.titles_in_file(), "what came long after")
        self.switch.unlink()
        self.wait_until_told(recorder, "The recovery folder can be written again.")
        self.surface.send(recorder.port, "newChapter")
        wait_until(lambda: len(self.titles_in_file()) == MARKS + 2, "the mark after it")
        self.assertEqual(self.end(recorder), 0)

    def test_a_file_that_hangs(self):
        recorder = self.mark_during_a_hang(self.show)
        self.wait_until_told(recorder, f"Cannot save: {self.file}: The disk does not answer")
        self.kill(recorder)
        self.assertNotIn(self.titles[-1], self.titles_in_file(), "the disk did not hang")
        recorder = self.start(self.show)
        recorder.write("keep")
        self.wait_until_told(recorder, "paused at")
        self.assertEqual(self.end(recorder), 0)
        self.assert_marks(self.titles_in_file())

    def test_a_disk_that_hangs_with_everything_on_it(self):
        """The session's memory has the marks."""
        if not session_memory.is_there():
            self.skipTest("there is no file system in memory")
        with session_memory.runtime_folder(self.home) as runtime:
            recorder = self.mark_during_a_hang(self.home, XDG_RUNTIME_DIR=runtime)
            self.kill(recorder)
            self.assertNotIn(self.titles[-1], self.titles_in_file(), "the disk did not hang")
            recorder = self.start(self.home, XDG_RUNTIME_DIR=runtime)
            recorder.write("keep")
            self.wait_until_told(recorder, "paused at")
            self.assertEqual(self.end(recorder), 0)
            self.assert_marks(self.titles_in_file())
            self.assertEqual([file.name for file in Path(runtime).iterdir() if file.suffix == ".journal"], [])

    def test_a_file_that_answers_again(self):
        recorder = self.mark_during_a_hang(self.show)
        self.wait_until_told(recorder, f"Cannot save: {self.file}: The disk does not answer")
        self.switch.unlink()
        self.wait_until_told(recorder, f"Saved again: {self.file}")
        self.assert_marks(self.titles_in_file())

    def test_the_end_while_the_file_hangs(self):
        recorder = self.mark_during_a_hang(self.show)
        self.assertEqual(self.end(recorder), 1)
        self.assertTrue(recorder.has_said(f"Cannot save: {self.file}: The disk does not answer"), recorder.reader.lines)
        self.switch.unlink()
        recorder = self.start(self.show)
        recorder.write("keep")
        self.wait_until_told(recorder, "paused at")
        self.assertEqual(self.end(recorder), 0)
        self.assert_marks(self.titles_in_file())

    def test_the_end_while_the_recovery_folder_hangs(self):
        recorder = self.mark_during_a_hang(self.recovery)
        self.assertEqual(self.end(recorder), 0)
        self.assert_marks(self.titles_in_file())


if __name__ == "__main__":
    unittest.main()
