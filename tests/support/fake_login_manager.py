"""A login manager that switches nothing off: it notes what it is asked for.

    fake_login_manager.py ADDRESS LOG [refuses|hangs]

ADDRESS is that of the test's own bus; no other is ever spoken to. LOG gets a line "ready", and a line for each request:
"PowerOff", and whether it may ask the user.
"""

import sys

import dbus
import dbus.bus
import dbus.service
from dbus.mainloop.glib import DBusGMainLoop
from gi.repository import GLib

NAME = "org.freedesktop.login1"


class Manager(dbus.service.Object):
    def __init__(self, bus, log, manner):
        super().__init__(bus, "/org/freedesktop/login1")
        self.log, self.manner = log, manner

    def note(self, line):
        with open(self.log, "a", encoding="utf-8") as file:
            file.write(line + "\n")

    @dbus.service.method(NAME + ".Manager", in_signature="b", async_callbacks=("done", "failed"))
    def PowerOff(self, interactive, done, failed):
        self.note(f"PowerOff {bool(interactive)}")
        if self.manner == "refuses":
            failed(dbus.exceptions.DBusException("not now", name="org.freedesktop.DBus.Error.AccessDenied"))
        elif self.manner != "hangs":
            done()


address, log_file, *told = sys.argv[1:]
DBusGMainLoop(set_as_default=True)
own = dbus.bus.BusConnection(address)
name = dbus.service.BusName(NAME, own)
Manager(own, log_file, told[0] if told else "").note("ready")
GLib.MainLoop().run()
