"""MP3 files with tags of every kind: our own byte writer, mutagen, lame and ffmpeg.

make(folder) writes them and gives {name: Variant}.
"""

import os
import random
import struct
import subprocess
import wave
import zlib
from concurrent.futures import ThreadPoolExecutor
from dataclasses import dataclass, field

from mutagen import id3
from mutagen.apev2 import APEv2

LATIN1, UTF16, UTF16BE, UTF8 = range(4)
CODECS = ("latin1", "utf-16", "utf-16-be", "utf8")
PNG = b"\x89PNG\r\n\x1a\n" + bytes(range(256)) * 3


@dataclass
class Variant:
    data: bytes
    kinds: set = field(default_factory=set)  # what is special about it, for the list of known differences


# --- bytes ---

def syncsafe(number):
    return bytes(number >> shift & 0x7F for shift in (21, 14, 7, 0))


def unsynchronised(data):
    out = bytearray()
    for i, byte in enumerate(data):
        out.append(byte)
        if byte == 0xFF and (i + 1 == len(data) or data[i + 1] == 0 or data[i + 1] >= 0xE0):
            out.append(0)
    return bytes(out)


def string(text, encoding, end=b""):
    if encoding == UTF16:
        return b"\xff\xfe" + text.encode("utf-16-le") + end * 2
    return text.encode(CODECS[encoding]) + end * (2 if encoding == UTF16BE else 1)


def text(words, encoding=LATIN1):
    return bytes([encoding]) + string(words, encoding)


def described(description, words, encoding=LATIN1, language=b"", url=False):
    return (bytes([encoding]) + language + string(description, encoding, b"\0") +
            (words.encode("latin1") if url else string(words, encoding)))


def picture(description="cover", encoding=LATIN1, mime=b"image/png", kind=3, data=PNG, version=3):
    head = mime[-3:].upper() if version == 2 else mime + b"\0"
    return bytes([encoding]) + head + bytes([kind]) + string(description, encoding, b"\0") + data


def frame(version, name, content, flags=0, sizes=None):
    if version == 2:
        return name.encode() + struct.pack(">I", len(content))[1:] + content
    plain = (sizes or ("syncsafe" if version == 4 else "plain")) == "plain"
    size = struct.pack(">I", len(content)) if plain else syncsafe(len(content))
    return name.encode("latin1") + size + struct.pack(">H", flags) + content


def tag(version, *frames, padding=0, flags=0, before=b"", footer=False, size=None):
    body = before + b"".join(frames) + bytes(padding)
    if flags & 0x80 and version < 4:
        body = unsynchronised(body)
    if footer:
        flags |= 0x10
    head = bytes([version, 0, flags]) + syncsafe(len(body) if size is None else size)
    return b"ID3" + head + body + (b"3DI" + head if footer else b"")


def v1(title="V1 title", artist="V1 artist", album="V1 album", year="2001", comment="V1 comment", track=7, genre=17):
    cells = [(title, 30), (artist, 30), (album, 30), (year, 4), (comment, 28 if track else 30)]
    out = b"TAG"
    for cell, width in cells:
        out += (cell if isinstance(cell, bytes) else cell.encode("latin1")).ljust(width, b"\0")[:width]
    return out + (bytes([0, track]) if track else b"") + bytes([genre])


def audio(frames=12):
    return b"".join(b"\xff\xfb\x90\x64" + bytes((i * 31 + k) % 200 for k in range(413)) for i in range(frames))


def ape(items=((b"Title", b"APE title"),)):
    body = b"".join(struct.pack("<II", len(value), 0) + key + b"\0" + value for key, value in items)
    block = lambda flags: b"APETAGEX" + struct.pack("<IIII", 2000, len(body) + 32, len(items), flags) + bytes(8)
    return block(0xA0000000) + body + block(0x80000000)


def lyrics():
    block = b"LYRICSBEGININD0000200LYR00010some lyrics"
    return block + b"%06dLYRICS200" % len(block)


# --- frames ---

