#!/usr/bin/python3
"""Holds our tags against TagLib and mutagen: tag_judges.py TAG_TOOL TAGLIB_TOOL

For every file of tag_corpus.py:
- every field reads as both judges read it, but for the differences in REASONS;
- taking all values out and putting them back in leaves the file identical;
- a change of one field changes that frame and nothing else, and the judges read what was set;
- adding and removing tags leaves every other byte of the file alone.
"""

import fnmatch
import json
import os
import shutil
import subprocess
import sys
import tempfile

from mutagen import MutagenError
from mutagen.id3 import ID3

import raw_tags
import tag_corpus

FRAMES = ("TIT2", "TPE1", "TALB", "TYER", "TRCK", "TCON", "TCOM", "TOPE", "TCOP", "TENC", "WXXX", "WOAR", "TXXX",
          "USLT")
V1_FIELDS = ("V1Title", "V1Artist", "V1Album", "V1Year", "V1Comment", "V1Track", "V1Genre")
PROPERTIES = ("MusicMatch_Preference", "MusicMatch_Mood", "MusicMatch_Tempo", "MusicMatch_Situation")

# (files, judges, fields): why they say something else. A reason that no file needs is an error.
REASONS = {
    # ID3v1
    ("*utf8*.mp3 ffmpeg_*_1_?.mp3", "TagLib mutagen", "V1Title V1Artist"): "UTF-8 in ID3v1 is read as UTF-8 by us",
    ("v1_windows1252*.mp3", "TagLib mutagen", "V1Title"): "the letters of Windows-1252 are no control characters to us",
    ("v1_leading_blanks*.mp3", "TagLib mutagen", "V1Title"): "blanks at the start are part of the text",
    ("lame_blank_padded.mp3", "TagLib", "V1Comment"): "blanks at the end are padding, in the comment as well",
    ("v1_odd_year*.mp3 v1_short_year*.mp3", "TagLib mutagen", "V1Year"): "they take the year for a number",
    ("v1_full.mp3 v1_full_behind_v2.mp3", "mutagen", "V1Comment V1Track"):
        "it takes the last letter of a comment of 30 for a track number",
    ("ape_that_looks_like_v1.mp3", "mutagen", "has_v1 V1*"): "the three letters of an APE tag are no ID3v1 tag",
    ("v1_inside_v2.mp3", "TagLib mutagen", "has_v1 V1*"): "what stands inside the ID3v2 tag is no ID3v1 tag",
    # texts
    ("text_*genre_*.mp3", "TagLib", "TCON"): "it makes names and numbers of genres",
    ("text_*year_*.mp3", "TagLib mutagen", "TYER"): "they take the year for a date, or don't look for the other frame",
    ("*", "TagLib", "TXXX"): "it takes the text of a frame without a description for the description",
    ("text_*_empty_value_in_front.mp3", "TagLib", "TPE1"): "it drops empty values",
    ("text_*_utf16_without_mark.mp3", "TagLib", "TPE1"): "it shows no UTF-16 without a mark",
    ("text_*_utf16_half_pair.mp3 text_*_utf8_broken.mp3", "TagLib mutagen", "TPE1"): "they show no broken text at all",
    ("text_*_utf16_odd_length.mp3", "mutagen", "TPE1"): "it makes a letter of half of one",
    ("text_*_bad_encoding.mp3", "TagLib", "TPE1"): "it reads a text whose encoding doesn't exist",
    ("text_*_url_utf8.mp3", "TagLib mutagen", "WOAR"): "UTF-8 in a URL is read as UTF-8 by us",
    ("v2?_title_twice.mp3", "TagLib", "TIT2"): "it shows one of several frames",
    # frames
    ("v2[34]_compressed*.mp3", "TagLib mutagen", "TIT2 comments"): "compressed frames are kept, not shown",
    ("v2[34]_grouped*.mp3", "TagLib mutagen", "TIT2"): "they take the group for a part of the content",
    ("text_*_zero_size.mp3", "TagLib", "T* W* USLT comments properties images"): "it stops at a frame without content",
    ("v24_with_PIC.mp3", "TagLib", "T* W* USLT comments properties images"): "it stops at a frame with an id of three letters",
    ("v23_with_PIC.mp3", "TagLib", "images"): "it shows a frame with an id of three letters as an empty picture",
    ("v2[34]_frame_beyond_tag.mp3 v22_frame_beyond_tag.mp3", "mutagen", "TPE1"): "it shows a frame that the tag's end cuts off",
    ("text_*_comment_*.mp3 text_*_picture_too_short.mp3", "TagLib", "comments images"): "it shows broken frames as empty",
    ("v2?_comments_empty_descriptions*.mp3 random_*.mp3", "mutagen", "comments"):
        "it joins or drops comments that are alike in language and description",
    ("v2?_comments_empty_text_latin1.mp3", "TagLib mutagen", "comments"): "they lose a comment without a text",
    # ID3v2.2
    ("v22_*.mp3 random_*.mp3", "mutagen", "images"): "it leaves a picture's old format as it is",
    ("v22_*.mp3 random_*.mp3", "TagLib", "TOPE"): "it doesn't know this frame in ID3v2.2",
    ("v22_picture_*.mp3 v22_with_odd_frames.mp3", "TagLib", "images"): "it leaves a picture's old format in capitals",
    # the tag as a whole
    ("v23_extended_header*.mp3", "TagLib", "T* W* USLT comments properties images"): "it can't read an extended header of ID3v2.3",
    ("v23_extended_header_unsynchronised.mp3", "mutagen", "T* W* USLT comments properties images"):
        "it reads on behind the tag and takes the audio for a proof that nothing is unsynchronised",
    ("v2[34]_claimed_unsynchronisation.mp3 v24_*_unsynchronised.mp3", "TagLib", "T* W* USLT comments properties images"):
        "it undoes an unsynchronisation that was only claimed",
    ("v23_claims_more_than_the_file*.mp3", "mutagen", "has_v2 TIT2"): "it doesn't read a tag that is longer than the file",
    ("v23_syncsafe_sizes_*.mp3", "TagLib mutagen", "TPE1 images"): "they know wrong sizes in ID3v2.4 only",
}


