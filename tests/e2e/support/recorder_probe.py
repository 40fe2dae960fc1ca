"""What a recorder object of Zelta reports, as zelta_recorder_probe prints it, and the position that follows for a moment."""

import subprocess
import threading

import numpy
from desktop import wait_until


class Probe:
    def __init__(self, desktop, program, *recorder):
        self.process = desktop.start(program, *recorder, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                     stderr=subprocess.DEVNULL, text=True, bufsize=1)
        self.reports = []
        self.connections = []
        self.files = []
        self._thread = threading.Thread(target=self._read, daemon=True)
        self._thread.start()

    def _read(self):
        for line in self.process.stdout:
            kind, _, rest = line.rstrip("\n").partition(" ")
            if kind == "report":
                state, *numbers = rest.split()
                self.reports.append((state, *map(float, numbers)))
            elif kind == "connection":
                self.connections.append(rest)
            elif kind == "file":
                self.files.append(rest)

    def tell(self, word):
        self.process.stdin.write(word + "\n")
        self.process.stdin.flush()

    def end(self):
        self.process.stdin.close()
        self.process.wait(20)
        self._thread.join(20)
        self.process.stdout.close()

    def wait_for_state(self, state, seconds=30):
        wait_until(lambda: self.reports and self.reports[-1][0] == state, f"the recorder to be {state}", seconds)

    def wait_for_connection(self, number):
        wait_until(lambda: self.connections and self.connections[-1].startswith(str(number)),
                   f"the connection to be {number}")


def changes(reports):
    """The moments at which the state changed."""
    return numpy.array([late[2] for early, late in zip(reports, reports[1:]) if early[0] != late[0]])


def position_at(reports, moment):
    """Where the recording was at the moment, by the last report before it; None while it did not record."""
    before = [report for report in reports if report[2] <= moment]
    if not before or before[-1][0] != "recording":
        return None
    return before[-1][1] + moment - before[-1][2]
