#!/usr/bin/env python3
"""The Reply button of a notification on a Wayland desktop: the panel for the title gets the keyboard by the token that the
press brings along, and where the compositor refuses, it goes by itself."""

import json
import os
import subprocess
import sys
import unittest
from pathlib import Path

from behind_test import BehindTest
from desktop import Desktop, wait_until
from osc_peers import oscsend, start_reader

PROGRAM = Path(sys.argv.pop(1))
HERE = Path(__file__).resolve().parent
MOCK = HERE.parents[1] / "platform/notification/notification_mock.py"
NOTIFICATIONS = "org.freedesktop.Notifications"
PANEL = "Chapter Title — Zelta"
OTHER = "Other Program"
NOBODY = 65534
# Like a desktop that leaves the keyboard where it is until a program may have it.
COMPOSITOR_SETTINGS = f"""
xwayland disable
focus_follows_mouse no
no_focus [title="^{PANEL}$"]
for_window [title="^{PANEL}$"] floating enable
"""


class SwayDesktop(Desktop):
    """A compositor without a real screen."""

    def _start_display(self):
        runtime = Path(os.environ["XDG_RUNTIME_DIR"])
        settings = self.home / "sway.conf"
        settings.write_text(COMPOSITOR_SETTINGS)
        os.environ.pop("SWAYSOCK", None)
        environment = dict(os.environ, WLR_BACKENDS="headless", WLR_RENDERER="pixman", WLR_LIBINPUT_NO_DEVICES="1")
        command = ["sway", "--config", str(settings)]
        if os.geteuid() == 0:
            # It refuses to work for root.
            self.home.chmod(0o711)
            os.chown(runtime, NOBODY, NOBODY)
            command = ["setpriv", f"--reuid={NOBODY}", f"--regid={NOBODY}", "--clear-groups", *command]
        self.start(*command, env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        control = wait_until(lambda: list(runtime.glob("sway-ipc.*.sock")), "the compositor to start")[0]
        sockets = wait_until(lambda: [path for path in runtime.glob("wayland-*") if path.is_socket()], "its socket")
        os.environ.pop("DISPLAY", None)
        os.environ.update(SWAYSOCK=str(control), WAYLAND_DISPLAY=sockets[0].name, QT_QPA_PLATFORM="wayland")

    def _start_window_manager(self):
        """The compositor is one."""


def command_compositor(*words):
    subprocess.run(["swaymsg", *words], check=True, capture_output=True)


def windows():
    """The names of all windows, and of that which has the keyboard."""
    tree = json.loads(subprocess.run(["swaymsg", "-t", "get_tree"], check=True, capture_output=True, text=True).stdout)
    names, focused, waiting = [], None, [tree]
    while waiting:
        node = waiting.pop()
        waiting += node.get("nodes", []) + node.get("floating_nodes", [])
        if node.get("pid"):
            names.append(node["name"])
            focused = node["name"] if node["focused"] else focused
    return names, focused


def press_keys(text, *options):
    subprocess.run(["wtype", "-s", "300", "-d", "20", text, *options], check=True, timeout=60)


class OtherProgram:
    """A window in front of the recorder. It counts the keys it is given and hands out tokens as a desktop does."""

    def __init__(self):
        self.reader = start_reader([sys.executable, HERE / "wayland_program.py"], stdin=subprocess.PIPE)
        wait_until(lambda: windows()[1] == OTHER, "the other program to have the keyboard")

    def keys(self):
        return self.reader.lines.count("key")

    def token(self):
        known = len(self.tokens())
        self.reader.process.stdin.write("\n")
        self.reader.process.stdin.flush()
        wait_until(lambda: len(self.tokens()) > known, "a token")
        return self.tokens()[-1]

    def tokens(self):
        return [line.split()[1] for line in list(self.reader.lines) if line.startswith("token ")]


class WaylandReplyTest(BehindTest):
    other_program = OtherProgram

    @classmethod
    def make_desktop(cls):
        return SwayDesktop()

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.write_settings("ZLShowQuickEditSetting=true\nZLNewChapterOnStartSetting=false\n")

    def start_notifications(self):
        server = self.start_process("/usr/bin/python3", MOCK, "body", "actions", stdout=subprocess.PIPE, text=True)
        self.assertEqual(server.stdout.readline(), "ready\n")
        server.stdout.close()

    def start(self):
        self.start_behind(PROGRAM)
        oscsend(self.port, "/zl/toggleRecording", "f", 1)
        oscsend(self.port, "/zl/newChapter", "f", 1)
        wait_until(lambda: len(self.titles()) == 1, "the chapter")

    def control(self, method, *arguments):
        return subprocess.run(["dbus-send", "--session", "--print-reply", f"--dest={NOTIFICATIONS}",
                               "/org/freedesktop/Notifications", f"org.zelta.Test.{method}", *arguments],
                              check=True, capture_output=True, text=True).stdout

    def press_reply(self):
        wait_until(lambda: "New Chapter Added" in self.control("Notifications"), "the notification")
        self.control("PressWithToken", "uint32:1", "string:reply", f"string:{self.other.token()}")

    def test_reply_gives_the_panel_the_keyboard_where_the_compositor_lets_it(self):
        command_compositor("focus_on_window_activation", "none")
        self.start_notifications()
        self.start()
        self.press_reply()
        wait_until(lambda: PANEL in windows()[0], "the panel")
        press_keys("abc")
        wait_until(lambda: self.other.keys() == 3, lambda: f"the keys, not {self.other.reader.lines}")
        self.assertEqual(windows()[1], OTHER)
        wait_until(lambda: PANEL not in windows()[0], "the panel to go by itself")

        command_compositor("focus_on_window_activation", "focus")
        self.press_reply()
        wait_until(lambda: windows()[1] == PANEL, lambda: f"the panel to have the keyboard, not {windows()}")
        press_keys("Interview")
        field = self.accessible.find(self.program, "text", "Chapter title")
        wait_until(lambda: field.queryText().getText(0, -1) == "Interview", "the title in the panel")
        press_keys("", "-k", "Return")
        wait_until(lambda: self.titles() == ["Interview"], "the title in the table")
        wait_until(lambda: PANEL not in windows()[0], "the panel to go")
        wait_until(lambda: windows()[1] == OTHER, "the other program to have the keyboard again")
        self.assertEqual(self.other.keys(), 3)

    def test_without_a_notification_server_nothing_can_take_the_keyboard(self):
        self.start()
        self.accessible.press(self.accessible.find(self.program, "menu item", "Preferences…"))
        window = self.accessible.find(self.program, "frame", "General")
        self.accessible.find(window, "label", "There is no notification server, so nothing asks for a title.")
        self.assertNotIn(PANEL, windows()[0])


if __name__ == "__main__":
    unittest.main()
