"""A file manager on the session bus that notes what it is asked to show.

    fake_file_manager.py LOG

LOG gets a line "ready", and a line for each address.
"""

import sys

import dbus
import dbus.service
from dbus.mainloop.glib import DBusGMainLoop
from gi.repository import GLib

NAME = "org.freedesktop.FileManager1"


class FileManager(dbus.service.Object):
    def __init__(self, bus, log):
        super().__init__(bus, "/org/freedesktop/FileManager1")
        self.log = log

    def note(self, line):
        with open(self.log, "a", encoding="utf-8") as file:
            file.write(line + "\n")

    @dbus.service.method(NAME, in_signature="ass")
    def ShowItemProperties(self, addresses, startup_id):
        for address in addresses:
            self.note(f"{address} {startup_id}".rstrip())


DBusGMainLoop(set_as_default=True)
session = dbus.SessionBus()
name = dbus.service.BusName(NAME, session)
FileManager(session, sys.argv[1]).note("ready")
GLib.MainLoop().run()
