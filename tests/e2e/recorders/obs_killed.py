#!/usr/bin/env python3
"""A real OBS Studio is killed and started again while Zelta follows it: the show goes on, each is told, and the marks have the
time of their presses. Not a part of ./test, since OBS is large:

    tests/e2e/run obs_killed ZELTA
"""

import os
import time

from desktop import Desktop, kill_at_once, wait_until
from obs_control import Control
from obs_studio import PASSWORD, OBSStudio, start_sound
from osc_recorder import PROGRAM  # Takes the program from the command line.
from presses import now
from show_in_sound import HeadlessZelta

TOLERANCE = 0.1


def mark_often(zelta, count=5):
    for _ in range(count):
        time.sleep(0.3)
        zelta.press()


def main():
    assert PROGRAM.exists()
    with Desktop() as desktop:
        os.environ["ZELTA_OBS_PASSWORD"] = PASSWORD
        start_sound(desktop)
        studio = OBSStudio(desktop)
        studio.start()
        zelta = HeadlessZelta(desktop, "show", "obs", port=studio.port)
        zelta.start()
        zelta.wait_until_ready()
        control = Control(studio.port, PASSWORD).request
        control("StartRecord")
        zelta.wait_until_following()
        mark_often(zelta)
        kill_at_once(studio.process)
        zelta.wait_for("OBS Studio is lost. Zelta's clock goes on as it went last.")
        mark_often(zelta)
        studio.start()
        zelta.wait_for("OBS Studio is back and does not record. Zelta's clock goes on.")
        mark_often(zelta)
        control = Control(studio.port, PASSWORD).request
        control("StartRecord")
        zelta.wait_for("Zelta's clock runs already.")
        mark_often(zelta)
        control("StopRecord")
        zelta.wait_until_stopped()
        wait_until(lambda: len(zelta.chapters()) == len(zelta.presses), "all marks")
        chapters = zelta.chapters()
        zelta.end()
        assert len(studio.files()) == 2, studio.files()
    # The first one lies behind its press by as much as the clock's zero does; all have to do the same.
    behind = [press - chapter for press, chapter in zip(zelta.presses, chapters)]
    spread = max(behind) - min(behind)
    print(f"{len(chapters)} marks, told apart from their presses by {spread * 1000:.1f} ms at most")
    assert spread < TOLERANCE, behind


if __name__ == "__main__":
    main()
