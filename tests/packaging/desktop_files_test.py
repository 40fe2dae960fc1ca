#!/usr/bin/env python3
"""What tells the desktop and the shell about the program: read by the tools that check such files, and in step with
what the program says of itself."""

import re
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

PROGRAM = Path(sys.argv.pop(1)).resolve()
FILES = Path(__file__).resolve().parents[2] / "packaging"
ENTRIES = ("org.zelta.Zelta.desktop", "zelta-audio.desktop")
PLAYER = ("[Desktop Entry]\nType=Application\nName={name}\nExec={name} %F\n"
          "MimeType=audio/mpeg;audio/mp4;audio/ogg;audio/flac;audio/x-wav;\n")
SHELL_FILES = ("completions/zelta.bash", "completions/_zelta", "completions/zelta.fish")


def run(*command, **options):
    return subprocess.run([str(word) for word in command], capture_output=True, text=True, check=False, **options)


class DesktopFilesTest(unittest.TestCase):
    def assert_accepted(self, *command):
        answer = run(*command)
        self.assertEqual(answer.returncode, 0, answer.stdout + answer.stderr)
        return answer.stdout + answer.stderr

    def test_the_desktop_entries_are_valid(self):
        for name in ENTRIES:
            self.assertEqual(self.assert_accepted("desktop-file-validate", FILES / name), "")

    def test_audio_files_are_offered_behind_every_player(self):
        """A desktop on which nothing was chosen takes the first program for a file."""
        with tempfile.TemporaryDirectory() as folder:
            for name in ENTRIES:
                shutil.copy(FILES / name, folder)
            for name in ("mpv", "vlc", "xplayer"):
                Path(folder, f"{name}.desktop").write_text(PLAYER.format(name=name))
            self.assert_accepted("update-desktop-database", folder)
            programs = dict(line.split("=", 1) for line in Path(folder, "mimeinfo.cache").read_text().splitlines()[1:])
            for kind in ("mpeg", "mp4", "ogg", "flac", "x-wav"):
                self.assertEqual(programs[f"audio/{kind}"], "mpv.desktop;vlc.desktop;xplayer.desktop;zelta-audio.desktop;")
            self.assertEqual(programs["application/x-zelta-chapters"], "org.zelta.Zelta.desktop;")

    def test_the_software_catalogue_entry_is_valid(self):
        self.assert_accepted("appstreamcli", "validate", "--no-net", FILES / "org.zelta.Zelta.metainfo.xml")

    def test_the_catalogue_names_the_version_of_the_program(self):
        version = run(PROGRAM, "--version").stdout.split()[-1]
        self.assertIn(f'<release version="{version}"', (FILES / "org.zelta.Zelta.metainfo.xml").read_text())
        self.assertIn(f"zelta ({version})", (FILES / "debian/changelog").read_text())
        self.assertIn(f'"Zelta {version}"', (FILES / "zelta.1").read_text())

    def test_the_page_is_well_formed(self):
        self.assertEqual(self.assert_accepted("man", "--warnings", "-E", "UTF-8", "-l", FILES / "zelta.1")[:0], "")
        warnings = run("groff", "-man", "-ww", "-z", FILES / "zelta.1")
        self.assertEqual(warnings.stderr, "")

    def test_the_page_and_the_shells_know_every_option_and_command(self):
        help_text = run(PROGRAM, "--help").stdout
        options = set(re.findall(r"--([a-z][a-z-]+)", help_text))
        words = set(re.findall(r"^  zelta ([a-z]+)", help_text, re.MULTILINE))
        actions = set(re.findall(r"^ {10}([a-zA-Z]+) ", help_text, re.MULTILINE))
        self.assertGreaterEqual(len(options), 9)
        self.assertEqual(len(actions), 6)
        for name in (*SHELL_FILES, "zelta.1"):
            text = (FILES / name).read_text().replace("\\-", "-")
            for word in options | words | actions:
                self.assertRegex(text, rf"\b{word}\b", f"{name} does not know {word}")


class BashCompletionTest(unittest.TestCase):
    def complete(self, *words):
        script = f"""
            PATH="{PROGRAM.parent}:$PATH"
            source "{FILES / 'completions/zelta.bash'}"
            COMP_WORDS=({' '.join(f"'{word}'" for word in words)})
            COMP_CWORD={len(words) - 1}
            _zelta
            printf '%s\\n' "${{COMPREPLY[@]}}"
        """
        answer = run("bash", "--norc", "-c", script, cwd=FILES)
        self.assertEqual(answer.returncode, 0, answer.stderr)
        return answer.stdout.split("\n")[:-1]

    def test_the_commands(self):
        self.assertIn("export", self.complete("zelta", "ex"))

    def test_the_actions(self):
        self.assertEqual(self.complete("zelta", "send", "new"), ["newChapter"])

    def test_the_formats_of_the_program(self):
        names = {line.split("\t")[0] for line in run(PROGRAM, "formats").stdout.splitlines()}
        offered = {word.replace("\\", "") for word in self.complete("zelta", "export", "--format", "")}
        self.assertEqual(offered, names)

    def test_audio_files_where_they_are_read(self):
        with tempfile.TemporaryDirectory() as folder:
            for name in ("a.zelta", "a.mp3", "a.txt"):
                Path(folder, name).touch()
            both = {f"{folder}/a.zelta", f"{folder}/a.mp3"}
            for words, wanted in (((), both), (("export",), {f"{folder}/a.zelta"})):
                self.assertEqual(set(self.complete("zelta", *words, f"{folder}/a")) - {""}, wanted)

    def test_the_options_of_a_command(self):
        self.assertEqual(self.complete("zelta", "show", "--"), ["--json", "--item"])


if __name__ == "__main__":
    unittest.main()
