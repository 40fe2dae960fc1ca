#!/usr/bin/env python3
"""What a window says, in bars and without a dialog, of files that another program writes or has open and of disks that are
full or gone; and that each answer does what it says."""

import json
import os
import subprocess
import sys
import unittest
from pathlib import Path

from desktop import wait_until
from desktop_test import DesktopTest
from mounts import enter_mount_namespace, fill, mount
from osc_peers import start_reader
from surface import Surface, document_with_templates
from window import Window

PROGRAM = Path(sys.argv.pop(1))
MINE = [f"mine {number}" for number in range(1, 20)]
THEIRS = document_with_templates([f"theirs {number}" for number in range(1, 4)])
NOT_SAVED = "The document is not saved: "
CHANGED = "Another program changed “show.zelta”."
READ_ONLY = "“show.zelta” is read-only."
ELSEWHERE = "“show.zelta” is also open elsewhere"


def contents_of(file):
    """What another start of the program reads in the file; None when it cannot."""
    shown = subprocess.run([PROGRAM, "show", "--json", file], capture_output=True, text=True, timeout=60, check=False)
    return json.loads(shown.stdout) if shown.returncode == 0 else None


def titles_in(file, key="chapters"):
    contents = contents_of(file)
    return contents and [chapter["title"] for chapter in contents[key]]