OLD_IDS = {"TIT2": "TT2", "TPE1": "TP1", "TALB": "TAL", "TYER": "TYE", "TRCK": "TRK", "TCON": "TCO", "TCOM": "TCM",
           "TOPE": "TOA", "TCOP": "TCR", "TENC": "TEN", "WXXX": "WXX", "WOAR": "WAR", "TXXX": "TXX", "USLT": "ULT",
           "COMM": "COM", "APIC": "PIC"}
LETTERS = "Привет ☃ 😀"


def name_in(version, name):
    return OLD_IDS[name] if version == 2 else "TDRC" if version == 4 and name == "TYER" else name


def all_fields(version, encoding, letters="é"):
    if encoding != LATIN1:
        letters = LETTERS
    names = ("TIT2", "TPE1", "TALB", "TCOM", "TOPE", "TCOP", "TENC")
    frames = [frame(version, name_in(version, name), text(f"{name} {letters}", encoding)) for name in names]
    frames += [
        frame(version, name_in(version, "TYER"), text("1999", encoding)),
        frame(version, name_in(version, "TRCK"), text("3/12", encoding)),
        frame(version, name_in(version, "TCON"), text("Own genre", encoding)),
        frame(version, name_in(version, "WXXX"), described("", "http://example.org/a", encoding, url=True)),
        frame(version, name_in(version, "WOAR"), b"http://example.org/b"),
        frame(version, name_in(version, "TXXX"), described("about", letters, encoding)),
        frame(version, name_in(version, "USLT"), described("", "la\nla " + letters, encoding, b"deu")),
        frame(version, name_in(version, "COMM"), described("", "plain " + letters, encoding, b"eng")),
        frame(version, name_in(version, "COMM"), described("one " + letters, "said", encoding, b"fra")),
        frame(version, name_in(version, "COMM"), described("MusicMatch_Mood", "Wild", encoding, b"eng")),
        frame(version, name_in(version, "APIC"), picture("front " + letters, encoding, version=version)),
    ]
    return frames


# Frames that nobody shows, obsolete ones among them.
OTHER_FRAMES = {
    "RVAD": b"\x03\x10\x01\x02\x03\x04\x05\x06\x07\x08", "EQUA": b"\x10\x80\x01\x00\x02", "TSIZ": text("12345"),
    "TRDA": text("4th-7th June"), "TDRL": text("2001-05"), "TDTG": text("2003-01-01T10:00:00"), "TMOO": text("calm"),
    "XSOP": text("Sort"), "PRIV": b"owner\0\xff\xfb\x00\xff", "POPM": b"me@example.org\0\x80\0\0\0\x07",
    "UFID": b"http://id\0abc", "GEOB": b"\0text/plain\0file\0described\0contents", "MCDI": bytes(range(60)),
    "NCON": b"\x01\x02\xff\xe0\x03", "WCOM": b"http://example.org/buy", "PCNT": b"\0\0\0\x09", "TLEN": text("12345"),
    "TFLT": text("MPG/3"), "TDEN": text("2002"), "TPE2": text("Band"), "TPOS": text("1/2"), "TBPM": text("120"),
    "IPLS": b"\0producer\0Someone", "TIPL": b"\0producer\0Someone", "RBUF": b"\0\x10\0\x01\0\0\0\0",
    "SYLT": b"\0eng\x02\x01\0la\0\0\0\0\x10", "ETCO": b"\x02\x01\0\0\0\x10", "LINK": b"TIT2http://x\0id",
    "TCMP": text("1"), "TSOP": text("Sorted"), "GRP1": text("group"), "MVNM": text("movement"), "AENC": b"me\0\0\0\0\0",
    "OWNE": b"\0USD1.00\x0020010101Shop", "COMR": b"\0USD1\x0020010101http://x\0\x01Shop\0said\0", "ZZZZ": b"unknown",
    "PIC": b"x", "SEEK": b"\0\0\x10\0", "RVA2": b"album\0\x01\x02\x00\x00", "CHAP": b"ch\0" + bytes(16),
}


# --- variants ---

class Corpus:
    def __init__(self):
        self.variants = {}

    def add(self, name, head, *kinds, tail=b"", sound=None):
        data = head + (audio() if sound is None else sound) + tail
        assert name not in self.variants, name
        self.variants[name] = Variant(data, set(kinds))


