"""The bytes of tags and of the sound between them, right or wrong as asked for."""

import struct

LATIN1, UTF16, UTF16BE, UTF8 = range(4)
CODECS = ("latin1", "utf-16", "utf-16-be", "utf8")
PNG = b"\x89PNG\r\n\x1a\n" + bytes(range(256)) * 3


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
