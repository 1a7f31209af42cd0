"""windows_files.py LINUX_BIN WINDOWS_BIN: holds what qublet.exe writes and prints, run by Wine, against qublet.

Both work on the same files under the same drive letters ($WINEPREFIX/dosdevices). Whatever they write must be the same
byte for byte, and each must take in what the other has written.
"""

import os
import pathlib
import pty
import re
import select
import stat
import struct
import subprocess
import sys
import tempfile
import time
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).with_name("house")))
import guarded

LINUX, WINDOWS = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
PREFIX = pathlib.Path(os.environ["WINEPREFIX"])
FRAME = bytes.fromhex("fffb9064") + bytes(413)  # 128 kbit/s, 44,100 Hz
NAMES = ["plain.mp3", "Bj\u00f6rk \u2013 \u20ac.mp3", "sub/two words & more.mp3", "sub/deeper/x.wav", "\u00c3\u00a9.mp3"]
BEYOND = "\u97f3\u697d \U0001f3b5.mp3"  # in no 8-bit page of the west


def wav(seconds):
    data = bytes(8000 * seconds)
    head = struct.pack("<4sI4s4sIHHIIHH4sI", b"RIFF", 36 + len(data), b"WAVE", b"fmt ", 16, 1, 1, 8000, 8000, 1, 8,
                       b"data", len(data))
    return head + data


def run(program, arguments, cwd):
    own = {"QUBLET_DOSDEVICES": str(PREFIX / "dosdevices")} if program == "linux" else {}
    command = [str(LINUX / "qublet")] if program == "linux" else ["wine", str(WINDOWS / "qublet.exe")]
    environment = {name: value for name, value in os.environ.items() if name != "QUBLET_DOSDEVICES"} | own
    done = subprocess.run(command + list(arguments), cwd=cwd, env=environment, capture_output=True, timeout=120)
    return done.returncode, done.stdout.decode(), done.stderr.decode()


class Files(unittest.TestCase):
    """Each test has a folder of music of its own, below z:."""

    def setUp(self):
        holder = tempfile.TemporaryDirectory()
        self.addCleanup(holder.cleanup)
        self.folder = pathlib.Path(holder.name) / "music"
        for number, name in enumerate(NAMES, 1):
            self.write(name, wav(number) if name.endswith("wav") else FRAME * (40 * number))

    def write(self, name, content):
        place = self.folder / name
        place.parent.mkdir(parents=True, exist_ok=True)
        place.write_bytes(content)
        return place

    def drive_form(self, name=""):
        return ("z:" + str(self.folder / name)).replace("/", "\\")

    def both(self, *arguments, code=0):
        """What both print, which must be the same."""
        linux, windows = (run(program, arguments, self.folder) for program in ("linux", "windows"))
        self.assertEqual(linux, windows)
        self.assertEqual(linux[0], code, linux[2])
        return linux[1]

    def saved(self, name, *arguments, what="."):
        """What both write as the same file, which must be the same bytes."""
        contents = []
        for program in ("linux", "windows"):
            code, _, complaint = run(program, ["save", *arguments, name, what], self.folder)
            self.assertEqual((code, complaint), (0, ""), program)
            contents.append((self.folder / name).read_bytes())
            (self.folder / name).unlink()
        self.assertEqual(contents[0], contents[1])
        return contents[0]

    def rows(self, program, name):
        code, out, complaint = run(program, ["list", "--json", name], self.folder)
        self.assertEqual((code, complaint), (0, ""), program)
        self.assertNotEqual(out, "")
        return out


