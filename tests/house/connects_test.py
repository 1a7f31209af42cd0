"""Tests of connects.py on made-up sources."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

from connects import wrong_lines

SCRIPT = pathlib.Path(__file__).with_name("connects.py")

RIGHT = [
    "connect(button, &QPushButton::clicked, this, [this] { Go(); });",
    "connect(button, &QPushButton::clicked, this, &Main::Go);",
    "connect(timer, &QTimer::timeout, &window, [a, b](int, int) { f(a, b); }, Qt::QueuedConnection);",
    "QObject::connect(box, qOverload<int, int>(&Box::moved), this, [] {});",
    "connect(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address);",
    "connect(number, &address, length);",
    "// connect(button, &QPushButton::clicked, [] {});",
    "/* connect(button, &QPushButton::clicked,\n [] {}); */",
    'Say("connect(button, &QPushButton::clicked, [] {});");',
    'Say(R"(connect(button, &QPushButton::clicked, [] {});)");',
    "QTimer::singleShot(0, this, [this] { Go(); });",
    "QTimer::singleShot(0, Qt::PreciseTimer, this, [this] { Go(); });",
    "disconnect(button, &QPushButton::clicked, nullptr);",
]
WRONG = [
    "connect(button, &QPushButton::clicked, [this] { Go(); });",
    "connect(button, &QPushButton::clicked, [=](int a, int b) { f(a, b); });",
    "QObject::connect(\n    button, &QPushButton::clicked,\n    [] {});",
    "connect(button, & QPushButton :: clicked, go);",
    "connect(box, qOverload<int, int>(&Box::moved), [] {});",
    "connect(box, &Map<int, int>::moved, [] {});",
    "connect(find(\",\"), &QPushButton::clicked, [] { Say(\"(,\"); });",
    "connect(find(','), &QPushButton::clicked, [] { f(1'000, 2); });",
    "connect(find(a, b), &QPushButton::clicked /* when, pressed */, [] {});",
    "QTimer::singleShot(0, [this] { Go(); });",
    "QTimer::singleShot(1000, Qt::PreciseTimer, [this] { Go(); });",
]


class Connections(unittest.TestCase):
    def test_with_a_context_are_taken(self):
        for source in RIGHT:
            with self.subTest(source):
                self.assertEqual(list(wrong_lines(source)), [])

    def test_without_a_context_are_refused(self):
        for source in WRONG:
            with self.subTest(source):
                self.assertEqual(len(list(wrong_lines(source))), 1)

    def test_inside_a_lambda_count_too(self):
        self.assertEqual(list(wrong_lines("connect(a, &A::b, this, [=] {\n  connect(c, &C::d, [] {});\n});")),
                         [(2, "connect")])

    def test_are_told_with_file_and_line(self):
        with tempfile.TemporaryDirectory() as folder:
            file = pathlib.Path(folder) / "ui" / "form.cpp"
            file.parent.mkdir()
            file.write_text("\n/*\n*/\n" + WRONG[0] + "\n")
            done = subprocess.run([sys.executable, SCRIPT, folder], capture_output=True, text=True)
            self.assertEqual(done.stdout, f"{file}:4: this connect names no context object\n")
            self.assertEqual(done.returncode, 1)
            file.write_text(RIGHT[0])
            done = subprocess.run([sys.executable, SCRIPT, folder], capture_output=True, text=True)
            self.assertEqual((done.stdout.strip(), done.returncode), ("", 0))

    def test_in_no_file_at_all_are_a_mistake(self):
        with tempfile.TemporaryDirectory() as folder:
            self.assertEqual(subprocess.run([sys.executable, SCRIPT, folder], capture_output=True).returncode, 1)


if __name__ == "__main__":
    unittest.main()
