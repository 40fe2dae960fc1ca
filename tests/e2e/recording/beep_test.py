#!/usr/bin/env python3
"""The beep is switched on in the preferences, an output is chosen there, and the next recording is heard on it."""

import os
import subprocess
import sys
import unittest
from pathlib import Path

from desktop import Desktop, wait_until

PROGRAM = Path(sys.argv.pop(1))

OUTPUTS = """load-module module-native-protocol-unix auth-anonymous=1 socket={socket}
load-module module-null-sink sink_name=left_card sink_properties="device.description='Left\\ Card'" norewinds=1
load-module module-null-sink sink_name=right_card sink_properties="device.description='Right\\ Card'" norewinds=1
set-default-sink left_card
"""


class SoundServer:
    """A sound server with two outputs, and an ear at each."""

    def __init__(self, desktop):
        self.desktop = desktop
        socket = desktop.home / "pulse.socket"
        script = desktop.home / "pulse.pa"
        script.write_text(OUTPUTS.format(socket=socket))
        os.environ["PULSE_SERVER"] = f"unix:{socket}"
        desktop.start("pulseaudio", "-n", "-F", script, "--daemonize=no", "--exit-idle-time=-1", "--disable-shm=yes",
                      "--use-pid-file=no", "--realtime=no", "--high-priority=no", "--log-level=error")
        wait_until(lambda: subprocess.run(["pactl", "info"], capture_output=True, check=False).returncode == 0,
                   "the sound server to answer")

    def listen(self, output):
        """Returns the file that everything which is played there goes into."""
        heard = self.desktop.home / f"{output}.raw"
        with heard.open("wb") as file:
            self.desktop.start("parec", "-d", f"{output}.monitor", "--format=s16le", "--latency-msec=20", stdout=file)
        wait_until(lambda: heard.stat().st_size > 0, f"the ear at {output}")
        return heard


def is_silent(heard):
    return not any(heard.read_bytes())


class BeepTest(unittest.TestCase):
    def test_the_beep_is_heard_on_the_chosen_output_alone(self):
        with Desktop() as desktop:
            server = SoundServer(desktop)
            left, right = server.listen("left_card"), server.listen("right_card")
            desktop.start(PROGRAM)
            import accessible

            tree = accessible.application()
            accessible.find(tree, "frame", "Untitled — Zelta")
            desktop.press("ctrl+comma")
            pane = accessible.find(tree, "frame", "General")
            accessible.press(accessible.find(pane, "check box", "Beep before the recording starts"))
            self.choose_right_card(desktop, accessible, pane)
            desktop.press("Escape")
            frame = wait_until(lambda: next((f for f in accessible.find_all(tree, "frame") if "Zelta" in f.name), None),
                               "the document window")
            accessible.press(accessible.find(frame, "push button", "Start"))
            wait_until(lambda: not is_silent(right), "the beep on the chosen output")
            # The clock waits for the sound to end, and then the first chapter stands at its beginning.
            table = accessible.find(frame, "table")
            wait_until(lambda: table.queryTable().nRows == 1, "the recording to start")
            self.assertTrue(is_silent(left))

    def choose_right_card(self, desktop, accessible, pane):
        accessible.find(pane, "combo box", "Left Card")
        desktop.press("alt+o", "Down")
        settings = desktop.home / "config/zelta/zelta.conf"
        wait_until(lambda: "ZLAudioOutputDeviceSetting=right_card" in settings.read_text(), "the output to be stored")


if __name__ == "__main__":
    unittest.main()
