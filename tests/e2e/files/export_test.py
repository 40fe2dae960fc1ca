#!/usr/bin/env python3
"""Every format by the real menu and the real dialog, and the same bytes by the command line.

With a folder as the second argument, pictures of the dialogs are put there.
"""

import os
import subprocess
import sys
from pathlib import Path

from desktop import Desktop, wait_until

PROGRAM = Path(sys.argv[1])
PICTURES = Path(sys.argv[2]) if len(sys.argv) > 2 else None
OUTLINE = "- Welcome\nhttps://example.org/show\n- News & <weather>\n"
SESSION = '<Session>\n<Markers>\n<Marker Id="7" Name="old"/>\n</Markers>\n</Session>\n'
TEXT_EDITOR = "#!/bin/sh\nprintf '%s\\n' \"$1\" >> '{log}'\n"


def run_zelta(*arguments):
    return subprocess.run([PROGRAM, *arguments], capture_output=True, text=True, check=True)


def formats():
    return [line.split("\t") for line in run_zelta("formats").stdout.splitlines()]


class Exports:
    def __init__(self, desktop):
        self.desktop = desktop
        self.opened = desktop.home / "opened"
        self.install_text_editor()
        self.document = desktop.home / "show.zelta"
        self.process = desktop.start(PROGRAM)
        import accessible  # The bindings look for their bus when they are imported.

        self.accessible = accessible
        self.application = accessible.application()
        self.frame = accessible.find(self.application, "frame")
        wait_until(self.has_keyboard, "the window to have the keyboard")
        self.window = self.focused_window()

    def install_text_editor(self):
        """What the desktop opens a file with: it notes the file's address."""
        programs = self.desktop.home / "bin"
        programs.mkdir()
        opener = programs / "xdg-open"
        opener.write_text(TEXT_EDITOR.format(log=self.opened))
        opener.chmod(0o755)
        os.environ["PATH"] = f"{programs}:{os.environ['PATH']}"

    def has_keyboard(self):
        answer = subprocess.run(["xdotool", "getwindowfocus", "getwindowpid"], capture_output=True, text=True, check=False)
        return answer.stdout.strip() == str(self.process.pid)

    @staticmethod
    def focused_window():
        return subprocess.run(["xdotool", "getwindowfocus"], capture_output=True, text=True, check=False).stdout.strip()

    def enter_path(self, path, picture=None):
        wait_until(lambda: self.focused_window() != self.window and self.has_keyboard(), "the file dialog")
        if picture and PICTURES:
            self.desktop.screenshot(PICTURES / picture)
        self.desktop.press("ctrl+a")
        self.desktop.type(str(path))
        self.desktop.press("Return")
        wait_until(lambda: self.focused_window() == self.window, "the file dialog to go")

    def make_document(self):
        self.desktop.set_clipboard(OUTLINE)
        self.desktop.press("ctrl+shift+v")
        templates = self.accessible.find(self.frame, "table", "Templates")
        wait_until(lambda: templates.queryTable().nRows == 2, "the outline in the drawer")
        self.desktop.press("ctrl+r")
        table = self.accessible.find(self.frame, "table", "Chapters")
        wait_until(lambda: table.queryTable().nRows == 1, "the first chapter")
        self.desktop.press("Return", "ctrl+Return")
        wait_until(lambda: table.queryTable().nRows == 2, "the second chapter")
        self.desktop.press("Return", "ctrl+r", "ctrl+shift+s")
        self.enter_path(self.document)
        wait_until(self.document.exists, "the document to be written")

    def choose_in_menu(self, name):
        """Opens the item in the export menu by the keyboard. A key that comes before the menu shows goes to the menu around it."""
        self.desktop.press("alt+f", "e")
        item = self.accessible.find(self.frame, "menu item", f"{name}…")
        items = [node for node in item.parent if self.accessible.role_of(node) == "menu item"]
        for target in items[:items.index(item) + 1]:
            wait_until(lambda target=target: self.accessible.is_focused(target), f"{target.name} to be reached in the menu")
            self.desktop.press("Return" if target == item else "Down")

    def export(self, position, name, extension):
        path = self.desktop.home / f"menu {position}.{extension}"
        by_command_line = self.desktop.home / "command line" / path.name
        by_command_line.parent.mkdir(exist_ok=True)
        if extension == "nhsx":
            path.write_text(SESSION)
            by_command_line.write_text(SESSION)
        self.choose_in_menu(name)
        self.enter_path(path, f"export-{position}.png")
        message = f"Exported {path.name}."
        wait_until(lambda: self.accessible.find_all(self.frame, name=message), f"the message {message}")
        run_zelta("export", "--format", name, "--output", by_command_line, self.document)
        assert path.read_bytes() == by_command_line.read_bytes(), (path.read_bytes(), by_command_line.read_bytes())
        assert b"Welcome" in path.read_bytes(), (name, path.read_bytes())


def main():
    with Desktop() as desktop:
        exports = Exports(desktop)
        exports.make_document()
        table = formats()[:8]
        assert [name for name, _ in table] == sorted(name for name, _ in table), table
        assert len(formats()) == 17, formats()
        for position, (name, extension) in enumerate(table):
            exports.export(position, name, extension)
        wait_until(exports.opened.exists, "the YouTube list in the text editor")
        opened = exports.opened.read_text().split()
        assert len(opened) == 1 and opened[0].endswith("menu%207.txt"), opened
    print(f"{len(table)} passed, 0 failed")


if __name__ == "__main__":
    main()
