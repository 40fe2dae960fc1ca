#!/usr/bin/env python3
"""A person types in the window while marks come from outside: what is half typed stays, and every key arrives where it
was meant to."""

import subprocess
import sys
import time
import unittest
from pathlib import Path

from desktop import wait_until
from desktop_test import DesktopTest
from surface import Surface, document_with_templates
from window import Window

PROGRAM = Path(sys.argv.pop(1))
TIME, TITLE = 2, 4


class TypingTest(DesktopTest):
    def start(self, templates, chapters):
        self.forget_everything()
        self.write_settings("ZLNewChapterOnStartSetting=false\n")
        file = self.desktop.home / "show.zelta"
        file.write_bytes(document_with_templates(templates))
        self.surface = Surface()
        self.addCleanup(self.surface.close)
        self.window = Window(self.desktop, [PROGRAM], file)
        self.addCleanup(self.window.stop)
        self.window.wait_until_shown()
        self.window.wait_for_keyboard()
        self.accessible = self.window.accessible
        self.desktop.press("ctrl+r")
        wait_until(self.window.is_recording, "the clock to run")
        for count in range(1, chapters + 1):
            self.mark_by_send(count)
            self.desktop.press("Escape")
        self.table = self.accessible.find(self.window.frame, "table", "Chapters")

    def mark_by_send(self, count):
        subprocess.run([PROGRAM, "send", "newChapter"], check=True, timeout=60, capture_output=True)
        self.wait_for_chapters(count)

    def mark_by_osc(self, count):
        self.surface.send(self.window.osc_port, "newChapter")
        self.wait_for_chapters(count)

    def wait_for_chapters(self, count):
        wait_until(lambda: len(self.window.titles()) == count, f"{count} chapters")

    def double_click_cell(self, table, row, column):
        cell = table.queryTable().getAccessibleAt(row, column)
        self.desktop.double_click(*self.accessible.center(cell))

    def type(self, text):
        """The field is no node of its own for a screen reader, so nothing tells when the keys have arrived."""
        self.desktop.type(text)
        time.sleep(0.5)

    def alerts(self):
        return [node for node in self.accessible.find_all(self.accessible.application(), "alert")
                if "Invalid" in (node.name or "")] + self.accessible.find_all(self.accessible.application(), "label",
                                                                              "Invalid Timestamp")

    def test_a_half_typed_time_stays_open_while_marks_arrive(self):
        self.start([], 2)
        self.double_click_cell(self.table, 0, TIME)
        self.type("00:0")
        self.mark_by_send(3)
        self.mark_by_osc(4)
        self.assertEqual(self.alerts(), [])
        self.type("0:00.001")
        self.desktop.press("Return")
        wait_until(lambda: self.accessible.table_texts(self.table)[0][TIME] == "00:00:00.001", "the time in the list")
        self.assertEqual(self.alerts(), [])

    def test_a_half_typed_time_goes_with_its_row_without_an_alert(self):
        self.start([], 2)
        self.double_click_cell(self.table, 1, TIME)
        self.type("00:0")
        subprocess.run([PROGRAM, "send", "removeChapter"], check=True, timeout=60, capture_output=True)
        self.wait_for_chapters(1)
        time.sleep(0.5)
        self.assertEqual(self.alerts(), [])
        self.assertEqual(len(self.window.titles()), 1)

    def test_typing_into_a_template_goes_on(self):
        self.start(["One", "Two", "Three"], 0)
        drawer = self.accessible.find(self.window.frame, "table", "Templates")
        wait_until(lambda: self.accessible.is_showing(drawer), "the drawer")
        self.double_click_cell(drawer, 1, 0)
        self.type("Two and")
        self.mark_by_osc(1)
        self.desktop.press("Delete")
        self.type(" more")
        self.desktop.press("Return")
        wait_until(lambda: [row[0] for row in self.accessible.table_texts(drawer)][:2] == ["Two and more", "Three"],
                   "the text in the template")
        self.assertEqual(self.window.titles(), ["One"])

        # And into the very template that the mark takes.
        self.double_click_cell(drawer, 0, 0)
        self.type("Intro ")
        self.mark_by_send(2)
        self.desktop.press("Delete")
        self.type("and more")
        self.desktop.press("Return")
        wait_until(lambda: self.window.titles() == ["One", "Intro and more"], lambda: f"the title, not {self.window.titles()}")


if __name__ == "__main__":
    unittest.main()
