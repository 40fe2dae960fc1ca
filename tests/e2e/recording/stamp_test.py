#!/usr/bin/env python3
"""A press counts when it reached the computer: while the program is stopped, keys in its window, a key of the whole
system, clicks and remote controls are pressed, and each mark has the time of its press. A button acts when it is let go,
and its mark has the time at which it went down."""

import os
import signal
import subprocess
import sys
import time
import unittest
from pathlib import Path

from desktop import Desktop, wait_until
from presses import Keyboard, RemoteControl, chapters_in
from shortcuts import CODE_OF_F6, CODE_OF_F7, stored_shortcut
from surface import document_with_templates
from window import Window

PROGRAM = Path(sys.argv.pop(1))
HOLD = 0.8
# Far less than the hold, and enough for a machine that has much to do.
TOLERANCE = 0.1


class StampTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        # One for all: the accessibility bindings know only the bus that they found first.
        cls.desktop = Desktop()
        cls.desktop.__enter__()
        cls.addClassCleanup(cls.desktop.__exit__)
        subprocess.run(["setxkbmap", "us"], check=True)

    def start(self, are_keys_global):
        folder = Path(os.environ["XDG_CONFIG_HOME"]) / "zelta"
        folder.mkdir(parents=True, exist_ok=True)
        shortcuts = {"ZLToggleRecordingKeyCombo": CODE_OF_F6, "ZLNewChapterKeyCombo": CODE_OF_F7}
        lines = ["[General]", f"ZLGlobalHotkeysSetting={str(are_keys_global).lower()}", "ZLNewChapterOnStartSetting=true"]
        lines += [f'{key}="{stored_shortcut(code, 0)}"' for key, code in shortcuts.items()]
        (folder / "zelta.conf").write_text("\n".join(lines) + "\n")
        # What a window leaves that is killed belongs to its own file.
        self.path = self.desktop.home / f"{self._testMethodName}.zelta"
        self.path.write_bytes(document_with_templates([]))
        self.window = Window(self.desktop, [PROGRAM, self.path])
        self.addCleanup(self.end)
        self.window.wait_until_shown()
        self.window.wait_for_keyboard()
        if are_keys_global:
            wait_until(self.are_keys_taken, "the keys of the whole system")
        self.keyboard = Keyboard()
        self.addCleanup(self.keyboard.close)
        self.remote = RemoteControl(self.window.osc_port)
        self.addCleanup(self.remote.close)
        self.presses = []

    def end(self):
        self.window.process.kill()
        self.window.process.wait()

    def are_keys_taken(self):
        nodes = self.window.accessible.everything_below(self.window.frame)
        return any("Global shortcuts on" in (node.name or "") for node in nodes)

    def press_while_stopped(self, press):
        """The program goes on a while after the press."""
        os.kill(self.window.process.pid, signal.SIGSTOP)
        try:
            self.presses.append(press())
            time.sleep(HOLD)
        finally:
            os.kill(self.window.process.pid, signal.SIGCONT)
        # The next stop may come when this press is carried out.
        wait_until(lambda: len(self.times()) == len(self.presses), lambda: f"chapter {len(self.presses)}")

    def times(self):
        return [chapter["TimeStamp"] for chapter in chapters_in(self.path)]

    def expect_presses(self):
        times = self.times()
        self.assertEqual(times[0], 0.0, "the chapter of the start")
        for number, (reading, moment) in enumerate(zip(times, self.presses)):
            self.assertAlmostEqual(reading, moment - self.presses[0], delta=TOLERANCE, msg=f"press {number}")

    def point_at(self, button):
        self.desktop.xdotool("mousemove", *map(str, self.center_of(button)))

    def center_of(self, button):
        node = self.window.accessible.find(self.window.frame, "push button", button)
        box = node.queryComponent().getExtents(self.window.accessible.pyatspi.DESKTOP_COORDS)
        return box.x + box.width // 2, box.y + box.height // 2

    def test_keys_in_the_window_clicks_and_remote_controls(self):
        self.start(are_keys_global=False)
        self.press_while_stopped(lambda: self.keyboard.press("F6"))
        self.press_while_stopped(lambda: self.keyboard.press("F7"))
        self.press_while_stopped(lambda: self.remote.press("newChapter"))
        self.point_at("Add")
        self.press_while_stopped(self.keyboard.click)
        self.press_while_stopped(lambda: self.keyboard.press("F7"))
        self.expect_presses()

    def test_buttons_that_are_held_count_from_their_press(self):
        self.start(are_keys_global=False)
        self.point_at("Start")
        self.presses.append(self.keyboard.click(held=0.4))
        wait_until(lambda: len(self.times()) == 1, "the chapter of the start")
        self.presses.append(self.remote.press("newChapter"))
        wait_until(lambda: len(self.times()) == 2, "the chapter of the remote control")
        self.point_at("Add")
        self.presses.append(self.keyboard.click(held=0.3))
        wait_until(lambda: len(self.times()) == 3, "the chapter of the button")
        self.expect_presses()

    def test_keys_of_the_whole_system_and_a_stop(self):
        self.start(are_keys_global=True)
        self.press_while_stopped(lambda: self.keyboard.press("F6"))
        self.press_while_stopped(lambda: self.keyboard.press("F7"))
        self.press_while_stopped(lambda: self.remote.press("newChapter"))
        self.expect_presses()
        os.kill(self.window.process.pid, signal.SIGSTOP)
        stopped = self.keyboard.press("F6")
        time.sleep(HOLD)
        os.kill(self.window.process.pid, signal.SIGCONT)
        wait_until(lambda: not self.window.is_recording(), "the stop")
        shown = self.window.clock_text()
        hours, minutes, seconds = shown.split(":")
        reading = int(hours) * 3600 + int(minutes) * 60 + float(seconds)
        self.assertAlmostEqual(reading, stopped - self.presses[0], delta=TOLERANCE + 0.1)


if __name__ == "__main__":
    unittest.main()
