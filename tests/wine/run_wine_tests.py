#!/usr/bin/env python3
"""Runs the automation clients against the x64 server under Wine.

    run_wine_tests.py WINDOWS_BUILD LINUX_TELVARO

In a new Wine prefix: regsvr32 registers telvaro.dll and the test-only
database server (the library's data objects under the database ProgIDs,
reaching an SQLite file through Wine's ODBC and the host's SQLite driver);
the C++ client and the type-library check run; the VBScript clients run
with cscript (each may use the constant TestDatabase, a new file); the
calls of parity.tsv are made from VBScript and compared with the Linux
build's answers; regsvr32 /u unregisters, and no entry naming the
library's identities may remain in the registry. Exits non-zero when
anything failed.
"""
import os
import subprocess
import sys

from wine_prefix import DLL, FOLDER, new_prefix

HERE = os.path.dirname(os.path.abspath(__file__))
DATABASE_SERVER = "database_server.dll"
IDENTITIES = ["4C93F8DD-15B8-41E9-A125-4A84D77E1B1A", "6CE2A736-78E9-4882-B138-7048AE8A278F",
              "CC6D850A-0003-43B1-AEE8-89E52B79C200", "D41F957A-54AD-4162-835A-6F914662BC33",
              "4C0D0C89-3622-494B-8A64-7A494921F448", "Telvaro.Fun"]


failures = []


def expect(ok, what, detail=""):
    print(("ok   " if ok else "FAIL ") + what + (": " + detail if detail and not ok else ""))
    if not ok:
        failures.append(what)


def vbs_literal(text):
    # The scripts are written in the ANSI code page (1252), as cscript reads them.
    return '"%s"' % text.replace('"', '""')


def units(text):
    """The ANSI (1252) codes of a text, in hex, as the VBScript side prints
    them (Wine's VBScript has Asc but no AscW)."""
    return " ".join("%X" % b for b in text.encode("cp1252", errors="replace"))


def parity_calls():
    calls = []
    with open(os.path.join(HERE, "parity.tsv"), encoding="utf-8") as f:
        for line in f:
            line = line.rstrip("\n")
            if line and not line.startswith("#"):
                method, *args = line.split("\t")
                calls.append((method, args))
    return calls


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


def main(build, telvaro):
    telvaro = os.path.abspath(telvaro)
    build = os.path.abspath(build)
    clients = ("com_client.exe", "typelib_check.exe")
    wine, booted = new_prefix(build, "wine-prefix",
                              [os.path.join("wine-tests", exe) for exe in clients + (DATABASE_SERVER,)])
    expect(booted, "new Wine prefix")
    work = wine.work

    code, out = wine.run("regsvr32", "/s", DLL)
    expect(code == 0, "regsvr32 registers telvaro.dll", out)
    code, out = wine.run("regsvr32", "/s", FOLDER + DATABASE_SERVER)
    expect(code == 0, "regsvr32 registers the test database server", out)

    for exe in clients:
        code, out = wine.run(FOLDER + exe)
        print(out.strip())
        expect(code == 0, exe)

    with open(os.path.join(HERE, "vbs", "prelude.vbs"), encoding="utf-8") as f:
        prelude = f.read()
    for name in sorted(os.listdir(os.path.join(HERE, "vbs"))):
        if name == "prelude.vbs" or not name.endswith(".vbs"):
            continue
        database = os.path.join(build, "wine-%s.db" % name[:-4])
        if os.path.exists(database):
            os.remove(database)
        with open(os.path.join(HERE, "vbs", name), encoding="utf-8") as f:
            script = prelude + "\nConst TestDatabase = %s\n" % vbs_literal(database) + f.read()
        with open(os.path.join(work, name), "w", encoding="cp1252", newline="\r\n") as f:
            f.write(script)
        code, out = wine.run("cscript", "//nologo", FOLDER + name)
        print(out.strip())
        # A script that stops on an error it did not expect prints no summary.
        summary = "%s: " % name[:-4]
        expect(code == 0 and any(l.startswith(summary) and l.endswith(" 0 failed") for l in out.split("\n")),
               "cscript " + name)

    calls = parity_calls()
    with open(os.path.join(work, "parity.vbs"), "w", encoding="cp1252", newline="\r\n") as f:
        f.write(prelude + "\n" + parity_script(calls))
    code, out = wine.run("cscript", "//nologo", FOLDER + "parity.vbs")
    answers = [line[2:] for line in out.split("\n") if line.startswith("= ")]
    for (method, args), windows in zip(calls, answers):
        linux = linux_answer(telvaro, method, args)
        expect(windows == linux, "same answer on both builds: %s(%s)" % (method, ", ".join(args)),
               "Windows [%s] Linux [%s]" % (windows, linux))
    expect(len(answers) == len(calls), "every parity call answered")

    # Wine may still be closing the scripts' processes: "could not be
    # started" is Wine's, not the server's, and the step is run again once
    # they are gone.
    code, out = wine.run("regsvr32", "/s", "/u", DLL)
    if code != 0 and "could not be started" in out:
        wine.wait()
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