class Playlists(Files):
    def test_full_paths_in_the_code_page(self):
        (self.folder / NAMES[4]).unlink()
        content = self.saved("all.m3u")
        self.assertEqual(content.count(b"\r\n"), len(NAMES) - 1)
        self.assertEqual(content.count(b"\n"), len(NAMES) - 1)
        self.assertIn(self.drive_form("Bj").encode() + b"\xf6rk \x96 \x80.mp3\r\n", content)

    def test_utf8_where_the_code_page_lacks_a_character_or_would_be_misread(self):
        self.assertEqual(self.saved("odd.m3u", what=NAMES[4]), self.drive_form(NAMES[4]).encode() + b"\r\n")
        self.write(BEYOND, FRAME * 50)
        content = self.saved("all.m3u")
        self.assertIn(self.drive_form(BEYOND).encode() + b"\r\n", content)
        self.assertFalse(content.startswith(b"\xef\xbb\xbf"))

    def test_relative_paths(self):
        content = self.saved("all.m3u", "--relative")
        self.assertIn(b"sub\\deeper\\x.wav\r\n", content)
        self.assertNotIn(b":", content)

    def test_each_opens_what_the_other_saved(self):
        self.write(BEYOND, FRAME * 50)
        for name, options in (("a.m3u", []), ("b.m3u", ["--relative"]), ("c.m3u8", []), ("d.m3u8", ["--relative"])):
            for writer in ("linux", "windows"):
                code, _, complaint = run(writer, ["save", *options, name, "."], self.folder)
                self.assertEqual((code, complaint), (0, ""), writer)
                rows = [self.rows(reader, name) for reader in ("linux", "windows")]
                self.assertEqual(rows[0], rows[1], (name, writer))
                self.assertEqual(rows[0].count("\n"), len(NAMES) + 1)
                self.assertNotIn('"State": 2', rows[0])
                (self.folder / name).unlink()

    def test_every_byte_of_the_code_page_is_read_alike(self):
        upper = bytes(range(0x80, 0x100))
        self.write("bytes.m3u", b"".join(b"c:\\%c.mp3\r\n" % byte for byte in upper) + b"z:\\" + upper + b".mp3\n")
        self.assertEqual(self.both("list", "bytes.m3u").count("\n"), len(upper) + 2)

    def test_lines_of_any_kind_are_read_alike(self):
        name = self.write("lines.m3u", b"\xef\xbb\xbf#EXTM3U\r#x\n\r\nplain.mp3\r\nsub\\two words & more.mp3\rZ:\\gone.mp3\n"
                          b"..\\music\\plain.mp3\nhttp://a.b/c.mp3\nsub/deeper/x.wav\n").name
        self.assertEqual(self.both("list", name).count("plain.mp3"), 2)

    def test_a_read_only_playlist_is_refused(self):
        place = self.write("old.m3u", b"old")
        place.chmod(stat.S_IRUSR)
        self.both("save", "--replace", "old.m3u", "plain.mp3", code=1)
        self.assertEqual(place.read_bytes(), b"old")

    def test_an_existing_playlist_is_kept_unless_told(self):
        place = self.write("old.m3u", b"old")
        self.both("save", "old.m3u", "plain.mp3", code=1)
        self.assertEqual(place.read_bytes(), b"old")
        self.both("save", "--replace", "old.m3u", "plain.mp3")
        self.assertEqual(place.read_bytes(), self.drive_form("plain.mp3").encode() + b"\r\n")
        self.assertEqual([other.name for other in self.folder.iterdir() if "qublet" in other.name], [])


class Lists(Files):
    def test_folders_with_hidden_names_links_and_loops(self):
        self.write(".hidden.mp3", FRAME)
        self.write(".hidden/a.mp3", FRAME)
        (self.folder / "sub/loop").symlink_to(self.folder)
        (self.folder / "link.mp3").symlink_to("plain.mp3")
        (self.folder / "dead.mp3").symlink_to("gone.mp3")
        (self.folder / "again").symlink_to("sub")
        self.assertEqual(self.both("list", "--json", ".").count("\n"), len(NAMES) + 3)

    def test_paths_of_more_than_260_characters(self):
        deep = "/".join(["a folder of a long path"] * 30)
        self.write(deep + "/deep.mp3", FRAME * 40)
        self.assertIn("deep.mp3", self.both("list", "."))
        self.assertIn(b"deep.mp3\r\n", self.saved("all.m3u"))

    def test_paths_in_every_form(self):
        out = self.both("list", self.drive_form("plain.mp3"), "sub", "./sub/../plain.mp3")
        self.assertEqual(out.count("plain.mp3"), 2)

    def test_what_is_missing_is_told_alike(self):
        self.both("list", "gone.mp3", "plain.mp3", "q:\\gone.mp3", code=1)

    def test_properties_names_and_help(self):
        # Which program opens playlists is each system's own affair.
        linux, windows = (re.sub("Opens with:.*", "", run(program, ["properties", "."], self.folder)[1])
                          for program in ("linux", "windows"))
        self.assertEqual(linux, windows)
        self.assertIn("5 items", linux)
        for arguments in (["name", "<1> - <2>", "sub/deeper"], ["help"], ["--version"]):
            self.assertNotEqual(self.both(*arguments), "")


