#!/usr/bin/env python3
"""How exactly Zelta knows where the recording of a real OBS Studio is. The truth is in the sound: clicks at known moments
go through an output into the recording, and are looked for in its file. Not a part of ./test, since OBS is large:

    tests/e2e/run obs_truth PROBE CLICKS [RECORDINGS]
"""

import sys
import time
import unittest
from pathlib import Path

import numpy
from clicks import moments_of, places_in_file
from desktop import Desktop
from obs_control import Control
from obs_studio import PASSWORD, OBSStudio, start_sound
from recorder_probe import Probe, changes, position_at

PROBE = Path(sys.argv.pop(1))
CLICKS = Path(sys.argv.pop(1))
RECORDINGS = int(sys.argv.pop(1)) if len(sys.argv) > 1 and sys.argv[1].isdigit() else 3

# In seconds: of 95 %, and of all.
USUAL, LARGEST = 0.040, 0.080


SETTLING = 6
# A click so close to a pause may be half in the file.
EDGE = 0.12


def distances(probe, moments, places, first, last):
    """For each click that was heard between two moments: by how much the known position misses it in the file."""
    edges = changes(probe.reports)
    found = []
    for moment in moments:
        position = position_at(probe.reports, moment) if first < moment < last else None
        if position is not None and min(abs(edges - moment), default=1) > EDGE:
            found.append(position - places[numpy.argmin(abs(places - position))])
    return numpy.array(found)


class OBSTruthTest(unittest.TestCase):
    def probe(self, desktop, studio):
        probe = Probe(desktop, PROBE, "obs", "127.0.0.1", studio.port, PASSWORD)
        probe.wait_for_connection(2)
        return probe

    def record(self, desktop, studio, control):
        """One recording with two pauses; in its second half another probe joins, as if Zelta was started again."""
        probe = self.probe(desktop, studio)
        first = time.monotonic()
        probe.tell("start")
        probe.wait_for_state("recording")
        time.sleep(6)
        control("PauseRecord")
        time.sleep(1.7)
        control("ResumeRecord")
        time.sleep(5)
        late = self.probe(desktop, studio)
        time.sleep(4)
        control("PauseRecord")
        time.sleep(1.3)
        control("ResumeRecord")
        time.sleep(4)
        last = time.monotonic()
        probe.tell("stop")
        probe.wait_for_state("standing")
        time.sleep(2.5)
        for each in (probe, late):
            each.end()
        return probe, late, first, last

    def test_clicks_are_where_they_are_known_to_be(self):
        with Desktop() as desktop:
            start_sound(desktop)
            studio = OBSStudio(desktop)
            studio.start()
            with (desktop.home / "clicks.txt").open("w") as played:
                desktop.start(CLICKS, "studio", stdout=played)
            control = Control(studio.port, PASSWORD)
            # Right after its start OBS is still busy with itself and puts the sound beside the pictures.
            time.sleep(SETTLING)
            shown = [self.record(desktop, studio, control.request) for _ in range(RECORDINGS)]
            moments = moments_of((desktop.home / "clicks.txt").read_text().splitlines()[:-1])
            files = studio.files()
            self.assertEqual(len(files), RECORDINGS)
            everything = []
            for path, (probe, late, first, last) in zip(files, shown):
                places = places_in_file(path)
                for name, each in (("from the start", probe), ("joined late", late)):
                    found = distances(each, moments, places, first, last)
                    print(f"{path.name} {name}: {len(found)} clicks, ms", numpy.round(found * 1000, 1).tolist())
                    everything.extend(abs(found))
            usual, largest = numpy.percentile(everything, 95), max(everything)
            print(f"{len(everything)} clicks: 95 % within {usual * 1000:.1f} ms, all within {largest * 1000:.1f} ms")
            self.assertLessEqual(usual, USUAL)
            self.assertLessEqual(largest, LARGEST)


if __name__ == "__main__":
    unittest.main()
