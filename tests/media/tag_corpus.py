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

from tag_bytes import (CODECS, LATIN1, LETTERS, OTHER_FRAMES, PNG, UTF16, UTF16BE, UTF8, all_fields, ape, audio,
                       described, frame, lyrics, name_in, picture, syncsafe, tag, text, unsynchronised, v1)


@dataclass
class Variant:
    data: bytes
    kinds: set = field(default_factory=set)  # what is special about it, for the list of known differences


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
