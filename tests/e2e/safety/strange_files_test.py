#!/usr/bin/env python3
"""What stands under a name need not be a file that can be read: a pipe, a device, a file larger than the memory. While a
show is recorded, and at a start, it is told in a line, and nothing waits or ends for it."""

import json
import os
import subprocess
import unittest

from desktop import wait_until
from osc_recorder import PROGRAM, OSCTestCase, Recorder

HUGE = 1000 * 1000 * 1000 * 1000


def make_huge(path):
    with open(path, "wb") as file:
        file.truncate(HUGE)


class StrangeFilesTest(OSCTestCase):
    def environment(self):
        return {**os.environ, "HOME": str(self.home), "XDG_CONFIG_HOME": str(self.home), "XDG_STATE_HOME": str(self.home),
                "XDG_RUNTIME_DIR": str(self.home), "LC_ALL": "C.UTF-8", "LANGUAGE": ""}

    def run_zelta(self, *arguments):
        """Ends by itself, or the test fails."""
        return subprocess.run([PROGRAM, *map(str, arguments)], env=self.environment(), stdin=subprocess.DEVNULL,
                              capture_output=True, text=True, timeout=60, check=False)

    def titles_in(self, file):
        shown = self.run_zelta("show", "--json", file)
        return [chapter["title"] for chapter in json.loads(shown.stdout)["chapters"]] if shown.returncode == 0 else None

    def record(self):
        recorder = Recorder(self.home, "--osc-port", "0", self.file)
        self.addCleanup(recorder.reader.stop)
        recorder.start_clock()
        wait_until(lambda: self.titles_in(self.file) == [""], "the file")
        return recorder

    def quit(self, recorder, status):
        recorder.press("toggleRecording")
        wait_until(lambda: recorder.has_said("paused at"), "the clock to stand")
        recorder.write("quit")
        self.assertEqual(recorder.reader.process.wait(timeout=60), status)

    def check_show_goes_on(self, replace, line):
        """Marks are taken, a line tells, and as soon as the place is free the file is there with everything."""
        recorder = self.record()
        self.file.unlink()
        replace()
        self.press_until_chapter(recorder)
        wait_until(lambda: recorder.has_said(f"{self.file}: {line}"), lambda: f"the line, not {recorder.reader.lines}")
        self.press_until_chapter(recorder)
        self.file.unlink()
        wait_until(lambda: self.titles_in(self.file) == ["", "", ""], "the file to be back")
        self.quit(recorder, 0)

    def check_end_does_not_wait(self, replace):
        """The program ends, says so, and brings everything back at the next start."""
        recorder = self.record()
        self.file.unlink()
        replace()
        self.press_until_chapter(recorder)
        wait_until(lambda: recorder.has_said("Cannot save: "), "the failure to be told")
        self.quit(recorder, 1)
        self.file.unlink()
        recorder = Recorder(self.home, "--osc-port", "0", self.file)
        self.addCleanup(recorder.reader.stop)
        wait_until(lambda: self.titles_in(self.file) == ["", ""], "what was kept")

    def test_a_pipe(self):
        self.check_show_goes_on(lambda: os.mkfifo(self.file), "This is a pipe, not a file.")

    def test_the_end_with_a_pipe(self):
        self.check_end_does_not_wait(lambda: os.mkfifo(self.file))

    def test_a_device(self):
        self.check_show_goes_on(lambda: self.file.symlink_to("/dev/zero"), "This is a device, not a file.")

    def test_the_end_with_a_device(self):
        self.check_end_does_not_wait(lambda: self.file.symlink_to("/dev/zero"))

    def test_a_huge_file_is_not_overwritten_without_a_word(self):
        recorder = self.record()
        make_huge(self.file)
        self.press_until_chapter(recorder)
        wait_until(lambda: recorder.has_said(f"Another program changed {self.file}."), "the conflict to be told")
        recorder.write("theirs")
        wait_until(lambda: recorder.has_said("The file is larger than 512 MiB."), "why it cannot be taken over")
        self.assertEqual(self.file.stat().st_size, HUGE)
        recorder.write("mine")
        wait_until(lambda: self.titles_in(self.file) == ["", ""], "the file")
        self.quit(recorder, 0)

    def test_after_a_kill_a_huge_file_is_left_alone_and_the_marks_are_back(self):
        recorder = self.record()
        make_huge(self.file)
        self.press_until_chapter(recorder)
        recorder.reader.process.kill()
        recorder.reader.process.wait()
        recorder = Recorder(self.home, "--osc-port", "0")
        self.addCleanup(recorder.reader.stop)
        recorder.write("status")
        wait_until(lambda: recorder.has_said("chapters: 2"), lambda: f"the marks, not {recorder.reader.lines}")
        self.assertEqual(self.file.stat().st_size, HUGE)

    def test_opening_what_is_no_document(self):
        huge = self.home / "huge.zelta"
        pipe = self.home / "pipe.zelta"
        make_huge(huge)
        os.mkfifo(pipe)
        for file, line in ((huge, "The file is larger than 512 MiB."), (pipe, "This is a pipe, not a file."),
                           ("/dev/zero", "This is a device, not a file."), (self.home, "This is a folder, not a file.")):
            for command in (("show", file), ("--headless", "--osc-port", "0", file)):
                ended = self.run_zelta(*command)
                self.assertEqual((ended.returncode, ended.stderr.strip().splitlines()[-1:]), (1, [f"zelta: {file}: {line}"]))

    def test_a_lock_file_that_is_a_pipe_or_a_link(self):
        lock = self.home / ".show.zelta.lock"
        precious = self.home / "precious"
        precious.write_text("precious")
        for make in (lambda: os.mkfifo(lock), lambda: lock.symlink_to(precious), lambda: lock.symlink_to("/dev/zero")):
            make()
            recorder = self.record()
            self.quit(recorder, 0)
            self.assertEqual(precious.read_text(), "precious")
            self.assertEqual(self.titles_in(self.file), [""])
            self.file.unlink()
            lock.unlink()


if __name__ == "__main__":
    unittest.main()
