"""Programs that others wrote, for the tests of the remote control: oscsend and oscdump of liblo-tools, and the node-osc
library. The library is fetched once into the build folder, in the version that the lock file names."""

import json
import os
import socket
import subprocess
import threading
from pathlib import Path

from desktop import wait_until
from peer_libraries import PeerLibraries

SOURCE = Path(__file__).resolve().parent / "osc_peers"


def free_port():
    with socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as chooser:
        chooser.bind(("127.0.0.1", 0))
        return chooser.getsockname()[1]


def oscsend(port, address, *arguments):
    """Types and values as the program takes them: oscsend(port, "/zl/newChapter", "f", 1)."""
    command = ["oscsend", "127.0.0.1", port, address, *arguments]
    subprocess.run([str(part) for part in command], check=True, timeout=30)


class Reader:
    """The lines that a program prints, read by a thread, so that the program never waits for a full pipe."""

    def __init__(self, process):
        self.process = process
        self.lines = []
        self.thread = threading.Thread(target=self._read, daemon=True)
        self.thread.start()

    def _read(self):
        for line in self.process.stdout:
            self.lines.append(line.rstrip("\n"))

    def stop(self):
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait()
        self.thread.join()
        for stream in (self.process.stdin, self.process.stdout):
            if stream:
                stream.close()


def start_reader(command, **options):
    return Reader(subprocess.Popen([str(part) for part in command], stdout=subprocess.PIPE, text=True, **options))


class OscDump:
    """Messages as (address, types, value), for example ("/zl/isRecording", "T", "#T")."""

    def __init__(self, port=None):
        self.port = port or free_port()
        self.reader = start_reader(["oscdump", "-L", self.port])

    def wait_until_it_listens(self):
        """It says nothing when it begins to listen, so it is called until it answers."""
        def answers():
            oscsend(self.port, "/hello")
            return any("/hello" in line for line in self.reader.lines)

        wait_until(answers, "oscdump to listen")

    def messages(self):
        found = []
        for line in list(self.reader.lines):
            _, address, *rest = line.split(" ", 3)
            if address != "/hello":
                types, value = (rest + ["", ""])[:2]
                found.append((address, types, value))
        return found

    def addresses(self):
        return [address for address, _, _ in self.messages()]

    def stop(self):
        self.reader.stop()


class NodeOsc:
    """The node-osc library; `folder` keeps it between runs."""

    def __init__(self, folder):
        self.folder = PeerLibraries(folder, SOURCE).folder

    def run(self, *arguments):
        subprocess.run(["node", str(SOURCE / "peer.js"), *map(str, arguments)], check=True, timeout=60,
                       env=self._environment())

    def listen(self, port):
        """A reader whose lines are JSON arrays; it listens already."""
        reader = start_reader(["node", SOURCE / "peer.js", "listen", port], env=self._environment())
        wait_until(lambda: reader.lines, "node-osc to listen")
        return reader

    @staticmethod
    def messages(reader):
        return [json.loads(line) for line in list(reader.lines)]

    def _environment(self):
        return {**os.environ, "NODE_PATH": str(self.folder / "node_modules")}
