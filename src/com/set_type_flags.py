#!/usr/bin/env python3
"""Sets type flags of one type in a compiled type library (MSFT format).

The IDL compiler of the MinGW build has no attribute for some flags (the
pre-declared flag of an application object), so the build sets them in the
compiled library: it finds the type whose GUID is given and ORs the flags
into the type's flag word, then reads the word back.

    set_type_flags.py INPUT OUTPUT GUID FLAGS
"""
import struct
import sys
import uuid

MAGIC = 0x5446534D           # "MSFT"
HEADER_INTS = 21             # magic1 .. res50
HELP_DLL_FLAG = 0x0100       # the header's varflags announce a help DLL offset
SEGMENTS = 15                # segment directory entries of 16 bytes
TYPEINFO_SIZE = 0x64         # one MSFT_TypeInfoBase
TYPEINFO_KIND = 0x00         # low 4 bits: the TYPEKIND
TYPEINFO_POSGUID = 0x2C
TYPEINFO_FLAGS = 0x30
TYPEINFO_NAME = 0x34
TYPEINFO_VTABLE_SIZE = 0x4E  # 16 bits: bytes of the v-table
TYPEINFO_INSTANCE_SIZE = 0x50
NAME_INTRO_SIZE = 12         # hreftype, next hash, length in the low byte


def segment(data, directory, index):
    offset, length = struct.unpack_from("<ii", data, directory + 16 * index)
    return offset, length


class TypeInfo:
    """One type of the library: where its MSFT_TypeInfoBase starts, and what it says."""

    def __init__(self, data, at, guids, names):
        self.at = at
        self.kind = struct.unpack_from("<i", data, at + TYPEINFO_KIND)[0] & 0xF
        posguid, = struct.unpack_from("<i", data, at + TYPEINFO_POSGUID)
        self.guid = None if posguid < 0 else uuid.UUID(bytes_le=bytes(data[guids + posguid:guids + posguid + 16]))
        name_at = names + struct.unpack_from("<i", data, at + TYPEINFO_NAME)[0]
        length = struct.unpack_from("<i", data, name_at + 8)[0] & 0xFF
        self.name = bytes(data[name_at + NAME_INTRO_SIZE:name_at + NAME_INTRO_SIZE + length]).decode("latin-1")
        self.flags, = struct.unpack_from("<I", data, at + TYPEINFO_FLAGS)
        self.vtable_size, = struct.unpack_from("<H", data, at + TYPEINFO_VTABLE_SIZE)
        self.instance_size, = struct.unpack_from("<i", data, at + TYPEINFO_INSTANCE_SIZE)


def type_infos(data):
    """The library's system kind (SYS_WIN16/32/64) and its types, in order."""
    magic, = struct.unpack_from("<I", data, 0)
    if magic != MAGIC:
        raise ValueError("not a type library in MSFT format")
    header = struct.unpack_from("<%di" % HEADER_INTS, data, 0)
    varflags, count = header[5], header[8]
    directory = 4 * HEADER_INTS + 4 * count + (4 if varflags & HELP_DLL_FLAG else 0)
    infos, infos_length = segment(data, directory, 0)
    guids, _ = segment(data, directory, 5)
    names, _ = segment(data, directory, 7)
    return varflags & 0xF, [TypeInfo(data, at, guids, names)
                            for at in range(infos, infos + infos_length, TYPEINFO_SIZE)]


def set_type_flags(data, guid, flags):
    wanted = uuid.UUID(guid)
    for info in type_infos(data)[1]:
        if info.guid != wanted:
            continue
        at, old = info.at, info.flags
        struct.pack_into("<I", data, at + TYPEINFO_FLAGS, old | flags)
        new, = struct.unpack_from("<I", data, at + TYPEINFO_FLAGS)
        if new & flags != flags:
            raise ValueError("flags not set")
        return old, new
    raise ValueError("no type with GUID %s" % guid)


def main(argv):
    if len(argv) != 5:
        sys.exit(__doc__)
    source, target, guid, flags = argv[1], argv[2], argv[3], int(argv[4], 0)
    with open(source, "rb") as f:
        data = bytearray(f.read())
    old, new = set_type_flags(data, guid, flags)
    with open(target, "wb") as f:
        f.write(data)
    print("%s: type flags of {%s} 0x%X -> 0x%X" % (target, guid, old, new))


if __name__ == "__main__":
    main(sys.argv)
