#!/usr/bin/env python3
"""The preferences window: shortcuts that are recorded there and pressed elsewhere, and what the window remembers."""

import subprocess
import sys
import unittest
from pathlib import Path

from desktop import focused_window, wait_until
from desktop_test import DesktopTest

PROGRAM = Path(sys.argv.pop(1))


def window_named(process, name):
    answer = subprocess.run(
        ["xdotool", "search", "--all", "--onlyvisible", "--pid", str(process.pid), "--name", name],
        capture_output=True, text=True, check=False,
    )
    return (answer.stdout.split() or [None])[0]


class OtherProgram:
    """A program in whose window the user works. It writes down every key that reaches it."""

    def __init__(self, desktop):
        self.log = desktop.home / "keys.log"
        with self.log.open("w") as log:
            self.process = desktop.start("stdbuf", "-oL", "xev", "-event", "keyboard", "-name", "other", stdout=log)
        self.desktop = desktop
        self.window = wait_until(self._find_window, "the other program's window")

    @staticmethod
    def _find_window():
        answer = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "^other$"],
                                capture_output=True, text=True, check=False)
        return (answer.stdout.split() or [None])[0]

    def come_to_front(self):
        self.desktop.xdotool("windowactivate", self.window)
        wait_until(lambda: focused_window() == self.window, "the other program to have the keyboard")

    def got(self, key):
        return f", {key})" in self.log.read_text()


class PreferencesTest(DesktopTest):
    def setUp(self):
        self.forget_everything()
        self.start()
        import accessible

        self.addCleanup(self.end)
        self.accessible = accessible
        self.tree = accessible.application()

    def start(self):
        self.program = self.desktop.start(PROGRAM)
        self.window = wait_until(lambda: window_named(self.program, "Zelta"), "the document window")
        self.wait_for_keyboard(self.window)

    def end(self):
        if self.program.poll() is None:
            self.program.terminate()
            self.program.wait(10)

    def wait_for_keyboard(self, window):
        wait_until(lambda: focused_window() == window, "the window to have the keyboard")

    def open_preferences(self):
        """Returns the window on show, whatever its pane."""
        self.desktop.xdotool("windowactivate", self.window)
        self.wait_for_keyboard(self.window)
        self.desktop.press("ctrl+comma")
        window = wait_until(
            lambda: next((w for name in ("General", "Shortcuts", "About") if (w := window_named(self.program, name))),
                         None), "the preferences window")
        self.wait_for_keyboard(window)
        return window

    def show_shortcuts(self):
        self.open_preferences()
        self.desktop.press("ctrl+Tab")
        self.pane = self.accessible.find(self.tree, "frame", "Shortcuts")

    def field(self, title, text):
        return self.accessible.find(self.pane, name=f"{title}: {text}")

    def record(self, title, before, keys, after):
        self.accessible.press(self.field(title, before))
        self.field(title, "Press the keys…")
        self.desktop.press(keys)
        return self.field(title, after)

    def chapters(self):
        frame = next(f for f in self.accessible.find_all(self.tree, "frame") if "Zelta" in f.name)
        return self.accessible.find(frame, "table").queryTable().nRows

    def menu_key(self, title):
        item = self.accessible.find_all(self.tree, "menu item", title)[0]
        action = item.queryAction()
        return [action.getKeyBinding(i) for i in range(action.nActions)]

    def test_a_recorded_shortcut_works_everywhere_until_it_is_cleared(self):
        self.desktop.press("ctrl+r", "Return")
        wait_until(lambda: self.chapters() == 1, "the first chapter")
        self.show_shortcuts()
        self.record("New Chapter", "None", "ctrl+alt+m", "Ctrl+Alt+M")
        self.accessible.press(self.accessible.find(
            self.pane, "check box", "Global shortcuts: work also while another program is in front"))
        wait_until(lambda: "Ctrl+Alt+M" in " ".join(self.menu_key("New Chapter")), "the shortcut in the menu")

        other = OtherProgram(self.desktop)
        other.come_to_front()
        self.desktop.press("ctrl+alt+m")
        wait_until(lambda: self.chapters() == 2, "the chapter that was added from outside")
        self.assertFalse(other.got("m"))

        # Its own keys can be recorded again, and are no command meanwhile.
        self.desktop.xdotool("windowactivate", window_named(self.program, "Shortcuts"))
        self.record("New Chapter", "Ctrl+Alt+M", "ctrl+alt+m", "Ctrl+Alt+M")
        self.assertEqual(self.chapters(), 2)
        other.come_to_front()
        self.desktop.press("ctrl+alt+m")
        wait_until(lambda: self.chapters() == 3, "the chapter after the second recording")

        self.accessible.press(self.accessible.find(self.pane, name="Clear New Chapter"))
        self.field("New Chapter", "None")
        other.come_to_front()
        self.desktop.press("ctrl+alt+m")
        wait_until(lambda: other.got("m"), "the keys to reach the other program")
        self.assertEqual(self.chapters(), 3)

    def test_keys_that_belong_to_another_program_are_refused_beside_their_field(self):
        self.show_shortcuts()
        self.accessible.press(self.accessible.find(
            self.pane, "check box", "Global shortcuts: work also while another program is in front"))
        # The window manager closes windows with it, and does not give it away.
        field = self.record("Delete Last Chapter", "None", "alt+F4", "Alt+F4")
        wait_until(lambda: field.description, "the reason beside the field")
        self.assertIsNone(self.program.poll())
        self.record("Delete Last Chapter", "Alt+F4", "F9", "F9")
        wait_until(lambda: not field.description, "the reason to go")

    def test_the_keyboard_alone_records_and_clears(self):
        self.show_shortcuts()
        self.field("Start or Pause Recording", "None")
        self.desktop.press("space")
        self.field("Start or Pause Recording", "Press the keys…")
        self.desktop.press("m")
        wait_until(lambda: self.field("Start or Pause Recording", "Press the keys…").description, "the hint")
        self.desktop.press("F8")
        self.field("Start or Pause Recording", "F8")
        self.desktop.press("BackSpace")
        self.field("Start or Pause Recording", "None")
        self.desktop.press("Escape")
        wait_until(lambda: not window_named(self.program, "Shortcuts"), "the window to close")

    def test_the_next_run_shows_the_pane_and_the_place_of_this_one(self):
        window = self.open_preferences()
        self.desktop.press("ctrl+shift+Tab")
        wait_until(lambda: window_named(self.program, "About"), "the About pane")

        def moved():
            # While the window glides to the size of its pane, each step sets its place as well.
            self.desktop.xdotool("windowmove", window, 301, 207)
            return self.stored_place()

        place = wait_until(moved, "the place to be remembered")
        self.desktop.press("Escape")
        wait_until(lambda: not window_named(self.program, "About"), "the window to close")
        self.desktop.xdotool("windowactivate", self.window)
        self.wait_for_keyboard(self.window)
        self.desktop.press("ctrl+q")
        self.assertEqual(self.program.wait(10), 0)

        self.start()
        window = self.open_preferences()
        self.assertEqual(window, window_named(self.program, "About"))
        self.desktop.press("Escape")
        wait_until(lambda: not window_named(self.program, "About"), "the window to close")
        self.assertEqual(self.stored_place(), place)

    def stored_place(self):
        for line in (self.desktop.home / "config/zelta/zelta.conf").read_text().splitlines():
            if line.startswith("MASPreferences%20Frame%20Top%20Left="):
                place = line.split("=", 1)[1].strip('"')
                # Within the frame that the window manager draws.
                return place if place.startswith("{30") or place.startswith("{29") else None
        return None


if __name__ == "__main__":
    unittest.main()
