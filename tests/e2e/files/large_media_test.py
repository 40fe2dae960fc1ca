#!/usr/bin/env python3
"""Media files of more than four gigabytes, on demand: tests/e2e/run large_media PROGRAM

The files have holes; what is written has none, so that twelve gigabytes have to be free. Their sound lies behind the first four
gigabytes, where an offset of 32 bits does not reach. Each is written in place, read again by the program and by others, and
takes no more memory than a small one.
"""

import os
import shutil
import struct
import sys
import tempfile
import unittest
from pathlib import Path

import hostile_media as parts
import media_files as files
import media_readers as readers
from measured_run import MeasuredRun
from surface import archive

PROGRAM = Path(sys.argv.pop(1))
HOLE = 4_500_000_000
MOST_MEMORY = 200_000_000
CHAPTERS = [(0.0, "Welcome"), (10.5, "Grüße"), (29.25, "Outlook")]


def wanted(chapters):
    return [(round(seconds * 1000), title) for seconds, title in chapters]


def found(rows):
    return [(round(time), title) for time, title, _ in rows]


class LargeMediaTest(unittest.TestCase):
    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="zelta-large-", dir=os.environ.get("ZELTA_TEST_LARGE_FOLDER")))
        self.addCleanup(shutil.rmtree, self.folder)
        free = shutil.disk_usage(self.folder).free
        self.assertGreater(free, 12_000_000_000, f"{free} bytes are free in {self.folder}")

    def document(self, chapters):
        path = self.folder / "show.zelta"
        rows = [{"TimeStamp": seconds, "Enabled": True, "Title": title, "Link": "", "Tags": ""} for seconds, title in chapters]
        path.write_bytes(archive({"Chapters": rows, "Duration": 30.0, "Templates": []}))
        return path

    def write(self, path, chapters=None, expected=0):
        run = MeasuredRun(self.folder, PROGRAM, "write", self.document(chapters or CHAPTERS), path, most_seconds=300)
        print(f"{path.name}: {run.seconds:.1f} s of the processor, {run.memory / 1e6:.0f} MB")
        self.assertEqual(run.status, expected, run.error)
        self.assertLess(run.memory, MOST_MEMORY)
        return run

    def shown(self, path):
        run = MeasuredRun(self.folder, PROGRAM, "show", path)
        self.assertEqual(run.status, 0, run.error)
        self.assertLess(run.seconds, 1.0)
        return run.output

    def check_mp4(self, path):
        sound = readers.packets(path)
        for chapters in CHAPTERS, CHAPTERS[1:]:
            self.write(path, chapters)
            self.assertEqual(found(readers.by_ffprobe(path)), wanted(chapters))
            self.assertEqual(found(readers.by_mutagen_mp4(path)), wanted(chapters))
            self.assertEqual(readers.packets(path), sound)

    def small_mp4(self):
        content = files.aac(self.folder, "small.m4a").read_bytes()
        moov, mdat = content.rindex(b"moov") - 4, content.index(b"mdat") - 4
        size = struct.unpack(">I", content[mdat:mdat + 4])[0]
        return content[:mdat], content[mdat + 8:mdat + size], content[moov:]

    def test_mp4_with_the_description_at_the_end(self):
        start, sound, moov = self.small_mp4()
        data = struct.pack(">I4sQ", 1, b"mdat", 16 + HOLE + len(sound))
        path = parts.store(self.folder, "end.m4a", start, data, HOLE, sound, files.widen_chunks(moov, HOLE + 8))
        self.check_mp4(path)

    def test_mp4_with_the_description_in_front(self):
        start, sound, moov = self.small_mp4()
        # Of the same size whatever the offsets in it are.
        moved = HOLE + 8 + len(files.widen_chunks(moov, 0))
        data = struct.pack(">I4sQ", 1, b"mdat", 16 + HOLE + len(sound))
        path = parts.store(self.folder, "front.m4a", start, files.widen_chunks(moov, moved), data, HOLE, sound)
        self.check_mp4(path)

    def test_rf64(self):
        sound = HOLE // 4 * 4
        size = 4 + 36 + len(parts.FORMAT) + 8 + sound
        path = parts.store(self.folder, "large.wav", parts.rf64(size, sound, parts.FORMAT, b"data\xff\xff\xff\xff"), sound - 4, b"last")
        for chapters in [*CHAPTERS, (25_000.5, "Late")], CHAPTERS:
            self.write(path, chapters)
            self.assertEqual(found(readers.by_ffprobe(path)), wanted(chapters))
            self.assertIn(chapters[-1][1], self.shown(path))
        with open(path, "rb") as file:
            file.seek(path.stat().st_size - 1000)
            self.assertIn(b"last", file.read())

    def test_a_wave_file_with_small_sizes_is_refused_at_its_end(self):
        sound = 0xFFFFFFFF // 4 * 4 - 100
        path = parts.store(self.folder, "small.wav", b"RIFF" + struct.pack("<I", sound + 36) + b"WAVE", parts.FORMAT,
                           b"data" + struct.pack("<I", sound), sound)
        before = path.stat()
        self.assertIn("4 GiB", self.write(path, expected=1).error)
        self.assertEqual((path.stat().st_ino, path.stat().st_mtime_ns), (before.st_ino, before.st_mtime_ns))

    def test_mp3(self):
        start = files.mp3_ffmpeg(self.folder).read_bytes()
        path = parts.store(self.folder, "large.mp3", start, HOLE, parts.MP3_SOUND)
        for chapters in CHAPTERS, CHAPTERS[1:]:
            self.write(path, chapters)
            self.assertEqual(found(readers.by_mutagen_id3(path)), wanted(chapters))
            self.assertIn("Outlook", self.shown(path))
        with open(path, "rb") as file:
            file.seek(-len(parts.MP3_SOUND), os.SEEK_END)
            self.assertEqual(file.read(), parts.MP3_SOUND)

    def test_opus_whose_pages_are_numbered_anew(self):
        packet = b"OpusTags" + parts.comments([b"x=" + b"y" * 64_900])
        last = parts.packet_page(b"\xfc", number=900, position=48_000 * 30)
        path = parts.store(self.folder, "large.opus", parts.OPUS_HEAD, *parts.split_pages(packet), HOLE, last)
        self.write(path)
        self.assertEqual(found(readers.by_mutagen_comments(path)), wanted(CHAPTERS))
        with open(path, "rb") as file:
            file.seek(-len(last), os.SEEK_END)
            self.assertEqual(file.read(), parts.packet_page(b"\xfc", number=901, position=48_000 * 30))

    def test_flac(self):
        info = parts.INFO
        path = parts.store(self.folder, "large.flac", b"fLaC", info, parts.metadata(1, bytes(20), last=True), HOLE, b"last")
        self.write(path, [(0.0, "Welcome"), (9.5, "News")])
        self.assertEqual(found(readers.by_mutagen_comments(path)), wanted([(0.0, "Welcome"), (9.5, "News")]))
        with open(path, "rb") as file:
            file.seek(-4, os.SEEK_END)
            self.assertEqual(file.read(), b"last")


if __name__ == "__main__":
    unittest.main()
