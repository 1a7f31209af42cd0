#!/usr/bin/python3
"""Holds what the tag editor writes against mutagen and TagLib: editor_judges.py QUBLET TAGLIB_TOOL

The whole form of one file goes into every file of tag_corpus.py, as Paste and Update do it, and then:
- both judges read in every file what was in the form;
- frames that the form doesn't show, and all bytes that are no tags, are the same as before;
- a file that was refused is the same as before, but for the ID3v1 tag;
- after the undo every file is the same as before, also when the update was killed in the middle.
"""

import json
import os
import shutil
import signal
import subprocess
import sys
import tempfile
import time

from mutagen.id3 import APIC, COMM, ID3, TALB, TIT2, TPE1, TYER, USLT

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), ".."))
import raw_tags  # noqa: E402
import tag_corpus  # noqa: E402

TEXTS = {"TIT2": "Título ☃", "TPE1": "Artist", "TALB": "Album", "TYER": "1999"}
PICTURE = b"\x89PNG\r\n\x1a\n" + bytes(range(256)) * 40
# What the form holds, and what belongs to it.
SHOWN = set("TIT2 TPE1 TALB TYER TDRC TDAT TIME TRCK TCON TCOM TOPE TCOP TENC WXXX WOAR TXXX USLT COMM APIC".split())
KILLS = (0.02, 0.05, 0.1, 0.2, 0.35, 0.5)

# Where mutagen shows a frame that the tag's end cuts off; nobody may touch that one.
REASONS = {(f"v2{version}_frame_beyond_tag.mp3", "TPE1") for version in (2, 3, 4)}
# TagLib stops at a frame with an id of three letters.
REASONS_OF_TAGLIB = {("v24_with_PIC.mp3", "TPE1")}

faults = []


def fault(*words):
    faults.append(" ".join(str(word) for word in words))


def contents(folder, names):
    found = {}
    for name in names:
        with open(os.path.join(folder, name), "rb") as file:
            found[name] = file.read()
    return found


def put_back(folder, before):
    for name, data in before.items():
        with open(os.path.join(folder, name), "wb") as file:
            file.write(data)


def make_source(path):
    with open(path, "wb") as file:
        file.write(tag_corpus.audio() + tag_corpus.v1())
    tags = ID3()
    tags.add(TIT2(encoding=1, text=TEXTS["TIT2"]))
    for frame, key in ((TPE1, "TPE1"), (TALB, "TALB"), (TYER, "TYER")):
        tags.add(frame(encoding=0, text=TEXTS[key]))
    tags.add(COMM(encoding=0, lang="eng", desc="about", text="a comment"))
    tags.add(USLT(encoding=0, lang="eng", desc="", text="la\nla"))
    tags.add(APIC(encoding=0, mime="image/png", type=3, desc="front", data=PICTURE))
    tags.save(path, v1=1, v2_version=3)


def by_mutagen(path):
    tags = ID3(path, translate=False)
    facts = {key: str(tags.getall(key)[0]) for key in ("TIT2", "TPE1", "TALB")}
    years = tags.getall("TYER") or tags.getall("TDRC")
    facts["TYER"] = str(years[0])
    facts["comments"] = [(one.desc, str(one)) for one in tags.getall("COMM") if "MusicMatch" not in one.desc]
    facts["pictures"] = [one.data for one in tags.getall("APIC")]
    lyrics = sorted(tags.getall("USLT"), key=lambda one: one.desc != "")
    facts["lyrics"] = [str(one) for one in lyrics][:1]
    return facts


WANTED = {**TEXTS, "comments": [("about", "a comment")], "pictures": [PICTURE], "lyrics": ["la\nla"]}


