"""guarded_test.py PROGRAM: tests of guarded.py on copies of a program for Linux that has every guard, each with one
taken away."""

import pathlib
import shutil
import struct
import subprocess
import sys
import tempfile
import unittest

import guarded

PROGRAM = pathlib.Path(sys.argv.pop())
WHOLE = PROGRAM.read_bytes()


def put(place, form, *values):
    data = bytearray(WHOLE)
    struct.pack_into(form, data, place, *values)
    return bytes(data)


def segment(kind):
    """Where a segment's entry stands."""
    table, size = struct.unpack_from("<Q", WHOLE, 32) + struct.unpack_from("<H", WHOLE, 54)
    return table + size * [entry[0] for entry in guarded.Elf(WHOLE).segments].index(kind)


def without_dynamic(tag, bit):
    data = bytearray(WHOLE)
    for entry in guarded.Elf(WHOLE).of_type(guarded.PT_DYNAMIC):
        for place in range(entry[2], entry[2] + entry[5], 16):
            found, value = struct.unpack_from("<QQ", data, place)
            if found in (tag, guarded.DT_FLAGS_1):
                struct.pack_into("<Q", data, place + 8, value & ~bit)
    return bytes(data)


class GuardedTest(unittest.TestCase):
    def lacks(self, data, *words):
        found = guarded.lacks(data)
        self.assertEqual(len(found), len(words), found)
        for guard, word in zip(found, words):
            self.assertIn(word, guard)

    def test_the_program_lacks_nothing(self):
        self.assertEqual(guarded.lacks(WHOLE), [])

    @unittest.skipUnless(shutil.which("strip"), "nothing to strip it with")
    def test_a_stripped_program_lacks_nothing(self):
        with tempfile.TemporaryDirectory() as folder:
            stripped = pathlib.Path(folder) / "stripped"
            subprocess.run(["strip", "-o", str(stripped), str(PROGRAM)], check=True)
            self.assertLess(stripped.stat().st_size, len(WHOLE))
            self.assertEqual(guarded.lacks(stripped.read_bytes()), [])

    def test_a_program_for_one_address(self):
        self.lacks(put(16, "<H", 2), "ET_DYN")

    def test_a_library(self):
        self.lacks(without_dynamic(None, guarded.PIE), "PIE")

    def test_a_stack_that_can_be_run(self):
        self.lacks(put(segment(guarded.PT_GNU_STACK) + 4, "<I", 7), "GNU_STACK")
        self.lacks(put(segment(guarded.PT_GNU_STACK), "<I", 0), "GNU_STACK")

    def test_tables_that_stay_writable(self):
        self.lacks(put(segment(guarded.PT_GNU_RELRO), "<I", 0), "GNU_RELRO")
        self.lacks(without_dynamic(guarded.DT_FLAGS, guarded.BIND_NOW | guarded.NOW), "BIND_NOW")

    def test_a_segment_that_is_written_and_run(self):
        self.lacks(put(segment(guarded.PT_LOAD) + 4, "<I", 7), "both written and run")

    def test_checks_that_nothing_calls(self):
        for name, word in ((b"__stack_chk_fail", "__stack_chk_fail"), (b"__memcpy_chk", "FORTIFY"),
                           (b"__glibcxx_assert_fail", "GLIBCXX_ASSERTIONS")):
            self.lacks(WHOLE.replace(name, name[:-1] + b"X"), word)

    @unittest.skipUnless(guarded.Elf(WHOLE).machine == guarded.X86_64, "guards of one kind of processor")
    def test_what_the_processor_guards(self):
        self.lacks(WHOLE.replace(guarded.ENDBR64, b"\x90" * 4), "endbr64")
        self.lacks(WHOLE.replace(guarded.PROBE, b"\x90" * 5), "stack clash")
        self.lacks(put(segment(guarded.PT_NOTE), "<I", 0), "SHSTK")
        self.lacks(WHOLE.replace(struct.pack("<III", guarded.FEATURES, 4, guarded.SHADOW_STACK),
                                 struct.pack("<III", guarded.FEATURES, 4, 1)), "SHSTK")

    def test_what_is_no_program(self):
        self.lacks(b"#!/bin/sh\n", "can be read")
        self.lacks(b"", "can be read")


if __name__ == "__main__":
    unittest.main()
