#!/usr/bin/env python3
"""Disks that are full, read-only or gone, and files that another program writes or has open: it is told on standard error,
everything is kept meanwhile, and nothing is overwritten silently."""

import json
import signal
import subprocess
import unittest

from desktop import wait_until
from mounts import enter_mount_namespace, fill, mount
from osc_recorder import PROGRAM, OSCTestCase, Recorder


class DiskTest(OSCTestCase):
    def titles_in(self, file):
        shown = subprocess.run([PROGRAM, "show", "--json", file], capture_output=True, text=True, timeout=60, check=False)
        return [chapter["title"] for chapter in json.loads(shown.stdout)["chapters"]] if shown.returncode == 0 else None

    def start_on(self, file):
        recorder = Recorder(self.home, "--osc-port", "0", file)
        self.addCleanup(recorder.reader.stop)
        return recorder

    def mark(self, recorder, title):
        self.press_until_chapter(recorder)
        recorder.write(f"title {title}")
        wait_until(lambda: recorder.has_said(f'"{title}"'), f"the title {title}")

    def kill(self, recorder):
        recorder.reader.process.send_signal(signal.SIGKILL)
        recorder.reader.process.wait()

    def check_kept_and_written_later(self, file, take_away, give_back):
        """Told, kept over a kill, and written as soon as that is possible again."""
        recorder = self.start_on(file)
        recorder.start_clock()
        self.mark(recorder, "before")
        wait_until(lambda: self.titles_in(file) == ["", "before"], "the file")
        take_away()
        self.mark(recorder, "meanwhile")
        wait_until(lambda: recorder.has_said("Cannot save: "), lambda: f"the failure to be told, not {recorder.reader.lines}")
        self.kill(recorder)
        recorder = self.start_on(file)
        wait_until(lambda: recorder.has_said("Cannot save: "), "the failure to be told again")
        recorder.write("status")
        wait_until(lambda: recorder.has_said("chapters: 3"), lambda: f"what was kept, not {recorder.reader.lines}")
        give_back()
        wait_until(lambda: recorder.has_said("Saved again:"), "the success to be told")
        self.assertEqual(self.titles_in(file), ["", "before", "meanwhile"])

    def test_a_full_disk(self):
        disk = mount(self, self.home / "disk", "64k")
        ballast = disk / "ballast"
        self.check_kept_and_written_later(disk / "show.zelta", lambda: fill(self, ballast), ballast.unlink)

    def test_a_read_only_disk(self):
        disk = mount(self, self.home / "disk", "1m")

        def cover():
            """The same files, but read-only; what is open already stays writable, as the program's lock is."""
            subprocess.run(["mount", "--bind", disk, disk], check=True)
            subprocess.run(["mount", "-o", "remount,bind,ro", disk], check=True)

        self.check_kept_and_written_later(
            disk / "show.zelta", cover, lambda: subprocess.run(["umount", "-l", disk], check=True))

    def test_a_read_only_file_says_so_when_it_is_opened(self):
        disk = mount(self, self.home / "disk", "1m")
        file = disk / "show.zelta"
        made = subprocess.run([PROGRAM, "--headless", "--osc-port", "0", file], input="quit\n", capture_output=True,
                              text=True, timeout=60, check=True)
        self.assertIn(f"new document: {file}", made.stdout)
        self.assertNotIn("read-only", made.stderr)
        subprocess.run(["mount", "-o", "remount,ro", disk], check=True)
        opened = subprocess.run([PROGRAM, "--headless", "--osc-port", "0", file], input="quit\n", capture_output=True,
                                text=True, timeout=60, check=True)
        self.assertNotIn("new document", opened.stdout)
        self.assertIn(f"{file} is read-only", opened.stderr)

    def test_a_folder_that_disappears_and_returns(self):
        folder = self.home / "drive"
        away = self.home / "unplugged"
        folder.mkdir()
        self.check_kept_and_written_later(folder / "show.zelta", lambda: folder.rename(away), lambda: away.rename(folder))

    # Other programs.

    def change_meanwhile(self):
        """Another program writes the file while it is open, and a mark is made."""
        recorder = self.start_on(self.file)
        recorder.start_clock()
        self.mark(recorder, "mine")
        wait_until(lambda: self.titles_in(self.file) == ["", "mine"], "the file")
        other = self.home / "other.zelta"
        theirs = Recorder(self.home, "--osc-port", "0", other)
        self.addCleanup(theirs.reader.stop)
        theirs.start_clock()
        wait_until(lambda: self.titles_in(other) == [""], "the other file")
        self.theirs = other.read_bytes()
        self.file.write_bytes(self.theirs)
        self.mark(recorder, "later")
        wait_until(lambda: recorder.has_said(f"Another program changed {self.file}."), "the conflict to be told")
        self.assertEqual(self.file.read_bytes(), self.theirs)
        return recorder

    def test_keep_mine(self):
        self.change_meanwhile().write("mine")
        wait_until(lambda: self.titles_in(self.file) == ["", "mine", "later"], "my file")

    def test_take_theirs(self):
        self.change_meanwhile().write("theirs")
        wait_until(lambda: self.titles_in(self.file) == [""], "their chapters")

    def test_keep_both(self):
        self.change_meanwhile().write("both")
        second = self.file.with_name("show 2.zelta")
        wait_until(lambda: self.titles_in(second) == ["", "mine", "later"], "a second file")
        self.assertEqual(self.file.read_bytes(), self.theirs)

    def test_a_document_that_is_opened_twice_is_told_of(self):
        first = self.start_on(self.file)
        second = self.start_on(self.file)
        wait_until(lambda: second.has_said(f"{self.file} is also open elsewhere"), lambda: f"it, not {second.reader.lines}")
        wait_until(lambda: second.has_said(f"process {first.reader.process.pid}"), "who has it")
        self.assertFalse(first.has_said("elsewhere"))


if __name__ == "__main__":
    enter_mount_namespace(PROGRAM)
    unittest.main()
