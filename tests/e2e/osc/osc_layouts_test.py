#!/usr/bin/env python3
"""The layouts in docs/osc and the guide beside them name exactly the addresses that the program has."""

import itertools
import json
import os
import re
import socket
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

PROGRAM = Path(sys.argv.pop(1))
DOCS = Path(__file__).resolve().parents[3] / "docs"
LAYOUTS = DOCS / "osc"


def known_actions():
    """As the program lists them when it is asked for one that does not exist."""
    answer = subprocess.run([PROGRAM, "send", "nothing"], capture_output=True, text=True, check=False, timeout=60)
    return set(re.search(r"The actions are (.*)\.$", answer.stderr.splitlines()[0])[1].split(", "))


def known_statuses():
    """What a running recorder sends."""
    with tempfile.TemporaryDirectory() as home, socket.socket(socket.AF_INET, socket.SOCK_DGRAM) as listener:
        listener.bind(("127.0.0.1", 0))
        listener.settimeout(20)
        places = {name: home for name in ("HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_RUNTIME_DIR")}
        recorder = subprocess.Popen(
            [PROGRAM, "--headless", "--record", "--osc-port", "0", "--osc-send", f"127.0.0.1:{listener.getsockname()[1]}"],
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, env={**os.environ, **places},
        )
        try:
            # Twice the whole state, so that the clock is in it.
            return {listener.recv(2048).split(b"\0")[0].decode() for _ in range(13)}
        finally:
            recorder.kill()
            recorder.wait()


def widgets_below(widget):
    yield widget
    for child in itertools.chain(widget.get("widgets", []), widget.get("tabs", [])):
        yield from widgets_below(child)


class LayoutsTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.actions = known_actions()
        cls.commands = {f"/zl/{action}" for action in cls.actions}
        cls.statuses = known_statuses()
        assert len(cls.commands) == 6 and len(cls.statuses) == 5, (cls.commands, cls.statuses)

    def test_the_open_stage_control_session(self):
        session = json.loads((LAYOUTS / "open-stage-control.json").read_text())
        self.assertEqual(session["type"], "session")
        widgets = list(widgets_below(session["content"]))
        identifiers = [widget["id"] for widget in widgets]
        self.assertEqual(len(identifiers), len(set(identifiers)))
        buttons = [widget for widget in widgets if widget["type"] == "button"]
        self.assertEqual({button["address"] for button in buttons}, self.commands)
        for button in buttons:
            self.assertEqual((button["mode"], button["on"], button["off"]), ("push", 1, 0))
        listeners = [widget for widget in widgets if widget["type"] in ("text", "variable")]
        self.assertEqual({widget["address"] for widget in listeners} - {"auto"}, self.statuses)
        for widget in widgets:
            # Whatever is no button must not send anything.
            self.assertTrue(widget["type"] == "button" or widget["bypass"], widget["id"])
            for target in re.findall(r"set\('(\w+)'", widget.get("onValue", "")):
                self.assertIn(target, identifiers)

    def read_bindings(self, name, pattern):
        """The actions that the file binds; every line that is no comment has to be a binding."""
        text = "".join(line for line in (LAYOUTS / name).read_text().splitlines(keepends=True)
                       if line.strip() and not line.startswith("#"))
        bindings = re.findall(pattern, text, re.MULTILINE)
        self.assertEqual(re.sub(pattern, "", text, flags=re.MULTILINE).strip(), "")
        keys = [key for key, _ in bindings]
        self.assertEqual(len(keys), len(set(keys)))
        return {action for _, action in bindings}

    def test_the_shortcuts_of_i3_and_sway(self):
        bound = self.read_bindings("i3-sway.conf", r"^bindsym ([\w+]+) exec --no-startup-id zelta send (\w+)$")
        self.assertEqual(bound, self.actions)

    def test_the_shortcuts_of_sxhkd(self):
        self.assertEqual(self.read_bindings("sxhkdrc", r"^([\w+ ]+)\n    zelta send (\w+)$"), self.actions)

    def test_no_layout_is_left_out(self):
        self.assertEqual({path.name for path in LAYOUTS.iterdir()}, {"open-stage-control.json", "i3-sway.conf", "sxhkdrc"})

    def test_the_guide_names_every_address_and_no_other(self):
        guide = (DOCS / "OSC.md").read_text()
        self.assertEqual(set(re.findall(r"/zl/\w+", guide)), self.commands | self.statuses)
        self.assertLessEqual(set(re.findall(r"zelta send (\w+)", guide)), self.actions)
        for name in re.findall(r"\]\((osc/[^)]+)\)", guide):
            self.assertTrue((DOCS / name).exists(), name)


if __name__ == "__main__":
    unittest.main()
