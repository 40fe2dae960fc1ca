#!/usr/bin/env python3
"""A notification server that shows nothing, does what a user would when a test says so, and tells what it was given.

The arguments are its capabilities. It prints "ready" when it has its name.
"""

import json
import sys

import dbus
import dbus.mainloop.glib
import dbus.service
from gi.repository import GLib

NAME = "org.freedesktop.Notifications"
PATH = "/org/freedesktop/Notifications"
CONTROL = "org.zelta.Test"


class Server(dbus.service.Object):
    def __init__(self, bus, capabilities):
        super().__init__(bus, PATH)
        self.capabilities = capabilities
        self.notifications = []
        self.questions = 0
        self.reply_at_once = None
        self.early_reply = None

    @dbus.service.method(NAME, out_signature="as")
    def GetCapabilities(self):
        self.questions += 1
        return dbus.Array(self.capabilities, signature="s")

    @dbus.service.method(NAME, in_signature="susssasa{sv}i", out_signature="u")
    def Notify(self, application, replaces, icon, summary, body, actions, hints, timeout):
        number = len(self.notifications) + 1
        self.notifications.append({
            "application": application, "replaces": int(replaces), "icon": icon, "summary": summary, "body": body,
            "actions": [str(action) for action in actions], "hints": {str(k): str(v) for k, v in hints.items()},
            "timeout": int(timeout),
        })
        if self.early_reply:
            # Before the answer is sent.
            self.NotificationClosed(number, 2)
            self.NotificationReplied(number, self.early_reply)
            self.early_reply = None
        if self.reply_at_once:
            GLib.idle_add(self.NotificationReplied, number, self.reply_at_once)
        return dbus.UInt32(number)

    @dbus.service.signal(NAME, signature="us")
    def ActivationToken(self, number, token):
        pass

    @dbus.service.signal(NAME, signature="us")
    def ActionInvoked(self, number, key):
        pass

    @dbus.service.signal(NAME, signature="us")
    def NotificationReplied(self, number, text):
        pass

    @dbus.service.signal(NAME, signature="uu")
    def NotificationClosed(self, number, reason):
        pass

    @dbus.service.method(CONTROL, out_signature="s")
    def Notifications(self):
        return json.dumps(self.notifications)

    @dbus.service.method(CONTROL, out_signature="i")
    def Questions(self):
        return self.questions

    @dbus.service.method(CONTROL, in_signature="us")
    def Reply(self, number, text):
        self.NotificationReplied(number, text)

    @dbus.service.method(CONTROL, in_signature="s")
    def ReplyAtOnce(self, text):
        self.reply_at_once = text

    @dbus.service.method(CONTROL, in_signature="s")
    def DismissAndReplyBeforeTheAnswer(self, text):
        self.early_reply = text

    @dbus.service.method(CONTROL, in_signature="us")
    def Press(self, number, key):
        self.ActionInvoked(number, key)

    @dbus.service.method(CONTROL, in_signature="uss")
    def PressWithToken(self, number, key, token):
        self.ActivationToken(number, token)
        self.ActionInvoked(number, key)

    @dbus.service.method(CONTROL, in_signature="uu")
    def Close(self, number, reason):
        self.NotificationClosed(number, reason)


def main():
    dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
    bus = dbus.SessionBus()
    server = Server(bus, sys.argv[1:])
    name = dbus.service.BusName(NAME, bus)
    print("ready", flush=True)
    GLib.MainLoop().run()
    del server, name


if __name__ == "__main__":
    main()
