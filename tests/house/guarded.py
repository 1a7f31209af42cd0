"""guarded.py PROGRAM...: reads programs for the guards that cmake/Hardened.cmake has them built with.

Of Linux or of Windows, 64 bits, stripped or not. Each guard that a program lacks is a line; the exit code is 1 if there
is any.
"""

import pathlib
import struct
import sys

X86_64 = 62
PT_LOAD, PT_DYNAMIC, PT_NOTE, PT_GNU_STACK, PT_GNU_RELRO, EXECUTABLE = 1, 2, 4, 0x6474E551, 0x6474E552, 1
DT_STRTAB, DT_STRSZ, DT_FLAGS, DT_FLAGS_1 = 5, 10, 30, 0x6FFFFFFB
BIND_NOW, NOW, PIE = 8, 1, 0x08000000
PROPERTY_NOTE, FEATURES, SHADOW_STACK = 5, 0xC0000002, 2
ENDBR64, PROBE = bytes.fromhex("f30f1efa"), bytes.fromhex("48830c2400")  # where jumps may end; a page of stack touched
PE_CHARACTERISTICS = {0x20: "addresses of more than 32 bits (HIGH_ENTROPY_VA)", 0x40: "any address (DYNAMIC_BASE)",
                      0x100: "data that can't be run (NX_COMPAT)"}


class Elf:
    def __init__(self, data):
        self.data = data
        self.type, self.machine = struct.unpack_from("<HH", data, 16)
        place, size, count = struct.unpack_from("<Q", data, 32) + struct.unpack_from("<HH", data, 54)
        # type, flags, offset, address, physical address, size in the file, size in memory, alignment
        self.segments = [struct.unpack_from("<IIQQQQQQ", data, place + size * n) for n in range(count)]
        self.dynamic = {}
        for segment in self.of_type(PT_DYNAMIC):
            self.dynamic |= dict(struct.iter_unpack("<QQ", self.bytes_of(segment)))

    def of_type(self, kind):
        return [segment for segment in self.segments if segment[0] == kind]

    def bytes_of(self, segment):
        return self.data[segment[2]:segment[2] + segment[5]]

    def code(self):
        return b"".join(self.bytes_of(segment) for segment in self.of_type(PT_LOAD) if segment[1] & EXECUTABLE)

    def names(self):
        """Of the symbols that it takes from libraries, which no strip takes away."""
        begin = self.dynamic[DT_STRTAB]
        for _, _, offset, address, _, size, _, _ in self.of_type(PT_LOAD):
            if address <= begin < address + size:
                place = begin - address + offset
                return set(self.data[place:place + self.dynamic[DT_STRSZ]].split(b"\0"))
        return set()

    def features(self):
        """The bits of the property note that say what the whole program keeps to."""
        for segment in self.of_type(PT_NOTE):
            note, place = self.bytes_of(segment), 0
            while place + 16 <= len(note):
                name, size, kind = struct.unpack_from("<III", note, place)
                start = place + 12 + (name + 3) // 4 * 4
                at = start
                while kind == PROPERTY_NOTE and at + 12 <= start + size:
                    what, length, bits = struct.unpack_from("<III", note, at)
                    if what == FEATURES:
                        return bits
                    at += 8 + (length + 7) // 8 * 8
                place = start + (size + 7) // 8 * 8
        return 0


def lacks_of_elf(data):
    elf = Elf(data)
    names = elf.names()
    held = {
        "any address (ET_DYN, PIE)": elf.type == 3 and elf.dynamic.get(DT_FLAGS_1, 0) & PIE,
        "a stack that can't be run (GNU_STACK)": [s[1] & EXECUTABLE for s in elf.of_type(PT_GNU_STACK)] == [0],
        "tables that are read-only after the start (GNU_RELRO)": elf.of_type(PT_GNU_RELRO),
        "all of these tables (BIND_NOW)":
            elf.dynamic.get(DT_FLAGS, 0) & BIND_NOW or elf.dynamic.get(DT_FLAGS_1, 0) & NOW,
        "no segment that is both written and run": not any(s[0] == PT_LOAD and s[1] & 3 == 3 for s in elf.segments),
        "a guarded stack (__stack_chk_fail)": b"__stack_chk_fail" in names,
        "lengths that are checked (FORTIFY)": b"__memcpy_chk" in names,
        "containers that check (GLIBCXX_ASSERTIONS)": any(b"glibcxx_assert_fail" in name for name in names),
    }
    if elf.machine == X86_64:
        code = elf.code()
        held |= {
            "marked ends of jumps (endbr64)": code.count(ENDBR64) > 1000,
            "shadow stacks (SHSTK)": elf.features() & SHADOW_STACK,
            "a stack that is touched page by page (stack clash)": PROBE in code,
        }
    return [guard for guard, there in held.items() if not there]


def lacks_of_pe(data):
    header = struct.unpack_from("<I", data, 60)[0]
    kept, = struct.unpack_from("<H", data, header + 22)  # Characteristics; 1: can't be moved
    characteristics, = struct.unpack_from("<H", data, header + 24 + 70)
    base, = struct.unpack_from("<Q", data, header + 24 + 24)
    relocations, = struct.unpack_from("<I", data, header + 24 + 112 + 5 * 8 + 4)
    held = {guard: characteristics & bit for bit, guard in PE_CHARACTERISTICS.items()}
    held |= {
        "libraries of the system alone (SetDefaultDllDirectories)": b"SetDefaultDllDirectories" in data,
        "what it is moved by (relocations)": not kept & 1 and relocations,
        "a place beyond 4 GiB": base >> 32,
        # The checks are linked in, and say this.
        "a guarded stack": b"stack smashing detected" in data,
        "lengths that are checked (FORTIFY)": b"buffer overflow detected" in data,
        "containers that check (GLIBCXX_ASSERTIONS)": b"__n < this->size()" in data,
    }
    return [guard for guard, there in held.items() if not there]


def lacks(data):
    """The guards that a program lacks."""
    if data[:5] == b"\x7fELF\2":
        return lacks_of_elf(data)
    if data[:2] == b"MZ":
        return lacks_of_pe(data)
    return ["the form of a program that can be read"]


def main():
    found = [f"{path} lacks {guard}" for path in sys.argv[1:] for guard in lacks(pathlib.Path(path).read_bytes())]
    print(*found, sep="\n")
    return 1 if found or len(sys.argv) < 2 else 0


if __name__ == "__main__":
    sys.exit(main())
