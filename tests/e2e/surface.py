"""A control surface that knows what was acknowledged: it presses faster than a person could, remembers in which state
each press leaves the show, and sees by the status messages which of these states the program has told of."""

import plistlib
import re
import select
import socket
import struct
import time
from dataclasses import dataclass, field

LAST_TITLE = "/zl/lastChapterTitle"
CLOCK = "/zl/currentTime"


def padded(text):
    return text.encode() + b"\0" * (4 - len(text.encode()) % 4)


def press_of(action):
    return padded(f"/zl/{action}") + padded(",f") + struct.pack(">f", 1)


def decoded(datagram):
    """(address, value) of a status message; None for what has no text in it."""
    address, _, rest = datagram.partition(b"\0")
    types = rest.lstrip(b"\0")
    if not types.startswith(b",s"):
        return address.decode(), None
    return address.decode(), types[4:].split(b"\0")[0].decode()


def archive(value):
    """The value as a keyed archive, as the file of a document is one."""
    objects = ["$null"]

    def add(entry):
        objects.append(entry)
        return plistlib.UID(len(objects) - 1)

    def put(entry):
        if isinstance(entry, dict):
            return add({"$class": classes["NSDictionary"], "NS.keys": [put(key) for key in entry],
                        "NS.objects": [put(each) for each in entry.values()]})
        if isinstance(entry, list):
            return add({"$class": classes["NSArray"], "NS.objects": [put(each) for each in entry]})
        return add(entry)

    classes = {name: add({"$classname": name, "$classes": [name, "NSObject"]}) for name in ("NSDictionary", "NSArray")}
    root = put(value)
    return plistlib.dumps({"$version": 100000, "$archiver": "NSKeyedArchiver", "$top": {"root": root},
                           "$objects": objects}, fmt=plistlib.FMT_BINARY)


def document_with_templates(titles):
    """Each new chapter takes the next title, so that a title in a status message names the press it comes from."""
    templates = [{"TimeStamp": 0.0, "Enabled": True, "Title": title, "Link": "", "Tags": ""} for title in titles]
    return archive({"Chapters": [], "Duration": 0.0, "Templates": templates})


@dataclass
class ClockBounds:
    """When, on the wall clock, the recording's clock stood at 0, as far as it was seen."""

    earliest: float = float("-inf")
    latest: float = float("inf")

    def see_reading(self, reading, not_before, not_after):
        """The clock had the reading at some moment between the two."""
        self.earliest = max(self.earliest, not_before - reading)
        self.latest = min(self.latest, not_after - reading)

    def see_text(self, text, not_after):
        hours, minutes, seconds = text.split(":")
        self.latest = min(self.latest, not_after - (int(hours) * 3600 + int(minutes) * 60 + int(seconds)))

    def distance_to(self, other):
        """How many seconds the two clocks are apart at least."""
        return max(0.0, self.earliest - other.latest, other.earliest - self.latest)


@dataclass
class Show:
    """States that the presses lead to, one after the other. Each is the titles in the order of the chapters."""

    titles: list
    states: list = field(default_factory=lambda: [()])
    acknowledged: int = 0
    #: Title of a chapter: when it was pressed, and when the press was acknowledged.
    pressed: dict = field(default_factory=dict)
    confirmed: dict = field(default_factory=dict)

    @property
    def is_waiting(self):
        return self.acknowledged < len(self.states) - 1

    def note_press(self, action):
        state = self.states[-1]
        if action == "removeLastChapter":
            self.states.append(state[:-1])
            return
        title = self.titles.pop(0)
        self.pressed[title] = time.time()
        self.states.append((*state, title))

    def note_acknowledgement(self, title):
        for index in range(self.acknowledged, len(self.states)):
            if (self.states[index] or ("",))[-1] == title:
                self.acknowledged = index
                self.confirmed.setdefault(title, time.time())
                return


class Surface:
    """Sends presses and reads what is told, both in the calling thread."""

    MOST_UNANSWERED = 12

    def __init__(self):
        self.socket = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        self.socket.bind(("127.0.0.1", 0))
        self.socket.setsockopt(socket.SOL_SOCKET, socket.SO_RCVBUF, 1 << 22)
        self.socket.setblocking(False)
        self.port = self.socket.getsockname()[1]

    def messages(self):
        """What has arrived up to now."""
        while True:
            try:
                yield decoded(self.socket.recv(4096))
            except BlockingIOError:
                return

    def close(self):
        self.socket.close()

    def send(self, port, action):
        self.socket.sendto(press_of(action), ("127.0.0.1", port))

    def read(self, show, clock=None, seconds=0.0):
        """Takes everything that has arrived, and waits so long for the first of it."""
        select.select([self.socket], [], [], seconds)
        for address, text in self.messages():
            if address == LAST_TITLE:
                show.note_acknowledgement(text)
            elif address == CLOCK and clock:
                clock.see_text(text, time.time())

    def newest_title(self, other_than=None):
        """The title that was told last; with `other_than` the first other one."""
        newest = None
        for address, text in self.messages():
            if address == LAST_TITLE and text != other_than:
                newest = text
                if other_than is not None:
                    break
        return newest

    def press(self, show, port, action):
        show.note_press(action)
        self.send(port, action)

    def press_and_wait(self, show, port, action, seconds=20.0):
        """One press, and its acknowledgement."""
        self.press(show, port, action)
        deadline = time.monotonic() + seconds
        while show.is_waiting:
            if time.monotonic() > deadline:
                raise AssertionError(f"waited in vain for {action} to be acknowledged")
            self.read(show, seconds=0.1)

    def press_at_speed(self, show, port, chance, is_alive, clock=None):
        """Until the program is gone or the titles are used up; nothing is lost on the way, since only few presses are
        under way at a time."""
        while is_alive() and show.titles:
            unanswered = len(show.states) - 1 - show.acknowledged
            if unanswered < self.MOST_UNANSWERED:
                removes = show.states[-1] and chance.random() < 0.15
                self.press(show, port, "removeLastChapter" if removes else "newChapter")
                self.read(show, clock)
            else:
                self.read(show, clock, seconds=0.01)


def stamp_of_line(line):
    """(title, seconds) of what a recorder without a window prints of a new chapter; None for another line."""
    found = re.fullmatch(r'chapter \d+ at (\d+):(\d\d):(\d\d\.\d{3}) "(.*)"', line)
    if not found:
        return None
    return found[4], int(found[1]) * 3600 + int(found[2]) * 60 + float(found[3])
