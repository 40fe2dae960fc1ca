#!/usr/bin/env python3
"""A whole show by keyboard: record, mark, edit, undo and redo everything, lose the process, go on, export."""

import json
import subprocess
import sys
from pathlib import Path
from xml.sax.saxutils import escape

from desktop import Desktop, kill_at_once, wait_until

PROGRAM = Path(sys.argv[1])
NAMESPACE = "http://podlove.org/simple-chapters"
OUTLINE = "- Welcome\nhttps://example.org/show\n- News & weather\n"
COMMANDS_OF_THE_SHOW = 6  # start, next, add, its title, the time, pause


class Show:
    """The program's window, as keyboard and screen reader reach it."""

    def __init__(self, desktop):
        self.desktop = desktop
        self.start()

    def start(self):
        self.process = self.desktop.start(PROGRAM)
        import accessible  # The bindings look for their bus when they are imported.

        self.accessible = accessible
        root = accessible.application()
        self.frame = accessible.find(root, "frame")
        self.table = accessible.find(self.frame, "table", "Chapters")
        self.templates = accessible.find(self.frame, "table", "Templates")
        wait_until(self.has_keyboard, "the window to have the keyboard")
        self.window = self.focused_window()

    def has_keyboard(self):
        answer = subprocess.run(["xdotool", "getwindowfocus", "getwindowpid"], capture_output=True, text=True, check=False)
        return answer.stdout.strip() == str(self.process.pid)

    def rows(self):
        return self.accessible.table_texts(self.table)

    def titles(self):
        return [row[4] for row in self.rows()]

    def template_titles(self):
        return [row[0] for row in self.accessible.table_texts(self.templates)]

    def wait_for_titles(self, *titles):
        wait_until(lambda: self.titles() == list(titles), lambda: f"the titles {titles}, not {self.titles()}")

    def wait_for_clock(self, seconds):
        clock = self.accessible.find_described(self.frame, "Recorded time")
        wait_until(lambda: read_seconds(clock.name) >= seconds, f"the clock to reach {seconds} s")

    def is_item_enabled(self, prefix):
        items = self.accessible.find_all(self.frame, "menu item")
        return any(item.name.startswith(prefix) and self.accessible.is_enabled(item) for item in items)

    def edit_time(self, row, text):
        cell = self.table.queryTable().getAccessibleAt(row, 2)
        self.desktop.double_click(*self.accessible.center(cell))
        self.desktop.type(text)
        self.desktop.press("Return")

    def type_into_file_dialog(self, path):
        wait_until(lambda: not self.main_window_has_keyboard(), "the file dialog")
        self.desktop.press("ctrl+a")
        self.desktop.type(str(path))
        self.desktop.press("Return")
        wait_until(self.main_window_has_keyboard, "the file dialog to go")

    def main_window_has_keyboard(self):
        return self.focused_window() == self.window

    @staticmethod
    def focused_window():
        answer = subprocess.run(["xdotool", "getwindowfocus"], capture_output=True, text=True, check=False)
        return answer.stdout.strip()


def read_seconds(clock):
    hours, minutes, seconds = clock.split(":")
    return int(hours) * 3600 + int(minutes) * 60 + float(seconds)


def run_zelta(*arguments):
    return subprocess.run([PROGRAM, *arguments], capture_output=True, text=True, check=True).stdout


def expected_podlove(rows):
    """The file that the rows of the table stand for, line by line."""
    lines = [f'<psc:chapters version="1.2" xmlns:psc="{NAMESPACE}">\n']
    for _, _, time, _, title, link in rows:
        quoted = [escape(text, {'"': "&quot;", "'": "&apos;"}) for text in (time, title, link)]
        if link:
            lines.append('<psc:chapter start="{}" title="{}" href="{}"/>\n'.format(*quoted))
        else:
            lines.append('<psc:chapter start="{}" title="{}" />\n'.format(*quoted[:2]))
    return "".join(lines) + "</psc:chapters>\n"


def record_the_show(desktop, show):
    desktop.set_clipboard(OUTLINE)
    desktop.press("ctrl+shift+v")
    wait_until(lambda: show.template_titles() == ["Welcome", "News & weather"], "the outline in the drawer")

    desktop.press("ctrl+r")
    show.wait_for_titles("Welcome")
    desktop.press("Return")
    show.wait_for_clock(1.0)
    desktop.press("ctrl+Return")
    show.wait_for_titles("Welcome", "News & weather")
    desktop.press("Return")
    show.wait_for_clock(2.0)
    desktop.press("ctrl+Return")
    show.wait_for_titles("Welcome", "News & weather", "")
    desktop.type("A guest")
    desktop.press("Return")
    show.wait_for_titles("Welcome", "News & weather", "A guest")
    show.edit_time(1, "00:00:00.500")
    wait_until(lambda: show.rows()[1][2] == "00:00:00.500", "the new time")
    desktop.press("ctrl+r")
    wait_until(lambda: show.is_item_enabled("Start Recording"), "the clock to stand")


def undo_and_redo_everything(desktop, show):
    before = show.rows()
    for _ in range(COMMANDS_OF_THE_SHOW):
        desktop.press("ctrl+z")
    wait_until(lambda: show.rows() == [], "all chapters to be gone")
    wait_until(lambda: show.template_titles() == ["Welcome", "News & weather"], "the templates to be back")
    assert show.is_item_enabled("Undo Import Templates"), "the show is undone, so what was prepared before is next"
    for _ in range(COMMANDS_OF_THE_SHOW):
        desktop.press("ctrl+shift+z")
    wait_until(lambda: show.rows() == before, lambda: f"all chapters to be back: {before}, not {show.rows()}")
    assert not show.is_item_enabled("Redo"), "everything is done again, yet there is more to redo"


def save_and_lose_the_process(desktop, show, path):
    desktop.press("ctrl+shift+s")
    show.type_into_file_dialog(path)
    wait_until(path.exists, "the file to be written")
    desktop.press("F2", "ctrl+a")
    desktop.type("A guest of honour")
    desktop.press("Return")

    def is_in_file():
        chapters = json.loads(run_zelta("show", "--json", path))["chapters"]
        return chapters[-1]["title"] == "A guest of honour"

    wait_until(is_in_file, "the edit to reach the file by itself", seconds=5)
    before = show.rows()
    kill_at_once(show.process)
    show.start()
    wait_until(lambda: show.rows() == before, lambda: f"the chapters after the restart: {before}, not {show.rows()}")


def export_and_compare(desktop, show, path, document):
    podlove = run_zelta("formats").splitlines().index("Podlove Simple Chapters\tpsc")
    desktop.press("alt+f", "e", *["Down"] * podlove, "Return")
    show.type_into_file_dialog(path)
    wait_until(path.exists, "the exported file")
    expected = expected_podlove(show.rows())
    assert path.read_text(encoding="utf-8") == expected, (path.read_text(encoding="utf-8"), expected)

    by_command_line = path.with_name("by-command-line.psc")
    run_zelta("export", "--format", "Podlove Simple Chapters", "--output", by_command_line, document)
    assert by_command_line.read_bytes() == path.read_bytes()


def main():
    with Desktop() as desktop:
        show = Show(desktop)
        record_the_show(desktop, show)
        undo_and_redo_everything(desktop, show)
        document = desktop.home / "show.zelta"
        save_and_lose_the_process(desktop, show, document)
        export_and_compare(desktop, show, desktop.home / "show.psc", document)
    print("1 passed, 0 failed")


if __name__ == "__main__":
    main()
