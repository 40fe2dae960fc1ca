#!/usr/bin/env python3
"""Chapters into audio files of every form and by several encoders, read again by programs that others wrote."""

import json
import os
import shutil
import struct
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

import media_files as files
import media_readers as readers
from peer_libraries import CannotFetch, PeerLibraries
from surface import archive

PROGRAM = Path(sys.argv.pop(1))
LIBRARIES = Path(sys.argv.pop(1))
LINK = "https://example.org/a?b=c&d=ü"
#: Seconds, title, link. The last one lies within the last second of the sound. No title has more
#: than 126 bytes: ffprobe skips chapters with longer ones in tags of version 2.4, where it misreads the size.
CHAPTERS = [(0.0, "Welcome", ""), (0.5, "Grüße & <Küsse>", LINK), (10.5, "日本語のタイトル", "https://example.org/"),
            (10.999, "Ελληνικά Русский العربية", ""), (12.0, "🎙 emoji \"quoted\"", ""), (29.25, "x" * 100, "")]
FEWER = [(2.5, "Later", ""), (20.001, "Enough", "")]


def chapter(seconds, title, link, enabled=True):
    return {"TimeStamp": seconds, "Enabled": enabled, "Title": title, "Link": link, "Tags": ""}


def rows(chapters):
    return [(seconds * 1000, title, link) for seconds, title, link in chapters]


class MediaTestCase(unittest.TestCase):
    node = None

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def document(self, chapters):
        path = self.folder / "show.zelta"
        path.write_bytes(archive({"Chapters": [chapter(*each) for each in chapters], "Duration": 30.0, "Templates": []}))
        return path

    def run_zelta(self, *arguments, expected=0):
        answer = subprocess.run([PROGRAM, *map(str, arguments)], capture_output=True, text=True, check=False, timeout=60,
                                env={**os.environ, "LC_ALL": "C.UTF-8", "LANGUAGE": ""})
        self.assertEqual(answer.returncode, expected, answer)
        return answer

    def write(self, chapters, path):
        answer = self.run_zelta("write", self.document(chapters), path)
        self.assertEqual(answer.stdout, f"{len(chapters)} of {len(chapters)} chapters are in {path.name}\n")
        return answer

    def assert_read(self, reader, found, wanted):
        """A reader that tells no links is not asked for them."""
        self.assertEqual(len(found), len(wanted), (reader, found))
        for (time, title, link), (wanted_time, wanted_title, wanted_link) in zip(found, wanted):
            self.assertLessEqual(abs(time - wanted_time), 1.0, (reader, found))
            self.assertEqual(title, wanted_title, (reader, found))
            if link is not None:
                self.assertEqual(link.replace("%C3%BC", "ü"), wanted_link, (reader, found))

    def check_file(self, path, chapter_readers, everything_else):
        """Writes, reads and compares, twice: the second time in place of the first."""
        path.chmod(0o640)
        before = readers.packets(path), everything_else(path)
        for chapters in CHAPTERS, FEWER:
            self.write(chapters, path)
            for reader in chapter_readers:
                self.assert_read(reader.__name__, reader(path), rows(chapters))
            self.assertEqual(readers.packets(path), before[0])
            self.assertEqual(everything_else(path), before[1])
        self.assertEqual(path.stat().st_mode & 0o777, 0o640)
        self.assertEqual([each.name for each in self.folder.iterdir() if each.name.startswith(path.name + ".")], [])

    def node_reader(self, library):
        def read(path):
            return self.node.read(library, path)

        read.__name__ = library
        return read


