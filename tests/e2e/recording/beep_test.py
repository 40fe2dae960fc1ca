#!/usr/bin/env python3
"""The beep is switched on in the preferences, an output is chosen there, and the next recording is heard on it."""

import sys
import unittest
from pathlib import Path

from desktop import Desktop, wait_until
from sound_server import SoundServer, is_silent

PROGRAM = Path(sys.argv.pop(1))

class BeepTest(unittest.TestCase):
    def test_the_beep_is_heard_on_the_chosen_output_alone(self):
        with Desktop() as desktop:
            server = SoundServer(desktop)
            left, right = server.listen("left_card"), server.listen("right_card")
            desktop.start(PROGRAM)
            import accessible

            tree = accessible.application()
            accessible.find(tree, "frame", "Untitled — Zelta")
            desktop.press("ctrl+comma")
            pane = accessible.find(tree, "frame", "General")
            accessible.press(accessible.find(pane, "check box", "Beep before the recording starts"))
            self.choose_right_card(desktop, accessible, pane)
            desktop.press("Escape")
            frame = wait_until(lambda: next((f for f in accessible.find_all(tree, "frame") if "Zelta" in f.name), None),
                               "the document window")
            accessible.press(accessible.find(frame, "push button", "Start"))
            wait_until(lambda: not is_silent(right), "the beep on the chosen output")
            # The clock waits for the sound to end, and then the first chapter stands at its beginning.
            table = accessible.find(frame, "table")
            wait_until(lambda: table.queryTable().nRows == 1, "the recording to start")
            self.assertTrue(is_silent(left))

    def choose_right_card(self, desktop, accessible, pane):
        accessible.find(pane, "combo box", "Left Card")
        desktop.press("alt+o", "Down")
        settings = desktop.home / "config/zelta/zelta.conf"
        wait_until(lambda: "ZLAudioOutputDeviceSetting=right_card" in settings.read_text(), "the output to be stored")


if __name__ == "__main__":
    unittest.main()