def encodings_of(version):
    return (LATIN1, UTF16) if version < 4 else (LATIN1, UTF16, UTF16BE, UTF8)


def plain_variants(corpus):
    for version in (2, 3, 4):
        for encoding in encodings_of(version):
            frames = all_fields(version, encoding)
            corpus.add(f"v2{version}_{CODECS[encoding]}", tag(version, *frames, padding=100))
            corpus.add(f"v2{version}_{CODECS[encoding]}_with_v1", tag(version, *frames), tail=v1())
            corpus.add(f"v2{version}_{CODECS[encoding]}_unsynchronised",
                       tag(version, *frames, padding=100, flags=0x80),
                       *({"claimed unsynchronisation"} if version == 4 else set()))
        for padding in (0, 1, 9, 10, 11, 500, 3000, 70000):
            corpus.add(f"v2{version}_padding_{padding}", tag(version, *all_fields(version, LATIN1), padding=padding))
        title = frame(version, name_in(version, "TIT2"), text("Title"))
        corpus.add(f"v2{version}_no_frames", tag(version, padding=50))
        corpus.add(f"v2{version}_junk_in_padding", tag(version, title, b"MP3ext V3.3.17(unicode)", padding=40))
        corpus.add(f"v2{version}_frame_beyond_tag",
                   tag(version, title, frame(version, name_in(version, "TPE1"), b"\0" + b"x" * 80)[:-40]))
        corpus.add(f"v2{version}_two_in_a_row",
                   tag(version, title) + tag(version, frame(version, name_in(version, "TIT2"), text("Second"))))
        corpus.add(f"v2{version}_only_tag", tag(version, title), sound=b"")
    big_endian = b"\x01\xfe\xff" + "Größe".encode("utf-16-be")
    corpus.add("v23_utf16_big_endian_mark", tag(3, frame(3, "TIT2", big_endian), frame(3, "TPE1", big_endian + b"\0\0")))
    corpus.add("no_tag", b"")
    corpus.add("v24_padding_and_footer", tag(4, *all_fields(4, UTF8), footer=True))
    corpus.add("v24_footer_and_v1", tag(4, *all_fields(4, LATIN1), footer=True), tail=v1())


def header_variants(corpus):
    frames = all_fields(3, LATIN1)
    small, checked = struct.pack(">IHI", 6, 0, 0), struct.pack(">IHII", 10, 0x8000, 0, zlib.crc32(b"".join(frames)))
    corpus.add("v23_extended_header", tag(3, *frames, flags=0x40, before=small, padding=20), "extended header")
    corpus.add("v23_extended_header_checksum", tag(3, *frames, flags=0x40, before=checked), "extended header")
    corpus.add("v23_extended_header_unsynchronised",
               tag(3, *all_fields(3, UTF16), flags=0xC0, before=small), "extended header")
    corpus.add("v23_extended_header_only_claimed", tag(3, *frames, flags=0x40), "extended header")
    newer = all_fields(4, UTF8)
    corpus.add("v24_extended_header", tag(4, *newer, flags=0x40, before=syncsafe(6) + b"\x01\0"), "extended header")
    corpus.add("v24_extended_header_checksum",
               tag(4, *newer, flags=0x40, before=syncsafe(12) + b"\x01\x20\x05\0\0\0\0\x01"), "extended header")
    corpus.add("v24_extended_header_update",
               tag(4, *newer, flags=0x40, before=syncsafe(7) + b"\x01\x40\0"), "extended header")
    corpus.add("v23_experimental", tag(3, *frames, flags=0x20))
    corpus.add("v23_claims_more_than_the_file",
               tag(3, frame(3, "TIT2", text("Title")), size=(1 << 28) - 1), "overrun", sound=b"x" * 900)
    corpus.add("v23_claims_more_than_the_file_v1",
               tag(3, frame(3, "TIT2", text("Title")), size=1 << 20), "overrun", tail=v1())


