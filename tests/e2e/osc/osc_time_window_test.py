#!/usr/bin/env python3
"""A recorder is chosen in the window, starts the clock behind another program, and is lost and found in the lamp."""

import time

from desktop import Desktop, focused_window, kill_at_once, wait_until
from osc_player import Player
from osc_recorder import PROGRAM
from other_program import OtherProgram
from window import Window


def main():
    with Desktop() as desktop:
        window = Window(desktop, [PROGRAM]).wait_until_shown()
        accessible = window.accessible

        def lamp():
            status = accessible.find_all(window.frame, "status bar")[0]
            texts = [node.name for node in accessible.find_all(status, "push button") if accessible.is_showing(node)]
            return next((text for text in texts if text.startswith("OSC:")), "")

        assert lamp() == "", "off shows nothing"
        window.wait_for_keyboard()
        desktop.press("alt+v")
        desktop.press("r")
        recorder = accessible.find(accessible.application(), "frame", "Recorder")
        accessible.press(accessible.find(recorder, "radio button", "OSC"))
        wait_until(lambda: lamp() == "OSC: no answer", lambda: f"the lamp, not {lamp()}")
        player = Player(window.osc_port)
        wait_until(lambda: lamp() == "OSC: ready", lambda: f"the lamp, not {lamp()}")

        other = OtherProgram()
        table = accessible.find(window.frame, "table", "Chapters")
        player.record()
        wait_until(lambda: lamp() == "OSC: following", lambda: f"the lamp, not {lamp()}")
        wait_until(lambda: len(accessible.table_texts(table)) == 1, "the first chapter")
        assert focused_window() == other.window, "the start has taken the keyboard from the other program"

        player.is_silent = True
        wait_until(lambda: lamp().startswith("OSC: lost since "), lambda: f"the lamp, not {lamp()}")
        player.is_silent = False
        wait_until(lambda: lamp() == "OSC: following", lambda: f"the lamp, not {lamp()}")
        time.sleep(1)
        player.jump(30.0)
        window.wait_for_message("30.0 s ahead")
        accessible.press(window.button("Take the Recorder's Time"))
        wait_until(lambda: not any("ahead" in text for text in window.messages()), "the bar to go")
        player.stop()
        wait_until(lambda: lamp() == "OSC: ready", lambda: f"the lamp, not {lamp()}")
        player.close()

        # Killed in the middle of a show: it follows again and reads what the recorder reads.
        player = Player(window.osc_port)
        time.sleep(0.5)
        player.record()
        wait_until(lambda: lamp() == "OSC: following", lambda: f"the lamp, not {lamp()}")
        kill_at_once(window.process)
        window = Window(desktop, [PROGRAM]).wait_until_shown()
        player.peer = ("127.0.0.1", window.osc_port)
        wait_until(lambda: lamp() == "OSC: following", lambda: f"the lamp, not {lamp()}")
        player.stop()
        wait_until(lambda: lamp() == "OSC: ready", lambda: f"the lamp, not {lamp()}")
        player.close()
        other.reader.stop()


if __name__ == "__main__":
    main()
