#!/usr/bin/env python3
"""Twenty thousand messages a second, good ones and garbage, while the window that lists them is open and the state goes
out: the windows answer the keyboard meanwhile, the memory stays as it is, and the next honest press counts. Longer than
in the tests: osc_flood_test.py PROGRAM SECONDS."""

import itertools
import os
import random
import socket
import struct
import sys
import threading
import time
from pathlib import Path

from desktop import Desktop, wait_until
from osc_peers import free_port, oscsend
from osc_recorder import PRESS, PROGRAM, RELEASE, encoded

SECONDS = float(sys.argv[1]) if len(sys.argv) > 1 else 2.0
MESSAGES_A_SECOND = 20_000
MESSAGES_A_BURST = 20
MOST_GROWTH_KIB = 8 * 1024


def messages():
    """As a stuck surface, a wrongly set one and a scanner would send them; none of them adds or removes a chapter."""
    chance = random.Random(9358)
    one = struct.pack(">f", 1)
    good = [encoded(f"/zl/select{which}Chapter", ",f", one) for which in ("Previous", "Next")]
    ignored = [RELEASE, encoded("/zl/newChapter"), encoded("/zl/NewChapter", ",f", one),
               *(encoded(f"/fader/{i}", ",f", one) for i in range(8))]
    bundle = b"#bundle\0" + struct.pack(">Q", 1) + b"".join(
        struct.pack(">I", len(message)) + message for message in (*good, RELEASE))
    garbage = [chance.randbytes(chance.randrange(1400)) for _ in range(8)]
    garbage += [PRESS[:-1], PRESS + b"\0", b"", b"#bundle\0", encoded("/zl/newChapter", ",[[[f", one)]
    mixed = [*good * 3, *ignored, bundle, *garbage]
    chance.shuffle(mixed)
    return mixed


class Flood(threading.Thread):
    """Runs for so many seconds at least, and until it is stopped."""

    def __init__(self, port, seconds):
        super().__init__()
        self.port = port
        self.seconds = seconds
        self.enough = threading.Event()
        self.sent = 0
        self.start()

    def run(self):
        begin = time.monotonic()
        datagrams = itertools.cycle(messages())
        with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as sender:
            while time.monotonic() - begin < self.seconds or not self.enough.is_set():
                for datagram in itertools.islice(datagrams, MESSAGES_A_BURST):
                    sender.sendto(datagram, ("127.0.0.1", self.port))
                self.sent += MESSAGES_A_BURST
                time.sleep(max(0.0, begin + self.sent / MESSAGES_A_SECOND - time.monotonic()))
        self.rate = self.sent / (time.monotonic() - begin)

    def stop(self):
        self.enough.set()
        self.join()


def resident_kib(process):
    status = Path(f"/proc/{process.pid}/status").read_text()
    return int(status.split("VmRSS:")[1].split()[0])


def main():
    # The sanitizer keeps freed memory for a while, which would look like growth.
    os.environ["ASAN_OPTIONS"] = os.environ.get("ASAN_OPTIONS", "") + ":quarantine_size_mb=1"
    with Desktop() as desktop, socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as surface:
        surface.bind(("127.0.0.1", 0))
        port = free_port()
        output = f"127.0.0.1:{surface.getsockname()[1]}"
        with open(desktop.home / "log", "wb") as log:
            process = desktop.start(PROGRAM, "--osc-port", port, "--osc-send", output, stderr=log)
        import accessible  # The bindings look for their bus when they are imported.

        program = accessible.application()
        frame = accessible.find(program, "frame")
        table = accessible.find(frame, "table", "Chapters")

        def wait_for_titles(*titles):
            def shown():
                return [row[4] for row in accessible.table_texts(table)]

            wait_until(lambda: shown() == list(titles), lambda: f"the titles {titles}, not {shown()}")

        oscsend(port, "/zl/toggleRecording", "f", 1)
        wait_for_titles("")
        oscsend(port, "/zl/newChapter", "f", 1)
        wait_for_titles("", "")

        accessible.press(accessible.find(frame, None, f"OSC {port}"))
        messages_shown = accessible.find(accessible.find(program, None, "OSC Connections"), "table", "Messages")
        Flood(port, 1).stop()  # Queues and logs are full from now on.
        before = resident_kib(process)
        flood = Flood(port, SECONDS)
        desktop.press("Escape")
        wait_until(lambda: not accessible.is_showing(messages_shown), "the connections to close")
        wait_until(lambda: accessible.is_active(frame), "the keyboard to be back at the document")
        desktop.press("ctrl+Return")
        wait_for_titles("", "", "")
        assert flood.is_alive(), "the flood was over before the window answered"
        flood.stop()
        after = resident_kib(process)
        print(f"{flood.sent} messages, {flood.rate:.0f} a second; resident memory {before} KiB before, {after} after")
        assert after - before < MOST_GROWTH_KIB, "the memory grows with the messages"

        oscsend(port, "/zl/newChapter", "f", 1)
        wait_for_titles("", "", "", "")
        assert process.poll() is None, (desktop.home / "log").read_text()[-4000:]


if __name__ == "__main__":
    main()