def check_update(folder, taglib, before, refused):
    after = contents(folder, before)
    changed = sorted(set(before) - refused)
    for name in changed:
        try:
            facts = by_mutagen(os.path.join(folder, name))
        except Exception as error:  # whatever mutagen throws is a fault of the file
            fault(name, "mutagen:", repr(error))
            continue
        for key, wanted in WANTED.items():
            if facts[key] != wanted and (name, key) not in REASONS:
                fault(name, "mutagen reads", key, repr(facts[key])[:100])
        old, new = raw_tags.File(before[name]), raw_tags.File(after[name])
        if old.version in (3, 4):
            hidden = [frame for frame in old.frames if frame[0] not in SHOWN]
            if hidden != [frame for frame in new.frames if frame[0] not in SHOWN]:
                fault(name, "hidden frames changed")
        if old.head and old.sound not in after[name]:
            fault(name, "other bytes changed")
    read = subprocess.run([taglib, "read", *(os.path.join(folder, name) for name in changed)], capture_output=True)
    for name, line in zip(changed, read.stdout.decode("utf8", "replace").splitlines()):
        facts = json.loads(line)
        for key in ("TIT2", "TPE1", "TALB", "TYER"):
            if facts["frames"].get(key) != TEXTS[key] and (name, key) not in REASONS_OF_TAGLIB:
                fault(name, "TagLib reads", key, repr(facts["frames"].get(key))[:100])
    for name in refused:
        old = raw_tags.File(before[name])
        if raw_tags.File(after[name]).head != old.head or old.sound not in after[name]:
            fault(name, "was refused and changed")
    return after


def main():
    qublet, taglib = sys.argv[1:]
    with tempfile.TemporaryDirectory(prefix="qublet-editor-", dir="/dev/shm" if os.path.isdir("/dev/shm") else None) as root:
        drives, folder = os.path.join(root, "drives"), os.path.join(root, "music")
        os.makedirs(drives)
        os.makedirs(folder)
        os.symlink("/", os.path.join(drives, "z:"))
        environment = {**os.environ, "QUBLET_DOSDEVICES": drives, "XDG_DATA_HOME": os.path.join(root, "data"),
                       "XDG_CONFIG_HOME": os.path.join(root, "config"), "LC_ALL": "C.UTF-8"}
        source = os.path.join(root, "source.mp3")
        make_source(source)
        tag_corpus.make(folder)
        names = [name for name in sorted(os.listdir(folder)) if name.endswith(".mp3")]
        before = contents(folder, names)
        paths = [os.path.join(folder, name) for name in names]
        update = [qublet, "tag", "--copy-from", source, *paths]

        def undo():
            return subprocess.run([qublet, "tag", "--undo", "last"], env=environment, capture_output=True)

        done = subprocess.run(update, env=environment, capture_output=True)
        told = done.stderr.decode("utf8", "replace").splitlines()
        refused = {os.path.basename(line.split(": ")[1]) for line in told}
        after = check_update(folder, taglib, before, refused)
        print(f"{len(names)} files, {len(refused)} refused")
        if len(refused) > len(names) // 10:
            fault("too many files were refused:", told[:5])
        undone = undo()
        if undone.returncode != 0:
            fault("the undo left files:", undone.stderr.decode()[:500])
        for name, data in contents(folder, names).items():
            if data != before[name]:
                fault(name, "isn't what it was after the undo")

        killed = 0
        for seconds in KILLS:
            put_back(folder, before)
            run = subprocess.Popen(update, env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            time.sleep(seconds)
            run.send_signal(signal.SIGKILL)
            killed += run.wait() == -signal.SIGKILL
            now = contents(folder, names)
            for name in names:
                if now[name] not in (before[name], after[name]):
                    fault(name, "is neither old nor new after a kill")
            if now != before:
                undo()
            for name, data in contents(folder, names).items():
                if data != before[name]:
                    fault(name, "isn't what it was after a kill and the undo")
        print(f"killed in the middle: {killed} of {len(KILLS)}")
        if killed == 0:
            fault("nothing was killed")
    print("\n".join(faults))
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
