#!/usr/bin/env python3
"""Runs the late-binding benchmark of the x64 server under Wine.

    run_com_bench.py WINDOWS_BUILD

In a new Wine prefix, regsvr32 registers telvaro.dll and com_call_bench.exe
prints, per call, the time through the v-table and through Invoke by
DISPID, and their ratio.
"""
import os
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "tests", "wine"))
from wine_prefix import DLL, FOLDER, new_prefix  # noqa: E402


def main(build):
    wine, booted = new_prefix(os.path.abspath(build), "wine-bench-prefix", [os.path.join("wine-bench", "com_call_bench.exe")])
    if not booted:
        sys.exit("wineboot failed")
    code, out = wine.run("regsvr32", "/s", DLL)
    if code != 0:
        sys.exit("regsvr32 failed: " + out)
    code, out = wine.run(FOLDER + "com_call_bench.exe", timeout=600)
    print(out.strip())
    wine.run("regsvr32", "/s", "/u", DLL)
    return code


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    sys.exit(main(sys.argv[1]))
