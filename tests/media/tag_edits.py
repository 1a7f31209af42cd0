"""The changes that the tag editor makes, each with the part of a reading (see tag_readings.py) that it is about."""

from dataclasses import dataclass

YEAR = ("TYER", "TDRC", "TDAT", "TIME", "?TYE", "?TDA", "?TIM")
PROPERTY = "COMM:MusicMatch_"


@dataclass(frozen=True)
class Edit:
    name: str
    words: tuple  # of tag_tool, without the file

    @property
    def field(self):
        return self.words[1] if self.words[0] == "set" else ""

    @property
    def text(self):
        return self.words[2] if self.words[0] == "set" else ""

    def in_v1(self):
        return self.field == "V1Title" or self.words == ("remove", "v1")

    def touches(self, key, before):
        """Whether what was read under this key may be another after the edit. `before` is the whole reading."""
        if self.words == ("remove", "v2"):
            return not key.startswith("V1:")
        if self.words == ("remove", "v1"):
            return key.startswith("V1:")
        if self.words == ("same",):
            return False
        field, start = self.field, key.split(":")[0].lstrip("?")
        if field == "V1Title":
            return key in ("V1:title", "V1:TIT2") or not any(one.startswith("V1:") for one in before)
        if field == "TYER":
            return start in YEAR
        if field == "Mood":
            return key.startswith(PROPERTY + "Mood")
        if field in ("Comment", "Cover"):
            added = "COMM:added" if field == "Comment" else "APIC:" + self.text
            return key.startswith(added)
        if field == "Comments":
            return start == "COMM" and not key.startswith(PROPERTY)
        if field == "Covers":
            return start == "APIC"
        if field in ("TXXX", "WXXX", "USLT"):
            return start == field and key in (field, self.described(before))
        return start == field

    def described(self, before):
        """The frame without a description, else (but for TXXX) the first."""
        keys = [key for key in before if key.split(":")[0] == self.field]
        plain = [key for key in keys if key.split(":")[1:2] in ([], [""])]
        return (plain or (keys if self.field != "TXXX" else []) or [self.field + ":"])[0]


LONG = "long " * 900
LETTERS = "Новое ☃ 😀"

EDITS = [Edit(name, words) for name, words in (
    ("change title", ("set", "TIT2", "Other é")), ("grow title", ("set", "TIT2", LONG)),
    ("shrink title", ("set", "TIT2", "x")), ("clear title", ("set", "TIT2", "")),
    ("letters title", ("set", "TIT2", LETTERS)), ("change artist", ("set", "TPE1", "Somebody")),
    ("grow artist", ("set", "TPE1", LETTERS * 20)), ("clear artist", ("set", "TPE1", "")),
    ("change album", ("set", "TALB", "y")), ("clear album", ("set", "TALB", "")),
    ("add composer", ("set", "TCOM", "Composer")), ("add track", ("set", "TRCK", "7/9")),
    ("change genre", ("set", "TCON", "Neu")), ("clear genre", ("set", "TCON", "")),
    ("change year", ("set", "TYER", "2011")), ("clear year", ("set", "TYER", "")),
    ("change url", ("set", "WXXX", "http://new")), ("add artist url", ("set", "WOAR", "http://artist")),
    ("change text", ("set", "TXXX", "new text")), ("clear text", ("set", "TXXX", "")),
    ("change lyrics", ("set", "USLT", "la lé")), ("clear lyrics", ("set", "USLT", "")),
    ("change mood", ("set", "Mood", LETTERS)), ("clear mood", ("set", "Mood", "")),
    ("add comment", ("set", "Comment", "added text")), ("change comment", ("set", "Comments", "another")),
    ("clear comments", ("set", "Comments", "")), ("add cover", ("set", "Cover", "new cover")),
    ("change cover", ("set", "Covers", "renamed")), ("clear covers", ("set", "Covers", "")),
    ("change v1", ("set", "V1Title", "New title")), ("remove v1", ("remove", "v1")), ("remove v2", ("remove", "v2")))]
SAME = Edit("same", ("same",))
TITLE = EDITS[0]
