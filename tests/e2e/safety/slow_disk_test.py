#!/usr/bin/env python3
"""On a disk that takes 300 ms for each sync and each rename, marks at speed are all there, each at the time of its press,
and they are answered while the disk is busy. A kill takes nothing that was answered."""

import json
import signal
import subprocess
import sys
import time
import unittest

LIBRARY = sys.argv.pop(2)

from desktop import wait_until
from osc_recorder import PROGRAM, OSCTestCase, Recorder
from surface import Surface, document_with_templates

DELAY = 300  # Milliseconds.
MARKS = 50
MARKS_PER_SECOND = 20
# Seconds. Were marks to wait for the disk, one after the other, the last one would come some twelve seconds late.
MOST_TIME_ERROR = 2.0


class SlowDiskTest(OSCTestCase):
    def setUp(self):
        super().setUp()
        self.surface = Surface()
        self.addCleanup(self.surface.close)
        self.titles = [f"mark {number}" for number in range(MARKS)]
        self.file.write_bytes(document_with_templates(self.titles))
        self.log = self.home / "disk.log"
        self.sent = {}
        self.told = {}

    def start_on_slow_disk(self):
        recorder = Recorder(self.home, "--osc-port", "0", "--osc-send", f"127.0.0.1:{self.surface.port}", self.file,
                            LD_PRELOAD=LIBRARY, ZELTA_TEST_DISK_DELAY=str(DELAY), ZELTA_TEST_DISK_LOG=str(self.log))
        self.addCleanup(recorder.reader.stop)
        self.surface.send(recorder.port, "toggleRecording")
        self.surface.wait_for(lambda told: told.is_recording, "the clock to run")
        return recorder

    def take_answers(self, seconds):
        for state in self.surface.states(seconds):
            self.told.setdefault(state.last_title, time.monotonic())

    def press_at_speed(self, recorder):
        begin = time.monotonic()
        for number, title in enumerate(self.titles):
            while (left := begin + number / MARKS_PER_SECOND - time.monotonic()) > 0:
                self.take_answers(left)
            self.sent[title] = time.monotonic()
            self.surface.send(recorder.port, "newChapter")
        deadline = time.monotonic() + 60
        while self.titles[-1] not in self.told:
            self.assertLess(time.monotonic(), deadline, "the last mark was never answered")
            self.take_answers(0.05)

    def disk_calls(self):
        """(name, begin, end) of each."""
        lines = [line.split() for line in self.log.read_text().splitlines()]
        return [(name, float(begin), float(end)) for name, begin, end in lines]

    def chapters_after_restart(self):
        recorder = self.start_on(self.file)
        recorder.write("keep")
        wait_until(lambda: recorder.has_said("paused at"), lambda: f"the decision, not {recorder.reader.lines}")
        recorder.reader.process.send_signal(signal.SIGTERM)
        recorder.reader.process.wait()
        shown = subprocess.run([PROGRAM, "show", "--json", self.file], capture_output=True, text=True, timeout=60,
                               check=True)
        return json.loads(shown.stdout)["chapters"]

    def start_on(self, file):
        recorder = Recorder(self.home, "--osc-port", "0", file)
        self.addCleanup(recorder.reader.stop)
        return recorder

    def test_marks_at_speed(self):
        recorder = self.start_on_slow_disk()
        self.press_at_speed(recorder)
        recorder.reader.process.send_signal(signal.SIGKILL)
        recorder.reader.process.wait()
        calls = self.disk_calls()
        self.assertIn("fdatasync", [name for name, _, _ in calls], "the journal was not slow")
        busy = [(begin, end) for _, begin, end in calls]
        while_busy = [title for title, moment in self.told.items() if any(begin < moment < end for begin, end in busy)]
        self.assertGreater(len(while_busy), MARKS // 5, f"answers wait for the disk: {self.told} {busy}")
        chapters = {chapter["title"]: chapter["timeStamp"] for chapter in self.chapters_after_restart()}
        self.assertEqual([title for title in self.titles if title not in chapters], [])
        first = self.titles[0]
        for title in self.titles:
            pressed = self.sent[title] - self.sent[first]
            self.assertLess(abs(chapters[title] - chapters[first] - pressed), MOST_TIME_ERROR, f"the time of {title}")


if __name__ == "__main__":
    unittest.main()
