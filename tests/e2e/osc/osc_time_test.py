#!/usr/bin/env python3
"""A recorder that sends its time by OSC is followed: start, pause, late join, both ends killed, floods and garbage."""

import json
import os
import random
import signal
import socket
import statistics
import struct
import subprocess
import time
import unittest

from desktop import wait_until
from osc_peers import oscsend
from osc_player import Player
from osc_recorder import PRESS, PROGRAM, OSCTestCase, Recorder, encoded

# A busy machine may hold up the player's thread or the press for a moment.
SELDOM, USUAL = 0.15, 0.03


class OSCTimeTest(OSCTestCase):
    def setUp(self):
        super().setUp()
        self.marks = []
        self.recorder = self.start_following()

    def start_following(self):
        recorder = Recorder(self.home, "--follow", "osc", "--osc-port", "0", self.file)
        self.addCleanup(recorder.reader.stop)
        return recorder

    def start_player(self, **settings):
        player = Player(self.recorder.port, **settings)
        self.addCleanup(player.close)
        return player

    def wait_for(self, text):
        wait_until(lambda: self.recorder.has_said(text), lambda: f"“{text}”, not {self.recorder.reader.lines}")

    def mark(self, position_at):
        """A press, and where the recording was then."""
        before = self.recorder.count("chapter ")
        with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as surface:
            self.marks.append(position_at(time.monotonic()))
            surface.sendto(PRESS, ("127.0.0.1", self.recorder.port))
        wait_until(lambda: self.recorder.count("chapter ") > before, "the mark")

    def mark_often(self, position_at, count=8):
        for _ in range(count):
            time.sleep(random.uniform(0.05, 0.2))
            self.mark(position_at)

    def chapters(self):
        shown = subprocess.run([PROGRAM, "show", "--json", self.file], capture_output=True, text=True, timeout=60,
                               check=True)
        return json.loads(shown.stdout)["chapters"]

    def assert_marks_are_right(self):
        """Beside the chapter at the start."""
        self.recorder.write("quit")
        self.assertEqual(self.recorder.reader.process.wait(30), 0)
        times = [chapter["timeStamp"] for chapter in self.chapters()][-len(self.marks):]
        errors = [abs(time - mark) for time, mark in zip(times, self.marks)]
        self.assertLess(max(errors), SELDOM, errors)
        self.assertLess(statistics.median(errors), USUAL, errors)

    def test_the_clock_starts_pauses_and_stops_with_the_recorder(self):
        player = self.start_player(start=62.5)
        self.wait_for("OSC answers.")
        player.record()
        self.wait_for("Started with OSC at 00:00:00.")
        self.mark_often(player.position_at)
        player.pause()
        self.wait_for("Stopped with OSC at")
        time.sleep(1.5)
        player.resume()
        wait_until(lambda: sum("Started with OSC" in line for line in self.recorder.reader.lines) == 2, "the resume")
        time.sleep(1)
        self.mark_often(player.position_at)
        player.stop()
        wait_until(lambda: sum("Stopped with OSC" in line for line in self.recorder.reader.lines) == 2, "the stop")
        self.assert_marks_are_right()

    def test_a_recording_that_is_under_way_is_joined(self):
        player = self.start_player(start=751.0)
        player.since, player.origin = time.monotonic(), 0.0
        self.wait_for("Joined OSC at 00:12:31.")
        self.mark_often(player.position_at)
        player.send("/record", 0)
        self.wait_for("Stopped with OSC at")
        self.assert_marks_are_right()

    def test_after_a_kill_and_a_restart_the_times_are_those_of_the_recording(self):
        player = self.start_player()
        self.wait_for("OSC answers.")
        player.record()
        self.wait_for("Started with OSC at 00:00:00.")
        self.mark_often(player.position_at, 4)
        os.kill(self.recorder.reader.process.pid, signal.SIGKILL)
        self.recorder.reader.process.wait(30)
        time.sleep(2)
        self.recorder = self.start_following()
        player.peer = ("127.0.0.1", self.recorder.port)
        self.wait_for("Joined OSC at")
        self.mark_often(player.position_at, 4)
        player.stop()
        self.wait_for("Stopped with OSC at")
        self.assert_marks_are_right()

    def test_a_player_that_goes_and_comes_back_is_told_and_stops_nothing(self):
        player = self.start_player()
        self.wait_for("OSC answers.")
        player.record()
        self.wait_for("Started with OSC at 00:00:00.")
        time.sleep(2)
        player.is_silent = True
        self.wait_for("OSC is lost. Zelta's clock goes on as it went last.")
        self.mark_often(player.position_at, 3)
        player.is_silent = False
        self.wait_for("OSC is back after")
        self.mark_often(player.position_at, 3)
        player.stop()
        self.wait_for("Stopped with OSC at")
        self.assert_marks_are_right()

    def test_a_jump_is_told_and_the_recorders_time_can_be_taken(self):
        player = self.start_player()
        self.wait_for("OSC answers.")
        player.record()
        self.wait_for("Started with OSC at 00:00:00.")
        time.sleep(2)
        player.jump(20.0)
        self.wait_for("The recorder's time is 20.0 s ahead of Zelta's clock.")
        self.recorder.write("taketime")
        self.wait_for("the clock reads 00:00:2")
        self.mark_often(player.position_at, 3)
        player.stop()
        self.wait_for("Stopped with OSC at")
        self.assert_marks_are_right()

    def test_no_flood_and_no_garbage_takes_a_press_away(self):
        player = self.start_player()
        self.wait_for("OSC answers.")
        player.record()
        self.wait_for("Started with OSC at 00:00:00.")
        self.recorder.wait_for_chapters(1)
        noise = [b"", b"garbage", encoded("/time"), encoded("/time", ",s", b"nan\0"), encoded("/record", ",b", bytes(4)),
                 encoded("/time", ",f", b"\x7f\xc0\0\0"), encoded("/time", ",d", b"\x7f\xf0\0\0\0\0\0\0")]
        with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as surface:
            surface.connect(("127.0.0.1", self.recorder.port))
            for _ in range(40):
                for count in range(50):
                    now = struct.pack(">f", player.time_at(time.monotonic()))
                    surface.send(noise[count % len(noise)] if count % 2 else encoded("/time", ",f", now))
                surface.send(PRESS)
        self.recorder.wait_for_chapters(41)
        self.mark(player.position_at)
        self.assertFalse(self.recorder.has_said("Stopped"))
        player.stop()
        self.wait_for("Stopped with OSC at")
        self.assert_marks_are_right()

    def test_oscsend_is_a_recorder_too(self):
        oscsend(self.recorder.port, "/record", "f", 1.0)
        oscsend(self.recorder.port, "/time", "f", 0.05)
        self.wait_for("Started with OSC at 00:00:00.")
        oscsend(self.recorder.port, "/record", "f", 0.0)
        self.wait_for("Stopped with OSC at 00:00:0")
        oscsend(self.recorder.port, "/record", "i", 1)
        oscsend(self.recorder.port, "/time", "d", 10.0)
        wait_until(lambda: sum("Started with OSC" in line for line in self.recorder.reader.lines) == 2, "the next start")


if __name__ == "__main__":
    unittest.main()
