"""nothing_is_started.py QUBLET LIBRARY: lists, searches and reports on files, tags and playlists that speak of programs,
addresses and devices, while LIBRARY has the system end the program if it starts another or reaches for a socket."""

import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import unittest

LIBRARY = sys.argv.pop()
QUBLET = sys.argv.pop()
LINES = ["http://127.0.0.1/song.mp3", "https://127.0.0.1/", "file:///dev/zero", "file://server/share/a.mp3",
         "\\\\server\\share\\a.mp3", "<img src='http://127.0.0.1/a.png'>.mp3", "/dev/zero", "/proc/self/exe", "$(touch x)",
         "|touch x", "`touch x`", "song.mp3", "javascript:alert(1)", "trap.m3u", "#EXTINF:1,<img src='/dev/zero'>"]


class NothingIsStarted(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        frame = b"\xff\xfb\x90\x44" + bytes(413)
        url = b"WOAF\0\0\0\x14\0\0" + b"http://127.0.0.1/aaa"
        (self.root / "song.mp3").write_bytes(b"ID3\x03\0\0\0\0\0" + bytes([len(url)]) + url + frame * 20)
        (self.root / "trap.m3u").write_text("\n".join(LINES) + "\n")
        os.mkfifo(self.root / "pipe.mp3")
        (self.root / "run.desktop").write_text("[Desktop Entry]\nType=Application\nExec=touch x\n")

    def run_sealed(self, *words):
        return subprocess.run(
            [QUBLET, *map(os.fspath, words)], cwd=self.root, capture_output=True, timeout=60, check=False,
            env={"PATH": os.environ["PATH"], "HOME": os.fspath(self.root), "LC_ALL": "C.UTF-8", "LD_PRELOAD": LIBRARY,
                 "QUBLET_SITE": "http://127.0.0.1", "DBUS_SESSION_BUS_ADDRESS": "unix:path=/nowhere",
                 "DBUS_SYSTEM_BUS_ADDRESS": "unix:path=/nowhere",
                 # Where leaks are looked for, that is another process.
                 "ASAN_OPTIONS": "verify_asan_link_order=0:detect_leaks=0"})

    def test_by_listing_searching_and_reporting(self):
        for words in (["list", self.root], ["list", "--json", "trap.m3u"], ["properties", "trap.m3u"],
                      ["search", "a", "trap.m3u"], ["purge", "--missing", "trap.m3u"], ["tag", "song.mp3"],
                      ["restore", "--in", self.root, "trap.m3u"], ["rename", "--dry-run", "trap.m3u"],
                      ["report", "page.html", "trap.m3u"], ["autocreate", "--dry-run", "trap.m3u"],
                      ["save", "out.m3u", "trap.m3u"]):
            with self.subTest(words=words):
                done = self.run_sealed(*words)
                self.assertIn(done.returncode, (0, 1), done.stderr)
        self.assertFalse((self.root / "x").exists())

    def test_but_by_who_asks_for_it(self):
        for words in (["update"], ["player", "status"]):
            with self.subTest(words=words):
                self.assertEqual(self.run_sealed(*words).returncode, -signal.SIGSYS)


if __name__ == "__main__":
    unittest.main()
