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
TYPEINFO_POSGUID = 0x2C
TYPEINFO_FLAGS = 0x30
GUID_ENTRY_SIZE = 24         # GUID, hreftype, next hash


def segment(data, directory, index):
    offset, length = struct.unpack_from("<ii", data, directory + 16 * index)
    return offset, length


def set_type_flags(data, guid, flags):
    magic, = struct.unpack_from("<I", data, 0)
    if magic != MAGIC:
        raise ValueError("not a type library in MSFT format")
    header = struct.unpack_from("<%di" % HEADER_INTS, data, 0)
    varflags, count = header[5], header[8]
    directory = 4 * HEADER_INTS + 4 * count + (4 if varflags & HELP_DLL_FLAG else 0)
    infos, infos_length = segment(data, directory, 0)
    guids, _ = segment(data, directory, 5)
    wanted = uuid.UUID(guid).bytes_le
    for at in range(infos, infos + infos_length, TYPEINFO_SIZE):
        posguid, = struct.unpack_from("<i", data, at + TYPEINFO_POSGUID)
        if posguid < 0 or bytes(data[guids + posguid:guids + posguid + 16]) != wanted:
            continue
        old, = struct.unpack_from("<I", data, at + TYPEINFO_FLAGS)
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
