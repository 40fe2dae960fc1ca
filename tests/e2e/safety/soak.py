#!/usr/bin/env python3
"""An hour of recording, without a window and in one, with a clock that goes faster than others: marks, removals, pauses
and new titles as quickly as they are answered. No descriptor may stay open, and the memory may grow by the undo history
alone, since the list itself stays short. Needs the package faketime. Not part of the tests:

soak.py PROGRAM [MINUTES_OF_RECORDING [SPEED]]
"""

import os
import random
import sys
import tempfile
import time
from pathlib import Path

import session_memory
from crash_programs import HeadlessProgram, WindowProgram
from desktop import Desktop
from surface import Surface, document_with_templates

PROGRAM = Path(sys.argv[1])
MINUTES = float(sys.argv[2]) if len(sys.argv) > 2 else 60.0
SPEED = float(sys.argv[3]) if len(sys.argv) > 3 else 30.0
FAKE_CLOCK = f"/usr/lib/{os.uname().machine}-linux-gnu/faketime/libfaketimeMT.so.1"
MOST_CHAPTERS = 200
COMMANDS_AT_ONCE = 24
MOST_BYTES_A_COMMAND = 1024  # Each one can be undone, which takes a few hundred.


def resident_kib(process):
    status = Path(f"/proc/{process.pid}/status").read_text()
    return int(status.split("VmRSS:")[1].split()[0])


def descriptors(process):
    return len(list(Path(f"/proc/{process.pid}/fd").iterdir()))


class Soak:
    def __init__(self, program, home):
        self.program = program
        self.chance = random.Random(1)
        self.surface = Surface()
        self.chapters = self.commands = self.edits = 0
        file = home / "show.zelta"
        file.write_bytes(document_with_templates([]))
        program.start(file, self.surface)
        program.wait_until_ready()
        self.press("toggleRecording")
        self.surface.wait_for(lambda told: told.is_recording, "the running clock")

    def press(self, action):
        self.commands += 1
        self.surface.send(self.program.port, action)

    def press_something(self):
        if self.chapters > MOST_CHAPTERS or (self.chapters > 1 and self.chance.random() < 0.4):
            self.chapters -= 1
            self.press("removeLastChapter")
        else:
            self.chapters += 1
            self.press("newChapter")

    def pause(self):
        """The answers to it say that all that was pressed before is done too."""
        self.press("toggleRecording")
        self.surface.wait_for(lambda told: not told.is_recording, "the pause")
        self.press("toggleRecording")
        self.surface.wait_for(lambda told: told.is_recording, "the end of the pause")

    def edit(self):
        self.edits += 1
        title = f"edit {self.edits}"
        self.program.edit_title(title)
        self.surface.wait_for(lambda told: told.selected_title == title, f"the title {title}")

    def run(self, seconds):
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            for _ in range(COMMANDS_AT_ONCE):
                self.press_something()
            self.chapters += 1
            self.press("newChapter")  # Which selects it.
            self.pause()
            self.edit()

    def measured(self):
        process = self.program.process
        return resident_kib(process), descriptors(process), self.commands + self.edits

    def judge(self, where):
        seconds = MINUTES * 60.0 / SPEED
        try:
            self.run(seconds / 4)  # Undo history and caches fill up.
            before = self.measured()
            self.run(seconds * 3 / 4)
            after = self.measured()
        finally:
            self.program.stop()
            self.surface.close()
        growth = (after[0] - before[0]) * 1024 / (after[2] - before[2])
        print(f"{MINUTES:.0f} minutes {where}: {after[2]} commands, among them {self.edits} new titles; after a quarter "
              f"{before[0]} KiB and {before[1]} descriptors, at the end {after[0]} KiB and {after[1]}; {growth:.0f} bytes "
              f"a command", flush=True)
        assert after[1] <= before[1] + 4, "descriptors leak"
        assert growth <= MOST_BYTES_A_COMMAND, "memory leaks"


def main():
    assert Path(FAKE_CLOCK).exists(), "the package faketime is not installed"
    program = ["env", f"LD_PRELOAD={FAKE_CLOCK}", f"FAKETIME=+0 x{SPEED:g}", PROGRAM]
    with tempfile.TemporaryDirectory(prefix="zelta-soak-") as home, session_memory.runtime_folder(home) as runtime:
        Soak(HeadlessProgram(program, home, runtime), Path(home)).judge("without a window")
    with Desktop() as desktop:
        Soak(WindowProgram(program, desktop), desktop.home).judge("in a window")


if __name__ == "__main__":
    main()
