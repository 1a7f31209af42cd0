"""completions.py QUBLET: has the shells that are installed complete a command line as somebody who types it does.

Each shell runs on a terminal of its own with the script that `qublet completion SHELL` prints; "qublet" is a function
there that prints its words. A Tab is typed, then Return, and what the function got is looked at.
"""

import os
import pathlib
import pty
import re
import select
import shutil
import subprocess
import sys
import tempfile
import time
import unittest

QUBLET = sys.argv.pop()
PATIENCE = 30  # seconds
# What is typed, and the words that come of it, in a folder that holds "songs", "song list.m3u" and "one.mp3".
CASES = {
    "qublet comp\t": ["completion"],
    "qublet purge --dup\t": ["purge", "--duplicates"],
    "qublet purge --by fo\t": ["purge", "--by", "folder"],
    "qublet player sta\t": ["player", "status"],
    "qublet completion fi\t": ["completion", "fish"],
    "qublet list on\t": ["list", "one.mp3"],
    "qublet list --j\t": ["list", "--json"],
    "qublet list song\\ \t": ["list", "song list.m3u"],
    "qublet restore --in so\t": ["restore", "--in", "songs/"],
    "qublet report --settings on\t": ["report", "--settings", "one.mp3"],
    "qublet bookmarks ti\t": ["bookmarks", "titles"],
}
SHELLS = {
    "bash": (["bash", "--norc", "--noprofile", "-i"],
             "bind 'set enable-bracketed-paste off'; PS1='ready> '\n"
             "qublet() { printf '<%s>' \"$@\"; printf '\\nended\\n'; }\n"
             "source ./script\n"),
    "zsh": (["zsh", "-f", "-i"],
            "PS1='ready> '; autoload -Uz compinit; compinit -u -D\n"
            "qublet() { printf '<%s>' \"$@\"; printf '\\nended\\n' }\nunsetopt zle_bracketed_paste; source ./script\n"),
}


class Terminal:
    """A shell on a terminal."""

    def __init__(self, command, folder):
        self.pid, self.end = pty.fork()
        if self.pid == 0:
            os.chdir(folder)
            os.environ.update(TERM="dumb", HOME=folder, ZDOTDIR=folder, LC_ALL="C.UTF-8")
            os.execvp(command[0], command)

    def type(self, text):
        os.write(self.end, text.encode())

    def read_until(self, pattern):
        said, until = "", time.monotonic() + PATIENCE
        while not re.search(pattern, said):
            ready, _, _ = select.select([self.end], [], [], max(0.0, until - time.monotonic()))
            if not ready:
                raise AssertionError(f"no {pattern} in {said!r}")
            said += os.read(self.end, 4096).decode(errors="replace").replace("\r", "")
        return said

    def close(self):
        os.close(self.end)
        os.waitpid(self.pid, 0)


class CompletionsTest(unittest.TestCase):
    def setUp(self):
        kept = tempfile.TemporaryDirectory()
        self.addCleanup(kept.cleanup)
        self.folder = pathlib.Path(kept.name)
        (self.folder / "songs").mkdir()
        for name in ("song list.m3u", "one.mp3"):
            (self.folder / name).write_text("")

    def script(self, shell):
        done = subprocess.run([QUBLET, "completion", shell], capture_output=True, text=True, check=True)
        (self.folder / "script").write_text(done.stdout)
        return done.stdout

    def in_terminal(self, shell):
        command, setting = SHELLS[shell]
        if not shutil.which(shell):
            self.skipTest(f"{shell} isn't installed")
        self.script(shell)
        terminal = Terminal(command, str(self.folder))
        self.addCleanup(terminal.close)
        terminal.type(setting)
        terminal.type("echo set; echo up\n")
        terminal.read_until(r"\nset\nup\n")
        for typed, words in CASES.items():
            with self.subTest(typed=typed):
                terminal.type(typed)
                time.sleep(0.3)  # the shell takes what is typed as it comes
                terminal.type("\n")
                said = terminal.read_until(r"\nended\n")
                got = re.findall(r"<([^<>]*)>", said.rsplit("\nended", 1)[0].rsplit("\n", 1)[1])
                self.assertEqual([word.rstrip("/") for word in got], [word.rstrip("/") for word in words])

    def test_bash(self):
        self.in_terminal("bash")

    def test_zsh(self):
        self.in_terminal("zsh")

    @unittest.skipUnless(shutil.which("fish"), "fish isn't installed")
    def test_fish(self):
        self.script("fish")
        for typed, words in CASES.items():
            with self.subTest(typed=typed):
                line = typed.rstrip("\t")
                done = subprocess.run(["fish", "--no-config", "-c", f"source ./script; complete -C {line!r}"],
                                      capture_output=True, text=True, cwd=self.folder, check=True, timeout=PATIENCE)
                offered = [row.split("\t")[0].replace("\\ ", " ").rstrip("/") for row in done.stdout.splitlines()]
                self.assertIn(words[-1].rstrip("/"), offered)

    def test_every_script_is_sound(self):
        for shell in ("bash", "zsh", "fish"):
            if shutil.which(shell):
                self.script(shell)
                subprocess.run([shell, "-n", str(self.folder / "script")], check=True, timeout=PATIENCE)


if __name__ == "__main__":
    unittest.main()
