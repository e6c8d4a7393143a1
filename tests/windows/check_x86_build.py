#!/usr/bin/env python3
"""Static checks of the x86 server, which cannot run here (no 32-bit Wine).

    check_x86_build.py WIN32_BUILD

telvaro.dll must be a 32-bit (i386) PE DLL exporting the four entry points
of an in-process server under their plain names, importing only system
DLLs (zlib, the C++ runtime and the threads library linked in), with its
type library embedded; the library must be built for 32-bit Windows (SYS_WIN32), carry
the pre-declared flag on the class Fun, like the x64 one, and give the
32-bit layouts: 4-byte v-table slots for the IDispatch methods and the
methods of _Fun, and records of 4-byte longs and 16-byte VARIANTs, as the
committed IDL declares them.
"""
import os
import re
import subprocess
import sys

ENTRY_POINTS = ["DllCanUnloadNow", "DllGetClassObject", "DllRegisterServer", "DllUnregisterServer"]
SYS_WIN32 = 1
TKIND_RECORD = 1
IDISPATCH_SLOTS = 7
X86_SIZES = {"long": 4, "VARIANT": 16}
SOURCE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..")


def declared_layouts():
    """The number of methods of _Fun and each record's x86 size, from the IDL."""
    with open(os.path.join(SOURCE, "src", "com", "telvaro.idl"), encoding="utf-8") as f:
        idl = f.read()
    interface = idl[idl.index("interface _Fun"):]
    methods = len(re.findall(r"\[id\(0x", interface[:interface.index("};")]))
    records = {}
    for name, body in re.findall(r"typedef struct (\w+) \{(.*?)\}", idl, re.S):
        records[name] = sum(X86_SIZES[line.split()[0]] for line in body.strip().splitlines())
    return methods, records


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
    # One self-contained DLL: the C++ runtime, the threads library and the
    # spreadsheet writer's zlib are linked in, so only system DLLs are imported.
    imported = sorted({line.split("DLL Name:")[1].strip().lower() for line in dump.split("\n") if "DLL Name:" in line})
    own = [name for name in imported if name.startswith(("lib", "zlib"))]
    expect(imported and not own, "imports only system DLLs: %s" % imported)
    headers = subprocess.run(["i686-w64-mingw32-objdump", "-h", dll], capture_output=True, text=True).stdout
    expect(".rsrc" in headers, "resources are embedded")

    with open(os.path.join(build, "src", "com", "telvaro.tlb"), "rb") as f:
        library = f.read()
    with open(dll, "rb") as f:
        expect(library in f.read(), "telvaro.dll embeds the built type library")

    sys.path.insert(0, os.path.join(SOURCE, "src", "com"))
    from set_type_flags import type_infos
    system, infos = type_infos(library)
    types = {info.name: info for info in infos}
    expect(system == SYS_WIN32, "the type library is built for 32-bit Windows")
    flags = types["Fun"].flags if "Fun" in types else None
    expect(flags == 0xB, "Fun is creatable, an application object and pre-declared (%s)" % (flags if flags is None else hex(flags)))

    methods, records = declared_layouts()
    vtable = types["_Fun"].vtable_size if "_Fun" in types else None
    expect(methods == 119 and vtable == (IDISPATCH_SLOTS + methods) * 4,
           "_Fun: %d methods after IDispatch in 4-byte slots (%s bytes)" % (methods, vtable))
    expect(len(records) == 3, "three records declared: %s" % sorted(records))
    for name, size in sorted(records.items()):
        info = types.get(name)
        got = (info.kind, info.instance_size) if info else None
        expect(got == (TKIND_RECORD, size), "record %s is %d bytes (%s)" % (name, size, got))

    print("x86 build: %s (%d failed)" % ("FAILED" if failures else "passed", len(failures)))
    return 1 if failures else 0


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    sys.exit(main(sys.argv[1]))
