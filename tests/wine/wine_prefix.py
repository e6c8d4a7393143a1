"""A new Wine prefix in the Windows build folder, with telvaro.dll and the
client programs copied to C:\\telvaro-tests, where scripts are written too."""
import os
import shutil
import subprocess

FOLDER = "C:\\telvaro-tests\\"
DLL = FOLDER + "telvaro.dll"


class Wine:
    def __init__(self, prefix):
        self.prefix = prefix
        self.wine = shutil.which("wine64") or "/usr/lib/wine/wine64"
        # A workbook a client shows goes to %TELVARO_OPENER%: here a program
        # that only prints the machine's name, not the desktop's opener.
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
        subprocess.run([os.path.join(os.path.dirname(self.wine), "wineserver"), "-w"], env=self.env, timeout=120)


def new_prefix(build, name, programs):
    """A new prefix BUILD/NAME with telvaro.dll and the programs (paths in
    BUILD) copied in; returns the Wine and whether wineboot succeeded."""
    prefix = os.path.join(build, name)
    shutil.rmtree(prefix, ignore_errors=True)
    wine = Wine(prefix)
    code, _ = wine.run("wineboot", "-i")
    # The user's folders Wine links to the Unix home become the prefix's own,
    # so that nothing a client writes there leaves the build folder.
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
