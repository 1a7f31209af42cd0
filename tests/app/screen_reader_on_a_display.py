#!/usr/bin/env python3
"""What a screen reader reads of the program, asked for as one asks: over the accessibility bus, while keys come from
the present display. List, selection, menus and dialogs have to be words.

Usage: screen_reader_on_a_display.py FOLDER_OF_PROGRAMS
"""
import os
import pathlib
import subprocess
import sys
import tempfile
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

PROGRAMS = pathlib.Path(sys.argv[1])
PATIENCE = 20  # seconds
ROLE = Atspi.Role
NAMES = ["a", "b", "c", "d: e", "f", "g", "h", "i", "j", "k", "l", "m"]


def pump(seconds=0.0):
    """Lets events come in."""
    end = time.monotonic() + seconds
    context = GLib.MainContext.default()
    while context.iteration(False) or time.monotonic() < end:
        time.sleep(0.005)


def wait_for(what, question):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        pump()
        try:
            answer = question()
        except GLib.Error:
            answer = None  # it went away while it was asked
        if answer:
            return answer
        time.sleep(0.05)
    sys.exit(f"waited in vain for {what}")


def expect(what, found, wanted):
    if found != wanted:
        sys.exit(f"{what}: {found!r} instead of {wanted!r}")
    print(f"{what}: {found!r}")


def children(node):
    return [child for child in (node.get_child_at_index(i) for i in range(node.get_child_count())) if child]


def below(node, role, name=None):
    """The parts of a window that have this role, in reading order."""
    found = []
    for child in children(node):
        if child.get_role() == role and (name is None or child.get_name() == name):
            found.append(child)
        if child.get_role() != ROLE.TABLE:
            found += below(child, role, name)
    return found


def has(node, state):
    return node.get_state_set().contains(state)


def press(*keys):
    for key in keys:
        subprocess.run(["xdotool", "key", key], check=True)
        pump(0.15)


class Reader:
    """Hears which rows are selected."""

    def __init__(self):
        self.heard = []
        self.listener = Atspi.EventListener.new(self.hear)
        for event in ("object:state-changed:selected", "object:state-changed:focused"):
            self.listener.register(event)

    def hear(self, event):
        name = event.source.get_name() if event.source else "?"
        if event.type.startswith("object:state-changed:selected"):
            self.heard.append(("selected " if event.detail1 else "left out ") + name)
        elif event.detail1:
            self.heard.append(f"at {name}")

    def after(self, *keys):
        pump(0.3)
        self.heard.clear()
        press(*keys)
        pump(0.5)
        return list(self.heard)


