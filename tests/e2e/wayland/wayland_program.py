#!/usr/bin/env python3
"""Another program on a Wayland desktop, down to the bytes: a window that prints "key" for each key it is given, and
"token TOKEN" for each line on its standard input, a token with which it lets another program take the keyboard."""

import array
import os
import selectors
import socket
import struct
import sys

WIDTH, HEIGHT = 64, 64
XRGB8888 = 1
WINDOW_TITLE = "Other Program"


class Connection:
    """Requests out, events in. An object is a number; those who want its events give a function for each."""

    def __init__(self):
        self.socket = socket.socket(socket.AF_UNIX)
        self.socket.connect(os.path.join(os.environ["XDG_RUNTIME_DIR"], os.environ["WAYLAND_DISPLAY"]))
        self.received = b""
        self.last_object = 1
        self.listeners = {}

    def new_object(self, listeners=()):
        self.last_object += 1
        self.listeners[self.last_object] = listeners
        return self.last_object

    def request(self, target, opcode, *arguments, descriptor=None):
        body = b"".join(self.encoded(argument) for argument in arguments)
        message = struct.pack("=IHH", target, opcode, 8 + len(body)) + body
        passed = [] if descriptor is None else [(socket.SOL_SOCKET, socket.SCM_RIGHTS, array.array("i", [descriptor]))]
        self.socket.sendmsg([message], passed)

    @staticmethod
    def encoded(argument):
        if isinstance(argument, int):
            return struct.pack("=i" if argument < 0 else "=I", argument)
        text = argument.encode() + b"\0"
        return struct.pack("=I", len(text)) + text + b"\0" * (-len(text) % 4)

    def read(self):
        """Hands what has come to the listeners."""
        data, descriptors, _, _ = socket.recv_fds(self.socket, 65536, 8)
        for descriptor in descriptors:
            os.close(descriptor)
        if not data:
            sys.exit("the compositor has ended")
        self.received += data
        while len(self.received) >= 8:
            target, opcode, size = struct.unpack_from("=IHH", self.received)
            if len(self.received) < size:
                return
            body, self.received = self.received[8:size], self.received[size:]
            listeners = self.listeners.get(target, ())
            if opcode < len(listeners) and listeners[opcode]:
                listeners[opcode](body)

    def read_until(self, condition):
        while not condition():
            self.read()


def number_at(body, place):
    return struct.unpack_from("=I", body, 4 * place)[0]


def text_at(body, place):
    size = number_at(body, place)
    return body[4 * place + 4:4 * place + 3 + size].decode()


class Program:
    def __init__(self):
        self.wire = Connection()
        self.wire.listeners[1] = (lambda body: sys.exit(f"refused: {text_at(body, 2)}"),)
        self.globals = {}
        self.registry = self.wire.new_object((self.note_global,))
        self.wire.request(1, 1, self.registry)
        self.wait_for_compositor()
        self.serial = 0
        self.activation = self.bind("xdg_activation_v1", 1)
        self.seat = self.bind("wl_seat", 5, (self.note_seat,))
        self.keyboard = None
        self.make_window()

    def note_global(self, body):
        self.globals[text_at(body, 1)] = number_at(body, 0)

    def wait_for_compositor(self):
        done = []
        self.wire.request(1, 0, self.wire.new_object((done.append,)))
        self.wire.read_until(lambda: done)

    def bind(self, interface, version, listeners=()):
        bound = self.wire.new_object(listeners)
        self.wire.request(self.registry, 0, self.globals[interface], interface, version, bound)
        return bound

    def note_seat(self, body):
        has_keyboard = number_at(body, 0) & 2
        if has_keyboard and self.keyboard is None:
            self.keyboard = self.wire.new_object((None, self.note_enter, None, self.note_key))
            self.wire.request(self.seat, 1, self.keyboard)

    def note_enter(self, body):
        self.serial = number_at(body, 0)

    def note_key(self, body):
        self.serial = number_at(body, 0)
        if number_at(body, 3) == 1:
            print("key", flush=True)

    def make_window(self):
        wire = self.wire
        # The numbers of objects have to reach the compositor in their order.
        compositor = self.bind("wl_compositor", 4)
        self.surface = wire.new_object()
        wire.request(compositor, 0, self.surface)
        shell = self.bind("xdg_wm_base", 1, (lambda body: wire.request(shell, 3, number_at(body, 0)),))
        role = wire.new_object((lambda body: self.draw(role, number_at(body, 0)),))
        wire.request(shell, 2, role, self.surface)
        window = wire.new_object()
        wire.request(role, 1, window)
        wire.request(window, 2, WINDOW_TITLE)
        wire.request(self.surface, 6)

    def draw(self, role, serial):
        self.wire.request(role, 4, serial)
        memory = os.memfd_create("picture")
        os.ftruncate(memory, WIDTH * HEIGHT * 4)
        shared = self.bind("wl_shm", 1)
        pool, buffer = self.wire.new_object(), self.wire.new_object()
        self.wire.request(shared, 0, pool, WIDTH * HEIGHT * 4, descriptor=memory)
        os.close(memory)
        self.wire.request(pool, 0, buffer, 0, WIDTH, HEIGHT, WIDTH * 4, XRGB8888)
        self.wire.request(self.surface, 1, buffer, 0, 0)
        self.wire.request(self.surface, 6)

    def hand_out_token(self):
        token = self.wire.new_object((lambda body: print("token", text_at(body, 0), flush=True),))
        self.wire.request(self.activation, 1, token)
        if self.serial:
            self.wire.request(token, 0, self.serial, self.seat)
        self.wire.request(token, 2, self.surface)
        self.wire.request(token, 3)

    def run(self):
        waiting = selectors.DefaultSelector()
        waiting.register(self.wire.socket, selectors.EVENT_READ, self.wire.read)
        waiting.register(sys.stdin, selectors.EVENT_READ, self.read_line)
        while True:
            for ready, _ in waiting.select():
                ready.data()

    def read_line(self):
        if not sys.stdin.readline():
            sys.exit(0)
        self.hand_out_token()


if __name__ == "__main__":
    Program().run()
