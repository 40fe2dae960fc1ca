#!/usr/bin/env python3
"""Windows on a small screen: all of them fit, new ones stand beside each other, and those that are minimized or were left
off the screen come back to where they can be used."""

import ctypes
import os
import re
import subprocess
import sys
import unittest
from pathlib import Path

from desktop import Desktop, focused_window, wait_until
from desktop_test import DesktopTest
from osc_peers import free_port, oscsend

PROGRAM = Path(sys.argv.pop(1))
WIDTH, HEIGHT = 1024, 600


class ClientMessage(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong), ("message_type", ctypes.c_ulong),
                ("format", ctypes.c_int), ("data", ctypes.c_long * 5), ("rest", ctypes.c_byte * 200)]


def close_by_task_bar(window):
    """As a task bar asks for it: the window manager is told to close the window, wherever that is."""
    xlib = ctypes.CDLL("libX11.so.6")
    xlib.XOpenDisplay.restype = ctypes.c_void_p
    xlib.XInternAtom.restype = xlib.XDefaultRootWindow.restype = ctypes.c_ulong
    xlib.XInternAtom.argtypes = [ctypes.c_void_p, ctypes.c_char_p, ctypes.c_int]
    xlib.XDefaultRootWindow.argtypes = [ctypes.c_void_p]
    xlib.XSendEvent.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int, ctypes.c_long, ctypes.c_void_p]
    xlib.XCloseDisplay.argtypes = [ctypes.c_void_p]
    display = xlib.XOpenDisplay(None)
    message = ClientMessage(type=33, display=display, window=int(window), format=32,
                            message_type=xlib.XInternAtom(display, b"_NET_CLOSE_WINDOW", 0))
    message.data[1] = 2
    structure_masks = (1 << 19) | (1 << 20)
    xlib.XSendEvent(display, xlib.XDefaultRootWindow(display), 0, structure_masks, ctypes.byref(message))
    xlib.XCloseDisplay(display)


