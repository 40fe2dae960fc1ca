#!/usr/bin/env python3
"""Each kind of window is closed while it has the keyboard and another program gets it. From then on the recorder is behind:
marks from outside bring notifications, open no editor, and go to the document that was opened first."""

import json
import shutil
import subprocess
import sys
import unittest
from pathlib import Path

from desktop import focused_window, wait_until
from desktop_test import DesktopTest
from osc_peers import free_port, oscsend
from other_program import OtherProgram

PROGRAM = Path(sys.argv.pop(1))
MOCK = Path(__file__).resolve().parents[2] / "platform/notification/notification_mock.py"
SERVER = "org.freedesktop.Notifications"


def ask_server(method, *arguments):
    return subprocess.run(["dbus-send", "--session", "--print-reply=literal", f"--dest={SERVER}",
                           "/org/freedesktop/Notifications", f"org.zelta.Test.{method}", *arguments],
                          check=True, capture_output=True, text=True).stdout


def notifications():
    return json.loads(ask_server("Notifications"))


class FocusTest(DesktopTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.write_settings("ZLShowQuickEditSetting=true\nZLNewChapterOnStartSetting=false\n")
        server = cls.desktop.start("/usr/bin/python3", MOCK, "body", "actions", stdout=subprocess.PIPE, text=True)
        server.stdout.readline()
        server.stdout.close()

    def setUp(self):
        shutil.rmtree(self.desktop.home / "state", ignore_errors=True)
        self.port = free_port()
        self.program = self.desktop.start(PROGRAM, "--new", "--osc-port", self.port)
        self.addCleanup(self.end)
        import accessible  # The bindings look for their bus when they are imported.

        self.accessible = accessible
        self.tree = accessible.application()
        self.frame = accessible.find(self.tree, "frame")
        self.table = accessible.find(self.frame, "table", "Chapters")
        self.window = wait_until(lambda: self.windows_named("Zelta"), "the document window")[0]
        self.wait_for_keyboard(self.window)
        self.other = OtherProgram()
        wait_until(lambda: not accessible.is_active(self.frame), "Zelta to know that another program is in front")
        oscsend(self.port, "/zl/toggleRecording", "f", 1)
        self.mark_from_outside(1)

    def end(self):
        self.program.kill()
        self.program.wait()
        self.other.reader.stop()

    def windows_named(self, name):
        return subprocess.run(["xdotool", "search", "--all", "--onlyvisible", "--pid", str(self.program.pid), "--name",
                               name], capture_output=True, text=True, check=False).stdout.split()

    def wait_for_keyboard(self, window):
        def has_it():
            subprocess.run(["xdotool", "windowactivate", window], check=False, capture_output=True)
            return focused_window() == window

        wait_until(has_it, f"window {window} to have the keyboard")

    def wait_for_other_program(self):
        wait_until(lambda: focused_window() == self.other.window, "the other program to have the keyboard")

    def titles(self):
        return [row[4] for row in self.accessible.table_texts(self.table)]

    def editors(self):
        """The names of fields for texts that stand in the document's window."""
        return [node.name for node in self.accessible.find_all(self.frame, "text")
                if self.accessible.is_showing(node)]

    def mark_from_outside(self, count=3):
        """Each mark is told by a notification, and no field is opened for it in the window behind."""
        for _ in range(count):
            told, titles = len(notifications()), len(self.titles())
            oscsend(self.port, "/zl/newChapter", "f", 1)
            wait_until(lambda titles=titles: len(self.titles()) == titles + 1, "the chapter in the first document")
            wait_until(lambda told=told: len(notifications()) == told + 1, "its notification")
            self.assertEqual(self.editors(), [])
        self.assertEqual(focused_window(), self.other.window)

    # Quick edit.

    def quick_edit(self):
        """The panel for the newest chapter, with the keyboard. A slow machine gets some more chances to click in time."""
        for _ in range(5):
            ask_server("Press", f"uint32:{len(notifications())}", "string:reply")
            panel = wait_until(lambda: self.windows_named("^Chapter Title$"), "the panel")[0]
            field = self.accessible.find(self.tree, "text", "Chapter title")
            x, y = self.accessible.center(field)
            self.desktop.click(x, y)
            wait_until(lambda panel=panel: focused_window() == panel or not self.windows_named("^Chapter Title$"),
                       "the panel to have the keyboard")
            if focused_window() == panel:
                return
        raise AssertionError("no panel could be clicked in time")

    def wait_until_panel_is_gone(self):
        wait_until(lambda: not self.windows_named("^Chapter Title$"), "the panel to go")
        self.wait_for_other_program()

    def test_a_quick_edit_that_is_saved_by_return(self):
        self.quick_edit()
        self.desktop.type("News")
        self.desktop.press("Return")
        self.wait_until_panel_is_gone()
        self.assertEqual(self.titles(), ["News"])
        self.mark_from_outside()

    def test_a_quick_edit_that_is_saved_by_its_button(self):
        self.quick_edit()
        self.desktop.type("News")
        button = self.accessible.find(self.tree, "push button", "Save")
        wait_until(lambda: self.accessible.is_enabled(button), "the button")
        self.desktop.click(*self.accessible.center(button))
        self.wait_until_panel_is_gone()
        self.assertEqual(self.titles(), ["News"])
        self.mark_from_outside()

    def test_a_quick_edit_that_is_left_by_escape(self):
        self.quick_edit()
        self.desktop.press("Escape")
        self.wait_until_panel_is_gone()
        self.mark_from_outside()

    # Other windows.

    def close_in_front_of_other_program(self, window, *keys):
        self.other.take_the_keyboard()
        self.wait_for_keyboard(window)
        self.desktop.press(*keys)
        self.wait_for_other_program()
        self.mark_from_outside()

    def open_from_document(self, keys, names):
        self.wait_for_keyboard(self.window)
        self.desktop.press(keys)
        return wait_until(lambda: [window for window in self.windows_named(names) if window != self.window],
                          f"a window {names}")[0]

    def test_the_preferences(self):
        self.close_in_front_of_other_program(self.open_from_document("ctrl+comma", "^General$"), "Escape")

    def open_from_menu(self, item, name):
        self.wait_for_keyboard(self.window)
        self.accessible.press(self.accessible.find(self.frame, "menu item", item))
        return wait_until(lambda: self.windows_named(name), f"a window {name}")[0]

    def test_the_osc_connections(self):
        self.close_in_front_of_other_program(self.open_from_menu("OSC Connections…", "^OSC Connections$"), "Escape")

    def test_the_recorder(self):
        self.close_in_front_of_other_program(self.open_from_menu("Recorder…", "^Recorder$"), "Escape")

    def test_the_list_of_keys(self):
        self.close_in_front_of_other_program(self.open_from_menu("Keyboard Shortcuts", "^Keyboard Shortcuts$"), "Escape")

    def test_an_export(self):
        self.close_in_front_of_other_program(self.open_from_menu("YouTube…", "^Export to YouTube"), "Escape")

    def test_a_second_document(self):
        self.close_in_front_of_other_program(self.open_from_document("ctrl+n", "Zelta$"), "ctrl+w")


if __name__ == "__main__":
    unittest.main()
