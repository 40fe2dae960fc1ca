#!/usr/bin/env python3
"""A real OBS Studio, 30.2 or newer, goes on in a second file while Zelta follows it and writes its marks into the recording.
Both files are kept with the document, each with what the clock read at its beginning; the chapters in the files are those of
the document. The truth is in the sound, as in `obs_show`. Not a part of ./test, since OBS is large, and that of Debian 12 is
older:

    tests/e2e/run obs_files ZELTA CLICKS
"""

import json
import os
import subprocess
import sys
import time
from pathlib import Path

import numpy
from clicks import moments_of, places_in_file
from desktop import Desktop, wait_until
from obs_control import Control
from obs_studio import PASSWORD, SPLITTING_PROFILE, OBSStudio, start_sound
from osc_recorder import PROGRAM  # Takes the program from the command line.
from presses import now
from show_in_sound import Clicks, HeadlessZelta, Presses, misses

CLICKS = Path(sys.argv.pop(1))

# In seconds. OBS tells of a second file when it has finished the first one. Where the computer is slow, OBS leaves frames
# out, and takes longer to encode than Zelta knows.
TOLERANCE = 0.25
# Right after its start OBS is still busy with itself.
SETTLING = 6
# OBS goes on in the next file at the next picture that stands alone, and finishes the former one.
SPLITTING = 3
# The pictures of the last mark leave the encoder; at the end of the recording its chapter would not wait for them.
ENCODING = 1


def chapters_in_file(path):
    """The seconds at which chapters begin, but for the one that OBS itself sets at the beginning."""
    found = subprocess.run(["ffprobe", "-v", "error", "-show_chapters", "-of", "json", path],
                           check=True, capture_output=True).stdout
    chapters = json.loads(found)["chapters"]
    named = [(float(chapter["start_time"]), chapter["tags"]["title"]) for chapter in chapters]
    print(path.name, named)
    return numpy.array([seconds for seconds, title in named if title != "Start"])


class SplitShow:
    def __init__(self, desktop):
        assert PROGRAM.exists()
        start_sound(desktop)
        self.studio = OBSStudio(desktop, profile=SPLITTING_PROFILE)
        self.studio.start()
        self.clicks = Clicks(desktop, CLICKS, "studio")
        self.presses = Presses(self.clicks)
        self.zelta = HeadlessZelta(desktop, "show", "obs", port=self.studio.port, marks_chapters=True)
        self.zelta.start()
        self.zelta.wait_until_ready()
        time.sleep(SETTLING)
        self.control = Control(self.studio.port, PASSWORD).request
        self.began = []

    def press_for(self, seconds):
        self.presses.go_on(self.zelta)
        time.sleep(seconds)
        self.presses.hold()

    def record(self):
        self.began.append(now())
        self.control("StartRecord")
        self.zelta.wait_until_following()
        self.press_for(5)
        self.began.append(now())
        self.control("SplitRecordFile")
        wait_until(lambda: self.files_told() == 2, "the second file to be told")
        time.sleep(SPLITTING)
        self.press_for(5)
        time.sleep(ENCODING)
        self.control("StopRecord")
        self.zelta.wait_until_stopped()
        time.sleep(SPLITTING)
        self.presses.end()
        self.clicks.end()
        self.zelta.end()

    def files_told(self):
        return sum("OBS Studio records into " in line for line in list(self.zelta.program.reader.lines))

    def recordings(self):
        files = self.studio.files()
        assert len(files) == 2, files
        return [(began, self.zelta.base_of(path), places_in_file(path)) for began, path in zip(self.began, files)]

    def check_clicks(self):
        """Whether the marks are at their clicks, in the second file apart: it begins where the clock read its base."""
        recordings = self.recordings()
        found = misses(self.zelta, moments_of(self.clicks.lines), recordings)
        in_second = numpy.array(self.zelta.chapters()) > recordings[1][1]
        for name, some in (("first", found[~in_second]), ("second", found[in_second])):
            print(f"{name} file: {len(some)} clicks, ms", numpy.round(some * 1000, 1).tolist())
        return max(abs(found)) < TOLERANCE

    def check_chapters_in_files(self):
        chapters = numpy.array(self.zelta.chapters())
        bases = [base for _, base, _ in self.recordings()]
        in_files = numpy.concatenate([chapters_in_file(path) + base for path, base in zip(self.studio.files(), bases)])
        assert len(in_files) == len(chapters), (in_files, chapters)
        behind = in_files - chapters
        print(f"{len(chapters)} chapters in the files, ms behind the document's", numpy.round(behind * 1000).tolist())
        return max(abs(behind)) < TOLERANCE


def main():
    with Desktop() as desktop:
        os.environ["ZELTA_OBS_PASSWORD"] = PASSWORD
        show = SplitShow(desktop)
        show.record()
        # All is told before anything is judged: a computer that is too slow for OBS moves its sound, too.
        right = [show.check_clicks(), show.check_chapters_in_files()]
        assert all(right), right


if __name__ == "__main__":
    main()