def size_variants(corpus):
    for length in (100, 127, 128, 129, 200, 255, 256, 300, 1000, 16383, 16384, 20000, 70000):
        data = bytes((i * 7) % 251 for i in range(length))
        for version, sizes in ((4, "plain"), (3, "syncsafe"), (3, "plain"), (4, "syncsafe")):
            wrong = (version == 4) == (sizes == "plain")
            frames = [frame(version, "TIT2", text("Front"), sizes=sizes),
                      frame(version, "PRIV", b"somebody\0" + data, sizes=sizes),
                      frame(version, "APIC", picture(data=data), sizes=sizes),
                      frame(version, "TPE1", text("Behind"), sizes=sizes)]
            kinds = {"wrong sizes"} if wrong else set()
            corpus.add(f"v2{version}_{sizes}_sizes_{length}", tag(version, *frames, padding=64), *kinds)


def flag_variants(corpus):
    inside = text("hidden title " * 5)
    zipped = zlib.compress(inside)
    more = frame(3, "TPE1", text("Artist"))
    more4 = frame(4, "TPE1", text("Artist"))
    length, length4 = struct.pack(">I", len(inside)), syncsafe(len(inside))
    corpus.add("v23_compressed", tag(3, frame(3, "TIT2", length + zipped, 0x0080), more), "hidden")
    corpus.add("v23_encrypted", tag(3, frame(3, "TIT2", b"\x80" + inside, 0x0040), more), "hidden")
    corpus.add("v23_compressed_comment", tag(3, frame(3, "COMM", length + zipped, 0x0080), more), "hidden")
    corpus.add("v23_encrypted_picture", tag(3, frame(3, "APIC", b"\x80" + PNG, 0x0040), more), "hidden")
    corpus.add("v23_grouped", tag(3, frame(3, "TIT2", b"\x05" + inside, 0x0020), more), "group")
    corpus.add("v23_status_flags", tag(3, frame(3, "TIT2", inside, 0xE000), more))
    corpus.add("v24_compressed", tag(4, frame(4, "TIT2", length4 + zipped, 0x0009), more4), "hidden")
    corpus.add("v24_encrypted", tag(4, frame(4, "TIT2", b"\x80" + inside, 0x0004), more4), "hidden")
    corpus.add("v24_encrypted_picture", tag(4, frame(4, "APIC", b"\x80" + PNG, 0x0004), more4), "hidden")
    corpus.add("v24_grouped", tag(4, frame(4, "TIT2", b"\x05" + inside, 0x0040), more4), "group")
    corpus.add("v24_data_length", tag(4, frame(4, "TIT2", length4 + inside, 0x0001), more4))
    corpus.add("v24_grouped_data_length", tag(4, frame(4, "TIT2", b"\x05" + length4 + inside, 0x0041), more4), "group")
    corpus.add("v24_status_flags", tag(4, frame(4, "TIT2", inside, 0x7000), more4))
    risky = b"\x01" + "\u00ff\u0000x\uff00".replace("\0", "").encode("utf-16")
    title = frame(4, "TIT2", unsynchronised(risky), 0x0002)
    image = frame(4, "APIC", unsynchronised(picture(data=b"\xff\xfb\x00\xff\x00" * 40)), 0x0002)
    corpus.add("v24_unsynchronised_frames", tag(4, title, image, more4))
    corpus.add("v24_unsynchronised_frames_and_tag", tag(4, title, image, more4, flags=0x80))
    corpus.add("v24_unsynchronised_with_length",
               tag(4, frame(4, "TIT2", syncsafe(len(risky)) + unsynchronised(risky), 0x0003), more4))
    corpus.add("v24_claimed_unsynchronisation", tag(4, frame(4, "TIT2", risky), more4, flags=0x80),
               "claimed unsynchronisation")
    corpus.add("v23_claimed_unsynchronisation",
               tag(3, frame(3, "TIT2", risky), more)[:5] + b"\x80" + tag(3, frame(3, "TIT2", risky), more)[6:],
               "claimed unsynchronisation")


