"""Why a judge of tag_rule.py reads something else after an edit that is right, and why a write is refused."""

import collections
import fnmatch

# (shapes, edits, judges, keys, what): the reason. Alternatives are parted by "|".
REASONS = {
    # What the judges misread before the edit.
    ("* v23 *tag:unsync,extended*", "*", "mutagen", "*", "changed|lost"):
        "it reads on behind the tag and takes the audio for a proof that nothing is unsynchronised",
    ("*extended*behind:cut frame|*extended*behind:junk", "*", "mutagen", "TCOM", "changed|lost"):
        "it reads on behind the tag, so that a frame which the tag's end cuts off has audio in it",
    ("*footer*behind:cut frame", "*", "mutagen", "TCOM", "changed|lost"):
        "it takes the footer for a part of the frame that the tag's end cuts off",
    ("sized v22 *|between v22 *", "*", "TagLib", "odd CM1|odd XY1|QQQ", "changed"):
        "it leaves out the first byte of a frame of ID3v2.2 that it doesn't know",
    ("sized v2[34] *frame:*secret*|sized v24 *frame:*group*|compressed v24 *group*", "*", "TagLib", "odd *",
     "changed|lost"):
        "it reads on behind a frame that it can't resolve, or where it takes the group for a length",
    ("sized * size:0 *|sized * size:1 *|between * empty_frame|compressed * empty *", "*", "TagLib", "*", "not shown"):
        "it stops at a frame without content",
    ("dates v22 *", "*", "TagLib", "TDA|TIM|TDRC", "lost|changed"):
        "it doesn't know the day in ID3v2.2 and makes it a part of the year in ID3v2.3",
    ("old ids v24 *|old ids v23 blank *", "*", "TagLib", "*", "not shown"):
        "it stops at a frame with an id of three letters",
    ("wrong sizes v23 *", "*", "TagLib|mutagen", "*", "changed|lost"): "they know wrong sizes in ID3v2.4 only",
    ("wrong sizes v24 *", "*", "TagLib", "APIC:*", "changed"):
        "it takes plain sizes only where another frame follows",
    ("odd comments *", "change url", "mutagen", "odd WXXX", "not shown"):
        "it shows the last of several frames that are alike in their description",
    ("sized v22 * size:1 APIC *", "*", "TagLib", "odd APIC:", "lost"): "it shows broken frames as empty",
    ("link v22", "*", "TagLib", "LNK", "lost"): "it doesn't know links, so that the frame goes by its new name",
    ("behind garbage *", "*", "mutagen", "*", "not shown"): "it reads no tag that doesn't stand at the file's start",
    ("between v2[34] odd_id", "*", "TagLib", "*", "not shown"): "it stops at an id that is none",
    ("claims v23 unsync", "*", "TagLib", "*", "changed|lost"): "it undoes an unsynchronisation that was only claimed",
}

# What is so seldom that only a long run needs it.
SELDOM = {
    ("sized v24 *behind:[!c]*", "*", "mutagen", "TCOM", "changed|lost"):
        "it takes the sizes for plain ones and finds frames inside another one",
    ("compressed v23 * cut *", "*", "TagLib", "odd *", "changed"): "it shows something else of broken bytes each time",
    ("claims * version", "change v1", "bytes", "", "half done"):
        "a tag of an unknown version isn't written, but the ID3v1 step was done by then",
    ("odd comments *", "change url|change lyrics", "TagLib", "odd *", "changed"):
        "it shows a broken frame as one without a description, so that the edit seems to be about another",
    ("old ids v24 *", "*", "TagLib", "APIC:*|TALB", "changed"):
        "it takes the size before an id of three letters for a plain one",
    ("wrong sizes v24 *", "*", "mutagen", "APIC:*", "lost"):
        "where too little speaks for plain sizes it takes them for sync-safe ones",
}
LONG_RUN = 50000

# (shapes, edits, the most of a thousand such edits that may be): why the write is refused.
REFUSALS = {
    ("overrun *", "*", 1000): "a tag that claims more than the file has no end that one could know",
    ("claims * version", "*", 1000): "a tag of an unknown version is kept as it is",
    ("wrong sizes v24 *", "*", 160): "the old or the new tag could be read by both forms of sizes",
    ("sized v24 *", "*", 5): "the new tag could be read by both forms of sizes",
}
SELDOM_REFUSALS = {"wrong sizes v24 *", "sized v24 *"}


def fits(text, patterns):
    return any(fnmatch.fnmatchcase(text, one) for one in patterns.split("|"))


class ReasonTable:
    """Which reasons there are, and which of them were needed."""

    def __init__(self):
        self.reasons = [*REASONS, *SELDOM, *((shapes, edits, "write", "", "refused") for shapes, edits, _ in REFUSALS)]
        self.used = collections.Counter()

    def excuses(self, fault):
        facts = (fault.shape, fault.edit, fault.judge, fault.key, fault.what)
        found = [reason for reason in self.reasons if all(map(fits, facts, reason))]
        self.used.update(found)
        return bool(found)

    def unused(self, files):
        seldom = {*SELDOM, *((shapes, "*", "write", "", "refused") for shapes in SELDOM_REFUSALS)}
        return [f"no file needs the reason {reason}" for reason in self.reasons
                if reason not in self.used and (reason not in seldom or files >= LONG_RUN)]

    def too_many(self, trials):
        """Refusals that are more than a reason allows; `trials` are (shape, edit) of all."""
        for shapes, edits, share in REFUSALS:
            tried = sum(fits(shape, shapes) and fits(edit, edits) for shape, edit in trials)
            refused = self.used[shapes, edits, "write", "", "refused"]
            # One is never too many: a run of few files has few such edits.
            if refused > max(1, tried * share // 1000):
                yield f"{refused} of {tried} edits refused: {shapes}"
