"""A sheet of a document's window, as a person reaches it: by keyboard, with files that are chosen in a dialog."""

import shutil
import unittest

from desktop import Desktop, focused_window, wait_until
from window import Window


class SheetTest(unittest.TestCase):
    """A test gives `program` and, when pictures are wanted, the folder `pictures`."""

    program = None
    pictures = None

    @classmethod
    def setUpClass(cls):
        # The bindings of the accessibility tree stay with the first bus that they meet.
        cls.desktop = cls.enterClassContext(Desktop())

    def open_window(self, *arguments, **environment):
        program = ["env", *[f"{name}={value}" for name, value in environment.items()], self.program]
        self.window = Window(self.desktop, program, *arguments).wait_until_shown()
        self.addCleanup(self.end)
        self.window.wait_for_keyboard()
        self.main = focused_window()
        return self.window

    def end(self):
        """As a person ends it, so that the next test finds nothing that was open."""
        if self.window.process.poll() is None:
            self.desktop.press("Escape")
            self.window.process.terminate()
            self.window.process.wait(60)
        shutil.rmtree(self.desktop.home / "state", ignore_errors=True)

    def take(self, name):
        if self.pictures:
            self.desktop.screenshot(self.pictures / name)

    def node(self, role, name):
        return self.window.accessible.find(self.window.frame, role, name)

    def rows_of(self, name):
        """The texts of a list of the sheet, row by row; empty while it is not there."""
        found = self.window.accessible.find_all(self.window.frame, None, name)
        return self.window.accessible.table_texts(found[0]) if found else []

    def wait_for_text(self, text):
        wait_until(lambda: self.window.accessible.find_all(self.window.frame, None, text), f"the text {text}")

    def wait_for_focus(self, button):
        node = self.node("push button", button)
        wait_until(lambda: self.window.accessible.is_focused(node), f"the keyboard on {button}")

    def choose(self, button, *paths):
        """In the file dialog of the button, which has the keyboard."""
        self.wait_for_focus(button)
        self.desktop.press("Return")
        wait_until(lambda: focused_window() != self.main and self.window.has_keyboard(), "the file dialog")
        self.desktop.press("ctrl+a")
        self.desktop.type(" ".join(f'"{path}"' for path in paths) if len(paths) > 1 else str(paths[0]))
        self.desktop.press("Return")
        wait_until(lambda: focused_window() == self.main, "the file dialog to go")
