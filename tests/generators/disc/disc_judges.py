#!/usr/bin/python3
"""Puts built discs into images and looks at what comes out of them: disc_judges.py QUBLET

A folder of music is made a disc by `qublet disc build`, burnt into an ISO image with long names, and read back:
- every file of the image is the same as in the folder;
- a real player plays every line of the playlist where the music lies at the top;
- where it lies in folders, whose names the playlist parts by "\\", our own list finds all of it;
- every link of the page leads to a file of the disc.
"""

import json
import os
import re
import struct
import subprocess
import sys
import tempfile
import urllib.parse

AT_THE_TOP = ["01 - Slack Water.mp3", "02 - Sisters & Sons.mp3", "03 - #1 100%.mp3"]
IN_FOLDERS = ["Night Ferry/01 - Slack Water.mp3", "Night Ferry/disc 2/Ünder.mp3", "Other songs/02.mp3"]
MISSING = 2  # the state of a row whose file isn't there

faults = []


def check(holds, *words):
    if not holds:
        faults.append(" ".join(str(word) for word in words))


def run(*command, **options):
    return subprocess.run(command, check=True, capture_output=True, timeout=120, **options)


def make_music(folder, names):
    for name in names:
        path = os.path.join(folder, name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        run("ffmpeg", "-loglevel", "error", "-f", "lavfi", "-i", "sine=frequency=440:duration=0.3", "-b:a", "64k", path)


def contents(folder):
    found = {}
    for parent, _, names in os.walk(folder):
        for name in names:
            path = os.path.join(parent, name)
            with open(path, "rb") as file:
                found[os.path.relpath(path, folder)] = file.read()
    return found


def burn(folder, image, burnt):
    run("xorriso", "-as", "mkisofs", "-quiet", "-J", "-joliet-long", "-R", "-V", "MUSIC", "-o", image, folder)
    run("xorriso", "-osirrox", "on", "-indev", image, "-extract", "/", burnt)
    run("chmod", "-R", "u+w", burnt)
    check(contents(folder) == contents(burnt), "the image of", folder, "holds something else")


def check_page(burnt, names):
    page = open(os.path.join(burnt, "MP3Index.htm"), encoding="cp1252").read()
    links = [urllib.parse.unquote(link) for link in re.findall(r'<a href="?([^ >"]+)"?>', page, re.I)]
    songs = [link for link in links if not link.startswith("http")]
    check(len(songs) == len(names), "the page has", len(songs), "links for", len(names), "songs")
    for link in songs:
        check(os.path.exists(os.path.join(burnt, link)), "the page leads to nothing:", link)


def check_icon(burnt):
    with open(os.path.join(burnt, "setup.ico"), "rb") as file:
        icon = file.read()
    kind, count = struct.unpack_from("<HH", icon, 2)
    sizes = sorted(icon[6 + 16 * i] or 256 for i in range(count))
    check(kind == 1 and sizes == [16, 24, 32, 48, 256], "the icon holds", sizes)


def check_playing(burnt, names):
    played = run("mpv", "--no-config", "--ao=null", "--vo=null", "--no-video", "playlist.m3u", cwd=burnt).stdout.decode()
    check(len(re.findall("^ ?AO: ", played, re.M)) > 0, "the player played nothing:", played)
    for name in names:
        check(f"Playing: {name}" in played, "the player didn't play", name, played)


def check_listing(qublet, burnt, names):
    lines = run(qublet, "list", "--json", os.path.join(burnt, "playlist.m3u")).stdout.decode().splitlines()
    rows = [json.loads(line) for line in lines]
    check(len(rows) == len(names), "the playlist has", len(rows), "rows for", len(names), "songs")
    check(not any(row["State"] == MISSING for row in rows), "the playlist misses", rows)


def build_and_look(qublet, work, kind, names):
    folder, image, burnt = (os.path.join(work, kind + end) for end in ("", ".iso", "-burnt"))
    make_music(folder, names)
    run(qublet, "disc", "build", "--table", "--autorun", "--auto-icon", "12", "--auto-list", folder)
    with open(os.path.join(folder, "autorun.inf"), "rb") as file:
        check(file.read() == b"[autorun]\r\nicon=setup.ico\r\nopen=start playlist.m3u\r\n", "autorun.inf differs")
    with open(os.path.join(folder, "playlist.m3u"), "rb") as file:
        lines = sorted(file.read().decode("cp1252").split("\r\n")[:-1])
    check(lines == sorted(name.replace("/", "\\") for name in names), "playlist.m3u differs:", lines)
    burn(folder, image, burnt)
    check_page(burnt, names)
    check_icon(burnt)
    check_listing(qublet, burnt, names)
    return burnt


def main(qublet):
    with tempfile.TemporaryDirectory() as work:
        check_playing(build_and_look(qublet, work, "top", AT_THE_TOP), AT_THE_TOP)
        build_and_look(qublet, work, "folders", IN_FOLDERS)
    for text in faults:
        print(text)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
