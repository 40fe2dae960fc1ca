"""A recorder that sends its time by Open Sound Control, as REAPER does."""

import socket
import struct
import threading
import time

from osc_recorder import encoded

INTERVAL = 1 / 30


class Player:
    """Its time line begins at `start`. Moments are those of the monotonic clock, which Zelta measures with as well."""

    def __init__(self, port, start=0.0, rate=1.0):
        self.peer = ("127.0.0.1", port)
        self.rate = rate
        self.socket = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        self.lock = threading.Lock()
        self.time, self.since = start, None
        self.origin = start
        self.is_silent = False
        self.is_over = threading.Event()
        self.thread = threading.Thread(target=self.run, daemon=True)
        self.thread.start()

    def time_at(self, moment):
        """Where the time line stands."""
        return self.time if self.since is None else self.time + (moment - self.since) * self.rate

    def position_at(self, moment):
        """Seconds of the recording."""
        return self.time_at(moment) - self.origin

    def run(self):
        while not self.is_over.wait(INTERVAL):
            with self.lock:
                self.send("/time", self.time_at(time.monotonic()))

    def send(self, address, value):
        if not self.is_silent:
            self.socket.sendto(encoded(address, ",f", struct.pack(">f", value)), self.peer)

    def record(self):
        with self.lock:
            self.origin, self.since = self.time, time.monotonic()
            self.send("/play", 1)
            self.send("/record", 1)

    def pause(self):
        with self.lock:
            self.time, self.since = self.time_at(time.monotonic()), None
            self.send("/pause", 1)

    def resume(self):
        with self.lock:
            self.since = time.monotonic()
            self.send("/pause", 0)

    def stop(self):
        with self.lock:
            self.time, self.since = self.time_at(time.monotonic()), None
            self.send("/play", 0)
            self.send("/record", 0)

    def jump(self, seconds):
        with self.lock:
            self.time += seconds

    def close(self):
        self.is_over.set()
        self.thread.join()
        self.socket.close()
