#!/usr/bin/env python3
"""Chapters on their way into audio files, as a person writes them: by keyboard, in a real window, read back by ffprobe.

audio_sheet_test.py PROGRAM DRAG_SOURCE LEAVING_DISK [FOLDER]; with a folder, pictures are put there.
"""

import os
import select
import shutil
import struct
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

import media_files
import media_readers as readers
from desktop import focused_window, wait_until
from sheet import SheetTest
from surface import archive

PROGRAM = Path(sys.argv.pop(1))
DRAG_SOURCE = Path(sys.argv.pop(1))
LEAVING_DISK = Path(sys.argv.pop(1))
PICTURES = Path(sys.argv.pop(1)) if len(sys.argv) > 1 else None
CHAPTERS = [(0.5, "Grüße"), (10.25, "News"), (29.0, "Outlook")]


def chapter(seconds, title):
    return {"TimeStamp": seconds, "Enabled": True, "Title": title, "Link": "", "Tags": ""}


class AudioSheetTest(SheetTest):
    program = PROGRAM
    pictures = PICTURES

    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(dir=self.desktop.home))
        self.show = self.folder / "show.zelta"
        self.show.write_bytes(archive({"Chapters": [chapter(*each) for each in CHAPTERS], "Duration": 30.0,
                                       "Templates": []}))
        self.audio = media_files.mp3_rich(self.folder)

    def open(self, *arguments, **environment):
        return self.open_window(*(arguments or [self.show]), **environment)

    def open_sheet(self, *paths):
        self.desktop.press("ctrl+shift+e")
        self.choose("Choose Files…", *paths)

    def files(self):
        """File, form, length and state of each file in the sheet."""
        return self.rows_of("Audio files")

    def wait_for_state(self, row, text):
        wait_until(lambda: len(self.files()) > row and text in self.files()[row][3],
                   lambda: f"{text} in row {row}, not {self.files()}")

    def rows(self, path):
        return [(round(start), title) for start, title, _ in readers.by_ffprobe(path)]

    def assert_written(self, path, shift=0.0, chapters=None):
        wanted = [(round((seconds + shift) * 1000), title) for seconds, title in (chapters or CHAPTERS)]
        self.assertEqual(self.rows(path), wanted)

    def test_a_file_by_keyboard_alone(self):
        sound, tags = readers.packets(self.audio), readers.id3_tags(self.audio)
        self.open()
        self.open_sheet(self.audio)
        self.wait_for_state(0, "Chapters now: 0, to come: 3")
        self.assertEqual(self.files()[0][:3], [self.audio.name, "MP3", "0:30"])
        self.take("audio-sheet.png")
        self.desktop.press("Return")
        self.wait_for_state(0, f"3 of 3 chapters are in {self.audio.name}")
        self.node(None, f"3 of 3 chapters are in {self.audio.name}")
        self.assert_written(self.audio)
        self.assertEqual(readers.packets(self.audio), sound)
        self.assertEqual(readers.id3_tags(self.audio), tags)
        # The document knows the file the next time, and still the bytes that it had.
        before = self.show.read_bytes()
        self.desktop.press("Escape", "ctrl+q")
        self.window.process.wait(60)
        self.assertEqual(self.show.read_bytes(), before)
        self.open()
        self.desktop.press("ctrl+shift+e")
        self.wait_for_state(0, "Chapters now: 3, to come: 3")

    def test_a_shift_is_typed_and_counts(self):
        self.open()
        self.open_sheet(self.audio)
        self.wait_for_state(0, "to come: 3")
        self.desktop.press("alt+s", "ctrl+a")
        self.desktop.type("0.25")
        self.desktop.press("Return")
        self.wait_for_state(0, "3 of 3 chapters")
        self.assert_written(self.audio, shift=0.25)

    def test_marks_arrive_while_the_sheet_is_open_and_the_clock_runs(self):
        window = self.open()
        self.desktop.press("ctrl+r")
        wait_until(window.is_recording, "the clock to run")
        self.open_sheet(self.audio)
        self.wait_for_state(0, "to come: 3")
        clock = window.clock_text()
        wait_until(lambda: window.clock_text() != clock, "the clock to go on in sight")
        # By the key of the window: the title opens for typing in the table, beside the sheet.
        self.desktop.press("ctrl+Return")
        wait_until(lambda: len(window.titles()) == 4, "the mark in the table")
        self.desktop.type("Live")
        self.desktop.press("Return")
        wait_until(lambda: window.titles()[-1] == "Live", "its title")
        # By remote: the plan follows, though the mark lies behind the end of this file.
        subprocess.run(["oscsend", "127.0.0.1", str(window.osc_port), "/zl/newChapter", "f", "1"], check=True)
        wait_until(lambda: len(window.titles()) == 5, "the second mark")
        self.take("audio-sheet-recording.png")
        self.desktop.press("ctrl+shift+e")
        self.desktop.press("Return")
        self.wait_for_state(0, "3 of 3 chapters")
        self.assertTrue(window.is_recording())
        self.assert_written(self.audio)

    def test_several_files_of_which_some_fail(self):
        home = self.folder
        opus = media_files.opus_opusenc(home)
        closed = home / "closed"
        closed.mkdir()
        locked = closed / "locked.mp3"
        shutil.copy(self.audio, locked)
        text = home / "notes.mp3"
        text.write_text("These are notes.\n")
        self.open()
        self.open_sheet(self.audio, text, locked, opus)
        for row, state in enumerate(("to come: 3", "this is no audio file", "to come: 3", "to come: 3")):
            self.wait_for_state(row, state)
        # Who may do anything may write there, too, so the whole folder goes.
        shutil.rmtree(closed)
        self.desktop.press("Return")
        self.wait_for_state(3, f"3 of 3 chapters are in {opus.name}")
        self.wait_for_state(0, f"3 of 3 chapters are in {self.audio.name}")
        self.assertIn("this is no audio file", self.files()[1][3])
        self.assertNotIn("chapters are in", self.files()[2][3])
        self.node(None, "Chapters were written into 2 of 4 files.")
        self.take("audio-sheet-several.png")
        self.assert_written(self.audio)
        self.assert_written(opus)

    def test_a_file_that_changed_meanwhile_is_left_alone(self):
        self.open()
        self.open_sheet(self.audio)
        self.wait_for_state(0, "to come: 3")
        other = media_files.lame(self.folder, "other.mp3", "-b", 96, "--tt", "Other")
        subprocess.run(["ffmpeg", "-v", "error", "-y", "-i", other, "-t", "20", "-c", "copy", self.audio], check=True)
        content = self.audio.read_bytes()
        self.desktop.press("Return")
        self.wait_for_state(0, "Another program changed this file")
        self.assertEqual(self.audio.read_bytes(), content)
        self.wait_for_state(0, "Another program changed this file")
        wait_until(lambda: self.files()[0][2] == "0:20", "the file to be read again")
        self.desktop.press("Escape", "ctrl+shift+e", "Return")
        self.wait_for_state(0, "2 of 2 chapters")

    def large_wave(self):
        """Three gigabytes of silence, which take no room on the disk."""
        path = self.folder / "long.wav"
        size = 3_000_000_000
        with open(path, "wb") as file:
            file.write(b"RIFF" + struct.pack("<I", size + 36) + b"WAVEfmt " +
                       struct.pack("<IHHIIHH", 16, 1, 2, 44100, 176400, 4, 16) + b"data" + struct.pack("<I", size))
            file.truncate(size + 44)
        return path

    def test_a_long_copy_is_cancelled(self):
        path = self.large_wave()
        status = path.stat()
        self.open()
        self.open_sheet(path)
        self.wait_for_state(0, "to come: 3")
        names = sorted(os.listdir(path.parent))
        self.desktop.press("Return")
        self.wait_for_state(0, "Writing…")
        bar = self.node("progress bar", "Progress of the writing")
        wait_until(lambda: bar.queryValue().currentValue > 0, "the copy to go on in sight")
        self.take("audio-sheet-writing.png")
        self.desktop.press("Escape")
        self.wait_for_state(0, "The writing was cancelled.")
        self.assertEqual((path.stat().st_ino, path.stat().st_mtime_ns), (status.st_ino, status.st_mtime_ns))
        self.assertEqual(sorted(os.listdir(path.parent)), names)

    def test_a_disk_goes_away_while_it_is_written_to(self):
        path = self.large_wave()
        disk = self.folder / "disk"
        disk.mkdir()
        path = path.rename(disk / path.name)
        status = path.stat()
        lever = self.folder / "pulled"
        window = self.open(LD_PRELOAD=LEAVING_DISK, ZELTA_TEST_LEAVE_PATH=disk, ZELTA_TEST_LEAVE_SWITCH=lever)
        self.open_sheet(path)
        self.wait_for_state(0, "to come: 3")
        self.desktop.press("Return")
        self.wait_for_state(0, "Writing…")
        bar = self.node("progress bar", "Progress of the writing")
        wait_until(lambda: bar.queryValue().currentValue > 0, "the copy to go on in sight")
        lever.touch()
        self.wait_for_state(0, "Input/output error")
        self.take("audio-sheet-disk-gone.png")
        count = len(window.titles())
        self.desktop.press("ctrl+r")
        wait_until(window.is_recording, "the clock to run without the disk")
        self.desktop.press("ctrl+Return")
        wait_until(lambda: len(window.titles()) > count, "a mark without the disk")
        lever.unlink()
        self.assertEqual((path.stat().st_ino, path.stat().st_mtime_ns), (status.st_ino, status.st_mtime_ns))
        self.assertEqual(os.listdir(disk), [path.name])
        # The disk is back, and the sheet sees it by itself.
        self.wait_for_state(0, f"Chapters now: 0, to come: {len(window.titles())}")
        self.desktop.press("ctrl+shift+e", "Return")
        self.wait_for_state(0, "Writing…")
        self.desktop.press("Escape")
        self.wait_for_state(0, "The writing was cancelled.")

    def drop(self, *paths):
        """On the chapters, with the mouse, from the window of another program."""
        program = self.desktop.start(DRAG_SOURCE, *paths, stdout=subprocess.PIPE)
        self.addCleanup(program.stdout.close)
        self.addCleanup(program.wait, 60)
        self.addCleanup(program.terminate)
        source = wait_until(lambda: subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "Drag Source"],
                                                   capture_output=True, text=True, check=False).stdout.strip(),
                            "the window to drag from")
        table = self.window.accessible.find(self.window.frame, "table", "Chapters")
        x, y = map(int, self.window.accessible.center(table))
        xdotool = self.desktop.xdotool
        xdotool("windowmove", "--sync", source, 0, 680)
        # A window that has not answered when the button is let go gets nothing.
        for _ in range(10):
            xdotool("mousemove", "--window", source, 40, 40, "mousedown", 1)
            for step in range(21):
                xdotool("mousemove", x - 20 + step, y)
            xdotool("mouseup", 1)
            if select.select([program.stdout], [], [], 6)[0] and program.stdout.readline() == b"taken\n":
                return
        self.fail("the window took none of the files")

    def test_an_audio_file_is_dropped_on_the_window(self):
        self.open()
        self.drop(self.audio)
        self.wait_for_state(0, "Chapters now: 0, to come: 3")
        self.assertEqual(self.files()[0][0], self.audio.name)

    def test_two_hundred_files_are_dropped_and_written(self):
        paths = [self.folder / f"{number:03}.mp3" for number in range(200)]
        for path in paths:
            shutil.copy(self.audio, path)
        paths[100].write_text("no sound")
        self.open()
        self.drop(*paths)
        self.wait_for_state(199, "Chapters now: 0, to come: 3")
        self.assertIn("this is no audio file", self.files()[100][3])
        # The window from which they came has the keyboard.
        self.window.accessible.press(self.node("push button", "Write"))
        self.wait_for_text("Chapters were written into 199 of 200 files.")
        self.take("audio-sheet-many.png")
        for path in paths[0], paths[99], paths[199]:
            self.assert_written(path)
        self.assertEqual(paths[100].read_text(), "no sound")

    def test_a_list_is_dropped_on_the_chapters(self):
        notes = self.folder / "notes.txt"
        notes.write_text("Show notes\n0:05 From the list\n0:20 Ende https://example.org/\n")
        window = self.open()
        self.drop(notes)
        wait_until(lambda: window.accessible.find_all(window.frame, "label", "2 chapters from notes.txt, read as Simple List"),
                   "the sheet of an import")
        self.take("import-dropped.png")
        self.window.accessible.press(self.node("push button", "Import"))
        wait_until(lambda: len(window.titles()) == 5, "the chapters")
        self.assertEqual(window.titles(), ["Grüße", "From the list", "News", "Ende", "Outlook"])

    def test_the_chapters_of_an_audio_file_are_imported(self):
        subprocess.run([PROGRAM, "write", "--shift", "0.25", self.show, self.audio], check=True, capture_output=True)
        window = self.open()
        self.open_sheet(self.audio)
        self.wait_for_state(0, "Chapters now: 3, to come: 3")
        self.take("audio-sheet-import.png")
        self.window.accessible.press(self.node("push button", "Import Its Chapters"))
        wait_until(lambda: len(window.titles()) == 6, "the chapters of the file")
        self.assertEqual(window.titles(), ["Grüße", "Grüße", "News", "News", "Outlook", "Outlook"])
        self.desktop.press("Escape", "ctrl+z")
        wait_until(lambda: len(window.titles()) == 3, "one step back")

    def test_an_audio_file_opens_as_a_document(self):
        subprocess.run([PROGRAM, "write", self.show, self.audio], check=True, capture_output=True)
        content = self.audio.read_bytes()
        window = self.open(self.audio)
        self.assertEqual(window.titles(), [title for _, title in CHAPTERS])
        self.assertEqual(window.clock_text(), "00:00:30.0")
        self.assertIn("Untitled", window.frame.name)
        self.desktop.press("F2")
        self.desktop.type("Changed")
        self.desktop.press("Return", "ctrl+s")
        wait_until(lambda: focused_window() != self.main, "the dialog that asks for a name")
        self.desktop.press("Escape")
        self.assertEqual(self.audio.read_bytes(), content)


if __name__ == "__main__":
    unittest.main()