# Thousands of files are flushed to disk below.
IN_MEMORY = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None


def run(*words):
    done = subprocess.run(words, capture_output=True, text=True)
    return done.returncode, done.stdout, done.stderr.splitlines()


# --- what each one reads, as {field: value} ---

def flat(answer):
    facts = {"has_v1": answer["has_v1"], "has_v2": answer["has_v2"], **answer["frames"]}
    if answer["has_v1"]:
        facts |= dict(zip(V1_FIELDS, answer["v1"]))
    comments = [tuple(comment) for comment in answer["comments"]]
    facts["comments"] = [comment for comment in comments if comment[0] not in PROPERTIES]
    facts["properties"] = answer.get("properties") or [
        next((text for description, text in comments if description == name), "") for name in PROPERTIES]
    facts["images"] = [tuple(image) for image in answer["images"]]
    return facts


def read_by_tool(tool, folder, names):
    _, out, errors = run(tool, "read", *(os.path.join(folder, name) for name in names))
    assert not errors, errors
    return dict(zip(names, map(flat, map(json.loads, out.splitlines()))))


def values(frame):
    texts = [str(text) for text in frame.text]
    while texts and not texts[-1]:
        texts.pop()
    return "/".join(texts)


def pick(frames, first_does):
    return next((frame for frame in frames if not frame.desc), frames[0] if frames and first_does else None)


def mutagen_v2(tags):
    frames = {}
    for name in FRAMES:
        found = tags.getall(name)
        if name == "TYER":
            newest = tags.version >= (2, 4, 0)
            found = tags.getall("TDRC" if newest else "TYER") or tags.getall("TYER" if newest else "TDRC")
        if name == "TXXX":
            one = pick(found, False)
            frames[name] = values(one) if one else ""
        elif name == "WXXX":
            one = pick(found, True)
            frames[name] = one.url if one else ""
        elif name == "USLT":
            one = pick(found, True)
            frames[name] = one.text if one else ""
        elif name == "WOAR":
            frames[name] = found[0].url if found else ""
        else:
            frames[name] = values(found[0]) if found else ""
    return {"frames": frames, "comments": [(one.desc, values(one)) for one in tags.getall("COMM")],
            "images": [(one.desc, len(one.data), one.mime) for one in tags.getall("APIC")]}


