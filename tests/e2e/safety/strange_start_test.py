#!/usr/bin/env python3
"""Settings, names and lock files that are not as they should be: the program starts, records, and says in one line what it
found. What others may write into a name or a file gives no orders to the terminal."""

import math
import os
import plistlib
import subprocess
import unittest

from desktop import wait_until
from osc_recorder import PROGRAM, OSCTestCase, Recorder


class StrangeStartTest(OSCTestCase):
    def setUp(self):
        super().setUp()
        self.settings = self.home / "zelta" / "zelta.conf"
        self.settings.parent.mkdir()

    def record(self, file=None):
        recorder = Recorder(self.home, "--osc-port", "0", file or self.file)
        self.addCleanup(recorder.reader.stop)
        return recorder

    def quit(self, recorder):
        recorder.write("quit")
        self.assertEqual(recorder.reader.process.wait(timeout=60), 0)

    def check_starts(self):
        recorder = self.record()
        recorder.start_clock()
        recorder.press("toggleRecording")
        wait_until(lambda: recorder.has_said("paused at"), "the clock to stand")
        self.quit(recorder)
        self.file.unlink()
        return recorder

    # Settings.

    def test_values_that_need_a_window_system(self):
        """A colour, a font and an image, as a desktop program writes them."""
        self.settings.write_text("[General]\n"
                                 "ZLFontSizeSetting=@Variant(\\0\\0\\0\\x43\\x1\\xff\\xff\\0\\0\\x80\\x80\\0\\0)\n"
                                 "ZLNewChapterKeyCombo=@Variant(\\0\\0\\0@\\0\\0\\0\\n\\0s\\0\\x61\\0n\\0s)\n"
                                 "ZLShowQuickEditSetting=@Variant(\\0\\0\\0\\x46\\0)\n")
        self.check_starts()

    def test_a_pipe(self):
        os.mkfifo(self.settings)
        self.assertTrue(self.check_starts().has_said("This is a pipe, not a file."))

    def test_a_device(self):
        self.settings.symlink_to("/dev/zero")
        self.assertTrue(self.check_starts().has_said("This is a device, not a file."))

    def test_a_huge_file(self):
        with open(self.settings, "wb") as file:
            file.truncate(1000 * 1000 * 1000 * 1000)
        self.assertTrue(self.check_starts().has_said("The file is larger than 1 MiB."))

    def test_truth_values_that_a_person_typed(self):
        self.settings.write_text("[General]\nZLNewChapterOnStartSetting=no\n")
        recorder = self.record()
        recorder.press("toggleRecording")
        wait_until(lambda: recorder.has_said("recording from"), "the clock to start")
        recorder.write("status")
        wait_until(lambda: recorder.has_said("chapters: 0"), lambda: f"no first chapter, not {recorder.reader.lines}")

    # Documents.

    def stored(self, duration):
        """A document as the program writes it, with another duration."""
        recorder = self.record()
        recorder.start_clock()
        recorder.press("toggleRecording")
        wait_until(lambda: recorder.has_said("paused at"), "the clock to stand")
        self.quit(recorder)
        archive = plistlib.loads(self.file.read_bytes())
        objects = archive["$objects"]
        root = objects[archive["$top"]["root"].data]
        names = [objects[key.data] for key in root["NS.keys"]]
        objects[root["NS.objects"][names.index("Duration")].data] = duration
        self.file.write_bytes(plistlib.dumps(archive, fmt=plistlib.FMT_BINARY))

    def test_a_duration_that_is_no_number_or_infinite(self):
        for duration in (math.nan, math.inf):
            self.stored(duration)
            recorder = self.record()
            recorder.press("toggleRecording")
            wait_until(lambda: recorder.has_said("recording from 00:00:0"), lambda: f"the clock, not {recorder.reader.lines}")
            recorder.press("toggleRecording")
            wait_until(lambda: recorder.has_said("paused at"), "the clock to stand")
            self.quit(recorder)
            self.file.unlink()

    # Names.

    def test_names_as_long_as_names_can_be(self):
        for length in (246, 255):
            file = self.home / ("n" * (length - 6) + ".zelta")
            recorder = self.record(file)
            recorder.start_clock()
            wait_until(lambda: file.stat().st_size > 600, "the chapter in the file")
            second = self.record(file)
            wait_until(lambda: second.has_said("also open elsewhere"), lambda: f"the lock, not {second.reader.lines}")
            recorder.reader.stop()
            second.reader.stop()

    def test_a_name_that_is_not_utf_8(self):
        file = os.fsencode(self.home) + b"/caf\xe9.zelta"
        for command in ([b"show", file], [b"--headless", b"--osc-port", b"0", file]):
            ended = subprocess.run([os.fsencode(PROGRAM), *command], stdin=subprocess.DEVNULL, capture_output=True,
                                   env={**os.environ, "HOME": str(self.home), "XDG_STATE_HOME": str(self.home),
                                        "XDG_CONFIG_HOME": str(self.home), "LC_ALL": "C.UTF-8", "LANGUAGE": ""},
                                   timeout=60, check=False)
            self.assertEqual(ended.returncode, 1)
            self.assertIn(b"The name is not UTF-8 text. Rename the file.", ended.stderr)
        self.assertEqual([name for name in os.listdir(self.home) if name.startswith("caf")], [])

    def test_control_characters_of_a_name_and_of_a_foreign_lock_file_do_not_reach_the_terminal(self):
        file = self.home / "show\x1b[31m\x07.zelta"
        lock = self.home / f".{file.name}.lock"
        lock.write_text("studio\x1b]0;owned\x07\n77\x9b31m\n")
        recorder = self.record(file)
        wait_until(lambda: recorder.has_said("also open elsewhere (studio ]0;owned , process 77 31m)"),
                   lambda: f"who has it, not {recorder.reader.lines}")
        said = "".join(recorder.reader.lines)
        self.assertEqual([character for character in said if not character.isprintable() and character != "\n"], [])

    def test_one_full_stop(self):
        recorder = self.record()
        recorder.start_clock()
        self.file.unlink()
        self.file.mkdir()
        recorder.press("newChapter")
        wait_until(lambda: recorder.has_said("This is a folder, not a file. Trying again"),
                   lambda: f"it, not {recorder.reader.lines}")

    def test_what_is_remembered_is_for_its_user_alone(self):
        (self.home / "zelta").chmod(0o755)
        self.check_starts()
        self.assertEqual((self.home / "zelta").stat().st_mode & 0o777, 0o700)
        for name in ("session.json", "recent.json"):
            path = self.home / "zelta" / name
            self.assertEqual(path.stat().st_mode & 0o777, 0o600)


if __name__ == "__main__":
    unittest.main()
