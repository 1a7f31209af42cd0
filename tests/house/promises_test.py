"""Tests of promises.py on made-up trees."""

import pathlib
import tempfile
import unittest

from promises import faults

HEAD = "# Security\n\n## What is promised\n\n"


class Promises(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        (self.root / "tests").mkdir()
        (self.root / "tests/a_test.cpp").write_text("TEST_F(FilesTest,\n       StayWhole) {}\nTEST(Names, AreText) {}\n")
        (self.root / "tests/CMakeLists.txt").write_text(
            "add_test(NAME cli.NothingIsStarted COMMAND x)\nrule(a.py EveryLineHolds x)\n")

    def faults_of(self, text):
        (self.root / "SECURITY.md").write_text(text)
        return faults(self.root)

    def test_kept_ones(self):
        self.assertEqual(self.faults_of(HEAD + "- Files stay whole:\n  `FilesTest.StayWhole`, `Names.AreText`.\n"
                                               "- Nothing is started: `cli.NothingIsStarted`,\n  `house.EveryLineHolds`\n"
                                               "\n## Elsewhere\n\n- no promise\n"), [])

    def test_one_without_a_test(self):
        self.assertEqual(len(self.faults_of(HEAD + "- Files stay whole.\n- Names: `Names.AreText`\n")), 1)

    def test_one_whose_test_is_not_there(self):
        self.assertEqual(len(self.faults_of(HEAD + "- Files stay whole: `FilesTest.StayHalf`\n")), 1)

    def test_a_page_without_promises(self):
        self.assertEqual(len(self.faults_of("# Security\n")), 1)


if __name__ == "__main__":
    unittest.main()
