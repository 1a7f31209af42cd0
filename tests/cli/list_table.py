#!/usr/bin/python3
"""Holds every cell that "qublet list" gives for the audio corpus against the file system, ffprobe, mutagen and what the
encoder was asked for.

list_table.py QUBLET CORPUS: prints a line a file and fails on a difference that isn't in REASONS, on a reason that no
file needs any more, and on a cell that nobody judged.
"""

import json
import os
import re
import subprocess
import sys
import tempfile

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "support"))
from audio_judges import FIRST_RATE, WITHOUT_COUNT_FRAME, Table, ffprobe_facts, mutagen_facts  # noqa: E402

KEYS = ["FileName", "Time", "Size", "Path", "ID", "Layer", "Bitrate", "Samplerate", "Mode", "HiddenLen", "HiddenSize",
        "Original Order", "State"]
JUDGED = {*KEYS, "Kilobits", "Unit"} - {"Bitrate"}
TYPES = (".mp3", ".wav", ".ogg", ".wma")
NORMAL, MISSING = 1, 2

LENGTH_OF_A_VARYING_RATE = "the list takes the size of the whole file at the average rate, 1024 bits a kilobit"
ONLY_TAG_1 = "only the plain format tag is called PCM; ffmpeg writes 24 bits with the extensible one"
REASONS = {
    ("pcm_24_stereo.wav", "ffprobe", "ID"): ONLY_TAG_1,
    ("*abr_140.mp3", "mutagen", "Kilobits"): WITHOUT_COUNT_FRAME,
    ("*vbr_*.mp3", "mutagen", "Kilobits"): WITHOUT_COUNT_FRAME,
    ("*mpeg2_vbr.mp3", "mutagen", "Kilobits"): WITHOUT_COUNT_FRAME,
    ("*mpeg25_11025.mp3", "mutagen", "Kilobits"): WITHOUT_COUNT_FRAME,
    **{("*vbr_without_count.mp3", "ffprobe", fact): FIRST_RATE for fact in ("Kilobits", "HiddenLen", "Time")},
    **{(files, judge, fact): LENGTH_OF_A_VARYING_RATE
       for files in ("*vbr_66_seconds.mp3", "tagged_abr_140.mp3", "tagged_ffmpeg_vbr.mp3")
       for judge in ("ffprobe", "mutagen") for fact in ("HiddenLen", "Time")},
}


def listed(program, folder):
    """The rows of the folder, seen from a system that has no drive but the root."""
    with tempfile.TemporaryDirectory() as drives:
        environment = os.environ | {"QUBLET_DOSDEVICES": drives}
        return subprocess.run([program, "list", "--json", folder], check=True, stdout=subprocess.PIPE, text=True,
                              env=environment).stdout.splitlines()


def time_text(seconds):
    hours, minutes, rest = seconds // 3600, seconds % 3600 // 60, seconds % 60
    return f"{hours}:{minutes:02}:{rest:02}" if hours else f"{minutes}:{rest:02}"


def size_text(size):
    if size > 16 * 1024 * 1024:
        return f"{int(size / 1024 / 1024 + 0.5):,} Mb"
    if size > 16 * 1024:
        return f"{int(size / 1024 + 0.5):,} Kb"
    return "" if size == 1 else f"{size:,} Bytes"


def length_cells(seconds):
    return {"HiddenLen": str(round(seconds)), "Time": time_text(round(seconds))}


def rank(name):
    return TYPES.index(os.path.splitext(name)[1]), name.lower()


def file_system_cells(folder):
    """What each row owes to the file system, in the order of the list: a type after the other, names in order."""
    names = sorted((name for name in os.listdir(folder) if name.endswith(TYPES)), key=rank)
    for order, name in enumerate(names, start=1):
        size = os.path.getsize(os.path.join(folder, name))
        cells = {"FileName": name, "Size": size_text(size), "Path": "z:" + folder.replace("/", "\\") + "\\"}
        if size == 0:
            yield dict.fromkeys(JUDGED, "") | cells | {"Time": "0:00", "State": MISSING}
        else:
            yield cells | {"HiddenSize": str(size), "Original Order": str(order), "State": NORMAL}


