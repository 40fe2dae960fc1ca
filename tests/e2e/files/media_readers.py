"""What programs and libraries that others wrote find in media files: chapters, packets of sound, and everything else."""

import json
import os
import re
import struct
import subprocess
from pathlib import Path

import mutagen
import mutagen.id3
import mutagen.mp4

SOURCE = Path(__file__).resolve().parent / "media_readers"


def output(*command, **options):
    return subprocess.run([str(part) for part in command], check=True, capture_output=True, timeout=120, **options).stdout


# Chapters: lists of (milliseconds, title, link), the link None where the reader tells none.

def by_ffprobe(path):
    found = json.loads(output("ffprobe", "-v", "error", "-show_chapters", "-of", "json", path))["chapters"]
    return [(float(chapter["start_time"]) * 1000, chapter.get("tags", {}).get("title", ""), None) for chapter in found]


def by_mediainfo(path):
    """Of the menus that it shows, one for each form of chapters in the file, all have to be the same."""
    tracks = json.loads(output("mediainfo", "--Output=JSON", path))["media"]["track"]
    menus = [track.get("extra", {}) for track in tracks if track["@type"] == "Menu"]
    lists = []
    for menu in menus:
        times = [(re.fullmatch(r"_(\d+)_(\d\d)_(\d\d)_(\d{3})", key), title) for key, title in menu.items()]
        lists.append([((int(t[1]) * 3600 + int(t[2]) * 60 + int(t[3])) * 1000 + int(t[4]), title, None)
                      for t, title in times if t])
    assert all(each == lists[0] for each in lists), lists
    return lists[0] if lists else []


def by_mutagen_id3(path):
    tags = mutagen.id3.ID3(path)
    contents = tags.getall("CTOC")
    if not contents:
        return []
    assert len(contents) == 1 and contents[0].flags == 3, contents
    chapters = {chapter.element_id: chapter for chapter in tags.getall("CHAP")}
    assert len(chapters) == len(contents[0].child_element_ids)
    found = []
    for name in contents[0].child_element_ids:
        chapter = chapters[name]
        links = chapter.sub_frames.getall("WXXX")
        assert chapter.start_offset == chapter.end_offset == 0xFFFFFFFF and chapter.end_time >= chapter.start_time
        found.append((chapter.start_time, chapter.sub_frames["TIT2"].text[0] if chapter.sub_frames["TIT2"].text else "",
                      links[0].url if links else ""))
    return found


def ends_by_mutagen_id3(path):
    chapters = mutagen.id3.ID3(path).getall("CHAP")
    return [chapter.end_time for chapter in sorted(chapters, key=lambda chapter: (chapter.start_time, chapter.end_time))]


def by_mutagen_mp4(path):
    return [(chapter.start * 1000, chapter.title, None) for chapter in mutagen.mp4.MP4(path).chapters or []]


def by_mutagen_comments(path):
    """The fields as they stand, numbered without a gap."""
    fields = dict(mutagen.File(path).tags)
    found = []
    for index in range(1000):
        key = f"chapter{index:03}"
        if key not in fields:
            assert not any(name.startswith("chapter") for name in fields if name[7:10].isdigit() and int(name[7:10]) > index)
            break
        hours, minutes, seconds = fields[key][0].split(":")
        assert re.fullmatch(r"\d\d\.\d{3}", seconds), seconds
        found.append((round((int(hours) * 60 + int(minutes)) * 60000 + float(seconds) * 1000), fields[key + "name"][0],
                      fields.get(key + "url", [""])[0]))
    return found


def wave_chunks(path):
    """(kind, contents) of each chunk of a WAV file; those with 64-bit sizes too."""
    content = Path(path).read_bytes()
    assert content[:4] in (b"RIFF", b"RF64") and content[8:12] == b"WAVE"
    at, large, chunks = 12, 0, []
    while at + 8 <= len(content):
        kind, size = content[at:at + 4], struct.unpack("<I", content[at + 4:at + 8])[0]
        if kind == b"ds64":
            riff, large = struct.unpack("<QQ", content[at + 8:at + 24])
            assert riff == len(content) - 8, (riff, len(content))
        size = large if kind == b"data" and size == 0xFFFFFFFF else size
        chunks.append((kind, content[at + 8:at + 8 + size]))
        at += 8 + size + size % 2
    assert content[:4] == b"RF64" or struct.unpack("<I", content[4:8])[0] == len(content) - 8
    return chunks


class NodeReaders:
    """node-id3 and wavefile; `peers` is the folder that they were fetched into."""

    def __init__(self, folder):
        self.environment = {**os.environ, "NODE_PATH": str(Path(folder) / "node_modules")}

    def read(self, library, path):
        return [tuple(row) for row in json.loads(output("node", SOURCE / "reader.js", library, path, env=self.environment))]


# What has to stay.

def packets(path):
    """Every packet of sound with its time, its size and its hash."""
    lines = output("ffmpeg", "-v", "error", "-i", path, "-map", "0:a", "-c", "copy", "-f", "framemd5", "-").decode()
    # Behind the hash stand things that go along with a packet, such as the tags of the file.
    rows = [line.split(",")[:6] for line in lines.splitlines() if not line.startswith("#")]
    assert len(rows) > 10, rows
    return rows


def id3_tags(path):
    """All frames but those of chapters, with the bytes of the unknown ones, and the version."""
    try:
        tags = mutagen.id3.ID3(path, translate=False)
    except mutagen.id3.ID3NoHeaderError:
        return [], None
    frames = [repr(frame) for frame in tags.values() if frame.FrameID not in ("CHAP", "CTOC")]
    return sorted(frames) + sorted(map(repr, tags.unknown_frames)), tags.version


def end_of_mp3(path):
    content = Path(path).read_bytes()
    at = content.find(b"APETAGEX")
    return content[at:] if at >= 0 else content[-128:]


def comments(path):
    file = mutagen.File(path)
    tags = file.tags if file.tags is not None else []
    fields = [(key, value) for key, value in tags if not re.fullmatch(r"chapter\d{3}(name|url)?", key.lower())]
    pictures = [each.write() for each in getattr(file, "pictures", [])]
    return fields, pictures, getattr(tags, "vendor", None)


def mp4_tags(path):
    file = mutagen.mp4.MP4(path)
    return sorted((key, repr(value)) for key, value in (file.tags or {}).items())


def other_wave_chunks(path):
    def counts(kind, contents):
        return kind not in (b"cue ", b"JUNK", b"ds64") and not (kind == b"LIST" and contents[:4] == b"adtl")

    return [chunk for chunk in wave_chunks(path) if counts(*chunk)]
