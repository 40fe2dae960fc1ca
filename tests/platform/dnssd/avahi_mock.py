#!/usr/bin/env python3
"""An Avahi that sees only the network a test describes, and tells the test what it was asked."""

import argparse
import sys

import dbus
import dbus.mainloop.glib
import dbus.service
from gi.repository import GLib

SERVICE = "org.freedesktop.Avahi"
SERVER = "org.freedesktop.Avahi.Server"
SERVER2 = "org.freedesktop.Avahi.Server2"
GROUP = "org.freedesktop.Avahi.EntryGroup"
BROWSER = "org.freedesktop.Avahi.ServiceBrowser"
RESOLVER = "org.freedesktop.Avahi.ServiceResolver"
CONTROL = "org.zelta.Test"
RUNNING = 2
ESTABLISHED, COLLISION, FAILURE = 2, 3, 4
ITEM = "iisssu"
FOUND = "iissssisqaayu"


class Collision(dbus.DBusException):
    _dbus_error_name = "org.freedesktop.Avahi.CollisionError"


class NotPermitted(dbus.DBusException):
    _dbus_error_name = "org.freedesktop.Avahi.NotPermittedError"


class Group(dbus.service.Object):
    def __init__(self, server, path):
        super().__init__(server.bus, path)
        self.server = server
        self.name = ""

    @dbus.service.method(GROUP, in_signature="iiussssqaay")
    def AddService(self, interface, protocol, flags, name, kind, domain, host, port, txt):
        self.server.log.append(f"add {name} {kind} {port}")
        self.name = str(name)
        if name in self.server.names_here:
            raise Collision("Local name collision")

    @dbus.service.method(GROUP)
    def Commit(self):
        self.server.log.append("commit")
        if self.server.is_slow:
            return
        GLib.idle_add(self.settle)

    def settle(self):
        if self.server.failure:
            self.StateChanged(FAILURE, self.server.failure)
        elif self.name in self.server.names_elsewhere:
            self.StateChanged(COLLISION, "org.freedesktop.Avahi.CollisionError")
        else:
            self.StateChanged(ESTABLISHED, "org.freedesktop.Avahi.Success")

    @dbus.service.method(GROUP)
    def Free(self):
        self.server.log.append(f"free {self.name}")
        self.remove_from_connection()

    @dbus.service.signal(GROUP, signature="is")
    def StateChanged(self, state, error):
        pass


class Browser(dbus.service.Object):
    def __init__(self, server, path, kind):
        super().__init__(server.bus, path)
        self.server = server
        self.kind = kind

    @dbus.service.method(BROWSER)
    def Start(self):
        self.server.log.append(f"browse {self.kind}")
        for item in list(self.server.instances):
            self.ItemNew(*item)

    @dbus.service.method(BROWSER)
    def Free(self):
        self.server.log.append("free browser")
        self.remove_from_connection()

    @dbus.service.signal(BROWSER, signature=ITEM)
    def ItemNew(self, interface, protocol, name, kind, domain, flags):
        pass

    @dbus.service.signal(BROWSER, signature=ITEM)
    def ItemRemove(self, interface, protocol, name, kind, domain, flags):
        pass

    @dbus.service.signal(BROWSER, signature="s")
    def Failure(self, error):
        pass


class Resolver(dbus.service.Object):
    def __init__(self, server, path, key):
        super().__init__(server.bus, path)
        self.server = server
        self.key = key

    @dbus.service.method(RESOLVER)
    def Start(self):
        self.server.log.append(f"resolve {self.key[2]}")

    def tell(self):
        for item, (host, address, port, flags) in self.server.instances.items():
            if item[:3] == self.key:
                txt = dbus.Array([], signature="ay")
                self.Found(*item[:5], host, item[1], address, dbus.UInt16(port), txt, dbus.UInt32(flags))

    @dbus.service.method(RESOLVER)
    def Free(self):
        self.server.log.append(f"free resolver {self.key[2]}")
        self.server.resolvers.remove(self)
        self.remove_from_connection()

    @dbus.service.signal(RESOLVER, signature=FOUND)
    def Found(self, interface, protocol, name, kind, domain, host, aprotocol, address, port, txt, flags):
        pass


