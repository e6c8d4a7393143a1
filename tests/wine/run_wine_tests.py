#!/usr/bin/env python3
"""Runs the automation clients against the x64 server under Wine.

    run_wine_tests.py WINDOWS_BUILD LINUX_TELVARO

In a new Wine prefix: regsvr32 registers telvaro.dll; the C++ client and
the type-library check run; the VBScript clients run with cscript; the
calls of parity.tsv are made from VBScript and compared with the Linux
build's answers; regsvr32 /u unregisters, and no entry naming the
library's identities may remain in the registry. Exits non-zero when
anything failed.
"""
import os
import shutil
import subprocess
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
IDENTITIES = ["4C93F8DD-15B8-41E9-A125-4A84D77E1B1A", "6CE2A736-78E9-4882-B138-7048AE8A278F",
              "CC6D850A-0003-43B1-AEE8-89E52B79C200", "D41F957A-54AD-4162-835A-6F914662BC33",
              "4C0D0C89-3622-494B-8A64-7A494921F448", "Telvaro.Fun"]


def find_wine():
    for candidate in ("wine64", "/usr/lib/wine/wine64", "/usr/lib64/wine/wine64"):
        path = shutil.which(candidate) or (candidate if os.path.exists(candidate) else None)
        if path:
            return path
    sys.exit("wine64 not found")


class Wine:
    def __init__(self, prefix):
        self.wine = find_wine()
        self.env = dict(os.environ, WINEPREFIX=prefix, WINEDEBUG="-all", WINEDLLOVERRIDES="mscoree,mshtml=",
                        DISPLAY="")
        self.drive = os.path.join(prefix, "drive_c")

    def run(self, *args, timeout=300):
        done = subprocess.run([self.wine, *args], env=self.env, capture_output=True, timeout=timeout,
                              stdin=subprocess.DEVNULL)
        return done.returncode, done.stdout.decode("latin-1").replace("\r", "")

    def wait(self):
        server = os.path.join(os.path.dirname(self.wine), "wineserver")
        subprocess.run([server if os.path.exists(server) else "wineserver", "-w"], env=self.env, timeout=120)


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
    done = subprocess.run([telvaro, "call", method, *args], capture_output=True, text=True,
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
    prefix = os.path.join(build, "wine-prefix")
    shutil.rmtree(prefix, ignore_errors=True)
    wine = Wine(prefix)
    code, _ = wine.run("wineboot", "-i")
    expect(code == 0, "new Wine prefix")
    work = os.path.join(wine.drive, "telvaro-tests")
    os.makedirs(work)
    shutil.copy(os.path.join(build, "telvaro.dll"), work)
    for exe in ("com_client.exe", "typelib_check.exe"):
        shutil.copy(os.path.join(build, "wine-tests", exe), work)
    dll = "C:\\telvaro-tests\\telvaro.dll"

    code, out = wine.run("regsvr32", "/s", dll)
    expect(code == 0, "regsvr32 registers telvaro.dll", out)

    for exe in ("com_client.exe", "typelib_check.exe"):
        code, out = wine.run("C:\\telvaro-tests\\" + exe)
        print(out.strip())
        expect(code == 0, exe)

    with open(os.path.join(HERE, "vbs", "prelude.vbs"), encoding="utf-8") as f:
        prelude = f.read()
    for name in sorted(os.listdir(os.path.join(HERE, "vbs"))):
        if name == "prelude.vbs" or not name.endswith(".vbs"):
            continue
        with open(os.path.join(HERE, "vbs", name), encoding="utf-8") as f:
            script = prelude + "\n" + f.read()
        with open(os.path.join(work, name), "w", encoding="cp1252", newline="\r\n") as f:
            f.write(script)
        code, out = wine.run("cscript", "//nologo", "C:\\telvaro-tests\\" + name)
        print(out.strip())
        # A script that stops on an error it did not expect prints no summary.
        summary = "%s: " % name[:-4]
        expect(code == 0 and any(l.startswith(summary) and l.endswith(" 0 failed") for l in out.split("\n")),
               "cscript " + name)

    calls = parity_calls()
    with open(os.path.join(work, "parity.vbs"), "w", encoding="cp1252", newline="\r\n") as f:
        f.write(prelude + "\n" + parity_script(calls))
    code, out = wine.run("cscript", "//nologo", "C:\\telvaro-tests\\parity.vbs")
    answers = [line[2:] for line in out.split("\n") if line.startswith("= ")]
    for (method, args), windows in zip(calls, answers):
        linux = linux_answer(telvaro, method, args)
        expect(windows == linux, "same answer on both builds: %s(%s)" % (method, ", ".join(args)),
               "Windows [%s] Linux [%s]" % (windows, linux))
    expect(len(answers) == len(calls), "every parity call answered")

    code, out = wine.run("regsvr32", "/s", "/u", dll)
    expect(code == 0, "regsvr32 /u unregisters telvaro.dll", out)
    wine.wait()
    left = []
    for hive in ("system.reg", "user.reg", "userdef.reg"):
        path = os.path.join(prefix, hive)
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
