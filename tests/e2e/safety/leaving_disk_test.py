#!/usr/bin/env python3
"""A disk that goes away while chapters are written into an audio file on it.

With a file system that is really taken out of the tree, and with one that answers with errors, as a stick that was pulled.
"""

import hashlib
import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

import mounts
from desktop import wait_until
from surface import archive

PROGRAM = Path(sys.argv.pop(1))
LIBRARY = Path(sys.argv.pop(1))
FRAME = bytes((0xFF, 0xFB, 0x90, 0x64)) + bytes(413)
TITLES = ["Welcome", "News"]
ENVIRONMENT = {**os.environ, "LC_ALL": "C.UTF-8", "LANGUAGE": ""}


def document(folder):
    path = folder / "show.zelta"
    chapters = [{"TimeStamp": float(index), "Enabled": True, "Title": title, "Link": "", "Tags": ""}
                for index, title in enumerate(TITLES)]
    path.write_bytes(archive({"Chapters": chapters, "Duration": 0.0, "Templates": []}))
    return path


def large_mp3(folder, size):
    path = folder / "show.mp3"
    path.write_bytes(FRAME * (size // len(FRAME)))
    return path


def digest(path):
    return hashlib.sha256(path.read_bytes()).hexdigest()


def is_writing(process):
    """Whether the process has a file open that is not whole yet: one without a name, or with the name that it has until then."""
    try:
        links = [os.readlink(each) for each in Path(f"/proc/{process.pid}/fd").iterdir()]
    except OSError:
        return False
    return any("(deleted)" in link and "/#" in link or "/.zelta-" in link for link in links)


class LeavingDiskTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.disk = self.folder / "disk"

    def begin_writing(self, audio, **environment):
        process = subprocess.Popen([PROGRAM, "write", document(self.folder), audio], stdout=subprocess.PIPE,
                                   stderr=subprocess.PIPE, text=True, env={**ENVIRONMENT, **environment})
        self.addCleanup(process.kill)
        wait_until(lambda: is_writing(process) or process.poll() is not None, "the writing to begin")
        return process

    def assert_failed(self, process, audio, *reasons):
        out, error = process.communicate(timeout=60)
        self.assertEqual(process.returncode, 1, (out, error))
        self.assertEqual(out, "")
        self.assertEqual(len(error.splitlines()), 1, error)
        self.assertIn(audio.name, error)
        self.assertTrue(any(reason in error for reason in reasons), error)

    def assert_written(self, audio):
        written = subprocess.run([PROGRAM, "write", document(self.folder), audio], capture_output=True, text=True,
                                 check=False, env=ENVIRONMENT)
        self.assertEqual(written.stdout, f"2 of 2 chapters are in {audio.name}\n", written.stderr)

    def test_a_file_system_that_is_taken_out_of_the_tree(self):
        mounts.mount(self, self.disk, "1g")
        other = self.folder / "where it is seen"
        other.mkdir()
        subprocess.run(["mount", "--bind", self.disk, other], check=True)
        audio = large_mp3(other, 400_000_000)
        before = digest(audio)
        process = self.begin_writing(audio)
        subprocess.run(["umount", "-l", other], check=True)
        self.assert_failed(process, audio, "No such file", "cross-device")
        self.assertEqual(list(other.iterdir()), [])
        left = self.disk / audio.name
        self.assertEqual([each.name for each in self.disk.iterdir()], [audio.name])
        self.assertEqual(digest(left), before)
        self.assert_written(left)

    def test_a_disk_that_answers_with_errors(self):
        self.disk.mkdir()
        lever = self.folder / "pulled"
        audio = large_mp3(self.disk, 400_000_000)
        before, names = digest(audio), os.listdir(self.disk)
        process = self.begin_writing(audio, LD_PRELOAD=str(LIBRARY), ZELTA_TEST_LEAVE_PATH=str(self.disk),
                                     ZELTA_TEST_LEAVE_SWITCH=str(lever))
        lever.touch()
        self.assert_failed(process, audio, "Input/output error", "cannot be read")
        self.assertEqual(os.listdir(self.disk), names)
        self.assertEqual(digest(audio), before)
        self.assert_written(audio)


if __name__ == "__main__":
    mounts.enter_mount_namespace(PROGRAM, LIBRARY)
    unittest.main()
