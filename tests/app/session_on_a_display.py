#!/usr/bin/env python3
"""The program as a person uses it, on the present display with its window manager: started, moved, resized, closed by
its close box, started again. Everything has to be as it was left.

Usage: session_on_a_display.py FOLDER_OF_PROGRAMS
"""
import os
import pathlib
import re
import time

from program_on_a_display import PROGRAMS, Program, expect, last_list, new_home, run, setting, wait_for


def open_what_the_command_line_says(music):
    for name in ('q"uote.mp3', "-dash.mp3", "b c.mp3"):
        (music / name).write_bytes(b"abc")
    os.chdir(music)
    Program("b c.mp3", 'q"uote.mp3', "-dash.mp3", "z:" + str(music / "a.mp3").replace("/", "\\")).close()
    expect("files of the command line", last_list()[0], ["b c.mp3", 'q"uote.mp3', "-dash.mp3", "a.mp3"])
    left = last_list()
    Program("").close()
    expect("last list after an empty argument", last_list(), left)
    expect("the program in the settings", setting("get", "Startup", "insl"),
           "z:" + str(PROGRAMS / "QUBLET20").replace("/", "\\"))


def hand_an_id_to_the_player(home, music):
    script = pathlib.Path(home, "player")
    script.write_text(f'#!/bin/sh\necho "$DESKTOP_STARTUP_ID" >{home}/started.tmp\nmv {home}/started.tmp {home}/started\n')
    script.chmod(0o700)
    entry = pathlib.Path(home, "data/applications/player.desktop")
    entry.parent.mkdir(parents=True, exist_ok=True)
    entry.write_text(f"[Desktop Entry]\nType=Application\nName=Player\nExec={script} %U\nMimeType=audio/x-mpegurl;\n")
    pathlib.Path(home, "config/mimeapps.list").write_text("[Default Applications]\naudio/x-mpegurl=player.desktop\n")
    program = Program(music)
    program.press("ctrl+p")
    started = wait_for("the player", lambda: pathlib.Path(home, "started").exists() and pathlib.Path(home, "started").read_text())
    expect("an id of the key's time", bool(re.fullmatch(r"QUBLET20-\d+-.*_TIME[1-9]\d*\n", started)), True)
    program.close()


def save_under_a_name_with_a_dot(music):
    os.chdir(music)
    program = Program(music / "a.mp3")
    program.press("ctrl+s")
    time.sleep(2)
    run("xdotool", "key", "ctrl+a")
    run("xdotool", "type", "--delay", "20", str(music / "Vol. 1"))
    run("xdotool", "key", "Return")
    wait_for("the playlist", (music / "Vol. 1.m3u").exists)
    expect("no other file", (music / "Vol. 1").exists(), False)
    program.close()


def place_stored():
    return [setting("get", "PS", key) for key in ("L", "T", "W", "H")]


def is_maximised(program):
    return "_NET_WM_STATE_MAXIMIZED_VERT" in run("xprop", "-id", program.window, "_NET_WM_STATE")


def come_back_maximised():
    program = Program()
    left = program.place(301, 207, 800, 450)
    program.close()
    stored = place_stored()
    program = Program()
    program.settled()
    run("wmctrl", "-ir", program.window, "-b", "add,maximized_vert,maximized_horz")
    wait_for("a large window", lambda: program.geometry()["WIDTH"] > 1500)
    program.settled()
    program.close()
    for _ in range(2):
        expect("place of a maximised window", place_stored(), stored)
        expect("that it was maximised", setting("get", "PS", "Maximised"), "1")
        program = Program()
        program.settled()
        expect("maximised again", is_maximised(program), True)
        program.close()
    program = Program()
    program.settled()
    run("wmctrl", "-ir", program.window, "-b", "remove,maximized_vert,maximized_horz")
    wait_for("a small window", lambda: program.geometry()["WIDTH"] < 1500)
    expect("its normal place", program.settled(), left)
    program.close()
    expect("place after that", place_stored(), stored)
    expect("that it was not maximised", setting("get", "PS", "Maximised"), "0")


def fall_back_from_a_size_that_the_screen_does_not_exceed():
    for key, value in (("W", 1600 * 15), ("H", 1200 * 15), ("L", 3000), ("T", 2250)):
        setting("set", "PS", key, str(value))
    program = Program()
    found = program.settled()
    expect("size on a screen as large as the stored one", (found["WIDTH"], found["HEIGHT"]), (528, 400))
    second = Program()
    expect("where a second instance stands", second.settled(), found)
    second.close()
    program.close()


def main():
    with new_home() as (home, music):
        (music / "a.mp3").write_bytes(b"abc")
        open_what_the_command_line_says(music)
        hand_an_id_to_the_player(home, music)
        save_under_a_name_with_a_dot(music)
        come_back_maximised()
        fall_back_from_a_size_that_the_screen_does_not_exceed()

        Program(music).close()
        setting("set", "TableB", "TX4", "False")
        setting("set", "VE", "SA", "0")

        program = Program()
        left = program.place(211, 157, 903, 487)
        program.close()
        expect("stored width", setting("get", "PS", "W"), str(903 * 15))
        expect("stored height", setting("get", "PS", "H"), str(487 * 15))

        program = Program()
        expect("place and size after a restart", program.settled(), left)
        program.close()
        expect("hidden column", setting("get", "TableB", "TX4"), "False")
        expect("its width", setting("get", "TableB", "TV4"), "400")
        expect("status bar", setting("get", "VE", "SA"), "0")


main()
