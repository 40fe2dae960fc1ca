#!/usr/bin/env python3
"""A login manager, a session manager and a desktop portal that keep account of what they are asked to hold back.

Each takes its name only when it is told to, on the command line or later, so a test can let one appear and go.
"""

import os
import sys

import dbus
import dbus.mainloop.glib
import dbus.service
from gi.repository import GLib

CONTROL = "org.zelta.Test"
LOGIND = "org.freedesktop.login1"
SESSION_MANAGER = "org.gnome.SessionManager"
PORTAL = "org.freedesktop.portal.Desktop"


class Refused(dbus.DBusException):
    _dbus_error_name = "org.freedesktop.DBus.Error.AccessDenied"


class Account:
    """What is held now, a line each, and who holds it."""

    def __init__(self, bus):
        self.bus = bus
        self.held = []
        self.refuses = False
        self.names = {}

    def take(self, line, sender):
        if self.refuses:
            raise Refused("not for you")
        entry = (line, str(sender))
        self.held.append(entry)
        return entry

    def drop(self, entry):
        if entry in self.held:
            self.held.remove(entry)

    def drop_all_of(self, sender):
        self.held = [entry for entry in self.held if entry[1] != sender or entry[0].startswith("logind")]


class Logind(dbus.service.Object):
    def __init__(self, account):
        super().__init__(account.bus, "/org/freedesktop/login1")
        self.account = account

    @dbus.service.method("org.freedesktop.login1.Manager", in_signature="ssss", out_signature="h", sender_keyword="sender")
    def Inhibit(self, what, who, why, mode, sender=None):
        entry = self.account.take(f"logind {what} {mode} {who}: {why}", sender)
        reader, writer = os.pipe()
        # As with the real one, the lock lasts until the last copy of the descriptor is closed.
        GLib.io_add_watch(reader, GLib.PRIORITY_DEFAULT, GLib.IO_HUP, self.close, entry)
        descriptor = dbus.types.UnixFd(writer)
        os.close(writer)
        return descriptor

    def close(self, reader, _condition, entry):
        os.close(reader)
        self.account.drop(entry)
        return False

    @dbus.service.signal("org.freedesktop.login1.Manager", signature="b")
    def PrepareForShutdown(self, start):
        pass


class SessionManager(dbus.service.Object):
    def __init__(self, account):
        super().__init__(account.bus, "/org/gnome/SessionManager")
        self.account = account
        self.entries = {}

    @dbus.service.method(SESSION_MANAGER, in_signature="susu", out_signature="u", sender_keyword="sender")
    def Inhibit(self, application, window, reason, flags, sender=None):
        cookie = len(self.entries) + 100
        self.entries[cookie] = self.account.take(f"session {flags} {application}: {reason}", sender)
        return dbus.UInt32(cookie)

    @dbus.service.method(SESSION_MANAGER, in_signature="u")
    def Uninhibit(self, cookie):
        self.account.drop(self.entries[int(cookie)])


class Request(dbus.service.Object):
    def __init__(self, portal, path, entry):
        super().__init__(portal.account.bus, path)
        self.portal = portal
        self.entry = entry

    @dbus.service.method("org.freedesktop.portal.Request")
    def Close(self):
        self.portal.account.drop(self.entry)
        self.remove_from_connection()


class Portal(dbus.service.Object):
    def __init__(self, account):
        super().__init__(account.bus, "/org/freedesktop/portal/desktop")
        self.account = account
        self.count = 0

    @dbus.service.method("org.freedesktop.portal.Inhibit", in_signature="sua{sv}", out_signature="o", sender_keyword="sender")
    def Inhibit(self, window, flags, options, sender=None):
        entry = self.account.take(f"portal {flags}: {options['reason']}", sender)
        self.count += 1
        return Request(self, f"/org/freedesktop/portal/desktop/request/{self.count}", entry)._object_path


class Control(dbus.service.Object):
    def __init__(self, account, logind):
        super().__init__(account.bus, "/control")
        self.account = account
        self.logind = logind

    @dbus.service.method(CONTROL, out_signature="as")
    def Held(self):
        return dbus.Array(sorted(line for line, _ in self.account.held), signature="s")

    @dbus.service.method(CONTROL, in_signature="s")
    def Appear(self, name):
        self.account.names[str(name)] = dbus.service.BusName(str(name), self.account.bus, do_not_queue=True)

    @dbus.service.method(CONTROL, in_signature="s")
    def GoAway(self, name):
        """What it held dies with it, except the locks: those are files."""
        kind = {LOGIND: "nothing", SESSION_MANAGER: "session", PORTAL: "portal"}[str(name)]
        self.account.held = [entry for entry in self.account.held if not entry[0].startswith(kind)]
        self.account.bus.release_name(str(name))
        del self.account.names[str(name)]

    @dbus.service.method(CONTROL, in_signature="b")
    def Refuse(self, refuses):
        self.account.refuses = bool(refuses)

    @dbus.service.method(CONTROL, in_signature="b")
    def PrepareForShutdown(self, start):
        self.logind.PrepareForShutdown(bool(start))


def main() -> None:
    dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
    bus = dbus.SessionBus()
    account = Account(bus)
    control = Control(account, Logind(account))
    others = SessionManager(account), Portal(account)
    bus.add_signal_receiver(
        lambda name, old, new: account.drop_all_of(name) if not new else None,
        "NameOwnerChanged", "org.freedesktop.DBus",
    )
    for name in [CONTROL, *sys.argv[1:]]:
        control.Appear(name)
    print("ready", flush=True)
    GLib.MainLoop().run()
    del others


if __name__ == "__main__":
    sys.exit(main())
