#!/usr/bin/env python3
"""The ends that the user didn't choose, on the present display with its window manager: signals, the desktop's log-off, a
crash, and what the next start brings back.

Usage: ends_on_a_display.py FOLDER_OF_PROGRAMS SESSION_MANAGER
"""
import os
import pathlib
import signal
import subprocess
import sys
import time

import program_on_a_display
from program_on_a_display import Program, expect, last_list, new_home, own_programs, run, wait_for

NAMES = ["a.mp3", "b.mp3", "c.mp3", "d.mp3"]


def recovery_lists(home):
    """{file name: the names it lists}, of whole lists only."""
    return {file.name: [line.rsplit("\\", 1)[-1] for line in file.read_text().splitlines()]
            for file in sorted((home / "data/velmora").glob("recovery-*.m3u"))}


def locks(home):
    return sorted(file.name for file in (home / "data/velmora").glob("recovery-*.lock"))


def holds(process, name):
    folder = pathlib.Path("/proc", str(process.pid), "fd")
    return any(os.path.realpath(folder / number).endswith(name) for number in os.listdir(folder))


def changed(*paths):
    """A program whose list isn't the one it was given: the first row is removed."""
    program = Program(*paths)
    remove_first_row(program)
    return program


def remove_first_row(program):
    program.press("Home")
    program.press("Delete")


def ended(program):
    wait_for("the end of the program", lambda: program.process.poll() is not None)
    return program.process.returncode


def end_by(program, number):
    program.process.send_signal(number)
    return ended(program)


def killed(home, program, names):
    """The program is killed once its list is kept."""
    wait_for("the recovery list", lambda: names in recovery_lists(home).values())
    end_by(program, signal.SIGKILL)


def windows(program):
    return run("xdotool", "search", "--all", "--onlyvisible", "--pid", str(program.process.pid),
               "--name", "Playlist Editor").split()


def wait_for_question(program):
    wait_for("the question", lambda: len(windows(program)) > 1)
    wait_for("its turn", lambda: run("xdotool", "getactivewindow") not in ("", program.window))


def answer(program, key):
    wait_for_question(program)
    run("xdotool", "key", key)
    wait_for("the end of the question", lambda: len(windows(program)) < 2)


def signals_store_all(home, music):
    for number in (signal.SIGTERM, signal.SIGHUP, signal.SIGINT):
        program = changed(music)
        expect(f"exit code after {number.name}", end_by(program, number), 0)
        expect("last list", last_list()[0], NAMES[1:])
        expect("recovery lists", recovery_lists(home), {})
        expect("locks", locks(home), [])
        program = Program()
        expect("lists in use", recovery_lists(home), {})
        program.close()
        expect("list after the next start", last_list()[0], NAMES[1:])


def a_signal_answers_no_question(home, music):
    program = changed(music / "d.mp3", music / "c.mp3", music / "b.mp3")
    program.press("ctrl+q")
    wait_for_question(program)
    expect("exit code with a question open", end_by(program, signal.SIGTERM), 0)
    expect("last list", last_list()[0], ["c.mp3", "b.mp3"])
    expect("recovery lists", recovery_lists(home), {})


