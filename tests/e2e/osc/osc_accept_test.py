#!/usr/bin/env python3
"""Who may command the recorder: real packets from this computer, from neighbours and from far away."""

import subprocess
import sys
import unittest

from osc_recorder import PRESS, OSCTestCase, Recorder

SEND = """
import socket, sys
source, target, port = sys.argv[1], sys.argv[2], int(sys.argv[3])
family = socket.AF_INET6 if ":" in source else socket.AF_INET
with socket.socket(family, socket.SOCK_DGRAM) as sender:
    sender.bind((source, 0))
    sender.sendto(bytes.fromhex(sys.argv[4]), (target, port))
"""

# The recorder's computer, and one behind a cable; the latter also sends from an address of a network further away.
HERE, HERE_6 = "192.0.2.1", "fd00:5::1"
NEIGHBOUR, NEIGHBOUR_6 = "192.0.2.2", "fd00:5::2"
STRANGER = "198.51.100.7"
SET_UP_HERE = f"""
ip link set lo up
ip link add cable0 type veth peer name cable1
ip address add {HERE}/24 dev cable0
ip address add {HERE_6}/64 dev cable0 nodad
ip link set cable0 up
ip link set cable1 netns $1
ip route add {STRANGER}/32 via {NEIGHBOUR}
"""
SET_UP_THERE = f"""
ip link set lo up
ip address add {NEIGHBOUR}/24 dev cable1
ip address add {NEIGHBOUR_6}/64 dev cable1 nodad
ip link set cable1 up
ip address add {STRANGER}/32 dev lo
"""


class Network:
    """A network of its own, which lasts as long as the process that holds it."""

    def __init__(self, *command):
        self.holder = subprocess.Popen([*command, "sh", "-c", "echo ready; exec cat"], stdin=subprocess.PIPE,
                                       stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        self.exists = self.holder.stdout.readline() == "ready\n"
        self.enter = ["nsenter", "--target", str(self.holder.pid), "--user", "--net", "--preserve-credentials"]

    def run(self, *command):
        subprocess.run([*self.enter, *command], check=True, timeout=60)

    def close(self):
        self.holder.communicate(timeout=60)


def send_press(source, target, port, network=None):
    command = [sys.executable, "-c", SEND, source, target, str(port), PRESS.hex()]
    subprocess.run([*(network.enter if network else []), *command], check=True, timeout=60)


class AcceptTestCase(OSCTestCase):
    def store(self, **settings):
        path = self.home / "zelta/zelta.conf"
        path.parent.mkdir(parents=True)
        path.write_text("[General]\n" + "".join(f"{key}={value}\n" for key, value in settings.items()))

    def record(self, network=None):
        recorder = Recorder(self.home, "--osc-port", "0", "--record", self.file, prefix=network.enter if network else ())
        self.addCleanup(recorder.reader.stop)
        recorder.wait_for_chapters(1)
        return recorder


class LoopbackTest(AcceptTestCase):
    def test_both_loopback_addresses_are_this_computer(self):
        self.store(ZLOSCAcceptSetting="thisComputerOnly")
        recorder = self.record()
        for address in ("127.0.0.1", "::1"):
            self.press_until_chapter(recorder, lambda a=address: send_press(a, a, recorder.port))

    def test_a_list_without_loopback_refuses_even_that(self):
        self.store(ZLOSCAcceptSetting="onlyTheseAddresses", ZLOSCAcceptedAddressesSetting="::1")
        recorder = self.record()
        send_press("127.0.0.1", "127.0.0.1", recorder.port)
        self.press_until_chapter(recorder, lambda: send_press("::1", "::1", recorder.port))


class NeighbourTest(AcceptTestCase):
    @classmethod
    def setUpClass(cls):
        cls.here = Network("unshare", "--map-root-user", "--net")
        cls.addClassCleanup(cls.here.close)
        if not cls.here.exists:
            raise unittest.SkipTest("networks of one's own are not permitted here: " + cls.here.holder.stderr.read())
        cls.there = Network(*cls.here.enter, "unshare", "--net")
        cls.addClassCleanup(cls.there.close)
        cls.here.run("sh", "-ec", SET_UP_HERE, "sh", str(cls.there.holder.pid))
        cls.there.run("sh", "-ec", SET_UP_THERE)
        cls.senders = {
            "127.0.0.1": ("127.0.0.1", cls.here),
            "::1": ("::1", cls.here),
            HERE: (HERE, cls.here),
            HERE_6: (HERE_6, cls.here),
            NEIGHBOUR: (HERE, cls.there),
            NEIGHBOUR_6: (HERE_6, cls.there),
            STRANGER: (HERE, cls.there),
        }

    def press_from(self, source, recorder):
        target, network = self.senders[source]
        send_press(source, target, recorder.port, network)

    def assert_accepted(self, *accepted):
        """These and no others, each of which is followed by one that is accepted."""
        recorder = self.record(self.here)
        for source in self.senders:
            if source not in accepted:
                self.press_from(source, recorder)
            self.press_until_chapter(
                recorder, lambda s=source: self.press_from(s if s in accepted else accepted[0], recorder))

    def test_this_computer_only(self):
        self.store(ZLOSCAcceptSetting="thisComputerOnly")
        self.assert_accepted("127.0.0.1", "::1", HERE, HERE_6)

    def test_directly_connected_networks_are_accepted_by_default(self):
        self.assert_accepted("127.0.0.1", "::1", HERE, HERE_6, NEIGHBOUR, NEIGHBOUR_6)

    def test_only_these_addresses(self):
        self.store(ZLOSCAcceptSetting="onlyTheseAddresses", ZLOSCAcceptedAddressesSetting=f"{STRANGER}, {NEIGHBOUR_6}")
        self.assert_accepted(STRANGER, NEIGHBOUR_6)


if __name__ == "__main__":
    unittest.main()
