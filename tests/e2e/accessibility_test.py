#!/usr/bin/env python3
"""Every window as a screen reader walks it: nothing that can be used is without a name, and the first minute of a show
goes by accessibility actions, with the keyboard only for texts."""

import shutil
import sys
import unittest
from pathlib import Path

from desktop import Desktop, wait_until

PROGRAM = Path(sys.argv.pop(1))
# What a user operates, and what a user has to find again.
ROLES_WITH_A_NAME = {
    "alert", "check box", "check menu item", "combo box", "dialog", "frame", "menu", "menu item", "page tab",
    "push button", "radio button", "slider", "spin button", "table", "table column header", "text", "toggle button",
    "tool bar", "tree", "list", "status bar",
}


class AccessibilityTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.desktop = Desktop()
        cls.desktop.__enter__()
        cls.addClassCleanup(cls.desktop.__exit__)

    def setUp(self):
        for folder in ("config", "state"):
            shutil.rmtree(self.desktop.home / folder, ignore_errors=True)
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
                is_window = window.getRoleName() in ("frame", "dialog", "alert")
                if is_window and window.name.startswith(start) and self.accessible.is_showing(window):
                    return window
            return None

        return wait_until(look, f"a window named {start}…")

    def everything(self, root):
        return list(self.accessible.everything_below(root))

    def check_names(self, window, least):
        """Everything of use in the window has a name; there are at least so many things."""
        seen = [
            (node, node.getRoleName())
            for node in self.everything(window)
            if node.getRoleName() in ROLES_WITH_A_NAME and self.accessible.is_showing(node)
            # A frame inside a window is a mere border.
            and (node.getRoleName() != "frame" or node.parent == self.application)
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

    @staticmethod
    def way_to(node):
        way = []
        while node is not None and node.getRoleName() != "application":
            way.append(f"{node.getRoleName()} {node.name!r}")
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
        items = [node for node in self.everything(self.frame) if node.getRoleName().endswith("menu item")]
        self.assertEqual([self.way_to(item) for item in items if not item.name], [])
        self.assertGreaterEqual(len(items), 45)

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
        self.press_item("Keyboard Shortcuts")
        self.check_dialog("Keyboard Shortcuts", 2)

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
        wait_until(lambda: self.titles()[number - 1] == title, f"the title {title}, not {self.titles()}")

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
