#!/usr/bin/env python3
"""The keys of the commands with another window of the program in front, and keys that contain Alt, in front and behind."""

import subprocess
import sys
import unittest
from pathlib import Path

from desktop import wait_until
from desktop_test import DesktopTest
from other_program import OtherProgram
from shortcuts import CODE_OF_F6, CODE_OF_M, CONTROL, OPTION, stored_shortcut
from surface import document_with_templates
from window import Window

PROGRAM = Path(sys.argv.pop(1))


class KeyEquivalentsTest(DesktopTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        subprocess.run(["setxkbmap", "us"], check=True)

    def start(self, works_everywhere, templates=()):
        self.forget_everything()
        self.write_settings(
            "ZLNewChapterOnStartSetting=false\n"
            f"ZLGlobalHotkeysSetting={'true' if works_everywhere else 'false'}\n"
            f'ZLToggleRecordingKeyCombo="{stored_shortcut(CODE_OF_F6, 0)}"\n'
            f'ZLNewChapterKeyCombo="{stored_shortcut(CODE_OF_M, CONTROL | OPTION)}"\n')
        file = self.desktop.home / "show.zelta"
        file.write_bytes(document_with_templates(list(templates)))
        self.window = Window(self.desktop, [PROGRAM], file)
        self.addCleanup(self.window.stop)
        self.window.wait_until_shown()
        self.window.wait_for_keyboard()

    def wait_for_window_in_front(self, name):
        def is_in_front():
            answer = subprocess.run(["xdotool", "getactivewindow", "getwindowname"], capture_output=True, text=True,
                                    check=False).stdout
            return name in answer

        wait_until(is_in_front, f"the window {name} in front")

    def press_until(self, titles, keys="ctrl+alt+m"):
        self.desktop.xdotool("key", keys)
        wait_until(lambda: self.window.titles() == titles, lambda: f"{titles}, not {self.window.titles()}")

    def test_with_another_window_of_the_program_in_front(self):
        self.start(works_everywhere=False)
        self.desktop.press("ctrl+comma")
        self.wait_for_window_in_front("General")
        self.desktop.press("F6")
        wait_until(self.window.is_recording, "the clock to run")
        self.press_until([""])
        self.desktop.press("Escape")
        self.window.press_item("OSC Connections…")
        self.wait_for_window_in_front("OSC")
        self.press_until(["", ""])
        self.desktop.press("F6")
        wait_until(lambda: not self.window.is_recording(), "the clock to stand")

    def test_with_a_dialog_of_the_document_in_front(self):
        self.start(works_everywhere=False)
        self.desktop.press("F6")
        wait_until(self.window.is_recording, "the clock to run")
        for count, (keys, name) in enumerate((("ctrl+i", "Insert Chapter"), ("ctrl+shift+s", "Save Chapters As")), 1):
            self.desktop.press(keys)
            self.wait_for_window_in_front(name)
            self.press_until([""] * count)
            self.wait_for_window_in_front(name)
            self.desktop.press("Escape")
            self.wait_for_window_in_front("Zelta")
            self.window.wait_for_keyboard()

    def test_keys_that_contain_alt_add_a_blank_chapter_in_front(self):
        self.start(works_everywhere=False, templates=["One", "Two"])
        self.desktop.press("F6")
        wait_until(self.window.is_recording, "the clock to run")
        self.press_until([""])

    def test_keys_that_contain_alt_add_a_blank_chapter_behind(self):
        self.start(works_everywhere=True, templates=["One", "Two"])
        other = OtherProgram()
        self.addCleanup(other.reader.stop)
        self.desktop.xdotool("key", "F6")
        wait_until(self.window.is_recording, "the clock to run")
        self.press_until([""])
        subprocess.run([PROGRAM, "send", "newChapter"], check=True, timeout=60, capture_output=True)
        wait_until(lambda: self.window.titles() == ["", "One"], "the template by a command without keys")


if __name__ == "__main__":
    unittest.main()
