#!/usr/bin/env python3
"""The program as a person uses it, on the present display with its window manager: started, moved, resized, closed by
its close box, started again. Everything has to be as it was left.

Usage: session_on_a_display.py FOLDER_OF_PROGRAMS
"""
import os
import pathlib
import subprocess
import sys
import tempfile
import time

PROGRAMS = pathlib.Path(sys.argv[1])
PATIENCE = 20  # seconds


def wait_for(what, question):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        answer = question()
        if answer:
            return answer
        time.sleep(0.05)
    sys.exit(f"waited in vain for {what}")


def run(*command):
    return subprocess.run(command, capture_output=True, text=True).stdout.strip()


def setting(*arguments):
    return run(PROGRAMS / "qublet", "settings", *arguments)


class Program:
    def __init__(self, *paths):
        self.process = subprocess.Popen([PROGRAMS / "QUBLET20", *paths], env={**os.environ, "QT_QPA_PLATFORM": "xcb"})
        self.window = wait_for("the window", self.main_window)

    def main_window(self):
        windows = run("xdotool", "search", "--all", "--onlyvisible", "--pid", str(self.process.pid), "--name", "Playlist Editor")
        window = windows.split("\n")[0]
        # The window manager listens to what is asked of a window only once it has taken it in.
        return window if window and f"0x{int(window):08x}" in run("wmctrl", "-l") else ""

    def geometry(self):
        lines = run("xdotool", "getwindowgeometry", "--shell", self.window).split("\n")
        values = dict(line.split("=") for line in lines if "=" in line)
        return {key: int(values[key]) for key in ("X", "Y", "WIDTH", "HEIGHT")}

    def place(self, x, y, width, height):
        run("xdotool", "windowsize", "--sync", self.window, str(width), str(height))
        run("xdotool", "windowmove", "--sync", self.window, str(x), str(y))
        wait_for("the new size", lambda: self.geometry()["WIDTH"] == width and self.geometry()["HEIGHT"] == height)
        return self.settled()

    def settled(self):
        """The geometry once it stays the same for a while."""
        geometry = self.geometry()
        for _ in range(100):
            time.sleep(0.3)
            now = self.geometry()
            if now == geometry:
                return now
            geometry = now
        sys.exit("the window doesn't come to rest")

    def close(self):
        run("wmctrl", "-ic", self.window)
        wait_for("the end of the program", lambda: self.process.poll() is not None)
        expect("exit code", self.process.returncode, 0)


def expect(what, found, wanted):
    if found != wanted:
        sys.exit(f"{what}: {found!r} instead of {wanted!r}")
    print(f"{what}: {found!r}")


def main():
    with tempfile.TemporaryDirectory() as home:
        for name, below in (("HOME", ""), ("XDG_CONFIG_HOME", "config"), ("XDG_DATA_HOME", "data")):
            os.environ[name] = os.path.join(home, below)
        music = pathlib.Path(home, "music")
        music.mkdir()
        (music / "a.mp3").write_bytes(b"abc")

        Program(music).close()
        setting("set", "TableB", "TX4", "False")
        setting("set", "VE", "SA", "0")

        program = Program()
        left = program.place(211, 157, 903, 487)
        program.close()
        expect("stored width", setting("get", "PS", "W"), str(903 * 15))
        expect("stored height", setting("get", "PS", "H"), str(487 * 15))

        program = Program()
        expect("place and size after a restart", program.settled(), left)
        program.close()
        expect("hidden column", setting("get", "TableB", "TX4"), "False")
        expect("its width", setting("get", "TableB", "TV4"), "400")
        expect("status bar", setting("get", "VE", "SA"), "0")


main()
