#!/usr/bin/env python3
"""A chapter that is added while another program is in front: the notification, its Reply button, and the panel for the
title, which comes by itself where there are no notifications."""

import subprocess
import sys
import unittest
from pathlib import Path

from behind_test import BehindTest
from desktop import focused_window, wait_until
from osc_peers import oscsend

PROGRAM = Path(sys.argv.pop(1))


def dunst(*arguments):
    return subprocess.run(["dunstctl", *arguments], capture_output=True, text=True, check=False).stdout.strip()


class NotificationTest(BehindTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.write_settings("ZLShowQuickEditSetting=true\nZLNewChapterOnStartSetting=false\n")

    def start_notifications(self):
        self.start_process("dunst", "-conf", "/dev/null", stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_until(lambda: dunst("count", "displayed") == "0", "the notification server")

    def add_chapter(self, count):
        oscsend(self.port, "/zl/newChapter", "f", 1)
        wait_until(lambda: len(self.titles()) == count, "the chapter")

    def panel_windows(self):
        return subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "^Chapter Title$"], capture_output=True,
                              text=True, check=False).stdout.split()

    def check_panel_without_keyboard(self, attempt):
        """What is typed still goes to the other program."""
        panel = wait_until(self.panel_windows, "the panel")[0]
        self.desktop.type("abc")
        wait_until(lambda: self.other.has_got("abc" * attempt), lambda: f"the keys: {self.other.reader.lines}")
        self.assertEqual(focused_window(), self.other.window)
        return panel

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

    def add_chapters_until_a_panel_is_clicked(self):
        """The panel waits five seconds for the click. A slow machine gets some more chances."""
        for attempt in range(1, 6):
            wait_until(lambda: not self.panel_windows(), "the last panel to go")
            self.add_chapter(len(self.titles()) + 1)
            panel = self.check_panel_without_keyboard(attempt)
            if self.click_into(panel):
                return panel, attempt
        raise AssertionError("no panel could be clicked in time")

    def type_title(self, text):
        field = self.accessible.find(self.program, "text", "Chapter title")
        self.desktop.type(text)
        wait_until(lambda: field.queryText().getText(0, -1) == text, "the title in the panel")
        self.desktop.press("Return")
        wait_until(lambda: self.titles()[-1] == text, "the title in the table")
        wait_until(lambda: not self.panel_windows(), "the panel to go")
        wait_until(lambda: focused_window() == self.other.window, "the other program to have the keyboard again")

    def shown_notice(self, text):
        self.accessible.press(self.accessible.find(self.program, "menu item", "Preferences…"))
        window = self.accessible.find(self.program, "frame", "General")
        return self.accessible.find(window, "label", text)

    def test_without_a_notification_server_the_panel_comes_at_once_and_never_takes_the_keyboard(self):
        self.start_behind(PROGRAM)
        oscsend(self.port, "/zl/toggleRecording", "f", 1)
        panel, attempts = self.add_chapters_until_a_panel_is_clicked()
        self.check_that_it_floats(panel)
        self.type_title("Interview")
        self.desktop.type("def")
        wait_until(lambda: self.other.has_got("abc" * attempts + "def"), lambda: f"the keys: {self.other.reader.lines}")
        self.assertEqual(self.titles(), [""] * (attempts - 1) + ["Interview"])
        self.shown_notice("There is no notification server: a small panel asks instead.")

    def test_the_reply_button_opens_the_panel_and_gives_it_the_keyboard(self):
        self.start_notifications()
        self.start_behind(PROGRAM)
        oscsend(self.port, "/zl/toggleRecording", "f", 1)
        self.add_chapter(1)
        wait_until(lambda: dunst("count", "displayed") == "1", "the notification")
        self.desktop.type("abc")
        wait_until(lambda: self.other.has_got("abc"), lambda: f"the keys: {self.other.reader.lines}")
        self.assertEqual(self.panel_windows(), [])
        dunst("action", "0")
        panel = wait_until(self.panel_windows, "the panel")[0]
        wait_until(lambda: focused_window() == panel, "the panel to have the keyboard")
        self.check_that_it_floats(panel)
        self.type_title("Interview")
        self.desktop.type("def")
        wait_until(lambda: self.other.has_got("abcdef"), lambda: f"the keys: {self.other.reader.lines}")

    def check_that_it_floats(self, panel):
        properties = subprocess.run(["xprop", "-id", panel, "_NET_WM_STATE", "_NET_WM_DESKTOP", "_NET_WM_WINDOW_TYPE"],
                                    capture_output=True, text=True, check=True).stdout
        self.assertIn("_NET_WM_STATE_ABOVE", properties)
        self.assertIn("= 4294967295", properties)
        self.assertIn("_NET_WM_WINDOW_TYPE_UTILITY", properties)


if __name__ == "__main__":
    unittest.main()
