#!/usr/bin/python3
"""Holds thousands of edits of tags of every shape to one rule:

    tag_rule.py TAG_TOOL TAGLIB_TOOL [--files N] [--seed N] [--table] [--all] [--keep FOLDER] [--only NUMBER]

What TagLib, mutagen or we read of other frames before, they read unchanged after, and all other bytes of the file stay;
or the write was refused, and the file is the same. What differs has its reason in tag_rule_reasons.py; so has every
refusal; a reason that no file needs is an error (in a run of 5,000 files and more).

The same seed gives the same files and edits. --all shows every fault instead of an example of each kind, --keep leaves
the files of these examples in a folder, and --table prints what a change of the title does when it is written by us
and when it is written by TagLib.
"""

import argparse
import collections
import multiprocessing
import os
import random
import subprocess
import sys
import tempfile

import tag_readings
import tag_shapes
from tag_edits import EDITS, SAME, TITLE
from tag_odd_shapes import ODD_SHAPES
from tag_rule_reasons import ReasonTable

IN_MEMORY = "/dev/shm" if os.access("/dev/shm", os.W_OK) else None
CHUNK = 250
EDITS_A_FILE = 2
ENOUGH_FILES = 5000


def shape_of(seed, number):
    chance = random.Random(f"{seed}/{number}")
    odd = number % 2 == 1
    return ODD_SHAPES[number // 2 % len(ODD_SHAPES)](chance) if odd else tag_shapes.sized_shape(chance)


def edits_of(seed, number, table):
    if table:
        return [TITLE]
    chance = random.Random(f"edits {seed}/{number}")
    return [SAME, *chance.sample(EDITS, EDITS_A_FILE)]


class Fault:
    """`key` begins with "odd " where it belongs to what is special about the file."""

    def __init__(self, number, shape, edit, judge, key, what, details=""):
        self.number, self.shape, self.edit, self.judge = number, shape.name, edit.name, judge
        self.key = "odd " * (key.split(":")[0].lstrip("?") in shape.odd_ids()) + key
        self.what, self.details = what, details

    def kind(self):
        """What faults of one cause have in common, more or less."""
        words = self.shape.split()
        behind = self.shape[self.shape.find("behind:"):] if "behind:" in self.shape else ""
        return (" ".join(words[:4 if words[0] != "sized" else 2]) + " " + behind, self.judge, self.what,
                self.key.split(":")[0] if self.key.startswith("odd") else "")

    def __str__(self):
        return f"{self.number} [{self.shape}] {self.edit}: {self.judge} {self.key} {self.what} {self.details}"


# --- the rule ---

def differences(before, after, edit):
    """(key, "changed" or "lost", details) of what the edit isn't about."""
    for key, contents in before.items():
        if edit.touches(key, before):
            continue
        now = after.get(key)
        if now is None:
            yield key, "lost", contents
        elif sorted(map(str, now)) != sorted(map(str, contents)):
            yield key, "changed", f"{contents} -> {now}"


def invented(old, before, after, edit):
    """Frames of an id that the file didn't hold."""
    if b"ID3" not in old:
        return
    for judge, reading in after.items():
        for key, contents in reading.items():
            start = key.split(":")[0].lstrip("?")
            known = (start in ("V1", "TDRC", "TYER", "tail") or start in {one.split(":")[0] for one in before[judge]} or
                     start.encode() in old or tag_shapes.name_in(2, start).encode() in old)
            if not known and not edit.touches(key, reading):
                yield judge, key, "appeared", contents


def other_bytes(shape, edit, old, new):
    """What is wrong with the bytes that the edit isn't about, "" if nothing is."""
    if edit.words == ("remove", "v1"):
        return "" if new in (old, old[:len(old) - len(shape.v1)]) else "more than ID3v1 went"
    if edit.words == ("remove", "v2"):
        return "" if new in (old, shape.front + shape.rest(), shape.rest()) else "other bytes than the tags went"
    if edit.in_v1():
        kept = old[:len(old) - len(shape.v1)]
        if new[:-128] not in (kept, old) or new[-128:-125] != b"TAG":
            return "other bytes than ID3v1 changed"
        full = len(shape.v1) == 128
        return "other fields of ID3v1 changed" if full and new[-95:] != old[-95:] else ""
    rest = b"".join(shape.tags[1:]) + shape.rest()
    if not new.endswith(rest):
        return "bytes behind the tag changed"
    if not new.startswith(shape.front):
        return "bytes before the tag changed"
    head = new[len(shape.front):len(new) - len(rest)]
    size = sum(byte << shift for byte, shift in zip(head[6:10], (21, 14, 7, 0)))
    extent = size + (20 if head[3:4] == b"\4" and head[5] & 0x10 else 10)
    return "" if head[:3] == b"ID3" and extent == len(head) else "the tag's length is wrong"


def shows(edit, after):
    """The new text stands where it was put. (A reading shows only short texts whole.)"""
    if len(edit.text) not in range(1, 60) or edit.field in ("Comments", "Covers") or edit.in_v1():
        return True
    wanted = [key for key in after if edit.touches(key, after) or key.startswith(edit.field)]
    return any(edit.text in key + str(content) for key in wanted for content in after[key])


# --- a chunk of files ---

class Trial:
    """A copy of a file for one edit."""

    def __init__(self, number, shape, edit, path):
        self.number, self.shape, self.edit, self.path = number, shape, edit, path
        self.old = shape.data()
        with open(path, "wb") as file:
            file.write(self.old)

    def load(self):
        with open(self.path, "rb") as file:
            self.new = file.read()


def batch(tool, lines):
    done = subprocess.run([tool, "batch"], input="\n".join(map("\t".join, lines)) + "\n", capture_output=True,
                          encoding="utf8", check=True)
    answers = done.stdout.split("\n")[:-1]
    assert len(answers) == len(lines), done.stderr
    return answers


def read_all(tools, paths, datas):
    """{judge: a reading for each path}"""
    ours = batch(tools[0], [("read", path) for path in paths]) if paths else []
    return {"TagLib": tag_readings.by_taglib(tools[1], paths) if paths else [],
            "mutagen": tag_readings.by_mutagen(datas), "ours": list(map(tag_readings.our_reading, ours))}


def write(tools, writer, trials):
    if writer == "ours":
        return batch(tools[0], [(*trial.edit.words, trial.path) for trial in trials])
    title = trials[0].edit.text
    done = subprocess.run([tools[1], "title", title, *(trial.path for trial in trials)], capture_output=True, text=True,
                          check=True)
    return done.stdout.splitlines()


def judge_trial(trial, before, after):
    fault = lambda *words: Fault(trial.number, trial.shape, trial.edit, *words)
    wrong = other_bytes(trial.shape, trial.edit, trial.old, trial.new)
    if wrong:
        yield fault("bytes", "", wrong)
    for judge in before:
        for key, what, details in differences(before[judge], after[judge], trial.edit):
            yield fault(judge, key, what, details)
        if not shows(trial.edit, after[judge]):
            yield fault(judge, trial.edit.field, "not shown")
    for difference in invented(trial.old, before, after, trial.edit):
        yield fault(*difference)


def try_chunk(job):
    """The faults and refusals of some files, before any reason is asked for."""
    tools, writer, seed, numbers, table = job
    with tempfile.TemporaryDirectory(prefix="qublet-rule-", dir=IN_MEMORY) as folder:
        trials, originals = [], []
        for number in numbers:
            shape = shape_of(seed, number)
            originals.append(Trial(number, shape, SAME, os.path.join(folder, f"{number}.mp3")))
            trials += [Trial(number, shape, edit, os.path.join(folder, f"{number}_{i}.mp3"))
                       for i, edit in enumerate(edits_of(seed, number, table))]
        answers = write(tools, writer, trials)
        faults, changed = [], []
        for trial, answer in zip(trials, answers, strict=True):
            trial.load()
            if answer == "refused":
                faults.append(Fault(trial.number, trial.shape, trial.edit, "write", "", "refused"))
            if answer == "refused" or trial.edit == SAME:
                if trial.new != trial.old:
                    what = other_bytes(trial.shape, trial.edit, trial.old, trial.new) or "half done"
                    faults.append(Fault(trial.number, trial.shape, trial.edit, "bytes", "", what))
            elif trial.new != trial.old:
                changed.append(trial)
        before = read_all(tools, [one.path for one in originals], [one.old for one in originals])
        after = read_all(tools, [one.path for one in changed], [one.new for one in changed])
        place = {number: i for i, number in enumerate(numbers)}
        for i, trial in enumerate(changed):
            faults += judge_trial(trial, {judge: before[judge][place[trial.number]] for judge in before},
                                  {judge: after[judge][i] for judge in after})
        return [(trial.shape.name, trial.edit.name) for trial in trials], len(changed), faults


def try_all(options, writer="ours", table=False):
    numbers = [options.only] if options.only is not None else range(options.files)
    jobs = [((options.tag_tool, options.taglib_tool), writer, options.seed, numbers[at:at + CHUNK], table)
            for at in range(0, len(numbers), CHUNK)]
    with multiprocessing.Pool(options.processes) as pool:
        yield from pool.imap_unordered(try_chunk, jobs)


# --- what is said of it ---

def missing_pairs(names):
    """Pairs of a version and what it must have been tried with that no file has."""
    sized = [set(name.split()) | {name[name.find("behind:"):]} for name in names if name.startswith("sized")]
    for version, flags in tag_shapes.FRAME_FLAGS.items():
        wanted = [*tag_shapes.CODECS, *(f"size:{size}" for size in tag_shapes.SIZES),
                  *(f"behind:{behind}" for behind in tag_shapes.BEHIND),
                  *tag_shapes.combinations("tag:", tag_shapes.TAG_FLAGS[version]),
                  *tag_shapes.combinations("frame:", flags)]
        for one in wanted:
            if not any({f"v2{version}", one} <= words for words in sized):
                yield f"no file of version 2.{version} with {one}"


def show_faults(options, faults):
    kinds = collections.defaultdict(list)
    for fault in faults:
        kinds[fault.kind()].append(fault)
    for kind, found in sorted(kinds.items(), key=lambda item: -len(item[1])):
        files = len({fault.number for fault in found})
        print(f"{files} files: {' | '.join(kind)}")
        for fault in found if options.all else found[:2]:
            print("   ", str(fault)[:420])
        if options.keep:
            os.makedirs(options.keep, exist_ok=True)
            for fault in found[:2]:
                with open(os.path.join(options.keep, f"{fault.number}.mp3"), "wb") as file:
                    file.write(shape_of(options.seed, fault.number).data())


def run_rule(options):
    table = ReasonTable()
    trials, changed, faults = [], 0, []
    for tried, written, found in try_all(options):
        trials += tried
        changed += written
        faults += [fault for fault in found if not table.excuses(fault)]
    names = [shape for shape, edit in trials if edit == SAME.name]
    wrong = []
    if len(names) >= ENOUGH_FILES:
        wrong = [*table.unused(len(names)), *table.too_many(trials), *missing_pairs(names)]
    print(f"{len(names)} files, {len(trials)} edits, {changed} of them changed the file, {len(table.reasons)} reasons, "
          f"{len(faults)} faults in {len({fault.number for fault in faults})} files")
    show_faults(options, faults)
    print("\n".join(wrong))
    return 1 if faults or wrong else 0


def run_table(options):
    """By what TagLib and mutagen read; behind each figure the frames that it is about most."""
    for writer in ("ours", "TagLib"):
        reasons = ReasonTable()
        files, numbers, ids = 0, collections.defaultdict(set), collections.defaultdict(set)
        for tried, _, faults in try_all(options, writer, True):
            files += len(tried)
            for fault in faults:
                # The stored bytes of a frame that a judge doesn't know may be others with the same meaning.
                stored = "?" in fault.key and fault.what == "changed"
                if fault.judge != "ours" and not stored and (fault.what == "refused" or not reasons.excuses(fault)):
                    kind = "other bytes" if fault.judge == "bytes" else fault.what
                    numbers[kind].add(fault.number)
                    ids[kind, fault.key.removeprefix("odd ").split(":")[0].lstrip("?")].add(fault.number)
        print(f"{writer}, the title of {files} files changed:")
        for kind in ("changed", "lost", "other bytes", "refused"):
            most = sorted(((len(found), key) for (one, key), found in ids.items() if one == kind and key), reverse=True)
            but_for_first = set().union(*(found for (one, key), found in ids.items()
                                          if one == kind and (not most or key != most[0][1])))
            print(f"    {kind}: {len(numbers[kind])}", ", ".join(f"{key} {count}" for count, key in most[:6]),
                  f"({len(but_for_first)} but for {most[0][1]})" if most else "")
    return 0


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("tag_tool")
    parser.add_argument("taglib_tool")
    parser.add_argument("--files", type=int, default=ENOUGH_FILES)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--only", type=int)
    parser.add_argument("--processes", type=int, default=2)
    parser.add_argument("--keep")
    parser.add_argument("--all", action="store_true")
    parser.add_argument("--table", action="store_true")
    options = parser.parse_args()
    return run_table(options) if options.table else run_rule(options)


if __name__ == "__main__":
    sys.exit(main())
