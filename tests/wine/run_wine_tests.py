#!/usr/bin/env python3
"""Runs the automation clients against the x64 server under Wine.

    run_wine_tests.py WINDOWS_BUILD LINUX_TELVARO

In a new Wine prefix: registers telvaro.dll and the test database server,
runs the C++ and VBScript clients and reads back what they wrote, compares
the calls of parity.tsv with the Linux build's answers, and unregisters,
leaving no entry naming the library's identities. Exits non-zero on failure.
"""
import glob
import os
import subprocess
import sys

try:
    import openpyxl
except ImportError:  # Debian's python3-openpyxl (scripts/setup) belongs to the system's interpreter
    SYSTEM_PYTHON = "/usr/bin/python3"
    if os.path.exists(SYSTEM_PYTHON) and os.path.realpath(sys.executable) != os.path.realpath(SYSTEM_PYTHON):
        os.execv(SYSTEM_PYTHON, [SYSTEM_PYTHON, *sys.argv])
    raise

from wine_prefix import DLL, FOLDER, new_prefix  # noqa: E402

HERE = os.path.dirname(os.path.abspath(__file__))
DATABASE_SERVER = "database_server.dll"
IDENTITIES = ["4C93F8DD-15B8-41E9-A125-4A84D77E1B1A", "6CE2A736-78E9-4882-B138-7048AE8A278F",
              "CC6D850A-0003-43B1-AEE8-89E52B79C200", "D41F957A-54AD-4162-835A-6F914662BC33",
              "4C0D0C89-3622-494B-8A64-7A494921F448", "Telvaro.Fun"]

# Every cell with a value and the column widths set by the two exports of
# vbs/export.vbs (the looks are the Linux suites' to check).
PRODUCTS = [(7, "Jabón de avena", 12.5), (12, "Café molido", 3.25), (30, "Ñame", 0.75)]
HEADERS = ("Código", "Nombre", "Precio")


def table_cells(first_row):
    rows = [(4, HEADERS)] + list(enumerate(PRODUCTS, first_row))
    return {"%s%d" % (column, row): value for row, record in rows for column, value in zip("BCD", record)}


EXPORTS = [
    ("fn_ExportaExcelGrid", "Libro1.xlsx",
     dict(table_cells(5), B1="Lista de precios", B3="Productos en bodega"), {"B": 15, "C": 30, "D": 10}),
    ("ExportExcelReg", "Libro2.xlsx",
     dict(table_cells(5), C2="Productos"), {"A": 6, "B": 8, "C": 25, "D": 12}),
]
# The binary field of vbs/database.vbs, and the files its Byte arrays went to.
BINARY_FIELD = bytes.fromhex("00FF7F80410D0A1A")
BINARY_FILES = ("adjunto.bin", "adjunto-2.bin")
# The folders sheet_files.exe writes into: names in and outside the ANSI code page.
SHEET_FOLDERS = ("plain", "Años", "Ωμέγα")

failures = []


def expect(ok, what, detail=""):
    print(("ok   " if ok else "FAIL ") + what + (": " + detail if detail and not ok else ""))
    if not ok:
        failures.append(what)


def vbs_literal(text):
    return '"%s"' % text.replace('"', '""')


def write_script(wine, name, text):
    # In the ANSI code page (1252), as cscript reads scripts.
    with open(os.path.join(wine.work, name), "w", encoding="cp1252", newline="\r\n") as f:
        f.write(text)


def units(text):
    """The ANSI codes of a text in hex, as the scripts print them (Wine's
    VBScript has Asc but no AscW)."""
    return " ".join("%X" % b for b in text.encode("cp1252", errors="replace"))


def parity_calls():
    with open(os.path.join(HERE, "parity.tsv"), encoding="utf-8") as f:
        rows = [line.rstrip("\n").split("\t") for line in f if line.strip() and not line.startswith("#")]
    return [(row[0], row[1:]) for row in rows]


def linux_answer(telvaro, method, args):
    done = subprocess.run([telvaro, "call", "--text", method, *args], capture_output=True, text=True,
                          env=dict(os.environ, LC_ALL="C.UTF-8"))
    if done.returncode != 0:
        return "Error " + done.stderr.split(":")[0].split()[-1]
    return units(done.stdout.rstrip("\n"))


def parity_script(calls):
    lines = ["fun.fn_CambiaConfRegional",
             "Function Units(s)", "    Dim i, out", "    For i = 1 To Len(s)",
             "        If i > 1 Then out = out & \" \"", "        out = out & Hex(Asc(Mid(s, i, 1)))",
             "    Next", "    Units = out", "End Function",
             "Dim r", "On Error Resume Next"]
    for method, args in calls:
        call = "fun.%s(%s)" % (method, ", ".join(vbs_literal(a) for a in args))
        lines += ["Err.Clear", "r = " + call,
                  'If Err.Number <> 0 Then WScript.Echo "= Error " & Err.Number Else WScript.Echo "= " & Units(CStr(r))']
    return "\n".join(lines) + "\n"


def same_value(got, expected):
    return got == expected if isinstance(expected, str) else type(got) in (int, float) and got == expected


