#!/usr/bin/env python3
"""The program on a Wayland desktop without a portal: it records, is driven from outside, asks for a title above other
windows, and says what its shortcuts need."""

import os
import subprocess
import sys
import unittest
from pathlib import Path

from desktop import Desktop, wait_until
from desktop_test import DesktopTest
from osc_peers import free_port, oscsend
from shortcuts import CODE_OF_F6, stored_shortcut

PROGRAM = Path(sys.argv.pop(1))
MOCK = Path(__file__).resolve().parents[2] / "platform/notification/notification_mock.py"
NOTIFICATIONS = "org.freedesktop.Notifications"


class WaylandDesktop(Desktop):
    """A compositor without a real screen, which has neither a keyboard nor a mouse."""

    def _start_display(self):
        runtime = Path(os.environ["XDG_RUNTIME_DIR"])
        width, height = self.size.split("x")
        self.start("weston", "--backend=headless-backend.so", "--socket=desktop", "--use-pixman", "--idle-time=0",
                   f"--width={width}", f"--height={height}", stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_until((runtime / "desktop").exists, "the compositor to start")
        os.environ.pop("DISPLAY", None)
        os.environ.update(WAYLAND_DISPLAY="desktop", QT_QPA_PLATFORM="wayland")

    def _start_window_manager(self):
        """The compositor is one."""


class WaylandTest(DesktopTest):
    @classmethod
    def make_desktop(cls):
        return WaylandDesktop()

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.write_settings(
            "ZLShowQuickEditSetting=true\nZLNewChapterOnStartSetting=false\nZLGlobalHotkeysSetting=true\n"
            f'ZLNewChapterKeyCombo="{stored_shortcut(CODE_OF_F6, 0)}"\n')
        server = cls.desktop.start("/usr/bin/python3", MOCK, "body", "actions", stdout=subprocess.PIPE, text=True)
        server.stdout.readline()
        server.stdout.close()

    def setUp(self):
        self.port = free_port()
        self.show = self.desktop.home / "show.zelta"
        self.program = self.desktop.start(PROGRAM, "--osc-port", self.port, self.show_with_a_chapter())
        self.addCleanup(self.end)
        import accessible  # The bindings look for their bus when they are imported.

        self.accessible = accessible
        self.tree = accessible.application()
        self.frame = accessible.find(self.tree, "frame", "show.zelta — Zelta")
        self.table = accessible.find(self.frame, "table", "Chapters")

    def show_with_a_chapter(self):
        subprocess.run([PROGRAM, "--headless", "--osc-port", "0", self.show], check=True, capture_output=True, text=True,
                       input="toggleRecording\nnewChapter\ntitle Before\ntoggleRecording\nquit\n")
        return self.show

    def end(self):
        self.program.terminate()
        self.program.wait(10)

    def titles(self):
        return [row[4] for row in self.accessible.table_texts(self.table)]

    def has_chapters(self, count):
        wait_until(lambda: len(self.titles()) == count, f"{count} chapters")

    @staticmethod
    def press_reply(notification):
        subprocess.run(["dbus-send", "--session", "--print-reply", f"--dest={NOTIFICATIONS}",
                        "/org/freedesktop/Notifications", "org.zelta.Test.Press", f"uint32:{notification}", "string:reply"],
                       check=True, capture_output=True)

    def test_a_show_with_marks_from_outside_and_a_title_typed_above_the_other_windows(self):
        self.assertEqual(self.titles(), ["Before"])
        oscsend(self.port, "/zl/toggleRecording", "f", 1)
        wait_until(lambda: self.accessible.find_all(self.frame, "push button", "Pause"), "the clock to run")
        oscsend(self.port, "/zl/newChapter", "f", 1)
        self.has_chapters(2)
        sent = subprocess.run([PROGRAM, "send", "newChapter"], check=True, capture_output=True, text=True)
        self.assertIn("added a chapter", sent.stdout)
        self.has_chapters(3)
        self.press_reply(2)
        panel = self.accessible.find(self.tree, "frame", "Chapter Title")
        field = self.accessible.find(panel, "text", "Chapter title")
        field.queryEditableText().setTextContents("Interview")
        self.accessible.press(self.accessible.find(panel, "push button", "Save"))
        wait_until(lambda: self.titles() == ["Before", "", "Interview"], "the title")

    def test_shortcuts_say_what_they_need(self):
        status = self.accessible.find(self.frame, "push button", "Global shortcuts refused")
        reason = "There is no desktop portal, so the desktop cannot be asked for shortcuts."
        self.assertEqual(status.description, reason)
        self.accessible.press(status)
        pane = self.accessible.find(self.tree, "frame", "Shortcuts")
        self.accessible.find(pane, "label", f"{reason} A key of the desktop's own settings can run “zelta send newChapter” instead.")


if __name__ == "__main__":
    unittest.main()
