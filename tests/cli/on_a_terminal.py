"""on_a_terminal.py QUBLET: runs the commands on a terminal over files whose names, tags, lists and bookmarks hold what a
terminal takes for orders, and holds every byte that arrives there against what may."""

import os
import pathlib
import pty
import re
import subprocess
import sys
import tempfile
import unittest

QUBLET = sys.argv.pop()
ESCAPE = "\x1b]0;owned\x07\x1b[2J"
C1 = "\u009b31m\u0085"
BIDI = "\u202e3pm.\u2066\u200f"
PRIVATE = "\uf03a\ue000\U000f0000"
HOSTILE = [ESCAPE, C1, BIDI, PRIVATE, "line\nbreak\rback\b\x7f"]
# Line ends and tabulators are the program's own; the terminal puts a CR in front of each LF.
FORBIDDEN = re.compile("[\x00-\x08\x0b\x0c\x0e-\x1f\x7f-\x9f\u061c\u200b\u200e\u200f\u2028-\u202e\u2060-\u206f\ufeff"
                       "\ue000-\uf8ff\U000f0000-\U0010ffff]|\r(?!\n)")
TEXT_SETTING = ("TableFont", "Name")
FRAME = b"\xff\xfb\x90\x44" + bytes(413)


def frame(name, text):
    content = b"\x03" + text.encode()
    size = len(content)
    return name + bytes([0, 0, size >> 7, size & 0x7F]) + b"\0\0" + content


def song(text):
    frames = b"".join(frame(name, text) for name in (b"TIT2", b"TPE1", b"TALB"))
    return b"ID3\x04\0\0" + bytes([0, 0, len(frames) >> 7, len(frames) & 0x7F]) + frames + FRAME * 20


class OnATerminal(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        self.music = self.root / "music"
        self.music.mkdir()
        self.surroundings = {
            "PATH": os.environ["PATH"], "HOME": folder.name, "LC_ALL": "C.UTF-8", "TERM": "xterm",
            "QUBLET_SITE": "http://127.0.0.1", "DBUS_SESSION_BUS_ADDRESS": "unix:path=/nowhere",
            "DBUS_SYSTEM_BUS_ADDRESS": "unix:path=/nowhere",
        }
        lines = []
        for text in HOSTILE:
            (self.music / (text + ".mp3")).write_bytes(song(text))
            lines.append(("gone " + text + ".mp3").replace("\n", "").replace("\r", ""))
        (self.music / os.fsdecode(b"\x9b no text.mp3")).write_bytes(song("plain"))
        self.list = self.root / "list.m3u8"
        self.list.write_text("\n".join(lines) + "\n")
        self.rules = self.root / "hostile.rps"

    def run_on_terminal(self, *words):
        """What arrives on the terminal, and the exit code."""
        end, terminal = pty.openpty()
        with subprocess.Popen([QUBLET, *map(os.fspath, words)], stdin=terminal, stdout=terminal, stderr=terminal,
                              cwd=self.root, env=self.surroundings) as child:
            os.close(terminal)
            said = b""
            while True:
                try:
                    piece = os.read(end, 65536)
                except OSError:  # nobody has the terminal any more
                    break
                if not piece:
                    break
                said += piece
        os.close(end)
        return said, child.returncode

    def check(self, *words, holds="\u241b"):
        said, _ = self.run_on_terminal(*words)
        text = said.decode()  # strictly: bytes that are no text don't arrive either
        self.assertIsNone(FORBIDDEN.search(text), f"{words}: {text!r}")
        self.assertIn(holds, text, f"{words} prints none of it")

    def test_rows_and_their_facts(self):
        self.check("list", self.music)
        self.check("list", self.list)
        self.check("list", "--json", self.music, holds="\\u202e")
        self.check("properties", self.list, self.music, holds="6")
        self.check("search", "owned", self.music)
        self.check("purge", "--duplicates", self.list, self.list)
        self.check("purge", "--missing", self.list)
        self.check("restore", "--in", self.music, self.list)

    def test_tags(self):
        self.check("tag", self.music / (ESCAPE + ".mp3"))
        self.check("tag", "--json", self.music / (BIDI + ".mp3"), holds="\\u202e")
        self.check("tag", "--title", self.music / (ESCAPE + ".mp3"), holds="owned")
        self.check("tag", "--positions", self.music / (ESCAPE + ".mp3"), self.music / (C1 + ".mp3"))
        self.check("tag", "--set", "TIT2=" + ESCAPE, self.music / (C1 + ".mp3"), self.root / (ESCAPE + ".mp3"))
        self.check("tag", "--history", holds="\t")

    def test_what_tools_make_of_names(self):
        self.check("rename", "--dry-run", "--rule", "owned", ESCAPE, self.music)
        self.check("rename", "--dry-run", "--json", "--rule", "owned", "x", self.music, holds="\\u")
        self.check("rename", "--try", ESCAPE)
        self.check("autocreate", "--dry-run", self.music, holds="music")
        self.check("name", "<" + ESCAPE, "c:\\" + ESCAPE + "\\a.mp3", holds="\u241b")
        self.check("report", self.root / (ESCAPE + ".html"), self.root / ESCAPE)

    def test_bookmarks(self):
        self.check("bookmarks", "add", ESCAPE, self.music / (ESCAPE + ".mp3"), holds="")
        self.check("bookmarks", "list")
        self.check("bookmarks", "show", ESCAPE)

    def test_complaints(self):
        for command in ("list", "save", "play", "tag", "rename", "search", "restore", "disc", "scheme", "settings",
                        "plugins", "player", "bookmarks", "completion", "purge", "report", "autocreate", "name"):
            self.check(command, "--" + ESCAPE, ESCAPE, self.root / ESCAPE, holds="qublet: ")
        self.check("list", self.root / ESCAPE)
        self.check("disc", "check", self.root / ESCAPE)
        self.check(ESCAPE)

    def test_settings(self):
        subprocess.run([QUBLET, "settings", "set", *TEXT_SETTING, ESCAPE], env=self.surroundings, check=True)
        self.check("settings", holds="owned")
        self.check("settings", "get", *TEXT_SETTING)

    def test_a_pipe_gets_the_bytes(self):
        said = subprocess.run([QUBLET, "list", self.music], env=self.surroundings, capture_output=True, check=True)
        self.assertIn("\u202e", said.stdout.decode())


if __name__ == "__main__":
    unittest.main()
