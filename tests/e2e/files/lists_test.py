#!/usr/bin/env python3
"""Lists of other programs come in and go out in a real window, by the keyboard.

With a folder as the second argument, pictures are put there; with "dark" as the third one, in dark.
"""

import subprocess
import sys
from pathlib import Path

from desktop import Desktop, focused_window, wait_until
from window import Window

PROGRAM = Path(sys.argv[1])
PICTURES = Path(sys.argv[2]) if len(sys.argv) > 2 else None
LOOK = sys.argv[3] if len(sys.argv) > 3 else "light"
PASTED = "Today\n0:10 Welcome\n1:00 News https://example.org/news\n2:30 Mail bag\n"


class Lists:
    def __init__(self, desktop):
        self.desktop = desktop
        self.window = Window(desktop, (PROGRAM,)).wait_until_shown()
        self.window.wait_for_keyboard()
        self.accessible = self.window.accessible
        self.main_window = focused_window()

    def picture(self, name):
        if PICTURES:
            self.desktop.screenshot(PICTURES / f"{name}-{LOOK}.png")

    def shown(self, role, name):
        return [node for node in self.accessible.find_all(self.window.frame, role, name) if self.accessible.is_showing(node)]

    def wait_for_sheet(self, heading):
        wait_until(lambda: self.shown("label", heading), f"the sheet with {heading}")

    def wait_for_no_sheet(self):
        wait_until(lambda: not self.shown("push button", "Import"), "the sheet to go")

    def wait_for_titles(self, *titles):
        wait_until(lambda: self.window.titles() == list(titles), lambda: f"{titles}, not {self.window.titles()}")

    def enter_path(self, path):
        wait_until(lambda: focused_window() != self.main_window and self.window.has_keyboard(), "the file dialog")
        self.desktop.press("ctrl+a")
        self.desktop.type(str(path))
        self.desktop.press("Return")
        wait_until(lambda: focused_window() == self.main_window, "the file dialog to go")

    @staticmethod
    def clipboard():
        answer = subprocess.run(["xclip", "-selection", "clipboard", "-o"], capture_output=True, text=True, check=False)
        return answer.stdout

    # The steps, each on what the one before left.

    def paste_a_list(self):
        self.desktop.press("ctrl+r")
        wait_until(self.window.is_recording, "the clock to run")
        wait_until(lambda: len(self.window.titles()) == 1, "the first chapter")
        self.desktop.press("Escape")
        self.desktop.set_clipboard(PASTED)
        self.desktop.press("ctrl+v")
        self.wait_for_sheet("3 chapters from the text, read as Simple List")
        self.picture("import-sheet")
        # A mark that is set meanwhile stands, and the sheet too.
        self.desktop.press("ctrl+Return")
        wait_until(lambda: len(self.window.titles()) == 2, "the mark")
        self.accessible.press(self.accessible.find(self.window.frame, "push button", "Import"))
        self.wait_for_no_sheet()
        wait_until(lambda: "Mail bag" in self.window.titles(), "the chapters")
        assert len(self.window.titles()) == 5, self.window.titles()
        assert self.window.is_recording()
        self.desktop.press("Escape", "ctrl+z")
        wait_until(lambda: len(self.window.titles()) == 2, "one step back")
        self.desktop.press("ctrl+r")
        wait_until(lambda: not self.window.is_recording(), "the clock to stand")

    def import_a_file_by_the_keyboard(self):
        path = self.desktop.home / "labels.txt"
        path.write_text("0.000000\t0.000000\tWelcome\n65.500000\t70.000000\tNews\nodd\n")
        self.desktop.press("ctrl+shift+i")
        self.enter_path(path)
        self.wait_for_sheet("2 chapters from labels.txt, read as Audacity Labels")
        wait_until(lambda: self.shown("list item", "Line 3: “odd” was not understood."), "what was not understood")
        self.picture("import-labels")
        # To the choice behind the list, and in it from Add to Replace.
        self.accessible.press(self.accessible.find(self.window.frame, "radio button", "Replace the chapters"))
        self.desktop.press("Return")
        self.wait_for_no_sheet()
        self.wait_for_titles("Welcome", "News")

    def copy_as(self):
        self.window.press_item("mp4chaps")
        wait_until(lambda: self.clipboard() == "00:00:00.000 Welcome\n00:01:05.500 News\n", "mp4chaps in the clipboard")

    def export_other(self):
        document = self.desktop.home / "show.zelta"
        self.desktop.press("ctrl+shift+s")
        self.enter_path(document)
        wait_until(document.exists, "the document")
        self.window.press_item("Show Notes…")
        wait_until(lambda: focused_window() != self.main_window and self.window.has_keyboard(), "the file dialog")
        self.picture("show-notes")
        self.enter_path(self.desktop.home / "notes.txt")
        notes = self.desktop.home / "notes.txt"
        wait_until(notes.exists, "the notes")
        assert notes.read_text() == "(0:00) Welcome\n(1:05) News\n", notes.read_text()
        return notes

    def export_again(self, notes):
        self.desktop.press("Delete")
        wait_until(lambda: len(self.window.titles()) == 1, "a chapter to go")
        left = self.window.titles()[0]
        self.desktop.press("ctrl+alt+e")
        wait_until(lambda: left in notes.read_text() and len(notes.read_text().splitlines()) == 1, "the notes again")
        notes.write_text("edited by hand\n")
        self.desktop.press("ctrl+alt+e")
        self.window.wait_for_message("notes.txt", "was changed by another program")
        self.picture("export-again")
        assert notes.read_text() == "edited by hand\n"
        self.window.press("Write")
        wait_until(lambda: left in notes.read_text(), "the notes after the answer")
        self.window.wait_for_no_message()


def main():
    with Desktop(dark=LOOK == "dark") as desktop:
        lists = Lists(desktop)
        lists.paste_a_list()
        lists.import_a_file_by_the_keyboard()
        lists.copy_as()
        notes = lists.export_other()
        lists.export_again(notes)
    print("5 passed, 0 failed")


if __name__ == "__main__":
    main()
