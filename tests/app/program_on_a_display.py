"""The program as a process on the present display with its window manager, for tests that use it like a person does. The
first argument of the test is the folder of the programs.
"""
import contextlib
import os
import pathlib
import shutil
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

    def press(self, key):
        run("wmctrl", "-ia", self.window)
        wait_for("its turn", lambda: run("xdotool", "getactivewindow") == self.window)
        run("xdotool", "key", key)

    def close(self):
        run("wmctrl", "-ic", self.window)
        wait_for("the end of the program", lambda: self.process.poll() is not None)
        expect("exit code", self.process.returncode, 0)


def expect(what, found, wanted):
    if found != wanted:
        sys.exit(f"{what}: {found!r} instead of {wanted!r}")
    print(f"{what}: {found!r}")


def last_list():
    """What the program left, as names, and the file itself: a list that is stored again is another file."""
    file = PROGRAMS / "last.m3u"
    return [line.rsplit("\\", 1)[-1] for line in file.read_text().splitlines()], file.stat().st_ino


@contextlib.contextmanager
def new_home():
    """An empty home of a user whose folders of the desktop all lie below it; gives a folder with music in it."""
    with tempfile.TemporaryDirectory() as home:
        for name, below in (("HOME", ""), ("XDG_CONFIG_HOME", "config"), ("XDG_DATA_HOME", "data")):
            os.environ[name] = os.path.join(home, below)
        music = pathlib.Path(home, "music")
        music.mkdir()
        # No tip comes up over the window, and no site is asked for a newer version.
        setting("set", "Options", "Show Tips at Startup", "0")
        os.environ["QUBLET_SITE"] = "http://127.0.0.1"
        yield pathlib.Path(home), music


def own_programs(home):
    """From now on copies of the programs are used, which keep what they leave beside themselves to themselves."""
    global PROGRAMS
    folder = home / "bin"
    folder.mkdir()
    for name in ("QUBLET20", "qublet"):
        shutil.copy2(PROGRAMS / name, folder)
    PROGRAMS = folder
