#!/usr/bin/env python3
"""Records at speed for an hour: marks, removals, edits, pauses. No descriptor may stay open, and the memory may grow
by the undo history alone, since the list itself stays short. Not part of the tests: soak.py PROGRAM [SECONDS]
"""

import random
import sys
import tempfile
import time
from pathlib import Path

from osc_recorder import Recorder  # Takes the program from the arguments.

SECONDS = float(sys.argv[1]) if len(sys.argv) > 1 else 3600.0
MOST_CHAPTERS = 200
COMMANDS_AT_ONCE = 25
MOST_BYTES_A_COMMAND = 1024  # Each one can be undone, which takes a few hundred.


def resident_kib(process):
    status = Path(f"/proc/{process.pid}/status").read_text()
    return int(status.split("VmRSS:")[1].split()[0])


def descriptors(process):
    return len(list(Path(f"/proc/{process.pid}/fd").iterdir()))


class Soak:
    def __init__(self, recorder):
        self.recorder = recorder
        self.chance = random.Random(1)
        self.chapters = self.commands = 0
        recorder.start_clock()

    def command(self):
        self.commands += 1
        if self.chapters > MOST_CHAPTERS or (self.chapters > 1 and self.chance.random() < 0.3):
            self.chapters -= 1
            return "removeLastChapter"
        if self.chance.random() < 0.4:
            return f"title edit {self.commands}"
        self.chapters += 1
        return "newChapter"

    def run(self, seconds):
        """Each batch is over when its status is told, so that none waits in a pipe."""
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            for _ in range(COMMANDS_AT_ONCE):
                self.recorder.write(self.command())
            self.recorder.reader.lines.clear()
            self.recorder.write("status")
            while not self.recorder.has_said("OSC: UDP port"):
                assert self.recorder.reader.process.poll() is None, self.recorder.reader.lines[-20:]
                time.sleep(0.002)


def main():
    with tempfile.TemporaryDirectory(prefix="zelta-soak-") as home:
        recorder = Recorder(home, "--osc-port", "0", Path(home) / "show.zelta")
        process = recorder.reader.process
        try:
            soak = Soak(recorder)
            soak.run(SECONDS / 4)  # Undo history and caches fill up.
            before = resident_kib(process), descriptors(process), soak.commands
            soak.run(SECONDS * 3 / 4)
            after = resident_kib(process), descriptors(process), soak.commands
        finally:
            recorder.reader.stop()
    growth = (after[0] - before[0]) * 1024 / (after[2] - before[2])
    print(f"{after[2]} commands; after a quarter {before[0]} KiB and {before[1]} descriptors, at the end {after[0]} KiB "
          f"and {after[1]}; {growth:.0f} bytes a command")
    assert after[1] <= before[1] + 4, "descriptors leak"
    assert growth <= MOST_BYTES_A_COMMAND, "memory leaks"


if __name__ == "__main__":
    main()