class MP3Test(MediaTestCase):
    def check(self, make, **expected):
        path = make(self.folder)
        version = readers.id3_tags(path)[1]
        chapter_readers = [readers.by_ffprobe, readers.by_mutagen_id3]
        if self.node:
            chapter_readers.append(self.node_reader("node-id3"))

        def everything_else(file):
            tags, _ = readers.id3_tags(file)
            return expected.get("tags", tags), readers.end_of_mp3(file)

        self.check_file(path, chapter_readers, everything_else)
        self.assertEqual(readers.id3_tags(path)[1], expected.get("version", version or (2, 3, 0)))

    def test_files_of_every_kind(self):
        for make in files.MP3_FILES:
            if make is not files.mp3_with_v2_2:
                with self.subTest(make.__name__):
                    self.check(make)

    def test_an_old_tag_becomes_a_newer_one_and_that_is_said(self):
        path = files.mp3_with_v2_2(self.folder)
        answer = self.write(CHAPTERS, path)
        self.assertIn("ID3v2.3", answer.stderr)
        tags = readers.mutagen.id3.ID3(path, translate=False)
        self.assertEqual(tags.version, (2, 3, 0))
        self.assertEqual(tags["TIT2"].text, ["Old tag"])
        self.assertEqual(tags["TPE1"].text, ["Somebody"])
        self.assertEqual(str(tags["TCMP"]), "1")
        self.assertEqual(tags.getall("APIC")[0].data, files.picture())
        self.assertEqual(tags.getall("APIC")[0].mime, "image/png")
        self.assert_read("ffprobe", readers.by_ffprobe(path), rows(CHAPTERS))

    def test_each_chapter_ends_where_the_next_begins(self):
        path = files.mp3_variable_without_count(self.folder)
        self.write(FEWER, path)
        ends = readers.ends_by_mutagen_id3(path)
        self.assertEqual(ends[0], 20001)
        self.assertLess(abs(ends[1] - 30000), 100)

    def test_pictures_of_chapters_stay_at_their_times(self):
        path = files.mp3_without_tag(self.folder)
        tags = files.mutagen.id3.ID3()
        for index, start in enumerate((500, 7000)):
            image = files.mutagen.id3.APIC(encoding=0, mime="image/png", type=3, desc="", data=files.picture())
            tags.add(files.mutagen.id3.CHAP(element_id=f"old{index}", start_time=start, end_time=start + 1000, sub_frames=[image]))
        tags.save(path, v2_version=3)
        answer = self.write(CHAPTERS, path)
        self.assertIn("at their time: 1.", answer.stderr)
        found = readers.mutagen.id3.ID3(path)
        with_pictures = {each.start_time: each.sub_frames.getall("APIC") for each in found.getall("CHAP")}
        self.assertEqual(with_pictures[500][0].data, files.picture())
        self.assertEqual([start for start, pictures in with_pictures.items() if pictures], [500])


class XiphTest(MediaTestCase):
    def check(self, make, chapter_readers):
        self.check_file(make(self.folder), chapter_readers, readers.comments)

    def test_ogg_files_of_every_kind(self):
        for make in files.OGG_FILES:
            with self.subTest(make.__name__):
                self.check(make, [readers.by_ffprobe, readers.by_mutagen_comments, readers.by_mediainfo])

    def test_flac_files_of_every_kind(self):
        for make in files.FLAC_FILES:
            with self.subTest(make.__name__):
                self.check(make, [readers.by_ffprobe, readers.by_mutagen_comments, readers.by_mediainfo])
                subprocess.run(["flac", "-t", "-s", *self.folder.glob("*.flac")], check=True)

    def test_pages_keep_their_checksums(self):
        for make in files.opus_with_picture, files.vorbis_with_picture:
            path = make(self.folder)
            self.write(CHAPTERS, path)
            checked = subprocess.run(["ogginfo", path], capture_output=True, text=True, check=False)
            self.assertEqual(checked.returncode, 0, checked.stdout)
            self.assertNotIn("WARNING: Hole", checked.stdout)
            self.assertNotIn("discontinuity", checked.stdout)


    def test_what_is_no_page_stays_where_it_is(self):
        """Between the pages, while they are all numbered anew."""
        path = files.opus_with_picture(self.folder)
        content = path.read_bytes()
        last = content.rindex(b"OggS")
        junk = b"OggS" + b"no page" * 20_000 + b"OggS\0" + bytes(range(256)) * 300
        path.write_bytes(content[:last] + junk + content[last:])
        self.write([(1.0, "x" * 70_000, "")], path)
        after = path.read_bytes()
        self.assertEqual(after.count(junk), 1)
        number = 18
        old, new = content[last:], after[after.index(junk) + len(junk):]
        difference = struct.unpack_from("<I", new, number)[0] - struct.unpack_from("<I", old, number)[0]
        self.assertGreater(difference, 0)
        self.assertEqual(old[:number] + old[number + 8:], new[:number] + new[number + 8:])
        path.write_bytes(after.replace(junk, b""))
        checked = subprocess.run(["ogginfo", path], capture_output=True, text=True, check=False)
        self.assertEqual(checked.returncode, 0, checked.stdout)
        self.assertNotIn("WARNING: Hole", checked.stdout)


