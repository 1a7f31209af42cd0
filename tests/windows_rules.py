"""windows_rules.py LINUX_BIN WINDOWS_BIN [ROOM...]: runs the tests of rooms, built for Windows, by Wine. When no room is named,
all without a window are meant.

Every test that runs on Linux runs there too, unless tests/windows_unavailable.txt names it with its reason. A test that
is missing or fails without being named is an error, and so is a name that is no longer needed. The last line says how
many tests passed.
"""

import concurrent.futures
import fnmatch
import json
import os
import pathlib
import subprocess
import sys
import tempfile

RULES = ["platform", "paths", "settings", "schemes", "id3", "media", "journal", "editor", "playlist", "player", "engine",
         "plugins", "shutdown",
         "preferences", "purge", "rename", "report", "disc", "autocreate", "bookmarks",
         "search", "update", "tips", "about", "cli"]
WINDOWS = ["platform_qt", "desk", "plugins_ui", "shutdown_ui", "preferences_ui", "editor_ui", "purge_ui", "rename_ui",
           "search_ui", "report_ui", "disc_ui", "autocreate_ui", "bookmarks_ui", "help_ui", "app"]
TABLE = pathlib.Path(__file__).with_name("windows_unavailable.txt")
PATIENCE = 300  # seconds for one room


def exceptions():
    """[(room, pattern of test names, "missing", "fails", "slow" or "waits", reason)]"""
    rows = []
    for line in TABLE.read_text().splitlines():
        if not line.strip() or line.startswith("#"):
            continue
        room, pattern, how, reason = line.split(None, 3)
        assert how in ("missing", "fails", "slow", "waits"), line
        rows.append((room, pattern, how, reason))
    return rows


def listed(command):
    out = subprocess.run(command + ["--gtest_list_tests"], capture_output=True, text=True, check=True).stdout
    names, suite = set(), ""
    for line in out.splitlines():
        name = line.split("#")[0].rstrip()
        if not line.startswith(" "):
            suite = name
        elif name:
            names.add(suite + name.strip())
    return names


def run(program, tests, without):
    """{test: passed} of one run of a program, and what the failing ones said."""
    with tempfile.TemporaryDirectory() as folder:
        report = pathlib.Path(folder) / "report.json"
        # Wine's z: is the root folder.
        command = ["wine", str(program), "--gtest_output=json:z:" + str(report).replace("/", "\\")]
        command.append(f"--gtest_filter={tests}-" + ":".join(without))
        try:
            done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=PATIENCE, cwd=folder)
            said = done.stdout
        except subprocess.TimeoutExpired as late:
            said = (late.stdout or b"") + f"\nnot done after {PATIENCE} s\n".encode()
        if not report.exists():
            sys.stdout.buffer.write(said[-4000:])
            return {}, []
        results, complaints = {}, []
        for suite in json.loads(report.read_text(encoding="utf-8", errors="replace"))["testsuites"]:
            for test in suite["testsuite"]:
                name = f"{suite['name']}.{test['name']}"
                results[name] = test["result"] == "COMPLETED" and not test.get("failures")
                if test.get("failures"):
                    complaints.append((name, test["failures"][0]["failure"]))
        return results, complaints


def run_room(room, program, present, without):
    if room not in WINDOWS:
        return run(program, "*", without)
    # What one suite leaves of mouse and focus doesn't reach another, as with ctest.
    results, complaints = {}, []
    for suite in sorted({test.split(".")[0] for test in present}):
        some, said = run(program, suite + ".*", without)
        results |= some
        complaints += said
    return results, complaints


def check(room, linux, windows, table):
    """Gives the number of tests that passed and what is wrong."""
    rows = [row for row in table if row[0] == room]

    def named(test, how):
        return any(row[2] == how and fnmatch.fnmatchcase(test, row[1]) for row in rows)

    present = listed(["wine", str(windows)])
    missing = listed([str(linux)]) - present
    results, complaints = run_room(room, windows, present, [row[1] for row in rows if row[2] in ("slow", "waits")])
    slow = {test for test in present if named(test, "slow")}
    waiting = {test for test in present if named(test, "waits")}
    failing = {test for test in present - slow - waiting if not results.get(test)}

    wrong = [f"{room}: {test} doesn't run on Windows" for test in sorted(missing) if not named(test, "missing")]
    for test in sorted(failing):
        if not named(test, "fails"):
            wrong.append(f"{room}: {test} fails")
            wrong += [f"    {text}" for name, text in complaints if name == test]
    for _, pattern, how, _ in rows:
        those = {"missing": missing, "fails": failing, "slow": slow, "waits": waiting}[how]
        if not any(fnmatch.fnmatchcase(test, pattern) for test in those):
            wrong.append(f"{room}: {pattern} is named in {TABLE.name} as {how}, but there is none")
    passing = present - failing - slow - waiting
    for test in sorted(passing):
        if named(test, "fails"):
            wrong.append(f"{room}: {test} is named in {TABLE.name}, but passes")
    passed = len(passing)
    left = [f"{len(failing)} can't", f"{len(slow)} would take too long", f"{len(waiting)} would wait in vain",
            f"{len(missing)} are for Linux alone"]
    print(f"{room}: {passed} of {len(present)} passed, {', '.join(left)}", flush=True)
    return passed, wrong


def main():
    linux, windows = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
    table, passed, wrong = exceptions(), 0, []
    unknown = {row[0] for row in table} - set(RULES + WINDOWS)
    assert not unknown, unknown
    rooms = sys.argv[3:] or RULES

    def result(room):
        return check(room, linux / f"{room}_tests", windows / f"{room}_tests.exe", table)

    # The first has Wine make its desktop, which fails when two ask for it at once. A display has one active window;
    # what needs none waits for the disk and for Wine more than for a processor.
    results = [result(rooms[0])]
    with concurrent.futures.ThreadPoolExecutor(1 if set(rooms) & set(WINDOWS) else 2) as workers:
        results += workers.map(result, rooms[1:])
    for count, faults in results:
        passed += count
        wrong += faults
    print("\n".join(wrong))
    failed = len([line for line in wrong if not line.startswith("    ")])
    # As ctest says it, for ./test.
    print(f"{100 * passed // max(1, passed + failed)}% tests passed, {failed} tests failed out of {passed + failed}")
    return 1 if wrong or passed == 0 else 0


if __name__ == "__main__":
    os.environ.setdefault("WINEDEBUG", "-all")
    sys.exit(main())