class CommandLine(Files):
    """What people type at a prompt of Windows."""

    def typed(self, line):
        self.write("typed.bat", f'@"{"z:" + str(WINDOWS / "qublet.exe").replace("/", chr(92))}" {line}\r\n'.encode())
        done = subprocess.run(["wine", "cmd", "/c", "typed.bat"], cwd=self.folder, capture_output=True, timeout=120)
        return done.returncode, done.stdout.decode(), done.stderr.decode()

    def test_patterns_stand_for_the_files_that_fit(self):
        code, out, complaint = self.typed("list *.mp3 sub\\*.mp3")
        self.assertEqual((code, complaint), (0, ""))
        self.assertEqual(out.count(".mp3\t"), len(NAMES) - 1)
        self.assertNotIn("x.wav", out)

    def test_a_backslash_before_the_last_quote_is_that_of_the_folder(self):
        code, out, complaint = self.typed(f'list "{self.drive_form("sub")}\\" plain.mp3')
        self.assertEqual((code, complaint), (0, ""))
        self.assertEqual(sorted(line.split("\t")[0] for line in out.splitlines()[1:]),
                         ["plain.mp3", "two words & more.mp3", "x.wav"])

    def test_a_console_shows_every_letter_whatever_its_code_page(self):
        self.write("\u0414\u0430 \u00e9.mp3", FRAME * 40)
        ours, theirs = pty.openpty()
        done = subprocess.Popen(["wine", str(WINDOWS / "qublet.exe"), "list", "."], cwd=self.folder, stdin=theirs,
                                stdout=theirs, stderr=theirs)
        os.close(theirs)
        shown = b""
        while done.poll() is None or select.select([ours], [], [], 0)[0]:
            try:
                shown += os.read(ours, 4096) if select.select([ours], [], [], 0.1)[0] else b""
            except OSError:  # the other end is closed
                break
        os.close(ours)
        done.wait()
        self.assertIn("\u0414\u0430 \u00e9.mp3", shown.decode())

    def test_no_playlist_is_made_under_the_name_of_a_device(self):
        for name in ("con.m3u", "NUL.m3u8", "com1.m3u"):
            self.assertEqual(run("windows", ["save", name, "."], self.folder)[0], 1, name)
        self.assertEqual(sorted(place.name for place in self.folder.iterdir()),
                         sorted({name.split("/")[0] for name in NAMES}))

    def test_relative_lines_mind_no_letter_case_of_the_command_line(self):
        for folder in (self.drive_form().upper(), self.drive_form().lower()):
            typed = ["save", "--relative", "--replace", folder + "\\all.m3u", folder + "\\sub"]
            self.assertEqual(run("windows", typed, self.folder), (0, "", ""))
            self.assertEqual(sorted((self.folder / "all.m3u").read_bytes().split(b"\r\n")),
                             [b"", b"sub\\deeper\\x.wav", b"sub\\two words & more.mp3"])


class Tags(Files):
    def test_a_changed_tag_is_the_same_bytes(self):
        contents = []
        for program in ("linux", "windows"):
            self.write("tagged.mp3", FRAME * 40)
            done = run(program, ["tag", "--set", "TIT2=Bj\u00f6rk \u97f3", "--set", "TPE1=x", "tagged.mp3"], self.folder)
            self.assertEqual(done[0], 0, done)
            contents.append((self.folder / "tagged.mp3").read_bytes())
        self.assertEqual(contents[0], contents[1])
        self.assertIn("\u97f3", self.both("tag", "--json", "tagged.mp3"))


