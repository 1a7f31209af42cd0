"""borders.py ROOMS SOURCES: holds every #include below the folder SOURCES against the rooms' lists.

ROOMS is the list that cmake/Rooms.cmake writes: "NAME|FOLDER|USES|LIBRARIES" a line. A file belongs to the room of the
deepest folder that has one. It may include what lies in its own room and in the rooms that its room names under USES,
of these only what lies in the room's own folder: a folder below that is no room (platform/linux) is the room's inside.
Of other headers, everyone has the C++ library's, a room the headers of its LIBRARIES, and only the room `platform` the
system's. Each wrong include is a line of its own; the exit code is 1 if there is any.
"""

import pathlib
import re
import sys

SYSTEM_ROOM = "platform"
INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)', re.MULTILINE)
# Headers of libraries, by what LIBRARIES calls them.
LIBRARIES = {
    r"Qt6::\w+": r"Q\w+|q\w+\.h",
    r"PkgConfig::UTF8PROC": r"utf8proc\.h",
    r"PkgConfig::DBUS": r"dbus/.+",
    r"ZLIB::ZLIB": r"zlib\.h",
}
STANDARD = set("""
    algorithm any array atomic barrier bit bitset charconv chrono compare complex concepts condition_variable coroutine
    deque exception execution filesystem format forward_list fstream functional future initializer_list iomanip ios
    iosfwd iostream istream iterator latch limits list locale map memory memory_resource mutex new numbers numeric
    optional ostream queue random ranges ratio regex scoped_allocator semaphore set shared_mutex source_location span
    sstream stack stdexcept stop_token streambuf string string_view strstream syncstream system_error thread tuple
    type_traits typeindex typeinfo unordered_map unordered_set utility valarray variant vector version
    cassert cctype cerrno cfenv cfloat cinttypes climits clocale cmath csetjmp csignal cstdarg cstddef cstdint cstdio
    cstdlib cstring ctime cuchar cwchar cwctype""".split())


class Room:
    def __init__(self, line):
        self.name, self.folder, uses, libraries = line.split("|")
        self.uses, self.libraries = uses.split(), libraries.split()


def rooms_of(text):
    """{folder: room}"""
    rooms = [Room(line) for line in text.splitlines()]
    return {room.folder: room for room in rooms}


def room_of(path, rooms):
    """The room of a path relative to the sources, or None."""
    return next((rooms[str(folder)] for folder in path.parents if str(folder) in rooms), None)


def own_header(path, header, room, rooms, forms):
    """What is wrong with #include "header", or None."""
    # A window's header is made from its form, which lies beside its source.
    made = re.fullmatch(r"ui_(\w+)\.h", header)
    target = forms.get(made[1]) if made else pathlib.PurePosixPath(header)
    other = room_of(target, rooms) if target else None
    if other is None:
        return f"{path} includes {header}, which lies in no room"
    if other is room:
        return None
    if other.name not in room.uses:
        return f"{path} includes {header}, but the room {room.name} does not name {other.name}"
    if str(target.parent) != other.folder:
        return f"{path} includes {header}, which is the inside of the room {other.name}"
    return None


def foreign_header(path, header, room):
    """What is wrong with #include <header>, or None."""
    if header in STANDARD:
        return None
    for library, headers in LIBRARIES.items():
        if re.fullmatch(headers, header):
            if any(re.fullmatch(library, named) for named in room.libraries):
                return None
            return f"{path} includes <{header}>, but the room {room.name} names no library for it under LIBRARIES"
    if room.name == SYSTEM_ROOM:
        return None
    return f"{path} includes <{header}>, but the room {room.name} is not {SYSTEM_ROOM}, which alone knows the system"


def wrong_includes(rooms, sources):
    """A sentence for each."""
    files = sorted(path.relative_to(sources) for path in sources.rglob("*") if path.suffix in (".h", ".cpp", ".ui"))
    forms = {path.stem: path for path in files if path.suffix == ".ui"}
    for path in files:
        room = room_of(path, rooms)
        if room is None:
            yield f"{path} lies in no room"
            continue
        if path.suffix == ".ui":
            continue
        for own, foreign in INCLUDE.findall((sources / path).read_text(encoding="utf-8")):
            wrong = own_header(path, own, room, rooms, forms) if own else foreign_header(path, foreign, room)
            if wrong:
                yield wrong


def main():
    rooms = rooms_of(pathlib.Path(sys.argv[1]).read_text(encoding="utf-8"))
    wrong = list(wrong_includes(rooms, pathlib.Path(sys.argv[2])))
    print(*wrong, sep="\n")
    return 1 if wrong or not rooms else 0


if __name__ == "__main__":
    sys.exit(main())
