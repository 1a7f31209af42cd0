#!/usr/bin/python3
"""Holds the stream facts that the list doesn't show, of every MPEG file of the audio corpus, against ffprobe, mutagen
and what the encoder was asked for. What the list shows stands in tests/cli/list_table.py.

comparison_table.py STREAM_FACTS CORPUS: prints a line a file and fails on a difference that isn't in REASONS, and on a
reason that no file needs any more.
"""

import json
import os
import subprocess
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "support"))
from audio_judges import FIRST_RATE, TAGS_AS_SOUND, Table, ffprobe_facts, mutagen_facts  # noqa: E402

REASONS = {
    ("tagged_cbr_40_count_does_not_fit.mp3", "ffprobe", "StreamLength"): TAGS_AS_SOUND,
    ("tagged_cbr_without_count.mp3", "ffprobe", "StreamLength"): TAGS_AS_SOUND,
    ("tagged_cbr_without_count.mp3", "mutagen", "StreamLength"): TAGS_AS_SOUND,
    ("tagged_vbr_without_count.mp3", "mutagen", "StreamLength"): TAGS_AS_SOUND,
    ("tagged_mpeg2*_mono.mp3", "ffprobe", "StreamLength"): TAGS_AS_SOUND,
    ("tagged_mpeg25_8000.mp3", "ffprobe", "StreamLength"): TAGS_AS_SOUND,
    ("*vbr_without_count.mp3", "ffprobe", "StreamLength"): FIRST_RATE,
}

ASKED = {"crc": "StreamCrc", "copyrighted": "StreamCopyrighted", "original": "StreamOriginal",
         "emphasis": "StreamEmphasis"}


def our_facts(program, paths):
    lines = subprocess.run([program, *paths], check=True, capture_output=True, text=True).stdout.splitlines()
    return [dict(pair.split("=", 1) for pair in line.split("\t") if pair) for line in lines]


def comparable(raw):
    """Our texts as values that a judge can give as well."""
    flags = {fact: raw[fact] == "1" for fact in ("StreamCrc", "StreamCopyrighted", "StreamOriginal")}
    return {"StreamLength": float(raw["StreamLength"]), "StreamEmphasis": raw["StreamEmphasis"], **flags}


def same_within(seconds):
    return lambda ours, theirs: abs(ours - theirs) < seconds


def main(program, folder):
    with open(os.path.join(folder, "asked.json"), encoding="utf-8") as file:
        asked = json.load(file)
    names = sorted(name for name in asked if name.endswith(".mp3") and name != "empty.mp3")
    paths = [os.path.join(folder, name) for name in names]
    table = Table(REASONS)
    for name, path, raw in zip(names, paths, our_facts(program, paths), strict=True):
        print(f"{name:40}", *raw.values())
        if not raw:
            table.fault("not read")
            continue
        ours, probed, read = comparable(raw), ffprobe_facts(path), mutagen_facts(path)
        table.compare(name, "ffprobe", ours, {"StreamLength": probed["Seconds"]}, same_within(0.02))
        # It takes off what the encoder put before and behind the sound, up to two frames.
        table.compare(name, "mutagen", ours, {"StreamLength": read["Seconds"]}, same_within(2 * 1152 / read["Rate"]))
        table.compare(name, "mutagen", ours, {"StreamCrc": read["Protected"]})
        table.compare(name, "encoder", ours, {ASKED[key]: asked[name][key] for key in ASKED if key in asked[name]})
    return table.exit_code(len(names))


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