def other_frame_variants(corpus):
    for version in (3, 4):
        title = frame(version, "TIT2", text("Title"))
        for name, content in OTHER_FRAMES.items():
            shown = name.ljust(4, "\0")
            kinds = {"three letters"} if name == "PIC" else set()
            corpus.add(f"v2{version}_with_{name}", tag(version, title, frame(version, shown, content), title[:0],
                                                       frame(version, "TPE1", text("Artist"))), *kinds)
        everything = [frame(version, name, content) for name, content in OTHER_FRAMES.items() if len(name) == 4]
        corpus.add(f"v2{version}_with_everything", tag(version, *everything, *all_fields(version, UTF16), padding=300),
                   tail=ape() + lyrics() + v1())
    old = [frame(2, name, content) for name, content in
           (("CM1", b"iTunes"), ("RVA", b"\x03\x10\x01\x02\x03\x04"), ("TCP", text("1")), ("CRM", b"me\0x\0data"),
            ("LNK", b"TT2http://x\0"), ("GEO", b"\0text/plain\0f\0d\0abc"), ("PIC", b"\0-->\x03\0http://x/y.png"))]
    corpus.add("v22_with_odd_frames", tag(2, *old, *all_fields(2, UTF16)), "picture link")
    for mime in (b"JPG", b"BMP", b"GIF"):
        corpus.add(f"v22_picture_{mime.decode()}", tag(2, frame(2, "PIC", picture(mime=mime, version=2))), "old mime")


def text_variants(corpus):
    for version in (3, 4):
        def one(name, content, *kinds, label=""):
            corpus.add(f"text_v2{version}_{label or name}", tag(version, frame(version, name, content),
                                                           frame(version, "TIT2", text("Title"))), *kinds)
        for genre in ("(17)", "(17)Rock", "17", "((I think)", "(RX)", "Rock", "(51)(39)Extra", "(255)", "(4)Eurodisco"):
            one("TCON", text(genre), "genre", label=f"genre_{genre}")
        one("TCON", b"\x0051\x0039\0Extra", "genre", "values", label="genre_values")
        for year in ("99", "ca. 1999", "1999-05", "1999-05-03T12:30", "", "19995"):
            one("TYER" if version == 3 else "TDRC", text(year), "year", label=f"year_{year or 'empty'}")
        one("TYER" if version == 4 else "TDRC", text("1987"), "year", label="year_of_other_version")
        one("TPE1", b"\0one\0two", "values", label="two_values")
        one("TPE1", b"\0one\0", label="ended_value")
        one("TPE1", b"\0one\0\0\0", "values", label="empty_values_behind")
        one("TPE1", b"\0\0two", "values", label="empty_value_in_front")
        one("TPE1", b"\x01" + "one\0two".encode("utf-16"), "values", label="utf16_values_one_mark")
        one("TPE1", b"\x01" + "one".encode("utf-16") + b"\0\0" + "two".encode("utf-16"), "values", label="utf16_values")
        one("TPE1", b"\0", label="empty_text")
        one("TPE1", b"", "zero size", label="zero_size")
        one("TPE1", b"\x01\xff\xfe", label="empty_utf16")
        one("TPE1", b"\x01" + "without".encode("utf-16-le"), "no mark", label="utf16_without_mark")
        one("TPE1", b"\x01\xff\xfea\0b", "odd length", label="utf16_odd_length")
        one("TPE1", b"\x01\xff\xfe\x3d\xd8a\0", "broken", label="utf16_half_pair")
        one("TPE1", b"\x03caf\xe9 bad", "broken", label="utf8_broken")
        one("TPE1", b"\x03" + LETTERS.encode(), *({"utf8 in 2.3"} if version == 3 else set()), label="utf8")
        one("TPE1", b"\x09odd", "bad encoding", label="bad_encoding")
        one("TPE1", text("x" * 4000), label="long_text")
        one("WOAR", b"http://a\0rest", label="url_ended")
        one("WOAR", "http://é".encode("latin1"), label="url_latin1")
        one("WOAR", "http://é".encode("utf8"), "utf8 url", label="url_utf8")
        two = [frame(version, "TIT2", text("one")), frame(version, "TIT2", text("two"))]
        corpus.add(f"v2{version}_title_twice", tag(version, *two), "twice")
        for name, language in (("TXXX", b""), ("WXXX", b""), ("USLT", b"eng")):
            url = name == "WXXX"
            cases = {"empty_then_described": [("", "mine"), ("about", "other")],
                     "described_then_empty": [("about", "other"), ("", "mine")],
                     "described_only": [("about", "other"), ("more", "again")],
                     "both_empty": [("", "")], "empty_text": [("about", "")]}
            for label, items in cases.items():
                frames = [frame(version, name, described(d, t, LATIN1, language, url)) for d, t in items]
                kinds = {"empty part"} if label in ("both_empty", "empty_text") or name == "TXXX" else set()
                corpus.add(f"v2{version}_{name}_{label}", tag(version, *frames), *kinds)
        comments = {"empty_descriptions": [("", "one", b"eng"), ("", "two", b"eng")],
                    "languages": [("a", "one", b"eng"), ("a", "two", b"deu"), ("a", "three", b"XXX")],
                    "empty_text": [("described", "", b"eng"), ("more", "text", b"eng")],
                    "properties": [(f"MusicMatch_{p}", p, b"eng") for p in ("Preference", "Mood", "Tempo", "Situation")],
                    "property_languages": [("MusicMatch_Mood", "one", b"deu"), ("MusicMatch_Mood", "two", b"eng")],
                    "other_family": [("Songs-DB_Mood", "one", b"eng"), ("QUBLET_tpsidata", "000083000", b"eng")]}
        for label, items in comments.items():
            for encoding in (LATIN1, UTF16):
                frames = [frame(version, "COMM", described(d, t, encoding, lang)) for d, t, lang in items]
                kinds = {"empty part"} if label == "empty_text" else set()
                kinds |= {"same comment key"} if label == "empty_descriptions" else set()
                corpus.add(f"v2{version}_comments_{label}_{CODECS[encoding]}", tag(version, *frames), *kinds)
        one("COMM", b"\0en", "broken frame", label="comment_too_short")
        one("COMM", b"\0engno end", "broken frame", label="comment_without_end")
        one("APIC", b"\0image/png", "broken frame", label="picture_too_short")
        one("APIC", picture(mime=b"-->", data=b"http://x"), label="picture_link")
        one("APIC", picture(mime=b"", data=PNG), label="picture_without_mime")
        one("APIC", picture(data=b""), "empty picture", label="picture_empty")
        pictures = [frame(version, "APIC", picture(f"p{i}", kind=i, data=PNG * (i + 1))) for i in range(4)]
        corpus.add(f"v2{version}_four_pictures", tag(version, *pictures))


