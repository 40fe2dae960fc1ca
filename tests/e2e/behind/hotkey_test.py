#!/usr/bin/env python3
"""Recorded shortcuts while another program has the keyboard, with every lock, and one that another program holds."""

import os
import subprocess
import sys
import unittest
from pathlib import Path

from desktop import wait_until
from desktop_test import DesktopTest
from shortcuts import CODE_OF_F6, CODE_OF_F7, CODE_OF_M, CONTROL, OPTION, stored_shortcut

PROGRAM = Path(sys.argv.pop(1))


class HotkeyTest(DesktopTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        subprocess.run(["setxkbmap", "us"], check=True)
        import accessible

        cls.accessible = accessible

    def launch(self, *command):
        """Each process has a state of its own, so that it is the first one there."""
        state = self.desktop.home / f"state{len(self.desktop.processes)}"
        environment = {**os.environ, "XDG_STATE_HOME": str(state)}
        process = self.desktop.start(*command, env=environment, stdout=subprocess.DEVNULL)
        self.addCleanup(self.end, process)
        return process

    @staticmethod
    def end(process):
        process.kill()
        process.wait()

    def store(self, **shortcuts):
        folder = Path(os.environ["XDG_CONFIG_HOME"]) / "zelta"
        folder.mkdir(parents=True, exist_ok=True)
        lines = ["[General]", "ZLGlobalHotkeysSetting=true", "ZLNewChapterOnStartSetting=false"]
        lines += [f'{key}="{stored_shortcut(*shortcut)}"' for key, shortcut in shortcuts.items()]
        (folder / "zelta.conf").write_text("\n".join(lines) + "\n")

    def start(self):
        self.process = self.launch(PROGRAM)
        self.frame = wait_until(lambda: self.frame_of(self.process), "the window")
        self.table = self.accessible.find(self.frame, "table", "Chapters")
        wait_until(lambda: self.focused_process() == self.process.pid, "the window to have the keyboard")

    @staticmethod
    def focused_process():
        answer = subprocess.run(
            ["xdotool", "getwindowfocus", "getwindowpid"], capture_output=True, text=True, check=False
        ).stdout.strip()
        return int(answer) if answer.isdigit() else None

    def frame_of(self, process):
        import pyatspi

        for child in pyatspi.Registry.getDesktop(0):
            if child is not None and child.name == "zelta" and child.get_process_id() == process.pid:
                return (self.accessible.find_all(child, "frame") or [None])[0]
        return None

    def give_keyboard_to_another_program(self):
        self.launch("xmessage", "-center", "another program")
        search = ["xdotool", "search", "--class", "xmessage"]
        windows = wait_until(
            lambda: subprocess.run(search, capture_output=True, text=True, check=False).stdout.split(),
            "the other window")
        self.desktop.xdotool("windowfocus", windows[-1])
        wait_until(lambda: self.focused_process() != self.process.pid, "the other program to have the keyboard")

    def rows(self):
        return len(self.accessible.table_texts(self.table))

    def press_until(self, count, key):
        self.desktop.xdotool("key", key)
        wait_until(lambda: self.rows() == count, f"{count} chapters after {key}")

    def is_recording(self):
        return any(item.name.startswith("Pause") for item in self.accessible.find_all(self.frame, "menu item"))

    def wait_for_text(self, process, text):
        def is_shown():
            frame = self.frame_of(process)
            return frame and any(text in (node.name or "") for node in self.accessible.everything_below(frame))

        wait_until(is_shown, f'the window to show "{text}"')

    def test_shortcuts_work_while_another_program_has_the_keyboard_whatever_lock_is_on(self):
        self.store(ZLToggleRecordingKeyCombo=(CODE_OF_F6, 0), ZLNewChapterKeyCombo=(CODE_OF_M, CONTROL | OPTION))
        self.start()
        self.give_keyboard_to_another_program()
        self.desktop.xdotool("key", "F6")
        wait_until(self.is_recording, "the clock to run")
        self.press_until(1, "ctrl+alt+m")
        self.desktop.xdotool("key", "Num_Lock")
        self.press_until(2, "ctrl+alt+m")
        self.desktop.xdotool("key", "Caps_Lock")
        self.press_until(3, "ctrl+alt+m")
        self.desktop.xdotool("key", "Num_Lock")
        self.press_until(4, "ctrl+alt+m")
        self.desktop.xdotool("key", "Caps_Lock")
        self.desktop.xdotool("key", "ctrl+alt+shift+m")
        self.press_until(5, "ctrl+alt+m")
        self.assertNotEqual(self.focused_process(), self.process.pid)

    def test_shortcuts_that_another_program_holds_are_reported_in_the_window(self):
        self.store(ZLToggleRecordingKeyCombo=(CODE_OF_F6, 0), ZLNewChapterKeyCombo=(CODE_OF_F7, 0))
        holder = self.launch(PROGRAM)
        self.wait_for_text(holder, "Global shortcuts on")
        refused = self.launch(PROGRAM)
        self.wait_for_text(refused, "Global shortcuts refused")
        self.wait_for_text(holder, "Global shortcuts on")


if __name__ == "__main__":
    unittest.main()
