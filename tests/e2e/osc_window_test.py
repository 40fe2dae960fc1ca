#!/usr/bin/env python3
"""A press on a control surface while another program is in front: the chapter is there, the keyboard stays where it is."""

import subprocess
import sys
from pathlib import Path

from desktop import Desktop, wait_until
from osc_peers import OscDump, free_port, oscsend, start_reader

PROGRAM = Path(sys.argv[1])


def focused_window():
    answer = subprocess.run(["xdotool", "getwindowfocus"], capture_output=True, text=True, check=False)
    return answer.stdout.strip()


class OtherProgram:
    """A window that prints the keys it is given."""

    def __init__(self, desktop):
        self.reader = start_reader(["xev", "-event", "keyboard"])
        self.window = wait_until(self.find, "the other program's window")
        wait_until(self.take_the_keyboard, "the other program to have the keyboard")

    @staticmethod
    def find():
        answer = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "Event Tester"], capture_output=True,
                                text=True, check=False)
        return answer.stdout.strip()

    def take_the_keyboard(self):
        subprocess.run(["xdotool", "windowactivate", "--sync", self.window], check=True, timeout=30)
        return focused_window() == self.window

    def has_got(self, text):
        """Whether it was given these keys in this order, and no other."""
        keys = [line.split("keysym")[1].split(",")[1].strip(" )") if "keysym" in line else ""
                for line in list(self.reader.lines) if "keysym" in line]
        return "".join(keys[::2]) == text


def main():
    with Desktop() as desktop:
        dump = OscDump()
        dump.wait_until_it_listens()
        port = free_port()
        process = desktop.start(PROGRAM, "--osc-port", port, "--osc-send", f"127.0.0.1:{dump.port}")
        import accessible  # The bindings look for their bus when they are imported.

        frame = accessible.find(accessible.application(), "frame")
        table = accessible.find(frame, "table", "Chapters")

        def rows():
            return accessible.table_texts(table)

        wait_until(lambda: ("/zl/isRecording", "F", "#F") in dump.messages(), "the whole state")
        other = OtherProgram(desktop)

        oscsend(port, "/zl/toggleRecording", "f", 1)
        wait_until(lambda: len(rows()) == 1, "the first chapter")
        oscsend(port, "/zl/newChapter", "f", 1)
        wait_until(lambda: len(rows()) == 2, "the second chapter")
        wait_until(lambda: ("/zl/isRecording", "T", "#T") in dump.messages(), "the state of a running clock")

        assert focused_window() == other.window, "the press has taken the keyboard from the other program"
        desktop.type("abc")
        wait_until(lambda: other.has_got("abc"), f"the keys at the other program: {other.reader.lines}")
        assert [row[4] for row in rows()] == ["", ""], f"the keys went to the recorder: {rows()}"

        oscsend(port, "/zl/removeLastChapter", "f", 1)
        wait_until(lambda: len(rows()) == 1, "the second chapter to go")
        assert focused_window() == other.window, "removing has taken the keyboard from the other program"
        assert process.poll() is None
        other.reader.stop()
        dump.stop()


if __name__ == "__main__":
    main()
