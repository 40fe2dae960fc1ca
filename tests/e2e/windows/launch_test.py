#!/usr/bin/env python3
"""What happens at the start and at the end: no display, several documents, closing, quitting, signals."""

import signal
import subprocess
import sys
import time
import unittest
from pathlib import Path

from desktop import Desktop, wait_until

PROGRAM = Path(sys.argv.pop(1))


def windows_of(process):
    answer = subprocess.run(
        ["xdotool", "search", "--onlyvisible", "--pid", str(process.pid), "--name", "Zelta"],
        capture_output=True, text=True, check=False,
    )
    return answer.stdout.split()


def titles_of(process):
    names = [
        subprocess.run(["xdotool", "getwindowname", window], capture_output=True, text=True, check=False).stdout.strip()
        for window in windows_of(process)
    ]
    return sorted(names)


class LaunchTest(unittest.TestCase):
    def setUp(self):
        self.desktop = Desktop()
        self.desktop.__enter__()
        self.addCleanup(self.desktop.__exit__)

    def start(self, *arguments):
        process = self.desktop.start(PROGRAM, *arguments)
        wait_until(lambda: self.has_keyboard(process), "the window to have the keyboard")
        return process

    @staticmethod
    def has_keyboard(process):
        answer = subprocess.run(["xdotool", "getwindowfocus", "getwindowpid"], capture_output=True, text=True, check=False)
        return answer.stdout.strip() == str(process.pid)

    def test_without_a_display_the_recorder_runs_without_a_window(self):
        import os

        environment = {k: v for k, v in os.environ.items() if k not in ("DISPLAY", "QT_QPA_PLATFORM")}
        process = subprocess.Popen([PROGRAM], stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                   text=True, env=environment)
        out, err = process.communicate("toggleRecording\nnewChapter\ntoggleRecording\nquit\n", timeout=20)
        self.assertEqual(process.returncode, 0, err)
        self.assertIn("without a window", err)
        self.assertIn("chapter 2", out)

    def test_quitting_is_refused_while_the_clock_runs(self):
        process = self.start()
        self.desktop.press("ctrl+r")
        self.desktop.press("Return")
        self.desktop.press("ctrl+q")
        self.desktop.press("ctrl+w")
        time.sleep(1)  # Long enough for an end that must not come.
        self.assertIsNone(process.poll())
        self.desktop.press("ctrl+r")
        self.desktop.press("ctrl+q")
        self.assertEqual(process.wait(10), 0)

    def test_closing_the_last_window_ends_the_program_and_keeps_what_has_no_file(self):
        process = self.start()
        self.desktop.press("ctrl+r", "Return", "ctrl+r")
        self.desktop.press("ctrl+w")
        self.assertEqual(process.wait(10), 0)
        again = self.start()
        self.assertEqual(titles_of(again), ["Untitled* — Zelta"])

    def test_a_signal_saves_a_running_recording(self):
        process = self.start()
        self.desktop.press("ctrl+r", "Return")
        process.send_signal(signal.SIGTERM)
        self.assertEqual(process.wait(10), 0)
        kept = list((self.desktop.home / "state/zelta/recovery").glob("*.zelta"))
        self.assertEqual(len(kept), 1)
        shown = subprocess.run([PROGRAM, "show", kept[0]], capture_output=True, text=True, check=True).stdout
        self.assertIn("1  yes      00:00:00.0", shown)

    def test_several_documents_come_back_after_a_restart(self):
        process = self.start()
        self.desktop.press("ctrl+r", "Return", "ctrl+r")
        self.desktop.press("ctrl+n")
        wait_until(lambda: len(windows_of(process)) == 2, "the second window")
        wait_until(lambda: self.has_keyboard(process), "the second window to have the keyboard")
        self.desktop.press("ctrl+r", "Return", "ctrl+r")
        self.desktop.press("ctrl+q")
        self.assertEqual(process.wait(10), 0)
        again = self.start()
        wait_until(lambda: len(windows_of(again)) == 2, "both windows")
        self.assertEqual(titles_of(again), ["Untitled 2* — Zelta", "Untitled* — Zelta"])

    def test_a_file_that_cannot_be_read_is_told_in_the_window(self):
        broken = self.desktop.home / "broken.zelta"
        broken.write_bytes(b"no document")
        process = self.start(broken)
        import accessible

        frame = accessible.find(accessible.application(), "frame")
        wait_until(lambda: any("broken.zelta" in (node.name or "") for node in accessible.everything_below(frame)),
                   "the name of the broken file")
        self.assertIsNone(process.poll())

    def test_a_second_start_hands_its_file_to_the_running_program_and_ends(self):
        shows = [self.desktop.home / "first.zelta", self.desktop.home / "second show.zelta"]
        for show in shows:
            subprocess.run([PROGRAM, "--headless", show], input="newChapter\nquit\n", text=True, timeout=20,
                           capture_output=True, check=True)
        process = self.start(shows[0])
        later = subprocess.run([PROGRAM, shows[1].name], cwd=self.desktop.home, timeout=20, check=False)
        self.assertEqual(later.returncode, 0)
        wait_until(lambda: titles_of(process) == ["first.zelta — Zelta", "second show.zelta — Zelta"], "both windows")
        subprocess.run([PROGRAM, "--new"], timeout=20, check=True)
        wait_until(lambda: len(windows_of(process)) == 3, "the new document")

    def long_document(self):
        """Reading it takes a while."""
        marks = self.desktop.home / "marks.txt"
        marks.write_text("".join(f"{n // 3600:02}:{n // 60 % 60:02}:{n % 60:02} Topic {n}\n" for n in range(30_000)))
        path = self.desktop.home / "long.zelta"
        subprocess.run([PROGRAM, "import", "--output", path, marks], timeout=120, capture_output=True, check=True)
        return path

    def test_marks_come_while_a_long_document_is_opened(self):
        long = self.long_document()
        process = self.start()
        self.desktop.press("ctrl+r")
        later = subprocess.Popen([PROGRAM, long])
        self.addCleanup(later.kill)
        answered = 0
        while later.poll() is None:
            subprocess.run([PROGRAM, "send", "newChapter"], timeout=20, check=True, capture_output=True)
            answered += later.poll() is None
        self.assertEqual(later.returncode, 0)
        self.assertGreater(answered, 1, "the marks waited for the document")
        wait_until(lambda: len(windows_of(process)) == 2, "both windows")
        self.assertIn("long.zelta — Zelta", titles_of(process))

    def test_a_start_opens_its_file_itself_when_the_running_program_ends_meanwhile(self):
        long = self.long_document()
        process = self.start()
        later = self.desktop.start(PROGRAM, long)
        time.sleep(0.2)  # Until it has handed its file over; it opens the file all the same when it has not.
        self.desktop.press("ctrl+q")
        self.assertEqual(process.wait(20), 0)
        # A fast machine has opened the file before the end.
        wait_until(lambda: later.poll() == 0 or titles_of(later) == ["long.zelta — Zelta"], "the file to be open")

    def run_and_end(self, *arguments, display=True):
        import os

        hidden = () if display else ("DISPLAY", "QT_QPA_PLATFORM")
        environment = {k: v for k, v in os.environ.items() if k not in hidden}
        return subprocess.run([PROGRAM, *arguments], cwd=self.desktop.home, env=environment, stdin=subprocess.DEVNULL,
                              capture_output=True, text=True, timeout=60, check=False)

    def test_a_missing_file_ends_the_start_with_the_reason(self):
        for display in (True, False):
            with self.subTest(display=display):
                ended = self.run_and_end("missing.zelta", display=display)
                self.assertEqual(ended.returncode, 1, ended)
                self.assertIn("missing.zelta: ", ended.stderr)
        self.assertFalse((self.desktop.home / "missing.zelta").exists())
        process = self.start()
        ended = self.run_and_end("missing.zelta", "sub/other")
        self.assertEqual(ended.returncode, 1, ended)
        reasons = [line for line in ended.stderr.splitlines() if line.startswith("zelta: ")]
        self.assertEqual(len(reasons), 2, ended.stderr)
        self.assertIn("missing.zelta: ", reasons[0])
        self.assertIn("sub/other: ", reasons[1])
        self.assertIsNone(process.poll())

    def test_a_huge_file_is_refused_while_the_show_goes_on(self):
        huge = self.desktop.home / "huge.zelta"
        with open(huge, "wb") as file:
            file.truncate(10**12)
        process = self.start()
        self.desktop.press("ctrl+r")
        wait_until(lambda: titles_of(process) == ["Recording: Untitled* — Zelta"], "the clock to run")
        ended = self.run_and_end(huge.name)
        self.assertEqual(ended.returncode, 1, ended)
        self.assertIn("huge.zelta: The file is larger than 512 MiB.", ended.stderr)
        self.assertEqual(self.run_and_end("send", "newChapter").stdout, "newChapter: added a chapter\n")
        self.assertEqual(titles_of(process), ["Recording: Untitled* — Zelta"])

    def test_a_word_that_is_no_file_makes_none(self):
        for arguments in (["list"], ["--headless", "list"]):
            for display in (True, False):
                with self.subTest(arguments=arguments, display=display):
                    ended = self.run_and_end(*arguments, display=display)
                    self.assertEqual(ended.returncode, 2, ended)
                    self.assertIn('"list"', ended.stderr)
        self.assertEqual(list(self.desktop.home.glob("list*")), [])

    def test_without_a_display_a_second_file_is_refused(self):
        ended = self.run_and_end("a.zelta", "b.zelta", display=False)
        self.assertEqual(ended.returncode, 2, ended)
        self.assertIn("records one file at most", ended.stderr)

    def test_a_killed_program_stands_in_nobodys_way(self):
        process = self.start()
        process.kill()
        process.wait(10)
        again = self.start()
        self.assertEqual(len(windows_of(again)), 1)


if __name__ == "__main__":
    unittest.main()
