"""Presses at moments that are known, and the times that the chapters of a document got for them."""

import ctypes
import ctypes.util
import os
import plistlib
import socket
import time

from surface import press_of


def now():
    """Seconds of the clock that recorded time is measured with."""
    return time.clock_gettime(time.CLOCK_MONOTONIC)


class Keyboard:
    """Keys and buttons of an X server, pressed in this process, so that the moment is known well."""

    def __init__(self):
        # Seconds until the server answered the last key: it had stamped that by then.
        self.answer_time = 0.0
        self.x11 = ctypes.CDLL(ctypes.util.find_library("X11"))
        self.xtst = ctypes.CDLL(ctypes.util.find_library("Xtst"))
        self.x11.XOpenDisplay.restype = ctypes.c_void_p
        self.x11.XOpenDisplay.argtypes = [ctypes.c_char_p]
        self.x11.XStringToKeysym.restype = ctypes.c_ulong
        self.x11.XKeysymToKeycode.argtypes = [ctypes.c_void_p, ctypes.c_ulong]
        self.x11.XSync.argtypes = [ctypes.c_void_p, ctypes.c_int]
        self.x11.XFlush.argtypes = self.x11.XCloseDisplay.argtypes = [ctypes.c_void_p]
        number, flag, delay = ctypes.c_uint, ctypes.c_int, ctypes.c_ulong
        self.xtst.XTestFakeKeyEvent.argtypes = [ctypes.c_void_p, number, flag, delay]
        self.xtst.XTestFakeButtonEvent.argtypes = [ctypes.c_void_p, number, flag, delay]
        self.display = self.x11.XOpenDisplay(os.environ["DISPLAY"].encode())
        if not self.display:
            raise AssertionError("no X server")

    def close(self):
        self.x11.XCloseDisplay(self.display)

    def press(self, key):
        """Presses the key with this name and gives the moment."""
        code = self.x11.XKeysymToKeycode(self.display, self.x11.XStringToKeysym(key.encode())) & 0xFF
        moment = now()
        # Both at once: a server that got to the release late would repeat the key.
        self.xtst.XTestFakeKeyEvent(self.display, code, 1, 0)
        self.xtst.XTestFakeKeyEvent(self.display, code, 0, 0)
        # A press in the millisecond of the last release would count as the repeat of a held key.
        self.x11.XSync(self.display, 0)
        self.answer_time = now() - moment
        return moment

    def click(self, held=0.0):
        """Clicks where the pointer is, and lets the button go so many seconds after its press. Gives the moment of the
        press."""
        moment = now()
        self.xtst.XTestFakeButtonEvent(self.display, 1, 1, 0)
        self.x11.XFlush(self.display)
        time.sleep(held)
        self.xtst.XTestFakeButtonEvent(self.display, 1, 0, 0)
        self.x11.XFlush(self.display)
        return moment


class RemoteControl:
    """Sends commands by OSC to a port of this computer."""

    def __init__(self, port):
        self.port = port
        self.socket = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)

    def close(self):
        self.socket.close()

    def press(self, action):
        datagram = press_of(action)
        moment = now()
        self.socket.sendto(datagram, ("127.0.0.1", self.port))
        return moment


def document_root(path):
    """The dictionary at the root of a document, with all that is in it."""
    archive = plistlib.loads(path.read_bytes())
    objects = archive["$objects"]

    def read(uid):
        entry = objects[uid.data]
        if not isinstance(entry, dict):
            return entry
        if "NS.keys" in entry:
            return dict(zip(map(read, entry["NS.keys"]), map(read, entry["NS.objects"])))
        return [read(each) for each in entry["NS.objects"]] if "NS.objects" in entry else entry.get("NS.time")

    return read(archive["$top"]["root"])


def chapters_in(path):
    """The chapters of a document as dictionaries, in the order of the file."""
    return document_root(path)["Chapters"]
