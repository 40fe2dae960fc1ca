#!/usr/bin/env python3
"""A press on a control surface while another program is in front: the chapter is there, the keyboard stays where it is."""

import sys
from pathlib import Path

from desktop import Desktop, focused_window, wait_until
from osc_peers import OscDump, free_port, oscsend
from other_program import OtherProgram

PROGRAM = Path(sys.argv[1])


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
        other = OtherProgram()

        oscsend(port, "/zl/toggleRecording", "f", 1)
        wait_until(lambda: len(rows()) == 1, "the first chapter")
        oscsend(port, "/zl/newChapter", "f", 1)
        wait_until(lambda: len(rows()) == 2, "the second chapter")
        wait_until(lambda: ("/zl/isRecording", "T", "#T") in dump.messages(), "the state of a running clock")

        assert focused_window() == other.window, "the press has taken the keyboard from the other program"
        desktop.type("abc")
        wait_until(lambda: other.has_got("abc"), lambda: f"the keys at the other program: {other.reader.lines}")
        assert [row[4] for row in rows()] == ["", ""], f"the keys went to the recorder: {rows()}"

        oscsend(port, "/zl/removeLastChapter", "f", 1)
        wait_until(lambda: len(rows()) == 1, "the second chapter to go")
        assert focused_window() == other.window, "removing has taken the keyboard from the other program"
        assert process.poll() is None
        other.reader.stop()
        dump.stop()


if __name__ == "__main__":
    main()