class Renames(Files):
    RULES = ["--rule", "_", " ", "--rule", "\u97f3", "Bj\u00f6rk", "--set", "Increment=1"]

    def test_kept_rules_are_the_same_bytes(self):
        contents = []
        for program in ("linux", "windows"):
            done = run(program, ["rename", "--save-rules", "my.rps", "--replace", *self.RULES], self.folder)
            self.assertEqual(done, (0, "", ""), program)
            contents.append((self.folder / "my.rps").read_bytes())
        self.assertEqual(contents[0], contents[1])
        self.assertEqual(len(contents[0]), 4264)
        self.assertEqual(self.both("rename", "--rules", "my.rps", "--try", "a_b?.MP3"), "08 - A Bbj\u00f6rk.mp3\n")

    def test_files_get_the_same_names_and_their_old_ones_back(self):
        names = ["song_one.mp3", "\u97f3_two.mp3"]
        for name in names:
            self.write(name, name.encode())
        dry = self.both("rename", "--dry-run", *self.RULES, *names)
        for program in ("linux", "windows"):
            self.assertEqual(run(program, ["rename", *self.RULES, *names], self.folder), (0, dry, ""), program)
            self.assertEqual((self.folder / "1 - Song One.mp3").read_bytes(), b"song_one.mp3")
            self.assertEqual(run(program, ["rename", "--undo"], self.folder)[0], 0, program)
            self.assertEqual((self.folder / names[0]).read_bytes(), b"song_one.mp3")


class Reports(Files):
    """The time of day stands in the summary, so that is left out."""

    def report(self, name, *options):
        """What both write into the same file, which must be the same bytes."""
        contents = []
        for program in ("linux", "windows"):
            done = run(program, ["report", "--set", "Summary=0", *options, "--replace", name, "."], self.folder)
            self.assertEqual(done, (0, "", ""), program)
            contents.append((self.folder / name).read_bytes())
        self.assertEqual(contents[0], contents[1])
        return contents[0]

    def test_a_page_is_the_same_bytes(self):
        page = self.report("page.htm", "--set", "Title=Bj\u00f6rk")
        self.assertIn(b"<b>Bj\xf6rk</b>", page)
        self.assertIn(b"<a href=sub/two%20words%20&%20more.mp3>", page)
        self.write(BEYOND, FRAME * 40)
        self.assertIn(BEYOND.removesuffix(".mp3").encode(), self.report("page.htm"))

    def test_a_text_is_the_same_bytes(self):
        self.assertIn(b"X", self.report("page.txt"))
        delimited = self.report("page.txt", "--set", "SpaceAligned=0", "--set", "TabDelimited=1", "--columns", "2,1,4")
        self.assertIn(b"sub\tTwo Words & More\t", delimited)

    def test_kept_settings_are_the_same_bytes(self):
        contents = []
        for program in ("linux", "windows"):
            done = run(program, ["report", "--set", "Title=Bj\u00f6rk", "--save-settings", "my.rpt"], self.folder)
            self.assertEqual(done, (0, "", ""), program)
            contents.append((self.folder / "my.rpt").read_bytes())
        self.assertEqual(contents[0], contents[1])
        self.assertEqual(len(contents[0]), 1340)


class Bookmarks(Files):
    def test_a_players_file_is_the_same_bytes_and_its_copy_too(self):
        contents = []
        for program in ("linux", "windows"):
            self.write("winamp.bm", b"old")
            done = run(program, ["bookmarks", "titles", "winamp.bm", "."], self.folder)
            self.assertEqual(done, (0, "", ""), program)
            self.assertEqual((self.folder / "winamp.bm.bak").read_bytes(), b"old")
            contents.append((self.folder / "winamp.bm").read_bytes())
        self.assertEqual(contents[0], contents[1])
        self.assertEqual(contents[0].count(b"\r\n"), 2 * len(NAMES))
        self.assertEqual(self.both("list", "winamp.bm").count("\n"), len(NAMES) + 1)