def end_variants(corpus):
    heads = {"v23": tag(3, *all_fields(3, LATIN1), padding=200), "v24": tag(4, *all_fields(4, UTF8)), "none": b""}
    tails = {"v1": v1(), "ape": ape(), "ape_v1": ape() + v1(), "lyrics_v1": lyrics() + v1(),
             "ape_lyrics_v1": ape() + lyrics() + v1(), "lyrics_ape_v1": lyrics() + ape() + v1(),
             "jukebox_block": b"Brava Software Inc.".ljust(8192, b"\0") + v1(), "lyrics_only": lyrics()}
    for head_name, head in heads.items():
        for tail_name, tail in tails.items():
            corpus.add(f"ends_{head_name}_{tail_name}", head, tail=tail)
    corpus.add("ape_at_the_start", ape(), tail=v1())
    corpus.add("v24_at_the_end", b"", tail=tag(4, frame(4, "TIT2", text("End")), footer=True))
    small_ape = ape(((b"T", b"x" * 51),))
    assert len(small_ape) - 32 > 0
    wanted = 131
    small_ape = ape(((b"T", b"x" * (51 + wanted - len(small_ape))),))
    corpus.add("ape_that_looks_like_v1", b"", tail=small_ape)
    corpus.add("v1_alone", b"", sound=b"", tail=v1())
    corpus.add("v1_inside_v2", tag(3, frame(3, "TIT2", text("Title")), frame(3, "PRIV", b"x\0" + v1())), "v1 inside",
               sound=b"")
    v1s = {"empty": v1("", "", "", "", "", 0, 255), "blank_padded": v1(b"Title".ljust(30), b"A".ljust(30), track=0),
           "full": v1("T" * 30, "A" * 30, "B" * 30, "1999", "C" * 30, 0), "full_track": v1(comment="C" * 28, track=255),
           "leading_blanks": v1("  Title", track=0), "odd_year": v1(year="19x9"), "short_year": v1(year="99"),
           "garbage": v1(b"Title\0garbage"), "latin1": v1("Café", "Größe"), "windows1252": v1(b"Price \x80 \x93q\x94"),
           "utf8": v1("Привет".encode(), "Ü".encode()), "genre_254": v1(genre=254), "genre_191": v1(genre=191),
           "track_blank": v1(comment=b"Comment".ljust(28), track=32)}
    for name, data in v1s.items():
        corpus.add(f"v1_{name}", b"", f"v1 {name}", tail=data)
        corpus.add(f"v1_{name}_behind_v2", heads["v23"], f"v1 {name}", tail=data)