class WaveTest(MediaTestCase):
    def test_files_of_every_kind(self):
        for make in files.WAVE_FILES:
            with self.subTest(make.__name__):
                self.check(make(self.folder))

    def test_what_is_left_out_is_said(self):
        path = files.wave_sox(self.folder)
        chapters = [(-1.0, "early", ""), (1.0, "", LINK), (1.0, "twin", ""), (30.0, "late", ""), (3.0, "off", "", False)]
        answer = self.run_zelta("write", self.document(chapters), path)
        self.assertEqual(answer.stdout, "2 of 2 chapters are in sox.wav\n")
        said = answer.stderr.splitlines()
        self.assertEqual(len(said), 5, said)
        for words in "before the start of the file, left out: 1.", "behind the end of the file, left out: 1.", \
                "without a title, written with an empty one: 1.", "at the time of the one before", "Links left out: 1.":
            self.assertEqual(len([line for line in said if words in line]), 1, (words, said))
        self.assert_read("ffprobe", readers.by_ffprobe(path), [(1000, "", None), (1000, "twin", None)])

    def check(self, path):
        chapter_readers = [readers.by_ffprobe]
        # That library reads neither 64-bit sizes nor markers beside another list.
        if self.node and path.read_bytes()[:4] == b"RIFF" and b"INFO" not in path.read_bytes():
            chapter_readers.append(self.node_reader("wavefile"))
        wanted = [(seconds, title, None) for seconds, title, _ in CHAPTERS]
        before = readers.packets(path), readers.other_wave_chunks(path)
        for chapters in wanted, wanted[1:3]:
            self.write([(seconds, title, "") for seconds, title, _ in chapters], path)
            for reader in chapter_readers:
                self.assert_read(reader.__name__, reader(path), [(seconds * 1000, title, None) for seconds, title, _ in chapters])
            listed = readers.output("sndfile-info", path).decode()
            self.assertIn(f"labl : {len(chapters)} : {chapters[-1][1]}", listed)
            # It reads no markers where sizes have 64 bits.
            if path.read_bytes()[:4] == b"RIFF":
                self.assertIn(f"  Count : {len(chapters)}\n", listed)
            self.assertEqual((readers.packets(path), readers.other_wave_chunks(path)), before)

    def test_a_recording_that_was_cut_off_is_refused(self):
        path = files.wave_sox(self.folder)
        content = path.read_bytes()
        path.write_bytes(content[:-1000])
        answer = self.run_zelta("write", self.document(CHAPTERS), path, expected=1)
        self.assertIn("cut off", answer.stderr)
        self.assertEqual(path.read_bytes(), content[:-1000])


class MP4Test(MediaTestCase):
    def test_files_of_every_kind(self):
        for make in files.MP4_FILES:
            with self.subTest(make.__name__):
                self.check_file(make(self.folder), [readers.by_ffprobe, readers.by_mutagen_mp4, readers.by_mediainfo],
                                readers.mp4_tags)

    def test_writing_again_leaves_nothing_behind(self):
        for make in files.mp4_plain, files.mp4_description_first:
            path = make(self.folder)
            self.write(CHAPTERS, path)
            size = path.stat().st_size
            for _ in range(3):
                self.write(CHAPTERS, path)
            self.assertEqual(path.stat().st_size, size)

    def test_a_fragmented_file_is_refused_and_stays(self):
        path = files.mp4_fragmented(self.folder)
        content = path.read_bytes()
        answer = self.run_zelta("write", self.document(CHAPTERS), path, expected=1)
        self.assertIn("fragmented", answer.stderr)
        self.assertEqual(path.read_bytes(), content)

    def test_a_file_whose_sound_has_no_size_is_refused_and_stays(self):
        path = files.mp4_open_end(self.folder)
        content = path.read_bytes()
        answer = self.run_zelta("write", self.document(CHAPTERS), path, expected=1)
        self.assertIn("where the last part of this file ends", answer.stderr)
        self.assertEqual(path.read_bytes(), content)

    def test_the_description_stays_in_front_where_it_fits(self):
        path = files.mp4_description_first_with_room(self.folder)
        self.write(CHAPTERS, path)
        content = path.read_bytes()
        self.assertLess(content.index(b"moov"), content.index(b"mdat"))
        self.assertEqual(content.count(b"moov"), 1)


