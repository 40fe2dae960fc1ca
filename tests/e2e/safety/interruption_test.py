#!/usr/bin/env python3
"""A recording in a window is cut off. The next start says so, the clock stands, and both answers can be undone and done
again; a clock that goes on is as right as if it had never stopped."""

import json
import subprocess
import sys
import time
import unittest
from pathlib import Path

from desktop import wait_until
from desktop_test import DesktopTest
from surface import ClockBounds, Surface, document_with_templates
from window import CONTINUE, KEEP, Window

PROGRAM = Path(sys.argv.pop(1))
MOST_CLOCK_ERROR = 0.1  # Seconds.
TITLES = [f"chapter {number}" for number in range(1, 20)]


class InterruptionTest(DesktopTest):
    def setUp(self):
        self.forget_everything()
        self.surface = Surface()
        self.addCleanup(self.surface.close)
        self.clock = ClockBounds()
        self.file = self.desktop.home / "show.zelta"
        self.file.write_bytes(document_with_templates(TITLES))

    def start(self, *arguments):
        window = Window(self.desktop, [PROGRAM], *arguments, osc_send=self.surface.port)
        self.addCleanup(window.stop)
        window.wait_until_shown()
        window.wait_for_keyboard()
        return window

    def record_for_a_while_and_kill(self, *arguments):
        window = self.start(*arguments)
        self.desktop.press("ctrl+r")
        wait_until(lambda: len(window.titles()) == 1, "the first chapter")
        wait_until(lambda: seconds_of(window.clock_text()) >= 1.5, "the clock to go on")
        window.kill()

    def start_interrupted(self, *arguments):
        window = self.start(*arguments)
        self.wait_for_offer(window)
        window.wait_for_message("The recording was interrupted on", "The clock is paused until you decide.")
        reading = window.clock_text()
        return window, reading

    def wait_for_offer(self, window):
        wait_until(window.offers_to_continue, "both answers to be offered")
        wait_until(lambda: not window.is_recording(), "the clock to stand")

    def check_it_stands(self, window, reading):
        self.assertFalse(window.is_recording())
        self.assertEqual(window.clock_text(), reading)

    def mark(self, window, count):
        """Adds a chapter; its stamp says where the clock stands."""
        pressed = time.time()
        self.surface.send(window.osc_port, "newChapter")
        self.surface.wait_for(lambda told: told.last_title == TITLES[count - 1], f"chapter {count}")
        acknowledged = time.time()

        def stamps():
            shown = subprocess.run([PROGRAM, "show", "--json", self.file], capture_output=True, text=True, check=False)
            chapters = json.loads(shown.stdout)["chapters"] if shown.returncode == 0 else []
            return [chapter["timeStamp"] for chapter in chapters] if len(chapters) == count else None

        self.last_stamp = wait_until(stamps, f"chapter {count} in the file")[-1]
        self.clock.see_reading(self.last_stamp, pressed, acknowledged)
        self.assertLessEqual(self.clock.contradiction(), MOST_CLOCK_ERROR)

    def record_marks_and_kill(self):
        window = self.start(self.file)
        self.desktop.press("ctrl+r")
        wait_until(lambda: len(window.titles()) == 1, "the first chapter")
        self.mark(window, 2)
        window.kill()
        self.latest_reading = time.time() - self.clock.earliest

    def start_interrupted_after_marks(self):
        """The last mark says best where the clock stood."""
        window, reading = self.start_interrupted(self.file)
        self.assertGreaterEqual(seconds_of(reading), self.last_stamp - 0.1)  # Tenths, of which the rest is cut off.
        self.assertLessEqual(seconds_of(reading), self.latest_reading)
        return window, reading

    def test_continue_and_its_undo_and_redo(self):
        self.record_marks_and_kill()
        window, reading = self.start_interrupted_after_marks()
        window.press(CONTINUE)
        wait_until(window.is_recording, "the clock to go on")
        window.wait_for_no_message()
        self.mark(window, 3)

        self.desktop.press("ctrl+z", "ctrl+z")
        self.wait_for_offer(window)
        self.assertEqual(len(window.titles()), 2)
        self.check_it_stands(window, reading)

        self.desktop.press("ctrl+shift+z")
        wait_until(window.is_recording, "the clock to go on again")
        window.wait_for_no_message()
        self.desktop.press("ctrl+shift+z")
        wait_until(lambda: len(window.titles()) == 3, "the mark to be back")
        self.mark(window, 4)

    def test_keep_and_its_undo_and_redo(self):
        self.record_marks_and_kill()
        window, reading = self.start_interrupted_after_marks()
        window.press(KEEP)
        window.wait_for_no_message()
        self.check_it_stands(window, reading)
        self.desktop.press("ctrl+z")
        self.wait_for_offer(window)
        self.check_it_stands(window, reading)
        self.desktop.press("ctrl+shift+z")
        window.wait_for_no_message()
        self.check_it_stands(window, reading)

        # Who thinks better of it has lost nothing.
        self.desktop.press("ctrl+z")
        self.wait_for_offer(window)
        window.press(CONTINUE)
        wait_until(window.is_recording, "the clock to go on")
        self.mark(window, 3)

    def test_a_document_without_a_file(self):
        self.record_for_a_while_and_kill()
        window, reading = self.start_interrupted()
        # A running clock is in the journal every second.
        self.assertGreaterEqual(seconds_of(reading), 0.9)
        window.press(KEEP)
        window.wait_for_no_message()
        window.kill()
        # The answer is kept too.
        window = self.start()
        wait_until(lambda: len(window.titles()) == 1, "the chapter")
        self.assertEqual(window.messages(), [])
        self.check_it_stands(window, reading)


def seconds_of(clock):
    hours, minutes, seconds = clock.split(":")
    return int(hours) * 3600 + int(minutes) * 60 + float(seconds)


if __name__ == "__main__":
    unittest.main()
