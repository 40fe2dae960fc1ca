#!/usr/bin/env python3
"""What control surfaces that others wrote may send to the recorder, and what garbage does to it."""

import os
import socket
import struct
import subprocess
import unittest

from desktop import wait_until
from osc_peers import oscsend
from osc_recorder import PRESS, PROGRAM, STATUS, OSCTestCase, Recorder, encoded


class OSCTest(OSCTestCase):
    def test_every_command_by_oscsend(self):
        recorder, dump = self.start_with_oscdump()
        recorder.start_clock()
        recorder.wait_for_chapters(1)
        recorder.write("title Welcome")
        self.wait_for_message(dump, STATUS[1], "s", '"Welcome"')
        self.press_until_chapter(recorder)
        recorder.write("title News")
        self.wait_for_message(dump, STATUS[2], "s", '"News"')
        recorder.press("selectPreviousChapter")
        wait_until(lambda: recorder.has_said('selected chapter 1 at 00:00:00.000 "Welcome"'), "the first chapter")
        recorder.press("selectNextChapter")
        wait_until(lambda: recorder.count("selected chapter 2") > 0, "the second chapter")
        recorder.press("removeChapter")
        wait_until(lambda: recorder.count("deleted chapter 2") > 0, "the second chapter to go")
        recorder.press("removeLastChapter")
        wait_until(lambda: recorder.count("deleted chapter 1") > 0, "the first chapter to go")
        recorder.press("toggleRecording")
        wait_until(lambda: recorder.count("paused at") > 0, "the clock to stand")
        self.assertEqual(recorder.count("recording from"), 1)

    def test_numbers_of_each_kind_are_a_press(self):
        recorder = self.start_recorder()
        recorder.start_clock()
        for types, value in (("f", 0.01), ("i", 1), ("d", 127), ("h", 1)):
            self.press_until_chapter(recorder, lambda t=types, v=value: oscsend(
                recorder.port, "/zl/newChapter", t, v))

    def test_what_is_no_press_does_nothing(self):
        recorder = self.start_recorder()
        recorder.start_clock()
        recorder.wait_for_chapters(1)
        for arguments in (("f", 0), ("i", 0), ("f", -1), ("s", "on"), ()):
            oscsend(recorder.port, "/zl/newChapter", *arguments)
        for address in ("/zl/newchapter", "/ZL/newChapter", "/zl/newChapter/", "/zl/newChapters", "/newChapter", "/zl/*"):
            oscsend(recorder.port, address, "f", 1)
        self.press_until_chapter(recorder)
        self.assertEqual(recorder.count("chapter "), 2)

    def test_malformed_datagrams_do_nothing_and_stop_nothing(self):
        recorder = self.start_recorder()
        recorder.start_clock()
        recorder.wait_for_chapters(1)
        too_deep = PRESS
        for _ in range(300):
            too_deep = b"#bundle\0" + struct.pack(">QI", 1, len(too_deep)) + too_deep
        malformed = [
            b"", b"/", b"/zl/newChapter", b"/zl/newChapter\0\0", PRESS[:-1], PRESS[:-4], PRESS + b"\0", PRESS[1:],
            encoded("/zl/newChapter", ",f", struct.pack(">f", float("nan"))),
            encoded("/zl/newChapter", ",b", struct.pack(">I", 0xFFFFFFFF)),
            encoded("/zl/newChapter", "f" * 900), encoded("/zl/newChapter", ",[[[f", struct.pack(">f", 1)),
            b"#bundle\0", b"#bundle\0" + struct.pack(">QI", 1, 0xFFFFFFF0) + PRESS, too_deep,
            bytes(range(256)) * 200,
        ]
        with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as sender:
            for datagram in malformed:
                sender.sendto(datagram, ("127.0.0.1", recorder.port))
        self.press_until_chapter(recorder)
        self.assertEqual(recorder.count("chapter "), 2)
        self.assertIsNone(recorder.reader.process.poll())

    # By its own command, and with a taken port.

    def test_zelta_send(self):
        recorder = self.start_recorder()
        refused = recorder.send("newChapter")
        self.assertEqual(refused.returncode, 0, refused.stderr)
        self.assertIn("did nothing", refused.stdout)
        started = recorder.send("toggleRecording")
        self.assertEqual(started.returncode, 0, started.stderr)
        self.assertIn("started the recording", started.stdout)
        recorder.wait_for_chapters(1)
        self.press_until_chapter(recorder, lambda: self.assertIn("added a chapter", recorder.send("newChapter").stdout))
        self.assertEqual(recorder.send("newchapter").returncode, 2)
        self.assertEqual(recorder.send().returncode, 2)

    def test_zelta_send_without_a_recorder_fails_in_one_line(self):
        environment = {**os.environ, "HOME": str(self.home), "XDG_STATE_HOME": str(self.home)}
        answer = subprocess.run([PROGRAM, "send", "newChapter"], env=environment, capture_output=True, text=True,
                                timeout=60, check=False)
        self.assertEqual(answer.returncode, 1)
        self.assertEqual(answer.stdout, "")
        self.assertEqual(len(answer.stderr.splitlines()), 1, answer.stderr)

    def test_a_taken_port_makes_it_take_and_tell_the_next_free_one(self):
        with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as holder:
            try:
                holder.bind(("127.0.0.1", 9358))
            except OSError:
                pass  # Then another program has it, which is what this is about.
            recorder = Recorder(self.home, self.file)
            self.addCleanup(recorder.reader.stop)
            self.assertIn(recorder.port, range(9359, 9368))
            recorder.start_clock()
            self.press_until_chapter(recorder)


if __name__ == "__main__":
    unittest.main()
