#!/usr/bin/env python3
"""Ports and outputs that are given for one run, and commands by "zelta send"."""

import unittest

from desktop import wait_until
from osc_peers import free_port
from osc_recorder import STATUS, OSCTestCase, Recorder

TITLE = ("s", '"Only here"')


class OSCRunTest(OSCTestCase):
    def store(self, **settings):
        """As the program itself would have stored them."""
        self.settings = self.home / "zelta/zelta.conf"
        self.settings.parent.mkdir(parents=True, exist_ok=True)
        self.settings.write_text("[General]\n" + "".join(f"{key}={value}\n" for key, value in settings.items()))

    def record(self, *arguments):
        recorder = Recorder(self.home, *arguments, "--record", self.file)
        self.addCleanup(recorder.reader.stop)
        wait_until(lambda: recorder.has_said("recording from"), "the clock to start")
        return recorder

    def end(self, recorder):
        recorder.press("toggleRecording")
        wait_until(lambda: recorder.count("paused at"), "the clock to stand")
        recorder.write("quit")
        self.assertEqual(recorder.reader.process.wait(30), 0)

    def start_listening_oscdump(self):
        dump = self.start_oscdump()
        dump.wait_until_it_listens()
        return dump

    def test_what_is_given_for_one_run_replaces_what_is_stored_and_stores_nothing(self):
        stored, given = self.start_listening_oscdump(), self.start_listening_oscdump()
        stored_port, given_port = free_port(), free_port()
        self.store(ZLOSCInputPortSetting=stored_port, ZLOSCOutputsSetting=f"127.0.0.1:{stored.port}")
        before = self.settings.read_bytes()

        recorder = self.record("--osc-port", str(given_port), "--osc-send", f"127.0.0.1:{given.port}")
        self.assertEqual(recorder.port, given_port)
        recorder.write("title Only here")
        self.wait_for_message(given, STATUS[2], *TITLE)
        self.assertEqual(stored.messages(), [])
        self.end(recorder)
        self.assertEqual(self.settings.read_bytes(), before)

        messages_of_first_run = len(given.messages())
        recorder = self.record()
        self.assertEqual(recorder.port, stored_port)
        self.wait_for_message(stored, STATUS[1], *TITLE)
        self.assertEqual(len(given.messages()), messages_of_first_run)
        self.end(recorder)

    def test_several_outputs_may_be_given(self):
        dumps = [self.start_listening_oscdump() for _ in range(2)]
        recorder = self.start_recorder(*(dump.port for dump in dumps))
        recorder.start_clock()
        recorder.write("title Only here")
        for dump in dumps:
            self.wait_for_message(dump, STATUS[2], *TITLE)

    def test_send_reaches_the_recorder_on_a_port(self):
        first = self.start_recorder()
        second = Recorder(self.home, "--osc-port", "0", self.home / "second.zelta")
        self.addCleanup(second.reader.stop)
        sent = first.send("toggleRecording", "--osc-port", second.port)
        self.assertEqual(sent.returncode, 0, sent.stderr)
        self.assertEqual(sent.stdout, f"toggleRecording: sent to port {second.port} of this computer\n")
        wait_until(lambda: second.has_said("recording from"), "the second recorder to record")
        self.assertFalse(first.has_said("recording from"))
        answer = first.send("toggleRecording")
        self.assertIn("started the recording", answer.stdout)
        wait_until(lambda: first.has_said("recording from"), "the first recorder to record")

    def test_send_reaches_a_recorder_whose_state_lies_in_a_deep_folder(self):
        deep = self.home / ("state-in-a-folder-with-a-long-name/" * 6)
        deep.mkdir(parents=True)
        recorder = Recorder(self.home, "--osc-port", "0", self.file, XDG_STATE_HOME=str(deep))
        self.addCleanup(recorder.reader.stop)
        answer = recorder.send("toggleRecording")
        self.assertEqual(answer.returncode, 0, answer.stderr)
        self.assertIn("started the recording", answer.stdout)
        self.assertFalse(recorder.has_said("cannot take commands"))


if __name__ == "__main__":
    unittest.main()