class BarsTest(DesktopTest):
    def setUp(self):
        self.forget_everything("drive")
        self.folder = self.desktop.home / "drive"
        self.file = self.folder / "show.zelta"
        self.surface = Surface()
        self.addCleanup(self.surface.close)

    def start(self):
        window = Window(self.desktop, [PROGRAM], self.file, osc_send=self.surface.port)
        self.addCleanup(window.stop)
        return window.wait_until_shown()

    def start_show(self):
        """A running clock and one chapter, all of it in the file."""
        self.folder.mkdir(exist_ok=True)
        self.file.write_bytes(document_with_templates(MINE))
        window = self.start()
        self.surface.send(window.osc_port, "toggleRecording")
        self.wait_for_file(MINE[:1])
        return window

    def mark(self, window, count):
        """Makes the count-th chapter of the show."""
        self.surface.send(window.osc_port, "newChapter")
        wait_until(lambda: window.titles() == MINE[:count], lambda: f"{count} chapters, not {window.titles()}")

    def wait_for_file(self, titles, file=None):
        wait_until(lambda: titles_in(file or self.file) == titles, f"{titles} in the file")

    # Out of reach.

    def check_kept_and_written_later(self, take_away, give_back):
        """Told, kept, and written without being asked as soon as that is possible again."""
        window = self.start_show()
        take_away()
        self.mark(window, 2)
        window.wait_for_message(NOT_SAVED, "Zelta keeps trying.")
        self.assertTrue(window.button("Try Now") and window.button("Save As…"), window.messages())
        # Trying in vain changes nothing, and the clock goes on behind the bar.
        window.press("Try Now")
        window.wait_for_message(NOT_SAVED)
        self.mark(window, 3)
        give_back()
        window.wait_for_no_message()
        self.wait_for_file(MINE[:3])
        self.assertTrue(window.is_recording())

    def test_a_full_disk(self):
        self.folder = mount(self, self.folder, "64k")
        ballast = self.folder / "ballast"
        self.check_kept_and_written_later(lambda: fill(self, ballast), ballast.unlink)

    def test_a_read_only_file_says_so_when_it_is_opened(self):
        self.folder = mount(self, self.folder, "1m")
        self.file.write_bytes(document_with_templates(MINE))
        subprocess.run(["mount", "-o", "remount,ro", self.folder], check=True)
        window = self.start()
        window.wait_for_message(READ_ONLY)
        self.assertTrue(window.button("Save As…"), window.messages())
        # The first change shows what it means, in place of it.
        self.surface.send(window.osc_port, "toggleRecording")
        window.wait_for_message(NOT_SAVED)
        self.assertFalse(any(READ_ONLY in message for message in window.messages()), window.messages())

    def test_a_folder_that_disappears_and_returns(self):
        away = self.desktop.home / "unplugged"
        self.check_kept_and_written_later(lambda: self.folder.rename(away), lambda: away.rename(self.folder))

    def test_a_kill_while_the_folder_is_gone(self):
        window = self.start_show()
        away = self.desktop.home / "unplugged"
        self.folder.rename(away)
        self.mark(window, 2)
        window.wait_for_message(NOT_SAVED)
        window.kill()
        window = Window(self.desktop, [PROGRAM], osc_send=self.surface.port)  # What was open comes back.
        self.addCleanup(window.stop)
        window.wait_until_shown()
        wait_until(lambda: window.titles() == MINE[:2], lambda: f"what was kept, not {window.titles()}")
        window.wait_for_message(NOT_SAVED)
        window.wait_for_message("The recording was interrupted")
        away.rename(self.folder)
        self.wait_for_file(MINE[:2])

    # Changed by another program.

    def change_meanwhile(self):
        window = self.start_show()
        self.file.write_bytes(THEIRS)
        self.mark(window, 2)
        window.wait_for_message(CHANGED)
        for name in ("Keep Mine", "Take Theirs", "Keep Both"):
            self.assertTrue(window.button(name), name)
        self.assertEqual(self.file.read_bytes(), THEIRS)
        # Marks go on meanwhile, and still nothing is overwritten.
        self.mark(window, 3)
        self.assertEqual(self.file.read_bytes(), THEIRS)
        self.assertTrue(window.is_recording())
        return window

    def others_in_folder(self):
        return sorted(path.name for path in self.folder.glob("*.zelta") if path != self.file)

    def test_keep_mine(self):
        window = self.change_meanwhile()
        window.press("Keep Mine")
        self.wait_for_file(MINE[:3])
        window.wait_for_no_message()
        self.assertEqual(self.others_in_folder(), [])
        # What follows is written by itself again.
        self.mark(window, 4)
        self.wait_for_file(MINE[:4])

    def test_take_theirs(self):
        window = self.change_meanwhile()
        window.press("Take Theirs")
        wait_until(lambda: window.titles() == [], lambda: f"their chapters, not {window.titles()}")
        window.wait_for_no_message()
        self.assertTrue(window.is_recording())
        # The next mark takes their first template; mine are not lost but a step back.
        self.surface.send(window.osc_port, "newChapter")
        self.wait_for_file(["theirs 1"])
        self.assertEqual(titles_in(self.file, "templates"), ["theirs 2", "theirs 3"])
        window.wait_for_keyboard()
        self.desktop.press("ctrl+z", "ctrl+z")
        self.wait_for_file(MINE[:3])
        self.assertEqual(self.others_in_folder(), [])

    def test_keep_both(self):
        window = self.change_meanwhile()
        window.press("Keep Both")
        second = self.file.with_name("show 2.zelta")
        self.wait_for_file(MINE[:3], second)
        window.wait_for_no_message()
        self.mark(window, 4)
        self.wait_for_file(MINE[:4], second)
        self.assertEqual(self.others_in_folder(), [second.name])
        self.assertEqual(self.file.read_bytes(), THEIRS)

    # Opened twice.

    def open_elsewhere(self):
        """By another user, or what the computer takes for one: the homes have nothing in common."""
        home = self.desktop.home / "elsewhere"
        home.mkdir(exist_ok=True)
        places = ("HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_RUNTIME_DIR")
        reader = start_reader([PROGRAM, "--headless", "--osc-port", "0", self.file], stdin=subprocess.PIPE,
                              stderr=subprocess.STDOUT, env={**os.environ, **{name: str(home) for name in places}})
        self.addCleanup(reader.stop)
        wait_until(lambda: any("Commands come from" in line for line in list(reader.lines)), "the other program")
        return reader

    def test_a_document_that_another_program_has_open(self):
        self.folder.mkdir()
        self.file.write_bytes(document_with_templates(MINE))
        first = self.open_elsewhere()
        window = self.start()
        window.wait_for_message(ELSEWHERE, f"process {first.process.pid}", "never overwritten without asking")
        self.assertTrue(window.button("Save As…"))
        window.press("OK")
        window.wait_for_no_message()

    def test_a_document_that_another_machine_has_open(self):
        self.folder.mkdir()
        self.file.write_bytes(document_with_templates(MINE))
        lock = self.file.with_name(".show.zelta.lock")
        lock.write_text("studio-in-another-town\n4711\n")
        window = self.start()
        window.wait_for_message(ELSEWHERE, "studio-in-another-town, process 4711")
        window.press("OK")
        window.wait_for_no_message()
        # It forbids nothing, and the lock of the other one stays.
        self.surface.send(window.osc_port, "toggleRecording")
        self.wait_for_file(MINE[:1])
        self.assertIn("studio-in-another-town", lock.read_text())

    def test_a_second_window_of_the_program_takes_the_document_to_the_front(self):
        """It is not opened twice, not even by a process that is told to open a new document too."""
        window = self.start_show()
        subprocess.run([PROGRAM, "--new", self.file], check=True, timeout=60)
        program = window.accessible.application()
        wait_until(lambda: len(window.accessible.find_all(program, "table", "Chapters")) == 2, "the new document")
        self.assertEqual(window.messages(), [])

    def test_each_file_that_another_start_names_and_that_is_missing_is_told(self):
        window = self.start_show()
        ended = subprocess.run([PROGRAM, self.folder / "one.zelta", self.folder / "two.zelta"], capture_output=True,
                               text=True, timeout=60, check=False)
        self.assertEqual(ended.returncode, 1, ended)
        window.wait_for_message("one.zelta", "two.zelta")
        self.assertTrue(window.is_recording())


if __name__ == "__main__":
    enter_mount_namespace(PROGRAM)
    unittest.main()
