#!/usr/bin/env python3
"""Listening along in a window: the question of the first time, the input, the lamp, silence, an input that is pulled out,
a kill in the middle of a show, marks from outside, and the data that goes again.

    listening_window_test.py PROGRAM
"""

import json
import math
import plistlib
import struct
import subprocess
import sys
import unittest
import wave
from pathlib import Path

from desktop import Desktop, kill_at_once, wait_until
from sound_server import SoundServer

PROGRAM = Path(sys.argv.pop(1))

OUTPUTS = """load-module module-null-sink sink_name=other sink_properties="device.description='Other\\ Card'" norewinds=1
set-default-sink other
"""


def pactl(*words):
    return subprocess.run(["pactl", *words], capture_output=True, text=True, check=True).stdout.strip()


class ListeningWindowTest(unittest.TestCase):
    def start_sound_server(self, desktop):
        SoundServer(desktop, OUTPUTS)
        self.plug_in()

    def plug_in(self):
        self.studio = pactl("load-module", "module-null-sink", "sink_name=studio", "norewinds=1",
                            "sink_properties=device.description='Studio'")

    def pull_out(self):
        pactl("unload-module", self.studio)

    def tone(self, desktop):
        """A warbling tone on the studio's output, as long as it lives."""
        path = desktop.home / "tone.wav"
        with wave.open(str(path), "wb") as file:
            file.setparams((1, 2, 8000, 0, "NONE", ""))
            file.writeframes(b"".join(struct.pack("<h", int(9000 * math.sin(n * n / 60000.0))) for n in range(8000 * 60)))
        return desktop.start("paplay", "-d", "studio", path)

    def start_program(self, desktop, *arguments):
        process = desktop.start(PROGRAM, *arguments)
        import accessible

        self.accessible = accessible
        self.frame = accessible.find(accessible.application(), "frame")
        return process

    def part(self):
        """What the status line says of listening along."""
        buttons = self.accessible.find_all(self.frame, "push button")
        return next((button.name for button in buttons if button.name in ("Listening", "Silence", "No input")), None)

    def wait_for_part(self, text, seconds=60.0):
        wait_until(lambda: self.part() == text, lambda: f"the status line to read {text}, not {self.part()}", seconds=seconds)

    def messages(self):
        return [label.name for label in self.accessible.find_all(self.frame, "label")]

    def choose(self, desktop, prefix):
        """An item of the menu of listening along."""
        item = wait_until(lambda: next((found for role in ("check menu item", "menu item", "radio menu item")
                                        for found in self.accessible.find_all(self.frame, role)
                                        if found.name.startswith(prefix)), None), f"the item {prefix}")
        self.accessible.press(item)

    def test_listening_along_in_a_window(self):
        with Desktop() as desktop:
            self.start_sound_server(desktop)
            document = desktop.home / "show.zelta"
            subprocess.run([PROGRAM, "--headless", document], input="quit\n", text=True, capture_output=True, check=True)
            process = self.start_program(desktop, document)
            self.assertIsNone(self.part())
            self.switch_on(desktop)
            tone = self.tone(desktop)
            desktop.press("ctrl+r")
            listening = wait_until(lambda: list(desktop.home.rglob("*.listening")), "the show to be kept")
            wait_until(lambda: listening[0].stat().st_size > 1500, "some seconds of the show")
            kill_at_once(process)
            # What was agreed to needs no second question.
            self.start_program(desktop, document)
            self.wait_for_part("Listening")
            self.assertIn("Listening", plistlib.loads(document.read_bytes())["$objects"])
            desktop.press("ctrl+r")
            self.show_trouble(desktop, tone)
            desktop.press("ctrl+r")
            self.remove(desktop, document)

    def switch_on(self, desktop):
        self.choose(desktop, "Monitor of Studio")
        self.choose(desktop, "Listen Along to the Show")
        wait_until(lambda: any("No sound is kept" in text for text in self.messages()), "the question")
        self.assertIsNone(self.part())
        self.accessible.press(self.accessible.find(self.frame, "push button", "Listen Along"))
        self.wait_for_part("Listening")

    def show_trouble(self, desktop, tone):
        """Silence and a pulled plug are told at the bottom; nothing asks, and the clock goes on."""
        tone.kill()
        tone.wait()
        self.wait_for_part("Silence")
        self.assertTrue(any("Nothing has been heard" in text for text in self.messages()), self.messages())
        self.pull_out()
        self.wait_for_part("No input")
        self.assertTrue(any("is missing" in text for text in self.messages()), self.messages())
        self.plug_in()
        self.wait_for_part("Listening")

    def remove(self, desktop, document):
        def kept():
            return "Listening" in plistlib.loads(document.read_bytes())["$objects"]

        wait_until(kept, "what was heard to be in the document")
        self.choose(desktop, "Remove Listening Data")
        wait_until(lambda: not kept(), "it to be gone from the document")
        desktop.press("ctrl+z")
        wait_until(kept, "it to be back")
        chapters = subprocess.run([PROGRAM, "show", "--json", document], capture_output=True, text=True, check=True)
        self.assertGreaterEqual(len(json.loads(chapters.stdout)["chapters"]), 1)


if __name__ == "__main__":
    unittest.main()
