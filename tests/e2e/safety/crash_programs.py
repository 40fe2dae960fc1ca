"""The program that is killed again and again: without a window, and in one."""

import os
import signal
import subprocess
import time

from desktop import wait_until
from osc_peers import start_reader
from surface import stamp_of_line
from window import CONTINUE, KEEP, Window


class HeadlessProgram:
    """The recorder without a window; `program` is its command line up to the options."""

    LONGEST_START = 0.3  # Seconds until it is killed while it recovers.
    LONGEST_LIFE = 0.4  # Seconds from the first press to the kill.
    EDITS_A_PRESS = 0.03
    CAN_UNDO = False

    def __init__(self, program, home, runtime):
        self.program = program
        self.environment = {**os.environ, **{name: str(home) for name in ("HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME")},
                            "XDG_RUNTIME_DIR": str(runtime), "TZ": "UTC", "LC_ALL": "C.UTF-8"}
        self.reader = None

    def start(self, file, surface):
        self.stop()
        self.reader = start_reader(
            [*self.program, "--headless", "--osc-port", "0", "--osc-send", f"127.0.0.1:{surface.port}", file],
            stdin=subprocess.PIPE, stderr=subprocess.STDOUT, env=self.environment)
        self.process = self.reader.process

    def wait_until_ready(self):
        def told():
            assert self.is_alive(), self.reader.lines
            return [line for line in list(self.reader.lines) if line.startswith("OSC: UDP port ")]

        self.port = int(wait_until(told, "the recorder to tell its port")[0].split()[-1])

    def is_alive(self):
        return self.process.poll() is None

    def has_said(self, start, times=1):
        return sum(line.startswith(start) for line in list(self.reader.lines)) >= times

    def is_interrupted(self, _):
        wait_until(lambda: self.has_said("Commands come from"), "the start")
        self.write("status")  # Printed behind what is said of an interruption.
        wait_until(lambda: self.has_said("file: ", 2), "the status")
        return self.has_said("The recording was interrupted")

    def continue_clock(self):
        self.write("continue")
        wait_until(lambda: self.has_said("recording from"), lambda: f"the clock to go on, not {self.reader.lines}")

    def keep_clock_paused(self):
        self.write("keep")
        wait_until(lambda: self.has_said("paused at"), lambda: f"the answer, not {self.reader.lines}")

    def edit_title(self, title):
        self.write(f"title {title}")

    def write(self, line):
        try:
            os.write(self.process.stdin.fileno(), f"{line}\n".encode())
        except BrokenPipeError:  # Killed meanwhile.
            pass

    def told_stamps(self):
        """Title to seconds, of all chapters that were printed."""
        return dict(filter(None, map(stamp_of_line, list(self.reader.lines))))

    def kill(self):
        self.process.send_signal(signal.SIGKILL)
        self.process.wait()

    def stop(self):
        if self.reader:
            self.reader.stop()


class WindowProgram:
    """The program in a window, with a keyboard and a screen reader that presses the buttons of the bar."""

    LONGEST_START = 1.0
    LONGEST_LIFE = 0.8
    EDITS_A_PRESS = 0.06
    CAN_UNDO = True

    def __init__(self, program, desktop):
        self.program = program
        self.desktop = desktop
        self.window = None

    def start(self, file, surface):
        self.window = Window(self.desktop, self.program, file, osc_send=surface.port)
        self.port = self.window.osc_port
        self.process = self.window.process

    def wait_until_ready(self):
        self.window.wait_until_shown()
        self.window.wait_for_keyboard()

    def is_alive(self):
        return self.process.poll() is None

    def is_interrupted(self, possible_answers):
        """The bar is there with the window; only where either may be right it gets time to appear."""
        if possible_answers == {True}:
            wait_until(self.window.offers_to_continue, "the offer to continue")
        deadline = time.monotonic() + (1.0 if len(possible_answers) == 2 else 0.0)
        while not self.window.offers_to_continue():
            if time.monotonic() > deadline:
                return False
        return True

    def continue_clock(self):
        self.answer(CONTINUE)

    def keep_clock_paused(self):
        self.answer(KEEP)

    def answer(self, name):
        self.window.press(name)
        wait_until(lambda: not self.window.button(name), "the bar to go")

    def edit_title(self, title):
        self.desktop.xdotool("key", "F2", "key", "ctrl+a", "type", "--delay", 1, "--args", 1, title, "key", "Return")

    def undo(self):
        self.desktop.press("ctrl+z")

    def redo(self):
        self.desktop.press("ctrl+shift+z")

    @staticmethod
    def told_stamps():
        return {}

    def kill(self):
        self.window.kill()

    def stop(self):
        if self.window:
            self.window.stop()
