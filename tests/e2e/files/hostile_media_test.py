#!/usr/bin/env python3
"""Media files that were made to cost much: the program reads or refuses each within a second and 200 MB, and says so.

hostile_media_test.py PROGRAM [-v]; with -v it prints what each took.
"""

import sys
import tempfile
import unittest
from pathlib import Path

import hostile_media
from measured_run import MeasuredRun
from surface import archive

PROGRAM = Path(sys.argv.pop(1))
MOST_SECONDS = 1.0
MOST_MEMORY = 200_000_000
#: Some files are larger than any disk.
MOST_WRITTEN = 400_000_000


class HostileMediaTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = Path(folder.name)
        cls.document = cls.folder / "show.zelta"
        chapters = [{"TimeStamp": each / 1000, "Enabled": True, "Title": f"Chapter {each}" + "x" * 200, "Link": "", "Tags": ""}
                    for each in range(12)]
        cls.document.write_bytes(archive({"Chapters": chapters, "Duration": 30.0, "Templates": []}))

    def run_on_each(self, check):
        for make in hostile_media.FILES:
            with self.subTest(make.__name__):
                path = make(self.folder)
                try:
                    check(path)
                finally:
                    path.unlink()

    def run_zelta(self, path, *arguments):
        run = MeasuredRun(self.folder, PROGRAM, *arguments, most_written=MOST_WRITTEN)
        if "-v" in sys.argv:
            print(f"{path.name:20} {run.seconds:6.2f} s {run.memory / 1e6:6.1f} MB  {run.status} {run.error.strip()[:120]}",
                  flush=True)
        self.assertIn(run.status, (0, 1), run.error)
        for line in run.error.splitlines():
            self.assertIn(path.name, line)
        self.assertEqual(run.status == 1, not run.output, run.error)
        self.assertTrue(run.output or run.error)
        self.assertLess(run.seconds, MOST_SECONDS)
        self.assertLess(run.memory, MOST_MEMORY)
        return run

    def test_each_is_read_or_refused_in_bounds(self):
        self.run_on_each(lambda path: self.run_zelta(path, "show", path))

    def test_each_is_written_or_left_alone_in_bounds(self):
        def check(path):
            before = path.stat()
            run = self.run_zelta(path, "write", self.document, path)
            if run.status == 1:
                after = path.stat()
                self.assertEqual((after.st_ino, after.st_size, after.st_mtime_ns),
                                 (before.st_ino, before.st_size, before.st_mtime_ns))
            self.assertEqual([each.name for each in self.folder.iterdir() if ".zelta-" in each.name], [])

        self.run_on_each(check)


if __name__ == "__main__":
    unittest.main()
