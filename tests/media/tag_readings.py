"""What others read in an MP3 file, whole: every frame of the ID3v2 tag that they show, and ID3v1.

A reading is {key: [content, ...]}. Keys are "TIT2", "COMM:description:language", "V1:title" and the like.
"""

import hashlib
import io
import json
import subprocess

from mutagen import MutagenError
from mutagen.id3 import ID3, ParseID3v1

V1_FIELDS = ("title", "artist", "album", "year", "comment", "track", "genre")
# Our writer keeps frames of ID3v2.2 that ID3v2.3 doesn't know in a private frame of the one owner, and what stood
# behind the frames in one of the other.
FOREIGN_OWNER = "QUBLET_id3v22frame"
TAIL_OWNER = "QUBLET_id3v22tail"
# What of a frame stands in its key, isn't read by anybody, or is read one by one.
APART = ("encoding", "desc", "lang", "sub_frames")
# mutagen leaves the three letters of ID3v2.2 where a picture's type stands.
OLD_FORMATS = {"PNG": "image/png", "JPG": "image/jpeg"}


def brief(content):
    whole = repr(content)
    return whole if len(whole) < 200 else whole[:80] + " " + hashlib.md5(whole.encode("utf8", "replace")).hexdigest()


def add(reading, key, content):
    reading.setdefault(key, []).append(content)


def mutagen_frames(reading, data):
    try:
        tags = ID3(io.BytesIO(data), translate=False, load_v1=False)
    except (MutagenError, EOFError):
        return
    for one in tags.values():
        if one.FrameID == "PRIV" and one.owner == FOREIGN_OWNER:
            add(reading, "?" + one.data[:3].decode("latin1"), brief(bytes(one.data[6:])))
            continue
        if one.FrameID == "PRIV" and one.owner == TAIL_OWNER:
            add(reading, "tail", brief(one.data))
            continue
        parts = [one.FrameID, *(getattr(one, name) for name in ("desc", "lang") if hasattr(one, name))]
        specs = (*one._framespec, *one._optionalspec)
        if one.FrameID == "APIC":
            one.mime = OLD_FORMATS.get(one.mime, one.mime)
        # A picture's description gets blanks at its end where there are several alike.
        content = [getattr(one, spec.name, None) for spec in specs if spec.name not in APART]
        content.append(sorted(map(repr, getattr(one, "sub_frames", {}).values())))
        add(reading, ":".join(parts).rstrip(" "), brief(content))
    head = 6 if tags.version < (2, 3, 0) else 10
    for one in map(bytes, tags.unknown_frames):
        # It doesn't look whether there is as much as the frame says.
        field = one[3:6] if head == 6 else one[4:8]
        sizes = [sum(byte << bits * i for i, byte in enumerate(reversed(field))) for bits in (7, 8)]
        if len(one) > head and len(one) - head in sizes:
            add(reading, "?" + one[:3 if head == 6 else 4].decode("latin1"), brief(one[head:]))


def mutagen_v1(reading, data):
    # It looks for the tag where a year of fewer digits would have it begin.
    end = data[-131:]
    start = end.find(b"TAG")
    if start < 0 or end[max(0, start - 3):start + 5] == b"APETAGEX":
        return
    for key, one in (ParseID3v1(end[start:], 3) or {}).items():
        add(reading, "V1:" + key, brief([one.text if hasattr(one, "text") else one]))


def by_mutagen(datas):
    readings = []
    for data in datas:
        reading = {}
        mutagen_frames(reading, data)
        mutagen_v1(reading, data)
        readings.append(reading)
    return readings


def taglib_reading(answer):
    reading = {}
    for key, content in answer["frames"]:
        add(reading, key, brief(content))
    for name, value in zip(V1_FIELDS, answer["v1"] if answer["has_v1"] else ()):
        add(reading, "V1:" + name, value)
    return reading


def by_taglib(tool, paths):
    done = subprocess.run([tool, "dump", *paths], capture_output=True, encoding="utf8", check=True)
    return [taglib_reading(json.loads(line)) for line in done.stdout.split("\n")[:-1]]


def our_reading(line):
    """Of a line of tag_tool; nothing where it couldn't read the file."""
    reading = {}
    answer = json.loads(line) if line.startswith("{") else {"frames": {}, "comments": [], "images": [], "has_v1": False}
    for key, value in answer["frames"].items():
        if value:
            add(reading, key, value)
    for key, value in zip(("Preference", "Mood", "Tempo", "Situation"), answer.get("properties", ())):
        if value:
            add(reading, "COMM:MusicMatch_" + key, value)
    for description, words in answer["comments"]:
        add(reading, "COMM:" + description, words)
    for description, size, mime in answer["images"]:
        add(reading, "APIC:" + description, [size, mime])
    for name, value in zip(V1_FIELDS, answer["v1"] if answer["has_v1"] else ()):
        add(reading, "V1:" + name, value)
    return reading
