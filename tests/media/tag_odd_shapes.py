"""Tags as careless programs leave them; each function makes one from chance. ODD_SHAPES is all of them."""

import zlib

from tag_bytes import (CODECS, LATIN1, LETTERS, PNG, ape, audio, described, frame, lyrics, picture, syncsafe,
                       tag, text, v1)
from tag_shapes import (BEHIND, FRAME_FLAGS, Shape, cut_frame, flagged, inside, name_in, neighbours, odd_frame, outside,
                        subset)


def common(chance, versions=(3, 4)):
    """A version, an encoding, and frames before and behind the odd part."""
    version, encoding = chance.choice(versions), chance.randrange(4)
    return version, encoding, *neighbours(chance, version, encoding)


def ends(chance):
    return {"tail": chance.choice((b"", b"", ape(), lyrics(), ape() + lyrics())), "v1": chance.choice((b"", v1()))}


def named(name, version, *words):
    return " ".join([name, f"v2{version}", *map(str, words)])


def wrong_sizes(chance):
    version, encoding, before, after = common(chance)
    size = chance.choice((100, 128, 255, 256, 702, 5000, 16384, 20000))
    sizes = "plain" if version == 4 else "syncsafe"
    wrong = lambda one: frame(version, one[:4].decode("latin1"), one[10:], sizes=sizes)
    behind = chance.choice(BEHIND[:5])
    junk, padding = inside(chance, version, behind)
    long = frame(version, "APIC", picture("long", encoding, data=chance.randbytes(size)), sizes=sizes)
    body = [*map(wrong, before), long, *map(wrong, after)]
    return Shape(named("wrong sizes", version, f"size:{size}", f"behind:{behind}"),
                 [tag(version, *body, junk, padding=padding)], **ends(chance))


def between(chance):
    """Something odd among whole frames."""
    version, encoding, before, after = common(chance, (2, 3, 4))
    what = chance.choice(("odd id", "empty frame", "unknown id", "zeros", "junk"))
    odd = {"odd id": odd_frame(chance, version), "empty frame": frame(version, name_in(version, "TCOM"), b""),
           "unknown id": frame(version, "QQQ" if version == 2 else chance.choice(("ZZZZ", "T999", "W0AB")),
                               text("what")),
           "zeros": bytes(chance.choice((1, 10, 30))), "junk": b"junk between frames"}[what]
    return Shape(named("between", version, what.replace(" ", "_")),
                 [tag(version, *before, odd, *after, padding=chance.choice((0, 0, 100)))], **ends(chance))


def old_ids(chance):
    """Ids of three letters, filled up, in later versions."""
    version, encoding, before, after = common(chance)
    fill = chance.choice("\0\0\0 ")
    bodies = {"TP1": text("Old artist", encoding), "TT2": text("Old title", encoding), "TCM": text("Old", encoding),
              "COM": described("old", "said", encoding, b"eng"), "ULT": described("", "la", encoding, b"eng"),
              "PIC": picture("old", encoding, version=2), "TXX": described("old", "mine", encoding),
              "TYE": text("1987"), "CM1": b"what"}
    chosen = chance.sample(sorted(bodies), chance.randint(1, 4))
    odd = [frame(version, name + fill, bodies[name]) for name in chosen]
    return Shape(named("old ids", version, "zero" if fill == "\0" else "blank", *chosen),
                 [tag(version, *before, *odd, *after, padding=chance.choice((0, 100)))],
                 odd=(*chosen, *(name + fill for name in chosen)), **ends(chance))


def repeated(chance):
    version, encoding, before, after = common(chance, (2, 3, 4))
    name = chance.choice(("TPE1", "TPE1", "TCON", "TIT2", "TCOM"))
    many = [frame(version, name_in(version, name), text(f"Name {i}", encoding)) for i in range(chance.choice((2, 7)))]
    if chance.random() < 0.3:
        many.insert(1, frame(version, name_in(version, "TENC"), text("In between")))
    return Shape(named("repeated", version, name), [tag(version, *before, *many, *after, padding=30)],
                 odd=(name,), **ends(chance))


def overrun(chance):
    version, _, before, after = common(chance, (2, 3, 4))
    whole = tag(version, *before, *after, padding=20)
    shape = Shape(named("overrun", version), [whole], sound=chance.choice((b"", audio(1))), **ends(chance))
    more = len(shape.data()) - 10 + chance.choice((1, 20, 127, 128, 129, 5000, 1 << 20))
    shape.tags = [whole[:6] + syncsafe(more) + whole[10:]]
    return shape


def picture_with_short_description(chance):
    version, _, before, after = common(chance, (2, 3, 4))
    head = bytes([chance.choice((1, 1, 2))]) + (b"PNG" if version == 2 else b"image/png\0") + b"\x03"
    content = head + chance.choice((b"\0", b"cover\0", b"odd\0")) + PNG[:chance.choice((60, 300, 776))]
    return Shape(named("short description", version),
                 [tag(version, *before, frame(version, name_in(version, "APIC"), content), *after, padding=20)],
                 **ends(chance))