def mutagen_v1(path):
    with open(path, "rb") as file:
        data = file.read()[-128:]
    if data[:3] != b"TAG" or len(data) < 128:
        return {"has_v1": False, "v1": []}
    # mutagen.id3.ParseID3v1 leaves out empty fields and makes frames of the others.
    from mutagen.id3 import ParseID3v1
    tags = ParseID3v1(data)
    text = lambda name: str(tags[name]) if name in tags else ""
    comment = next((str(tags[key]) for key in tags if key.startswith("COMM")), "")
    genre = int(tags["TCON"].text[0]) if "TCON" in tags and tags["TCON"].text[0].isdigit() else data[127]
    return {"has_v1": True, "v1": [text("TIT2"), text("TPE1"), text("TALB"), text("TYER") or text("TDRC"), comment,
                                   int(text("TRCK") or 0), genre]}


def read_by_mutagen(folder, names):
    facts = {}
    for name in names:
        path = os.path.join(folder, name)
        answer = mutagen_v1(path)
        try:
            answer |= {"has_v2": True, **mutagen_v2(ID3(path, translate=False, load_v1=False))}
        except MutagenError as error:
            answer |= {"has_v2": False, "frames": dict.fromkeys(FRAMES, ""), "comments": [], "images": [],
                       "error": str(error)}
        facts[name] = flat(answer)
    return facts


class Judgement:
    def __init__(self, taglib):
        self.taglib = taglib
        self.faults = []
        self.used = set()
        self.compared = 0

    def fault(self, *words):
        self.faults.append(" ".join(map(str, words)))

    def excused(self, name, judge, fact):
        found = False
        for reason in REASONS:
            files, judges, facts = reason
            matches = lambda text, patterns: any(fnmatch.fnmatchcase(text, one) for one in patterns.split())
            if matches(name, files) and judge in judges.split() and matches(fact, facts):
                self.used.add(reason)
                found = True
        return found

    def compare(self, ours, folder, names, moment="read"):
        for judge, theirs in (("TagLib", read_by_tool(self.taglib, folder, names)),
                              ("mutagen", read_by_mutagen(folder, names))):
            for name in names:
                for fact, value in theirs[name].items():
                    self.compared += 1
                    if ours[name].get(fact) != value and not self.excused(name, judge, fact):
                        self.fault(name, moment, fact, "| ours:", repr(ours[name].get(fact))[:150], f"| {judge}:",
                                   repr(value)[:150])


def contents(folder, names):
    return {name: open(os.path.join(folder, name), "rb").read() for name in names}


def copies(source, folder, names):
    shutil.rmtree(folder, ignore_errors=True)
    os.makedirs(folder)
    for name in names:
        shutil.copyfile(os.path.join(source, name), os.path.join(folder, name))


def check_same(judgement, tool, source, folder, before):
    copies(source, folder, before)
    _, _, failed = run(tool, "same", *(os.path.join(folder, name) for name in before))
    for path in failed:
        judgement.fault(path, "an update that changes nothing failed")
    after = contents(folder, before)
    for name in before:
        if after[name] != before[name]:
            judgement.fault(name, "an update that changes nothing changed the file")


def check_change(judgement, tool, source, folder, before, field, text, allowed):
    """`allowed` are the ids of frames that may differ."""
    copies(source, folder, before)
    _, _, failed = run(tool, "set", field, text, *(os.path.join(folder, name) for name in before))
    after = contents(folder, before)
    # A tag that claims to be longer than the file can't be changed; nor does the file change then.
    failed = {os.path.basename(path) for path in failed}
    for name in failed:
        if "claims_more" not in name or after[name] != before[name]:
            judgement.fault(name, field, "the change failed")
    names = [name for name in before if name not in failed]
    for name in names:
        old, new = raw_tags.File(before[name]), raw_tags.File(after[name])
        if old.sound != new.sound:
            judgement.fault(name, field, "other bytes than the tags changed")
        if field.startswith("V1"):
            if old.head != new.head:
                judgement.fault(name, field, "the ID3v2 tag changed")
            continue
        if old.v1 != new.v1:
            judgement.fault(name, field, "the ID3v1 tag changed")
        if old.head == new.head:
            continue
        if new.version != (4 if old.version == 4 else 3):
            judgement.fault(name, field, "version", old.version, "became", new.version)
        if old.version in (0, 2):
            continue
        kept = [frame for frame in old.frames if frame[0] not in allowed]
        if kept != [frame for frame in new.frames if frame[0] not in allowed] or old.junk != new.junk:
            judgement.fault(name, field, "other frames changed", kept, new.frames)
    ours = read_by_tool(tool, folder, names)
    judgement.compare(ours, folder, names, f"after {field}={text}")
    return ours


