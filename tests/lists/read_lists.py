#!/usr/bin/env python3
"""Reads the lists in a folder with programs that others wrote and compares them with chapters.json there.

Prints the names of the forms that were read, in order. Python's own readers serve for JSON and comma-separated values;
Audacity's labels and the plain lines are read by a few lines of their own.
"""

import csv
import json
import re
import subprocess
import sys
from pathlib import Path

import webvtt


def seconds(text: str) -> float:
    total = 0.0
    for field in text.split(":"):
        total = total * 60 + float(field)
    return total


def run(*command: str) -> str:
    return subprocess.run(command, check=True, capture_output=True, timeout=60).stdout.decode("utf-8")


def podcast_chapters(path: Path) -> list[tuple[float, str]]:
    data = json.loads(path.read_text(encoding="utf-8"))
    assert data["version"] == "1.2.0"
    assert data["chapters"][0]["url"] == "https://a.example/"
    return [(chapter["startTime"], chapter["title"]) for chapter in data["chapters"]]


def audacity_labels(path: Path) -> list[tuple[float, str]]:
    rows = [line.split("\t", 2) for line in path.read_text(encoding="utf-8").splitlines()]
    assert all(row[0] == row[1] for row in rows)
    return [(float(row[0]), row[2]) for row in rows]


def reaper_markers(path: Path) -> list[tuple[float, str]]:
    with path.open(encoding="utf-8", newline="") as file:
        rows = list(csv.DictReader(file))
    assert [row["#"] for row in rows] == [f"M{i + 1}" for i in range(len(rows))]
    return [(seconds(row["Start"]), row["Name"]) for row in rows]


def mp4chaps(path: Path) -> list[tuple[float, str]]:
    lines = [line.split(" ", 1) for line in path.read_text(encoding="utf-8").splitlines()]
    return [(seconds(time), title) for time, title in lines]


def silence(folder: Path) -> str:
    path = folder / "silence.wav"
    run("ffmpeg", "-v", "error", "-y", "-f", "lavfi", "-i", "anullsrc=r=8000:cl=mono", "-t", "90", str(path))
    return str(path)


def probed(path: Path) -> list[tuple[float, str]]:
    found = json.loads(run("ffprobe", "-v", "error", "-of", "json", "-show_chapters", str(path)))["chapters"]
    return [(float(chapter["start_time"]), chapter["tags"]["title"]) for chapter in found]


def ffmetadata(path: Path) -> list[tuple[float, str]]:
    target = path.parent / "ffmetadata.mka"
    run("ffmpeg", "-v", "error", "-y", "-i", silence(path.parent), "-i", str(path), "-map_chapters", "1", "-c", "copy", str(target))
    return probed(target)


def matroska_chapters(path: Path) -> list[tuple[float, str]]:
    target = path.parent / "matroska.mka"
    run("mkvmerge", "-q", "-o", str(target), "--chapters", str(path), silence(path.parent))
    return probed(target)


def webvtt_chapters(path: Path) -> list[tuple[float, str]]:
    # The reader leaves references as they stand.
    plain = lambda text: text.replace("&lt;", "<").replace("&gt;", ">").replace("&amp;", "&")
    return [(seconds(cue.start), plain(cue.text)) for cue in webvtt.read(str(path))]


def cue_sheet(path: Path) -> list[tuple[float, str]]:
    # Minutes, seconds and frames: "62:03.37".
    breaks = [line.rsplit(".", 1) for line in run("cuebreakpoints", str(path)).split()]
    breaks = [seconds(time) + int(frames) / 75 for time, frames in breaks]
    titles = run("cueprint", "-d", "", "-t", "%t\n", str(path)).splitlines()
    return list(zip([0.0, *breaks], titles, strict=True))


def show_notes(path: Path) -> list[tuple[float, str]]:
    found = re.findall(r"^\(([\d:]+)\) (.*?)(?: https://\S+)?$", path.read_text(encoding="utf-8"), re.MULTILINE)
    return [(seconds(time), title) for time, title in found]


READERS = {
    "Podcast-Chapters": (podcast_chapters, 0.0005),
    "Audacity-Labels": (audacity_labels, 0.000001),
    "REAPER-Markers": (reaper_markers, 0.0005),
    "mp4chaps": (mp4chaps, 0.0005),
    "ffmetadata": (ffmetadata, 0.001),
    "Matroska-Chapters": (matroska_chapters, 0.0005),
    "WebVTT-Chapters": (webvtt_chapters, 0.0005),
    "CUE-Sheet": (cue_sheet, 1 / 75),
    "Show-Notes": (show_notes, 1.0),
}


def main() -> int:
    folder = Path(sys.argv[1])
    expected = json.loads((folder / "chapters.json").read_text(encoding="utf-8"))
    read = []
    for path in sorted(folder.iterdir()):
        if path.stem not in READERS:
            continue
        reader, tolerance = READERS[path.stem]
        found = reader(path)
        titles = [chapter["title"] for chapter in expected]
        if path.stem == "CUE-Sheet":
            titles = [title.replace('"', "'") for title in titles]
        if [title for _, title in found] != titles:
            print(f"{path.name}: titles {found}", file=sys.stderr)
            return 1
        late = [abs(time - chapter["start"]) for (time, _), chapter in zip(found, expected, strict=True)]
        if max(late) > tolerance:
            print(f"{path.name}: times {found}", file=sys.stderr)
            return 1
        read.append(path.stem)
    print(" ".join(read))
    return 0


if __name__ == "__main__":
    sys.exit(main())