def frame_of(window):
    """Left, top, right and bottom of the window with what the window manager draws around it."""
    shown = subprocess.run(["xwininfo", "-id", window], capture_output=True, text=True, check=True).stdout
    value = {name: int(re.search(rf"{name}:\s+(-?\d+)", shown).group(1))
             for name in ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")}
    extents = subprocess.run(["xprop", "-id", window, "_NET_FRAME_EXTENTS"], capture_output=True, text=True,
                             check=True).stdout
    left, right, top, bottom = map(int, re.findall(r"\d+", extents.split("=")[1]))
    x, y = value["Absolute upper-left X"], value["Absolute upper-left Y"]
    return x - left, y - top, x + value["Width"] + right, y + value["Height"] + bottom


def is_minimized(window):
    state = subprocess.run(["xprop", "-id", window, "WM_STATE"], capture_output=True, text=True, check=True).stdout
    return "Iconic" in state


class WindowsTest(DesktopTest):
    @classmethod
    def make_desktop(cls):
        return Desktop(size=f"{WIDTH}x{HEIGHT}")

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        import accessible  # The bindings look for their bus when they are imported.

        cls.accessible = accessible

    def setUp(self):
        self.forget_everything()

    def start(self, language="C.UTF-8"):
        self.port = free_port()
        os.environ["LC_ALL"] = language
        self.program = self.desktop.start(PROGRAM, "--osc-port", self.port)
        os.environ["LC_ALL"] = "C.UTF-8"
        self.addCleanup(self.end)
        self.window = wait_until(lambda: self.windows("Zelta$"), "the document window")[0]
        self.wait_for_keyboard(self.window)
        self.tree = self.accessible.application()

    def end(self):
        self.program.kill()
        self.program.wait()

    def windows(self, name, *only):
        found = subprocess.run(["xdotool", "search", "--all", *only, "--pid", str(self.program.pid), "--name", name],
                               capture_output=True, text=True, check=False).stdout.split()
        # The toolkit keeps windows of its own that no window manager knows.
        return [window for window in found if "window id" not in self.state_of(window)]

    @staticmethod
    def state_of(window):
        shown = subprocess.run(["xprop", "-id", window, "WM_STATE"], capture_output=True, text=True, check=False).stdout
        return shown if "window state" in shown else "window id unknown"

    def activate(self, window):
        subprocess.run(["xdotool", "windowactivate", window], check=False, capture_output=True)
        self.wait_for_keyboard(window)

    def wait_for_keyboard(self, window):
        wait_until(lambda: focused_window() == window, f"window {window} to have the keyboard")

    def new_window(self, known, name="."):
        window = wait_until(lambda: [w for w in self.windows(name) if w not in known], "another window")[0]
        self.wait_for_keyboard(window)
        return window

    def second_document(self):
        self.desktop.press("ctrl+n")
        return self.new_window({self.window}, "Zelta$")

    def minimize(self, window):
        self.desktop.xdotool("windowminimize", window)
        wait_until(lambda: is_minimized(window), "the window to be minimized")

    def record(self):
        """In the first document, while no other one is in front."""
        oscsend(self.port, "/zl/toggleRecording", "f", 1)
        wait_until(lambda: self.windows("^Recording: "), "the title to say that it records")

    def check_fits(self, window):
        def fits():
            left, top, right, bottom = frame_of(window)
            return left >= 0 and top >= 0 and right <= WIDTH and bottom <= HEIGHT

        wait_until(fits, lambda: f"the window to be on the screen, not at {frame_of(window)}", 10)

    def menu_item(self, beginnings):
        for node in self.accessible.find_all(self.tree, "menu item"):
            if node.name.startswith(beginnings):
                return node
        return None

    def passing_message(self, text):
        return [node for node in self.accessible.find_all(self.tree, "label", text) if self.accessible.is_showing(node)]

    # In front.

    def test_quitting_brings_the_recording_window_to_the_front_and_says_nothing(self):
        self.start()
        self.record()
        self.minimize(self.window)
        subprocess.run([PROGRAM, "--new"], check=True, timeout=60)
        self.new_window({self.window}, "Zelta$")
        self.desktop.press("ctrl+q")
        self.wait_for_keyboard(self.window)
        self.assertFalse(is_minimized(self.window))
        self.assertEqual(self.passing_message("Pause the recording before closing this window."), [])
        self.assertIsNone(self.program.poll())

    def test_a_recording_window_that_is_closed_while_minimized_comes_to_the_front_and_says_why(self):
        self.start()
        self.record()
        self.minimize(self.window)
        close_by_task_bar(self.window)
        self.wait_for_keyboard(self.window)
        self.assertFalse(is_minimized(self.window))
        wait_until(lambda: self.passing_message("Pause the recording before closing this window."), "the reason")

    def test_minimized_preferences_come_to_the_front(self):
        self.start()
        self.desktop.press("ctrl+comma")
        preferences = self.new_window({self.window})
        self.minimize(preferences)
        self.activate(self.window)
        self.desktop.press("ctrl+comma")
        self.wait_for_keyboard(preferences)
        self.assertFalse(is_minimized(preferences))

    # Questions.

    def test_the_question_of_a_command_has_the_keyboard_and_its_answers_have_letters(self):
        self.start()
        second = self.second_document()
        self.desktop.press("ctrl+r", "Return", "ctrl+r", "ctrl+w")
        frame = self.accessible.find(self.tree, "frame", "Untitled 2* — Zelta")
        button = self.accessible.find(frame, "push button", "Save As…")
        wait_until(lambda: self.accessible.is_focused(button), "the question to have the keyboard")
        # Escape answers nothing and gives the keyboard back.
        self.desktop.press("Escape")
        table = self.accessible.find(frame, "table", "Chapters")
        wait_until(lambda: self.accessible.is_focused(table), "the table to have the keyboard")
        self.assertTrue(self.accessible.is_showing(button))
        self.desktop.press("alt+d")
        self.wait_for_keyboard(self.window)
        self.assertNotIn(second, self.windows("Zelta$"))

    # On the screen.

    def check_all_windows_fit(self):
        self.check_fits(self.window)
        known = {self.window}
        for keys in ("ctrl+comma", "ctrl+o", "ctrl+shift+s", "ctrl+i"):
            self.activate(self.window)
            self.desktop.press(keys)
            window = self.new_window(known)
            self.check_fits(window)
            if keys == "ctrl+comma":
                for _ in range(3):
                    self.desktop.press("ctrl+Tab")
                    self.check_fits(window)
            self.desktop.press("Escape")
            wait_until(lambda: not [w for w in self.windows(".", "--onlyvisible") if w not in known], "it to close")
        for beginnings in (("OSC Connections", "OSC-Verbindungen"), ("Recorder", "Rekorder"),
                           ("Keyboard Shortcuts", "Tastenkürzel"), ("Podlove Simple Chapters",)):
            item = wait_until(lambda beginnings=beginnings: self.menu_item(beginnings), f"an item {beginnings}")
            self.activate(self.window)
            self.accessible.press(item)
            window = self.new_window(known)
            self.check_fits(window)
            self.desktop.press("Escape")
            wait_until(lambda: not [w for w in self.windows(".", "--onlyvisible") if w not in known], "it to close")

    def test_every_window_fits(self):
        self.start()
        self.check_all_windows_fit()

    def test_every_window_fits_in_german(self):
        self.start("de_DE.UTF-8")
        self.check_all_windows_fit()

    def test_new_windows_stand_beside_each_other(self):
        self.start()
        known = [self.window]
        for _ in range(3):
            self.desktop.press("ctrl+n")
            known.append(self.new_window(set(known), "Zelta$"))
            self.check_fits(known[-1])
        corners = [frame_of(window)[:2] for window in known]
        for before, after in zip(corners[1:], corners[2:]):
            self.assertEqual((after[0] - before[0], after[1] - before[1]), (32, 32), corners)
        self.assertEqual(len(set(corners)), len(corners), corners)

    def test_a_window_that_was_left_on_a_larger_screen_comes_back_as_a_whole(self):
        self.start()
        self.desktop.xdotool("windowsize", self.window, 1400, 900)
        self.desktop.xdotool("windowmove", self.window, 700, 400)
        wait_until(lambda: frame_of(self.window)[2] > WIDTH + 300, "the window to be too large")
        self.desktop.press("ctrl+q")
        self.assertEqual(self.program.wait(30), 0)
        self.start()
        self.check_fits(self.window)

    def test_windows_come_back_to_where_they_stood(self):
        self.start()
        self.desktop.xdotool("windowsize", "--sync", self.window, 700, 400)
        self.desktop.xdotool("windowmove", self.window, 60, 70)
        wait_until(lambda: frame_of(self.window)[0] > 40, "the window to move")
        places = []
        for _ in range(3):
            self.accessible.press(self.menu_item(("OSC Connections",)))
            connections = self.new_window({self.window})
            places.append((frame_of(self.window), frame_of(connections)))
            self.activate(self.window)
            self.desktop.press("ctrl+q")
            self.assertEqual(self.program.wait(30), 0)
            self.start()
        self.assertEqual(places[2], places[1], places)
        self.assertEqual(places[1][0], places[0][0], places)

    def test_preferences_that_were_left_on_a_larger_screen_come_back_as_a_whole(self):
        self.write_settings("MASPreferences%20Frame%20Top%20Left=\"{900, 20}\"\n"
                            "MASPreferences%20GeneralPreferences%20Frame=\"{{0, 0}, {3000, 2000}}\"\n")
        self.start()
        self.desktop.press("ctrl+comma")
        self.check_fits(self.new_window({self.window}))


if __name__ == "__main__":
    unittest.main()
