"""A playlist of a player of this system still plays after it was opened and saved: played_by_mpv.py QUBLET MPV."""

import os
import subprocess
import sys
import tempfile
import wave

NAMES = ["a.wav", "sub/b.wav", "sub/ö # 100%.wav"]


def make_song(path):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with wave.open(path, "wb") as song:
        song.setnchannels(1)
        song.setsampwidth(2)
        song.setframerate(8000)
        song.writeframes(bytes(1600))


def played(mpv, playlist):
    """The files that the player opens, in order; one that it can't open ends the test."""
    run = subprocess.run(
        [mpv, "--no-config", "--no-video", "--ao=null", "--term-playing-msg=played ${path}", "--playlist=" + playlist],
        capture_output=True, text=True, timeout=120, check=True)
    return [line.removeprefix("played ") for line in run.stdout.splitlines() if line.startswith("played ")]


def main(qublet, mpv):
    with tempfile.TemporaryDirectory() as folder:
        songs = [os.path.join(folder, name) for name in NAMES]
        for song in songs:
            make_song(song)
        playlist = os.path.join(folder, "list.m3u")
        with open(playlist, "w", encoding="utf-8") as file:
            file.write("#EXTM3U\n" + NAMES[0] + "\n" + NAMES[1] + "\n" + songs[2] + "\n")
        before = played(mpv, playlist)
        assert len(before) == len(NAMES), before

        environment = {**os.environ, "HOME": folder, "XDG_CONFIG_HOME": folder, "XDG_DATA_HOME": folder}
        environment.pop("QUBLET_DOSDEVICES", None)
        environment.pop("WINEPREFIX", None)
        for options in ([], ["--relative"]):
            subprocess.run([qublet, "save", "--replace", *options, playlist, playlist], check=True, env=environment)
            after = played(mpv, playlist)
            assert [os.path.join(folder, path) for path in after] == songs, after
    print("played", len(NAMES), "files before and after")


if __name__ == "__main__":
    main(*sys.argv[1:])
