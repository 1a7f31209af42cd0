"""The parts of an MP3 file, read once more and independently of the program under test."""

import re


def number(data, bits):
    value = 0
    for byte in data:
        value = value << bits | byte
    return value


def walk(body, version, bits):
    """The frames as (id, flags, content), and what is left behind them."""
    name, head = (3, 6) if version == 2 else (4, 10)
    frames, at = [], 0
    while len(body) - at >= head and re.fullmatch(rb"[A-Z0-9]{3}([A-Z0-9 \0])?", body[at:at + name]):
        field = body[at + name:at + name + (3 if version == 2 else 4)]
        size = number(field, bits)
        if size > len(body) - at - head or (bits == 7 and max(field) > 127):
            break
        flags = number(body[at + 8:at + 10], 8) if version > 2 else 0
        frames.append((body[at:at + name].decode("latin1"), flags, body[at + head:at + head + size]))
        at += head + size
    return frames, body[at:].rstrip(b"\0")


class File:
    """head: the first ID3v2 tag; sound: all behind it but v1; sound_alone: without further ID3v2 tags in front."""

    def __init__(self, data):
        self.frames, self.junk, self.version, self.head = [], b"", 0, b""
        end = self.extent(data)
        if 0 < end <= len(data):
            self.head = data[:end]
            self.read_frames()
        rest = data[len(self.head):]
        self.v1 = rest[-128:] if rest[-128:-125] == b"TAG" and rest[-131:-123] != b"APETAGEX" else b""
        self.sound = rest[:len(rest) - len(self.v1)]
        self.sound_alone = self.sound
        while self.head and self.sound_alone[:3] == b"ID3":
            self.sound_alone = self.sound_alone[self.extent(self.sound_alone):]

    @staticmethod
    def extent(data):
        if data[:3] != b"ID3" or len(data) < 10 or max(data[6:10]) > 127:
            return 0
        return number(data[6:10], 7) + (20 if data[3] == 4 and data[5] & 0x10 else 10)

    def read_frames(self):
        self.version, flags = self.head[3], self.head[5]
        body = self.head[10:10 + number(self.head[6:10], 7)]
        if flags & 0x80 and self.version < 4 and not re.search(rb"\xff[\xe0-\xff]", body):
            body = body.replace(b"\xff\x00", b"\xff")
        if flags & 0x40 and self.version > 2 and not body[:4].isalnum():
            body = body[number(body[:4], 7) if self.version == 4 else number(body[:4], 8) + 4:]
        tries = [walk(body, self.version, bits) for bits in ((7, 8) if self.version == 4 else (8, 7))]
        whole = [found for found in tries if not found[1]]
        self.frames, self.junk = (whole or sorted(tries, key=lambda found: len(found[1])))[0]
