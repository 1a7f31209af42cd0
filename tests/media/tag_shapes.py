"""MP3 files with ID3v2 tags of every version, encoding and combination of flags, around a frame of a certain size.

sized_shape(chance) makes one. Its name says how: "sized v24 utf8 tag:unsync frame:group,zip size:127 TPE1
behind:junk".
"""

import struct
import zlib
from dataclasses import dataclass, field

from tag_bytes import (CODECS, LATIN1, OLD_IDS, PNG, ape, audio, described, frame, lyrics, picture, string,
                       syncsafe, tag, text, unsynchronised, v1)

SIZES = (0, 1, 127, 128, 255, 256, 16383, 16384, 65536)
BEHIND = ("nothing", "padding", "junk", "cut frame", "odd id", "second tag", "ape", "lyrics")
TAG_FLAGS = {2: ("unsync",), 3: ("unsync", "extended"), 4: ("unsync", "extended", "footer")}
# With their bits.
FRAME_FLAGS = {2: {}, 3: {"zip": 0x80, "secret": 0x40, "group": 0x20},
               4: {"group": 0x40, "zip": 0x08, "secret": 0x04, "unsync": 0x02, "length": 0x01}}
JUNK = (b"MP3ext V3.3.17(unicode)" * 9, b"LAME3.100" + b"U" * 60, b"\x55" * 300, b"\xff\xfb\x90\x64" + bytes(40),
        b"APETAGEX" * 3, b" " * 64, b"\x01", b"\0\0\x01\0", b"abcd\0\0\0\x04\0\0wxyz")
ODD_IDS = (b"tit2", b"TI 2", b"T\0\0\0", b"????", b"\xff\xfeAB", b"Tit2", b"TT2\xe9", b"    ")
# In letters of ID3v2.3, and what is in front of the bytes that may have any length.
LONG_FRAMES = {"TPE1": b"", "COMM": b"eng", "USLT": b"eng", "TXXX": b"", "APIC": b"", "PRIV": b"somebody\0",
               "GEOB": b"\0application/x\0file\0described\0", "UFID": b"http://ids\0", "MCDI": b"", "TSSE": b"",
               "XYZW": b""}
OLD_LONG = {"TPE1": "TP1", "COMM": "COM", "USLT": "ULT", "TXXX": "TXX", "APIC": "PIC", "PRIV": "XY1", "GEOB": "GEO",
            "UFID": "UFI", "MCDI": "MCI", "TSSE": "TSS", "XYZW": "CM1", "TDAT": "TDA", "TIME": "TIM", "LINK": "LNK"}


@dataclass
class Shape:
    name: str
    tags: list  # ID3v2 tags in a row
    front: bytes = b""  # what stands before them
    sound: bytes = field(default_factory=lambda: audio(4))
    tail: bytes = b""
    v1: bytes = b""
    odd: tuple = ()  # ids of the frames that are special, in letters of ID3v2.3

    def odd_ids(self):
        return {*self.odd, *(name_in(2, one) for one in self.odd)}

    def data(self):
        return self.front + b"".join(self.tags) + self.rest()

    def rest(self):
        return self.sound + self.tail + self.v1


def subset(chance, names):
    return [name for name in names if chance.random() < 0.5]


# --- frames ---

