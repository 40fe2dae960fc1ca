#!/usr/bin/env python3
"""The program is killed at random moments while a control surface presses at speed, and started again. Nothing that was
acknowledged may be missing, no file may be unreadable, and the clock goes on as if it had never stopped.

More rounds, or the same ones again: crash_test.py PROGRAM [ROUNDS [SEED]]
"""

import json
import os
import random
import signal
import subprocess
import sys
import tempfile
import threading
import time
from pathlib import Path

from desktop import Desktop, wait_until
from osc_peers import free_port, start_reader
from surface import ClockBounds, Show, Surface, document_with_templates, stamp_of_line

PROGRAM = Path(sys.argv[1])
ROUNDS = int(sys.argv[2]) if len(sys.argv) > 2 else 20
SEED = int(sys.argv[3]) if len(sys.argv) > 3 else random.randrange(1 << 32)
ROUNDS_OF_ONE_SHOW = 10
TITLES_OF_ONE_SHOW = 3000
LONGEST_LIFE = 0.4  # Seconds from the first press to the kill.
MOST_CLOCK_ERROR = 0.1  # Seconds.
CONTINUE = "Continue the running clock"


class HeadlessProgram:
    """The recorder without a window."""

    LONGEST_START = 0.3

    def __init__(self, home):
        self.environment = {**os.environ, **{name: str(home) for name in (
            "HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_RUNTIME_DIR")}, "TZ": "UTC", "LC_ALL": "C.UTF-8"}
        self.reader = None

    def start(self, file, surface):
        self.stop()
        self.reader = start_reader(
            [PROGRAM, "--headless", "--osc-port", "0", "--osc-send", f"127.0.0.1:{surface.port}", file],
            stdin=subprocess.PIPE, stderr=subprocess.STDOUT, env=self.environment)
        self.process = self.reader.process

    def port(self):
        """Waits until the program listens."""
        def told():
            assert self.process.poll() is None, self.reader.lines
            return [line for line in list(self.reader.lines) if line.startswith("OSC: UDP port ")]

        return int(wait_until(told, "the recorder to tell its port")[0].split()[-1])

    def is_interrupted(self):
        wait_until(lambda: any(line.startswith("Commands come from") for line in list(self.reader.lines)), "the start")
        self.write("status")  # Printed behind what is said of an interruption.
        wait_until(lambda: sum(line.startswith("file: ") for line in list(self.reader.lines)) >= 2, "the status")
        return any("was interrupted" in line for line in list(self.reader.lines))

    def continue_clock(self):
        self.write("continue")
        wait_until(lambda: any(line.startswith("recording from") for line in list(self.reader.lines)),
                   f"the clock to go on, not {self.reader.lines}")

    def write(self, line):
        self.process.stdin.write(line + "\n")
        self.process.stdin.flush()

    def told_stamps(self):
        """Title to seconds, of all new chapters that were printed."""
        return dict(filter(None, map(stamp_of_line, list(self.reader.lines))))

    def stop(self):
        if self.reader:
            self.reader.stop()


class WindowProgram:
    """The program in a window, which a screen reader can press buttons in."""

    LONGEST_START = 1.0

    def __init__(self, desktop):
        self.desktop = desktop
        self.process = None

    def start(self, file, surface):
        self.osc_port = free_port()
        with open(self.desktop.home / "crash.log", "ab") as log:
            self.process = self.desktop.start(PROGRAM, "--osc-port", self.osc_port, "--osc-send",
                                              f"127.0.0.1:{surface.port}", file, stdout=log, stderr=log)

    def port(self):
        import accessible  # The bindings look for their bus when they are imported.

        def find_frame():
            assert self.process.poll() is None, (self.desktop.home / "crash.log").read_text()[-4000:]
            for child in accessible.pyatspi.Registry.getDesktop(0):
                if child is not None and child.name == "zelta" and child.get_process_id() == self.process.pid:
                    return (accessible.find_all(child, "frame") or [None])[0]
            return None

        self.frame = wait_until(find_frame, "the window")
        return self.osc_port

    def continue_button(self):
        import accessible
        return (accessible.find_all(self.frame, "push button", CONTINUE) or [None])[0]

    def is_interrupted(self):
        return wait_until(self.continue_button, "the offer to continue") is not None

    def continue_clock(self):
        import accessible
        accessible.press(self.continue_button())
        wait_until(lambda: self.continue_button() is None, "the bar to go")

    @staticmethod
    def told_stamps():
        return {}

    def stop(self):
        if self.process and self.process.poll() is None:
            self.process.kill()
            self.process.wait()


def contents_of(file):
    """What another start of the program reads in the file."""
    shown = subprocess.run([PROGRAM, "show", "--json", file], capture_output=True, text=True, timeout=60, check=False)
    assert shown.returncode == 0, f"{file} cannot be read: {shown.stderr}"
    return json.loads(shown.stdout)


def titles_of(chapters):
    return tuple(chapter["title"] for chapter in chapters)


