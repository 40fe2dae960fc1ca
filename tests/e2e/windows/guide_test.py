#!/usr/bin/env python3
"""F1 opens the guide in the program that the desktop has for pages, in the language of the desktop."""

import os
import shutil
import sys
import unittest
from pathlib import Path
from urllib.parse import unquote, urlsplit

from desktop import Desktop, wait_until

PROGRAM = Path(sys.argv.pop(1)).resolve()


class GuideTest(unittest.TestCase):
    def setUp(self):
        self.desktop = Desktop()
        self.desktop.__enter__()
        self.addCleanup(self.desktop.__exit__)
        self.opened = self.desktop.home / "opened"
        browser = self.desktop.home / "bin/xdg-open"
        browser.parent.mkdir()
        browser.write_text(f'#!/bin/sh\necho "$1" > "{self.opened}.part"\nmv "{self.opened}.part" "{self.opened}"\n')
        browser.chmod(0o755)
        path = os.environ["PATH"]
        os.environ["PATH"] = f"{browser.parent}:{path}"
        self.addCleanup(os.environ.__setitem__, "PATH", path)

    def page_after_f1(self, program, locale, title):
        os.environ["LC_ALL"] = locale
        self.desktop.start(program)
        wait_until(lambda: self.has_keyboard(title), "the window to have the keyboard")
        self.desktop.press("F1")
        wait_until(self.opened.exists, "the guide to be opened")
        address = self.opened.read_text().strip()
        path = Path(unquote(urlsplit(address).path))
        self.assertTrue(path.is_file(), address)
        return path

    def has_keyboard(self, title):
        try:
            return title in self.desktop.xdotool("getactivewindow", "getwindowname")
        except Exception:  # Nothing has it yet.
            return False

    def test_the_program_in_its_build_folder_opens_the_page_that_was_built(self):
        page = self.page_after_f1(PROGRAM, "C.UTF-8", "Untitled")
        self.assertEqual(page, PROGRAM.parents[2] / "docs/GUIDE.html")

    def test_an_installed_program_opens_the_installed_page_in_the_language_of_the_desktop(self):
        installed = self.desktop.home / "usr"
        (installed / "bin").mkdir(parents=True)
        (installed / "share/doc/zelta").mkdir(parents=True)
        shutil.copy(PROGRAM, installed / "bin/zelta")
        for page in (PROGRAM.parents[2] / "docs").glob("*.html"):
            shutil.copy(page, installed / "share/doc/zelta")
        page = self.page_after_f1(installed / "bin/zelta", "de_DE.UTF-8", "Ohne Titel")
        self.assertEqual(page, installed / "share/doc/zelta/GUIDE.de.html")


if __name__ == "__main__":
    unittest.main()
