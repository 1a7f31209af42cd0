#!/usr/bin/python3
"""The length of files whose rate varies and whose encoder doesn't say how many frames there are.

average_rate.py STREAM_FACTS: encodes ten sounds of even loudness, takes the count of frames out of their Xing head or
puts a VBRI head without one in its place, and wants each length within 10 % of that of the sound.
"""

import os
import subprocess
import sys
import tempfile

SECONDS = 24
MOST_OFF = 0.1
XING = 36  # in the first frame of a stereo file of MPEG 1

SOUNDS = (
    "0.2*(random(0)-0.5)+0.3*sin(440*2*PI*t)",
    "0.4*(random(0)-0.5)",
    "0.3*sin(330*2*PI*t)+0.2*sin(1230*2*PI*t)+0.05*(random(0)-0.5)",
    "0.3*sin(220*2*PI*t)*sin(3*2*PI*t)+0.1*(random(0)-0.5)",
    "0.3*sin(400*2*PI*t+15*sin(2*PI*t))+0.02*(random(0)-0.5)",
)


def run(*command):
    subprocess.run([str(word) for word in command], check=True, stdin=subprocess.DEVNULL, capture_output=True)


def without_count(data, vbri):
    assert data[XING:XING + 4] == b"Xing" and data[XING + 7] & 1
    if vbri:
        return data[:XING] + b"VBRI" + bytes(22) + data[XING + 26:]
    return data[:XING + 4] + bytes(120) + data[XING + 124:]


def make(folder):
    """{path: seconds}"""
    lengths = {}
    for number in range(10):
        wav, path = os.path.join(folder, "a.wav"), os.path.join(folder, f"{number}.mp3")
        run("ffmpeg", "-v", "error", "-y", "-f", "lavfi", "-i",
            f"aevalsrc='{SOUNDS[number % 5]}|{SOUNDS[number % 5]}':s=44100:d={SECONDS}", wav)
        run("lame", "--quiet", "-V", number % 7, "-m", "s", "--resample", "44.1", wav, path)
        with open(path, "rb") as file:
            data = file.read()
        assert len(data) > 3 * 65536, len(data)
        with open(path, "wb") as file:
            file.write(without_count(data, vbri=number % 2 == 1))
        lengths[path] = SECONDS
    return lengths


def main(program):
    bad = 0
    with tempfile.TemporaryDirectory(prefix="qublet-rates-") as folder:
        lengths = make(folder)
        lines = subprocess.run([program, *lengths], check=True, capture_output=True, text=True).stdout.splitlines()
        for (path, wanted), line in zip(lengths.items(), lines, strict=True):
            found = float(line.split("\t")[0].removeprefix("StreamLength="))
            off = abs(found - wanted) / wanted
            bad += off > MOST_OFF
            print(f"{os.path.basename(path)}: {found:.2f} s of {wanted}, {off:.1%} off")
    sys.exit(1 if bad else 0)


if __name__ == "__main__":
    main(*sys.argv[1:])
