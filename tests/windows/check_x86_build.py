#!/usr/bin/env python3
"""Static checks of the x86 server, which cannot run here (no 32-bit Wine).

    check_x86_build.py WIN32_BUILD

telvaro.dll must be a 32-bit (i386) PE DLL exporting the four entry points
of an in-process server under their plain names, with its type library
embedded; the library must be built for 32-bit Windows (SYS_WIN32) and
carry the pre-declared flag on the class Fun, like the x64 one.
"""
import os
import struct
import subprocess
import sys

ENTRY_POINTS = ["DllCanUnloadNow", "DllGetClassObject", "DllRegisterServer", "DllUnregisterServer"]
SYS_WIN32 = 1


def main(build):
    failures = []

    def expect(ok, what):
        print(("ok   " if ok else "FAIL ") + what)
        if not ok:
            failures.append(what)

    dll = os.path.join(build, "telvaro.dll")
    dump = subprocess.run(["i686-w64-mingw32-objdump", "-p", dll], capture_output=True, text=True).stdout
    expect("file format pei-i386" in dump, "telvaro.dll is a 32-bit PE image")
    exported = [line.split()[-1] for line in dump.split("[Ordinal/Name Pointer] Table")[-1].split("\n")
                if line.strip().startswith("[")]
    expect(sorted(exported) == ENTRY_POINTS, "exports exactly the four entry points: %s" % exported)
    headers = subprocess.run(["i686-w64-mingw32-objdump", "-h", dll], capture_output=True, text=True).stdout
    expect(".rsrc" in headers, "resources are embedded")

    with open(os.path.join(build, "src", "com", "telvaro.tlb"), "rb") as f:
        library = f.read()
    magic, = struct.unpack_from("<I", library, 0)
    varflags, = struct.unpack_from("<i", library, 20)
    expect(magic == 0x5446534D and varflags & 0xF == SYS_WIN32, "the type library is built for 32-bit Windows")
    with open(dll, "rb") as f:
        expect(library in f.read(), "telvaro.dll embeds that type library")

    sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "..", "src", "com"))
    from set_type_flags import set_type_flags
    old, _ = set_type_flags(bytearray(library), "6CE2A736-78E9-4882-B138-7048AE8A278F", 0)
    expect(old == 0xB, "Fun is creatable, an application object and pre-declared (0x%X)" % old)

    print("x86 build: %s (%d failed)" % ("FAILED" if failures else "passed", len(failures)))
    return 1 if failures else 0


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    sys.exit(main(sys.argv[1]))
