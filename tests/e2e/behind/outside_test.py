#!/usr/bin/env python3
"""Commands from outside while several documents are open: which one they reach, where that is told, and how they are kept
at one document, also while another window or another program is in front."""

import json
import os
import signal
import subprocess
import sys
import unittest
from pathlib import Path

from desktop import wait_until
from desktop_test import DesktopTest
from other_program import OtherProgram
from shortcuts import CODE_OF_F7, stored_shortcut
from surface import Surface, document_with_templates
from window import Window

PROGRAM = Path(sys.argv.pop(1))
COME_HERE = "Commands From Outside Come Here"


class OutsideTest(DesktopTest):
    def setUp(self):
        self.forget_everything()
        self.write_settings("ZLNewChapterOnStartSetting=false\nZLGlobalHotkeysSetting=true\n"
                            f'ZLNewChapterKeyCombo="{stored_shortcut(CODE_OF_F7, 0)}"\n')
        self.surface = Surface()
        self.addCleanup(self.surface.close)
        self.old, self.show = (self.desktop.home / name for name in ("old.zelta", "show.zelta"))
        for file in (self.old, self.show):
            file.write_bytes(document_with_templates([]))

    def start(self, *files):
        window = Window(self.desktop, [PROGRAM], *files, osc_send=self.surface.port)
        self.addCleanup(window.stop)
        window.wait_until_shown()
        self.accessible = window.accessible
        return window

    def frame(self, window, file):
        def find():
            for child in self.accessible.pyatspi.Registry.getDesktop(0):
                if child is not None and child.name == "zelta" and child.get_process_id() == window.process.pid:
                    for frame in self.accessible.find_all(child, "frame"):
                        if frame.name.startswith(file.name):
                            return frame
            return None

        return wait_until(find, f"the window of {file.name}")

    def bring_to_front(self, file):
        self.desktop.xdotool("search", "--onlyvisible", "--name", f"^{file.name}", "windowactivate", "--sync")

    def send(self, word):
        return subprocess.run([PROGRAM, "send", word], capture_output=True, text=True, timeout=60, check=True).stdout.strip()

    @staticmethod
    def chapters_in(file):
        shown = subprocess.run([PROGRAM, "show", "--json", file], capture_output=True, text=True, check=False)
        return len(json.loads(shown.stdout)["chapters"]) if shown.returncode == 0 else 0

    def shown_texts(self, frame):
        return [node.name for node in self.accessible.everything_below(frame, {"table", "menu bar"})
                if node.name and self.accessible.is_showing(node)]

    def wait_for_text(self, frame, part):
        wait_until(lambda: any(part in text for text in self.shown_texts(frame)), f"the window to show {part}")

    def test_a_document_that_was_brought_back_does_not_take_the_marks_of_todays_show(self):
        first = self.start(self.old)
        first.process.send_signal(signal.SIGTERM)
        first.process.wait(30)
        window = self.start()
        self.frame(window, self.old)
        subprocess.run([PROGRAM, self.show], check=True, timeout=60)
        show = self.frame(window, self.show)
        other = OtherProgram()
        self.addCleanup(other.reader.stop)
        self.wait_for_text(show, "Outside commands come here")
        self.assertEqual(self.send("toggleRecording"), "toggleRecording: started the recording")
        self.assertEqual(self.send("newChapter"), "newChapter: added a chapter")
        self.wait_for_text(show, "Chapter 1 at 00:00:0")
        wait_until(lambda: self.chapters_in(self.show) == 1, "the chapter in today's file")
        self.assertEqual(self.chapters_in(self.old), 0)

    def test_a_command_that_goes_elsewhere_is_told_and_a_pin_brings_it_here(self):
        window = self.start(self.old, self.show)
        old, show = self.frame(window, self.old), self.frame(window, self.show)
        self.bring_to_front(self.show)
        self.desktop.press("ctrl+r")
        wait_until(lambda: self.accessible.find_all(show, "push button", "Pause"), "the clock to run")
        other = OtherProgram()
        self.addCleanup(other.reader.stop)
        self.wait_for_text(old, "Outside commands come here")
        answer = self.send("newChapter")
        self.assertIn("“old.zelta”", answer)
        self.assertIn("“show.zelta” is recording", answer)
        self.wait_for_text(show, "went to “old.zelta” and could do nothing there: the clock is not running.")
        bars = [node for node in self.accessible.find_all(show, "push button", COME_HERE)]
        self.accessible.press(bars[0])
        self.wait_for_text(show, "Outside commands stay here")

        # By all three ways, with another program in front and with the other document's window in front.
        for in_front, before in ((None, 0), (self.old, 3)):
            if in_front:
                self.bring_to_front(in_front)
            self.assertEqual(self.send("newChapter"), "newChapter: added a chapter")
            self.wait_for_text(show, f"Chapter {before + 1} at 00:00:")
            self.wait_for_text(show, "from zelta send")
            self.surface.send(window.osc_port, "newChapter")
            self.wait_for_text(show, f"Chapter {before + 2} at 00:00:")
            self.wait_for_text(show, "from OSC")
            self.desktop.xdotool("key", "F7")
            self.wait_for_text(show, f"Chapter {before + 3} at 00:00:")
            self.wait_for_text(show, "from a global shortcut")
        wait_until(lambda: self.chapters_in(self.show) == 6, "all chapters in the file")
        self.assertEqual(self.chapters_in(self.old), 0)
        self.surface.wait_for(lambda told: told.is_recording, "the state of the pinned document")
        if "ZELTA_TEST_PICTURES" in os.environ:
            self.desktop.screenshot(Path(os.environ["ZELTA_TEST_PICTURES"]) / "outside.png")

        # Keys in front keep to the window in front.
        self.desktop.press("ctrl+r")
        wait_until(lambda: self.accessible.find_all(old, "push button", "Pause"), "the other clock to run")
        self.assertTrue(self.accessible.find_all(show, "push button", "Pause"))


if __name__ == "__main__":
    unittest.main()
