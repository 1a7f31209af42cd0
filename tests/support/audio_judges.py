"""What ffprobe and mutagen say of an audio file, and a table that holds facts of ours against theirs."""

import fnmatch
import json
import operator
import subprocess

from mutagen.mp3 import MP3, BitrateMode, HeaderNotFoundError

MODES = ("Stereo", "Joint Stereo", "Dual Channel", "Mono")
LAYERS = {"mp1": "Layer I", "mp2": "Layer II", "mp3": "Layer III"}

# Why a judge says something else.
WITHOUT_COUNT_FRAME = "it leaves the first frame, which holds only the count, out of the average"
TAGS_AS_SOUND = "it counts a tag at the end as sound"
FIRST_RATE = "without a count the rate of the first frame is taken; it looks at several frames"


def version_of(rate):
    return "MPEG 1.0" if rate >= 32000 else "MPEG 2.0" if rate >= 16000 else "MPEG 2.5"


def ffprobe_facts(path):
    """Facts of the first sound stream; ID and Layer only where they are sure. Nothing of what is no sound."""
    answer = subprocess.run(["ffprobe", "-v", "error", "-show_streams", "-select_streams", "a", "-of", "json", path],
                            check=False, capture_output=True, text=True).stdout
    streams = json.loads(answer or "{}").get("streams", [])
    if not streams:
        return {}
    stream = streams[0]
    codec, rate = stream["codec_name"], int(stream["sample_rate"])
    facts = {"Codec": codec, "Rate": rate, "Seconds": float(stream["duration"]), "Channels": stream["channels"],
             "Kilobits": round(int(stream["bit_rate"]) / 1000)}
    if codec in LAYERS:
        facts |= {"ID": version_of(rate), "Layer": LAYERS[codec]}
    if codec.startswith("pcm_"):
        facts |= {"ID": "PCM", "Layer": f"{stream['bits_per_sample']} bits/sample"}
    return facts


def mutagen_facts(path):
    """Facts of an MPEG stream, nothing where it finds none."""
    try:
        info = MP3(path).info
    except HeaderNotFoundError:
        return {}
    return {"ID": f"MPEG {float(info.version)}", "Layer": "Layer " + "I" * info.layer, "Mode": MODES[info.mode],
            "Rate": info.sample_rate, "Seconds": info.length, "Kilobits": round(info.bitrate / 1000),
            "Protected": info.protected, "VBR": info.bitrate_mode in (BitrateMode.VBR, BitrateMode.ABR)}


class Table:
    """Counts the differences that no reason explains, and the reasons that no difference needs.

    reasons: (files, judge, fact) -> why that judge says something else of those files.
    """

    def __init__(self, reasons):
        self.reasons = reasons
        self.used = set()
        self.compared = 0
        self.faults = 0

    def fault(self, text):
        print(f"    {text}")
        self.faults += 1

    def compare(self, name, judge, ours, theirs, same=operator.eq):
        for fact, other in theirs.items():
            self.compared += 1
            if same(ours[fact], other):
                continue
            reason = self._reason_for(name, judge, fact)
            text = f"{fact}: {ours[fact]!r}, {judge} says {other!r}"
            if reason is None:
                self.fault(f"{text}: UNEXPLAINED")
            else:
                print(f"    {text}: {self.reasons[reason]}")
                self.used.add(reason)

    def _reason_for(self, name, judge, fact):
        return next((key for key in self.reasons
                     if fnmatch.fnmatch(name, key[0]) and key[1] == judge and key[2] == fact), None)

    def exit_code(self, files):
        for reason in self.reasons.keys() - self.used:
            self.fault(f"no file needs the reason {reason}")
        print(f"{files} files, {self.compared} facts compared, {self.faults} faults")
        return 1 if self.faults or not self.compared else 0
