#!/usr/bin/env python3
"""Another library at the other end, in both directions. Skipped where it can neither be found nor fetched."""

import re
import sys
import unittest
from pathlib import Path

from desktop import wait_until
from osc_peers import NodeOsc, free_port
from osc_recorder import CLOCK, STATUS, OSCTestCase
from peer_libraries import CannotFetch

FOLDER = Path(sys.argv.pop(1))
SKIPPED = 77


class NodeOscTest(OSCTestCase):
    node = None

    def test_node_osc_in_both_directions(self):
        node = type(self).node
        port = free_port()
        listener = node.listen(port)
        self.addCleanup(listener.stop)
        recorder = self.start_recorder(port)
        node.run("send", recorder.port, "/zl/toggleRecording", 1)
        recorder.wait_for_chapters(1)
        node.run("send", recorder.port, "/zl/newChapter")
        node.run("send", recorder.port, "/zl/newChapter", 0)
        self.press_until_chapter(recorder, lambda: node.run("send", recorder.port, "/zl/newChapter", 0.5))
        self.press_until_chapter(recorder, lambda: node.run("bundle", recorder.port, "/zl/newChapter", 1))
        recorder.write("title Grüße 日本")
        wait_until(lambda: [STATUS[1], "Grüße 日本"] in node.messages(listener), "the title at node-osc")
        recorder.press("toggleRecording")
        wait_until(lambda: [STATUS[0], False] in node.messages(listener)[-4:], "the end at node-osc")
        messages = node.messages(listener)
        self.assertIn([STATUS[0], True], messages)
        self.assertTrue(any(message[0] == CLOCK[0] and re.fullmatch(r"00:00:\d\d", message[1]) for message in messages))
        self.assertFalse(any(message[0] == "error" for message in messages), messages)


def main():
    try:
        NodeOscTest.node = NodeOsc(FOLDER)
    except CannotFetch as reason:
        print(f"skipped: {reason}")
        sys.exit(SKIPPED)
    unittest.main()


if __name__ == "__main__":
    main()
