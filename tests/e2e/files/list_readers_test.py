#!/usr/bin/env python3
"""Lists of chapters on their way to a library for chapters that others wrote, and from there back."""

import json
import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

from peer_libraries import CannotFetch, PeerLibraries
from surface import archive

PROGRAM = Path(sys.argv.pop(1))
SOURCE = Path(__file__).resolve().parent / "list_readers"
LIBRARIES = Path(sys.argv.pop(1))
LINK = "https://example.org/news?a=b"
#: Without the signs that XML and ffmetadata escape: the library writes and reads them as they stand.
CHAPTERS = [(0.0, "Welcome", ""), (10.5, "Grüße, «世界» – مرحبا", LINK), (62.04, "Q: 'x', 50 %", ""), (3725.004, "👩‍👩‍👧 done", "")]
#: Format, its name in the library, how exact its times are, whether the library tells its links.
WRITTEN = [("Podcast Chapters", "ChaptersJson", 0.0005, True), ("mp4chaps", "MP4Chaps", 0.0005, False),
           ("Auphonic", "MP4Chaps", 0.0005, True), ("ffmetadata", "FFMetadata", 0.0005, False),
           ("Matroska Chapters", "MKVMergeXML", 0.0005, False), ("WebVTT Chapters", "WebVTT", 0.0005, False),
           ("Podlove Simple Chapters", "PodloveSimpleChapters", 0.0005, True), ("JSON", "AppleHLS", 0.0005, False)]
#: What the library wants around a format that is a part of something larger.
AROUND = {"Podlove Simple Chapters": (b"<rss><channel><item>", b"</item></channel></rss>")}
#: The same for what the library writes. `show` reads it.
READ = [("ChaptersJson", 0.0005, True), ("MP4Chaps", 0.0005, True), ("FFMetadata", 0.0005, False), ("MKVMergeXML", 0.0005, False),
        ("MKVMergeSimple", 0.0005, False), ("VorbisComment", 0.0005, False), ("WebVTT", 0.0005, False), ("AppleHLS", 0.0005, False),
        ("PodloveSimpleChapters", 0.0005, True), ("Youtube", 1.0, False)]


class ListReadersTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = Path(folder.name)
        cls.document = cls.folder / "show.zelta"
        cls.document.write_bytes(archive({"Chapters": [
            {"TimeStamp": time, "Enabled": True, "Title": title, "Link": link, "Tags": ""} for time, title, link in CHAPTERS],
            "Duration": 4000.0, "Templates": []}))

    @staticmethod
    def output(*command):
        answer = subprocess.run([str(part) for part in command], capture_output=True, timeout=60, check=False,
                                env={**os.environ, "LC_ALL": "C.UTF-8", "LANGUAGE": ""})
        assert answer.returncode == 0, answer.stderr.decode()
        return answer.stdout

    def library(self, *arguments):
        return self.output("node", SOURCE / "reader.mjs", LIBRARIES, *arguments)

    def assert_same(self, found, precision, has_links):
        self.assertEqual([title for _, title, _ in found], [title for _, title, _ in CHAPTERS])
        for (time, title, link), (wanted, _, wanted_link) in zip(found, CHAPTERS):
            self.assertLess(wanted - time, precision + 1e-9, title)
            self.assertGreater(wanted - time, -0.0005, title)
            self.assertEqual(link, wanted_link if has_links else "", title)

    def test_the_library_reads_what_zelta_writes(self):
        for name, form, precision, has_links in WRITTEN:
            with self.subTest(name):
                path = self.folder / "written"
                begin, end = AROUND.get(name, (b"", b""))
                written = self.output(PROGRAM, "export", "--format", name, "--output", "-", self.document)
                path.write_bytes(begin + written + end)
                self.assert_same(json.loads(self.library(form, path)), precision, has_links)

    def test_zelta_reads_what_the_library_writes(self):
        podcast = self.folder / "chapters.json"
        podcast.write_bytes(self.output(PROGRAM, "export", "--format", "Podcast Chapters", "--output", "-", self.document))
        for form, precision, has_links in READ:
            with self.subTest(form):
                path = self.folder / "list"
                path.write_bytes(self.library(form, podcast, "write"))
                shown = json.loads(self.output(PROGRAM, "show", "--json", path))["chapters"]
                found = [(each["timeStamp"], each["title"], each.get("link", "")) for each in shown]
                self.assert_same(found, precision, has_links)


def main():
    try:
        PeerLibraries(LIBRARIES, SOURCE)
    except CannotFetch as reason:
        print(f"skipped: {reason}")
        sys.exit(77)
    unittest.main()


if __name__ == "__main__":
    main()
