"""The recorder without a window, as a control surface reaches it."""

import os
import re
import struct
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from desktop import wait_until
from osc_peers import OscDump, oscsend, start_reader

PROGRAM = Path(sys.argv.pop(1))

STATUS = ["/zl/isRecording", "/zl/lastChapterTitle", "/zl/selectedChapterTitle"]
CLOCK = ["/zl/currentTime", "/zl/currentChapterDuration"]


def encoded(address, types=",", values=b""):
    """A message by hand."""
    def padded(text):
        return text.encode() + b"\0" * (4 - len(text) % 4)

    return padded(address) + padded(types) + values


PRESS = encoded("/zl/newChapter", ",f", struct.pack(">f", 1))
RELEASE = encoded("/zl/newChapter", ",f", struct.pack(">f", 0))


class Recorder:
    """The program, and what it prints."""

    def __init__(self, home, *arguments, prefix=(), **environment):
        places = ("HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_RUNTIME_DIR")
        self.environment = {**os.environ, **{name: str(home) for name in places}, "TZ": "UTC", "LC_ALL": "C.UTF-8",
                            "LANGUAGE": "", **environment}
        self.reader = start_reader([*prefix, PROGRAM, "--headless", *arguments], stdin=subprocess.PIPE,
                                   stderr=subprocess.STDOUT, env=self.environment)
        wait_until(lambda: self.port_lines(), "the recorder to tell its port")
        self.port = int(self.port_lines()[0])

    def port_lines(self):
        return [found[1] for line in list(self.reader.lines) if (found := re.search(r"UDP port (\d+)", line))]

    def has_said(self, text):
        return any(text in line for line in list(self.reader.lines))

    def count(self, text):
        return sum(line.startswith(text) for line in list(self.reader.lines))

    def write(self, line):
        self.reader.process.stdin.write(line + "\n")
        self.reader.process.stdin.flush()

    def press(self, action):
        oscsend(self.port, f"/zl/{action}", "f", 1.0)

    def start_clock(self):
        self.press("toggleRecording")
        wait_until(lambda: self.has_said("recording from"), "the clock to start")
        self.wait_for_chapters(1)  # The start of a show is one.

    def wait_for_chapters(self, count):
        wait_until(lambda: self.count("chapter ") >= count, lambda: f"{count} chapters, not {self.reader.lines}")

    def send(self, *arguments):
        return subprocess.run([PROGRAM, "send", *map(str, arguments)], env=self.environment, capture_output=True,
                              text=True, timeout=60, check=False)


class OSCTestCase(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="zelta-osc-")
        self.addCleanup(folder.cleanup)
        self.home = Path(folder.name)
        self.file = self.home / "show.zelta"

    def start_recorder(self, *outputs, port=None):
        """On a port of its own unless told otherwise."""
        arguments = ["--osc-port", "0" if port is None else str(port)]
        for output in outputs:
            arguments += ["--osc-send", f"127.0.0.1:{output}"]
        recorder = Recorder(self.home, *arguments, self.file)
        self.addCleanup(recorder.reader.stop)
        return recorder

    def start_oscdump(self, port=None):
        dump = OscDump(port)
        self.addCleanup(dump.stop)
        return dump

    def start_with_oscdump(self):
        dump = self.start_oscdump()
        dump.wait_until_it_listens()
        return self.start_recorder(dump.port), dump

    def press_until_chapter(self, recorder, press=None):
        """One press gives one chapter, whatever came before it."""
        before = recorder.count("chapter ")
        (press or (lambda: recorder.press("newChapter")))()
        recorder.wait_for_chapters(before + 1)
        self.assertEqual(recorder.count("chapter "), before + 1)

    def wait_for_message(self, dump, *message):
        wait_until(lambda: message in dump.messages(), lambda: f"{message}, not {dump.messages()}")