def filling(chance, size):
    """Bytes that no text is made of; some look like sizes, frames or the start of sound."""
    kind = chance.randrange(5)
    if kind == 0:
        return bytes(size)
    if kind == 1:
        return (b"\xff\xe0\xff\0\xff" * (size // 5 + 1))[:size]
    if kind == 2:
        return (frame(3, "TCOM", text("inside")) * (size // 17 + 1))[:size]
    return chance.randbytes(size)


def long_content(chance, version, name, encoding, size):
    start = LONG_FRAMES[name]
    if name in ("TPE1", "TSSE"):
        whole = bytes([encoding]) + string(f"{name} " + "длина" * size if encoding else "l" * size, encoding)
    elif name in ("COMM", "USLT", "TXXX"):
        whole = described("long", "many words " * (size // 11 + 1), encoding, start)
    elif name == "APIC":
        whole = picture("long", encoding, version=version, data=b"\x89PNG\r\n\x1a\n" + filling(chance, size))
    else:
        whole = start + filling(chance, size)
    return whole[:size]


def flagged(version, name, content, flags, sizes=None, stored=None):
    """A frame that is compressed, grouped and so on as its flags say; `stored` are its bytes where `content` lies."""
    bits = sum(FRAME_FLAGS[version][one] for one in flags)
    length = struct.pack(">I", len(content)) if version == 3 else syncsafe(len(content))
    body = (zlib.compress(content) if "zip" in flags else content) if stored is None else stored
    if "unsync" in flags:
        body = unsynchronised(body)
    secret, group = b"\x80" * ("secret" in flags), b"\x05" * ("group" in flags)
    extra = (length * ("zip" in flags) + secret + group if version == 3 else
             group + secret + length * ("zip" in flags or "length" in flags))
    return frame(version, name, extra + body, bits, sizes)


def name_in(version, name):
    if version == 2:
        return {**OLD_LONG, **OLD_IDS}.get(name, name)
    return "TDRC" if version == 4 and name == "TYER" else name


def neighbours(chance, version, encoding, without=()):
    """Frames that people care for, before and behind the one in question."""
    words = "é" if encoding == LATIN1 else "Привет ☃ 😀"
    made = [("TIT2", text(f"Title {words}", encoding)), ("TALB", text("Album " * chance.randint(1, 40), encoding)),
            ("COMM", described("", f"plain {words}", encoding, b"eng")),
            ("COMM", described("MusicMatch_Mood", "Wild", encoding, b"eng")),
            ("TYER", text(str(chance.randint(1950, 2020)), encoding)), ("TXXX", described("", "mine", encoding)),
            ("PRIV", b"owner\0" + chance.randbytes(chance.choice((4, 130, 300)))), ("TPE1", text(words, encoding)),
            ("COMM", described(f"one {words}", "said", encoding, b"fra")),
            ("TXXX", described("about", words, encoding)),
            ("TCON", text("Own genre", encoding)), ("TSSE", text("Encoder", encoding)),
            ("USLT", described("", "la\nla", encoding, b"deu")),
            ("WXXX", described("", "http://a", encoding, url=True)),
            ("APIC", picture(f"front {words}", encoding, version=version,
                             data=PNG[:chance.choice((9, 120, 702, 776))]))]
    if version == 2:
        made = [one for one in made if one[0] != "PRIV"]
    frames = [frame(version, name_in(version, name), content) for name, content in made
              if name not in without and chance.random() < 0.6]
    if not frames:
        frames = [frame(version, name_in(version, "TENC"), text("Alone", encoding))]
    split = chance.randint(0, len(frames))
    return frames[:split], frames[split:]


# --- tags ---

def cut_frame(chance, version):
    whole = frame(version, name_in(version, "TCOM"), text("Cut off " * chance.choice((2, 30, 90))))
    return whole[:chance.randint(11, len(whole) - 1)]


def odd_frame(chance, version):
    name = chance.choice(ODD_IDS)[:3 if version == 2 else 4]
    return frame(version, name.decode("latin1"), chance.randbytes(chance.choice((5, 127, 200, 300))))


def inside(chance, version, behind):
    """What stands in the tag behind its frames, as bytes and a length of zeros."""
    if behind == "padding":
        return b"", chance.choice((1, 9, 10, 11, 300, 2048))
    if behind == "junk":
        return chance.choice((b"", bytes(12))) + chance.choice(JUNK), chance.choice((0, 0, 40))
    if behind == "cut frame":
        return cut_frame(chance, version), 0
    if behind == "odd id":
        more = frame(version, name_in(version, "TENC"), text("Behind the odd one"))
        return odd_frame(chance, version) + chance.choice((b"", more)), chance.choice((0, 50))
    return b"", 0


def flagged_tag(chance, version, frames, flags, tail=b"", padding=0):
    body = b"".join(frames)
    bits, before = 0, b""
    if "unsync" in flags:
        bits |= 0x80
    if "extended" in flags:
        bits |= 0x40
        small, checked = struct.pack(">IHI", 6, 0, 0), struct.pack(">IHII", 10, 0x8000, 0, zlib.crc32(body))
        newer = (syncsafe(6) + b"\x01\0", syncsafe(12) + b"\x01\x20\x05\0\0\0\0\x01", syncsafe(7) + b"\x01\x40\0")
        before = chance.choice((small, checked)) if version == 3 else chance.choice(newer)
    return tag(version, body, tail, flags=bits, before=before, padding=padding, footer="footer" in flags)


def outside(chance, version, behind):
    """Second tags and blocks behind the sound."""
    second = tag(version, frame(version, name_in(version, "TIT2"), text("Second")), padding=chance.choice((0, 20)))
    return ([second] if behind == "second tag" else [],
            ape() if behind == "ape" else lyrics() if behind == "lyrics" else b"")


def sized_shape(chance):
    version = chance.choices((2, 3, 4), (1, 3, 5))[0]
    encoding, size, behind = chance.randrange(4), chance.choice(SIZES), chance.choice(BEHIND)
    tag_flags, frame_flags = subset(chance, TAG_FLAGS[version]), subset(chance, FRAME_FLAGS[version])
    name = chance.choice(list(LONG_FRAMES))
    before, after = neighbours(chance, version, encoding, (name,))
    extras = (("secret" in frame_flags) + ("group" in frame_flags) +
              4 * ("zip" in frame_flags or "length" in frame_flags))
    content = long_content(chance, version, name, encoding, max(0, size - extras))
    middle = flagged(version, name_in(version, name), content, frame_flags)
    claims = "unsync" in tag_flags and version == 4 and chance.random() < 0.5
    frames = [*before, middle, *after]
    if "unsync" in tag_flags and version == 4 and not claims:
        frames = [unsynchronised_frame(one) for one in frames]
    junk, padding = inside(chance, version, behind)
    tags, tail = outside(chance, version, behind)
    words = ["sized", f"v2{version}", CODECS[encoding], "tag:" + (",".join(tag_flags) or "plain"), *["claims"] * claims,
             "frame:" + (",".join(frame_flags) or "plain"), f"size:{size}", name, f"behind:{behind}"]
    return Shape(" ".join(words), [flagged_tag(chance, version, frames, tag_flags, junk, padding), *tags], tail=tail,
                 v1=chance.choice((b"", b"", v1())), odd=(name,))


def unsynchronised_frame(whole):
    flags = struct.unpack(">H", whole[8:10])[0]
    if flags & 0x02:
        return whole
    return frame(4, whole[:4].decode("latin1"), unsynchronised(whole[10:]), flags | 0x02)


def combinations(start, flags):
    """The words for each combination of flags, as they stand in names."""
    flags = list(flags)
    for chosen in range(1 << len(flags)):
        yield start + (",".join(one for i, one in enumerate(flags) if chosen >> i & 1) or "plain")
