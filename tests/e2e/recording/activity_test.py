"""What the program asks of the system so that a show is not cut off, with a system that keeps account of it."""

import os
import signal
import subprocess
import sys
import unittest
from pathlib import Path

import dbus
import dbus.bus

from desktop import Desktop, wait_until

PROGRAM = Path(sys.argv.pop(1))
MOCK = Path(__file__).resolve().parents[2] / "platform/activity/inhibition_mock.py"
LOGIND = "org.freedesktop.login1"
SESSION_MANAGER = "org.gnome.SessionManager"
PORTAL = "org.freedesktop.portal.Desktop"

AWAKE = [
    "logind idle block Zelta: receiving OSC messages",
    "logind shutdown delay Zelta: receiving OSC messages",
    "session 4 org.zelta.Zelta: receiving OSC messages",
]
RECORDING = [
    "logind shutdown block Zelta: A recording is running.",
    "session 1 org.zelta.Zelta: A recording is running.",
]


class ActivityTest(unittest.TestCase):
    def setUp(self):
        self.desktop = Desktop()
        self.desktop.__enter__()
        self.addCleanup(self.desktop.__exit__)
        # One bus is both the session's and the system's.
        os.environ["DBUS_SYSTEM_BUS_ADDRESS"] = os.environ["DBUS_SESSION_BUS_ADDRESS"]

    def start_system(self, *services):
        mock = self.desktop.start("/usr/bin/python3", MOCK, *services, stdout=subprocess.PIPE, text=True)
        self.assertEqual(mock.stdout.readline().strip(), "ready")

    def start_program(self, *arguments):
        return self.desktop.start(PROGRAM, "--osc-port", "0", *arguments, stdin=subprocess.PIPE,
                                  stdout=subprocess.DEVNULL)

    @staticmethod
    def held():
        bus = dbus.bus.BusConnection(os.environ["DBUS_SESSION_BUS_ADDRESS"])
        try:
            return [str(line) for line in bus.call_blocking(
                "org.zelta.Test", "/control", "org.zelta.Test", "Held", "", ())]
        finally:
            bus.close()

    def wait_for_held(self, *lines):
        wait_until(lambda: self.held() == sorted(lines), lambda: f"{sorted(lines)}, not {self.held()}")

    def press_record(self):
        subprocess.run([PROGRAM, "send", "toggleRecording"], check=True, timeout=60, stdout=subprocess.DEVNULL)

    def record_and_end(self, *arguments):
        program = self.start_program(*arguments)
        self.wait_for_held(*AWAKE)
        self.press_record()
        self.wait_for_held(*AWAKE, *RECORDING)
        self.press_record()
        self.wait_for_held(*AWAKE)
        program.send_signal(signal.SIGTERM)
        self.assertEqual(program.wait(20), 0)
        self.wait_for_held()

    def test_the_system_stays_awake_as_long_as_the_program_runs(self):
        self.start_system(LOGIND, SESSION_MANAGER, PORTAL)
        self.record_and_end()

    def test_so_it_does_without_a_window(self):
        self.start_system(LOGIND, SESSION_MANAGER, PORTAL)
        self.record_and_end("--headless")

    def test_a_program_that_dies_leaves_nothing_behind(self):
        self.start_system(LOGIND, SESSION_MANAGER)
        program = self.start_program()
        self.wait_for_held(*AWAKE)
        self.press_record()
        self.wait_for_held(*AWAKE, *RECORDING)
        program.kill()
        program.wait()
        self.wait_for_held()

    def test_in_a_sandbox_the_portal_is_asked(self):
        os.environ["DBUS_SYSTEM_BUS_ADDRESS"] = f"unix:path={self.desktop.home}/no-system-bus"
        self.start_system(PORTAL)
        program = self.start_program()
        self.wait_for_held("portal 4: receiving OSC messages")
        self.press_record()
        self.wait_for_held("portal 4: receiving OSC messages", "portal 1: A recording is running.")
        program.send_signal(signal.SIGTERM)
        self.assertEqual(program.wait(20), 0)
        self.wait_for_held()


if __name__ == "__main__":
    unittest.main()
