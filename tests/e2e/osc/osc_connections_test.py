#!/usr/bin/env python3
"""Why does this button do nothing? The window of the OSC connections says it."""

import sys
from pathlib import Path

from desktop import Desktop, wait_until
from osc_peers import free_port, oscsend

PROGRAM = Path(sys.argv[1])


def main():
    with Desktop() as desktop:
        port = free_port()
        desktop.start(PROGRAM, "--osc-port", port)
        import accessible  # The bindings look for their bus when they are imported.

        program = accessible.application()
        frame = accessible.find(program, "frame")
        accessible.press(accessible.find(frame, None, f"OSC {port}"))
        log = accessible.find(accessible.find(program, None, "OSC Connections"), "table", "Messages")
        accessible.find(program, "label", f"Port: {port}")

        def outcomes():
            return [(row[3], row[4], row[5]) for row in accessible.table_texts(log)]

        oscsend(port, "/zl/newChapter", "f", 0)
        wait_until(lambda: outcomes()[-1:] == [("/zl/newChapter", "0", "ignored: value 0")], "the released button")
        oscsend(port, "/zl/newchapter", "f", 1)
        wait_until(lambda: outcomes()[-1:] == [("/zl/newchapter", "1", "ignored: unknown address")], "the wrong address")
        oscsend(port, "/zl/toggleRecording", "f", 1)
        wait_until(lambda: outcomes()[-1:] == [("/zl/toggleRecording", "1", "started the recording")], "the start")
        oscsend(port, "/zl/newChapter", "f", 1)
        wait_until(lambda: outcomes()[-1:] == [("/zl/newChapter", "1", "added a chapter")], "the chapter")
        accessible.press(accessible.find(program, "check box", "Only problems"))
        wait_until(lambda: len(outcomes()) == 2, "the problems alone")

        desktop.press("Escape")
        wait_until(lambda: not accessible.is_showing(log), "the window to close")


if __name__ == "__main__":
    main()