def check_exports(wine):
    folders = glob.glob(os.path.join(wine.drive, "users", "*", "Documents", "Telvaro", "exports"))
    expect(len(folders) == 1, "the exports are in the user's Documents\\Telvaro\\exports", str(folders))
    if len(folders) != 1:
        return
    folder = folders[0]
    names = sorted(os.listdir(folder))  # nothing half-written left
    expect(names == sorted(e[1] for e in EXPORTS), "the exports folder holds the two workbooks only", str(names))
    for method, name, values, widths in EXPORTS:
        path = os.path.join(folder, name)
        if not os.path.exists(path):
            continue
        sheet = openpyxl.load_workbook(path).worksheets[0]
        got = {c.coordinate: c.value for row in sheet.iter_rows() for c in row if c.value is not None}
        wrong = ["%s=%r (expected %r)" % (k, got.get(k), v) for k, v in values.items() if not same_value(got.get(k), v)]
        wrong += ["%s=%r (expected nothing)" % (k, v) for k, v in got.items() if k not in values]
        expect(not wrong, "%s: every value of %s" % (method, name), "; ".join(wrong))
        # The file keeps widths in whole pixels; openpyxl reads them 0.71 wider.
        set_widths = {k: d.width for k, d in sheet.column_dimensions.items() if d.customWidth}
        expect(set(set_widths) == set(widths) and all(abs(set_widths[k] - 0.71 - w) < 0.1 for k, w in widths.items()),
               "%s: the column widths" % method, str(set_widths))
        expect(sheet.title == "Hoja1", "%s: the sheet's name" % method, sheet.title)


def check_sheet_files(wine):
    """Each folder's Libro1 and Libro3 hold its name in A1 (Libro2 was there before)."""
    root = os.path.join(wine.work, "sheet-files")
    names = sorted(os.listdir(root)) if os.path.isdir(root) else []
    expect(names == sorted(SHEET_FOLDERS), "sheet_files.exe wrote into every folder", str(names))
    for folder in SHEET_FOLDERS:
        for name, text in (("Libro1.xlsx", folder), ("Libro3.xlsx", folder + " 2")):
            path = os.path.join(root, folder, name)
            got = openpyxl.load_workbook(path).worksheets[0]["A1"].value if os.path.exists(path) else None
            expect(got == text, "the workbook %s/%s reads back" % (folder, name), repr(got))


def check_binary_files(wine):
    for name in BINARY_FILES:
        path = os.path.join(wine.work, name)
        data = open(path, "rb").read() if os.path.exists(path) else None
        expect(data == BINARY_FIELD, "the Byte array written to %s holds the field's bytes" % name, repr(data))


def main(build, telvaro):
    telvaro = os.path.abspath(telvaro)
    build = os.path.abspath(build)
    clients = ("com_client.exe", "typelib_check.exe", "sheet_files.exe")
    wine, booted = new_prefix(build, "wine-prefix",
                              [os.path.join("wine-tests", exe) for exe in clients + (DATABASE_SERVER,)])
    expect(booted, "new Wine prefix")

    code, out = wine.run("regsvr32", "/s", DLL)
    expect(code == 0, "regsvr32 registers telvaro.dll", out)
    code, out = wine.run("regsvr32", "/s", FOLDER + DATABASE_SERVER)
    expect(code == 0, "regsvr32 registers the test database server", out)

    for exe in clients:
        code, out = wine.run(FOLDER + exe)
        print(out.strip())
        expect(code == 0, exe)
    check_sheet_files(wine)

    def vbs(name):
        with open(os.path.join(HERE, "vbs", name), encoding="utf-8") as f:
            return f.read()

    prelude = vbs("prelude.vbs")
    for name in sorted(os.listdir(os.path.join(HERE, "vbs"))):
        if name == "prelude.vbs":
            continue
        database = os.path.join(wine.work, name[:-4] + ".db")  # TestDatabase: a new file in the new prefix
        write_script(wine, name, prelude + "\nConst TestDatabase = %s\n" % vbs_literal(database) + vbs(name))
        code, out = wine.run("cscript", "//nologo", FOLDER + name)
        print(out.strip())
        # A script that stops on an error it did not expect prints no summary.
        summary = "%s: " % name[:-4]
        expect(code == 0 and any(l.startswith(summary) and l.endswith(" 0 failed") for l in out.split("\n")),
               "cscript " + name)
        {"export.vbs": check_exports, "database.vbs": check_binary_files}.get(name, lambda _: None)(wine)

    calls = parity_calls()
    write_script(wine, "parity.vbs", prelude + "\n" + parity_script(calls))
    code, out = wine.run("cscript", "//nologo", FOLDER + "parity.vbs")
    answers = [line[2:] for line in out.split("\n") if line.startswith("= ")]
    for (method, args), windows in zip(calls, answers):
        linux = linux_answer(telvaro, method, args)
        expect(windows == linux, "same answer on both builds: %s(%s)" % (method, ", ".join(args)),
               "Windows [%s] Linux [%s]" % (windows, linux))
    expect(len(answers) == len(calls), "every parity call answered")

    wine.wait()  # while Wine is still closing the scripts' processes, regsvr32 "could not be started"
    code, out = wine.run("regsvr32", "/s", "/u", DLL)
    expect(code == 0, "regsvr32 /u unregisters telvaro.dll", out)
    wine.wait()
    left = []
    for hive in ("system.reg", "user.reg", "userdef.reg"):
        path = os.path.join(wine.prefix, hive)
        if os.path.exists(path):
            with open(path, encoding="latin-1") as f:
                text = f.read().lower()
            left += ["%s in %s" % (i, hive) for i in IDENTITIES if i.lower() in text]
    expect(not left, "unregistration leaves no entries", ", ".join(left))

    print("wine tests: %s (%d failed)" % ("FAILED" if failures else "passed", len(failures)))
    return 1 if failures else 0


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    sys.exit(main(sys.argv[1], sys.argv[2]))