def ffprobe_cells(path):
    facts = ffprobe_facts(path)
    if facts["Codec"] == "vorbis":
        return {"ID": "OGG Vorbis"}
    cells = {fact: facts[fact] for fact in ("ID", "Layer") if fact in facts}
    if not cells:
        return {}
    cells |= {"Samplerate": f"{facts['Rate']} Hz", "Kilobits": str(facts["Kilobits"])} | length_cells(facts["Seconds"])
    if facts["ID"] == "PCM":
        return cells | {"Mode": {1: "Mono", 2: "Stereo Interleaved"}[facts["Channels"]]}
    return cells | {"Channels": facts["Channels"]}


def mutagen_cells(path):
    facts = mutagen_facts(path)
    return {"ID": facts["ID"], "Layer": facts["Layer"], "Mode": facts["Mode"], "Samplerate": f"{facts['Rate']} Hz",
            "Kilobits": str(facts["Kilobits"]), "Unit": " Kbit (VBR)" if facts["VBR"] else " Kbit",
            **length_cells(facts["Seconds"])}


def stated_cells(row, size):
    """What no other program knows: which cells stay empty, and the length of a varying rate."""
    extension = os.path.splitext(row["FileName"])[1]
    if extension == ".wav":
        return {"Unit": " Kbit"}
    if extension in (".ogg", ".wma"):
        empty = dict.fromkeys(("Layer", "Kilobits", "Unit", "Samplerate", "Mode"), "")
        return empty | length_cells(0) | ({"ID": ""} if extension == ".wma" else {})
    return length_cells(size * 8 / (int(row["Kilobits"]) * 1024)) if "VBR" in row["Unit"] else {}


def asked_cells(asked):
    return {cell: asked[name] for name, cell in (("mode", "Mode"), ("bitrate", "Kilobits")) if name in asked}


def facts_of(row):
    """The cells, with those parts of them that a judge knows alone."""
    kilobits, unit = re.fullmatch(r"(\d*)(.*)", row["Bitrate"]).groups()
    return row | {"Kilobits": kilobits, "Unit": unit, "Channels": 1 if row["Mode"] == "Mono" else 2}


def judgements(row, path, from_file_system, asked):
    yield "file system", from_file_system
    size = os.path.getsize(path)
    if size > 0:
        yield "ffprobe", ffprobe_cells(path)
        if path.endswith(".mp3"):
            yield "mutagen", mutagen_cells(path)
        yield "encoder", asked_cells(asked)
        yield "the list", stated_cells(row, size)


def main(program, folder):
    with open(os.path.join(folder, "asked.json"), encoding="utf-8") as file:
        asked = json.load(file)
    table = Table(REASONS)
    rows = [json.loads(line) for line in listed(program, folder)]
    expected = list(file_system_cells(folder))
    if [row["FileName"] for row in rows] != [cells["FileName"] for cells in expected]:
        table.fault("other files, or in another order, than the folder holds")
    for row, cells in zip(rows, expected):
        print(f"{row['FileName']:40} {row['Time']:>5} {row['Size']:>12} {row['ID']:10} {row['Layer']:14} "
              f"{row['Bitrate']:15} {row['Samplerate']:8} {row['Mode']:18} {row['State']}")
        if list(row) != KEYS:
            table.fault(f"other columns: {list(row)}")
        name, row, judged = row["FileName"], facts_of(row), set()
        for judge, facts in judgements(row, os.path.join(folder, name), cells, asked[name]):
            table.compare(name, judge, row, facts)
            judged |= facts.keys()
        if not JUDGED <= judged:
            table.fault(f"nobody judged {JUDGED - judged}")
    return table.exit_code(len(rows))


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