def random_variants(corpus):
    for seed in range(80):
        chance = random.Random(seed)
        version = chance.choice((2, 3, 3, 4, 4))
        frames = []
        for _ in range(chance.randint(1, 25)):
            encoding = chance.choice(encodings_of(version))
            fields = all_fields(version, encoding)
            if version > 2 and chance.random() < 0.4:
                name = chance.choice([name for name in OTHER_FRAMES if len(name) == 4])
                frames.append(frame(version, name, OTHER_FRAMES[name]))
            else:
                frames.append(chance.choice(fields))
        # Frames of one kind may come more than once; the judges differ there, so each is taken once.
        once = {}
        for one in frames:
            once.setdefault(one[:3 if version == 2 else 4] + (one if one[:3] == b"COM" else b""), one)
        flags = 0x80 if version < 4 and chance.random() < 0.3 else 0
        tail = b"".join(chance.choice((b"", part)) for part in (ape(), lyrics(), v1()))
        corpus.add(f"random_{seed}", tag(version, *once.values(), padding=chance.choice((0, 5, 300, 2000)), flags=flags),
                   tail=tail)


# --- other programs ---

def mutagen_variants(folder, corpus):
    for number in range(24):
        encoding = number % 4
        version = 3 + number // 4 % 2
        letters = " plain" if encoding == LATIN1 else " " + LETTERS
        tags = id3.ID3()
        for name in ("TIT2", "TPE1", "TALB", "TRCK", "TCOM", "TOPE", "TCOP", "TENC"):
            tags.add(getattr(id3, name)(encoding=encoding, text=name + letters))
        tags.add(id3.TDRC(encoding=encoding, text="1999"))
        tags.add(id3.TCON(encoding=encoding, text="Something else"))
        tags.add(id3.TXXX(encoding=encoding, desc="", text="mine" + letters))
        tags.add(id3.TXXX(encoding=encoding, desc="other", text="theirs"))
        tags.add(id3.WXXX(encoding=encoding, desc="", url="http://example.org"))
        tags.add(id3.WOAR(url="http://example.org/artist"))
        tags.add(id3.USLT(encoding=encoding, lang="fra", desc="", text="la\nla" + letters))
        for description in ("", "one", "MusicMatch_Tempo"):
            tags.add(id3.COMM(encoding=encoding, lang="eng", desc=description, text="comment" + letters))
        tags.add(id3.APIC(encoding=encoding, mime="image/png", type=3, desc="cover" + letters, data=PNG))
        tags.add(id3.POPM(email="x", rating=5, count=3))
        tags.add(id3.PRIV(owner="x", data=b"\xff\xfb\0"))
        path = os.path.join(folder, "mutagen.tmp")
        with open(path, "wb") as file:
            file.write(audio())
        with_v1 = number // 8  # 0: removed, 1: updated, 2: made
        if version == 3:
            tags.update_to_v23()
        tags.save(path, v2_version=version, v1=with_v1)
        if number % 5 == 0:
            extra = APEv2()
            extra["Title"] = "APE title"
            extra.save(path)
        with open(path, "rb") as file:
            corpus.variants[f"mutagen_{number}"] = Variant(file.read(), {"title in v1"})
        os.remove(path)


