"""The base of all tests that have a desktop."""

import shutil
import unittest

from desktop import Desktop


class DesktopTest(unittest.TestCase):
    """All tests of a class share one desktop, since the accessibility bindings stay with the bus that they found first."""

    @classmethod
    def make_desktop(cls):
        return Desktop()

    @classmethod
    def setUpClass(cls):
        cls.desktop = cls.make_desktop()
        cls.desktop.__enter__()
        cls.addClassCleanup(cls.desktop.__exit__)

    def forget_everything(self, *more_folders):
        """Makes the next start the first one. `more_folders` lie in the home folder."""
        for folder in ("config", "state", *more_folders):
            shutil.rmtree(self.desktop.home / folder, ignore_errors=True)

    @classmethod
    def write_settings(cls, lines):
        settings = cls.desktop.home / "config/zelta/zelta.conf"
        settings.parent.mkdir(parents=True, exist_ok=True)
        settings.write_text("[General]\n" + lines)

    def start_process(self, *command, **options):
        """A process that ends with the test."""
        process = self.desktop.start(*command, **options)
        self.addCleanup(process.wait, 10)
        self.addCleanup(process.terminate)
        return process