class Settings(Files):
    VALUES = [("SSE", "GRID", "1"), ("RF", "20", "z:\\m\\Bj\u00f6rk.m3u"), ("RF", "Wkdir", "z:\\\u97f3")]

    def test_values_are_the_same_text_in_the_registry(self):
        subprocess.run(["wine", "reg", "delete", "HKCU\\Software\\Velmora", "/f"], capture_output=True, check=False)
        for section, key, value in self.VALUES:
            self.both("settings", "set", section, key, value)
        for section, key, value in self.VALUES:
            self.assertEqual(self.both("settings", "get", section, key), value + "\n")
        lists = [run(program, ["settings", "list"], self.folder) for program in ("linux", "windows")]
        lines = [sorted(line for line in out.splitlines()) for _, out, _ in lists]
        self.assertEqual(lines[0], lines[1])
        text = (PREFIX / "user.reg").read_text(errors="replace") if self.flushed() else ""
        self.assertRegex(text, r"\[Software\\\\Velmora\\\\[A-Za-z0-9]+\\\\RF\]")
        self.assertRegex(text, re.escape('"20"="z:\\\\m\\\\Bj\\xf6rk.m3u"'))

    def flushed(self):
        subprocess.run(["wineserver", "-k"], timeout=60, check=False)
        subprocess.run(["wineserver", "-w"], timeout=60, check=False)
        return True


class Player(Files):
    """The link to the player by its window, which another process shows."""

    def test_is_asked_and_told_by_messages(self):
        log = self.folder / "told.txt"
        player = subprocess.Popen(["wine", str(WINDOWS / "player_stand_in.exe"), str(log)])
        self.addCleanup(player.wait, 30)
        end = time.monotonic() + 30
        while time.monotonic() < end and not (log.exists() and log.read_text()):
            time.sleep(0.1)
        done = run("windows", ["player"], self.folder)
        self.assertRegex(done[1], "state\tplaying\nposition\t12.345\n")
        self.assertEqual(run("windows", ["player", "jump", "65"], self.folder)[0], 0)
        self.assertRegex(run("windows", ["player", "status"], self.folder)[1], "position\t65.000\n")
        self.assertEqual(run("windows", ["player", "stop"], self.folder)[0], 0)
        self.assertEqual(log.read_text().split("\n"), ["ready", "jump 65000", "stop", ""])

    def test_is_missed_where_none_runs(self):
        self.assertEqual(run("windows", ["player"], self.folder)[0], 1)


class Guards(unittest.TestCase):
    def setUp(self):
        self.whole = (WINDOWS / "qublet.exe").read_bytes()
        self.header = struct.unpack_from("<I", self.whole, 60)[0]

    def lacks(self, place, value, word):
        data = bytearray(self.whole)
        data[self.header + place] = value
        found = guarded.lacks(bytes(data))
        self.assertEqual(len(found), 1, found)
        self.assertIn(word, found[0])

    def test_the_program_lacks_none(self):
        self.assertEqual(guarded.lacks(self.whole), [])

    def test_each_is_missed(self):
        kept, first, second = self.whole[self.header + 22], *self.whole[self.header + 94:self.header + 96]
        self.lacks(22, kept | 1, "relocations")
        self.lacks(94, first & ~0x20, "HIGH_ENTROPY_VA")
        self.lacks(94, first & ~0x40, "DYNAMIC_BASE")
        self.lacks(95, second & ~1, "NX_COMPAT")
        self.lacks(52, 0, "4 GiB")
        for text in (b"stack smashing detected", b"buffer overflow detected", b"__n < this->size()",
                     b"SetDefaultDllDirectories"):
            self.assertEqual(len(guarded.lacks(self.whole.replace(text, text[::-1]))), 1, text)


if __name__ == "__main__":
    os.environ["WINEDEBUG"] = "-all"
    outcome = unittest.main(argv=sys.argv[:1] + sys.argv[3:], exit=False, verbosity=1).result
    failed = len(outcome.failures) + len(outcome.errors)
    # As ctest says it, for ./test.
    share = 100 * (outcome.testsRun - failed) // max(1, outcome.testsRun)
    print(f"{share}% tests passed, {failed} tests failed out of {outcome.testsRun}")
    sys.exit(1 if failed or not outcome.testsRun else 0)