class Server(dbus.service.Object):
    def __init__(self, bus, options):
        super().__init__(bus, "/")
        self.bus = bus
        self.state = options.state
        self.names_here = options.here
        self.names_elsewhere = options.elsewhere
        self.failure = options.failure
        self.is_slow = options.slow
        self.is_forbidden = options.forbid
        self.log = []
        self.count = 0
        self.instances = {}
        self.groups = []
        self.browsers = []
        self.resolvers = []

    def new_path(self, kind):
        self.count += 1
        return f"/Client0/{kind}{self.count}"

    @dbus.service.method(SERVER2, out_signature="i")
    def GetState(self):
        return self.state

    @dbus.service.signal(SERVER, signature="is")
    def StateChanged(self, state, error):
        pass

    @dbus.service.method(SERVER2, in_signature="s", out_signature="s")
    def GetAlternativeServiceName(self, name):
        stem, mark, number = name.rpartition(" #")
        return f"{stem} #{int(number) + 1}" if mark else f"{name} #2"

    @dbus.service.method(SERVER2, out_signature="o")
    def EntryGroupNew(self):
        if self.is_forbidden:
            raise NotPermitted("Not permitted")
        self.groups.append(Group(self, self.new_path("EntryGroup")))
        return self.groups[-1]._object_path

    @dbus.service.method(SERVER2, in_signature="iissu", out_signature="o")
    def ServiceBrowserPrepare(self, interface, protocol, kind, domain, flags):
        if self.is_forbidden:
            raise NotPermitted("Not permitted")
        self.browsers.append(Browser(self, self.new_path("ServiceBrowser"), kind))
        return self.browsers[-1]._object_path

    @dbus.service.method(SERVER2, in_signature="iisssiu", out_signature="o")
    def ServiceResolverPrepare(self, interface, protocol, name, kind, domain, aprotocol, flags):
        key = (int(interface), int(protocol), str(name))
        self.resolvers.append(Resolver(self, self.new_path("ServiceResolver"), key))
        # As the real one: what is known is told at once, before a listener can know the new object.
        self.resolvers[-1].tell()
        return self.resolvers[-1]._object_path

    @dbus.service.method(CONTROL, in_signature="iisssqu")
    def Announce(self, interface, protocol, name, host, address, port, flags):
        item = (int(interface), int(protocol), str(name), "_osc._udp", "local", dbus.UInt32(flags))
        self.instances[item] = (str(host), str(address), int(port), int(flags))
        for browser in self.browsers:
            browser.ItemNew(*item)
        for resolver in self.resolvers:
            if resolver.key == item[:3]:
                resolver.tell()

    @dbus.service.method(CONTROL, in_signature="iis")
    def Withdraw(self, interface, protocol, name):
        for item in [item for item in self.instances if item[:3] == (interface, protocol, name)]:
            del self.instances[item]
            for browser in self.browsers:
                browser.ItemRemove(*item)

    @dbus.service.method(CONTROL, in_signature="s")
    def FailBrowsers(self, error):
        for browser in self.browsers:
            browser.Failure(error)

    @dbus.service.method(CONTROL, in_signature="i")
    def SetState(self, state):
        self.state = int(state)
        self.StateChanged(self.state, "")

    @dbus.service.method(CONTROL, in_signature="as")
    def TakeNamesElsewhere(self, names):
        self.names_elsewhere = [str(name) for name in names]

    @dbus.service.method(CONTROL)
    def SettleLastGroup(self):
        self.groups[-1].settle()

    @dbus.service.method(CONTROL)
    def SettleFirstGroup(self):
        self.groups[0].settle()

    @dbus.service.method(CONTROL, out_signature="as")
    def Log(self):
        return dbus.Array(self.log, signature="s")


def main() -> None:
    parser = argparse.ArgumentParser()
    parser.add_argument("--state", type=int, default=RUNNING)
    parser.add_argument("--here", action="append", default=[])
    parser.add_argument("--elsewhere", action="append", default=[])
    parser.add_argument("--failure", default="")
    parser.add_argument("--slow", action="store_true")
    parser.add_argument("--forbid", action="store_true")
    options = parser.parse_args()
    dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
    bus = dbus.SessionBus()
    server = Server(bus, options)
    # Last, so that a program that sees the name finds the object, too.
    name = dbus.service.BusName(SERVICE, bus, do_not_queue=True)
    print("ready", flush=True)
    GLib.MainLoop().run()
    del server, name


if __name__ == "__main__":
    sys.exit(main())
