#!/usr/bin/env python3
"""A window says which disk hangs, marks go on meanwhile, and it can be quit."""

import sys
import time
import unittest
from pathlib import Path

PROGRAM = Path(sys.argv.pop(1))
LIBRARY = sys.argv.pop(1)

from desktop import wait_until
from desktop_test import DesktopTest
from surface import Surface, document_with_templates
from window import Window

TITLES = [f"mark {number}" for number in range(10)]
SILENT = "The disk does not answer."
LONGEST_END = 5.0  # Seconds that the end of the program waits for a disk.
SLACK = 5.0  # Seconds that a busy machine may take for the rest.


class HangingWindowTest(DesktopTest):
    def setUp(self):
        self.forget_everything("show")
        self.show = self.desktop.home / "show"
        self.show.mkdir()
        self.file = self.show / "show.zelta"
        self.file.write_bytes(document_with_templates(TITLES))
        self.recovery = self.desktop.home / "state" / "zelta" / "recovery"
        self.switch = self.desktop.home / "hang"
        self.switch.unlink(missing_ok=True)
        self.surface = Surface()
        self.addCleanup(self.surface.close)

    def start(self, hanging_folder):
        program = ["env", f"LD_PRELOAD={LIBRARY}", f"ZELTA_TEST_HANG_PATH={hanging_folder}",
                   f"ZELTA_TEST_HANG_SWITCH={self.switch}", PROGRAM]
        window = Window(self.desktop, program, self.file, osc_send=self.surface.port)
        self.addCleanup(window.stop)
        return window.wait_until_shown()

    def start_show(self, hanging_folder):
        window = self.start(hanging_folder)
        self.press(window, "toggleRecording", 1)
        wait_until(lambda: self.recovery.exists(), "the journal")
        return window

    def press(self, window, action, count):
        self.surface.send(window.osc_port, action)
        wait_until(lambda: window.titles() == TITLES[:count], lambda: f"{count} chapters, not {window.titles()}")

    def hang(self, window):
        self.switch.touch()
        self.press(window, "newChapter", 2)
        self.press(window, "newChapter", 3)

    def test_a_file_that_hangs(self):
        window = self.start_show(self.show)
        self.hang(window)
        window.wait_for_message("The document is not saved: ", f"{self.file}: {SILENT}")
        self.press(window, "newChapter", 4)
        self.switch.unlink()
        window.wait_for_no_message()

    def test_a_recovery_folder_that_hangs(self):
        window = self.start_show(self.recovery)
        self.hang(window)
        window.wait_for_message("The recovery folder cannot be written: ", f"{self.recovery}: {SILENT}")
        self.press(window, "newChapter", 4)
        self.switch.unlink()
        window.wait_for_no_message()

    def test_quitting_while_the_file_hangs(self):
        window = self.start_show(self.show)
        self.hang(window)
        self.surface.send(window.osc_port, "toggleRecording")
        self.surface.wait_for(lambda told: not told.is_recording, "the clock to stand")
        window.wait_for_keyboard()
        begin = time.monotonic()
        self.desktop.press("ctrl+q")
        window.wait_for_message("Not everything could be saved: ", str(self.file), "does not answer")
        self.assertLess(time.monotonic() - begin, LONGEST_END + SLACK)
        begin = time.monotonic()
        window.press("Quit Anyway")
        window.process.wait(timeout=60)
        self.assertLess(time.monotonic() - begin, LONGEST_END + SLACK)
        self.switch.unlink()
        window = self.start(self.show)
        wait_until(lambda: window.titles() == TITLES[:3], lambda: f"what was kept, not {window.titles()}")


if __name__ == "__main__":
    unittest.main()