def make_by_programs(folder, corpus):
    wav, cover = os.path.join(folder, "source.wav.tmp"), os.path.join(folder, "cover.png")
    with wave.open(wav, "wb") as file:
        file.setparams((2, 2, 44100, 0, "NONE", ""))
        file.writeframes(bytes((i * i >> 3) & 0x0F for i in range(44100 * 2)))
    run = lambda *words: subprocess.run(words, check=True, stdin=subprocess.DEVNULL, capture_output=True)
    run("ffmpeg", "-v", "error", "-y", "-f", "lavfi", "-i", "color=red:s=8x8", "-frames:v", "1", cover)
    basic = ["--tt", "Lame title", "--ta", "Lame artist", "--tl", "Lame album", "--ty", "1998", "--tc", "Lame comment"]
    lame = {"basic": basic, "track": basic + ["--tn", "3/9"], "genre": basic + ["--tg", "Rock"],
            "own_genre": basic + ["--tg", "Own genre"], "v1_only": basic + ["--id3v1-only"],
            "v2_only": basic + ["--id3v2-only"], "both": basic + ["--add-id3v2"], "padded": basic + ["--pad-id3v2"],
            "padded_size": basic + ["--pad-id3v2-size", "500"], "picture": basic + ["--ti", cover],
            "utf16": basic[:2] + ["--id3v2-utf16", "--tt", "Größe"], "latin1": ["--id3v2-latin1", "--tt", "Café", "--add-id3v2"],
            "blank_padded": basic + ["--space-id3v1"], "comment_only": ["--tc", "eng:described=text", "--add-id3v2"],
            "user_text": basic + ["--tv", "TXXX=about=text", "--tv", "TCOM=Composer"],
            "url": basic + ["--tv", "WOAR=http://example.org", "--tv", "WXXX=shop=http://shop"],
            "lyrics": basic + ["--tv", "TENC=Encoder", "--tv", "TOPE=Original"], "none": []}
    words = ["-metadata", "title=FF title ☃", "-metadata", "artist=FF artist", "-metadata", "album=FF album",
             "-metadata", "date=1997", "-metadata", "track=4/5", "-metadata", "genre=Own genre",
             "-metadata", "comment=FF comment", "-metadata", "composer=FF composer", "-metadata", "copyright=FF",
             "-metadata", "lyrics=la la", "-metadata", "strange=value", "-metadata", "encoded_by=FF"]
    ffmpeg = {f"v2{version}_{v1_too}_{cover_too}": (version, v1_too, cover_too)
              for version in (3, 4) for v1_too in (0, 1) for cover_too in (0, 1)}

    def by_lame(name):
        path = os.path.join(folder, f"lame_{name}.tmp")
        run("lame", "--quiet", "-b", "64", *lame[name], wav, path)
        return f"lame_{name}", path

    def by_ffmpeg(name):
        version, v1_too, cover_too = ffmpeg[name]
        path = os.path.join(folder, f"ffmpeg_{name}.mp3.tmp")
        picture_words = ["-i", cover, "-map", "0:a", "-map", "1:v", "-c:v", "copy", "-metadata:s:v", "title=Front",
                         "-metadata:s:v", "comment=Cover (front)"] if cover_too else []
        run("ffmpeg", "-v", "error", "-y", "-i", wav, *picture_words, *words, "-b:a", "64k", "-id3v2_version",
            str(version), "-write_id3v1", str(v1_too), "-f", "mp3", path)
        return f"ffmpeg_{name}", path

    with ThreadPoolExecutor(2) as pool:
        made = [pool.submit(by_lame, name) for name in lame] + [pool.submit(by_ffmpeg, name) for name in ffmpeg]
        for name, path in (one.result() for one in made):
            with open(path, "rb") as file:
                corpus.variants[name] = Variant(file.read(), set())
            os.remove(path)
    os.remove(wav)
    os.remove(cover)


def make(folder):
    corpus = Corpus()
    for add in (plain_variants, header_variants, size_variants, flag_variants, other_frame_variants, text_variants,
                end_variants, random_variants):
        add(corpus)
    mutagen_variants(folder, corpus)
    make_by_programs(folder, corpus)
    for name in list(corpus.variants):
        safe = "".join(c if c.isalnum() or c in "_." else "-" for c in name)
        corpus.variants[safe + ".mp3"] = corpus.variants.pop(name)
    for name, variant in corpus.variants.items():
        with open(os.path.join(folder, name), "wb") as file:
            file.write(variant.data)
    return corpus.variants
