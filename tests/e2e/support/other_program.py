"""Another program in front of the recorder, which tells what is typed into it."""

import subprocess

from desktop import focused_window, wait_until
from osc_peers import start_reader


class OtherProgram:
    """A window that prints the keys it is given."""

    def __init__(self):
        self.reader = start_reader(["xev", "-event", "keyboard"])
        self.window = wait_until(self.find, "the other program's window")
        wait_until(self.take_the_keyboard, "the other program to have the keyboard")

    @staticmethod
    def find():
        answer = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "Event Tester"], capture_output=True,
                                text=True, check=False)
        return answer.stdout.strip()

    def take_the_keyboard(self):
        subprocess.run(["xdotool", "windowactivate", "--sync", self.window], check=True, timeout=30)
        return focused_window() == self.window

    def has_got(self, text):
        """Whether it was given these keys in this order, and no other."""
        keys = [line.split("keysym")[1].split(",")[1].strip(" )") if "keysym" in line else ""
                for line in list(self.reader.lines) if "keysym" in line]
        return "".join(keys[::2]) == text
