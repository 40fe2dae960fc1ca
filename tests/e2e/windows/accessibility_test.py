#!/usr/bin/env python3
"""Every window as a screen reader walks it: nothing that can be used is without a name, and the first minute of a show
goes by accessibility actions, with the keyboard only for texts."""

import subprocess
import sys
import unittest
from pathlib import Path

from desktop import kill_at_once, wait_until
from desktop_test import DesktopTest
from other_program import OtherProgram

PROGRAM = Path(sys.argv.pop(1))
NOTIFICATION_SERVER = Path(__file__).resolve().parents[2] / "platform/notification/notification_mock.py"
# What a user operates, and what a user has to find again.
ROLES_WITH_A_NAME = {
    "alert", "check box", "check menu item", "combo box", "dialog", "frame", "menu", "menu item", "page tab",
    "push button", "radio button", "slider", "spin button", "table", "table column header", "text", "toggle button",
    "tool bar", "tree", "tree table", "list", "status bar",
}


class AccessibilityTest(DesktopTest):
    def setUp(self):
        self.forget_everything()
        self.start()

    def start(self):
        self.process = self.desktop.start(PROGRAM)
        self.addCleanup(self.end)
        import accessible  # The bindings look for their bus when they are imported.

        self.accessible = accessible
        self.application = accessible.application()
        self.frame = accessible.find(self.application, "frame")
        self.table = accessible.find(self.frame, "table", "Chapters")
        wait_until(lambda: self.is_focused(self.table), "the table to have the keyboard")

    def end(self):
        self.process.terminate()
        self.process.wait(10)

    def is_focused(self, node):
        return "focused" in self.states_of(node)

    @staticmethod
    def states_of(node):
        import pyatspi

        return [pyatspi.stateToString(state) for state in node.getState().getStates()]

    def window_titled(self, start):
        def look():
            for window in self.everything(self.application):
                is_window = self.accessible.role_of(window) in ("frame", "dialog", "alert")
                if is_window and window.name.startswith(start) and self.accessible.is_showing(window):
                    return window
            return None

        return wait_until(look, f"a window named {start}…")

    def everything(self, root):
        return list(self.accessible.everything_below(root))

    def check_names(self, window, least):
        """Everything of use in the window has a name; there are at least so many things."""
        seen = [
            (node, self.accessible.role_of(node))
            for node in self.everything(window)
            if self.accessible.role_of(node) in ROLES_WITH_A_NAME and self.accessible.is_showing(node)
            # A frame inside a window is a mere border.
            and (self.accessible.role_of(node) != "frame" or node.parent == self.application)
        ]
        nameless = [self.way_to(node) for node, _ in seen if not node.name and not self.label_of(node)]
        self.assertEqual(nameless, [], window.name)
        self.assertGreaterEqual(len(seen), least, [role for _, role in seen])

    @staticmethod
    def label_of(node):
        import pyatspi

        relations = [relation for relation in node.getRelationSet()
                     if relation.getRelationType() == pyatspi.RELATION_LABELLED_BY]
        return "".join(relation.getTarget(0).name for relation in relations)

    def way_to(self, node):
        way = []
        while node is not None and self.accessible.role_of(node) != "application":
            way.append(f"{self.accessible.role_of(node)} {node.name!r}")
            node = node.parent
        return " in ".join(way)

    def menu_item(self, name):
        return self.accessible.find(self.frame, "menu item", name)

    def press_item(self, name):
        self.accessible.press(self.menu_item(name))

    def titles(self):
        return [row[4] for row in self.accessible.table_texts(self.table)]

    # The windows.

    def test_the_document_window(self):
        self.accessible.press(self.accessible.find(self.frame, "push button", "Start"))
        wait_until(lambda: len(self.titles()) == 1, "the first chapter")
        self.check_names(self.frame, 25)
        names = {node.name for node in self.everything(self.frame)}
        self.assertLessEqual({"Pause", "Add", "Delete", "Templates", "Chapters", "Add Template"}, names)

    def test_every_menu_item(self):
        items = [node for node in self.everything(self.frame) if self.accessible.role_of(node).endswith("menu item")]
        self.assertEqual([self.way_to(item) for item in items if not item.name], [])
        self.assertGreaterEqual(len(items), 45)

    def test_each_window_has_its_menus_also_when_another_one_has_closed(self):
        self.press_item("New")
        second = wait_until(lambda: next((frame for frame in self.document_frames() if frame != self.frame), None),
                            "the second window")
        items = self.items_of_menu_bar(second)
        self.assertEqual(items, self.items_of_menu_bar(self.frame))
        self.press_item("Close")
        wait_until(lambda: self.document_frames() == [second], "the first window to be gone")
        self.assertEqual(self.items_of_menu_bar(second), items)
        self.accessible.press(self.accessible.find(second, "menu item", "JSON…"))
        self.window_titled("Export to JSON")

    def document_frames(self):
        return [frame for frame in self.accessible.find_all(self.application, "frame")
                if frame.parent == self.application and self.accessible.find_all(frame, "menu bar")]

    def items_of_menu_bar(self, frame):
        """The way to each item, as it is found from the window down and from the item up. The documents that are open stand
        in the menu Window when it was shown, so they do not count."""
        items = [node for node in self.everything(self.accessible.find(frame, "menu bar"))
                 if self.accessible.role_of(node).endswith("menu item")]
        for item in items:
            self.assertEqual(self.frame_above(item), frame, self.way_to(item))
        ways = [self.way_to(item).removesuffix(self.way_to(frame)) for item in items]
        return [way for way in ways if "in menu item 'Window' in" not in way]

    def frame_above(self, node):
        while node is not None and self.accessible.role_of(node) != "frame":
            node = node.parent
        return node

    def test_the_panes_of_the_preferences(self):
        self.press_item("Preferences…")
        window = self.window_titled("General")
        self.check_names(window, 8)
        for pane, least in (("Shortcuts", 12), ("About", 3)):
            self.desktop.press("ctrl+Tab")
            wait_until(lambda pane=pane: window.name.startswith(pane), f"the pane {pane}")
            self.check_names(window, least)

    def test_the_osc_connections(self):
        self.press_item("OSC Connections…")
        self.check_names(self.window_titled("OSC Connections"), 10)

    def test_the_dialogs(self):
        self.press_item("Save As…")
        self.check_dialog("Save Chapters As", 8)
        self.press_item("Final Cut Pro X…")
        self.check_dialog("Export to Final Cut Pro X", 8)
        self.press_item("Open…")
        self.check_dialog("Open Chapters", 8)
        self.press_item("Keyboard Shortcuts")
        self.check_dialog("Keyboard Shortcuts", 4)

    def test_the_dialog_that_moves_chapters(self):
        self.press_item("Start Recording")
        wait_until(lambda: len(self.titles()) == 1 and not self.is_focused(self.table), "the first chapter")
        self.desktop.press("Return")
        wait_until(lambda: self.is_focused(self.table), "the keyboard to be in the table")
        self.press_item("Move Chapters…")
        self.check_dialog("Move Chapters", 3)

    def test_the_keys_are_read_row_by_row(self):
        self.press_item("Keyboard Shortcuts")
        window = self.window_titled("Keyboard Shortcuts")
        names = [node.name for node in self.everything(window)]
        self.assertEqual(names[names.index("New Chapter") + 1], "Ctrl+Return")
        self.accessible.press(self.accessible.find(window, "push button", "Change…"))
        self.window_titled("Shortcuts")

    def test_the_former_states(self):
        self.press_item("Start Recording")
        wait_until(lambda: len(self.titles()) == 1, "the first chapter")
        self.desktop.press("Escape", "alt+f")
        menu = self.accessible.find(self.frame, "menu item", "Revert To")
        menu.queryAction().doAction(0)
        items = wait_until(lambda: [node for node in self.everything(menu) if self.accessible.role_of(node) == "menu item"][1:],
                           "the former states")
        self.assertTrue(all(item.name for item in items))
        self.desktop.press("Escape", "Escape", "Escape")

    def test_an_alert_about_a_wrong_time(self):
        self.press_item("Start Recording")
        wait_until(lambda: len(self.titles()) == 1 and not self.is_focused(self.table), "the first chapter")
        self.desktop.press("Escape")
        cell = self.accessible.find(self.table, "table cell", "00:00:00.000")
        self.desktop.double_click(*self.accessible.center(cell))
        wait_until(lambda: self.is_focused(cell), "the time to be open for typing")
        self.desktop.type("soon")
        self.desktop.press("Return")
        alert = self.accessible.find(self.application, "alert")
        self.check_names(alert, 2)
        self.desktop.press("Return")

    def test_a_message_that_needs_a_decision(self):
        self.press_item("Start Recording")
        wait_until(lambda: len(self.titles()) == 1, "the first chapter")
        wait_until(lambda: self.accessible.find_all(self.frame, "push button", "Not in a file yet, kept safe"), "it to be kept")
        kill_at_once(self.process)
        self.start()
        button = self.accessible.find(self.frame, "push button", "Continue as if Never Stopped")
        wait_until(lambda: self.accessible.is_showing(button), "the message")
        self.check_names(self.frame, 27)
        self.accessible.press(button)
        wait_until(lambda: self.accessible.find_all(self.frame, "push button", "Pause"), "the clock to run")

    def test_the_panel_for_a_title(self):
        server = self.desktop.start("/usr/bin/python3", NOTIFICATION_SERVER, "body", "actions",
                                    stdout=subprocess.PIPE, text=True)
        server.stdout.readline()
        server.stdout.close()
        self.addCleanup(server.terminate)
        self.press_item("Preferences…")
        self.accessible.press(self.accessible.find(
            self.window_titled("General"), "check box",
            "While another program is in front, ask for the title in a notification"))
        self.press_item("Start Recording")
        OtherProgram()
        wait_until(lambda: not self.accessible.is_active(self.frame), "the window to know that another one is in front")
        subprocess.run([PROGRAM, "send", "newChapter"], check=True, capture_output=True)
        wait_until(self.press_reply, "the notification")
        panel = self.window_titled("Chapter Title")
        self.check_names(panel, 4)
        self.accessible.find(panel, "text", "Chapter title").queryEditableText().setTextContents("Interview")
        self.accessible.press(self.accessible.find(panel, "push button", "Save"))
        wait_until(lambda: self.titles()[-1] == "Interview", "the title")

    @staticmethod
    def press_reply():
        def call(*arguments):
            return subprocess.run(
                ["dbus-send", "--session", "--print-reply", "--dest=org.freedesktop.Notifications",
                 "/org/freedesktop/Notifications", *arguments], capture_output=True, text=True, check=True).stdout

        is_there = "New Chapter Added" in call("org.zelta.Test.Notifications")
        if is_there:
            call("org.zelta.Test.Press", "uint32:1", "string:reply")
        return is_there

    def check_dialog(self, title, least):
        dialog = self.window_titled(title)
        self.check_names(dialog, least)
        self.desktop.press("Escape")
        wait_until(lambda: self.is_focused(self.table), "the keyboard to be back in the table")

    # The first minute.

    def write_title(self, number, title):
        # The new row's title is open for typing: the keyboard is in a field and not in the table.
        wait_until(lambda: len(self.titles()) == number and not self.is_focused(self.table), f"chapter {number}")
        self.desktop.type(title)
        self.desktop.press("Return")
        wait_until(lambda: self.titles()[number - 1] == title, lambda: f"the title {title}, not {self.titles()}")

    def test_the_first_minute(self):
        press, find = self.accessible.press, self.accessible.find
        press(find(self.frame, "push button", "Start"))
        self.write_title(1, "Welcome")
        press(find(self.frame, "push button", "Add"))
        self.write_title(2, "News")
        press(find(self.frame, "push button", "Pause"))
        self.press_item("Podlove Simple Chapters…")
        path = self.desktop.home / "show.psc"
        dialog = self.window_titled("Export to Podlove Simple Chapters")
        name = find(dialog, "text", "File name:")
        name.queryEditableText().setTextContents(str(path))
        press(find(dialog, "push button", "Save"))
        message = find(self.frame, "label", f"Exported {path.name}.")
        self.assertTrue(self.accessible.is_showing(message))
        written = path.read_text()
        self.assertIn('title="Welcome"', written)
        self.assertIn('title="News"', written)


if __name__ == "__main__":
    unittest.main()
