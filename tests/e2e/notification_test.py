#!/usr/bin/env python3
"""A chapter that is added while another program is in front: the notification, its Reply button, and the panel for the title."""

import os
import subprocess
import sys
import unittest
from pathlib import Path

from desktop import Desktop, wait_until
from osc_peers import free_port, oscsend
from other_program import OtherProgram, focused_window

PROGRAM = Path(sys.argv.pop(1))


def dunst(*arguments):
    return subprocess.run(["dunstctl", *arguments], capture_output=True, text=True, check=False).stdout.strip()


class NotificationTest(unittest.TestCase):
    def setUp(self):
        self.desktop = Desktop()
        self.desktop.__enter__()
        self.addCleanup(self.desktop.__exit__)
        folder = Path(os.environ["XDG_CONFIG_HOME"]) / "zelta"
        folder.mkdir(parents=True)
        (folder / "zelta.conf").write_text(
            "[General]\nZLShowQuickEditSetting=true\nZLNewChapterOnStartSetting=false\n")

    def start_notifications(self):
        self.desktop.start("dunst", "-conf", "/dev/null", stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_until(lambda: dunst("count", "displayed") == "0", "the notification server")

    def start(self):
        self.port = free_port()
        self.process = self.desktop.start(PROGRAM, "--osc-port", self.port)
        import accessible  # The bindings look for their bus when they are imported.

        self.accessible = accessible
        self.program = accessible.application()
        self.table = accessible.find(accessible.find(self.program, "frame"), "table", "Chapters")
        self.other = OtherProgram()

    def titles(self):
        return [row[4] for row in self.accessible.table_texts(self.table)]

    def add_chapter(self, count):
        oscsend(self.port, "/zl/newChapter", "f", 1)
        wait_until(lambda: len(self.titles()) == count, "the chapter")

    def panel_windows(self):
        return subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "^Chapter Title$"], capture_output=True,
                              text=True, check=False).stdout.split()

    def open_panel(self):
        wait_until(lambda: dunst("count", "displayed") == "1", "the notification")
        dunst("action", "0")
        return wait_until(self.panel_windows, "the panel")[0]

    def click_into(self, panel):
        """Where its title field is. False when it has gone by itself before."""
        geometry = subprocess.run(["xdotool", "getwindowgeometry", "--shell", panel], capture_output=True, text=True,
                                  check=False).stdout
        if not geometry:
            return False
        place = dict(line.split("=") for line in geometry.split())
        self.desktop.click(int(place["X"]) + int(place["WIDTH"]) / 2, int(place["Y"]) + int(place["HEIGHT"]) / 4)
        wait_until(lambda: focused_window() == panel or not self.panel_windows(), "the panel to have the keyboard")
        return focused_window() == panel

    def open_panel_and_click_into_it(self):
        """The panel waits five seconds for the click. A slow machine gets some more chances."""
        for attempt in range(1, 6):
            self.add_chapter(len(self.titles()) + 1)
            panel = self.open_panel()
            self.desktop.type("abc")
            wait_until(lambda: self.other.has_got("abc" * attempt), f"the keys: {self.other.reader.lines}")
            self.assertEqual(focused_window(), self.other.window)
            if self.click_into(panel):
                return panel, attempt
        raise AssertionError("no panel could be clicked in time")

    def test_without_a_notification_server_the_chapter_is_simply_added_and_with_one_its_title_can_be_typed(self):
        self.start()
        oscsend(self.port, "/zl/toggleRecording", "f", 1)
        self.add_chapter(1)
        self.assertEqual(focused_window(), self.other.window)
        self.start_notifications()
        panel, attempts = self.open_panel_and_click_into_it()
        self.check_that_it_floats(panel)

        field = self.accessible.find(self.program, "text", "Chapter title")
        self.desktop.type("Interview")
        wait_until(lambda: field.queryText().getText(0, -1) == "Interview", "the title in the panel")
        self.desktop.press("Return")
        wait_until(lambda: self.titles()[-1] == "Interview", "the title in the table")

        wait_until(lambda: not self.panel_windows(), "the panel to go")
        wait_until(lambda: focused_window() == self.other.window, "the other program to have the keyboard again")
        self.desktop.type("def")
        wait_until(lambda: self.other.has_got("abc" * attempts + "def"), f"the keys: {self.other.reader.lines}")
        self.assertEqual(self.titles(), [""] * attempts + ["Interview"])

    def check_that_it_floats(self, panel):
        properties = subprocess.run(["xprop", "-id", panel, "_NET_WM_STATE", "_NET_WM_DESKTOP", "_NET_WM_WINDOW_TYPE"],
                                    capture_output=True, text=True, check=True).stdout
        self.assertIn("_NET_WM_STATE_ABOVE", properties)
        self.assertIn("= 4294967295", properties)
        self.assertIn("_NET_WM_WINDOW_TYPE_UTILITY", properties)


if __name__ == "__main__":
    unittest.main()
