"""manual.py QUBLET MANUAL: holds the manual page of QUBLET against what its "help" prints.

Every command has a heading of its own (.SS), and under the headings of its name each of its options and words; an
option that stands there is one that the command has. The page is sound in the eyes of mandoc, where that is installed.
"""

import pathlib
import re
import shutil
import subprocess
import sys
import unittest

MANUAL = pathlib.Path(sys.argv.pop())
QUBLET = sys.argv.pop()
OPTION = re.compile(r"--[a-z][a-z-]*")


def usages():
    """{command: all its usages} from the help, which indents usages by two and what they are by six or more."""
    told = subprocess.run([QUBLET, "help"], capture_output=True, text=True, check=True).stdout
    found, name = {}, None
    for line in told.splitlines():
        if re.match(r"  \S", line):
            name = line.split()[0]
            found[name] = found.get(name, "") + line + "\n"
        elif name and re.match(r"\s{6,}[\[-]", line):  # a usage that goes on
            found[name] += line + "\n"
        elif not line.strip():
            name = None
    return found


def sections():
    """{command: the text under its headings}, plain."""
    text = MANUAL.read_text(encoding="ascii")
    text = re.sub(r"\\f[BIR]|\\&", "", text).replace("\\-", "-").replace('"', "")
    found = {}
    for part in re.split(r"^\.S[SH] ", text, flags=re.MULTILINE)[1:]:
        found[part.split()[0]] = found.get(part.split()[0], "") + part
    return found


class ManualTest(unittest.TestCase):
    def test_the_help_is_read_right(self):
        known = usages()
        self.assertGreater(len(known), 18)
        self.assertIn("--replace", known["purge"])
        self.assertIn("--save-settings", known["report"])

    def test_every_command_and_option_is_told(self):
        told = sections()
        for command, usage in usages().items():
            self.assertIn(command, told)
            for option in set(OPTION.findall(usage)):
                self.assertRegex(told[command], rf"{option}(?![a-z-])", f"{command} {option}")

    def test_every_word_of_a_command_is_told(self):
        told = sections()
        for command, usage in usages().items():
            for word in re.findall(r"(?<![\w-])[a-z][a-z0-9]+(?![\w-])", usage):
                self.assertRegex(told[command], rf"\b{word}\b", f"{command} {word}")

    def test_no_option_is_told_that_is_not_there(self):
        told, known = sections(), usages()
        for command, usage in known.items():
            extra = set(OPTION.findall(told[command])) - set(OPTION.findall(usage)) - {command}
            self.assertEqual(extra, set(), command)

    @unittest.skipUnless(shutil.which("mandoc"), "mandoc isn't installed")
    def test_the_page_is_sound(self):
        done = subprocess.run(["mandoc", "-T", "lint", "-W", "warning", str(MANUAL)], capture_output=True, text=True)
        faults = [line for line in done.stdout.splitlines() if "missing date" not in line]
        self.assertEqual(faults, [])


if __name__ == "__main__":
    unittest.main()
