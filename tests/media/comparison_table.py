#!/usr/bin/python3
"""Holds what we read of every file of the audio corpus against ffprobe, mutagen and what the encoder was asked for.

comparison_table.py STREAM_FACTS CORPUS: prints a line a file and fails on a difference that isn't in REASONS, and on a
reason that no file needs any more.
"""

import fnmatch
import json
import os
import subprocess
import sys

from mutagen.mp3 import MP3, BitrateMode, HeaderNotFoundError

MODES = ("Stereo", "Joint Stereo", "Dual Channel", "Mono")
LAYERS = {"mp1": "Layer I", "mp2": "Layer II", "mp3": "Layer III"}

# (files, judge, fact): why the judge says something else.
WITHOUT_COUNT_FRAME = "it leaves the first frame, which holds only the count, out of the average"
TAGS_AS_SOUND = "it counts a tag at the end as sound"
FIRST_RATE = "without a count the rate of the first frame is taken; it looks at several frames"
REASONS = {
    ("*abr_140.mp3", "mutagen", "Kilobits"): WITHOUT_COUNT_FRAME,
    ("*vbr_*.mp3", "mutagen", "Kilobits"): WITHOUT_COUNT_FRAME,
    ("*mpeg2_vbr.mp3", "mutagen", "Kilobits"): WITHOUT_COUNT_FRAME,
    ("*mpeg25_11025.mp3", "mutagen", "Kilobits"): WITHOUT_COUNT_FRAME,
    ("tagged_cbr_40_count_does_not_fit.mp3", "ffprobe", "StreamLength"): TAGS_AS_SOUND,
    ("tagged_cbr_without_count.mp3", "ffprobe", "StreamLength"): TAGS_AS_SOUND,
    ("tagged_cbr_without_count.mp3", "mutagen", "StreamLength"): TAGS_AS_SOUND,
    ("tagged_vbr_without_count.mp3", "mutagen", "StreamLength"): TAGS_AS_SOUND,
    ("tagged_mpeg2*_mono.mp3", "ffprobe", "StreamLength"): TAGS_AS_SOUND,
    ("tagged_mpeg25_8000.mp3", "ffprobe", "StreamLength"): TAGS_AS_SOUND,
    ("*vbr_without_count.mp3", "ffprobe", "Kilobits"): FIRST_RATE,
    ("*vbr_without_count.mp3", "ffprobe", "StreamLength"): FIRST_RATE,
    ("*vbr_without_count.mp3", "ffprobe", "Length"): FIRST_RATE,
    ("tagged_*br*.mp3", "1000 bits", "ShownLength"): "the list takes the size of the whole file, a long tag included",
}


def our_facts(program, paths):
    lines = subprocess.run([program, *paths], check=True, capture_output=True, text=True).stdout.splitlines()
    return [dict(pair.split("=", 1) for pair in line.split("\t")) for line in lines]


def version_of(rate):
    return "MPEG 1.0" if rate >= 32000 else "MPEG 2.0" if rate >= 16000 else "MPEG 2.5"


def ffprobe_facts(path):
    answer = subprocess.run(["ffprobe", "-v", "error", "-show_streams", "-select_streams", "a", "-of", "json", path],
                            check=False, capture_output=True, text=True).stdout
    streams = json.loads(answer or "{}").get("streams", [])
    if not streams:
        return {}
    stream = streams[0]
    rate = int(stream["sample_rate"])
    seconds = float(stream["duration"])
    facts = {"Samplerate": f"{rate} Hz", "Length": round(seconds), "Kilobits": round(int(stream["bit_rate"]) / 1000),
             "Mono": stream["channels"] == 1}
    if stream["codec_name"] in LAYERS:
        return facts | {"ID": version_of(rate), "Layer": LAYERS[stream["codec_name"]], "StreamLength": seconds}
    return facts | {"Layer": f"{stream['bits_per_sample']} bits/sample"}


