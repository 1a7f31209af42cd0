"""A player on the session bus that says whatever a file tells it to say.

    fake_player.py NAME STATE LOG

NAME is the part of its bus name behind "org.mpris.MediaPlayer2.". STATE is a JSON file, read at every question:

    status    "Playing", "Paused", "Stopped"; null is an error
    position  microseconds; null is an error
    type      D-Bus type of the position, "x" unless told
    track     its id, null for none
    texts     true: the id is a text instead of an object path
    metadata  false: something that is no dictionary
    entry     DesktopEntry
    delay     seconds that an answer for the position takes

LOG gets a line "ready", and a line for each call that changes something.
"""

import json
import sys
import time

import dbus
import dbus.service
from dbus.mainloop.glib import DBusGMainLoop
from gi.repository import GLib

PLAYER = "org.mpris.MediaPlayer2.Player"
TYPES = {"x": dbus.Int64, "t": dbus.UInt64, "i": dbus.Int32, "u": dbus.UInt32, "s": dbus.String, "d": dbus.Double}


class Player(dbus.service.Object):
    def __init__(self, bus, state, log):
        super().__init__(bus, "/org/mpris/MediaPlayer2")
        self.state, self.log = state, log

    def told(self):
        with open(self.state, encoding="utf-8") as file:
            return json.load(file)

    def note(self, line):
        with open(self.log, "a", encoding="utf-8") as file:
            file.write(line + "\n")

    @dbus.service.method(PLAYER)
    def Stop(self):
        self.note("Stop")

    @dbus.service.method(PLAYER, in_signature="ox")
    def SetPosition(self, track, position):
        self.note(f"SetPosition {track} {position}")

    @dbus.service.method(PLAYER, in_signature="x")
    def Seek(self, offset):
        self.note(f"Seek {offset}")

    @dbus.service.method("org.freedesktop.DBus.Properties", in_signature="ss", out_signature="v")
    def Get(self, interface, name):
        told = self.told()
        if name == "PlaybackStatus" and told.get("status") is not None:
            return told["status"]
        if name == "Position":
            time.sleep(told.get("delay", 0))
        if name == "Position" and told.get("position") is not None:
            return TYPES[told.get("type", "x")](told["position"])
        if name == "Metadata":
            if told.get("metadata") is False:
                return dbus.Int32(7)
            entries = {"xesam:title": dbus.String("t", variant_level=1)}
            if told.get("track") is not None:
                kind = dbus.String if told.get("texts") else dbus.ObjectPath
                entries["mpris:trackid"] = kind(told["track"], variant_level=1)
            return dbus.Dictionary(entries, signature="sv")
        if name == "DesktopEntry" and "entry" in told:
            return told["entry"]
        raise dbus.exceptions.DBusException("no such property", name="org.freedesktop.DBus.Error.InvalidArgs")


def main():
    name, state, log = sys.argv[1:]
    DBusGMainLoop(set_as_default=True)
    bus = dbus.SessionBus()
    player = Player(bus, state, log)
    taken = dbus.service.BusName("org.mpris.MediaPlayer2." + name, bus)
    player.note("ready")
    GLib.MainLoop().run()
    del taken


main()
