#!/usr/bin/env python3
"""Long lists of every form: read or refused in seconds and bounded memory, and in a time that grows with their length alone.

long_lists_test.py PROGRAM [large] [-v]; with "large" each list is as long as a list may be, and more. -v prints what each took.
"""

import sys
import tempfile
import unittest
from pathlib import Path

from measured_run import MeasuredRun

PROGRAM = Path(sys.argv.pop(1))
LARGE = "large" in sys.argv and not sys.argv.remove("large")
SHORT, LONG = (4_000_000, 16_000_000) if LARGE else (500_000, 2_000_000)
MOST_SECONDS = 15.0 if LARGE else 5.0
MOST_MEMORY = 1_000_000_000 if LARGE else 300_000_000
#: Four times the length; what grows with the square of it takes sixteen times as long.
MOST_GROWTH = 8.0


def clock(index, form="{:02}:{:02}:{:02}.{:03}"):
    return form.format(index // 3600, index // 60 % 60, index % 60, index % 1000)


#: What stands in front, each entry, what stands behind. An entry is a text, or makes one of its number.
LISTS = {
    "simple": ("", lambda i: f"{clock(i)} Title {i}\n", ""),
    "simple without times": ("0:00 a\n", "a line without a time\n", ""),
    "simple on one line": ("0:00 ", "a 1:00 ", ""),
    "links": ("", lambda i: f"{clock(i)} T <https://example.org/{i}>\n", ""),
    "numbered": ("", lambda i: f"CHAPTER{i:03}={clock(i)}\nCHAPTER{i:03}NAME=T\n", ""),
    "numbered alike": ("CHAPTER01=00:00:00.000\n", "CHAPTER01NAME=T\n", ""),
    "audacity": ("", lambda i: f"{i}.000000\t{i}.500000\tTitle\n", ""),
    "audacity frequencies": ("0.0\t0.0\tT\n", "\\\t10\t20\n", ""),
    "reaper": ("#,Name,Start,End,Length\n", lambda i: f"M{i},\"a \"\"b\"\"\",{clock(i, '{:01}:{:02}:{:02}.{:03}')},,\n", ""),
    "reaper quotes": ("#,Name,Start,End,Length\nM1,\"", "\"\",", ""),
    "ffmetadata": (";FFMETADATA1\n", lambda i: f"[CHAPTER]\nTIMEBASE=1/1\nSTART={i}\nEND={i + 1}\ntitle=T\n", ""),
    "ffmetadata escapes": (";FFMETADATA1\n[CHAPTER]\nTIMEBASE=1/1\nSTART=0\nEND=1\ntitle=", "\\\n\\=", "\n"),
    "webvtt": ("WEBVTT\n\n", lambda i: f"{clock(i)} --> {clock(i + 1)}\n<b>T</b>\n\n", ""),
    "webvtt one cue": ("WEBVTT\n\n00:00:00.000 --> 00:00:01.000\n", "line\n", ""),
    "webvtt tags": ("WEBVTT\n\n00:00:00.000 --> 00:00:01.000\n", "<b", ""),
    "cue": ('FILE "a.wav" WAVE\n', lambda i: f'  TRACK {i % 99 + 1:02} AUDIO\n    TITLE "T"\n    INDEX 01 {i}:00:00\n', ""),
    "podcast": ('{"version":"1.2.0","chapters":[{"startTime":0}', lambda i: f',{{"startTime":{i},"title":"T"}}', "]}"),
    "streams": ('[{"start-time":0,"titles":[]}', lambda i: f',{{"start-time":{i},"titles":[{{"language":"en","title":"T"}}]}}', "]"),
    "streams with many titles": ('[{"start-time":0,"titles":[{"language":"en","title":"T"}', ',{"language":"de","title":"T"}', "]}]"),
    "shown": ('{"duration":1,"chapters":[{"timeStamp":0}', lambda i: f',{{"timeStamp":{i},"title":"T"}}', "]}"),
    "json in json": ('{"chapters":', "[", ""),
    "podlove": ('<psc:chapters xmlns:psc="http://podlove.org/simple-chapters">',
                lambda i: f'<psc:chapter start="{clock(i)}" title="T"/>', "</psc:chapters>"),
    "feed": ("<rss><channel>", lambda i: f'<item><title>{i}</title><chapters xmlns="http://podlove.org/simple-chapters">'
             '<chapter start="0" title="T"/></chapters></item>', "</channel></rss>"),
    "matroska": ("<Chapters><EditionEntry>", lambda i: f"<ChapterAtom><ChapterTimeStart>{clock(i)}</ChapterTimeStart>"
                 "<ChapterDisplay><ChapterString>T</ChapterString></ChapterDisplay></ChapterAtom>", "</EditionEntry></Chapters>"),
    "matroska in matroska": ("<Chapters><EditionEntry>", "<ChapterAtom>", ""),
    "fcpxml": ('<fcpxml version="1.3"><clip>', lambda i: f'<chapter-marker start="{i}/1s" value="T"/>', "</clip></fcpxml>"),
    "fcpxml in fcpxml": ('<fcpxml version="1.3">', '<clip offset="1s">', ""),
    "hindenburg": ("<Session><Markers>", lambda i: f'<Marker Id="{i}" Name="T" Time="{i}.000" Type="Chapter"/>', "</Markers></Session>"),
    "entities": ('<!DOCTYPE a [<!ENTITY b "', "b", '">]><psc:chapters><psc:chapter start="0" title="&b;&b;&b;"/></psc:chapters>'),
    "brackets": ("", "[{", ""),
    "blanks": ("0:00 a", " ", ""),
    "empty lines": ("0:00 a\n", "\n", "0:01 b"),
}


def text_of(size, head, entry, tail):
    if isinstance(entry, str):
        return head + entry * (size // len(entry)) + tail
    pieces, length, index = [head], len(head), 0
    while length < size:
        piece = entry(index)
        pieces.append(piece)
        length += len(piece)
        index += 1
    return "".join(pieces) + tail


class LongListsTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = Path(folder.name)

    def show(self, name, text):
        path = self.folder / "list.txt"
        path.write_text(text)
        run = MeasuredRun(self.folder, PROGRAM, "show", path)
        if "-v" in sys.argv:
            print(f"{name:26} {len(text) / 1e6:5.1f} MB {run.seconds:6.2f} s {run.memory / 1e6:6.1f} MB {run.status} "
                  f"{run.error.strip()[-80:]}", flush=True)
        self.assertIn(run.status, (0, 1), run.error)
        self.assertTrue(run.output or run.error)
        self.assertLess(run.seconds, MOST_SECONDS)
        self.assertLess(run.memory, MOST_MEMORY)
        return run

    def test_time_grows_with_the_length_alone(self):
        nothing = MeasuredRun(self.folder, PROGRAM, "--version").seconds
        for name, parts in LISTS.items():
            with self.subTest(name):
                short = self.show(name, text_of(SHORT, *parts)).seconds - nothing
                long = self.show(name, text_of(LONG, *parts)).seconds - nothing
                # A moment can be anything; only what takes long has to be looked at.
                if long > 1.0:
                    self.assertLess(long, short * MOST_GROWTH)

    def test_a_hundred_megabytes_are_refused_at_once(self):
        run = self.show("100 MB", "0:00 a\n" * 15_000_000)
        self.assertEqual(run.status, 1)
        self.assertIn("list.txt", run.error)
        self.assertLess(run.seconds, 1.0)

    def test_more_than_a_million_lines_are_refused(self):
        run = self.show("lines", "0:00\n" * 1_000_001)
        self.assertEqual(run.status, 1)
        self.assertIn("list.txt", run.error)


if __name__ == "__main__":
    unittest.main()
