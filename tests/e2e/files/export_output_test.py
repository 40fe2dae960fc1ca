#!/usr/bin/env python3
"""Where an export of the command line goes: a file, the standard output, a pipe; and never over a document that is open,
by whatever path it is named."""

import os
import subprocess
import threading
import unittest

from desktop import wait_until
from osc_recorder import PROGRAM, OSCTestCase, Recorder

REFUSAL = " is in use by Zelta. Choose another name."


class ExportOutputTest(OSCTestCase):
    def setUp(self):
        super().setUp()
        self.recorder = Recorder(self.home, "--osc-port", "0", self.file)
        self.addCleanup(self.recorder.reader.stop)
        self.recorder.start_clock()
        self.recorder.write("title Welcome")
        wait_until(lambda: b"Welcome" in self.file.read_bytes(), "the file")
        self.out = self.home / "out.mdown"

    def export(self, output, name="Markdown", document=None, **options):
        return subprocess.run([PROGRAM, "export", "--format", name, "--output", output, document or self.file],
                              env=self.recorder.environment, timeout=60, check=False,
                              **{"capture_output": True, **options})

    def exported(self):
        self.assertEqual(self.export(self.out).returncode, 0)
        return self.out.read_bytes()

    def test_the_standard_output_takes_the_bytes_of_the_file(self):
        for output in ("-", "/dev/stdout"):
            ended = self.export(output)
            self.assertEqual((ended.returncode, ended.stdout), (0, self.exported()))

    def test_a_file_behind_the_standard_output_goes_on(self):
        for output in ("-", "/dev/stdout"):
            with open(self.home / "all", "wb", buffering=0) as file:
                file.write(b"before\n")
                self.assertEqual(self.export(output, capture_output=False, stdout=file).returncode, 0)
                file.write(b"after\n")
            self.assertEqual((self.home / "all").read_bytes(), b"before\n" + self.exported() + b"after\n")

    def test_the_project_on_the_standard_output_is_called_like_the_document(self):
        self.assertIn(b'<project name="show">', self.export("-", "Final Cut Pro X").stdout)

    def test_a_named_pipe(self):
        pipe = self.home / "pipe"
        os.mkfifo(pipe)
        taken = []
        reader = threading.Thread(target=lambda: taken.append(pipe.read_bytes()))
        reader.start()
        ended = self.export(pipe)
        reader.join(timeout=60)
        self.assertEqual((ended.returncode, taken), (0, [self.exported()]))
        self.assertTrue(pipe.is_fifo())

    def test_the_device_that_takes_everything(self):
        self.assertEqual(self.export("/dev/null").returncode, 0)
        self.assertTrue(os.path.exists("/dev/null") and not os.path.isfile("/dev/null"))

    def test_a_reader_that_is_gone_is_told(self):
        reading, writing = os.pipe()
        os.close(reading)
        ended = self.export("-", capture_output=False, stdout=writing, stderr=subprocess.PIPE)
        os.close(writing)
        self.assertEqual((ended.returncode, ended.stderr), (1, b"zelta: /dev/stdout: Broken pipe\n"))

    def test_a_session_needs_a_file(self):
        for output in ("-", "/dev/stdout"):
            ended = self.export(output, "Hindenburg")
            self.assertEqual((ended.returncode, ended.stdout), (2, b""))
            self.assertIn(b"Hindenburg", ended.stderr)

    # What is open.

    def other_document(self):
        other = self.home / "other.zelta"
        other.write_bytes(self.file.read_bytes())
        return other

    def check_refused(self, target):
        before = self.file.read_bytes()
        ended = self.export(target, document=self.other_document())
        self.assertEqual((ended.returncode, ended.stderr.decode()), (1, f"zelta: {target}{REFUSAL}\n"))
        self.assertEqual(self.file.read_bytes(), before)

    def test_an_open_document_is_not_replaced_by_whatever_path(self):
        (self.home / "link").symlink_to(self.file)
        (self.home / "hard").hardlink_to(self.file)
        (self.home / "folder").mkdir()
        for target in (self.file, self.home / "link", self.home / "hard", f"{self.home}/folder/../show.zelta"):
            self.check_refused(target)
        other = self.other_document()
        self.recorder.reader.stop()
        self.assertEqual(self.export(self.file, document=other).returncode, 0)
        self.assertEqual(self.file.read_bytes(), self.export("-", document=other).stdout)

    def test_nor_is_anything_added_to_it(self):
        before = self.file.read_bytes()
        with open(self.file, "ab") as file:
            ended = self.export("-", document=self.other_document(), capture_output=False, stdout=file,
                                stderr=subprocess.PIPE)
        self.assertEqual((ended.returncode, self.file.read_bytes()), (1, before))

    def test_nor_is_what_the_program_keeps_of_it(self):
        self.check_refused(self.home / ".show.zelta.lock")
        kept = sorted(path for path in (self.home / "zelta").rglob("*") if path.is_file())
        self.assertTrue([path for path in kept if path.name.endswith(".journal")], kept)
        for path in kept:
            before = path.stat().st_ino
            self.check_refused(path)
            self.assertEqual(path.stat().st_ino, before)

    def test_another_recorder_does_not_save_over_it(self):
        """Its file is away at the moment, and the name is still taken."""
        second = self.home / "second.zelta"
        self.file.rename(second)
        ended = subprocess.run([PROGRAM, "--headless", "--osc-port", "0", self.file], env=self.recorder.environment,
                               stdin=subprocess.DEVNULL, capture_output=True, text=True, timeout=60, check=False)
        self.assertEqual((ended.returncode, ended.stderr.strip().splitlines()[-1]), (1, f"zelta: {self.file}{REFUSAL}"))


if __name__ == "__main__":
    unittest.main()
