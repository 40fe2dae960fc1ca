#!/usr/bin/env python3
"""More documents were kept than the system lets one process have open: the program starts with a part of them, says so once,
records, and keeps the others. Where the system allows more than it gives at first, all of them open."""

import unittest

from desktop import wait_until
from osc_recorder import OSCTestCase, Recorder
from surface import document_with_templates

KEPT = 150
TOLD = "Too many documents are open at once, so not every one was opened. Close some, then try again."


class ManyDocumentsTest(OSCTestCase):
    def setUp(self):
        super().setUp()
        self.folder = self.home / "zelta" / "recovery"
        self.folder.mkdir(parents=True, mode=0o700)
        for number in range(KEPT):
            (self.folder / f"20260101-000000-000-{number:08x}.zelta").write_bytes(document_with_templates([f"of {number}"]))

    def record(self, first, most):
        """With the system's bounds: what a process may have open at first, and how far it may raise that."""
        recorder = Recorder(self.home, "--osc-port", "0", prefix=["prlimit", f"--nofile={first}:{most}"])
        self.addCleanup(recorder.reader.stop)
        return recorder

    def locks(self):
        """Each document that is open has one."""
        return len(list(self.folder.glob("*.zelta.lock")))

    def check_records(self, recorder):
        recorder.start_clock()
        for count in range(2, 5):
            recorder.press("newChapter")
            recorder.wait_for_chapters(count)
        recorder.press("toggleRecording")
        wait_until(lambda: recorder.has_said("paused at"), "the clock to stand")
        recorder.write("quit")
        self.assertEqual(recorder.reader.process.wait(timeout=60), 0, recorder.reader.lines)
        self.assertEqual(len(list(self.folder.glob("*.zelta"))), KEPT, "every document is kept")

    def test_more_than_may_be_open(self):
        recorder = self.record(100, 100)
        wait_until(lambda: recorder.has_said(TOLD), lambda: f"it to be told, not {recorder.reader.lines}")
        self.assertEqual(recorder.count(TOLD), 1)
        self.assertGreater(self.locks(), 10)
        self.assertLess(self.locks(), 50)
        self.check_records(recorder)

    def test_the_bound_is_raised(self):
        recorder = self.record(100, 2000)
        wait_until(lambda: self.locks() == KEPT, lambda: f"all documents, not {self.locks()}: {recorder.reader.lines}")
        self.assertFalse(recorder.has_said(TOLD))
        self.check_records(recorder)


if __name__ == "__main__":
    unittest.main()
