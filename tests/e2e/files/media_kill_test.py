#!/usr/bin/env python3
"""Writing chapters into audio files, killed at random moments: the file is the old one or the new one, with nothing beside.

media_kill_test.py PROGRAM [ROUNDS [SEED]]
"""

import hashlib
import random
import shutil
import subprocess
import sys
import tempfile
import time
from pathlib import Path

from surface import archive

PROGRAM = Path(sys.argv[1])
ROUNDS = int(sys.argv[2]) if len(sys.argv) > 2 else 10
SEED = int(sys.argv[3]) if len(sys.argv) > 3 else 1
SIZE = 150_000_000


def document(folder, name, count):
    chapters = [{"TimeStamp": float(index), "Enabled": True, "Title": f"{name} {index}", "Link": "", "Tags": ""}
                for index in range(count)]
    path = folder / f"{name}.zelta"
    path.write_bytes(archive({"Chapters": chapters, "Duration": 0.0, "Templates": []}))
    return path


def large_mp3(folder):
    frame = bytes((0xFF, 0xFB, 0x90, 0x64)) + bytes(413)
    path = folder / "show.mp3"
    path.write_bytes(frame * (SIZE // len(frame)))
    return path


def digest(path):
    return hashlib.sha256(path.read_bytes()).hexdigest()


def write_command(path, audio):
    return [PROGRAM, "write", path, audio]


class KillTest:
    def __init__(self, folder):
        self.folder = folder
        self.audio = large_mp3(folder)
        self.documents = [document(folder, "first", 12), document(folder, "second", 90)]
        self.states, self.seconds = self.known_states()
        self.random = random.Random(SEED)

    def known_states(self):
        """What the file may be: as it was, and with each list of chapters; and how long a writing takes."""
        states, seconds = {digest(self.audio)}, 0.0
        for each in self.documents:
            begin = time.monotonic()
            subprocess.run(write_command(each, self.audio), check=True, capture_output=True)
            seconds = max(seconds, time.monotonic() - begin)
            states.add(digest(self.audio))
        assert len(states) == 3
        # From the second list back to the first one the tag keeps its size, with more padding.
        subprocess.run(write_command(self.documents[0], self.audio), check=True, capture_output=True)
        states.add(digest(self.audio))
        return states, seconds

    def round(self, index):
        process = subprocess.Popen(write_command(self.documents[(index + 1) % 2], self.audio), stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL)
        time.sleep(self.random.uniform(0.0, self.seconds * 1.1))
        process.kill()
        was_killed = process.wait() == -9
        assert digest(self.audio) in self.states, f"round {index}: the file is neither the old nor a new one"
        leftovers = [path.name for path in self.folder.iterdir() if path.name.startswith("show.mp3.")]
        # Between the moment at which the whole new file gets a name and its renaming, it can stay behind.
        for name in leftovers:
            assert digest(self.folder / name) in self.states, f"round {index}: a part of a file is left: {name}"
            (self.folder / name).unlink()
        return was_killed


def main():
    folder = Path(tempfile.mkdtemp(prefix="zelta-media-kill-"))
    try:
        test = KillTest(folder)
        kills = sum(test.round(index) for index in range(ROUNDS))
        assert kills > ROUNDS / 4, f"only {kills} of {ROUNDS} writings were still going on"
        print(f"{ROUNDS} rounds, {kills} kills, {test.seconds:.2f} s a writing: the old file or the new one each time")
    finally:
        shutil.rmtree(folder)


if __name__ == "__main__":
    main()
