#!/usr/bin/env python3
"""Zelta's clock follows the transport of a real JACK server: start, pause, resume, a late join, a server that ends. The
server is jackd, or PipeWire in its place where that is installed.

    tests/e2e/run jack_follow ZELTA [--pipewire]
"""

import json
import os
import random
import socket
import statistics
import shutil
import subprocess
import sys
import time
import unittest
from pathlib import Path

from desktop import Desktop, wait_until
from jack_transport import JackTransport
from osc_recorder import PRESS, PROGRAM, OSCTestCase, Recorder

RATE = 48000
# A busy machine may hold up the press for a moment.
SELDOM, USUAL = 0.15, 0.03
# In seconds. A server that is held up loses time, which Zelta's clock follows within two seconds. Marks in that time do not
# count.
LOST, AFTER_LOSS = 0.03, 2.5
ATTEMPTS = 5
IS_PIPEWIRE = "--pipewire" in sys.argv and not sys.argv.remove("--pipewire")
SKIPPED = 77


def use_pipewire():
    """Programs that use JACK find PipeWire's library in its place, as pw-jack has it."""
    places = sorted(Path("/usr/lib").glob("*/pipewire-0.3/jack"))
    if not places or not shutil.which("pipewire"):
        print("skipped: PipeWire is not installed in the place of JACK (pipewire, pipewire-jack)")
        sys.exit(SKIPPED)
    os.environ["LD_LIBRARY_PATH"] = str(places[0])


class JackFollowTest(OSCTestCase):
    def setUp(self):
        super().setUp()
        self.desktop = Desktop()
        self.desktop.__enter__()
        self.addCleanup(self.desktop.__exit__, None, None, None)
        os.environ["JACK_DEFAULT_SERVER"] = f"zelta-follow-{os.getpid()}"
        self.start_server()

    def start_server(self):
        os.environ["PIPEWIRE_RUNTIME_DIR"] = os.environ["XDG_RUNTIME_DIR"]
        jackd = ("jackd", "-r", "-n", os.environ["JACK_DEFAULT_SERVER"], "-d", "dummy", "-r", RATE, "-p", 256)
        self.server = self.desktop.start(*(["pipewire"] if IS_PIPEWIRE else jackd),
                                         stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_until(self.connect, "the server")

    def connect(self):
        self.transport = JackTransport()
        if self.transport.opened:
            self.addCleanup(self.transport.close)
        return self.transport.opened

    def follow(self):
        self.recorder = Recorder(self.home, "--follow", "jack", "--osc-port", "0", self.file)
        self.addCleanup(self.recorder.reader.stop)

    def wait_for(self, text, count=1):
        wait_until(lambda: sum(text in line for line in list(self.recorder.reader.lines)) >= count,
                   lambda: f"“{text}”, not {self.recorder.reader.lines}")

    def position(self):
        """Of the transport, in seconds, and when it was at its zero, had it rolled all the time."""
        position = self.transport.ask("frame") / RATE
        return position, time.monotonic() - position

    def mark(self):
        time.sleep(random.uniform(0.1, 0.3))
        before = self.recorder.count("chapter ")
        with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as surface:
            position, zero = self.position()
            surface.sendto(PRESS, ("127.0.0.1", self.recorder.port))
        wait_until(lambda: self.recorder.count("chapter ") > before, "the mark")
        return position, zero

    def mark_often(self, marks, count=6):
        """Until so many marks in a row count. Notes the position of each, or None for one that does not count."""
        for _ in range(ATTEMPTS):
            zeros = [self.position()[1]]
            positions = []
            for _ in range(count):
                position, zero = self.mark()
                positions.append(position)
                zeros.append(zero)
            keeps_up = max(zeros) - min(zeros) < LOST
            marks.extend(positions if keeps_up else [None] * count)
            if keeps_up:
                return
            time.sleep(AFTER_LOSS)
        self.skipTest("the JACK server could not keep up on this machine")

    def assert_marks_are_right(self, marks):
        self.recorder.write("quit")
        self.assertEqual(self.recorder.reader.process.wait(30), 0)
        shown = subprocess.run([PROGRAM, "show", "--json", self.file], capture_output=True, text=True, timeout=60,
                               check=True)
        times = [chapter["timeStamp"] for chapter in json.loads(shown.stdout)["chapters"]][-len(marks):]
        errors = [abs(time - mark) for time, mark in zip(times, marks) if mark is not None]
        self.assertLess(max(errors), SELDOM, errors)
        self.assertLess(statistics.median(errors), USUAL, errors)

    def test_the_clock_starts_pauses_and_resumes_with_the_transport(self):
        self.follow()
        self.wait_for("JACK answers.")
        marks = []
        self.transport.ask("start")
        self.wait_for("Started with JACK at 00:00:00.")
        self.mark_often(marks)
        self.transport.ask("stop")
        self.wait_for("Stopped with JACK at")
        time.sleep(1)
        self.transport.ask("start")
        self.wait_for("Started with JACK at", 2)
        self.mark_often(marks)
        self.transport.ask("stop")
        self.wait_for("Stopped with JACK at", 2)
        self.assert_marks_are_right(marks)

    def test_a_transport_that_rolls_is_joined(self):
        self.transport.ask("locate", 751 * RATE)
        self.transport.ask("start")
        time.sleep(1)
        self.follow()
        self.wait_for("Joined JACK at 00:12:3")
        marks = []
        self.mark_often(marks)
        self.transport.ask("stop")
        self.wait_for("Stopped with JACK at")
        self.assert_marks_are_right(marks)

    def test_a_server_that_ends_stops_nothing(self):
        self.follow()
        self.wait_for("JACK answers.")
        self.transport.ask("start")
        self.wait_for("Started with JACK at 00:00:00.")
        time.sleep(1)
        # Not killed: then it would keep one of the few places for servers of this computer for ever.
        self.server.terminate()
        self.wait_for("JACK is lost. Zelta's clock goes on as it went last.")
        for _ in range(3):
            self.press_until_chapter(self.recorder)
        self.assertFalse(self.recorder.has_said("Stopped with JACK"))


if __name__ == "__main__":
    if IS_PIPEWIRE:
        use_pipewire()
    unittest.main()