def start(music):
    environment = {**os.environ, "QT_QPA_PLATFORM": "xcb", "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}
    process = subprocess.Popen([PROGRAMS / "QUBLET20", music], env=environment)

    def window():
        for program in children(Atspi.get_desktop(0)):
            if program.get_process_id() != process.pid:
                continue
            for candidate in children(program):
                if below(candidate, ROLE.TABLE):
                    return candidate
        return None

    return process, wait_for("the main window on the accessibility bus", window)


def read_list(table):
    headers = [table.get_column_description(i) for i in range(table.get_n_columns())]
    expect("columns", headers, ["FileName", "Time", "Size", "Path", "ID", "Layer", "Bitrate", "Samplerate", "Mode",
                                "Original Order"])
    names = [table.get_accessible_at(row, 0).get_name() for row in range(table.get_n_rows())]
    expect("rows", names, [f"{name}.mp3, 0:00" for name in NAMES])
    expect("children are header and cells", table.get_child_count(), (1 + len(NAMES)) * 10)
    expect("the first of them", table.get_child_at_index(0).get_name(), "FileName")
    expect("a cell's place", table.get_accessible_at(2, 9).get_index_in_parent(), 39)
    expect("the last cell of row 3", table.get_child_at_index(39).get_name(), "3")


def read_selection(table, reader):
    def selected():
        return list(table.get_selected_rows())

    heard = reader.after("Home")
    expect("by Home", [word for word in heard if word.startswith("selected")], ["selected a.mp3, 0:00"])
    expect("selected rows", selected(), [0])
    heard = reader.after("Down")
    expect("by Down", [word for word in heard if "a.mp3" in word or "b.mp3" in word],
           ["at b.mp3, 0:00", "left out a.mp3, 0:00", "selected b.mp3, 0:00"])
    expect("a cell's state", has(table.get_accessible_at(1, 0), Atspi.StateType.SELECTED), True)
    expect("another's", has(table.get_accessible_at(0, 0), Atspi.StateType.SELECTED), False)
    expect("focus", has(table.get_accessible_at(1, 0), Atspi.StateType.FOCUSED), True)
    heard = reader.after("shift+Down")
    expect("by Shift+Down", [word for word in heard if word.startswith(("selected", "left"))],
           ["selected c.mp3, 0:00"])
    expect("selected rows", selected(), [1, 2])
    heard = reader.after("ctrl+shift+a")
    expect("by \"Select None\"", heard, ["left out b.mp3, 0:00", "left out c.mp3, 0:00"])
    heard = reader.after("ctrl+a")
    expect("of many only where one stands", heard, ["selected c.mp3, 0:00"])
    everyone = list(range(len(NAMES)))
    expect("selected rows", selected(), everyone)
    table.remove_row_selection(2)
    wait_for("the row to be left out by the reader", lambda: selected() == [row for row in everyone if row != 2])
    table.add_row_selection(2)
    wait_for("the row to be selected by the reader", lambda: selected() == everyone)


def opened_by(key, menu):
    """The menu that the key opens. On a busy machine it comes late, or the key comes ahead of the keyboard."""
    press(key)
    for _ in range(20):
        pump(0.2)
        menu.clear_cache()  # the reader's own, which may not know of it yet
        for popup in below(menu, ROLE.POPUP_MENU):
            if has(popup, Atspi.StateType.SHOWING):
                return popup
    press("Escape", "Escape")
    return None


def read_menus(window):
    bar = below(window, ROLE.MENU_BAR)[0]
    menus = children(bar)
    expect("menus", [menu.get_name() for menu in menus], ["File", "Edit", "View", "Tools", "Help"])
    popup = wait_for("the File menu", lambda: opened_by("alt+f", menus[0]))
    entries = [(entry.get_name(), has(entry, Atspi.StateType.ENABLED)) for entry in children(popup)
               if entry.get_role() in (ROLE.MENU_ITEM, ROLE.MENU) and entry.get_name()]
    expect("entries of File", [name for name, _ in entries][:3], ["New", "Open", "Import.."])
    expect("\"Exit\" can be chosen", dict(entries).get("Exit"), True)
    press("Escape", "Escape")


def read_dialogs(window):
    program = window.get_application()

    def dialog(role):
        return wait_for("the dialog", lambda: next((each for each in children(program) if each.get_role() == role and
                                                    has(each, Atspi.StateType.SHOWING)), None))

    press("alt+v", "Up", "Up", "Return")
    properties = dialog(ROLE.DIALOG)
    expect("dialog", properties.get_name(), "Playlist Properties...")

    def words():
        return [label.get_name() for label in below(properties, ROLE.LABEL)]

    wait_for("the figures", lambda: "File count: 12 items" in words())
    for figure in ("Playlist filename: 'Unsaved Playlist'", "Files missing: None", "Total size of items: 36 bytes"):
        expect(figure, figure in words(), True)
    press("Escape")

    press("Home", "Delete", "ctrl+n")
    question = dialog(ROLE.ALERT)
    texts = [label.get_name() for label in below(question, ROLE.LABEL)]
    expect("question", "Do you want to save the current playlist first?" in texts, True)
    buttons = sorted(button.get_name().replace("&", "") for button in below(question, ROLE.PUSH_BUTTON))
    expect("answers", buttons, ["Cancel", "No", "Yes"])
    press("Escape")


def main():
    with tempfile.TemporaryDirectory() as home:
        for name, folder in (("HOME", ""), ("XDG_CONFIG_HOME", "config"), ("XDG_DATA_HOME", "data")):
            os.environ[name] = os.path.join(home, folder)
        music = pathlib.Path(home, "music")
        music.mkdir()
        # No tip comes up over the window, and no site is asked for a newer version.
        subprocess.run([PROGRAMS / "qublet", "settings", "set", "Options", "Show Tips at Startup", "0"], check=True)
        os.environ["QUBLET_SITE"] = "http://127.0.0.1"
        for name in NAMES:
            (music / f"{name}.mp3").write_bytes(b"abc")
        Atspi.init()
        process, window = start(music)
        try:
            table = below(window, ROLE.TABLE)[0]
            expect("list", table.get_name(), "Playlist")
            wait_for("the window to be active", lambda: has(window, Atspi.StateType.ACTIVE))
            expect("it is a table", "Table" in table.get_interfaces(), True)
            reader = Reader()
            read_list(table)
            read_selection(table, reader)
            read_menus(window)
            read_dialogs(window)
        finally:
            process.kill()


main()
