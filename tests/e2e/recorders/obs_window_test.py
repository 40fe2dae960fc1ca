#!/usr/bin/env python3
"""OBS Studio in the Recorder window: a wrong password, garbage, silence, a kill and lost seconds are told in the lamp, in the
window's state, in its log and in a bar, and the clock goes on. A server of ours stands in for OBS."""

import os
import time

from desktop import Desktop, wait_until
from obs_stand_in import StandInOBS
from osc_recorder import PROGRAM
from window import Window

PASSWORD = "open sesame"
# By so much the recorder is further on when it is back.
LEAP = 5.0


class OBSWindow:
    def __init__(self, desktop, port):
        settings = desktop.home / "config/zelta"
        settings.mkdir(parents=True)
        (settings / "zelta.conf").write_text(f"[General]\nZLOBSHostSetting=127.0.0.1\nZLOBSPortSetting={port}\n")
        self.window = Window(desktop, [PROGRAM]).wait_until_shown()
        self.accessible = self.window.accessible
        self.window.wait_for_keyboard()
        desktop.press("alt+v")
        desktop.press("r")
        self.frame = wait_until(self.find_frame, "the window of the recorder")

    def find_frame(self):
        return next(iter(self.accessible.find_all(self.accessible.application(), "frame", "Recorder")), None)

    def choose_obs(self):
        self.accessible.press(self.accessible.find(self.frame, "radio button", "OBS Studio"))

    def type_password(self, desktop, password):
        field = self.accessible.find(self.frame, "password text")
        field.queryComponent().grabFocus()
        desktop.press("ctrl+a")
        desktop.type(password)
        desktop.press("Return")

    def lamp(self):
        status = self.accessible.find_all(self.window.frame, "status bar")[0]
        names = [node.name for node in self.accessible.find_all(status, "push button") if self.accessible.is_showing(node)]
        return next((name for name in names if name.startswith("OBS Studio:")), "")

    def wait_for_lamp(self, text):
        wait_until(lambda: self.lamp().startswith(text), lambda: f"the lamp “{text}”, not {self.lamp()}")

    def wait_for_state(self, text):
        def labels():
            return [node.name for node in self.accessible.find_all(self.frame, "label")]

        wait_until(lambda: any(text in label for label in labels()), lambda: f"“{text}” in {labels()}")

    def wait_in_log(self, text):
        def rows():
            return self.accessible.table_texts(self.accessible.find(self.frame, "table", "What happened"))

        wait_until(lambda: any(text in row[-1] for row in rows()), lambda: f"“{text}” in {rows()}")


def main():
    with Desktop() as desktop:
        os.environ.pop("ZELTA_OBS_PASSWORD", None)
        studio = StandInOBS(PASSWORD)
        obs = OBSWindow(desktop, studio.port)
        obs.choose_obs()
        obs.wait_for_lamp("OBS Studio: refused")
        obs.wait_for_state("OBS Studio wants a password.")
        obs.type_password(desktop, "a wrong one")
        obs.wait_for_state("OBS Studio refuses the password.")
        obs.wait_in_log("OBS Studio refuses the password.")
        assert obs.lamp() == "OBS Studio: refused"
        obs.type_password(desktop, PASSWORD)
        obs.wait_for_lamp("OBS Studio: ready")

        studio.start_recording("/recordings/show.mkv")
        obs.wait_for_lamp("OBS Studio: following")
        obs.wait_in_log("OBS Studio records into /recordings/show.mkv.")
        studio.send_garbage(b"[]")
        obs.wait_in_log("is not OBS Studio.")
        obs.wait_for_lamp("OBS Studio: following")

        studio.is_mute = True
        obs.wait_for_lamp("OBS Studio: lost since ")
        obs.wait_for_state("OBS Studio has been lost since ")
        assert obs.window.is_recording()
        studio.began -= LEAP
        studio.is_mute = False
        obs.wait_for_lamp("OBS Studio: following")
        obs.wait_in_log("OBS Studio is back after")
        obs.window.wait_for_message(f"{LEAP:.1f} s ahead")
        obs.window.press("Keep Zelta's")
        obs.window.wait_for_no_message()

        studio.kill()
        obs.wait_for_lamp("OBS Studio: lost since ")
        time.sleep(1)
        studio.listen()
        obs.wait_for_lamp("OBS Studio: ready")
        obs.wait_in_log("OBS Studio is back and does not record.")
        assert obs.window.is_recording()
        obs.window.stop()
        studio.kill()


if __name__ == "__main__":
    main()
