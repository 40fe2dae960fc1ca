#!/usr/bin/env python3
"""A desktop portal with global shortcuts that answers as a test tells it, and tells the test what it was asked."""

import argparse
import sys

import dbus
import dbus.mainloop.glib
import dbus.service
from gi.repository import GLib

SERVICE = "org.freedesktop.portal.Desktop"
ROOT = "/org/freedesktop/portal/desktop"
SHORTCUTS = "org.freedesktop.portal.GlobalShortcuts"
REGISTRY = "org.freedesktop.host.portal.Registry"
REQUEST = "org.freedesktop.portal.Request"
SESSION = "org.freedesktop.portal.Session"
CONTROL = "org.zelta.Test"


class Request(dbus.service.Object):
    def __init__(self, portal, path):
        super().__init__(portal.bus, path)
        self.portal = portal

    @dbus.service.method(REQUEST)
    def Close(self):
        self.portal.log.append("close request")
        self.portal.held = None
        self.remove_from_connection()

    @dbus.service.signal(REQUEST, signature="ua{sv}")
    def Response(self, response, results):
        pass


class Session(dbus.service.Object):
    def __init__(self, portal, path):
        super().__init__(portal.bus, path)
        self.portal = portal

    @dbus.service.method(SESSION)
    def Close(self):
        self.portal.log.append("close session")
        self.remove_from_connection()

    @dbus.service.signal(SESSION, signature="a{sv}")
    def Closed(self, details):
        pass


class Portal(dbus.service.Object):
    def __init__(self, bus, answer):
        super().__init__(bus, ROOT)
        self.bus = bus
        self.answer = answer
        self.log = []
        self.held = None
        self.session = None
        self.session_path = ""

    def object_path(self, kind, sender, token):
        return f"{ROOT}/{kind}/{sender[1:].replace('.', '_')}/{token}"

    def respond(self, request, response, results):
        request.Response(dbus.UInt32(response), dbus.Dictionary(results, signature="sv"))
        request.remove_from_connection()

    @dbus.service.method(CONTROL, in_signature="s")
    def SetAnswer(self, answer):
        self.answer = str(answer)

    @dbus.service.method(CONTROL)
    def ReleaseAnswer(self):
        self.held()
        self.held = None

    @dbus.service.method(CONTROL, in_signature="s")
    def Press(self, identifier):
        self.Activated(dbus.ObjectPath(self.session_path), identifier, dbus.UInt64(1), {})

    @dbus.service.method(CONTROL, in_signature="st")
    def PressAt(self, identifier, timestamp):
        self.Activated(dbus.ObjectPath(self.session_path), identifier, dbus.UInt64(timestamp), {})

    @dbus.service.method(CONTROL, in_signature="s")
    def PressInOtherSession(self, identifier):
        self.Activated(dbus.ObjectPath(ROOT + "/session/other/one"), identifier, dbus.UInt64(1), {})

    @dbus.service.method(CONTROL, in_signature="ss")
    def Rebind(self, identifier, trigger):
        self.ShortcutsChanged(dbus.ObjectPath(self.session_path), [(identifier, {"trigger_description": trigger})])

    @dbus.service.method(CONTROL)
    def EndSession(self):
        self.session.Closed(dbus.Dictionary({}, signature="sv"))

    @dbus.service.method(CONTROL, out_signature="s")
    def SessionPath(self):
        return self.session_path

    @dbus.service.method(CONTROL, out_signature="as")
    def Log(self):
        return dbus.Array(self.log, signature="s")


class Registry(Portal):
    """The introduction, which older portals lack."""

    @dbus.service.method(REGISTRY, in_signature="sa{sv}")
    def Register(self, application, options):
        self.log.append(f"register {application}")


class Shortcuts(Portal):
    @dbus.service.method(SHORTCUTS, in_signature="a{sv}", out_signature="o", sender_keyword="sender")
    def CreateSession(self, options, sender=None):
        self.log.append("create session")
        request = Request(self, self.object_path("request", sender, options["handle_token"]))
        self.session_path = self.object_path("session", sender, options["session_handle_token"])
        self.session = Session(self, self.session_path)
        GLib.idle_add(self.respond, request, 0, {"session_handle": self.session_path})
        return request._object_path

    @dbus.service.method(SHORTCUTS, in_signature="oa(sa{sv})sa{sv}", out_signature="o", sender_keyword="sender")
    def BindShortcuts(self, session, shortcuts, parent, options, sender=None):
        wishes = [f"{name}={about['preferred_trigger']} ({about['description']})" for name, about in shortcuts]
        self.log.append("bind " + ", ".join(wishes))
        assert session == self.session_path
        request = Request(self, self.object_path("request", sender, options["handle_token"]))
        bound = [(name, {"trigger_description": "Press " + about["preferred_trigger"]}) for name, about in shortcuts]
        results = {"shortcuts": dbus.Array(bound, signature="(sa{sv})")}
        if self.answer == "hold":
            self.held = lambda: self.respond(request, 0, results)
        elif self.answer == "first only":
            only = dbus.Array(bound[:1], signature="(sa{sv})")
            GLib.idle_add(self.respond, request, 0, {"shortcuts": only})
        elif self.answer == "no list":
            GLib.idle_add(self.respond, request, 0, {})
        elif self.answer == "at once":
            # The response overtakes the reply to the call, as the interface allows.
            self.respond(request, 0, results)
        else:
            response = {"grant": 0, "decline": 1, "fail": 2}[self.answer]
            GLib.idle_add(self.respond, request, response, results if response == 0 else {})
        return request._object_path

    @dbus.service.signal(SHORTCUTS, signature="osta{sv}")
    def Activated(self, session, identifier, timestamp, options):
        pass

    @dbus.service.signal(SHORTCUTS, signature="oa(sa{sv})")
    def ShortcutsChanged(self, session, shortcuts):
        pass


class FullPortal(Registry, Shortcuts):
    pass


KINDS = {"full": FullPortal, "without registry": Shortcuts, "without shortcuts": Registry}


def main() -> None:
    parser = argparse.ArgumentParser()
    parser.add_argument("--kind", choices=KINDS, default="full")
    parser.add_argument("--answer", default="grant")
    options = parser.parse_args()
    dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
    bus = dbus.SessionBus()
    portal = KINDS[options.kind](bus, options.answer)
    # Last, so that a program that sees the name finds the objects, too.
    name = dbus.service.BusName(SERVICE, bus, do_not_queue=True)
    print("ready", flush=True)
    GLib.MainLoop().run()
    del portal, name


if __name__ == "__main__":
    sys.exit(main())
