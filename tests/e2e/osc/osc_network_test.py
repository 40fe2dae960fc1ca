#!/usr/bin/env python3
"""The network goes away and comes back: a surface hears the state of the recorder again within a moment."""

import os
import subprocess
import sys
import time

# Set in the copy of this test that has a network of its own.
MARK = "ZELTA_TEST_OWN_NETWORK"
SKIPPED = 77
if MARK not in os.environ:
    if subprocess.run(["unshare", "-rn", "true"], capture_output=True, check=False).returncode != 0:
        print("No network namespace is permitted here.")
        sys.exit(SKIPPED)
    os.environ[MARK] = "1"
    os.execvp("unshare", ["unshare", "-rn", sys.executable, *sys.argv])

import unittest

from osc_recorder import OSCTestCase
from surface import Surface

# Longer than a few attempts, so that a program that waits longer after each is found out.
OUTAGE = 7.0
# Two seconds, and what a busy machine may take for it.
LONGEST_DELAY = 3.5


def change_network(verb):
    """Without its address nothing leads to it, and every attempt to send fails."""
    subprocess.run(["ip", "address", verb, "127.0.0.1/8", "dev", "lo"], check=True)


class OSCNetworkTest(OSCTestCase):
    def setUp(self):
        super().setUp()
        self.surface = Surface()
        self.addCleanup(self.surface.close)
        self.recorder = self.start_recorder(self.surface.port)

    def change_while_the_network_is_away(self, title):
        change_network("delete")
        began = time.monotonic()
        self.recorder.write(f"title {title}")
        while time.monotonic() < began + OUTAGE:
            self.assertNotEqual(self.surface.newest().last_title, title)
            time.sleep(0.1)
        change_network("add")
        began = time.monotonic()
        self.surface.wait_for(lambda told: told.last_title == title, "the title after the outage")
        return time.monotonic() - began

    def test_a_running_clock_is_told_again_at_most_two_seconds_after_the_network_is_back(self):
        self.recorder.start_clock()
        self.surface.wait_for(lambda told: told.is_recording, "the clock to run")
        self.assertLess(self.change_while_the_network_is_away("Interview"), LONGEST_DELAY)

    def test_while_the_clock_stands_only_what_was_missed_is_sent_and_only_once(self):
        self.recorder.start_clock()
        self.surface.wait_for(lambda told: told.is_recording, "the clock to run")
        self.recorder.press("toggleRecording")
        self.surface.wait_for(lambda told: not told.is_recording, "the clock to stand")
        self.assertLess(self.change_while_the_network_is_away("Interview"), LONGEST_DELAY)
        self.assertEqual(list(self.surface.states(5.0)), [])


if __name__ == "__main__":
    subprocess.run(["ip", "link", "set", "lo", "up"], check=True)
    unittest.main()
