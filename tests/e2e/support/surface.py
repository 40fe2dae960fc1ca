"""A control surface: it sends presses and takes the status messages in. And documents for it to press on."""

import plistlib
import re
import select
import socket
import struct
import time
from dataclasses import dataclass, replace

IS_RECORDING = "/zl/isRecording"
LAST_TITLE = "/zl/lastChapterTitle"
SELECTED_TITLE = "/zl/selectedChapterTitle"


def padded(text):
    return text.encode() + b"\0" * (4 - len(text.encode()) % 4)


def press_of(action):
    return padded(f"/zl/{action}") + padded(",f") + struct.pack(">f", 1)


def decoded(datagram):
    """(address, value) of a status message; None for what has neither a text nor yes or no in it."""
    address, _, rest = datagram.partition(b"\0")
    types = rest.lstrip(b"\0")
    if types.startswith((b",T", b",F")):
        return address.decode(), types.startswith(b",T")
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

    def after_pause(self, stopped, went_on):
        """The same clock after it stood; both moments are pairs of not before and not after."""
        return ClockBounds(self.earliest + max(0.0, went_on[0] - stopped[1]), self.latest + went_on[1] - stopped[0])

    def greatest_distance_to(self, other):
        """How many seconds the two clocks can be apart at most."""
        return max(other.latest - self.earliest, self.latest - other.earliest)

    def contradiction(self):
        """By how many seconds the clock was wrong at least, for everything that was seen of it to be true."""
        return max(0.0, self.earliest - self.latest)


@dataclass
class Told:
    """What the program has told of itself last. Its three messages come in this order."""

    is_recording: bool = False
    last_title: str = ""
    selected_title: str = ""


class Surface:
    """Sends presses and reads what is told, both in the calling thread."""

    def __init__(self):
        self.socket = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        self.socket.bind(("127.0.0.1", 0))
        self.socket.setsockopt(socket.SOL_SOCKET, socket.SO_RCVBUF, 1 << 22)
        self.socket.setblocking(False)
        self.port = self.socket.getsockname()[1]
        self.told = Told()

    def close(self):
        self.socket.close()

    def send(self, port, action):
        self.socket.sendto(press_of(action), ("127.0.0.1", port))

    def states(self, seconds=0.0):
        """Each state that was told and not read yet; waits so long for the first message."""
        select.select([self.socket], [], [], seconds)
        while True:
            try:
                address, value = decoded(self.socket.recv(4096))
            except BlockingIOError:
                return
            if address == IS_RECORDING:
                self.told.is_recording = value
            elif address == LAST_TITLE:
                self.told.last_title = value
            elif address == SELECTED_TITLE:
                self.told.selected_title = value
                yield replace(self.told)

    def newest(self):
        """The state that was told last."""
        for _ in self.states():
            pass
        return self.told

    def wait_for(self, condition, what, seconds=60.0):
        """Until a state is told that meets the condition; noticed at once, so that its moment is known well."""
        deadline = time.monotonic() + seconds
        if condition(self.told):
            return
        while not any(condition(told) for told in self.states(0.05)):
            if time.monotonic() > deadline:
                raise AssertionError(f"waited {seconds:.0f} s in vain: {what} to be told, not {self.told}")


def stamp_of_line(line):
    """(title, seconds) of what a recorder without a window prints of a new chapter; None for another line."""
    found = re.fullmatch(r'chapter \d+ at (\d+):(\d\d):(\d\d\.\d{3}) "(.*)"', line)
    if not found:
        return None
    return found[4], int(found[1]) * 3600 + int(found[2]) * 60 + float(found[3])