def short_year(chance):
    version, _, before, after = common(chance, (2, 3, 4))
    cells = [b"TAG", b"V1 title".ljust(30, b"\0"), b"V1 artist".ljust(30, b"\0"), b"V1 album".ljust(30, b"\0"),
             chance.choice((b"", b"99", b"201")), b"V1 comment".ljust(28, b"\0"), b"\0\x07\x11"]
    head = chance.choice(([], [tag(version, *before, *after)]))
    return Shape(named("short year", version), head, tail=chance.choice((b"", ape())), v1=b"".join(cells))


def links(chance):
    version, _, before, after = common(chance, (2, 2, 3, 4))
    link = b"TT2http://x\0id" if version == 2 or chance.random() < 0.3 else b"TIT2http://x\0id"
    return Shape(named("link", version),
                 [tag(version, *before, frame(version, "LNK" if version == 2 else "LINK", link), *after)],
                 **ends(chance))


def behind_garbage(chance):
    version, _, before, after = common(chance, (2, 3, 4))
    what = chance.choice(("zeros", "noise", "ape", "blank"))
    length = chance.choice((1, 2, 10, 100, 1000, 4096, 60000))
    front = {"zeros": bytes(length), "noise": bytes(byte % 200 for byte in chance.randbytes(length)), "ape": ape(),
             "blank": b"\r\n" * (length // 2 + 1)}[what]
    return Shape(named("behind garbage", version, what), [tag(version, *before, *after, padding=30)], front=front,
                 **ends(chance))


def dates(chance):
    version = chance.choice((2, 3, 3, 4))
    names = {"TYER": "TYE", "TDAT": "TDA", "TIME": "TIM"}
    parts = {"TYER": "2003", "TDAT": "2709", "TIME": "1230"}
    before, after = neighbours(chance, version, LATIN1, ("TYER",))
    have = sorted({"TYER", *subset(chance, names)}) if chance.random() < 0.8 else ["TDAT", "TIME"]
    frames = [frame(version, names[one] if version == 2 else one, text(parts[one])) for one in have]
    if version == 4:
        frames.append(frame(4, "TDRC", text("2003-09-27T12:30")))
    return Shape(named("dates", version, *have), [tag(version, *before, *frames, *after)], **ends(chance))


def compressed(chance):
    """Frames whose compressed bytes are broken, huge, or of another length than they say."""
    version, encoding, before, after = common(chance)
    how = chance.choice(("right", "broken", "cut", "wrong length", "huge", "not at all", "empty"))
    name = chance.choice(("TCOM", "COMM", "APIC", "PRIV", "TXXX"))
    bodies = {"TCOM": text("Composer " * 20, encoding), "COMM": described("zip", "said " * 20, encoding, b"eng"),
              "APIC": picture("zip", encoding), "PRIV": b"zip\0" + bytes(100), "TXXX": described("zip", "x", encoding)}
    body = bodies[name] + (b"a" * ((1 << 20) + 100) if how == "huge" else b"")
    zipped = zlib.compress(body)
    stored = {"broken": chance.randbytes(40), "cut": zipped[:-6], "not at all": body, "empty": b""}.get(how, zipped)
    flags = ["zip", *subset(chance, [one for one in FRAME_FLAGS[version] if one not in ("zip", "secret")])]
    claimed = body[:7] if how == "wrong length" else body
    return Shape(named("compressed", version, name, how.replace(" ", "_"), ",".join(flags)),
                 [tag(version, *before, flagged(version, name, claimed, flags, stored=stored), *after, padding=20)],
                 odd=(name,), **ends(chance))


def claims(chance):
    """What the head of the tag says isn't so."""
    version, _, before, after = common(chance)
    what = chance.choice(("extended", "unsync", "footer", "experimental", "revision", "unknown", "version"))
    whole = bytearray(tag(version, *before, *after, padding=chance.choice((0, 30))))
    if what == "revision":
        whole[4] = 1
    elif what == "version":
        whole[3] = 5
    elif what != "footer" or version == 4:
        whole[5] |= {"extended": 0x40, "unsync": 0x80, "footer": 0x10, "experimental": 0x20, "unknown": 0x02}[what]
    return Shape(named("claims", version, what), [bytes(whole)], **ends(chance))


def many_tags(chance):
    version, _, before, after = common(chance, (2, 3, 4))
    more = chance.choice((3, 4, 9))
    second = tag(more, *chance.choice(([], [frame(3, "TIT2", text("Second"))])), padding=15)
    first = chance.choice((tag(version, *before, *after), tag(version, padding=40), tag(version)))
    at_end = tag(4, frame(4, "TIT2", text("End")), footer=True) if chance.random() < 0.4 else b""
    return Shape(named("many tags", version, f"then:{more}", "end" if at_end else ""), [first, second],
                 tail=chance.choice((b"", ape())) + at_end, v1=chance.choice((b"", v1())))


def without_sound(chance):
    version, _, before, after = common(chance, (2, 3, 4))
    padding = chance.choice((0, 400))
    head = chance.choice(([tag(version, *before, *after, padding=padding)], []))
    return Shape(named("without sound", version), head, sound=chance.choice((b"", b"junk" * 30)), **ends(chance))


def no_tag(chance):
    return Shape("no tag v20", [], **ends(chance))


def old_tails(chance):
    """ID3v2.2 with something behind its frames, which a newer tag can't hold as it is."""
    _, encoding, before, after = common(chance, (2,))
    what = chance.choice(("cut", "odd", "junk", "id", "newer"))
    odd = {"cut": cut_frame(chance, 2), "odd": odd_frame(chance, 2), "junk": b"\x01\x02junk", "id": b"TT2\0",
           "newer": frame(3, "TCOM", text("Newer", encoding))}[what]
    return Shape(named("old tail", 2, what), [tag(2, *before, *after, odd)], **ends(chance))


def odd_texts(chance):
    version, _, before, after = common(chance, (2, 3, 4))
    kinds = {"values": b"\0one\0two", "ended": b"\0one\0\0\0", "no mark": b"\x01" + "one".encode("utf-16-le"),
             "odd length": b"\x01\xff\xfea\0b", "half pair": b"\x01\xff\xfe\x3d\xd8a\0", "no utf8": b"\x03caf\xe9",
             "encoding": b"\x09odd", "mark alone": b"\x01\xff\xfe", "empty": b"\0",
             "big endian": b"\x01\xfe\xff" + LETTERS.encode("utf-16-be")}
    kind = chance.choice(list(kinds))
    name = chance.choice(("TCOM", "TCOP", "TENC"))
    return Shape(named("odd text", version, kind.replace(" ", "_"), name),
                 [tag(version, *before, frame(version, name_in(version, name), kinds[kind]), *after)],
                 odd=(name,), **ends(chance))


def odd_comments(chance):
    """Comments, texts and lyrics that are alike, empty or broken."""
    version, encoding, before, after = common(chance, (2, 3, 4))
    name = chance.choice(("COMM", "TXXX", "USLT", "WXXX"))
    language = b"eng" if name in ("COMM", "USLT") else b""
    choices = (("", "one"), ("", ""), ("about", ""), ("about", "two"), ("more", "three"))
    pairs = [chance.choice(choices) for _ in range(3)]
    frames = [frame(version, name_in(version, name), described(one, words, encoding, language, name == "WXXX"))
              for one, words in pairs]
    if chance.random() < 0.3:
        frames.append(frame(version, name_in(version, name), bytes([encoding]) + language[:2]))
    return Shape(named("odd comments", version, CODECS[encoding], name), [tag(version, *before, *frames, *after)],
                 odd=(name,), **ends(chance))


def odd_frames(chance):
    """Frames that nobody shows, obsolete and nested ones among them."""
    version, _, before, after = common(chance)
    bodies = {"RVAD": b"\x03\x10\x01\x02\x03\x04\x05\x06\x07\x08", "EQUA": b"\x10\x80\x01\0\x02", "TSIZ": text("12"),
              "TRDA": text("4th-7th June"), "TDRL": text("2001-05"), "TDTG": text("2003-01-01"), "TMOO": text("calm"),
              "POPM": b"me@example.org\0\x80\0\0\0\x07", "NCON": b"\x01\x02\xff\xe0\x03",
              "IPLS": b"\0producer\0Someone",
              "CHAP": b"ch\0" + bytes(16) + frame(version, "TIT2", text("Chapter")), "SEEK": b"\0\0\x10\0",
              "CTOC": b"toc\0\x03\x01ch\0", "ETCO": b"\x02\x01\0\0\0\x10", "RVA2": b"album\0\x01\x02\0\0",
              "TCMP": text("1"), "TORY": text("1960"), "TDOR": text("1960"), "TLEN": text("123"), "GRP1": text("group")}
    chosen = chance.sample(sorted(bodies), chance.randint(1, 6))
    return Shape(named("odd frames", version, *chosen),
                 [tag(version, *before, *[frame(version, one, bodies[one]) for one in chosen], *after)],
                 odd=tuple(chosen), **ends(chance))


ODD_SHAPES = (wrong_sizes, between, old_ids, repeated, overrun, picture_with_short_description, short_year, links,
              behind_garbage, dates, compressed, claims, many_tags, without_sound, no_tag, old_tails, odd_texts,
              odd_comments, odd_frames)