def mutagen_facts(path):
    try:
        info = MP3(path).info
    except HeaderNotFoundError:
        return {}
    return {"ID": f"MPEG {float(info.version)}", "Layer": "Layer " + "I" * info.layer, "Mode": MODES[info.mode],
            "Samplerate": f"{info.sample_rate} Hz", "Length": round(info.length), "StreamLength": info.length,
            "Kilobits": round(info.bitrate / 1000), "StreamCrc": info.protected,
            "VBR": info.bitrate_mode in (BitrateMode.VBR, BitrateMode.ABR)}


def comparable(ours):
    """Our texts as values that a judge can give as well."""
    facts = {fact: ours[fact] for fact in ("ID", "Layer", "Mode", "Samplerate", "Bitrate", "StreamEmphasis") if
             fact in ours}
    facts["Length"] = int(ours["Length"])
    facts["Kilobits"] = int(ours["Bitrate"].split(" ")[0] or 0)
    facts["VBR"] = "VBR" in ours["Bitrate"]
    facts["Mono"] = ours["Mode"] == "Mono"
    facts |= {fact: ours[fact] == "1" for fact in ("StreamCrc", "StreamCopyrighted", "StreamOriginal") if fact in ours}
    if "StreamLength" in ours:
        facts["StreamLength"] = float(ours["StreamLength"])
    if "VbrLength" in ours:
        facts["ShownLength"] = int(ours["VbrLength"])
    return facts


def asked_facts(asked):
    names = {"mode": "Mode", "crc": "StreamCrc", "copyrighted": "StreamCopyrighted", "original": "StreamOriginal",
             "emphasis": "StreamEmphasis"}
    facts = {names[name]: value for name, value in asked.items() if name in names}
    if "bitrate" in asked:
        facts["Bitrate"] = asked["bitrate"] + " Kbit"
    return facts


def reason_for(name, judge, fact):
    return next((key for key in REASONS
                 if fnmatch.fnmatch(name, key[0]) and key[1] == judge and key[2] == fact), None)


def seconds_allowed(judge, rate):
    # mutagen takes off what the encoder put before and behind the sound, up to two frames.
    return 2 * 1152 / rate if judge == "mutagen" else 0.02


def differences(name, ours, judge, facts):
    for fact, theirs in facts.items():
        if fact == "StreamLength":
            same = abs(ours[fact] - theirs) < seconds_allowed(judge, int(ours["Samplerate"].split()[0]))
        else:
            same = ours[fact] == theirs
        if not same:
            yield fact, ours[fact], theirs, reason_for(name, judge, fact)


def main(program, folder):
    with open(os.path.join(folder, "asked.json"), encoding="utf-8") as file:
        asked = json.load(file)
    names = sorted(name for name in asked if name.endswith((".mp3", ".wav")) and name != "empty.mp3")
    paths = [os.path.join(folder, name) for name in names]
    used, faults, compared = set(), 0, 0
    for name, path, raw in zip(names, paths, our_facts(program, paths)):
        print(f"{name:40} {raw['ID']:8} {raw['Layer']:14} {raw['Bitrate']:15} {raw['Samplerate']:8} {raw['Mode']:18} "
              f"{raw.get('StreamLength', raw['Length'])}")
        if raw["Valid"] != "1":
            print("    not read")
            faults += 1
            continue
        ours = comparable(raw)
        judges = {"ffprobe": ffprobe_facts(path), "asked": asked_facts(asked[name])}
        if name.endswith(".mp3"):
            judges["mutagen"] = mutagen_facts(path)
        if "ShownLength" in ours:
            judges["1000 bits"] = {"ShownLength": ours["Length"]}
        for judge, facts in judges.items():
            compared += len(facts)
            for fact, mine, theirs, reason in differences(name, ours, judge, facts):
                print(f"    {fact}: {mine}, {judge} says {theirs}: {REASONS.get(reason, 'UNEXPLAINED')}")
                faults += reason is None
                used.add(reason)
    for reason in REASONS.keys() - used:
        print(f"no file needs the reason {reason}")
        faults += 1
    print(f"{len(names)} files, {compared} facts compared, {faults} faults")
    return 1 if faults or not compared else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
