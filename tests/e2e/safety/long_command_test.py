#!/usr/bin/env python3
"""The program is killed while it carries out a command that changes ten thousand chapters, and a mark behind it. The command is
there whole or not at all, the mark never without it, and both are there when they were told of."""

import json
import random
import subprocess
import sys
import time
import unittest
from pathlib import Path

from desktop import kill_at_once, wait_until
from desktop_test import DesktopTest
from osc_peers import free_port, start_reader
from surface import Surface, Told, archive, press_of
from window import Window

PROGRAM = Path(sys.argv.pop(1))
ROUNDS = int(sys.argv.pop(1)) if len(sys.argv) > 1 else 8
CHAPTERS = 10_000
LONGEST_LIFE = 0.25  # Seconds from the press to the kill.
MARK = "the mark behind it"
NEW_MARK = "the mark after the next start"


def title(number, is_tidy):
    return str(number) if is_tidy else f" {number} "


def untidy_document():
    chapters = [{"TimeStamp": float(number), "Enabled": True, "Title": title(number, is_tidy=False), "Link": "", "Tags": ""}
                for number in range(CHAPTERS)]
    templates = [{"TimeStamp": 0.0, "Enabled": True, "Title": MARK, "Link": "", "Tags": ""}]
    return archive({"Chapters": chapters, "Duration": float(CHAPTERS), "Templates": templates})


class LongCommandTest(DesktopTest):
    def setUp(self):
        self.surface = Surface()
        self.addCleanup(self.surface.close)
        self.file = self.desktop.home / "show.zelta"
        self.bytes = untidy_document()
        self.chance = random.Random()

    def start_show(self):
        self.forget_everything()
        self.file.write_bytes(self.bytes)
        self.surface.newest()
        self.surface.told = Told()
        window = Window(self.desktop, [PROGRAM], self.file, osc_send=self.surface.port)
        self.addCleanup(window.stop)
        window.wait_for_keyboard()
        self.surface.send(window.osc_port, "toggleRecording")
        self.surface.wait_for(lambda told: told.is_recording, "a running clock")
        return window

    def tidy_mark_and_kill(self, window):
        """What was told before the death."""
        import accessible  # The bindings look for their bus when they are imported.

        # Not among the ten thousand rows.
        frame = wait_until(lambda: self.child_of(accessible, accessible.application(), "frame"), "the window")
        menus = wait_until(lambda: self.child_of(accessible, frame, "menu bar"), "the menu bar")
        accessible.press(accessible.find(menus, "menu item", "Tidy Titles"))
        self.surface.send(window.osc_port, "newChapter")
        time.sleep(self.chance.uniform(0.0, LONGEST_LIFE))
        window.kill()
        titles = [told.last_title for told in self.surface.states()]
        return title(CHAPTERS - 1, is_tidy=True) in titles, MARK in titles

    @staticmethod
    def child_of(accessible, node, role):
        children = (node.getChildAtIndex(index) for index in range(node.childCount))
        return next((child for child in children if child and accessible.role_of(child) == role), None)

    def titles_after_start(self):
        """Those that the next start brings into the file, by a mark of its own."""
        port = free_port()
        reader = start_reader([PROGRAM, "--headless", "--osc-port", port, self.file], stdin=subprocess.PIPE,
                              stderr=subprocess.STDOUT)
        self.addCleanup(reader.stop)
        wait_until(lambda: any("UDP port" in line for line in list(reader.lines)), lambda: f"the start, not {reader.lines}")
        for action, told in (("toggleRecording", "recording from"), ("newChapter", "chapter ")):
            self.surface.socket.sendto(press_of(action), ("127.0.0.1", port))
            wait_until(lambda told=told: any(line.startswith(told) for line in list(reader.lines)),
                       lambda told=told: f"{told}, not {reader.lines}")
        reader.process.stdin.write(f"title {NEW_MARK}\n")
        reader.process.stdin.flush()
        titles = wait_until(self.titles_with_new_mark, "the file with the new mark")
        kill_at_once(reader.process)
        return titles

    def titles_with_new_mark(self):
        shown = subprocess.run([PROGRAM, "show", "--json", self.file], capture_output=True, text=True, timeout=60, check=True)
        titles = [chapter["title"] for chapter in json.loads(shown.stdout)["chapters"]]
        return titles if titles[-1:] == [NEW_MARK] else None

    def test_killed_at_any_moment(self):
        seen = []
        for _ in range(ROUNDS):
            tidy_told, mark_told = self.tidy_mark_and_kill(self.start_show())
            titles = self.titles_after_start()
            are_tidy = [text == title(number, is_tidy=True) for number, text in enumerate(titles[:CHAPTERS])]
            is_marked = MARK in titles[CHAPTERS:-1]
            self.assertIn(sum(are_tidy), (0, CHAPTERS), "a part of the command is there")
            self.assertGreaterEqual(are_tidy[0], tidy_told, "the command was told of")
            self.assertGreaterEqual(is_marked, mark_told, "the mark was told of")
            self.assertGreaterEqual(are_tidy[0], is_marked, "the mark came behind the command")
            seen.append((tidy_told, mark_told, are_tidy[0], is_marked))
        print(f"told of command and mark, then there: {seen}", flush=True)


if __name__ == "__main__":
    unittest.main()
