#!/usr/bin/env python3
"""The Debian package: made by CPack, looked over by lintian, installed into a folder, run from there and removed."""

import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

import pages

BUILD = Path(sys.argv.pop(1)).resolve()

INSTALLED = (
    "usr/bin/zelta",
    "usr/share/applications/org.zelta.Zelta.desktop",
    "usr/share/applications/zelta-audio.desktop",
    "usr/share/mime/packages/org.zelta.Zelta.xml",
    "usr/share/metainfo/org.zelta.Zelta.metainfo.xml",
    "usr/share/icons/hicolor/scalable/apps/org.zelta.Zelta.svg",
    "usr/share/icons/hicolor/scalable/mimetypes/application-x-zelta-chapters.svg",
    "usr/share/man/man1/zelta.1.gz",
    "usr/share/bash-completion/completions/zelta",
    "usr/share/zsh/vendor-completions/_zelta",
    "usr/share/fish/vendor_completions.d/zelta.fish",
    "usr/share/doc/zelta/copyright",
    "usr/share/doc/zelta/changelog.gz",
    "usr/share/doc/zelta/GUIDE.html",
    "usr/share/doc/zelta/GUIDE.de.html",
    "usr/share/doc/zelta/OSC.html",
    "usr/share/doc/zelta/pictures/recording.png",
    "usr/share/doc/zelta/pictures/de/recording.png",
)


def run(*command, **options):
    return subprocess.run([str(word) for word in command], capture_output=True, text=True, check=False, **options)


class PackageTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory(prefix="zelta-package-")
        cls.addClassCleanup(cls.folder.cleanup)
        made = run("cpack", "-G", "DEB", "--config", BUILD / "CPackConfig.cmake", "-B", cls.folder.name,
                   env=dict(os.environ, LC_ALL="C.UTF-8"))
        if made.returncode != 0:
            raise AssertionError(made.stdout + made.stderr)
        (cls.package,) = Path(cls.folder.name).glob("zelta_*.deb")

    def dpkg(self, root, *command):
        """dpkg on a system of its own below `root`, which has none of the libraries: they are those of this one."""
        answer = run("dpkg", f"--root={root}", "--force-not-root", "--force-script-chrootless", "--force-depends",
                     "--log=/dev/null", *command)
        self.assertEqual(answer.returncode, 0, answer.stdout + answer.stderr)
        return answer.stdout

    @staticmethod
    def files_below(root):
        return sorted(str(path.relative_to(root)) for path in (root / "usr").rglob("*") if not path.is_dir())

    def test_lintian_finds_no_error(self):
        answer = run("lintian", "--no-tag-display-limit", "--fail-on", "error", "--allow-root", self.package)
        self.assertEqual(answer.returncode, 0, answer.stdout + answer.stderr)

    def test_it_depends_on_what_the_program_links(self):
        depends = run("dpkg-deb", "--field", self.package, "Depends").stdout
        for library in ("libqt6widgets6", "libqt6network6", "libqt6dbus6", "libqt6svg6", "libpulse0", "libxcb1"):
            self.assertIn(library, depends)

    def test_it_installs_runs_and_goes_without_a_trace(self):
        root = Path(self.folder.name) / "root"
        database = root / "var/lib/dpkg"
        (database / "updates").mkdir(parents=True)
        (database / "info").mkdir()
        (database / "status").touch()
        self.dpkg(root, "--install", self.package)
        installed = self.files_below(root)
        for path in INSTALLED:
            self.assertIn(path, installed)
        self.assertEqual(pages.faults_below(root / "usr/share/doc/zelta"), [])
        self.assert_runs(root)
        self.dpkg(root, "--purge", "zelta")
        self.assertFalse((root / "usr").exists() and self.files_below(root))

    def assert_runs(self, root):
        program = root / "usr/bin/zelta"
        home = Path(self.folder.name) / "home"
        home.mkdir()
        environment = dict(os.environ, HOME=str(home), XDG_STATE_HOME=str(home), XDG_CONFIG_HOME=str(home))
        show = home / "show.zelta"
        recorded = run(program, "--headless", "--osc-port", "0", show, input="toggleRecording\ntoggleRecording\nquit\n", env=environment,
                       timeout=30)
        self.assertEqual(recorded.returncode, 0, recorded.stderr)
        chapters = run(program, "export", "--format", "Podlove Simple Chapters", "--output", home / "show.psc", show,
                       env=environment)
        self.assertEqual(chapters.returncode, 0, chapters.stderr)
        self.assertIn("<psc:chapter ", (home / "show.psc").read_text())


if __name__ == "__main__":
    unittest.main()
