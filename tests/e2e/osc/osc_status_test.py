#!/usr/bin/env python3
"""What a control surface gets back: which messages, of which types, in which order, and when."""

import json
import re
import socket
import struct
import subprocess
import unittest

from desktop import wait_until
from osc_peers import free_port
from osc_recorder import CLOCK, PROGRAM, STATUS, OSCTestCase, encoded


class OSCStatusTest(OSCTestCase):
    def test_status_messages_come_in_their_order_with_their_types(self):
        recorder, dump = self.start_with_oscdump()
        recorder.start_clock()
        recorder.write("title Grüße 日本")
        self.wait_for_message(dump, STATUS[2], "s", '"Grüße 日本"')
        recorder.press("toggleRecording")
        wait_until(lambda: dump.messages()[-3:-2] == [(STATUS[0], "F", "#F")], "the clock to stand")
        messages = dump.messages()
        self.assertEqual([types for _, types, _ in messages if types not in "TF"], ["s"] * sum(
            address != STATUS[0] for address, _, _ in messages))
        self.assertEqual({types for address, types, _ in messages if address == STATUS[0]}, {"T", "F"})
        self.assert_order(messages)

    def assert_order(self, messages):
        """Three status messages, with the clock behind them exactly while recording; else the clock alone."""
        rest = [(address, types) for address, types, _ in messages]
        while rest:
            if rest[0][0] == STATUS[0]:
                expected = STATUS + (CLOCK if rest[0][1] == "T" else [])
            else:
                expected = CLOCK
            self.assertEqual([address for address, _ in rest[:len(expected)]], expected)
            rest = rest[len(expected):]

    def test_the_clock_comes_once_a_second(self):
        recorder, dump = self.start_with_oscdump()
        recorder.start_clock()
        recorder.wait_for_chapters(1)

        def clocks_alone():
            """The clocks without status messages before them."""
            messages = dump.messages()
            return [clock for before, clock in zip(messages, messages[1:])
                    if clock[0] == CLOCK[0] and before[0] == CLOCK[1]]

        wait_until(lambda: len(clocks_alone()) >= 4, "the clock to be sent four times")
        texts = [value for _, _, value in clocks_alone()]
        for text in texts:
            self.assertRegex(text, r'^"00:00:\d\d"$')
        seconds = [int(text[-3:-1]) for text in texts]
        self.assertEqual(seconds, sorted(seconds))
        # As often as seconds went by, give or take the one that was cut off at either end.
        self.assertLessEqual(len(seconds), seconds[-1] - seconds[0] + 2)
        self.assertTrue(any(address == CLOCK[1] and re.fullmatch(r'"[\d:.]+"', value)
                            for address, _, value in dump.messages()))

    def test_a_listener_that_comes_late_hears_the_clock_and_at_the_next_change_the_whole_state(self):
        port = free_port()
        recorder = self.start_recorder(port)
        recorder.start_clock()
        recorder.write("title Welcome")
        wait_until(lambda: recorder.has_said('"Welcome"'), "the title")
        dump = self.start_oscdump(port)
        wait_until(lambda: CLOCK[1] in dump.addresses(), "the clock")
        self.press_until_chapter(recorder)
        wait_until(lambda: dump.addresses()[-5:] == STATUS + CLOCK, "the whole state")
        self.assertEqual(set(dump.addresses()[:dump.addresses().index(STATUS[0])]), set(CLOCK))

    def test_whoever_presses_is_answered_where_it_speaks_from_when_that_is_chosen(self):
        settings = self.home / "zelta/zelta.conf"
        settings.parent.mkdir()
        settings.write_text("[General]\nZLOSCAnswerSendersSetting=true\n")
        recorder = self.start_recorder()
        with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as surface:
            surface.bind(("127.0.0.1", 0))
            surface.settimeout(20)
            surface.sendto(encoded("/zl/toggleRecording", ",i", struct.pack(">i", 1)), ("127.0.0.1", recorder.port))
            addresses = [surface.recv(2048).split(b"\0")[0].decode() for _ in range(5)]
            self.assertEqual(addresses, STATUS + CLOCK)

    # A whole show.

    def test_a_show_of_three_chapters_by_oscsend_alone(self):
        recorder, dump = self.start_with_oscdump()
        wait_until(lambda: len(dump.messages()) >= 3, "the state before the show")
        recorder.start_clock()
        recorder.wait_for_chapters(1)
        for seconds in (1, 2):
            wait_until(lambda: newest_reading(dump) >= seconds, lambda: f"{seconds} s, not {dump.messages()}")
            self.press_until_chapter(recorder)
        recorder.press("toggleRecording")
        wait_until(lambda: dump.messages()[-3:-2] == [(STATUS[0], "F", "#F")], "the clock to stand")
        recorder.reader.process.terminate()
        self.assertEqual(recorder.reader.process.wait(20), 0)

        chapters = self.saved_chapters()
        self.assertEqual(len(chapters), 3)
        starts = [chapter["timeStamp"] for chapter in chapters]
        # The state was seen before the press, so the chapter cannot be older.
        self.assertLess(starts[0], 1)
        self.assertGreaterEqual(starts[1], 1)
        self.assertGreaterEqual(starts[2], max(2, starts[1]))
        self.assert_order(dump.messages())
        self.assert_the_flag_follows_the_show(dump.messages())
        self.assert_durations_fit(dump.messages(), starts)

    def saved_chapters(self):
        shown = subprocess.run([PROGRAM, "show", "--json", self.file], capture_output=True, text=True, check=True)
        return json.loads(shown.stdout)["chapters"]

    def assert_the_flag_follows_the_show(self, messages):
        """False, then true as long as it is recorded, then false: no flicker."""
        flags = [types for address, types, _ in messages if address == STATUS[0]]
        self.assertRegex("".join(flags), "^F+T+F+$")

    def assert_durations_fit(self, messages, starts):
        """Each duration is the time since the start of one chapter, and of an earlier one never again."""
        pairs = [(seconds_of(clock[2]), seconds_of(duration[2]))
                 for clock, duration in zip(messages, messages[1:]) if clock[0] == CLOCK[0]]

        def fits(pair, start):
            # Both texts are cut to whole seconds.
            return -1 < start + pair[1] - pair[0] < 1

        self.assertTrue(fits(pairs[0], starts[0]), pairs)
        self.assertTrue(fits(pairs[-1], starts[-1]), pairs)
        running = 0
        for pair in pairs:
            while not fits(pair, starts[running]):
                running += 1
                self.assertLess(running, len(starts), (pair, pairs, starts))


def newest_reading(dump):
    """In seconds; -1 before the first one."""
    return max((seconds_of(value) for address, _, value in dump.messages() if address == CLOCK[0]), default=-1)


def seconds_of(quoted_text):
    hours, minutes, seconds = quoted_text.strip('"').split(":")
    return int(hours) * 3600 + int(minutes) * 60 + int(seconds)


if __name__ == "__main__":
    unittest.main()