class Session:
    """A desktop's session with one program in it."""

    def __init__(self):
        self.manager = subprocess.Popen([sys.argv[2]], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        os.environ["SESSION_MANAGER"] = self.manager.stdout.readline().strip()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        del os.environ["SESSION_MANAGER"]
        self.manager.kill()

    def order(self, what):
        self.manager.stdin.write(what + "\n")
        self.manager.stdin.flush()

    def hears(self, *words):
        for word in words:
            expect("the session hears", self.manager.stdout.readline().strip(), word)


def a_log_off_waits_for_the_answer(home, music):
    with Session() as session:
        before = last_list()
        program = changed(music)
        session.hears("joined")
        session.order("end")
        session.hears("asks")
        wait_for_question(program)
        expect("the recovery list comes first", recovery_lists(home), {"recovery-1.m3u": NAMES[1:]})
        answer(program, "Escape")
        session.hears("refuses", "saved")
        expect("a refusal stores nothing", last_list(), before)
        expect("but keeps the list", recovery_lists(home), {"recovery-1.m3u": NAMES[1:]})

        session.order("end")
        session.hears("asks")
        answer(program, "alt+n")
        session.hears("agrees", "saved")
        expect("the stored list", last_list()[0], NAMES[1:])
        expect("recovery lists", recovery_lists(home), {})
        session.order("stay")
        remove_first_row(program)
        wait_for("the list that goes on", lambda: recovery_lists(home) == {"recovery-1.m3u": NAMES[2:]})

        session.order("end")
        session.hears("asks")
        answer(program, "alt+n")
        session.hears("agrees", "saved")
        session.order("die")
        expect("exit code", ended(program), 0)
        expect("last list", last_list()[0], NAMES[2:])
        expect("recovery lists", recovery_lists(home), {})


def a_log_off_asks_only_what_is_needed(home, music):
    with Session() as session:
        program = Program(music)
        session.hears("joined")
        session.order("end")
        session.hears("saved")
        expect("the list without a change", last_list()[0], NAMES)
        session.order("die")
        expect("exit code", ended(program), 0)
    with Session() as session:
        program = changed(music)
        session.hears("joined")
        session.order("end quietly")
        session.hears("saved")
        expect("the list of whom nobody asks", last_list()[0], NAMES[1:])
        expect("recovery lists", recovery_lists(home), {})
        session.order("die")
        expect("exit code", ended(program), 0)
        expect("last list", last_list()[0], NAMES[1:])


def a_signal_ends_long_work(home, music):
    many = home / "many"
    for folder in range(100):
        (many / f"{folder:02}").mkdir(parents=True)
        for number in range(250):
            os.link(music / "a.mp3", many / f"{folder:02}" / f"{number:03}.mp3")
    program = changed(many)
    whole = lambda: [len(names) for names in recovery_lists(home).values()] == [24999]
    wait_for("the recovery list", whole)
    end_by(program, signal.SIGKILL)
    starting = subprocess.Popen([program_on_a_display.PROGRAMS / "QUBLET20"])
    wait_for("its hold of the list", lambda: holds(starting, "recovery-1.lock"))
    starting.send_signal(signal.SIGTERM)
    expect("exit code in the middle of a start", starting.wait(), 0)
    expect("the list after a start that was broken off", whole(), True)

    program = Program()
    program.press("F5")
    time.sleep(0.3)
    begun = time.monotonic()
    expect("exit code in the middle of a batch", end_by(program, signal.SIGTERM), 0)
    print(f"it took {time.monotonic() - begun:.2f} s")
    # Where it was among its work decides which of the two has the list.
    kept = [last_list()[0], *recovery_lists(home).values()]
    expect("the whole list is kept", 24999 in map(len, kept), True)
    Program().close()
    expect("last list", len(last_list()[0]), 24999)
    expect("recovery lists", recovery_lists(home), {})


def a_crash_loses_nothing(home, music):
    killed(home, changed(music), NAMES[1:])
    expect("the list that is left", recovery_lists(home), {"recovery-1.m3u": NAMES[1:]})
    killed(home, Program(), NAMES[1:])
    expect("after a second crash", recovery_lists(home), {"recovery-1.m3u": NAMES[1:]})
    program = Program()
    expect("while it is in use", recovery_lists(home), {"recovery-1.m3u": NAMES[1:]})
    program.close()
    expect("last list", last_list()[0], NAMES[1:])
    expect("after an exit", recovery_lists(home), {})
    expect("locks", locks(home), [])


def two_crashes_leave_two_lists(home, music):
    older = changed(music / "a.mp3", music / "b.mp3")
    wait_for("the older list", lambda: recovery_lists(home) == {"recovery-1.m3u": ["b.mp3"]})
    newer = changed(music / "a.mp3", music / "c.mp3", music / "d.mp3")
    wait_for("the newer list", lambda: len(recovery_lists(home)) == 2)
    for program in (older, newer):
        end_by(program, signal.SIGKILL)
    first, second, third = Program(), Program(), Program()
    third.close()
    first.close()
    expect("the newest list comes first", last_list()[0], ["c.mp3", "d.mp3"])
    expect("the other one is in use", recovery_lists(home), {"recovery-1.m3u": ["b.mp3"]})
    second.close()
    expect("and comes second", last_list()[0], ["b.mp3"])
    expect("recovery lists", recovery_lists(home), {})


def main():
    with new_home() as (home, music):
        own_programs(home)
        for name in NAMES:
            (music / name).write_bytes(b"abc")
        signals_store_all(home, music)
        a_signal_answers_no_question(home, music)
        a_log_off_waits_for_the_answer(home, music)
        a_log_off_asks_only_what_is_needed(home, music)
        a_crash_loses_nothing(home, music)
        two_crashes_leave_two_lists(home, music)
        a_signal_ends_long_work(home, music)


main()
