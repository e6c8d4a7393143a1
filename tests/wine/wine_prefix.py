"""A new Wine prefix holding the x64 server and its clients.

The prefix lives in the Windows build folder; telvaro.dll and the client
programs are copied to C:\\telvaro-tests, where scripts are written too.
"""
import os
import shutil
import subprocess
import sys

FOLDER = "C:\\telvaro-tests\\"
DLL = FOLDER + "telvaro.dll"


def find_wine():
    for candidate in ("wine64", "/usr/lib/wine/wine64", "/usr/lib64/wine/wine64"):
        path = shutil.which(candidate) or (candidate if os.path.exists(candidate) else None)
        if path:
            return path
    sys.exit("wine64 not found")


class Wine:
    def __init__(self, prefix):
        self.prefix = prefix
        self.wine = find_wine()
        # WINEDEBUG set outside (trace+vbscript ...) reaches the programs.
        # A workbook a client shows is handed to %TELVARO_OPENER%: here a
        # program that only prints the machine's name, not the desktop's opener.
        self.env = dict(os.environ, WINEPREFIX=prefix, WINEDEBUG=os.environ.get("WINEDEBUG", "-all"),
                        WINEDLLOVERRIDES="mscoree,mshtml=", DISPLAY="",
                        TELVARO_OPENER="C:\\windows\\system32\\hostname.exe")
        self.drive = os.path.join(prefix, "drive_c")
        self.work = os.path.join(self.drive, "telvaro-tests")

    def run(self, *args, timeout=300):
        done = subprocess.run([self.wine, *args], env=self.env, capture_output=True, timeout=timeout,
                              stdin=subprocess.DEVNULL)
        return done.returncode, done.stdout.decode("latin-1").replace("\r", "")

    def wait(self):
        server = os.path.join(os.path.dirname(self.wine), "wineserver")
        subprocess.run([server if os.path.exists(server) else "wineserver", "-w"], env=self.env, timeout=120)


def new_prefix(build, name, programs):
    """A new prefix BUILD/NAME with telvaro.dll and the programs (paths in
    BUILD) copied in; returns the Wine and whether wineboot succeeded."""
    prefix = os.path.join(build, name)
    shutil.rmtree(prefix, ignore_errors=True)
    wine = Wine(prefix)
    code, _ = wine.run("wineboot", "-i")
    # Wine links the user's Documents, Desktop and the like to the Unix home
    # folder; they become folders of the prefix, so that nothing a client
    # writes there (the exported workbooks) leaves the build folder.
    users = os.path.join(wine.drive, "users")
    for user in os.listdir(users):
        for entry in os.listdir(os.path.join(users, user)):
            path = os.path.join(users, user, entry)
            if os.path.islink(path):
                os.remove(path)
                os.makedirs(path)
    os.makedirs(wine.work)
    for program in ["telvaro.dll", *programs]:
        shutil.copy(os.path.join(build, program), wine.work)
    return wine, code == 0