def check_changes(judgement, tool, source, folder, before):
    letters = "Новое ☃ 😀"
    for field, text in (("TIT2", letters), ("TPE1", ""), ("TYER", "2011"), ("WXXX", "http://new"), ("WOAR", ""),
                        ("TXXX", "new"), ("USLT", "la\nlé"), ("TCON", "Neu")):
        allowed = ("TYER", "TDRC") if field == "TYER" else (field,)
        ours = check_change(judgement, tool, source, folder, before, field, text, allowed)
        for name, facts in ours.items():
            if facts[field] != text:
                judgement.fault(name, field, "is", repr(facts[field]), "after it was set")
            if field == "TYER" and len([one for one in raw_tags.File(contents(folder, [name])[name]).frames
                                        if one[0] in ("TYER", "TDRC")]) != 1:
                judgement.fault(name, "has more than one year")
    ours = check_change(judgement, tool, source, folder, before, "Mood", letters, ("COMM",))
    for name, facts in ours.items():
        if facts["properties"][1] != letters:
            judgement.fault(name, "the mood is", facts["properties"])
    ours = check_change(judgement, tool, source, folder, before, "Comment", letters, ("COMM",))
    for name, facts in ours.items():
        if facts["comments"][-1] != ("added", letters):
            judgement.fault(name, "the comments are", facts["comments"])
    ours = check_change(judgement, tool, source, folder, before, "Cover", letters, ("APIC",))
    for name, facts in ours.items():
        if facts["images"][-1] != (letters, 5, "image/bmp"):
            judgement.fault(name, "the pictures are", facts["images"])
    ours = check_change(judgement, tool, source, folder, before, "V1Title", "New title", ())
    for name, facts in ours.items():
        if facts["V1Title"] != "New title":
            judgement.fault(name, "the ID3v1 title is", facts["V1Title"])


def check_removal(judgement, tool, source, folder, before):
    for which in ("v1", "v2"):
        copies(source, folder, before)
        _, _, failed = run(tool, "remove", which, *(os.path.join(folder, name) for name in before))
        refused = set(fnmatch.filter(before, "*claims_more*" if which == "v2" else "*claims_more*_v1.mp3"))
        for name in {os.path.basename(path) for path in failed} ^ refused:
            judgement.fault(name, which, "the removal failed, or should have")
        after = contents(folder, before)
        for name in before:
            if name in refused:
                continue
            old = raw_tags.File(before[name])
            wanted = old.head + old.sound if which == "v1" else old.sound_alone + old.v1
            if after[name] != wanted:
                judgement.fault(name, "the removal of", which, "changed other bytes")


def main():
    tool, taglib = sys.argv[1:]
    judgement = Judgement(taglib)
    with tempfile.TemporaryDirectory(prefix="qublet-judges-", dir=IN_MEMORY) as root:
        source, folder = os.path.join(root, "corpus"), os.path.join(root, "changed")
        os.makedirs(source)
        tag_corpus.make(source)
        for number in range(16):
            with open(os.path.join(source, f"taglib_{number}.mp3"), "wb") as file:
                file.write(tag_corpus.audio() + (tag_corpus.v1() if number % 3 == 0 else b""))
        assert run(taglib, "make", source)[0] == 0
        names = sorted(os.listdir(source))
        before = contents(source, names)
        judgement.compare(read_by_tool(tool, source, names), source, names)
        check_same(judgement, tool, source, folder, before)
        check_changes(judgement, tool, source, folder, before)
        check_removal(judgement, tool, source, folder, before)

    for reason in REASONS:
        if reason not in judgement.used:
            judgement.fault("no file needs the reason", reason)
    print(f"{len(names)} files, {judgement.compared} fields compared, {len(REASONS)} reasons for differences")
    print("\n".join(judgement.faults))
    sys.exit(1 if judgement.faults else 0)


if __name__ == "__main__":
    main()
