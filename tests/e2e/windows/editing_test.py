#!/usr/bin/env python3
"""Editing with real keys and a real mouse: the lists by keyboard, templates that are dragged, pasted and taken back."""

import subprocess
import sys
import time
import unittest
from pathlib import Path

from desktop import wait_until
from desktop_test import DesktopTest
from surface import document_with_templates
from window import Window

PROGRAM = Path(sys.argv.pop(1))


class EditingTest(DesktopTest):
    def start(self, *templates):
        path = self.desktop.home / f"{self.id().rsplit('.', 1)[-1]}.zelta"
        path.write_bytes(document_with_templates(templates))
        self.window = Window(self.desktop, [PROGRAM], path)
        self.addCleanup(self.window.stop)
        self.window.wait_until_shown()
        self.window.wait_for_keyboard()

    def list_named(self, name):
        return self.window.accessible.find(self.window.frame, "table", name)

    def templates(self):
        return [row[0] for row in self.window.accessible.table_texts(self.list_named("Templates"))]

    def wait_for_templates(self, *titles):
        wait_until(lambda: self.templates() == list(titles), lambda: f"{titles}, not {self.templates()}")

    def wait_for_titles(self, *titles):
        wait_until(lambda: self.window.titles() == list(titles), lambda: f"{titles}, not {self.window.titles()}")

    def press(self, *keys):
        self.desktop.press(*keys)

    def go_into_the_drawer(self):
        self.press("F9", "F9")
        drawer = self.list_named("Templates")
        wait_until(lambda: self.has_focus_within(drawer), "the drawer to have the keyboard")

    def has_focus_within(self, node):
        return any(map(self.window.accessible.is_focused, self.window.accessible.everything_below(node)))

    def record_three_chapters(self):
        self.press("ctrl+r")
        wait_until(lambda: len(self.window.titles()) == 1, "the first chapter")
        for count, title in enumerate(("one", "two", "three"), 1):
            self.desktop.type(title)
            self.press("Return")
            if count < 3:
                self.press("ctrl+Return")
                wait_until(lambda count=count: len(self.window.titles()) == count + 1, "the next chapter")
        self.press("ctrl+r")
        self.wait_for_titles("one", "two", "three")

    def test_ten_topics_are_typed_without_the_mouse(self):
        self.start()
        self.go_into_the_drawer()
        topics = [f"topic {number}" for number in range(1, 11)]
        self.press("Return")
        for topic in topics:
            self.desktop.type(topic)
            self.press("Return")
        self.wait_for_templates(*topics, "")
        self.press("Return")
        self.wait_for_templates(*topics)
        self.press("ctrl+z", "ctrl+z")
        self.wait_for_templates(*topics[:8])
        self.press("ctrl+shift+z")
        self.wait_for_templates(*topics[:9])

    def test_keys_act_on_the_list_that_has_the_keyboard(self):
        self.start()
        self.record_three_chapters()
        self.press("Home", "F2")
        self.desktop.type("first")
        self.press("Tab")
        self.desktop.type("example.org")
        self.press("Tab")
        self.desktop.type("second")
        self.press("Return")
        self.wait_for_titles("first", "second", "three")
        self.press("End", "Delete")
        self.wait_for_titles("first", "second")

        self.go_into_the_drawer()
        self.press("Return")
        for topic in ("a", "b", "c"):
            self.desktop.type(topic)
            self.press("Return")
        self.press("Escape")
        self.wait_for_templates("a", "b", "c")
        self.press("Home", "F2")
        self.desktop.type("A")
        self.press("Return", "End", "Delete")
        self.wait_for_templates("A", "b")
        self.wait_for_titles("first", "second")
        # None of them started the clock again.
        self.press("ctrl+z")
        self.wait_for_templates("A", "b", "c")
        self.assertFalse(self.window.is_recording())

    def test_pasted_text_is_imported(self):
        self.start("a")
        self.go_into_the_drawer()
        self.desktop.set_clipboard("- Intro\nexample.org\n- News\n")
        self.press("ctrl+v")
        self.wait_for_templates("a", "Intro", "News")
        self.press("ctrl+z")
        self.wait_for_templates("a")

    def test_the_link_of_a_chapter_is_copied(self):
        self.start()
        self.record_three_chapters()
        self.press("Home", "shift+F2")
        self.desktop.type("example.org/news")
        # The menu key, and the mnemonic of Copy Link.
        self.press("Return", "Menu", "c")

        def clipboard():
            return subprocess.run(["xclip", "-selection", "clipboard", "-o"], capture_output=True, text=True,
                                  check=False).stdout

        wait_until(lambda: clipboard() == "example.org/news", "the link in the clipboard")

    def showing(self, role, name):
        # Dialogs stand beside the window.
        return [node for node in self.window.accessible.find_all(self.window.frame.parent, role, name)
                if self.window.accessible.is_showing(node)]

    def times(self):
        table = self.list_named("Chapters")
        return [row[2] for row in self.window.accessible.table_texts(table)]

    def wait_for_time(self, row, text):
        wait_until(lambda: self.times()[row] == text, lambda: f"{text} in row {row}, not {self.times()}")

    def test_a_chapter_is_set_later_and_moved(self):
        self.start()
        self.record_three_chapters()
        self.press("Home", "ctrl+i")
        wait_until(lambda: self.showing("dialog", "Insert Chapter"), "the dialog")
        self.desktop.type("01:00:00.000")
        self.press("Return")
        wait_until(lambda: len(self.window.titles()) == 4, "the chapter")
        self.desktop.type("later")
        self.press("Return")
        self.wait_for_titles("one", "two", "three", "later")
        # The window manager of this desktop takes the keys with Shift for itself.
        self.press("alt+Right", "alt+Right", "alt+Left")
        self.wait_for_time(3, "01:00:00.100")
        self.press("ctrl+z")
        self.wait_for_time(3, "01:00:00.000")

    def test_a_rejected_time_is_open_again(self):
        self.start()
        self.record_three_chapters()
        cell = self.list_named("Chapters").queryTable().getAccessibleAt(1, 2)
        box = cell.queryComponent().getExtents(self.window.accessible.pyatspi.DESKTOP_COORDS)
        self.desktop.double_click(box.x + box.width // 2, box.y + box.height // 2)
        # A field that is open in a table is not in the tree, but the form of a time is shown as long as it is there.
        wait_until(lambda: self.showing("label", "HH:MM:SS.mmm"), "the form of a time")
        self.desktop.type("1:2")
        self.press("Return")
        wait_until(lambda: self.showing("label", "Invalid Timestamp"), "the alert")
        wait_until(lambda: not self.showing("label", "HH:MM:SS.mmm"), "the field to close")
        self.press("Return")
        wait_until(lambda: not self.showing("label", "Invalid Timestamp"), "the alert to go")
        wait_until(lambda: self.showing("label", "HH:MM:SS.mmm"), "the field to be open again")
        self.window.wait_for_keyboard()
        # What was typed is selected: this takes its place.
        self.desktop.type("01:00:00.000")
        self.press("Return")
        self.wait_for_titles("one", "three", "two")

    def test_lines_that_look_like_topics_are_offered(self):
        self.start()
        self.desktop.set_clipboard("* Intro\n* News\n")
        self.press("ctrl+shift+v")
        offer = self.window.accessible.find(self.window.frame, "push button", "Import the 2 Lines")
        self.window.accessible.press(offer)
        self.wait_for_templates("Intro", "News")

    def row_box(self, row):
        cell = self.list_named("Templates").queryTable().getAccessibleAt(row, 0)
        return cell.queryComponent().getExtents(self.window.accessible.pyatspi.DESKTOP_COORDS)

    def drag(self, row, to_row, share_of_height):
        start, end = self.row_box(row), self.row_box(to_row)
        x = start.x + start.width // 2
        y = int(end.y + share_of_height * end.height)
        self.desktop.xdotool("mousemove", x, start.y + start.height // 2, "mousedown", 1)
        for step in range(1, 11):
            self.desktop.xdotool("mousemove", x + step, int(start.y + start.height / 2 + (y - start.y - start.height / 2) * step / 10))
            time.sleep(0.03)
        self.desktop.xdotool("mousemove", x, y, "mousemove", x + 1, y)
        time.sleep(0.3)
        self.desktop.xdotool("mouseup", 1)
        time.sleep(0.3)

    def test_a_template_is_dropped_into_gaps_only(self):
        self.start("a", "b", "c")
        self.wait_for_templates("a", "b", "c")
        self.drag(0, 2, 0.5)
        self.wait_for_templates("a", "b", "c")
        self.drag(0, 2, 0.1)
        self.wait_for_templates("b", "a", "c")
        self.press("ctrl+z")
        self.wait_for_templates("a", "b", "c")


if __name__ == "__main__":
    unittest.main()
