#!/usr/bin/env python3
"""The transport of a JACK server, for a test that must outlive the server: the client library ends its process at times when
the server goes. As a program it reads a command a line (start, stop, locate FRAME, frame) and answers each with the frame."""

import subprocess
import sys
from pathlib import Path


class JackTransport:
    """Use as long as the server lives. `opened` is false when there is no server yet."""

    def __init__(self):
        self.process = subprocess.Popen(["/usr/bin/python3", Path(__file__).resolve()], stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        self.opened = self.process.stdout.readline() == "ready\n"
        if not self.opened:
            self.close()

    def ask(self, *words):
        print(*words, file=self.process.stdin, flush=True)
        return int(self.process.stdout.readline())

    def close(self):
        self.process.stdin.close()
        self.process.stdout.close()
        self.process.wait(10)


def main():
    import jack  # Here alone, since the library leaves threads behind.

    client = jack.Client("transport", no_start_server=True)
    client.activate()
    print("ready", flush=True)
    for line in sys.stdin:
        word, *frame = line.split()
        if word == "start":
            client.transport_start()
        elif word == "stop":
            client.transport_stop()
        elif word == "locate":
            client.transport_locate(int(frame[0]))
        print(client.transport_frame, flush=True)
    client.close()


if __name__ == "__main__":
    main()
