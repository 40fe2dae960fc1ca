#!/usr/bin/env python3
"""OBS Studio goes and comes back while a show is recorded, without a window: killed and started again, out of reach for a
while, with a wrong password, with garbage in the place of its answers. Each is told, and no mark waits or is wrong. A server
of ours stands in for it; `obs_killed` does the same with the real program.
"""

import random
import time
import unittest

from desktop import wait_until
from obs_stand_in import StandInOBS
from osc_recorder import OSCTestCase, Recorder
from presses import RemoteControl, chapters_in

PASSWORD = "open sesame"
# A busy machine may hold up the press or the recorder for a moment.
TOLERANCE = 0.15
OUT_OF_REACH = 12


class OBSLostTest(OSCTestCase):
    def setUp(self):
        super().setUp()
        self.studio = StandInOBS(PASSWORD)
        self.addCleanup(self.studio.kill)
        self.presses = []

    def follow(self, password=PASSWORD):
        settings = self.home / "zelta"
        settings.mkdir(exist_ok=True)
        (settings / "zelta.conf").write_text(
            "[General]\nZLNewChapterOnStartSetting=false\nZLOBSHostSetting=127.0.0.1\n"
            f"ZLOBSPortSetting={self.studio.port}\n")
        self.recorder = Recorder(self.home, "--follow", "obs", "--osc-port", "0", self.file, ZELTA_OBS_PASSWORD=password)
        self.addCleanup(self.recorder.reader.stop)
        self.remote = RemoteControl(self.recorder.port)
        self.addCleanup(self.remote.close)

    def record(self):
        self.follow()
        self.wait_for("OBS Studio answers.")
        self.studio.start_recording("/recordings/show.mkv")
        self.began = self.studio.began
        self.wait_for("Started with OBS Studio at 00:00:00.")

    def wait_for(self, text):
        wait_until(lambda: self.recorder.has_said(text), lambda: f"“{text}”, not {self.recorder.reader.lines}")

    def mark_often(self, count=5):
        for _ in range(count):
            time.sleep(random.uniform(0.05, 0.2))
            self.presses.append(self.remote.press("newChapter"))
            self.recorder.wait_for_chapters(len(self.presses))

    def assert_marks_are_right(self, zero):
        """By a recording whose beginning was at this moment."""
        if not self.recorder.has_said("Stopped with"):
            self.remote.press("toggleRecording")
            self.wait_for("paused at")
        self.recorder.write("quit")
        self.assertEqual(self.recorder.reader.process.wait(30), 0)
        times = sorted(chapter["TimeStamp"] for chapter in chapters_in(self.file))
        self.assertEqual(len(times), len(self.presses))
        errors = [reading - (press - zero) for reading, press in zip(times, self.presses)]
        self.assertLess(max(map(abs, errors)), TOLERANCE, errors)

    def test_killed_and_started_again(self):
        self.record()
        self.mark_often()
        self.studio.kill()
        self.wait_for("OBS Studio is lost. Zelta's clock goes on as it went last.")
        self.mark_often()
        self.studio.listen()
        self.wait_for("OBS Studio is back and does not record. Zelta's clock goes on.")
        self.mark_often()
        self.studio.start_recording("/recordings/second.mkv")
        self.wait_for("Zelta's clock runs already.")
        self.mark_often()
        self.assertFalse(self.recorder.has_said("Stopped with"))
        self.assert_marks_are_right(self.began)

    def test_out_of_reach_for_a_while(self):
        self.record()
        self.mark_often()
        self.studio.is_mute = True
        self.wait_for("OBS Studio is lost. Zelta's clock goes on as it went last.")
        until = time.monotonic() + OUT_OF_REACH
        while time.monotonic() < until:
            self.mark_often(3)
        self.studio.is_mute = False
        self.wait_for("OBS Studio is back after")
        self.mark_often()
        self.studio.stop_recording()
        self.wait_for("Stopped with OBS Studio at")
        self.assert_marks_are_right(self.began)

    def test_garbage_in_the_middle(self):
        self.record()
        self.mark_often()
        for text in (b"\xff\xfe\x00", b"{", b"[" * 1000, b'{"op": 5, "d": {"eventType": 7}}', b""):
            self.studio.send_garbage(text)
            self.mark_often(2)
        self.wait_for("is not OBS Studio.")
        self.wait_for("OBS Studio is back after")
        self.mark_often()
        self.assertFalse(self.recorder.has_said("Stopped with"))
        self.studio.stop_recording()
        self.wait_for("Stopped with OBS Studio at")
        self.assert_marks_are_right(self.began)

    def test_a_wrong_password_is_told_and_holds_nothing_up(self):
        self.follow("mellon and more")
        self.wait_for("OBS Studio refuses the password.")
        started = self.remote.press("toggleRecording")
        self.wait_for("recording from 00:00:00")
        self.mark_often()
        self.assertFalse(self.recorder.has_said("mellon"))
        self.assert_marks_are_right(started)

    def test_a_split_recording_and_its_files_are_kept(self):
        self.record()
        self.wait_for("OBS Studio records into /recordings/show.mkv.")
        self.mark_often(2)
        self.studio.split_to("/recordings/second.mkv")
        self.wait_for("OBS Studio records into /recordings/second.mkv.")
        self.mark_often(2)
        self.assert_marks_are_right(self.began)


if __name__ == "__main__":
    unittest.main()
