"""windows_program.py LINUX_BIN WINDOWS_BIN ZIP PICTURE: the whole program for Windows, unpacked and used on the present
display.

It is given a folder, shows it, and is closed by its close box. What it leaves is held against what the programs for Linux
make of the same folder: last.m3u, the settings in the registry, and the list that the next start brings back. It
saves by the dialog of the system, and has the player play, for which a program of WINDOWS_BIN stands. PICTURE is made of
its window.
"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time
import unittest
import zipfile

sys.path.insert(0, str(pathlib.Path(__file__).with_name("house")))
import guarded

LINUX = pathlib.Path(sys.argv[1]).resolve()
WINDOWS = pathlib.Path(sys.argv[2]).resolve()
ZIP = pathlib.Path(sys.argv[3]).resolve()
PICTURE = pathlib.Path(sys.argv[4]).resolve()
FRAME = bytes.fromhex("fffb9064") + bytes(413)  # 128 kbit/s, 44,100 Hz
PATIENCE = 40  # seconds; a first start by Wine is slow
KEY = r"HKCU\Software\Velmora\QUBLET2021"
ALBUMS = {
    "Ines Valc\u00e1rcel/Cartas de Oto\u00f1o": ["01 Caf\u00e9 del Puerto", "02 Ni\u00f1a Luna", "03 Sin Prisa", "04 Lluvia"],
    "Harbour Lights/Night Ferry": ["01 Slack Water", "02 Lantern Street", "03 Tidewrack", "04 Fathoms"],
    "Old Mill Quartet/Live at the Granary": ["01 Blue Heron", "02 Millrace", "03 Sunday Bread", "04 Weathervane"],
}


def run(*command, **options):
    return subprocess.run(command, capture_output=True, text=True, timeout=PATIENCE, **options)


def native(place):
    return "z:" + str(place).replace("/", "\\")


def wait_for(what, question):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        if answer := question():
            return answer
        time.sleep(0.2)
    raise AssertionError(f"waited in vain for {what}")


class Program:
    def __init__(self, folder, *arguments):
        self.process = subprocess.Popen(["wine", str(folder / "QUBLET20.exe"), *arguments], stderr=subprocess.DEVNULL)
        self.window = wait_for("the window", self.main_window)

    def main_window(self, known=None):
        for line in run("wmctrl", "-l").stdout.splitlines():
            if "Playlist Editor v" in line and line.split()[0] != known:
                return line.split()[0]
        return ""

    def other_window(self):
        windows = [line.split()[0] for line in run("wmctrl", "-l").stdout.splitlines()]
        return next((window for window in windows if window != self.window), "")

    def press(self, *keys):
        time.sleep(2)  # it may still be reading
        run("wmctrl", "-ia", self.window)
        run("xdotool", "key", *keys)

    def title(self):
        return run("xdotool", "getwindowname", str(int(self.window, 16))).stdout.strip()

    def close(self):
        time.sleep(2)  # it may still be reading
        run("wmctrl", "-ic", self.window)
        wait_for("the end of the program", lambda: self.process.poll() is not None)
        return self.process.returncode


class WholeProgram(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        holder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(holder.cleanup)
        place = pathlib.Path(holder.name)
        zipfile.ZipFile(ZIP).extractall(place / "program")
        cls.programs = next((place / "program").iterdir())
        # A blank: without quotes around it a path opens nothing.
        cls.music = pathlib.Path(os.environ["WINEPREFIX"]) / "drive_c" / "My Music"
        cls.addClassCleanup(shutil.rmtree, cls.music)
        cls.place = place
        os.environ["QUBLET_SITE"] = "http://127.0.0.1"  # refuses to be asked for a newer version
        for number, (album, songs) in enumerate(ALBUMS.items(), 1):
            (cls.music / album).mkdir(parents=True)
            for length, song in enumerate(songs, 1):
                (cls.music / album / f"{song}.mp3").write_bytes(FRAME * (5000 + 2111 * length * number))

    def linux(self, *arguments):
        environment = os.environ | {"QUBLET_DOSDEVICES": os.environ["WINEPREFIX"] + "/dosdevices"}
        done = run(str(LINUX / "qublet"), *arguments, env=environment)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        return done.stdout

    def windows(self, *arguments):
        done = run("wine", str(self.programs / "qublet.exe"), *arguments)
        self.assertEqual(done.returncode, 0, done.stderr)
        return done.stdout

    def expected(self):
        self.linux("save", "--replace", str(self.place / "expected.m3u"), str(self.music))
        return (self.place / "expected.m3u").read_bytes()

    def test_1_lists_a_folder_and_leaves_it_as_the_last_list(self):
        # No tip comes up over the window.
        self.windows("settings", "set", "Options", "Show Tips at Startup", "0")
        program = Program(self.programs, r"c:\My Music")
        time.sleep(3)
        run("xdotool", "windowsize", str(int(program.window, 16)), "1180", "420")
        run("xdotool", "windowmove", str(int(program.window, 16)), "40", "60")
        time.sleep(3)
        run("import", "-window", program.window, str(PICTURE))
        self.assertEqual(program.title(), "[Velmora] M3U Playlist Editor v2.1b")
        self.assertEqual(program.close(), 0)
        self.assertEqual((self.programs / "last.m3u").read_bytes(), self.expected())
        self.assertGreater(PICTURE.stat().st_size, 10000)

    def test_2_keeps_its_settings_in_the_registry(self):
        place = run("wine", "reg", "query", KEY + r"\Startup", "/v", "insl").stdout
        self.assertIn("REG_SZ", place)
        self.assertIn(r"\QUBLET20.exe", place)
        width = self.windows("settings", "get", "PS", "W").strip()
        self.assertAlmostEqual(int(width), 1180 * 15, delta=600)
        self.assertIn(width, run("wine", "reg", "query", KEY + r"\PS", "/v", "W").stdout)

    def test_3_brings_the_last_list_back(self):
        (self.programs / "last.m3u").write_bytes(b"\r\n".join(self.expected().split(b"\r\n")[:3]) + b"\r\n")
        program = Program(self.programs)
        self.assertEqual(program.close(), 0)
        self.assertEqual((self.programs / "last.m3u").read_bytes().count(b"\r\n"), 3)
        self.assertEqual(self.linux("list", str(self.programs / "last.m3u")),
                         self.windows("list", str(self.programs / "last.m3u")))

    def test_4_saves_by_the_dialog_of_the_system(self):
        target = self.place / "saved.m3u"
        program = Program(self.programs, r"c:\My Music")
        program.press("ctrl+s")
        dialog = wait_for("the dialog", program.other_window)
        run("wmctrl", "-ia", dialog)
        run("xdotool", "key", "Home", "shift+End")
        run("xdotool", "type", "--delay", "20", native(target))
        run("xdotool", "key", "Return")
        wait_for("the caption", lambda: program.title().endswith("[saved.m3u]"))
        self.assertEqual(program.close(), 0)
        self.assertEqual(target.read_bytes(), self.expected())
        self.assertEqual(self.linux("list", str(target)), self.linux("list", str(self.music)))

    def test_5_has_the_player_play_and_is_answered_by_its_window(self):
        log = self.place / "told.txt"
        player = f'"{native(WINDOWS / "player_stand_in.exe")}" "{native(log)}" "%1"'
        run("wine", "reg", "add", r"HKCR\.m3u", "/ve", "/d", "StandIn.Playlist", "/f")
        run("wine", "reg", "add", r"HKCR\StandIn.Playlist\shell\open\command", "/ve", "/d", player, "/f")
        program = Program(self.programs, r"c:\My Music")
        program.press("ctrl+p")
        wait_for("the player", lambda: log.exists() and "given" in log.read_text())
        self.assertEqual((self.programs / "tmp.m3u").read_bytes(), self.expected())
        self.assertIn("state\tplaying\nposition\t12.345\n", self.windows("player"))
        self.windows("player", "jump", "65")
        self.assertIn("position\t65.000\n", self.windows("player", "status"))
        self.windows("player", "stop")
        told = log.read_text().splitlines()
        self.assertEqual([line.lower() for line in told],
                         ["ready", "given " + native(self.programs / "tmp.m3u").lower(), "jump 65000", "stop"])
        self.assertEqual(program.close(), 0)

    def test_6_brings_no_other_library(self):
        self.assertEqual(sorted(file.name for file in self.programs.glob("*.exe")), ["QUBLET20.exe", "qublet.exe"])
        self.assertEqual(list(self.programs.glob("*.dll")), [])

    def test_6_is_guarded(self):
        for program in self.programs.glob("*.exe"):
            self.assertEqual(guarded.lacks(program.read_bytes()), [], program.name)

    def test_7_brings_its_papers(self):
        papers = {file.relative_to(self.programs).as_posix(): file.read_bytes() for file in self.programs.rglob("*.txt")}
        for name in ("README.txt", "COPYRIGHT.txt", "CHANGELOG.txt", "licences/LGPL-3.txt", "licences/GPL-3.txt",
                     "licences/Qt.txt", "licences/utf8proc.txt", "licences/zlib.txt", "licences/GCC.txt",
                     "licences/MinGW-w64.txt"):
            self.assertGreater(len(papers.get(name, b"")), 500, name)
        for name, text in papers.items():
            self.assertEqual(text.count(b"\n"), text.count(b"\r\n"), name)
            self.assertNotIn(b"/usr/share/common-licenses", text, name)
            self.assertNotRegex(text, rb"@[A-Z0-9_]+@", name)
        for name in ("README.txt", "CHANGELOG.txt"):
            self.assertNotRegex(papers[name], rb"(?i)debian|apt-get|\./run", name)
        self.assertIn(b"GNU LESSER GENERAL PUBLIC LICENSE", papers["licences/LGPL-3.txt"])
        self.assertRegex(papers["COPYRIGHT.txt"], rb"apt-get source qt6-base=[0-9]")

    def test_7_brings_its_help_and_tips(self):
        for name in ("QUBLET20.hlp", "QUBLET20.htd", "help/contents.html", "help/book.css", "help/pictures/Main.png"):
            self.assertGreater((self.programs / name).stat().st_size, 100, name)

    def where_it_stands(self, program):
        lines = run("xdotool", "getwindowgeometry", "--shell", str(int(program.window, 16))).stdout.splitlines()
        values = dict(line.split("=") for line in lines if "=" in line)
        return [int(values[key]) for key in ("X", "Y", "WIDTH", "HEIGHT")]

    def store_place(self, **values):
        for key, value in values.items():
            run("wine", "reg", "add", KEY + r"\PS", "/v", key, "/d", str(value), "/f")

    def test_8_falls_back_from_a_size_that_the_screen_does_not_exceed(self):
        width, height = map(int, run("xdotool", "getdisplaygeometry").stdout.split())
        self.store_place(L=3000, T=2250, W=width * 15, H=height * 15)
        program = Program(self.programs)
        time.sleep(3)
        found = self.where_it_stands(program)
        program.close()
        # With the frame.
        self.assertAlmostEqual(found[2], 528, delta=20)
        self.assertAlmostEqual(found[3], 400, delta=60)

    def test_9_puts_a_second_instance_where_the_first_stands(self):
        self.store_place(L=3000, T=2250, W=7920, H=6000)
        program = Program(self.programs)
        time.sleep(3)
        found = self.where_it_stands(program)
        self.assertAlmostEqual(found[0], 200, delta=10)
        self.assertAlmostEqual(found[1], 150, delta=60)
        program.close()
        first = Program(self.programs)
        second = subprocess.Popen(["wine", str(self.programs / "QUBLET20.exe")], stderr=subprocess.DEVNULL)
        program = Program.__new__(Program)
        program.process, program.window = second, wait_for(
            "the second window", lambda: first.main_window(first.window)
        )
        time.sleep(3)
        self.assertEqual(self.where_it_stands(program), found)
        program.close()
        first.close()


if __name__ == "__main__":
    outcome = unittest.main(argv=sys.argv[:1] + sys.argv[5:], exit=False, verbosity=2).result
    failed = len(outcome.failures) + len(outcome.errors)
    # As ctest says it, for ./test.
    share = 100 * (outcome.testsRun - failed) // max(1, outcome.testsRun)
    print(f"{share}% tests passed, {failed} tests failed out of {outcome.testsRun}")
    sys.exit(1 if failed or not outcome.testsRun else 0)