class Rounds:
    """One show after the other, each of several lives that end by a kill."""

    def __init__(self, program, home, chance):
        self.program = program
        self.home = home
        self.chance = chance
        self.surface = Surface()
        self.presses = self.kills = self.rescued = 0
        self.clock_error = 0.0

    def run(self, count):
        try:
            for begin in range(0, count, ROUNDS_OF_ONE_SHOW):
                self.run_show(begin, min(ROUNDS_OF_ONE_SHOW, count - begin))
        finally:
            self.program.stop()
            self.surface.close()

    def run_show(self, number, rounds):
        self.file = self.home / f"show{number}.zelta"
        self.titles = [f"{number}-{index}" for index in range(TITLES_OF_ONE_SHOW)]
        self.file.write_bytes(document_with_templates(self.titles))
        self.show = Show(list(self.titles))
        self.first_clock = self.clock = ClockBounds()
        self.told_stamps = {}
        self.start()
        # The start of the clock makes the first chapter.
        self.surface.press_and_wait(self.show, self.port, "toggleRecording")
        for _ in range(rounds):
            self.press_until_killed()
            self.start_again()
            self.compare()
        self.kill()

    def start(self):
        self.program.start(self.file, self.surface)
        self.port = self.program.port()

    def kill(self):
        self.program.process.send_signal(signal.SIGKILL)
        self.program.process.wait()
        self.kills += 1

    def press_until_killed(self):
        before = len(self.show.states)
        process = self.program.process
        killer = threading.Timer(self.chance.uniform(0.0, LONGEST_LIFE), self.kill)
        killer.start()
        self.surface.press_at_speed(self.show, self.port, self.chance, lambda: process.poll() is None, self.clock)
        killer.join()
        self.surface.read(self.show, self.clock)  # What was told before the death counts.
        self.told_stamps.update(self.program.told_stamps())
        self.presses += len(self.show.states) - before

    def start_again(self):
        while self.chance.random() < 0.3:  # Some are killed while they recover.
            self.program.start(self.file, self.surface)
            time.sleep(self.chance.uniform(0.0, self.program.LONGEST_START))
            self.kill()
        self.titles_in_file = titles_of(contents_of(self.file)["chapters"])
        self.start()
        assert self.program.is_interrupted(), "the recording was not offered to be continued"
        self.program.continue_clock()

    def compare(self):
        """A new mark reaches the file together with all that was recovered."""
        before = self.surface.newest_title()
        pressed = time.time()
        self.surface.send(self.port, "newChapter")
        new_title = wait_until(lambda: self.surface.newest_title(other_than=before), "the mark to be acknowledged")
        confirmed = time.time()
        contents = wait_until(lambda: self.contents_with(new_title), f"{new_title} to be in the file")
        chapters = contents["chapters"]
        self.check_titles(titles_of(chapters)[:-1], [new_title, *titles_of(contents["templates"])])
        self.check_stamps({chapter["title"]: chapter["timeStamp"] for chapter in chapters})
        clock = ClockBounds()
        clock.see_reading(chapters[-1]["timeStamp"], pressed, confirmed)
        self.check_clock(clock)
        self.show = Show(list(titles_of(contents["templates"])), [titles_of(chapters)])

    def contents_with(self, title):
        contents = contents_of(self.file)
        return contents if titles_of(contents["chapters"])[-1:] == (title,) else None

    def check_titles(self, recovered, unused):
        assert recovered in self.show.states[self.show.acknowledged:], (
            "acknowledged was", self.show.states[self.show.acknowledged][-20:], "pressed was",
            self.show.states[-1][-20:], "but recovered is", recovered[-20:])
        assert unused == self.titles[-len(unused):], ("templates are missing or came back", unused[:5])
        self.rescued += recovered != self.titles_in_file

    def check_stamps(self, stamps):
        for title, told in self.told_stamps.items():
            assert abs(stamps.get(title, told) - told) < 0.001, (title, told, stamps[title])
        for title, pressed in self.show.pressed.items():
            if title in stamps and title in self.show.confirmed:
                self.clock.see_reading(stamps[title], pressed, self.show.confirmed[title])

    def check_clock(self, clock):
        for earlier in (self.clock, self.first_clock):
            error = clock.distance_to(earlier)
            self.clock_error = max(self.clock_error, error)
            assert error <= MOST_CLOCK_ERROR, f"the clock is wrong by {error} s"
        self.clock = clock


def run_headless(rounds, chance):
    with tempfile.TemporaryDirectory(prefix="zelta-crash-") as folder:
        run = Rounds(HeadlessProgram(folder), Path(folder), chance)
        run.run(rounds)
    report("without a window", rounds, run)


def run_in_window(rounds, chance):
    with Desktop() as desktop:
        run = Rounds(WindowProgram(desktop), desktop.home, chance)
        run.run(rounds)
    report("in a window", rounds, run)


def report(where, rounds, run):
    print(f"{rounds} rounds {where}: {run.presses} presses, {run.kills} kills, nothing acknowledged was missing; in "
          f"{run.rescued} rounds the file alone was behind; the clock was wrong by {run.clock_error:.4f} s at most",
          flush=True)


def main():
    print(f"seed {SEED}", flush=True)
    in_window = ROUNDS // 4
    run_headless(ROUNDS - in_window, random.Random(SEED))
    run_in_window(in_window, random.Random(SEED + 1))
    print("1 passed, 0 failed")


if __name__ == "__main__":
    main()