class CommandTest(MediaTestCase):
    def test_a_failure_does_not_stop_the_others(self):
        first, last = files.flac_flac(self.folder), files.mp3_without_tag(self.folder)
        broken = self.folder / "broken.mp3"
        broken.write_bytes(b"no sound")
        document = self.document(FEWER)
        answer = self.run_zelta("write", document, first, broken, self.folder / "missing.mp3", last, expected=1)
        self.assertEqual(answer.stdout, f"2 of 2 chapters are in {first.name}\n2 of 2 chapters are in {last.name}\n")
        self.assertEqual(len(answer.stderr.splitlines()), 2, answer.stderr)
        self.assertEqual(broken.read_bytes(), b"no sound")

    def test_a_shift_and_another_file(self):
        path = files.opus_opusenc(self.folder)
        content = path.read_bytes()
        target = self.folder / "out.opus"
        answer = self.run_zelta("write", "--shift", "-2.5", "--output", target, self.document(FEWER), path)
        self.assertEqual(answer.stdout, "2 of 2 chapters are in out.opus\n")
        self.assertEqual(path.read_bytes(), content)
        self.assert_read("mutagen", readers.by_mutagen_comments(target), [(0, "Later", ""), (17501, "Enough", "")])

    def test_a_name_with_line_breaks_is_told_on_one_line(self):
        path = files.flac_flac(self.folder).rename(self.folder / "two\nlines\x1b[31m.flac")
        self.assertEqual(self.run_zelta("write", self.document(FEWER), path).stdout, "2 of 2 chapters are in two lines [31m.flac\n")
        self.assert_read("mutagen", readers.by_mutagen_comments(path), rows(FEWER))

    def test_a_name_that_is_no_utf8_is_told(self):
        path = os.fsencode(self.folder) + b"/\xff.flac"
        os.rename(files.flac_flac(self.folder), path)
        answer = subprocess.run([PROGRAM, "write", self.document(FEWER), path], capture_output=True, check=False, timeout=60,
                                env={**os.environ, "LC_ALL": "C.UTF-8", "LANGUAGE": ""})
        self.assertEqual((answer.returncode, answer.stdout), (1, b""))
        self.assertIn(b"The name is not UTF-8 text", answer.stderr)

    def test_a_file_by_several_names_gets_its_chapters_under_each(self):
        path = files.flac_flac(self.folder)
        hard, soft = self.folder / "hard.flac", self.folder / "soft.flac"
        hard.hardlink_to(path)
        soft.symlink_to(path)
        answer = self.run_zelta("write", self.document(FEWER), path, hard, soft, path)
        self.assertEqual(len(answer.stdout.splitlines()), 4)
        self.assertTrue(soft.is_symlink())
        for each in path, hard, soft:
            self.assert_read("mutagen", readers.by_mutagen_comments(each), rows(FEWER))

    def test_wrong_usage(self):
        document = self.document(FEWER)
        for arguments in (document,), ("--shift", "soon", document, "a.mp3"), ("--shift", "nan", document, "a.mp3"), \
                ("--output", "o", document, "a.mp3", "b.mp3"), ("--output", "", document, "a.mp3"):
            self.run_zelta("write", *arguments, expected=2)

    def test_show_tells_chapters_and_length_of_an_audio_file(self):
        for make in files.mp3_variable_without_count, files.opus_opusenc, files.flac_flac, files.mp4_plain, files.wave_sox:
            path = make(self.folder)
            self.write(FEWER, path)
            shown = json.loads(self.run_zelta("show", "--json", path).stdout)
            self.assertLess(abs(shown["duration"] - 30.0), 0.1, path)
            self.assertEqual([(each["timeStamp"], each["title"]) for each in shown["chapters"]],
                             [(seconds, title) for seconds, title, _ in FEWER])
        self.assertIn("Enough", self.run_zelta("show", path).stdout)

    def test_no_chapter_in_reach_changes_nothing(self):
        path = files.flac_flac(self.folder)
        content = path.read_bytes()
        self.run_zelta("write", "--shift", "1000", self.document(FEWER), path, expected=1)
        self.assertEqual(path.read_bytes(), content)


def main():
    try:
        MediaTestCase.node = readers.NodeReaders(PeerLibraries(LIBRARIES, readers.SOURCE).folder)
    except CannotFetch as reason:
        print(f"without the readers of npm: {reason}")
    for tool in "ffmpeg", "ffprobe", "mediainfo", "lame", "opusenc", "oggenc", "ogginfo", "flac", "sox", "sndfile-info":
        assert shutil.which(tool), f"{tool} is not installed"
    unittest.main()


if __name__ == "__main__":
    main()
